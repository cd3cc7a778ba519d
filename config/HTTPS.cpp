#include "config/HTTPS.h"

#include "config/MemberIO.h"

namespace VextorJSConfig {

namespace {
constexpr const wchar_t* kElementName = L"HTTPS";
}  // namespace

// The members in write order, which is also the read order: the writer and
// the reader take the same steps.
template <class Steps>
bool CHTTPS::VisitMembers(Steps& steps) {
    return steps.RequiredDWORD(L"InspectHostnameOnly", inspectHostnameOnly_) &&
           steps.RequiredDWORD(L"SSLFilter", sslFilter_) &&
           steps.RequiredDWORD(L"UpstreamVerification", upstreamVerification_) &&
           steps.OptionalString(L"WhiteList", whiteList_) &&
           steps.OptionalString(L"WhiteListWithPorts", whiteListWithPorts_);
}

CHTTPS::~CHTTPS() { CHTTPS::Clear(); }

int CHTTPS::WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent, int /*flag*/) {
    JSONNode* node = CreateElementNode(mgr, parent, kElementName);
    if (node == nullptr) return ZELT_FAILED;
    MemberWriter write(mgr, node, kElementName);
    return VisitMembers(write) ? ZELT_SUCCESS : ZELT_FAILED;
}

int CHTTPS::ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) {
    if (mgr == nullptr) return ReportFailure(Message::ReadNoManager());
    Clear();
    MemberReader read(mgr, node, kElementName);
    return FinishRead(*this, VisitMembers(read));
}

void CHTTPS::Clear() {
    ElementType = ELEMENT_TYPE_ORDINARY;
    inspectHostnameOnly_ = 0;
    sslFilter_ = 0;
    upstreamVerification_ = 0;
    whiteList_.Clear();
    whiteListWithPorts_.Clear();
}

IHTTPS& CHTTPS::CopyFrom(const IHTTPS& other) {
    if (&other == this) return *this;
    const auto& source = static_cast<const CHTTPS&>(other);
    Clear();
    inspectHostnameOnly_ = source.inspectHostnameOnly_;
    sslFilter_ = source.sslFilter_;
    upstreamVerification_ = source.upstreamVerification_;
    whiteList_ = source.whiteList_;
    whiteListWithPorts_ = source.whiteListWithPorts_;
    return *this;
}

int CHTTPS::SetInspectHostnameOnly(const DWORD* value) {
    return SetRequiredDWORD(inspectHostnameOnly_, value, kElementName, L"InspectHostnameOnly");
}

int CHTTPS::SetSSLFilter(const DWORD* value) {
    return SetRequiredDWORD(sslFilter_, value, kElementName, L"SSLFilter");
}

int CHTTPS::SetUpstreamVerification(const DWORD* value) {
    return SetRequiredDWORD(upstreamVerification_, value, kElementName, L"UpstreamVerification");
}

int CHTTPS::GetWhiteList(std::wstring* out) const { return GetOptionalString(whiteList_, out); }

void CHTTPS::SetWhiteList(const std::wstring* value) { SetOptionalString(whiteList_, value); }

int CHTTPS::GetWhiteListWithPorts(std::wstring* out) const {
    return GetOptionalString(whiteListWithPorts_, out);
}

void CHTTPS::SetWhiteListWithPorts(const std::wstring* value) {
    SetOptionalString(whiteListWithPorts_, value);
}

IHTTPS* HTTPS_CreateNewInstance() { return NewClearedElement<IHTTPS, CHTTPS>(); }

}  // namespace VextorJSConfig
