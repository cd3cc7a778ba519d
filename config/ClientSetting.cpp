#include "config/ClientSetting.h"

#include "config/MemberIO.h"

namespace VextorJSConfig {

namespace {
constexpr const wchar_t* kElementName = L"ClientSetting";
constexpr const wchar_t* kCommunicationName = L"Communication";
constexpr const wchar_t* kHTTPSName = L"HTTPS";
}  // namespace

CClientSetting::~CClientSetting() { CClientSetting::Clear(); }

int CClientSetting::WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent, int /*flag*/) {
    JSONNode* node = CreateElementNode(mgr, parent, kElementName);
    if (node == nullptr) return ZELT_FAILED;
    MemberWriter write(mgr, node, kElementName);
    const bool complete = write.RequiredChild(kCommunicationName, communication_) &&
                          write.RequiredChild(kHTTPSName, https_) &&
                          write.RequiredDWORD(L"ContentUpload", contentUpload_) &&
                          write.OptionalDWORD(L"FailOpen", failOpen_) &&
                          write.RequiredDWORD(L"LogUpload", logUpload_) &&
                          write.RequiredDWORD(L"URLLocalCache", urlLocalCache_) &&
                          write.OptionalDWORD(L"SafeMode", safeMode_) &&
                          write.OptionalDWORD(L"StatsPeriod", statsPeriod_);
    return complete ? ZELT_SUCCESS : ZELT_FAILED;
}

int CClientSetting::ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) {
    if (mgr == nullptr) return ReportFailure(Message::ReadNoManager());
    Clear();
    MemberReader read(mgr, node, kElementName);
    const bool complete = read.RequiredChild(kCommunicationName, communication_) &&
                          read.RequiredChild(kHTTPSName, https_) &&
                          read.RequiredDWORD(L"ContentUpload", contentUpload_) &&
                          read.OptionalDWORD(L"FailOpen", failOpen_) &&
                          read.RequiredDWORD(L"LogUpload", logUpload_) &&
                          read.RequiredDWORD(L"URLLocalCache", urlLocalCache_) &&
                          read.OptionalDWORD(L"SafeMode", safeMode_) &&
                          read.OptionalDWORD(L"StatsPeriod", statsPeriod_);
    return FinishRead(*this, complete);
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
    IClientSetting* element = new CClientSetting();
    element->Clear();
    return element;
}

}  // namespace VextorJSConfig
