#include "config/EnforceList.h"

namespace VextorJSConfig {

IEnforceList* EnforceList_CreateNewInstance() {
    return NewClearedElement<IEnforceList, CEnforceList>();
}

}  // namespace VextorJSConfig
