// MemberPath.h: finding a member of a configuration by its path.
//
// A path is a JSON Pointer ("/ClientSetting/Communication/LogUploadInterval",
// "" or "/" for the whole configuration) or the same keys joined by dots
// ("ClientSetting.Communication.LogUploadInterval"). A list entry is named by
// its 0-based index after the list ("/AdvancedRule/EnforceList/IPList/0").
#ifndef ZELTCFG_MEMBERPATH_H
#define ZELTCFG_MEMBERPATH_H

#include "ConfigurationModel.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace zeltcfg {

struct ResolvedPath {
    Member member;               // the member named, or the list of the entry
    std::optional<DWORD> entry;  // the index of a list entry
    std::string pointer;         // the path as a JSON Pointer
    MemberKind kind;             // of what the path names (a list entry is Text)
    bool required;               // what the path names is a required member
    bool absent = false;         // an optional member on the way, or the member itself, is absent
    std::string absentPointer;   // the first absent member on the way
};

// How absent optional objects and lists on the way are handled: left absent
// (reading), or made present (changing a member inside them).
enum class AbsentParents { Keep, Create };

// Throws Failure (usage) for a path that names no member of the
// configuration, or an entry index past the end of its list.
ResolvedPath ResolvePath(const Member& configuration, const std::string& path,
                         AbsentParents parents);

// Splits a path into its keys; throws Failure (usage) for a malformed one.
std::vector<std::string> SplitPath(const std::string& path);

// "/a/b" from keys, with "~" and "/" escaped as JSON Pointer does.
std::string JoinPointer(const std::vector<std::string>& keys);
std::string AppendPointer(const std::string& pointer, const std::string& key);

// Why key names no member of object, the schema of the member at pointer
// ("" for the whole configuration): with the known key closest to key, or
// all known keys when none is close.
std::string DescribeUnknownKey(const SchemaNode& object, const std::string& pointer,
                               const std::string& key);

// "the list POINTER has COUNT entries, numbered from 0 to COUNT-1", for a
// message about an index past the end.
std::string DescribeListEntries(const std::string& pointer, std::size_t count);

// A decimal number from 0 to 4294967295, digits only; nothing otherwise.
std::optional<DWORD> ParseDecimal(const std::string& text);

}  // namespace zeltcfg

#endif  // ZELTCFG_MEMBERPATH_H
