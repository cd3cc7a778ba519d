// WhiteList.h: the implementation of IWhiteList.
#ifndef ZELT_CONFIG_WHITELIST_H
#define ZELT_CONFIG_WHITELIST_H

#include "config/ElementBase.h"
#include "config/StringLists.h"

#include <zelt/WhiteList.h>

#include <string>

namespace VextorJSConfig {

class CWhiteList final : public ElementBase<CWhiteList, IWhiteList> {
public:
    int GetIPList(IIPList** out) override { return GetOptional(ipList_, out); }
    void SetIPList(const IIPList* value) override { SetOptional(ipList_, value); }
    int GetVPNDescList(IVPNDescList** out) override { return GetOptional(vpnDescList_, out); }
    void SetVPNDescList(const IVPNDescList* value) override { SetOptional(vpnDescList_, value); }
    int GetDomainLists(std::wstring* out) const override { return GetOptional(domainLists_, out); }
    void SetDomainLists(const std::wstring* value) override { SetOptional(domainLists_, value); }
    int GetProcessNames(std::wstring* out) const override {
        return GetOptional(processNames_, out);
    }
    void SetProcessNames(const std::wstring* value) override { SetOptional(processNames_, value); }

    // The element's own key (ElementBase.h).
    static constexpr const wchar_t* kName = L"WhiteList";
    // The members in write order, which is also the read order:
    // "DomainLists" before "ProcessNames", the reverse of EnforceList's order.
    // Only the lists can fail the read; an unreadable string stays absent.
    static constexpr auto Members() {
        return std::make_tuple(KeyedMember(CIPList::kName, &CWhiteList::ipList_),
                               KeyedMember(CVPNDescList::kName, &CWhiteList::vpnDescList_),
                               KeyedMember(L"DomainLists", &CWhiteList::domainLists_),
                               KeyedMember(L"ProcessNames", &CWhiteList::processNames_));
    }
    ~CWhiteList() override;

private:
    OptionalChild<CIPList> ipList_;
    OptionalChild<CVPNDescList> vpnDescList_;
    OptionalString domainLists_;
    OptionalString processNames_;
};

extern template class ElementBase<CWhiteList, IWhiteList>;

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_WHITELIST_H
