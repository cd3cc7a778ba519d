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

IEnforceList* EnforceList_CreateNewInstance() {
    return NewClearedElement<IEnforceList, CEnforceList>();
}

}  // namespace VextorJSConfig
