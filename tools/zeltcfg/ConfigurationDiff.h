// ConfigurationDiff.h: the differences between two configurations, as lines
// for people and as a JSON Patch that turns the one into the other.
#ifndef ZELTCFG_CONFIGURATIONDIFF_H
#define ZELTCFG_CONFIGURATIONDIFF_H

#include "DocumentText.h"

#include <string>
#include <vector>

namespace zeltcfg {

struct Difference {
    enum class Kind {
        Changed,        // a value other than in the first: before -> after
        Added,          // an optional member only the second has: after
        Removed,        // an optional member only the first has: before
        EntryInserted,  // a list entry inserted at the index that ends pointer: after
        EntryRemoved,   // a list entry removed at the index that ends pointer: before
    };
    Kind kind = Kind::Changed;
    std::string pointer;  // JSON Pointer of the member or entry
    TextValue before;
    TextValue after;
};

// The differences that turn configuration value a into b (see
// ConfigurationValue.h), in member order. Two lists that are both present are
// compared entry by entry with a shortest edit script of insertions and
// removals, front to back; each entry's index is the one it has in the list
// as it stands when that change applies, as a JSON Patch applies them.
std::vector<Difference> DiffConfigurationValues(const TextValue& a, const TextValue& b);

// One step of a list's edit script: the entry a[entry] removed, or b[entry]
// inserted, at index in the list as it stands when the step applies.
struct ListEdit {
    bool insertion = false;
    std::size_t index = 0;
    std::size_t entry = 0;
};

// A shortest script of insertions and removals that turns the strings a into
// b, front to back, removals before insertions at the same place. Takes
// O((n + m) d) time for d steps and O(n + m) space.
std::vector<ListEdit> ShortestEditScript(const std::vector<TextValue>& a,
                                         const std::vector<TextValue>& b);

// One line a difference: "PATH: OLD -> NEW", "PATH: added VALUE",
// "PATH: removed (was VALUE)", "PATH: inserted VALUE", "PATH: removed VALUE".
std::string FormatDifferences(const std::vector<Difference>& differences);

// The differences as a JSON Patch document of add, remove and replace
// operations, which applied to a gives b.
std::string FormatJsonPatch(const std::vector<Difference>& differences);

}  // namespace zeltcfg

#endif  // ZELTCFG_CONFIGURATIONDIFF_H
