#include "PatchApplication.h"

#include "ConfigurationPatch.h"
#include "ConfigurationValue.h"
#include "Failure.h"
#include "StandardStreams.h"

namespace zeltcfg {

namespace {

// What became of the file, after the message; a message that ends in a
// question ("did you mean ...?") is not followed by a semicolon.
std::string Suffix(const std::string& message, const std::string& outcome) {
    if (outcome.empty()) return "";
    return (!message.empty() && message.back() == '?' ? " " : "; ") + outcome;
}

}  // namespace

void ApplyOrFail(PatchApplier apply, TextValue& configuration, const JsonInput& patch,
                 const std::string& outcome) {
    try {
        apply(configuration, patch.tree);
    } catch (const ChangeFailure& failure) {
        PrintError("%s: %s%s\n", patch.Place(failure.offset).c_str(), failure.what(),
                   Suffix(failure.what(), outcome).c_str());
        throw Failure(kExitInvalid, "");
    }
}

void StoreOrFail(const TextValue& configuration, Document& document, const std::string& result,
                 const std::string& outcome) {
    try {
        StoreConfiguration(configuration, BindConfiguration(*document.configuration));
    } catch (const Failure& failure) {
        PrintError("%s: the %s configuration is invalid: %s%s\n", document.name.c_str(),
                   result.c_str(), failure.what(), Suffix(failure.what(), outcome).c_str());
        throw Failure(kExitInvalid, "");
    }
}

}  // namespace zeltcfg
