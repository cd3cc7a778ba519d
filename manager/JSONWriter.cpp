#include "manager/JSONWriter.h"

#include "manager/JSONNumbers.h"

#include <json-c/json.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <vector>

void JSONText::Clear() {
    size_ = 0;
    if (bytes_) *bytes_ = '\0';
}

bool JSONText::Flush() {
    if (stream_ != nullptr && size_ != 0) {
        if (!shortWrite_ && std::fwrite(bytes_.get(), 1, size_, stream_) < size_)
            shortWrite_ = true;
        Clear();
    }
    return !shortWrite_;
}

void JSONText::MakeRoom(std::size_t count) {
    Flush();
    if (capacity_ - size_ > count) return;
    // Doubling keeps appending linear; one byte more for the zero byte. A
    // large block grows in place, by remapping, without copying or touching
    // its pages again. A stream's buffer grows only for a longer piece.
    constexpr std::size_t kStreamBuffer = 1 << 16;
    const std::size_t least = stream_ != nullptr ? kStreamBuffer : 256;
    const std::size_t capacity = std::max({2 * capacity_, size_ + count + 1, least});
    void* grown = std::realloc(bytes_.get(), capacity);
    if (grown == nullptr) throw std::bad_alloc();
    static_cast<void>(bytes_.release());
    bytes_.reset(static_cast<char*>(grown));
    capacity_ = capacity;
}

