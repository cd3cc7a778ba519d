#include "config/WhiteList.h"

namespace VextorJSConfig {

// In write order, which is also the read order: "DomainLists" before
// "ProcessNames", the reverse of EnforceList's order. Only the lists can fail
// the read; an unreadable string stays absent.
constexpr auto CWhiteList::Members() {
    return std::make_tuple(KeyedMember(CIPList::kName, &CWhiteList::ipList_),
                           KeyedMember(CVPNDescList::kName, &CWhiteList::vpnDescList_),
                           KeyedMember(L"DomainLists", &CWhiteList::domainLists_),
                           KeyedMember(L"ProcessNames", &CWhiteList::processNames_));
}

template class ElementBase<CWhiteList, IWhiteList>;

IWhiteList* WhiteList_CreateNewInstance() { return NewClearedElement<IWhiteList, CWhiteList>(); }

}  // namespace VextorJSConfig
