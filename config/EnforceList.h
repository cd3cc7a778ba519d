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
    int GetIPList(IIPList** out) override { return GetOptionalChild(ipList_, out); }
    void SetIPList(const IIPList* value) override { SetOptionalChild(ipList_, value); }
    int GetProcessNames(std::wstring* out) const override;
    void SetProcessNames(const std::wstring* value) override;
    int GetDomainLists(std::wstring* out) const override;
    void SetDomainLists(const std::wstring* value) override;

    // The element's own key and its members (ElementBase.h).
    static constexpr const wchar_t* kName = L"EnforceList";
    static constexpr auto Members();
    ~CEnforceList() override { CEnforceList::Clear(); }

private:
    OptionalChild<CIPList> ipList_;
    OptionalString processNames_;
    OptionalString domainLists_;
};

extern template class ElementBase<CEnforceList, IEnforceList>;

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_ENFORCELIST_H
