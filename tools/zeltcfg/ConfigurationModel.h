// ConfigurationModel.h: the members of a configuration, described once and
// bound to the typed element tree of the library.
//
// Every command that reads or changes a value goes through a Member: its
// key, its kind, whether it is required, and accessors that call the
// element's own getters and setters. The schema (keys and kinds without
// values) is taken from the same description.
#ifndef ZELTCFG_CONFIGURATIONMODEL_H
#define ZELTCFG_CONFIGURATIONMODEL_H

#include <zelt/zelt.h>

#include <functional>
#include <string>
#include <vector>

namespace zeltcfg {

enum class MemberKind { Object, List, Integer, Text };

// "an object", "a list", "an integer", "a string", for messages.
const char* DescribeKind(MemberKind kind);

struct Member {
    std::string key;
    MemberKind kind = MemberKind::Object;
    bool required = true;

    std::function<bool()> present;

    // Integer: the value while present; the setter's result is the
    // element's (1 on success), and null makes an optional member absent.
    std::function<DWORD()> integer;
    std::function<int(const DWORD*)> setInteger;

    // Text: as for Integer.
    std::function<std::wstring()> text;
    std::function<int(const std::wstring*)> setText;

    // Object: the members of the child element, which must be present.
    std::function<std::vector<Member>()> members;

    // Optional Object and List: make the child present (a new, empty one if
    // it was absent) or absent.
    std::function<void()> makePresent;
    std::function<void()> makeAbsent;

    // List: the entries while present, and changes to them. addEntry makes
    // the list present first.
    // The entries are the list's own texts, valid until the list changes.
    std::function<std::vector<const std::wstring*>()> entries;
    std::function<int(DWORD index, const std::wstring& value)> setEntry;
    std::function<void(const std::wstring& value)> addEntry;
    std::function<void(DWORD index)> removeEntry;
};

// Makes an optional member of any kind absent.
void MakeAbsent(const Member& member);

// The whole configuration as one required Object member with an empty key.
Member BindConfiguration(VextorJSConfig::IVextorJSConfig& config);

// The keys and kinds of the configuration, without values.
struct SchemaNode {
    std::string key;
    MemberKind kind = MemberKind::Object;
    bool required = true;
    std::vector<SchemaNode> members;  // Object
};
const SchemaNode& ConfigurationSchema();

// The member of an Object schema with this key; null when it has none.
const SchemaNode* FindSchemaMember(const SchemaNode& object, const std::string& key);

// The keys of an Object schema's members, in member order.
std::vector<std::string> SchemaKeys(const SchemaNode& object);

}  // namespace zeltcfg

#endif  // ZELTCFG_CONFIGURATIONMODEL_H
