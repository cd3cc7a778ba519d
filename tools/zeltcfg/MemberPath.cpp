#include "MemberPath.h"

#include "Failure.h"
#include "Lint.h"

namespace zeltcfg {

namespace {

std::string DecodePointerKey(const std::string& escaped, const std::string& path) {
    std::string key;
    for (std::size_t i = 0; i < escaped.size(); ++i) {
        if (escaped[i] != '~') {
            key += escaped[i];
        } else if (i + 1 < escaped.size() && (escaped[i + 1] == '0' || escaped[i + 1] == '1')) {
            key += escaped[++i] == '0' ? '~' : '/';
        } else {
            throw Failure(kExitUsage, "path \"" + path +
                                          "\": \"~\" must be followed by 0 or 1 in a JSON "
                                          "Pointer; write \"~0\" for \"~\" and \"~1\" for \"/\"");
        }
    }
    return key;
}

std::vector<std::string> SplitOn(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find(separator, start)) != std::string::npos; start = end + 1)
        parts.push_back(text.substr(start, end - start));
    parts.push_back(text.substr(start));
    return parts;
}

std::string JoinKeys(const std::vector<SchemaNode>& members) {
    std::string keys;
    for (const SchemaNode& member : members) keys += (keys.empty() ? "" : ", ") + member.key;
    return keys;
}

// Checks every key against the schema, so that a path is refused the same
// way whether or not the members on the way are present.
const SchemaNode* CheckAgainstSchema(const std::vector<std::string>& keys,
                                     const std::string& path) {
    const SchemaNode* node = &ConfigurationSchema();
    std::string pointer;
    const auto refuse = [&path](const std::string& why) {
        throw Failure(kExitUsage, "path \"" + path + "\": " + why);
    };
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const std::string& key = keys[i];
        const std::string where = pointer.empty() ? "the configuration" : pointer;
        if (node->kind == MemberKind::List) {
            if (!ParseDecimal(key))
                refuse(where + " is a list; name an entry by its index (0, 1, ...)");
            if (i + 1 != keys.size())
                refuse(AppendPointer(pointer, key) + " is a list entry and has no members");
            return nullptr;
        }
        if (node->kind != MemberKind::Object)
            refuse(where + " is " + DescribeKind(node->kind) + " and has no members");
        const SchemaNode* next = FindSchemaMember(*node, key);
        if (next == nullptr) refuse(DescribeUnknownKey(*node, pointer, key));
        node = next;
        pointer = AppendPointer(pointer, key);
    }
    return node;
}

Member FindBound(const Member& object, const std::string& key) {
    for (Member& member : object.members())
        if (member.key == key) return member;
    return object;  // not reached: the keys were checked against the schema
}

}  // namespace

std::string DescribeUnknownKey(const SchemaNode& object, const std::string& pointer,
                               const std::string& key) {
    const std::string suggestion = SuggestKey(key, SchemaKeys(object));
    return (pointer.empty() ? "the configuration" : pointer) + " has no member \"" + key + "\"; " +
           (suggestion.empty() ? "its members are " + JoinKeys(object.members)
                               : "did you mean \"" + suggestion + "\"?");
}

std::string DescribeListEntries(const std::string& pointer, std::size_t count) {
    return "the list " + pointer + " has " + std::to_string(count) +
           (count == 1 ? " entry" : " entries") +
           (count == 0 ? "" : ", numbered from 0 to " + std::to_string(count - 1));
}

std::optional<DWORD> ParseDecimal(const std::string& text) {
    if (text.empty() || text.size() > 20) return std::nullopt;
    unsigned long long value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') return std::nullopt;
        value = value * 10 + static_cast<unsigned>(c - '0');
    }
    if (value > 4294967295ULL) return std::nullopt;
    return static_cast<DWORD>(value);
}

std::string AppendPointer(const std::string& pointer, const std::string& key) {
    std::string escaped;
    for (const char c : key) escaped += c == '~' ? "~0" : c == '/' ? "~1" : std::string(1, c);
    return pointer + "/" + escaped;
}

std::string JoinPointer(const std::vector<std::string>& keys) {
    std::string pointer;
    for (const std::string& key : keys) pointer = AppendPointer(pointer, key);
    return pointer;
}

std::vector<std::string> SplitPath(const std::string& path) {
    if (path.empty() || path == "/") return {};
    std::vector<std::string> keys;
    if (path[0] == '/') {
        for (const std::string& escaped : SplitOn(path.substr(1), '/'))
            keys.push_back(DecodePointerKey(escaped, path));
        return keys;
    }
    keys = SplitOn(path, '.');
    for (const std::string& key : keys)
        if (key.empty())
            throw Failure(kExitUsage, "path \"" + path +
                                          "\": an empty key between dots; write keys as "
                                          "ClientSetting.HTTPS.SSLFilter or "
                                          "/ClientSetting/HTTPS/SSLFilter");
    return keys;
}

ResolvedPath ResolvePath(const Member& configuration, const std::string& path,
                         AbsentParents parents) {
    const std::vector<std::string> keys = SplitPath(path);
    const SchemaNode* named = CheckAgainstSchema(keys, path);
    ResolvedPath resolved{configuration,
                          std::nullopt,
                          "",
                          named != nullptr ? named->kind : MemberKind::Text,
                          named != nullptr && named->required,
                          false,
                          ""};
    for (const std::string& key : keys) {
        if (resolved.member.kind == MemberKind::List) {
            const DWORD index = *ParseDecimal(key);
            const std::size_t count = resolved.member.entries().size();
            if (index >= count)
                throw Failure(kExitUsage, "path \"" + path + "\": " +
                                              DescribeListEntries(resolved.pointer, count));
            resolved.entry = index;
            resolved.pointer = AppendPointer(resolved.pointer, key);
            return resolved;
        }
        resolved.member = FindBound(resolved.member, key);
        resolved.pointer = AppendPointer(resolved.pointer, key);
        if (resolved.member.present()) continue;
        // An absent list or object is made present only on the way to
        // something inside it.
        const bool inside = &key != &keys.back();
        if (parents == AbsentParents::Create && inside) {
            resolved.member.makePresent();
            continue;
        }
        resolved.absent = true;
        resolved.absentPointer = resolved.pointer;
        resolved.pointer = JoinPointer(keys);
        return resolved;
    }
    return resolved;
}

}  // namespace zeltcfg
