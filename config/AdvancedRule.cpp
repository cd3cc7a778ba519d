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

IAdvancedRule* AdvancedRule_CreateNewInstance() {
    return NewClearedElement<IAdvancedRule, CAdvancedRule>();
}

}  // namespace VextorJSConfig
