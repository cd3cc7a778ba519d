#include "config/AdvancedRule.h"

namespace VextorJSConfig {

IAdvancedRule* AdvancedRule_CreateNewInstance() {
    return NewClearedElement<IAdvancedRule, CAdvancedRule>();
}

}  // namespace VextorJSConfig
