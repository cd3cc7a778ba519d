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
    int GetEnforceList(IEnforceList** out) override { return GetOptionalChild(enforceList_, out); }
    void SetEnforceList(const IEnforceList* value) override {
        SetOptionalChild(enforceList_, value);
    }
    int GetWhiteList(IWhiteList** out) override { return GetOptionalChild(whiteList_, out); }
    void SetWhiteList(const IWhiteList* value) override { SetOptionalChild(whiteList_, value); }
    int GetEnforceProxyServer(DWORD* out) const override;
    void SetEnforceProxyServer(const DWORD* value) override;
    int GetBypassPrivateIP(DWORD* out) const override;
    void SetBypassPrivateIP(const DWORD* value) override;
    int GetBypassLocalIP(DWORD* out) const override;
    void SetBypassLocalIP(const DWORD* value) override;

    // The element's own key and its members (ElementBase.h).
    static constexpr const wchar_t* kName = L"AdvancedRule";
    static constexpr auto Members();
    ~CAdvancedRule() override { CAdvancedRule::Clear(); }

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
