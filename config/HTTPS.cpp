#include "config/HTTPS.h"

namespace VextorJSConfig {

IHTTPS* HTTPS_CreateNewInstance() { return NewClearedElement<IHTTPS, CHTTPS>(); }

}  // namespace VextorJSConfig
