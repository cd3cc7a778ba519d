#include "config/ClientSetting.h"

namespace VextorJSConfig {

template class ElementBase<CClientSetting, IClientSetting>;

CClientSetting::~CClientSetting() { CClientSetting::Clear(); }

}  // namespace VextorJSConfig
