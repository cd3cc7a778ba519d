#include "config/AdvancedRule.h"

namespace VextorJSConfig {

template class ElementBase<CAdvancedRule, IAdvancedRule>;

CAdvancedRule::~CAdvancedRule() { CAdvancedRule::Clear(); }

}  // namespace VextorJSConfig
