#include "config/WhiteList.h"

namespace VextorJSConfig {

IWhiteList* WhiteList_CreateNewInstance() { return NewClearedElement<IWhiteList, CWhiteList>(); }

}  // namespace VextorJSConfig