namespace {

// For each byte: the character that follows the backslash in its escape,
// kEndOfText for the zero byte that ends the string, and 0 for the bytes that
// are copied as they are.
constexpr char kEndOfText = 1;
constexpr char kHexEscape = 'u';

struct EscapeTable {
    char next[256] = {};
    constexpr EscapeTable() {
        for (int byte = 1; byte < 0x20; ++byte) next[byte] = kHexEscape;
        next[0] = kEndOfText;
        next[static_cast<unsigned char>('\b')] = 'b';
        next[static_cast<unsigned char>('\n')] = 'n';
        next[static_cast<unsigned char>('\r')] = 'r';
        next[static_cast<unsigned char>('\t')] = 't';
        next[static_cast<unsigned char>('"')] = '"';
        next[static_cast<unsigned char>('\\')] = '\\';
        next[static_cast<unsigned char>('/')] = '/';
    }
};
constexpr EscapeTable kEscapes;

// The longest text that one byte can give: \u00xx.
constexpr std::size_t kLongestEscape = 6;
// Strings up to this length get room for their longest form at once; longer
// ones are written in pieces of this length.
constexpr std::size_t kPieceLength = 4096;

// The bytes of block that need an escape or end the text (those below 0x20,
// '"', '\\' and '/'), each marked by its high bit, all other bits clear. Each
// byte is computed on its own: nothing carries into the next byte.
std::uint64_t EscapeMarks(std::uint64_t block) {
    constexpr std::uint64_t kOnes = 0x0101010101010101u;
    constexpr std::uint64_t kLowBits = 0x7F7F7F7F7F7F7F7Fu;
    constexpr std::uint64_t kHighBits = 0x8080808080808080u;
    const auto isZero = [](std::uint64_t v) {
        return ~(((v & kLowBits) + kLowBits) | v) & kHighBits;
    };
    const std::uint64_t below0x20 =
        ~(((block & kLowBits) + kOnes * (0x80 - 0x20)) | block) & kHighBits;
    return below0x20 | isZero(block ^ (kOnes * '"')) | isZero(block ^ (kOnes * '\\')) |
           isZero(block ^ (kOnes * '/'));
}

// The place, in memory order, of the first byte that marks has marked.
std::size_t FirstMarkedByte(std::uint64_t marks) {
    unsigned char bytes[8];
    std::memcpy(bytes, &marks, 8);
    std::size_t index = 0;
    while (bytes[index] == 0) ++index;
    return index;
}

// Writes the escape of byte, whose table entry is next, at out and gives the
// end of it.
char* WriteEscape(unsigned char byte, char next, char* out) {
    static const char kHexDigits[] = "0123456789abcdef";
    *out++ = '\\';
    *out++ = next;
    if (next == kHexEscape) {
        *out++ = '0';
        *out++ = '0';
        *out++ = kHexDigits[byte >> 4];
        *out++ = kHexDigits[byte & 0x0F];
    }
    return out;
}

// Escapes length bytes from p (fewer when a zero byte comes first) at out,
// which has room for their longest form. Eight bytes at a time are copied as
// they are up to the first that needs an escape. Gives the end of the output;
// p is left at the zero byte or after the bytes.
char* EscapePiece(const char*& p, std::size_t length, char* out) {
    const char* const end = p + length;
    while (end - p >= 8) {
        std::uint64_t block;
        std::memcpy(&block, p, 8);
        std::memcpy(out, p, 8);
        const std::uint64_t marks = EscapeMarks(block);
        if (marks == 0) {
            p += 8;
            out += 8;
            continue;
        }
        const std::size_t plain = FirstMarkedByte(marks);
        p += plain;
        out += plain;
        const auto byte = static_cast<unsigned char>(*p);
        const char next = kEscapes.next[byte];
        if (next == kEndOfText) return out;
        out = WriteEscape(byte, next, out);
        ++p;
    }
    for (; p != end; ++p) {
        const auto byte = static_cast<unsigned char>(*p);
        const char next = kEscapes.next[byte];
        if (next == kEndOfText) break;
        if (next == 0)
            *out++ = *p;
        else
            out = WriteEscape(byte, next, out);
    }
    return out;
}

// A string whose text ends at its first zero byte, which comes at the latest
// after length bytes. Room is made for the longest form of each piece.
void AppendEscapedString(const char* text, std::size_t length, JSONText& out) {
    const char* p = text;
    char* o = out.Room(kLongestEscape * std::min(length, kPieceLength) + 2);
    *o++ = '"';
    for (;;) {
        const std::size_t piece =
            std::min(length - static_cast<std::size_t>(p - text), kPieceLength);
        o = EscapePiece(p, piece, o);
        if (piece < kPieceLength || *p == '\0') break;
        out.Commit(o);
        o = out.Room(kLongestEscape * kPieceLength + 1);
    }
    *o++ = '"';
    out.Commit(o);
}

void AppendLiteral(const char* text, JSONText& out) { out.Append(text, std::strlen(text)); }

template <class Number, class... Format>
void AppendNumber(Number value, JSONText& out, Format... format) {
    char digits[400];  // the longest "%lf" of a double has 317 characters
    const std::to_chars_result result =
        std::to_chars(digits, digits + sizeof digits, value, format...);
    out.Append(digits, static_cast<std::size_t>(result.ptr - digits));
}

void AppendScalar(json_object* node, json_type type, JSONText& out) {
    switch (type) {
        case json_type_null:
            AppendLiteral("null", out);
            break;
        case json_type_boolean:
            AppendLiteral(json_object_get_boolean(node) ? "true" : "false", out);
            break;
        case json_type_int:
            AppendNumber(IntegerValue(node), out);
            break;
        case json_type_double:
            AppendNumber(json_object_get_double(node), out, std::chars_format::fixed, 6);
            break;
        case json_type_string:
            AppendEscapedString(json_object_get_string(node),
                                static_cast<std::size_t>(json_object_get_string_len(node)), out);
            break;
        default:
            break;
    }
}

// One open object or array on the writer's stack, with its next member.
struct OpenContainer {
    json_object* node;
    bool isObject;
    bool first;
    lh_entry* nextMember;   // objects
    array_list* items;      // arrays
    std::size_t nextItem;   // arrays
    std::size_t itemCount;  // arrays
};

// Opens a container (or writes a scalar) and returns whether it was opened.
bool BeginValue(json_object* node, std::vector<OpenContainer>& stack, JSONText& out) {
    const json_type type = json_object_get_type(node);
    switch (type) {
        case json_type_object:
            out.Append("{", 1);
            stack.push_back(
                {node, true, true, lh_table_head(json_object_get_object(node)), nullptr, 0, 0});
            return true;
        case json_type_array:
            out.Append("[", 1);
            stack.push_back({node, false, true, nullptr, json_object_get_array(node), 0,
                             json_object_array_length(node)});
            return true;
        default:
            AppendScalar(node, type, out);
            return false;
    }
}

// Writes the separator and key of the container's next member, and gives
// its value; false when the container is done.
bool NextValue(OpenContainer& container, JSONText& out, json_object*& value) {
    if (container.isObject ? container.nextMember == nullptr
                           : container.nextItem == container.itemCount)
        return false;
    if (container.first)
        out.Append(" ", 1);
    else
        out.Append(", ", 2);
    container.first = false;
    if (container.isObject) {
        const auto* key = static_cast<const char*>(lh_entry_k(container.nextMember));
        AppendEscapedString(key, std::strlen(key), out);
        out.Append(": ", 2);
        value = static_cast<json_object*>(lh_entry_v(container.nextMember));
        container.nextMember = lh_entry_next(container.nextMember);
    } else {
        value =
            static_cast<json_object*>(array_list_get_idx(container.items, container.nextItem++));
    }
    return true;
}

// Writes the array's next items for as long as they are scalars, which most
// items of a document are, without going through the stack.
void AppendScalarItems(OpenContainer& array, JSONText& out) {
    for (; array.nextItem != array.itemCount; ++array.nextItem) {
        auto* item = static_cast<json_object*>(array_list_get_idx(array.items, array.nextItem));
        const json_type type = json_object_get_type(item);
        if (type == json_type_object || type == json_type_array) return;
        if (array.first)
            out.Append(" ", 1);
        else
            out.Append(", ", 2);
        array.first = false;
        AppendScalar(item, type, out);
    }
}

}  // namespace

void AppendJSONText(json_object* node, JSONText& out) {
    std::vector<OpenContainer> stack;
    BeginValue(node, stack, out);
    while (!stack.empty()) {
        OpenContainer& container = stack.back();
        if (!container.isObject) AppendScalarItems(container, out);
        json_object* value = nullptr;
        if (NextValue(container, out, value)) {
            BeginValue(value, stack, out);
            continue;
        }
        out.Append(container.isObject ? " }" : " ]", 2);
        stack.pop_back();
    }
}
