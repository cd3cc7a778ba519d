// Lint.h: what the library accepts but a careful author would not write:
// members the configuration does not know (with the known key closest to a
// misspelled one), duplicate keys, integers outside 0..4294967295 and values
// of the wrong JSON type.
#ifndef ZELTCFG_LINT_H
#define ZELTCFG_LINT_H

#include "DocumentText.h"

#include <string>
#include <vector>

namespace zeltcfg {

struct LintFinding {
    std::size_t offset;
    std::string pointer;
    std::string problem;
    bool unknownMember = false;  // dropped when the file is rewritten
    std::string suggestion;      // for an unknown member: the closest known key
};

// Findings in text order.
std::vector<LintFinding> LintDocument(const std::string& text, const TextValue& tree);

// The known key closest to key (same letters in another case, or at most two
// edits away), or "" when none is close.
std::string SuggestKey(const std::string& key, const std::vector<std::string>& known);

// What lint says of a member the configuration does not know, given the
// closest known key (SuggestKey's answer, "" for none).
std::string DescribeUnknownMember(const std::string& suggestion);

}  // namespace zeltcfg

#endif  // ZELTCFG_LINT_H
