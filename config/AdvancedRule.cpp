#include "config/AdvancedRule.h"

namespace VextorJSConfig {

template class ElementBase<CAdvancedRule, IAdvancedRule>;

CAdvancedRule::~CAdvancedRule() { CAdvancedRule::Clear(); }

IAdvancedRule* AdvancedRule_CreateNewInstance() {
    return NewClearedElement<IAdvancedRule, CAdvancedRule>();
}

}  // namespace VextorJSConfig
