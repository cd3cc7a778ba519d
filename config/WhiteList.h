// WhiteList.h: the implementation of IWhiteList.
#ifndef ZELT_CONFIG_WHITELIST_H
#define ZELT_CONFIG_WHITELIST_H

#include "config/ElementMembers.h"
#include "config/StringLists.h"

#include <zelt/JSONManager.h>
#include <zelt/Types.h>
#include <zelt/WhiteList.h>

#include <string>

namespace VextorJSConfig {

class CWhiteList final : public IWhiteList {
public:
    CWhiteList() = default;
    ~CWhiteList() override;

    int WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent, int flag) override;
    int ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) override;
    void Clear() override;
    IWhiteList& CopyFrom(const IWhiteList& other) override;

    int GetIPList(IIPList** out) override;
    void SetIPList(const IIPList* value) override;
    int GetVPNDescList(IVPNDescList** out) override;
    void SetVPNDescList(const IVPNDescList* value) override;
    int GetDomainLists(std::wstring* out) const override;
    void SetDomainLists(const std::wstring* value) override;
    int GetProcessNames(std::wstring* out) const override;
    void SetProcessNames(const std::wstring* value) override;

private:
    template <class Steps>
    bool VisitMembers(Steps& steps);

    // In the order of writing and reading: "DomainLists" before
    // "ProcessNames", the reverse of EnforceList's order. A list whose flag
    // is 0 may still hold entries.
    CIPList ipList_;
    DWORD ipListPresent_ = 0;
    CVPNDescList vpnDescList_;
    DWORD vpnDescListPresent_ = 0;
    OptionalString domainLists_;
    OptionalString processNames_;
};

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_WHITELIST_H
