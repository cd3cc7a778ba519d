#include "config/ClientSetting.h"

namespace VextorJSConfig {

template class ElementBase<CClientSetting, IClientSetting>;

CClientSetting::~CClientSetting() { CClientSetting::Clear(); }

IClientSetting* ClientSetting_CreateNewInstance() {
    return NewClearedElement<IClientSetting, CClientSetting>();
}

}  // namespace VextorJSConfig
