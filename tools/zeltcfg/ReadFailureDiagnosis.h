// ReadFailureDiagnosis.h: where in the text the member is that the library
// failed to read, and what is wrong with it, worked out from the library's
// messages and the text's own tree.
#ifndef ZELTCFG_READFAILUREDIAGNOSIS_H
#define ZELTCFG_READFAILUREDIAGNOSIS_H

#include "DocumentText.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zeltcfg {

struct Diagnosis {
    std::size_t offset = 0;  // in the text
    std::string pointer;     // JSON Pointer of the member
    std::string problem;     // what is wrong and what to do
};

// The members named by the library's messages, outermost first.
std::vector<std::string> FailingKeys(const std::vector<std::string>& messages);

// Where the member that keys name is in tree, and what is wrong with it.
Diagnosis DiagnoseReadFailure(const TextValue& tree, const std::vector<std::string>& keys);

}  // namespace zeltcfg

#endif  // ZELTCFG_READFAILUREDIAGNOSIS_H
