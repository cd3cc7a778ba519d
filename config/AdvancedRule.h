// AdvancedRule.h: CAdvancedRule, the implementation of IAdvancedRule.
#ifndef ZELT_CONFIG_ADVANCEDRULE_H
#define ZELT_CONFIG_ADVANCEDRULE_H

#include "config/ElementBase.h"
#include "config/EnforceList.h"
#include "config/WhiteList.h"

#include <zelt/AdvancedRule.h>

namespace VextorJSConfig {

class CAdvancedRule final : public ElementBase<CAdvancedRule, IAdvancedRule> {
public:
    int GetEnforceList(IEnforceList** out) override { return GetOptional(enforceList_, out); }
    void SetEnforceList(const IEnforceList* value) override { SetOptional(enforceList_, value); }
    int GetWhiteList(IWhiteList** out) override { return GetOptional(whiteList_, out); }
    void SetWhiteList(const IWhiteList* value) override { SetOptional(whiteList_, value); }
    int GetEnforceProxyServer(DWORD* out) const override {
        return GetOptional(enforceProxyServer_, out);
    }
    void SetEnforceProxyServer(const DWORD* value) override {
        SetOptional(enforceProxyServer_, value);
    }
    int GetBypassPrivateIP(DWORD* out) const override { return GetOptional(bypassPrivateIP_, out); }
    void SetBypassPrivateIP(const DWORD* value) override { SetOptional(bypassPrivateIP_, value); }
    int GetBypassLocalIP(DWORD* out) const override { return GetOptional(bypassLocalIP_, out); }
    void SetBypassLocalIP(const DWORD* value) override { SetOptional(bypassLocalIP_, value); }

    // The element's own key (ElementBase.h).
    static constexpr const wchar_t* kName = L"AdvancedRule";
    // The members in write order, which is also the read order.
    static constexpr auto Members() {
        return std::make_tuple(
            KeyedMember(CEnforceList::kName, &CAdvancedRule::enforceList_),
            KeyedMember(CWhiteList::kName, &CAdvancedRule::whiteList_),
            KeyedMember(L"EnforceProxyServer", &CAdvancedRule::enforceProxyServer_),
            KeyedMember(L"BypassPrivateIP", &CAdvancedRule::bypassPrivateIP_),
            KeyedMember(L"BypassLocalIP", &CAdvancedRule::bypassLocalIP_));
    }
    ~CAdvancedRule() override;

private:
    OptionalChild<CEnforceList> enforceList_;
    OptionalChild<CWhiteList> whiteList_;
    OptionalDWORD enforceProxyServer_;
    OptionalDWORD bypassPrivateIP_;
    OptionalDWORD bypassLocalIP_;
};

extern template class ElementBase<CAdvancedRule, IAdvancedRule>;

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_ADVANCEDRULE_H
