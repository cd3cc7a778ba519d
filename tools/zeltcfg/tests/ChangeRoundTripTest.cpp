// Random pairs of valid configurations: the JSON Patch that diff gives for a
// pair turns the first into the second, and its list edits are as short as
// a longest common subsequence allows.
#include "ConfigurationDiff.h"
#include "ConfigurationPatch.h"
#include "ConfigurationValue.h"
#include "Document.h"
#include "MemberPath.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

namespace zeltcfg {
namespace {

constexpr int kPairs = 1000;
constexpr std::size_t kLongestList = 50;

const std::vector<std::string>& Words() {
    static const std::vector<std::string> words = {"10.0.0.0/8", "192.168.1.7",
                                                   "fd00::/8",   "203.0.113.7",
                                                   "",           "Büro-VPN Zürich",
                                                   "東京 VPN 🔒", "X-Tenant: acme",
                                                   "a/b~c",      "say \"hi\" \\ bye",
                                                   "tab\there",  "*.example.com;*.example.org",
                                                   "~0~1",       "-",
                                                   "0",          "https://example.net/?a=1&b=2"};
    return words;
}

class RandomConfigurations {
public:
    explicit RandomConfigurations(unsigned seed) : random_(seed) {}

    // A configuration of the schema: required members always, optional ones
    // now and then.
    TextValue Make(const SchemaNode& node) {
        switch (node.kind) {
            case MemberKind::Integer:
                return MakeNumber(Chance(4) ? 4294967295u - Below(3)
                                            : static_cast<DWORD>(Below(1000)));
            case MemberKind::Text:
                return MakeString(Word());
            case MemberKind::List: {
                TextValue list = MakeArray();
                for (std::size_t i = Below(kLongestList + 1); i > 0; --i)
                    list.items.push_back(MakeString(Word()));
                return list;
            }
            case MemberKind::Object:
                break;
        }
        TextValue object = MakeObject();
        for (const SchemaNode& member : node.members)
            if (member.required || Chance(2))
                object.members.push_back(TextMember{member.key, 0, Make(member)});
        return object;
    }

    // A second configuration that shares much with the first: members kept,
    // changed, dropped or added, lists edited in runs.
    TextValue Vary(const TextValue& first, const SchemaNode& node) {
        switch (node.kind) {
            case MemberKind::Integer:
            case MemberKind::Text:
                return Chance(3) ? Make(node) : first;
            case MemberKind::List:
                return Chance(8) ? Make(node) : EditRuns(first);
            case MemberKind::Object:
                break;
        }
        TextValue object = MakeObject();
        for (const SchemaNode& member : node.members) {
            const TextMember* had = FindMember(first, member.key);
            if (!member.required && Chance(4)) {
                if (had == nullptr)
                    object.members.push_back(TextMember{member.key, 0, Make(member)});
                continue;  // present ones are dropped
            }
            if (had != nullptr)
                object.members.push_back(TextMember{member.key, 0, Vary(had->value, member)});
            else if (member.required)
                object.members.push_back(TextMember{member.key, 0, Make(member)});
        }
        return object;
    }

private:
    bool Chance(unsigned oneIn) { return Below(oneIn) == 0; }
    std::size_t Below(std::size_t bound) {
        return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random_);
    }
    std::string Word() {
        if (Chance(3)) return "host-" + std::to_string(Below(40)) + ".example.net";
        return Words()[Below(Words().size())];
    }

    // Runs of the list kept, dropped, or with new entries put before them.
    TextValue EditRuns(const TextValue& list) {
        TextValue edited = MakeArray();
        for (std::size_t i = 0; i < list.items.size();) {
            const std::size_t run = 1 + Below(6);
            const std::size_t what = Below(4);
            for (std::size_t k = 0; what == 2 && k < 1 + Below(4); ++k)
                edited.items.push_back(MakeString(Word()));
            for (std::size_t k = i; k < std::min(i + run, list.items.size()); ++k)
                if (what != 1) edited.items.push_back(list.items[k]);
            i += run;
        }
        if (Chance(3)) edited.items.push_back(MakeString(Word()));
        if (edited.items.size() > kLongestList) edited.items.resize(kLongestList);
        return edited;
    }

