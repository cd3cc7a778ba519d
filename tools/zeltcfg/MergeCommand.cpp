// zeltcfg merge: a base configuration with overlays applied in order.
#include "Commands.h"

#include "Failure.h"

namespace zeltcfg {

int RunMerge(const std::string&, const std::vector<std::string>&, const std::string&, double) {
    throw Failure(kExitUsage, "merge is not built yet");
}

}  // namespace zeltcfg
