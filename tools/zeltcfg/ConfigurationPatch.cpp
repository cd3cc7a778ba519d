#include "ConfigurationPatch.h"

#include "ConfigurationModel.h"
#include "ConfigurationValue.h"
#include "Failure.h"
#include "Lint.h"
#include "MemberPath.h"
#include "TextEncoding.h"

#include <algorithm>
#include <optional>
#include <set>
#include <vector>

namespace zeltcfg {

namespace {

// A value that does not fit the schema: where it fails in the configuration
// (pointer) and in the patch text (offset), and why.
struct ValueRefusal {
    std::size_t offset;
    std::string pointer;
    std::string reason;
};

// A path that names nothing the operation can use.
struct PathRefusal {
    std::string reason;
};

// List entries are texts that may be removed.
const SchemaNode& EntrySchema() {
    static const SchemaNode entry{"", MemberKind::Text, false, {}};
    return entry;
}

bool IsNull(const TextValue& value) {
    return value.type == TextValue::Type::Literal && value.token == "null";
}

// What lint says of key in an object of this schema.
std::string DescribeUnknownMemberOf(const SchemaNode& object, const std::string& key) {
    return DescribeUnknownMember(SuggestKey(key, SchemaKeys(object)));
}

std::size_t SchemaPosition(const SchemaNode& object, const std::string& key) {
    std::size_t position = 0;
    while (position < object.members.size() && object.members[position].key != key) ++position;
    return position;
}

// RFC 6901 array indices: no sign, no leading zero.
bool IsIndex(const std::string& key) { return ParseDecimal(key) && (key == "0" || key[0] != '0'); }

TextMember* FindMutableMember(TextValue& object, const std::string& key) {
    for (auto member = object.members.rbegin(); member != object.members.rend(); ++member)
        if (member->key == key) return &*member;
    return nullptr;
}

// Sets a member of object, in place when present, otherwise in member order,
// so that a changed configuration keeps the order CaptureConfiguration gives.
void PutMember(TextValue& object, const SchemaNode& schema, TextMember member) {
    const std::size_t position = SchemaPosition(schema, member.key);
    auto at = object.members.begin();
    while (at != object.members.end() && SchemaPosition(schema, at->key) < position) ++at;
    if (at != object.members.end() && at->key == member.key)
        at->value = std::move(member.value);
    else
        object.members.insert(at, std::move(member));
}

void RemoveMember(TextValue& object, const std::string& key) {
    for (auto member = object.members.begin(); member != object.members.end(); ++member)
        if (member->key == key) {
            object.members.erase(member);
            return;
        }
}

// Values that fit the schema, made into the configuration's own form: objects
// in member order with the last of duplicate keys, integers in plain digits.
TextValue ConformValue(const TextValue& value, const SchemaNode& schema,
                       const std::string& pointer);

TextValue ConformText(const TextValue& value, const std::string& pointer) {
    std::wstring wide;
    if (value.type != TextValue::Type::String)
        throw ValueRefusal{value.offset, pointer,
                           "expected a string, found " + DescribeFound(value)};
    if (!ConvertUtf8ToWide(value.token, wide))
        throw ValueRefusal{value.offset, pointer, "expected a string of valid UTF-8"};
    // The library's texts end at their first zero character.
    if (value.token.find('\0') != std::string::npos)
        throw ValueRefusal{value.offset, pointer, "expected a string without \\u0000"};
    return value;
}

TextValue ConformObject(const TextValue& value, const SchemaNode& schema,
                        const std::string& pointer) {
    for (const TextMember& member : value.members)
        if (FindSchemaMember(schema, member.key) == nullptr)
            throw ValueRefusal{member.keyOffset, AppendPointer(pointer, member.key),
                               DescribeUnknownMemberOf(schema, member.key)};
    TextValue object = MakeObject();
    object.offset = value.offset;
    for (const SchemaNode& child : schema.members) {
        const std::string childPointer = AppendPointer(pointer, child.key);
        const TextMember* member = FindMember(value, child.key);
        if (member != nullptr)
            object.members.push_back(TextMember{child.key, member->keyOffset,
                                                ConformValue(member->value, child, childPointer)});
        else if (child.required)
            throw ValueRefusal{value.offset, childPointer, "a required member is missing"};
    }
    return object;
}

TextValue ConformValue(const TextValue& value, const SchemaNode& schema,
                       const std::string& pointer) {
    const auto refuse = [&value, &pointer](const std::string& expected) {
        return ValueRefusal{value.offset, pointer,
                            "expected " + expected + ", found " + DescribeFound(value)};
    };
    switch (schema.kind) {
        case MemberKind::Integer: {
            const std::optional<DWORD> number =
                value.type == TextValue::Type::Number ? ParseDecimal(value.token) : std::nullopt;
            if (!number) throw refuse("an integer from 0 to 4294967295");
            TextValue integer = MakeNumber(*number);
            integer.offset = value.offset;
            return integer;
        }
        case MemberKind::Text:
            return ConformText(value, pointer);
        case MemberKind::List: {
            if (value.type != TextValue::Type::Array) throw refuse("an array of strings");
            TextValue list = MakeArray();
            list.offset = value.offset;
            for (std::size_t i = 0; i < value.items.size(); ++i)
                list.items.push_back(
                    ConformText(value.items[i], AppendPointer(pointer, std::to_string(i))));
            return list;
        }
        case MemberKind::Object:
            if (value.type != TextValue::Type::Object) throw refuse("an object");
            return ConformObject(value, schema, pointer);
    }
    return value;
}

// ---- JSON Patch ----

// The schema of what each leading part of keys names, the whole
// configuration first; refuses keys the configuration cannot have, whether
// or not the members on the way are present. "-" names the end of a list,
// where only add, copy and move can put an entry.
std::vector<const SchemaNode*> CheckKeys(const std::vector<std::string>& keys, bool appending) {
    std::vector<const SchemaNode*> nodes{&ConfigurationSchema()};
    std::string pointer;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const SchemaNode& node = *nodes.back();
        const std::string& key = keys[i];
        if (node.kind == MemberKind::List) {
            if (key == "-" && !appending)
                throw PathRefusal{"\"-\" names no entry of the list " + pointer +
                                  "; it is where add, copy and move append"};
            if (key != "-" && !IsIndex(key))
                throw PathRefusal{pointer + " is a list; name an entry by its index (0, 1, ...)" +
                                  (appending ? " or by \"-\" to append" : "")};
            if (i + 1 != keys.size())
                throw PathRefusal{AppendPointer(pointer, key) +
                                  " is a list entry and has no members"};
            nodes.push_back(&EntrySchema());
        } else if (node.kind != MemberKind::Object) {
            throw PathRefusal{pointer + " is " + DescribeKind(node.kind) + " and has no members"};
        } else {
            const SchemaNode* child = FindSchemaMember(node, key);
            if (child == nullptr) throw PathRefusal{DescribeUnknownKey(node, pointer, key)};
            nodes.push_back(child);
        }
        pointer = AppendPointer(pointer, key);
    }
    return nodes;
}

// What a path names in a configuration value.
struct Location {
    std::vector<std::string> keys;
    std::vector<const SchemaNode*> nodes;  // see CheckKeys
    std::string pointer;                   // keys as a JSON Pointer
    TextValue* container = nullptr;        // the object or list holding it, null if absent
    TextValue* value = nullptr;            // null when absent
    std::size_t entry = 0;                 // in a list: the index ("-": the length)
    std::string absentPointer;             // the first absent member on the way

