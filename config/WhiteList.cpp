#include "config/WhiteList.h"

namespace VextorJSConfig {

template class ElementBase<CWhiteList, IWhiteList>;

CWhiteList::~CWhiteList() { CWhiteList::Clear(); }

IWhiteList* WhiteList_CreateNewInstance() { return NewClearedElement<IWhiteList, CWhiteList>(); }

}  // namespace VextorJSConfig
