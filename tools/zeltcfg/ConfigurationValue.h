// ConfigurationValue.h: a configuration as a plain JSON value, the common
// ground of the commands that compare and change whole configurations (diff,
// patch, merge).
//
// The value holds what the typed tree holds and nothing else: the present
// members only, in member order; an integer as a number in decimal digits
// (0 to 4294967295), a text as a string in UTF-8, a list as an array of
// strings, an object as an object. Values are TextValue trees, so that a
// value read from a patch or an overlay keeps the places of its parts.
#ifndef ZELTCFG_CONFIGURATIONVALUE_H
#define ZELTCFG_CONFIGURATIONVALUE_H

#include "ConfigurationModel.h"
#include "DocumentText.h"

#include <string>

namespace zeltcfg {

// What the typed tree behind configuration holds.
TextValue CaptureConfiguration(const Member& configuration);

// Makes the typed tree behind configuration hold value: every member that
// value has is set, every optional member it lacks is made absent. value must
// match the schema (keys, kinds, integers in range) and hold every required
// member; throws Failure (invalid) naming the member the tree refuses.
void StoreConfiguration(const TextValue& value, const Member& configuration);

// Equality of JSON values: objects by their members in any order (the last
// of duplicate keys counts), arrays item by item, numbers by their value,
// strings by their text, literals by their token.
bool SameValue(const TextValue& a, const TextValue& b);

// The value as JSON on one line, in the layout the library uses within a
// line: { "Key": 1, "List": [ "a", "b" ] }, with { } and [ ] when empty.
std::string WriteJsonLine(const TextValue& value);

// Values for building trees in code.
TextValue MakeString(std::string utf8);
TextValue MakeNumber(DWORD number);
TextValue MakeObject();
TextValue MakeArray();

}  // namespace zeltcfg

#endif  // ZELTCFG_CONFIGURATIONVALUE_H
