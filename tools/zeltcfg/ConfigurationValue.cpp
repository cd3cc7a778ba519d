#include "ConfigurationValue.h"

#include "Failure.h"
#include "MemberPath.h"
#include "TextEncoding.h"

#include <cstdlib>
#include <utility>

namespace zeltcfg {

namespace {

void RefuseValue(const std::string& pointer, const std::string& why) {
    throw Failure(kExitInvalid, (pointer.empty() ? "the configuration" : pointer) + ": " + why);
}

std::wstring WideText(const TextValue& value, const std::string& pointer) {
    std::wstring wide;
    if (value.type != TextValue::Type::String || !ConvertUtf8ToWide(value.token, wide))
        RefuseValue(pointer, "expected a string of valid UTF-8");
    return wide;
}

void StoreMember(const TextValue* value, const Member& member, const std::string& pointer);

void StoreMembers(const TextValue& object, const Member& member, const std::string& pointer) {
    if (object.type != TextValue::Type::Object) RefuseValue(pointer, "expected an object");
    for (const Member& child : member.members())
        StoreMember(FindMember(object, child.key) ? &FindMember(object, child.key)->value : nullptr,
                    child, AppendPointer(pointer, child.key));
}

void RequireAccepted(int result, const std::string& pointer) {
    if (result != ZELT_SUCCESS)
        RefuseValue(pointer,
                    "the element refused the value (result " + std::to_string(result) + ")");
}

// value is null for a member that the value lacks.
void StoreMember(const TextValue* value, const Member& member, const std::string& pointer) {
    if (value == nullptr) {
        if (member.required) RefuseValue(pointer, "a required member is missing");
        MakeAbsent(member);
        return;
    }
    switch (member.kind) {
        case MemberKind::Integer: {
            const auto number =
                value->type == TextValue::Type::Number ? ParseDecimal(value->token) : std::nullopt;
            if (!number) RefuseValue(pointer, "expected an integer from 0 to 4294967295");
            RequireAccepted(member.setInteger(&*number), pointer);
            return;
        }
        case MemberKind::Text: {
            const std::wstring text = WideText(*value, pointer);
            RequireAccepted(member.setText(&text), pointer);
            return;
        }
        case MemberKind::Object:
            if (member.makePresent) member.makePresent();
            StoreMembers(*value, member, pointer);
            return;
        case MemberKind::List: {
            if (value->type != TextValue::Type::Array)
                RefuseValue(pointer, "expected an array of strings");
            std::vector<std::wstring> entries;
            entries.reserve(value->items.size());
            for (std::size_t i = 0; i < value->items.size(); ++i)
                entries.push_back(
                    WideText(value->items[i], AppendPointer(pointer, std::to_string(i))));
            member.makeAbsent();
            member.makePresent();
            for (const std::wstring& entry : entries) member.addEntry(entry);
            return;
        }
    }
}

void AppendJsonLine(const TextValue& value, std::string& out) {
    switch (value.type) {
        case TextValue::Type::String:
            out += QuoteText(value.token);
            return;
        case TextValue::Type::Number:
        case TextValue::Type::Literal:
            out += value.token;
            return;
        case TextValue::Type::Array:
            out += "[";
            for (std::size_t i = 0; i < value.items.size(); ++i) {
                out += i == 0 ? " " : ", ";
                AppendJsonLine(value.items[i], out);
            }
            out += " ]";
            return;
        case TextValue::Type::Object:
            out += "{";
            for (std::size_t i = 0; i < value.members.size(); ++i) {
                out += (i == 0 ? " " : ", ") + QuoteText(value.members[i].key) + ": ";
                AppendJsonLine(value.members[i].value, out);
            }
            out += " }";
            return;
    }
}

bool SameNumber(const std::string& a, const std::string& b) {
    if (a == b) return true;
    char* endA = nullptr;
    char* endB = nullptr;
    const long double x = std::strtold(a.c_str(), &endA);
    const long double y = std::strtold(b.c_str(), &endB);
    return *endA == '\0' && *endB == '\0' && x == y;
}

// The members that count: the last of each key.
std::size_t CountDistinctKeys(const TextValue& object) {
    std::size_t count = 0;
    for (const TextMember& member : object.members)
        if (FindMember(object, member.key) == &member) ++count;
    return count;
}

}  // namespace

TextValue CaptureConfiguration(const Member& configuration) {
    TextValue value;
    switch (configuration.kind) {
        case MemberKind::Integer:
            return MakeNumber(configuration.integer());
        case MemberKind::Text:
            return MakeString(ConvertWideToUtf8(configuration.text()));
        case MemberKind::List: {
            value = MakeArray();
            const std::vector<const std::wstring*> entries = configuration.entries();
            value.items.reserve(entries.size());
            for (const std::wstring* entry : entries)
                value.items.push_back(MakeString(ConvertWideToUtf8(*entry)));
            return value;
        }
        case MemberKind::Object:
            break;
    }
    value = MakeObject();
    for (const Member& member : configuration.members())
        if (member.present())
            value.members.push_back(TextMember{member.key, 0, CaptureConfiguration(member)});
    return value;
}

void StoreConfiguration(const TextValue& value, const Member& configuration) {
    StoreMember(&value, configuration, "");
}

bool SameValue(const TextValue& a, const TextValue& b) {
    if (a.type != b.type) return false;
    switch (a.type) {
        case TextValue::Type::String:
        case TextValue::Type::Literal:
            return a.token == b.token;
        case TextValue::Type::Number:
            return SameNumber(a.token, b.token);
        case TextValue::Type::Array:
            if (a.items.size() != b.items.size()) return false;
            for (std::size_t i = 0; i < a.items.size(); ++i)
                if (!SameValue(a.items[i], b.items[i])) return false;
            return true;
        case TextValue::Type::Object:
            if (CountDistinctKeys(a) != CountDistinctKeys(b)) return false;
            for (const TextMember& member : a.members) {
                const TextMember* other = FindMember(b, member.key);
                if (other == nullptr || !SameValue(FindMember(a, member.key)->value, other->value))
                    return false;
            }
            return true;
    }
    return false;
}

std::string WriteJsonLine(const TextValue& value) {
    std::string out;
    AppendJsonLine(value, out);
    return out;
}

TextValue MakeString(std::string utf8) {
    TextValue value;
    value.type = TextValue::Type::String;
    value.token = std::move(utf8);
    return value;
}

TextValue MakeNumber(DWORD number) {
    TextValue value;
    value.type = TextValue::Type::Number;
    value.token = std::to_string(number);
    return value;
}

TextValue MakeObject() {
    TextValue value;
    value.type = TextValue::Type::Object;
    return value;
}

TextValue MakeArray() {
    TextValue value;
    value.type = TextValue::Type::Array;
    return value;
}

}  // namespace zeltcfg
