#include "config/AdvancedRule.h"

namespace VextorJSConfig {

namespace {
constexpr const wchar_t* kEnforceProxyServer = L"EnforceProxyServer";
constexpr const wchar_t* kBypassPrivateIP = L"BypassPrivateIP";
constexpr const wchar_t* kBypassLocalIP = L"BypassLocalIP";
}  // namespace

// In write order, which is also the read order.
auto CAdvancedRule::Members() {
    return std::make_tuple(KeyedMember(CEnforceList::kName, &CAdvancedRule::enforceList_),
                           KeyedMember(CWhiteList::kName, &CAdvancedRule::whiteList_),
                           KeyedMember(kEnforceProxyServer, &CAdvancedRule::enforceProxyServer_),
                           KeyedMember(kBypassPrivateIP, &CAdvancedRule::bypassPrivateIP_),
                           KeyedMember(kBypassLocalIP, &CAdvancedRule::bypassLocalIP_));
}

template class ElementBase<CAdvancedRule, IAdvancedRule>;

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
