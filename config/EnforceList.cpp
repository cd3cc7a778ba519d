#include "config/EnforceList.h"

namespace VextorJSConfig {

template class ElementBase<CEnforceList, IEnforceList>;

CEnforceList::~CEnforceList() { CEnforceList::Clear(); }

}  // namespace VextorJSConfig
