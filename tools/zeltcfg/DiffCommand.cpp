// zeltcfg diff: the differences between two configurations.
#include "Commands.h"

#include "Failure.h"

namespace zeltcfg {

int RunDiff(const std::string&, const std::string&, bool) {
    throw Failure(kExitUsage, "diff is not built yet");
}

}  // namespace zeltcfg
