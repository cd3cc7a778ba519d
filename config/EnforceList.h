// EnforceList.h: the implementation of IEnforceList.
#ifndef ZELT_CONFIG_ENFORCELIST_H
#define ZELT_CONFIG_ENFORCELIST_H

#include "config/ElementBase.h"
#include "config/StringLists.h"

#include <zelt/EnforceList.h>

#include <string>

namespace VextorJSConfig {

class CEnforceList final : public ElementBase<CEnforceList, IEnforceList> {
public:
    int GetIPList(IIPList** out) override { return GetOptional(ipList_, out); }
    void SetIPList(const IIPList* value) override { SetOptional(ipList_, value); }
    int GetProcessNames(std::wstring* out) const override {
        return GetOptional(processNames_, out);
    }
    void SetProcessNames(const std::wstring* value) override { SetOptional(processNames_, value); }
    int GetDomainLists(std::wstring* out) const override { return GetOptional(domainLists_, out); }
    void SetDomainLists(const std::wstring* value) override { SetOptional(domainLists_, value); }

    // The element's own key (ElementBase.h).
    static constexpr const wchar_t* kName = L"EnforceList";
    // The members in write order, which is also the read order:
    // "ProcessNames" before "DomainLists", the reverse of WhiteList's order.
    // Only the list can fail the read; an unreadable string stays absent.
    static constexpr auto Members() {
        return std::make_tuple(KeyedMember(CIPList::kName, &CEnforceList::ipList_),
                               KeyedMember(L"ProcessNames", &CEnforceList::processNames_),
                               KeyedMember(L"DomainLists", &CEnforceList::domainLists_));
    }
    ~CEnforceList() override;

private:
    OptionalChild<CIPList> ipList_;
    OptionalString processNames_;
    OptionalString domainLists_;
};

extern template class ElementBase<CEnforceList, IEnforceList>;

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_ENFORCELIST_H
