#include "config/ClientSetting.h"

namespace VextorJSConfig {

IClientSetting* ClientSetting_CreateNewInstance() {
    return NewClearedElement<IClientSetting, CClientSetting>();
}

}  // namespace VextorJSConfig
