#include "config/AdvancedRule.h"

#include "config/MemberIO.h"

namespace VextorJSConfig {

namespace {
constexpr const wchar_t* kElementName = L"AdvancedRule";
constexpr const wchar_t* kEnforceListName = L"EnforceList";
constexpr const wchar_t* kWhiteListName = L"WhiteList";
}  // namespace

// The members in write order, which is also the read order: the writer and
// the reader take the same steps.
template <class Steps>
bool CAdvancedRule::VisitMembers(Steps& steps) {
    return steps.OptionalChild(kEnforceListName, enforceList_, enforceListPresent_) &&
           steps.OptionalChild(kWhiteListName, whiteList_, whiteListPresent_) &&
           steps.OptionalDWORD(L"EnforceProxyServer", enforceProxyServer_) &&
           steps.OptionalDWORD(L"BypassPrivateIP", bypassPrivateIP_) &&
           steps.OptionalDWORD(L"BypassLocalIP", bypassLocalIP_);
}

CAdvancedRule::~CAdvancedRule() { CAdvancedRule::Clear(); }

int CAdvancedRule::WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent, int /*flag*/) {
    JSONNode* node = CreateElementNode(mgr, parent, kElementName);
    if (node == nullptr) return ZELT_FAILED;
    MemberWriter write(mgr, node, kElementName);
    return VisitMembers(write) ? ZELT_SUCCESS : ZELT_FAILED;
}

int CAdvancedRule::ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) {
    if (mgr == nullptr) return ReportFailure(Message::ReadNoManager());
    Clear();
    MemberReader read(mgr, node, kElementName);
    return FinishRead(*this, VisitMembers(read));
}

void CAdvancedRule::Clear() {
    ElementType = ELEMENT_TYPE_ORDINARY;
    enforceList_.Clear();
    enforceListPresent_ = 0;
    whiteList_.Clear();
    whiteListPresent_ = 0;
    enforceProxyServer_.Clear();
    bypassPrivateIP_.Clear();
    bypassLocalIP_.Clear();
}

IAdvancedRule& CAdvancedRule::CopyFrom(const IAdvancedRule& other) {
    if (&other == this) return *this;
    const auto& source = static_cast<const CAdvancedRule&>(other);
    Clear();
    // The children are copied whatever their flags say, hidden content
    // included.
    enforceList_.CopyFrom(source.enforceList_);
    enforceListPresent_ = source.enforceListPresent_;
    whiteList_.CopyFrom(source.whiteList_);
    whiteListPresent_ = source.whiteListPresent_;
    enforceProxyServer_ = source.enforceProxyServer_;
    bypassPrivateIP_ = source.bypassPrivateIP_;
    bypassLocalIP_ = source.bypassLocalIP_;
    return *this;
}

int CAdvancedRule::GetEnforceList(IEnforceList** out) {
    return GetOptionalChild(enforceList_, enforceListPresent_, out);
}

void CAdvancedRule::SetEnforceList(const IEnforceList* value) {
    SetOptionalChild(enforceList_, enforceListPresent_, value);
}

int CAdvancedRule::GetWhiteList(IWhiteList** out) {
    return GetOptionalChild(whiteList_, whiteListPresent_, out);
}

void CAdvancedRule::SetWhiteList(const IWhiteList* value) {
    SetOptionalChild(whiteList_, whiteListPresent_, value);
}

int CAdvancedRule::GetEnforceProxyServer(DWORD* out) const {
    return GetOptionalDWORD(enforceProxyServer_, out);
}

void CAdvancedRule::SetEnforceProxyServer(const DWORD* value) {
    SetOptionalDWORD(enforceProxyServer_, value);
}

int CAdvancedRule::GetBypassPrivateIP(DWORD* out) const {
    return GetOptionalDWORD(bypassPrivateIP_, out);
}

void CAdvancedRule::SetBypassPrivateIP(const DWORD* value) {
    SetOptionalDWORD(bypassPrivateIP_, value);
}

int CAdvancedRule::GetBypassLocalIP(DWORD* out) const {
    return GetOptionalDWORD(bypassLocalIP_, out);
}

void CAdvancedRule::SetBypassLocalIP(const DWORD* value) {
    SetOptionalDWORD(bypassLocalIP_, value);
}

IAdvancedRule* AdvancedRule_CreateNewInstance() {
    return NewClearedElement<IAdvancedRule, CAdvancedRule>();
}

}  // namespace VextorJSConfig
