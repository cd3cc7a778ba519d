// AdvancedRule.h: CAdvancedRule, the implementation of IAdvancedRule.
#ifndef ZELT_CONFIG_ADVANCEDRULE_H
#define ZELT_CONFIG_ADVANCEDRULE_H

#include "config/ElementMembers.h"
#include "config/EnforceList.h"
#include "config/WhiteList.h"

#include <zelt/AdvancedRule.h>

namespace VextorJSConfig {

class CAdvancedRule final : public IAdvancedRule {
public:
    CAdvancedRule() = default;
    ~CAdvancedRule() override;
    CAdvancedRule(const CAdvancedRule&) = delete;
    CAdvancedRule& operator=(const CAdvancedRule&) = delete;

    int WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent, int flag) override;
    int ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) override;
    void Clear() override;
    IAdvancedRule& CopyFrom(const IAdvancedRule& other) override;

    int GetEnforceList(IEnforceList** out) override;
    void SetEnforceList(const IEnforceList* value) override;
    int GetWhiteList(IWhiteList** out) override;
    void SetWhiteList(const IWhiteList* value) override;
    int GetEnforceProxyServer(DWORD* out) const override;
    void SetEnforceProxyServer(const DWORD* value) override;
    int GetBypassPrivateIP(DWORD* out) const override;
    void SetBypassPrivateIP(const DWORD* value) override;
    int GetBypassLocalIP(DWORD* out) const override;
    void SetBypassLocalIP(const DWORD* value) override;

private:
    template <class Steps>
    bool VisitMembers(Steps& steps);

    // In write order. A child may keep content while its flag is 0.
    CEnforceList enforceList_;
    DWORD enforceListPresent_ = 0;
    CWhiteList whiteList_;
    DWORD whiteListPresent_ = 0;
    OptionalDWORD enforceProxyServer_;
    OptionalDWORD bypassPrivateIP_;
    OptionalDWORD bypassLocalIP_;
};

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_ADVANCEDRULE_H