    const SchemaNode& schema() const { return *nodes.back(); }
    bool inList() const {
        return nodes.size() > 1 && nodes[nodes.size() - 2]->kind == MemberKind::List;
    }
};

Location Locate(TextValue& configuration, const std::vector<std::string>& keys, bool appending) {
    Location at;
    at.keys = keys;
    at.nodes = CheckKeys(keys, appending);
    at.pointer = JoinPointer(keys);
    at.value = &configuration;
    std::string pointer;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        at.container = at.value;
        pointer = AppendPointer(pointer, keys[i]);
        if (at.container == nullptr) continue;
        if (at.nodes[i]->kind == MemberKind::List) {
            const std::size_t count = at.container->items.size();
            at.entry = keys[i] == "-" ? count : *ParseDecimal(keys[i]);
            at.value = at.entry < count ? &at.container->items[at.entry] : nullptr;
        } else {
            TextMember* member = FindMutableMember(*at.container, keys[i]);
            at.value = member != nullptr ? &member->value : nullptr;
        }
        if (at.value == nullptr && at.absentPointer.empty()) at.absentPointer = pointer;
    }
    return at;
}

std::string DescribeAbsent(const std::string& pointer, const std::string& absentPointer) {
    return pointer + " is absent" +
           (absentPointer == pointer ? "" : ", since " + absentPointer + " is absent");
}

