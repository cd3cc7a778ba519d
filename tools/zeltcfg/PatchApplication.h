// PatchApplication.h: the steps that patch and merge share, from a patch
// read from a file to a typed tree that holds the result, with a failure
// reported at its place in the patch.
#ifndef ZELTCFG_PATCHAPPLICATION_H
#define ZELTCFG_PATCHAPPLICATION_H

#include "Document.h"

#include <string>

namespace zeltcfg {

// ApplyJsonPatch or ApplyMergePatch (ConfigurationPatch.h).
using PatchApplier = void (*)(TextValue& configuration, const TextValue& patch);

// Applies patch to configuration. A ChangeFailure is printed as
// "NAME:LINE:COLUMN: MESSAGE", followed by "; " and outcome unless that is
// empty, and ends the command with exit code 1 (a Failure without a message).
void ApplyOrFail(PatchApplier apply, TextValue& configuration, const JsonInput& patch,
                 const std::string& outcome);

// Makes the typed tree of document hold configuration. A configuration that
// the tree refuses is printed as "NAME: the RESULT configuration is invalid:
// REASON" with outcome as above, and ends the command with exit code 1.
void StoreOrFail(const TextValue& configuration, Document& document, const std::string& result,
                 const std::string& outcome);

}  // namespace zeltcfg

#endif  // ZELTCFG_PATCHAPPLICATION_H
