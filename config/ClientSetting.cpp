#include "config/ClientSetting.h"

#include "config/MemberIO.h"

namespace VextorJSConfig {

namespace {
constexpr const wchar_t* kElementName = L"ClientSetting";
constexpr const wchar_t* kCommunicationName = L"Communication";
constexpr const wchar_t* kHTTPSName = L"HTTPS";
}  // namespace

// The members in write order, which is also the read order: the writer and
// the reader take the same steps.
template <class Steps>
bool CClientSetting::VisitMembers(Steps& steps) {
    return steps.RequiredChild(kCommunicationName, communication_) &&
           steps.RequiredChild(kHTTPSName, https_) &&
           steps.RequiredDWORD(L"ContentUpload", contentUpload_) &&
           steps.OptionalDWORD(L"FailOpen", failOpen_) &&
           steps.RequiredDWORD(L"LogUpload", logUpload_) &&
           steps.RequiredDWORD(L"URLLocalCache", urlLocalCache_) &&
           steps.OptionalDWORD(L"SafeMode", safeMode_) &&
           steps.OptionalDWORD(L"StatsPeriod", statsPeriod_);
}

CClientSetting::~CClientSetting() { CClientSetting::Clear(); }

int CClientSetting::WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent, int /*flag*/) {
    JSONNode* node = CreateElementNode(mgr, parent, kElementName);
    if (node == nullptr) return ZELT_FAILED;
    MemberWriter write(mgr, node, kElementName);
    return VisitMembers(write) ? ZELT_SUCCESS : ZELT_FAILED;
}

int CClientSetting::ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) {
    if (mgr == nullptr) return ReportFailure(Message::ReadNoManager());
    Clear();
    MemberReader read(mgr, node, kElementName);
    return FinishRead(*this, VisitMembers(read));
}

void CClientSetting::Clear() {
    ElementType = ELEMENT_TYPE_ORDINARY;
    communication_.Clear();
    https_.Clear();
    contentUpload_ = 0;
    failOpen_.Clear();
    logUpload_ = 0;
    urlLocalCache_ = 0;
    safeMode_.Clear();
    statsPeriod_.Clear();
}

IClientSetting& CClientSetting::CopyFrom(const IClientSetting& other) {
    if (&other == this) return *this;
    const auto& source = static_cast<const CClientSetting&>(other);
    Clear();
    communication_.CopyFrom(source.communication_);
    https_.CopyFrom(source.https_);
    contentUpload_ = source.contentUpload_;
    failOpen_ = source.failOpen_;
    logUpload_ = source.logUpload_;
    urlLocalCache_ = source.urlLocalCache_;
    safeMode_ = source.safeMode_;
    statsPeriod_ = source.statsPeriod_;
    return *this;
}

int CClientSetting::SetCommunication(const ICommunication* value) {
    return SetRequiredChild(communication_, value, kCommunicationName);
}

int CClientSetting::SetHTTPS(const IHTTPS* value) {
    return SetRequiredChild(https_, value, kHTTPSName);
}

int CClientSetting::SetContentUpload(const DWORD* value) {
    return SetRequiredDWORD(contentUpload_, value, kElementName, L"ContentUpload");
}

int CClientSetting::GetFailOpen(DWORD* out) const { return GetOptionalDWORD(failOpen_, out); }

void CClientSetting::SetFailOpen(const DWORD* value) { SetOptionalDWORD(failOpen_, value); }

int CClientSetting::SetLogUpload(const DWORD* value) {
    return SetRequiredDWORD(logUpload_, value, kElementName, L"LogUpload");
}

int CClientSetting::SetURLLocalCache(const DWORD* value) {
    return SetRequiredDWORD(urlLocalCache_, value, kElementName, L"URLLocalCache");
}

int CClientSetting::GetSafeMode(DWORD* out) const { return GetOptionalDWORD(safeMode_, out); }

void CClientSetting::SetSafeMode(const DWORD* value) { SetOptionalDWORD(safeMode_, value); }

int CClientSetting::GetStatsPeriod(DWORD* out) const { return GetOptionalDWORD(statsPeriod_, out); }

void CClientSetting::SetStatsPeriod(const DWORD* value) { SetOptionalDWORD(statsPeriod_, value); }

IClientSetting* ClientSetting_CreateNewInstance() {
    return NewClearedElement<IClientSetting, CClientSetting>();
}

}  // namespace VextorJSConfig