    std::mt19937 random_;
};

// A typed tree of the library holding value, and what it holds.
struct TypedConfiguration {
    explicit TypedConfiguration(const TextValue& value)
        : tree(VextorJSConfig::VextorJSConfig_CreateNewInstance()) {
        StoreConfiguration(value, BindConfiguration(*tree));
    }
    TextValue Value() const { return CaptureConfiguration(BindConfiguration(*tree)); }
    ConfigurationHandle tree;
};

std::size_t LongestCommonSubsequence(const TextValue& a, const TextValue& b) {
    std::vector<std::vector<std::size_t>> length(a.items.size() + 1,
                                                 std::vector<std::size_t>(b.items.size() + 1));
    for (std::size_t i = 1; i <= a.items.size(); ++i)
        for (std::size_t j = 1; j <= b.items.size(); ++j)
            length[i][j] = a.items[i - 1].token == b.items[j - 1].token
                               ? length[i - 1][j - 1] + 1
                               : std::max(length[i - 1][j], length[i][j - 1]);
    return length[a.items.size()][b.items.size()];
}

// The lists present in both values, by pointer.
void CollectSharedLists(const TextValue& a, const TextValue& b, const std::string& pointer,
                        std::map<std::string, std::pair<const TextValue*, const TextValue*>>& out) {
    if (a.type == TextValue::Type::Array && b.type == TextValue::Type::Array) {
        out[pointer] = {&a, &b};
        return;
    }
    if (a.type != TextValue::Type::Object || b.type != TextValue::Type::Object) return;
    for (const TextMember& member : a.members)
        if (const TextMember* other = FindMember(b, member.key))
            CollectSharedLists(member.value, other->value, AppendPointer(pointer, member.key), out);
}

// The list that an entry's pointer belongs to: the pointer without its index.
std::string ListOf(const std::string& entryPointer) {
    return entryPointer.substr(0, entryPointer.rfind('/'));
}

TEST(ChangeRoundTripTest, PatchOfTheDiffTurnsTheFirstIntoTheSecond) {
    std::size_t differentPairs = 0;
    std::size_t listEdits = 0;
    for (int seed = 0; seed < kPairs; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomConfigurations random(static_cast<unsigned>(seed));
        const TextValue made = random.Make(ConfigurationSchema());
        const TextValue first = TypedConfiguration(made).Value();
        const TextValue second =
            TypedConfiguration(random.Vary(first, ConfigurationSchema())).Value();

        const std::vector<Difference> differences = DiffConfigurationValues(first, second);
        ASSERT_EQ(SameValue(first, second), differences.empty());
        differentPairs += !differences.empty();
        const std::string patchText = FormatJsonPatch(differences);
        ASSERT_FALSE(FindParseError(patchText)) << patchText;
        TextValue patched = first;
        ASSERT_NO_THROW(ApplyJsonPatch(patched, ScanText(patchText))) << patchText;

        TypedConfiguration result(first);
        StoreConfiguration(patched, BindConfiguration(*result.tree));
        ASSERT_TRUE(SameValue(second, result.Value())) << patchText;
        ASSERT_TRUE(DiffConfigurationValues(result.Value(), second).empty());

        const std::string lines = FormatDifferences(differences);
        ASSERT_EQ(differences.size(),
                  static_cast<std::size_t>(std::count(lines.begin(), lines.end(), '\n')));

        std::map<std::string, std::pair<const TextValue*, const TextValue*>> lists;
        CollectSharedLists(first, second, "", lists);
        std::map<std::string, std::size_t> edits;
        for (const Difference& difference : differences)
            if (difference.kind == Difference::Kind::EntryInserted ||
                difference.kind == Difference::Kind::EntryRemoved)
                ++edits[ListOf(difference.pointer)];
        for (const auto& [pointer, pair] : lists) {
            const std::size_t shortest = pair.first->items.size() + pair.second->items.size() -
                                         2 * LongestCommonSubsequence(*pair.first, *pair.second);
            EXPECT_EQ(shortest, edits[pointer]) << pointer;
            listEdits += edits[pointer];
        }
    }
    // The pairs are of every sort: most differ, and their lists are edited.
    EXPECT_GT(differentPairs, kPairs * 9 / 10);
    EXPECT_GT(listEdits, static_cast<std::size_t>(kPairs));
}

}  // namespace
}  // namespace zeltcfg
