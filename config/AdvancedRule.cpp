#include "config/AdvancedRule.h"

namespace VextorJSConfig {

// In write order, which is also the read order.
constexpr auto CAdvancedRule::Members() {
    return std::make_tuple(KeyedMember(CEnforceList::kName, &CAdvancedRule::enforceList_),
                           KeyedMember(CWhiteList::kName, &CAdvancedRule::whiteList_),
                           KeyedMember(L"EnforceProxyServer", &CAdvancedRule::enforceProxyServer_),
                           KeyedMember(L"BypassPrivateIP", &CAdvancedRule::bypassPrivateIP_),
                           KeyedMember(L"BypassLocalIP", &CAdvancedRule::bypassLocalIP_));
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
