#include "config/Communication.h"

namespace VextorJSConfig {

ICommunication* Communication_CreateNewInstance() {
    return NewClearedElement<ICommunication, CCommunication>();
}

}  // namespace VextorJSConfig
