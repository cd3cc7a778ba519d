#include "ReadFailureDiagnosis.h"

#include "ConfigurationModel.h"
#include "MemberPath.h"

namespace zeltcfg {

namespace {

const SchemaNode* FindSchema(const std::vector<std::string>& keys) {
    const SchemaNode* node = &ConfigurationSchema();
    for (const std::string& key : keys) {
        const SchemaNode* next = FindSchemaMember(*node, key);
        if (next == nullptr) return nullptr;
        node = next;
    }
    return node;
}

std::string HowToAdd(const std::vector<std::string>& keys) {
    const SchemaNode* node = FindSchema(keys);
    if (node == nullptr) return "add it";
    switch (node->kind) {
        case MemberKind::Object:
            return "add it as an object";
        case MemberKind::List:
            return "add it as an array of strings";
        case MemberKind::Integer:
            return "add it as an integer from 0 to 4294967295";
        case MemberKind::Text:
            return "add it as a string";
    }
    return "add it";
}

bool IsNull(const TextValue& value) {
    return value.type == TextValue::Type::Literal && DescribeType(value) == "null";
}

}  // namespace

// The members named by the library's messages, outermost first: each level
// names its element ("element:HTTPS") and the innermost the attribute
// ("attr:SSLFilter"). The root and the list entries ("...Array", whose
// attribute is the entry's own string) add no key.
std::vector<std::string> FailingKeys(const std::vector<std::string>& messages) {
    std::vector<std::string> keys;
    std::string attribute;
    for (auto message = messages.rbegin(); message != messages.rend(); ++message) {
        const std::size_t element = message->find("element:");
        if (element == std::string::npos) continue;
        std::string name = message->substr(element + 8);
        const std::size_t comma = name.find(", attr:");
        attribute.clear();
        if (comma != std::string::npos) {
            attribute = name.substr(comma + 7);
            name.erase(comma);
        }
        const bool entry = name.size() > 5 && name.compare(name.size() - 5, 5, "Array") == 0;
        if (name != "VextorJSConfig" && !entry && (keys.empty() || keys.back() != name))
            keys.push_back(name);
    }
    if (!attribute.empty() && attribute != "StringValue") keys.push_back(attribute);
    return keys;
}

// Where in the text the member that the library failed on is, and what is
// wrong with it.
Diagnosis DiagnoseReadFailure(const TextValue& tree, const std::vector<std::string>& keys) {
    const TextValue* node = &tree;
    std::string pointer;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (node->type != TextValue::Type::Object)
            return {node->offset, pointer.empty() ? "/" : pointer,
                    "expected an object, found " + DescribeType(*node) + "; make it an object"};
        const TextMember* member = FindMember(*node, keys[i]);
        const std::string memberPointer = AppendPointer(pointer, keys[i]);
        if (member == nullptr || IsNull(member->value)) {
            const std::vector<std::string> path(keys.begin(), keys.begin() + i + 1);
            return {member == nullptr ? node->offset : member->value.offset, memberPointer,
                    "required member missing; " + HowToAdd(path)};
        }
        node = &member->value;
        pointer = memberPointer;
    }
    const SchemaNode* schema = FindSchema(keys);
    if (schema != nullptr && schema->kind == MemberKind::List) {
        if (node->type != TextValue::Type::Array)
            return {node->offset, pointer,
                    "expected an array of strings, found " + DescribeType(*node) +
                        "; write it as [ \"...\" ]"};
        for (std::size_t index = 0; index < node->items.size(); ++index) {
            const TextValue& item = node->items[index];
            if (item.type != TextValue::Type::String)
                return {
                    item.offset, AppendPointer(pointer, std::to_string(index)),
                    "list entry is " + DescribeType(item) + ", not a string; write it as a string"};
        }
    }
    return {node->offset, pointer.empty() ? "/" : pointer,
            "the library cannot read this member; see its messages below"};
}

}  // namespace zeltcfg
