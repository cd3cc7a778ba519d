#include "config/HTTPS.h"

namespace VextorJSConfig {

template class ElementBase<CHTTPS, IHTTPS>;

CHTTPS::~CHTTPS() { CHTTPS::Clear(); }

}  // namespace VextorJSConfig
