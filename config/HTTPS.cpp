#include "config/HTTPS.h"

namespace VextorJSConfig {

template class ElementBase<CHTTPS, IHTTPS>;

CHTTPS::~CHTTPS() { CHTTPS::Clear(); }

IHTTPS* HTTPS_CreateNewInstance() { return NewClearedElement<IHTTPS, CHTTPS>(); }

}  // namespace VextorJSConfig
