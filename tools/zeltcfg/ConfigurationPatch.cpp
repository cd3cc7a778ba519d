#include "ConfigurationPatch.h"

namespace zeltcfg {

void ApplyJsonPatch(TextValue&, const TextValue& patch) {
    throw ChangeFailure(patch.offset, "not built yet");
}

void ApplyMergePatch(TextValue&, const TextValue& patch) {
    throw ChangeFailure(patch.offset, "not built yet");
}

}  // namespace zeltcfg