// Refuses a location whose value is absent (remove, replace, test, from).
void RequirePresent(const Location& at) {
    if (at.value != nullptr) return;
    if (at.container != nullptr && at.inList())
        throw PathRefusal{DescribeListEntries(JoinPointer({at.keys.begin(), at.keys.end() - 1}),
                                              at.container->items.size())};
    throw PathRefusal{DescribeAbsent(at.pointer, at.absentPointer)};
}

// Refuses a location whose parent is absent, or an index past the end of
// its list (add and the targets of copy and move).
void RequireParent(const Location& at) {
    if (at.keys.empty()) return;
    const std::string parent = JoinPointer({at.keys.begin(), at.keys.end() - 1});
    if (at.container == nullptr) throw PathRefusal{DescribeAbsent(parent, at.absentPointer)};
    const std::size_t count = at.container->items.size();
    if (at.inList() && at.entry > count)
        throw PathRefusal{DescribeListEntries(parent, count) + "; a new entry goes at 0 to " +
                          std::to_string(count) + " or at \"-\""};
}

void RequireRemovable(const Location& at) {
    if (at.keys.empty()) throw PathRefusal{"the whole configuration cannot be removed"};
    if (at.schema().required) throw PathRefusal{"a required member cannot be removed"};
}

void Remove(const Location& at) {
    if (at.inList())
        at.container->items.erase(at.container->items.begin() +
                                  static_cast<std::ptrdiff_t>(at.entry));
    else
        RemoveMember(*at.container, at.keys.back());
}

// Puts value at the location as add does: the whole configuration, an entry
// inserted into its list, or a member set.
void Put(TextValue& configuration, const Location& at, TextValue value) {
    if (at.keys.empty())
        configuration = std::move(value);
    else if (at.inList())
        at.container->items.insert(
            at.container->items.begin() + static_cast<std::ptrdiff_t>(at.entry), std::move(value));
    else
        PutMember(*at.container, *at.nodes[at.nodes.size() - 2],
                  TextMember{at.keys.back(), value.offset, std::move(value)});
}

// One operation of a patch as read from its text.
struct Operation {
    std::size_t index = 0;
    const TextValue* object = nullptr;
    std::string name;                 // set once it is known to be valid
    const TextValue* path = nullptr;  // set once it is known to be a string
    std::vector<std::string> pathKeys;
    const TextValue* from = nullptr;
    std::vector<std::string> fromKeys;
    const TextValue* value = nullptr;

    // "operation N (OP PATH)", with as much as is known.
    std::string Header() const {
        std::string header = "operation " + std::to_string(index);
        if (name.empty()) return header;
        header += " (" + name;
        if (path != nullptr) header += " " + (path->token.empty() ? "\"\"" : path->token);
        return header + ")";
    }

    [[noreturn]] void Refuse(std::size_t offset, const std::string& reason) const {
        throw ChangeFailure(offset, Header() + ": " + reason);
    }
};

const char* const kOperationNames[] = {"add", "remove", "replace", "move", "copy", "test"};

bool IsOperationName(const std::string& name) {
    for (const char* known : kOperationNames)
        if (name == known) return true;
    return false;
}

// A duplicate of a member that the operation uses leaves its meaning open:
// refused, while other members are ignored.
void RefuseDuplicateMembers(const Operation& operation) {
    std::set<std::string> seen;
    for (const TextMember& member : operation.object->members) {
        const bool used = member.key == "op" || member.key == "path" || member.key == "from" ||
                          member.key == "value";
        if (used && !seen.insert(member.key).second)
            operation.Refuse(member.keyOffset, "\"" + member.key + "\" is given twice");
    }
}

const TextMember& RequireMember(const Operation& operation, const std::string& key) {
    const TextMember* member = FindMember(*operation.object, key);
    if (member == nullptr) operation.Refuse(operation.object->offset, "missing \"" + key + "\"");
    return *member;
}

