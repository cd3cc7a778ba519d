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

// Applies the operations of patch, a JSON Patch document (add, remove,
// replace, move, copy, test), to configuration in order. Every path and
// every value put in is checked against the configuration's schema, and a
// required member cannot be removed. All or nothing: on a failure
// configuration is left as it was and ChangeFailure says
// "operation N (OP PATH): REASON", N counted from 0.
void ApplyJsonPatch(TextValue& configuration, const TextValue& patch);

// Applies a JSON Merge Patch, an object of the members to set (null removes
// an optional member, an object merges, a list replaces the whole list), to
// configuration. All or nothing, as above; ChangeFailure says
// "POINTER: REASON" of the member that fails.
//
// Both leave configuration in the form CaptureConfiguration gives (members
// in member order, integers in plain digits), which StoreConfiguration takes.
void ApplyMergePatch(TextValue& configuration, const TextValue& patch);

}  // namespace zeltcfg

#endif  // ZELTCFG_CONFIGURATIONPATCH_H
