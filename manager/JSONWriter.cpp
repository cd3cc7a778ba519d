#include "manager/JSONWriter.h"

#include "manager/JSONNumbers.h"

#include <json-c/json.h>

#include <charconv>
#include <cstddef>
#include <vector>

namespace {

void AppendEscapedString(const char* text, std::string& out) {
    static const char kHexDigits[] = "0123456789abcdef";
    out += '"';
    for (const unsigned char* p = reinterpret_cast<const unsigned char*>(text); *p != 0; ++p) {
        switch (*p) {
            case '\b':
                out += "\\b";
                break;
            case '\n':
                out += "\\n";
                break;
            case '\r':
                out += "\\r";
                break;
            case '\t':
                out += "\\t";
                break;
            case '"':
                out += "\\\"";
                break;
            case '\\':
                out += "\\\\";
                break;
            case '/':
                out += "\\/";
                break;
            default:
                if (*p < 0x20) {
                    out += "\\u00";
                    out += kHexDigits[*p >> 4];
                    out += kHexDigits[*p & 0x0F];
                } else {
                    out += static_cast<char>(*p);
                }
        }
    }
    out += '"';
}

template <class Number, class... Format>
void AppendNumber(Number value, std::string& out, Format... format) {
    char digits[400];  // the longest "%lf" of a double has 317 characters
    const std::to_chars_result result =
        std::to_chars(digits, digits + sizeof digits, value, format...);
    out.append(digits, result.ptr);
}

void AppendScalar(json_object* node, std::string& out) {
    switch (json_object_get_type(node)) {
        case json_type_null:
            out += "null";
            break;
        case json_type_boolean:
            out += json_object_get_boolean(node) ? "true" : "false";
            break;
        case json_type_int:
            AppendNumber(IntegerValue(node), out);
            break;
        case json_type_double:
            AppendNumber(json_object_get_double(node), out, std::chars_format::fixed, 6);
            break;
        case json_type_string:
            AppendEscapedString(json_object_get_string(node), out);
            break;
        default:
            break;
    }
}

// One open object or array on the writer's stack, with its next member.
struct OpenContainer {
    json_object* node;
    lh_entry* nextMember;   // objects
    std::size_t nextItem;   // arrays
    std::size_t itemCount;  // arrays
    bool first;
};

// Opens a container (or writes a scalar) and returns whether it was opened.
bool BeginValue(json_object* node, std::vector<OpenContainer>& stack, std::string& out) {
    switch (json_object_get_type(node)) {
        case json_type_object:
            out += '{';
            stack.push_back({node, lh_table_head(json_object_get_object(node)), 0, 0, true});
            return true;
        case json_type_array:
            out += '[';
            stack.push_back({node, nullptr, 0, json_object_array_length(node), true});
            return true;
        default:
            AppendScalar(node, out);
            return false;
    }
}

// Writes the separator and key of the container's next member, and gives
// its value; null when the container is done.
bool NextValue(OpenContainer& container, std::string& out, json_object*& value) {
    const bool isObject = json_object_get_type(container.node) == json_type_object;
    if (isObject ? container.nextMember == nullptr : container.nextItem == container.itemCount)
        return false;
    out += container.first ? " " : ", ";
    container.first = false;
    if (isObject) {
        AppendEscapedString(static_cast<const char*>(lh_entry_k(container.nextMember)), out);
        out += ": ";
        value = static_cast<json_object*>(lh_entry_v(container.nextMember));
        container.nextMember = lh_entry_next(container.nextMember);
    } else {
        value = json_object_array_get_idx(container.node, container.nextItem++);
    }
    return true;
}

}  // namespace

void AppendJSONText(json_object* node, std::string& out) {
    std::vector<OpenContainer> stack;
    BeginValue(node, stack, out);
    while (!stack.empty()) {
        OpenContainer& container = stack.back();
        json_object* value = nullptr;
        if (NextValue(container, out, value)) {
            BeginValue(value, stack, out);
            continue;
        }
        out += json_object_get_type(container.node) == json_type_object ? " }" : " ]";
        stack.pop_back();
    }
}