// Reads the pointer in member key ("path" or "from") into keys.
const TextValue* ReadPointer(Operation& operation, const std::string& key,
                             std::vector<std::string>& keys) {
    const TextValue& text = RequireMember(operation, key).value;
    if (text.type != TextValue::Type::String)
        operation.Refuse(text.offset,
                         "\"" + key + "\" must be a string, found " + DescribeFound(text));
    if (key == "path") operation.path = &text;
    const std::string subject = key == "path" ? "" : "\"" + key + "\": ";
    if (!text.token.empty() && text.token[0] != '/')
        operation.Refuse(text.offset,
                         subject + "not a JSON Pointer; it must be empty or start with \"/\"");
    try {
        // SplitPath reads "/" as the whole configuration; a JSON Pointer
        // reads it as the member with the empty key.
        keys = text.token == "/" ? std::vector<std::string>{""} : SplitPath(text.token);
    } catch (const Failure& failure) {
        const std::string prefix = "path \"" + text.token + "\": ";
        operation.Refuse(text.offset, subject + std::string(failure.what()).substr(prefix.size()));
    }
    return &text;
}

Operation ReadOperation(const TextValue& item, std::size_t index) {
    Operation operation;
    operation.index = index;
    operation.object = &item;
    if (item.type != TextValue::Type::Object)
        operation.Refuse(item.offset, "expected an object, found " + DescribeFound(item));
    RefuseDuplicateMembers(operation);
    const TextValue& name = RequireMember(operation, "op").value;
    if (name.type != TextValue::Type::String || !IsOperationName(name.token))
        operation.Refuse(name.offset,
                         "\"op\" must be one of add, remove, replace, move, copy, test, found " +
                             (name.type == TextValue::Type::String ? QuoteText(name.token)
                                                                   : DescribeFound(name)));
    operation.name = name.token;
    ReadPointer(operation, "path", operation.pathKeys);
    if (operation.name == "add" || operation.name == "replace" || operation.name == "test")
        operation.value = &RequireMember(operation, "value").value;
    if (operation.name == "move" || operation.name == "copy")
        operation.from = ReadPointer(operation, "from", operation.fromKeys);
    return operation;
}

// Applies one operation to configuration, refusing it with the reason.
class OperationApplier {
public:
    OperationApplier(TextValue& configuration, const Operation& operation)
        : configuration_(configuration), operation_(operation) {}

    void Apply() {
        const std::string& name = operation_.name;
        if (name == "add")
            Add(*operation_.value, false);
        else if (name == "remove")
            RemoveAt(Find(false, false), false);
        else if (name == "replace")
            Replace();
        else if (name == "test")
            Test();
        else
            Transfer(name == "move");
    }

private:
    // The location of the path (or from); appending lets "-" name a list's end.
    Location Find(bool from, bool appending) const {
        try {
            return Locate(configuration_, from ? operation_.fromKeys : operation_.pathKeys,
                          appending);
        } catch (const PathRefusal& refusal) {
            RefusePath(from, refusal.reason);
        }
    }

    template <typename Check>
    void Require(Check check, const Location& at, bool from) const {
        try {
            check(at);
        } catch (const PathRefusal& refusal) {
            RefusePath(from, refusal.reason);
        }
    }

    [[noreturn]] void RefusePath(bool from, const std::string& reason) const {
        if (from) operation_.Refuse(operation_.from->offset, "\"from\": " + reason);
        operation_.Refuse(operation_.path->offset, reason);
    }

    // value made to fit the path's location; a value taken from the
    // configuration (copied) is refused at the path, one from the patch at
    // its own place.
    TextValue Conform(const TextValue& value, const Location& at, bool copied) const {
        try {
            return ConformValue(value, at.schema(), at.pointer);
        } catch (const ValueRefusal& refusal) {
            operation_.Refuse(
                copied ? operation_.path->offset : refusal.offset,
                (refusal.pointer == at.pointer ? "" : refusal.pointer + ": ") + refusal.reason);
        }
    }

    void Add(const TextValue& value, bool copied) {
        const Location at = Find(false, true);
        Require(RequireParent, at, false);
        Put(configuration_, at, Conform(value, at, copied));
    }

    void RemoveAt(const Location& at, bool from) {
        Require(RequirePresent, at, from);
        Require(RequireRemovable, at, from);
        Remove(at);
    }

