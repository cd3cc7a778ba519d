// DocumentText.h: where things are in the text of a configuration document.
//
// The library reports what failed, not where; this finds a JSON parse error
// with json-c and, once the text parses, gives the place of every member and
// item and every key as written, duplicates included, so that messages can
// name line and column.
#ifndef ZELTCFG_DOCUMENTTEXT_H
#define ZELTCFG_DOCUMENTTEXT_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace zeltcfg {

struct TextMember;

// One value as written. Scalars keep their token: the decoded text of a
// string, the characters of a number or a literal (true, null, ...).
struct TextValue {
    enum class Type { Object, Array, String, Number, Literal };
    Type type = Type::Literal;
    std::size_t offset = 0;
    std::string token;
    std::vector<TextMember> members;  // Object, in text order
    std::vector<TextValue> items;     // Array
};

struct TextMember {
    std::string key;
    std::size_t keyOffset = 0;
    TextValue value;
};

struct ParseError {
    std::size_t offset;
    std::string reason;
};

// json-c's verdict on the text as the library parses it (up to its first
// zero byte, nesting limited to 32 levels): nothing when it parses.
std::optional<ParseError> FindParseError(const std::string& text);

// The value tree of a text that parses (see FindParseError). Comments,
// single quotes and trailing commas are read as json-c reads them.
TextValue ScanText(const std::string& text);

// 1-based line and column (in characters) of a byte offset.
struct TextLocation {
    int line;
    int column;
};
TextLocation LocateOffset(const std::string& text, std::size_t offset);

// The member that the library sees for key: the last one written.
const TextMember* FindMember(const TextValue& object, const std::string& key);

// "an object", "a string", ... for messages.
std::string DescribeType(const TextValue& value);

// As DescribeType, but a number with its digits: "the number 1.5".
std::string DescribeFound(const TextValue& value);

}  // namespace zeltcfg

#endif  // ZELTCFG_DOCUMENTTEXT_H
