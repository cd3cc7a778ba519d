// zeltcfg diff: the differences between two configurations.
#include "Commands.h"

#include "ConfigurationDiff.h"
#include "ConfigurationModel.h"
#include "ConfigurationValue.h"
#include "Document.h"
#include "Failure.h"
#include "InputReading.h"
#include "StandardStreams.h"

#include <algorithm>

namespace zeltcfg {

namespace {

constexpr int kExitDifferent = 1;

// diff reports an invalid configuration as trouble (2), as diff(1) reports
// a file it cannot compare; input and output errors keep their own code.
int DiffExitCode(int loadResult) {
    return loadResult == kExitInvalid ? static_cast<int>(kExitUsage) : loadResult;
}

}  // namespace

int RunDiff(const std::string& first, const std::string& second, bool json) {
    if (first == kStandardInput && second == kStandardInput)
        throw Failure(kExitUsage,
                      "diff: only one of FIRST and SECOND can be - (standard input); give the "
                      "other as a file");
    Document documents[2];
    const int results[2] = {DiffExitCode(LoadDocument(first, LoadOptions{}, documents[0])),
                            DiffExitCode(LoadDocument(second, LoadOptions{}, documents[1]))};
    const int worst = std::max(results[0], results[1]);
    if (worst != kExitSuccess) return worst;
    const std::vector<Difference> differences = DiffConfigurationValues(
        CaptureConfiguration(BindConfiguration(*documents[0].configuration)),
        CaptureConfiguration(BindConfiguration(*documents[1].configuration)));
    PrintOutput(json ? FormatJsonPatch(differences) : FormatDifferences(differences));
    return differences.empty() ? static_cast<int>(kExitSuccess) : kExitDifferent;
}

}  // namespace zeltcfg
