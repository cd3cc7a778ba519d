#include "DocumentText.h"

#include "TextEncoding.h"

#include <json-c/json_tokener.h>

#include <cstring>

namespace zeltcfg {

namespace {

bool IsDelimiter(char c) { return std::strchr(" \t\r\n\f,:]}/", c) != nullptr; }

bool IsNumberStart(char c) { return c == '-' || (c >= '0' && c <= '9'); }

// Reads a text that json-c has accepted; on anything it does not expect it
// moves on by one byte, so it always ends.
class Scanner {
public:
    explicit Scanner(const std::string& text) : text_(text) {}

    TextValue Value() {
        SkipSpace();
        TextValue value;
        value.offset = position_;
        if (AtEnd()) return value;
        const char c = text_[position_];
        if (c == '{') {
            value.type = TextValue::Type::Object;
            ++position_;
            ReadMembers(value);
        } else if (c == '[') {
            value.type = TextValue::Type::Array;
            ++position_;
            ReadItems(value);
        } else if (c == '"' || c == '\'') {
            value.type = TextValue::Type::String;
            value.token = String();
        } else {
            value.token = Token();
            value.type = IsNumberStart(c) || value.token == "NaN" || value.token == "Infinity"
                             ? TextValue::Type::Number
                             : TextValue::Type::Literal;
        }
        return value;
    }

private:
    bool AtEnd() const { return position_ >= text_.size(); }

    void SkipSpace() {
        while (!AtEnd()) {
            const char c = text_[position_];
            if (std::strchr(" \t\r\n\f", c) != nullptr) {
                ++position_;
            } else if (text_.compare(position_, 2, "/*") == 0) {
                const std::size_t end = text_.find("*/", position_ + 2);
                position_ = end == std::string::npos ? text_.size() : end + 2;
            } else if (text_.compare(position_, 2, "//") == 0) {
                const std::size_t end = text_.find('\n', position_);
                position_ = end == std::string::npos ? text_.size() : end + 1;
            } else {
                return;
            }
        }
    }

    void ReadMembers(TextValue& object) {
        for (;;) {
            SkipSpace();
            if (AtEnd()) return;
            const char c = text_[position_];
            if (c == '}') {
                ++position_;
                return;
            }
            if (c != '"' && c != '\'') {
                ++position_;  // the comma between members
                continue;
            }
            TextMember member;
            member.keyOffset = position_;
            member.key = String();
            SkipSpace();
            if (!AtEnd() && text_[position_] == ':') ++position_;
            member.value = Value();
            object.members.push_back(std::move(member));
        }
    }

    void ReadItems(TextValue& array) {
        for (;;) {
            SkipSpace();
            if (AtEnd()) return;
            const char c = text_[position_];
            if (c == ']') {
                ++position_;
                return;
            }
            if (c == ',') {
                ++position_;
                continue;
            }
            const std::size_t before = position_;
            array.items.push_back(Value());
            if (position_ == before) ++position_;
        }
    }

    std::string Token() {
        const std::size_t start = position_;
        while (!AtEnd() && !IsDelimiter(text_[position_])) ++position_;
        if (position_ == start) ++position_;
        return text_.substr(start, position_ - start);
    }

    unsigned HexUnit() {
        unsigned unit = 0;
        for (int k = 0; k < 4 && !AtEnd(); ++k, ++position_) {
            const char c = text_[position_];
            const int digit = c >= '0' && c <= '9'   ? c - '0'
                              : c >= 'a' && c <= 'f' ? c - 'a' + 10
                              : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                                     : 0;
            unit = unit * 16 + static_cast<unsigned>(digit);
        }
        return unit;
    }

    // A \u escape, joined with a following low surrogate escape.
    char32_t UnicodeEscape() {
        const unsigned unit = HexUnit();
        if (unit < 0xd800 || unit > 0xdfff) return unit;
        if (unit < 0xdc00 && text_.compare(position_, 2, "\\u") == 0) {
            const std::size_t back = position_;
            position_ += 2;
            const unsigned low = HexUnit();
            if (low >= 0xdc00 && low <= 0xdfff)
                return 0x10000 + ((unit - 0xd800) << 10) + (low - 0xdc00);
            position_ = back;
        }
        return 0xfffd;
    }

    std::string String() {
        const char quote = text_[position_++];
        std::string out;
        while (!AtEnd() && text_[position_] != quote) {
            const char c = text_[position_++];
            if (c != '\\' || AtEnd()) {
                out += c;
                continue;
            }
            const char escaped = text_[position_++];
            switch (escaped) {
                case 'b':
                    out += '\b';
                    break;
                case 'f':
                    out += '\f';
                    break;
                case 'n':
                    out += '\n';
                    break;
                case 'r':
                    out += '\r';
                    break;
                case 't':
                    out += '\t';
                    break;
                case 'u':
                    AppendUtf8(out, UnicodeEscape());
                    break;
                default:
                    out += escaped;
            }
        }
        ++position_;
        return out;
    }

    const std::string& text_;
    std::size_t position_ = 0;
};

}  // namespace

std::optional<ParseError> FindParseError(const std::string& text) {
    const std::string parsed = text.c_str();  // the library reads up to the first zero byte
    json_tokener* tokener = json_tokener_new();
    if (tokener == nullptr) return ParseError{0, "out of memory"};
    json_object* document = json_tokener_parse_ex(tokener, parsed.c_str(), -1);
    const json_tokener_error error = json_tokener_get_error(tokener);
    std::optional<ParseError> result;
    if (error == json_tokener_continue)
        result = ParseError{parsed.size(), "unexpected end of text"};
    else if (error != json_tokener_success)
        result = ParseError{json_tokener_get_parse_end(tokener), json_tokener_error_desc(error)};
    json_object_put(document);
    json_tokener_free(tokener);
    return result;
}

TextValue ScanText(const std::string& text) {
    const std::string parsed = text.c_str();
    return Scanner(parsed).Value();
}

TextLocation LocateOffset(const std::string& text, std::size_t offset) {
    TextLocation location{1, 1};
    for (std::size_t i = 0; i < offset && i < text.size(); ++i) {
        if (text[i] == '\n') {
            ++location.line;
            location.column = 1;
        } else if ((static_cast<unsigned char>(text[i]) & 0xc0) != 0x80) {
            ++location.column;
        }
    }
    return location;
}

const TextMember* FindMember(const TextValue& object, const std::string& key) {
    for (auto member = object.members.rbegin(); member != object.members.rend(); ++member)
        if (member->key == key) return &*member;
    return nullptr;
}

std::string DescribeFound(const TextValue& value) {
    return value.type == TextValue::Type::Number ? "the number " + value.token
                                                 : DescribeType(value);
}

std::string DescribeType(const TextValue& value) {
    switch (value.type) {
        case TextValue::Type::Object:
            return "an object";
        case TextValue::Type::Array:
            return "an array";
        case TextValue::Type::String:
            return "a string";
        case TextValue::Type::Number:
            return "a number";
        case TextValue::Type::Literal:
            break;
    }
    if (value.token == "null") return "null";
    if (value.token == "true" || value.token == "false") return "a boolean";
    return "\"" + value.token + "\"";
}

}  // namespace zeltcfg
