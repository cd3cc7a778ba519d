#include "config/EnforceList.h"

namespace VextorJSConfig {

// In write order, which is also the read order: "ProcessNames" before
// "DomainLists", the reverse of WhiteList's order. Only the list can fail the
// read; an unreadable string stays absent.
constexpr auto CEnforceList::Members() {
    return std::make_tuple(KeyedMember(CIPList::kName, &CEnforceList::ipList_),
                           KeyedMember(L"ProcessNames", &CEnforceList::processNames_),
                           KeyedMember(L"DomainLists", &CEnforceList::domainLists_));
}

template class ElementBase<CEnforceList, IEnforceList>;

int CEnforceList::GetProcessNames(std::wstring* out) const {
    return GetOptionalString(processNames_, out);
}
void CEnforceList::SetProcessNames(const std::wstring* value) {
    SetOptionalString(processNames_, value);
}

int CEnforceList::GetDomainLists(std::wstring* out) const {
    return GetOptionalString(domainLists_, out);
}
void CEnforceList::SetDomainLists(const std::wstring* value) {
    SetOptionalString(domainLists_, value);
}

IEnforceList* EnforceList_CreateNewInstance() {
    return NewClearedElement<IEnforceList, CEnforceList>();
}

}  // namespace VextorJSConfig
