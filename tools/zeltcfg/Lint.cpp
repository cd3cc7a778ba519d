#include "Lint.h"

#include "ConfigurationModel.h"
#include "MemberPath.h"

#include <algorithm>
#include <cctype>
#include <map>

namespace zeltcfg {

namespace {

std::string Lower(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

std::size_t EditDistance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t above = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (a[i - 1] != b[j - 1])});
            diagonal = above;
        }
    }
    return row[b.size()];
}

// Integer members hold 0..4294967295. The library writes the upper half,
// 2147483648..4294967295, as its signed 32-bit form -2147483648..-1, so those
// negative values are the same numbers and count as in range; anything else
// outside 0..4294967295 is cut to 32 bits when read.
enum class IntegerToken { InRange, OutOfRange, NotAnInteger };

IntegerToken ClassifyInteger(const std::string& token) {
    const bool negative = !token.empty() && token[0] == '-';
    std::string digits = token.substr(negative ? 1 : 0);
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos)
        return IntegerToken::NotAnInteger;
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
    const std::string limit = negative ? "2147483648" : "4294967295";
    if (digits.size() > limit.size() || (digits.size() == limit.size() && digits > limit))
        return IntegerToken::OutOfRange;
    return IntegerToken::InRange;
}

class Linter {
public:
    explicit Linter(const std::string& text) : text_(text) {}

    void Object(const TextValue& object, const SchemaNode& schema, const std::string& pointer) {
        std::map<std::string, std::size_t> seen;
        const std::vector<std::string> known = SchemaKeys(schema);
        for (const TextMember& member : object.members) {
            const std::string memberPointer = AppendPointer(pointer, member.key);
            const auto first = seen.emplace(member.key, member.keyOffset);
            if (!first.second) {
                const TextLocation at = LocateOffset(text_, first.first->second);
                Report(member.keyOffset, memberPointer,
                       "duplicate key (first at " + std::to_string(at.line) + ":" +
                           std::to_string(at.column) +
                           "); only the last one counts, remove the other");
            }
            const SchemaNode* child = FindSchemaMember(schema, member.key);
            if (child == nullptr) {
                const std::string suggestion = SuggestKey(member.key, known);
                Report(member.keyOffset, memberPointer, DescribeUnknownMember(suggestion), true,
                       suggestion);
                continue;
            }
            Value(member.value, *child, memberPointer);
        }
    }

    std::vector<LintFinding> findings;

private:
    void Report(std::size_t offset, const std::string& pointer, const std::string& problem,
                bool unknownMember = false, const std::string& suggestion = "") {
        findings.push_back({offset, pointer, problem, unknownMember, suggestion});
    }

    void Value(const TextValue& value, const SchemaNode& schema, const std::string& pointer) {
        const std::string found = DescribeFound(value);
        switch (schema.kind) {
            case MemberKind::Object:
                if (value.type == TextValue::Type::Object)
                    Object(value, schema, pointer);
                else
                    Report(value.offset, pointer,
                           "expected an object, found " + found + "; make it an object");
                return;
            case MemberKind::List:
                if (value.type != TextValue::Type::Array) {
                    Report(value.offset, pointer,
                           "expected an array of strings, found " + found +
                               "; write it as [ \"...\" ]");
                    return;
                }
                for (std::size_t i = 0; i < value.items.size(); ++i)
                    if (value.items[i].type != TextValue::Type::String)
                        Report(value.items[i].offset, AppendPointer(pointer, std::to_string(i)),
                               "list entry is " + DescribeType(value.items[i]) +
                                   ", not a string; write it as a string");
                return;
            case MemberKind::Integer: {
                const IntegerToken integer = value.type == TextValue::Type::Number
                                                 ? ClassifyInteger(value.token)
                                                 : IntegerToken::NotAnInteger;
                if (integer == IntegerToken::OutOfRange)
                    Report(value.offset, pointer,
                           "value " + value.token +
                               " is outside 0..4294967295; use a whole number in this range");
                else if (integer == IntegerToken::NotAnInteger)
                    Report(value.offset, pointer,
                           "expected an integer from 0 to 4294967295, found " + found);
                return;
            }
            case MemberKind::Text:
                if (value.type != TextValue::Type::String)
                    Report(value.offset, pointer,
                           "expected a string, found " + found + "; put the value in quotes");
                return;
        }
    }

    const std::string& text_;
};

}  // namespace

std::string SuggestKey(const std::string& key, const std::vector<std::string>& known) {
    std::string best;
    std::size_t bestDistance = 3;
    for (const std::string& candidate : known) {
        const std::size_t distance = EditDistance(Lower(key), Lower(candidate));
        if (distance < bestDistance) {
            best = candidate;
            bestDistance = distance;
        }
    }
    return best;
}

std::string DescribeUnknownMember(const std::string& suggestion) {
    return suggestion.empty() ? "unknown member; remove it, the configuration does not use it"
                              : "unknown member; did you mean \"" + suggestion + "\"?";
}

std::vector<LintFinding> LintDocument(const std::string& text, const TextValue& tree) {
    Linter linter(text);
    if (tree.type == TextValue::Type::Object) linter.Object(tree, ConfigurationSchema(), "");
    return linter.findings;
}

}  // namespace zeltcfg