    void Replace() {
        const Location at = Find(false, false);
        Require(RequirePresent, at, false);
        *at.value = Conform(*operation_.value, at, false);
    }

    void Test() {
        const Location at = Find(false, false);
        Require(RequirePresent, at, false);
        if (!SameValue(*at.value, *operation_.value))
            operation_.Refuse(operation_.value->offset, "the value is " + WriteJsonLine(*at.value) +
                                                            ", not " +
                                                            WriteJsonLine(*operation_.value));
    }

    // move and copy: RFC 6902 reads move as remove from "from", then add.
    void Transfer(bool move) {
        const Location source = Find(true, false);
        Find(false, true);  // the path's keys are checked before anything changes
        Require(RequirePresent, source, true);
        const TextValue value = *source.value;
        if (move && IsProperPrefix(operation_.fromKeys, operation_.pathKeys))
            operation_.Refuse(operation_.from->offset,
                              "cannot move " + source.pointer + " into its own child");
        if (move && operation_.fromKeys == operation_.pathKeys) return;
        if (move) RemoveAt(source, true);
        Add(value, true);
    }

    static bool IsProperPrefix(const std::vector<std::string>& prefix,
                               const std::vector<std::string>& keys) {
        return prefix.size() < keys.size() &&
               std::equal(prefix.begin(), prefix.end(), keys.begin());
    }

    TextValue& configuration_;
    const Operation& operation_;
};

// ---- JSON Merge Patch ----

void MergeObject(TextValue& target, const TextValue& patch, const SchemaNode& schema,
                 const std::string& pointer);

void MergeMember(TextValue& object, const SchemaNode& objectSchema, const TextMember& member,
                 const SchemaNode& schema, const std::string& pointer) {
    const TextValue& value = member.value;
    if (IsNull(value)) {
        if (schema.required)
            throw ChangeFailure(value.offset, pointer + ": a required member cannot be removed");
        RemoveMember(object, member.key);
        return;
    }
    TextMember* present = FindMutableMember(object, member.key);
    if (schema.kind == MemberKind::Object && value.type == TextValue::Type::Object) {
        if (present != nullptr) {
            MergeObject(present->value, value, schema, pointer);
            return;
        }
        // An absent object merges into an empty one, which must then hold
        // every required member.
        TextValue created = MakeObject();
        created.offset = value.offset;
        MergeObject(created, value, schema, pointer);
        PutMember(object, objectSchema,
                  TextMember{member.key, member.keyOffset, ConformValue(created, schema, pointer)});
        return;
    }
    PutMember(object, objectSchema,
              TextMember{member.key, member.keyOffset, ConformValue(value, schema, pointer)});
}

void MergeObject(TextValue& target, const TextValue& patch, const SchemaNode& schema,
                 const std::string& pointer) {
    for (const TextMember& member : patch.members)
        if (FindSchemaMember(schema, member.key) == nullptr)
            throw ChangeFailure(member.keyOffset, AppendPointer(pointer, member.key) + ": " +
                                                      DescribeUnknownMemberOf(schema, member.key));
    // In member order, the last of duplicate keys counting, as the library reads them.
    for (const SchemaNode& child : schema.members)
        if (const TextMember* member = FindMember(patch, child.key))
            MergeMember(target, schema, *member, child, AppendPointer(pointer, child.key));
}

}  // namespace

void ApplyJsonPatch(TextValue& configuration, const TextValue& patch) {
    if (patch.type != TextValue::Type::Array)
        throw ChangeFailure(
            patch.offset, "a JSON Patch is an array of operations, found " + DescribeFound(patch));
    TextValue result = configuration;
    for (std::size_t i = 0; i < patch.items.size(); ++i)
        OperationApplier(result, ReadOperation(patch.items[i], i)).Apply();
    configuration = std::move(result);
}

void ApplyMergePatch(TextValue& configuration, const TextValue& patch) {
    if (patch.type != TextValue::Type::Object)
        throw ChangeFailure(
            patch.offset,
            "a merge patch is an object of the members to set, found " + DescribeFound(patch));
    TextValue result = configuration;
    try {
        MergeObject(result, patch, ConfigurationSchema(), "");
    } catch (const ValueRefusal& refusal) {
        throw ChangeFailure(refusal.offset, refusal.pointer + ": " + refusal.reason);
    }
    configuration = std::move(result);
}

}  // namespace zeltcfg
