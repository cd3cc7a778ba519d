// zeltcfg patch: a JSON Patch or a JSON Merge Patch applied to a file.
#include "Commands.h"

#include "ConfigurationPatch.h"
#include "ConfigurationValue.h"
#include "EditLock.h"
#include "Failure.h"
#include "PatchApplication.h"
#include "StandardStreams.h"

#include <optional>

namespace zeltcfg {

int RunPatch(const std::string& file, const std::string& patch, bool mergePatch, bool dryRun,
             double waitSeconds) {
    if (file == kStandardInput && patch == kStandardInput)
        throw Failure(kExitUsage,
                      "FILE and PATCH cannot both be - (standard input); give one of them as "
                      "a file");
    std::optional<EditLock> lock;
    if (!dryRun) lock.emplace(file, file, waitSeconds);
    Document document = LoadOrFail(file);
    const JsonInput changes = ReadJsonInputOrFail(patch);
    const std::string outcome =
        dryRun || file == kStandardInput ? "nothing is written" : document.name + " is unchanged";
    TextValue configuration = CaptureConfiguration(BindConfiguration(*document.configuration));
    ApplyOrFail(mergePatch ? ApplyMergePatch : ApplyJsonPatch, configuration, changes, outcome);
    StoreOrFail(configuration, document, "patched", outcome);
    if (dryRun)
        PrintOutput(WriteConfigurationText(*document.configuration) + "\n");
    else
        SaveChangedDocument(document);
    return kExitSuccess;
}

}  // namespace zeltcfg
