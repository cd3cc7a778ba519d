#include "config/EnforceList.h"

namespace VextorJSConfig {

template class ElementBase<CEnforceList, IEnforceList>;

CEnforceList::~CEnforceList() { CEnforceList::Clear(); }

IEnforceList* EnforceList_CreateNewInstance() {
    return NewClearedElement<IEnforceList, CEnforceList>();
}

}  // namespace VextorJSConfig
