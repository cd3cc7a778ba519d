// ConfigurationPatch.h: changes to a configuration value (see
// ConfigurationValue.h) given as data: a JSON Patch of operations, or a JSON
// Merge Patch that holds the members to set.
#ifndef ZELTCFG_CONFIGURATIONPATCH_H
#define ZELTCFG_CONFIGURATIONPATCH_H

#include "DocumentText.h"

#include <cstddef>
#include <stdexcept>
#include <string>

namespace zeltcfg {

// A change that cannot be applied. offset is the place in the patch text of
// what fails; what() says what fails and why.
class ChangeFailure : public std::runtime_error {
public:
    ChangeFailure(std::size_t offset, const std::string& message)
        : std::runtime_error(message), offset(offset) {}
    std::size_t offset;
};

// Applies the operations of patch, a JSON Patch document, to configuration in
// order. All or nothing: on a failure configuration is left as it was and
// ChangeFailure names the operation's index and path and the reason.
void ApplyJsonPatch(TextValue& configuration, const TextValue& patch);

// Applies a JSON Merge Patch to configuration. All or nothing, as above;
// ChangeFailure names the member's path and the reason.
void ApplyMergePatch(TextValue& configuration, const TextValue& patch);

}  // namespace zeltcfg

#endif  // ZELTCFG_CONFIGURATIONPATCH_H
