// zeltcfg patch: a JSON Patch or a JSON Merge Patch applied to a file.
#include "Commands.h"

#include "Failure.h"

namespace zeltcfg {

int RunPatch(const std::string&, const std::string&, bool, bool, double) {
    throw Failure(kExitUsage, "patch is not built yet");
}

}  // namespace zeltcfg
