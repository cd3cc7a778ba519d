#include "config/WhiteList.h"

namespace VextorJSConfig {

template class ElementBase<CWhiteList, IWhiteList>;

CWhiteList::~CWhiteList() { CWhiteList::Clear(); }

}  // namespace VextorJSConfig
