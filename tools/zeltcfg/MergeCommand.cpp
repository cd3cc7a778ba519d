// zeltcfg merge: a base configuration with overlays applied in order.
#include "Commands.h"

#include "ConfigurationPatch.h"
#include "ConfigurationValue.h"
#include "EditLock.h"
#include "Failure.h"
#include "PatchApplication.h"
#include "StandardStreams.h"

#include <algorithm>
#include <optional>

namespace zeltcfg {

int RunMerge(const std::string& base, const std::vector<std::string>& overlays,
             const std::string& output, double waitSeconds) {
    if ((base == kStandardInput) + std::count(overlays.begin(), overlays.end(), kStandardInput) > 1)
        throw Failure(kExitUsage,
                      "standard input (-) can be read once only; give the other configurations "
                      "and overlays as files");
    std::optional<EditLock> lock;
    if (!output.empty()) lock.emplace(output, output, waitSeconds, MissingFile::Made);
    Document document = LoadOrFail(base);
    TextValue configuration = CaptureConfiguration(BindConfiguration(*document.configuration));
    for (const std::string& overlay : overlays)
        ApplyOrFail(ApplyMergePatch, configuration, ReadJsonInputOrFail(overlay), "");
    StoreOrFail(configuration, document, "merged", "");
    if (output.empty())
        PrintOutput(WriteConfigurationText(*document.configuration) + "\n");
    else
        WriteConfigurationFile(*document.configuration, output);
    return kExitSuccess;
}

}  // namespace zeltcfg
