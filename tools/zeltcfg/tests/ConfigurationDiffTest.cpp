#include "ConfigurationDiff.h"
#include "ConfigurationValue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace zeltcfg {
namespace {

// A configuration value written as JSON, its members in member order as a
// captured value holds them.
TextValue Value(const std::string& json) { return ScanText(json); }

std::string Lines(const std::string& a, const std::string& b) {
    return FormatDifferences(DiffConfigurationValues(Value(a), Value(b)));
}

std::string Patch(const std::string& a, const std::string& b) {
    return FormatJsonPatch(DiffConfigurationValues(Value(a), Value(b)));
}

// A configuration that holds one list, the IP list of the enforce list.
std::string WithList(const std::string& entries) {
    return "{ \"AdvancedRule\": { \"EnforceList\": { \"IPList\": [ " + entries + " ] } } }";
}

TEST(ConfigurationDiffTest, EqualValuesHaveNoDifference) {
    const std::string value =
        "{ \"ClientSetting\": { \"FailOpen\": 1 }, \"AdvancedRule\": { \"EnforceList\": { "
        "\"IPList\": [ \"10.0.0.0/8\" ] } }, \"ProfileName\": \"Default\" }";
    EXPECT_TRUE(DiffConfigurationValues(Value(value), Value(value)).empty());
    EXPECT_EQ("", Lines(value, value));
    EXPECT_EQ("[ ]\n", Patch(value, value));
}

TEST(ConfigurationDiffTest, ChangedValuesShowTheOldAndTheNew) {
    EXPECT_EQ(
        "/ClientSetting/FailOpen: 1 -> 0\n"
        "/ProfileName: \"Default\" -> \"Au\xc3\x9f"
        "endienst \\\"Nord\\\" \\\\ 1\"\n",
        Lines("{ \"ClientSetting\": { \"FailOpen\": 1 }, \"ProfileName\": \"Default\" }",
              "{ \"ClientSetting\": { \"FailOpen\": 0 }, \"ProfileName\": "
              "\"Au\\u00dfendienst \\\"Nord\\\" \\\\ 1\" }"));
}

TEST(ConfigurationDiffTest, OptionalMembersThatAppearOrDisappear) {
    EXPECT_EQ(
        "/ClientSetting/FailOpen: added 1\n"
        "/ClientSetting/StatsPeriod: removed (was 900)\n"
        "/EnableTrayiconMenu: added 0\n",
        Lines("{ \"ClientSetting\": { \"StatsPeriod\": 900 } }",
              "{ \"ClientSetting\": { \"FailOpen\": 1 }, \"EnableTrayiconMenu\": 0 }"));
}

TEST(ConfigurationDiffTest, WholeOptionalObjectsAndListsAppearOrDisappearOnOneLine) {
    EXPECT_EQ(
        "/AdvancedRule/EnforceList: removed (was { \"IPList\": [ \"10.0.0.0/8\" ], "
        "\"ProcessNames\": \"a.exe\" })\n"
        "/AdvancedRule/WhiteList: added { \"IPList\": [ ] }\n"
        "/ContentUploadChannel/ClientRequestHeaders: added [ \"X-Tenant: acme\" ]\n",
        Lines("{ \"AdvancedRule\": { \"EnforceList\": { \"IPList\": [ \"10.0.0.0/8\" ], "
              "\"ProcessNames\": \"a.exe\" } }, \"ContentUploadChannel\": { } }",
              "{ \"AdvancedRule\": { \"WhiteList\": { \"IPList\": [ ] } }, "
              "\"ContentUploadChannel\": { \"ClientRequestHeaders\": [ \"X-Tenant: acme\" ] } }"));
    EXPECT_EQ("/AdvancedRule/EnforceList/IPList: removed (was [ ])\n",
              Lines(WithList(""), "{ \"AdvancedRule\": { \"EnforceList\": { } } }"));
}

TEST(ConfigurationDiffTest, DifferencesComeInMemberOrderWhateverTheOrderOfTheValues) {
    EXPECT_EQ(
        "/ClientSetting/Communication/LogUploadInterval: 600 -> 60\n"
        "/ClientSetting/LogUpload: 1 -> 0\n"
        "/ProfileName: \"a\" -> \"b\"\n"
        "/AdminPassword: \"x\" -> \"y\"\n",
        Lines("{ \"AdminPassword\": \"x\", \"ProfileName\": \"a\", \"ClientSetting\": { "
              "\"LogUpload\": 1, \"Communication\": { \"LogUploadInterval\": 600 } } }",
              "{ \"ClientSetting\": { \"Communication\": { \"LogUploadInterval\": 60 }, "
              "\"LogUpload\": 0 }, \"ProfileName\": \"b\", \"AdminPassword\": \"y\" }"));
}

TEST(ConfigurationDiffTest, AnEntryInsertedAtTheFrontIsOneInsertion) {
    EXPECT_EQ("/AdvancedRule/EnforceList/IPList/0: inserted \"10.0.0.0/8\"\n",
              Lines(WithList("\"a\", \"b\", \"c\", \"d\""),
                    WithList("\"10.0.0.0/8\", \"a\", \"b\", \"c\", \"d\"")));
}

TEST(ConfigurationDiffTest, RemovedEntriesAreNamedByTheirIndexWhenTheyGo) {
    EXPECT_EQ(
        "/AdvancedRule/EnforceList/IPList/0: removed \"a\"\n"
        "/AdvancedRule/EnforceList/IPList/1: removed \"c\"\n"
        "/AdvancedRule/EnforceList/IPList/1: removed \"d\"\n"
        "/AdvancedRule/EnforceList/IPList/2: removed \"f\"\n",
        Lines(WithList("\"a\", \"b\", \"c\", \"d\", \"e\", \"f\""), WithList("\"b\", \"e\"")));
}

TEST(ConfigurationDiffTest, EmptyListsGainOrLoseAllTheirEntries) {
    EXPECT_EQ("", Lines(WithList(""), WithList("")));
    EXPECT_EQ(
        "/AdvancedRule/EnforceList/IPList/0: inserted \"a\"\n"
        "/AdvancedRule/EnforceList/IPList/1: inserted \"b\"\n",
        Lines(WithList(""), WithList("\"a\", \"b\"")));
    EXPECT_EQ(
        "/AdvancedRule/EnforceList/IPList/0: removed \"a\"\n"
        "/AdvancedRule/EnforceList/IPList/0: removed \"b\"\n",
        Lines(WithList("\"a\", \"b\""), WithList("")));
}

TEST(ConfigurationDiffTest, MixedEditsGiveEachIndexAsTheListStandsWhenTheChangeApplies) {
    EXPECT_EQ(
        "/AdvancedRule/EnforceList/IPList/0: inserted \"x\"\n"
        "/AdvancedRule/EnforceList/IPList/2: removed \"b\"\n"
        "/AdvancedRule/EnforceList/IPList/3: removed \"d\"\n"
        "/AdvancedRule/EnforceList/IPList/3: inserted \"y\"\n"
        "/AdvancedRule/EnforceList/IPList/5: inserted \"z\"\n",
        Lines(WithList("\"a\", \"b\", \"c\", \"d\", \"e\""),
              WithList("\"x\", \"a\", \"c\", \"y\", \"e\", \"z\"")));
}

TEST(ConfigurationDiffTest, TheJsonPatchHasOneOperationALineInTheOrderOfTheLines) {
    const std::string a =
        "{ \"ClientSetting\": { \"FailOpen\": 1, \"SafeMode\": 0 }, \"AdvancedRule\": { "
        "\"EnforceList\": { \"IPList\": [ \"a\", \"b\" ] } }, \"ProfileName\": \"x\" }";
    const std::string b =
        "{ \"ClientSetting\": { \"FailOpen\": 0, \"StatsPeriod\": 60 }, \"AdvancedRule\": { "
        "\"EnforceList\": { \"IPList\": [ \"b\", \"c/d\" ] }, \"WhiteList\": { "
        "\"VPNDescList\": [ \"T\\u00f6\\\"V\\\"\" ] } }, \"ProfileName\": \"y\" }";
    EXPECT_EQ(
        "[\n"
        "  { \"op\": \"replace\", \"path\": \"/ClientSetting/FailOpen\", \"value\": 0 },\n"
        "  { \"op\": \"remove\", \"path\": \"/ClientSetting/SafeMode\" },\n"
        "  { \"op\": \"add\", \"path\": \"/ClientSetting/StatsPeriod\", \"value\": 60 },\n"
        "  { \"op\": \"remove\", \"path\": \"/AdvancedRule/EnforceList/IPList/0\" },\n"
        "  { \"op\": \"add\", \"path\": \"/AdvancedRule/EnforceList/IPList/1\", \"value\": "
        "\"c/d\" },\n"
        "  { \"op\": \"add\", \"path\": \"/AdvancedRule/WhiteList\", \"value\": { "
        "\"VPNDescList\": [ \"T\xc3\xb6\\\"V\\\"\" ] } },\n"
        "  { \"op\": \"replace\", \"path\": \"/ProfileName\", \"value\": \"y\" }\n"
        "]\n",
        Patch(a, b));
    EXPECT_EQ(
        "/ClientSetting/FailOpen: 1 -> 0\n"
        "/ClientSetting/SafeMode: removed (was 0)\n"
        "/ClientSetting/StatsPeriod: added 60\n"
        "/AdvancedRule/EnforceList/IPList/0: removed \"a\"\n"
        "/AdvancedRule/EnforceList/IPList/1: inserted \"c/d\"\n"
        "/AdvancedRule/WhiteList: added { \"VPNDescList\": [ \"T\xc3\xb6\\\"V\\\"\" ] }\n"
        "/ProfileName: \"x\" -> \"y\"\n",
        Lines(a, b));
}

TEST(ConfigurationDiffTest, DifferencesHoldTheirValues) {
    const std::vector<Difference> differences =
        DiffConfigurationValues(Value(WithList("\"a\"")), Value(WithList("\"b\"")));
    ASSERT_EQ(2u, differences.size());
    EXPECT_EQ(Difference::Kind::EntryRemoved, differences[0].kind);
    EXPECT_EQ("/AdvancedRule/EnforceList/IPList/0", differences[0].pointer);
    EXPECT_EQ("a", differences[0].before.token);
    EXPECT_EQ(Difference::Kind::EntryInserted, differences[1].kind);
    EXPECT_EQ("/AdvancedRule/EnforceList/IPList/0", differences[1].pointer);
    EXPECT_EQ("b", differences[1].after.token);
}

// Edit scripts against a reference ------------------------------------------

using Entries = std::vector<TextValue>;

// The length of a longest common subsequence, by the O(n m) table.
std::size_t ReferenceLcs(const Entries& a, const Entries& b) {
    std::vector<std::vector<std::size_t>> table(a.size() + 1,
                                                std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 1; i <= a.size(); ++i)
        for (std::size_t j = 1; j <= b.size(); ++j)
            table[i][j] = a[i - 1].token == b[j - 1].token
                              ? table[i - 1][j - 1] + 1
                              : std::max(table[i - 1][j], table[i][j - 1]);
    return table[a.size()][b.size()];
}

// Applies the script front to back, as a JSON Patch applies its operations;
// each removal must find the entry it names at its index.
Entries Apply(Entries list, const Entries& a, const Entries& b,
              const std::vector<ListEdit>& script) {
    for (const ListEdit& edit : script) {
        if (edit.insertion) {
            EXPECT_LE(edit.index, list.size());
            if (edit.index > list.size()) break;
            list.insert(list.begin() + static_cast<std::ptrdiff_t>(edit.index), b[edit.entry]);
        } else {
            EXPECT_LT(edit.index, list.size());
            if (edit.index >= list.size()) break;
            EXPECT_EQ(a[edit.entry].token, list[edit.index].token);
            list.erase(list.begin() + static_cast<std::ptrdiff_t>(edit.index));
        }
    }
    return list;
}

std::vector<std::string> Tokens(const Entries& entries) {
    std::vector<std::string> tokens;
    for (const TextValue& entry : entries) tokens.push_back(entry.token);
    return tokens;
}

void ExpectShortestScript(const Entries& a, const Entries& b) {
    const std::vector<ListEdit> script = ShortestEditScript(a, b);
    SCOPED_TRACE(::testing::PrintToString(Tokens(a)) + " -> " +
                 ::testing::PrintToString(Tokens(b)));
    EXPECT_EQ(a.size() + b.size() - 2 * ReferenceLcs(a, b), script.size());
    EXPECT_EQ(Tokens(b), Tokens(Apply(a, a, b, script)));
}

Entries RandomEntries(std::mt19937& random, std::size_t length, std::uint32_t alphabet) {
    Entries entries;
    for (std::size_t i = 0; i < length; ++i)
        entries.push_back(MakeString(std::string(1, static_cast<char>('a' + random() % alphabet))));
    return entries;
}

TEST(ConfigurationDiffTest, EditScriptsOfSmallRandomListsAreShortestAndTurnTheFirstIntoTheSecond) {
    std::mt19937 random(20240607);
    for (int round = 0; round < 20000; ++round) {
        const std::uint32_t alphabet = 1 + random() % 4;
        const Entries a = RandomEntries(random, random() % 13, alphabet);
        const Entries b = RandomEntries(random, random() % 13, alphabet);
        ExpectShortestScript(a, b);
        if (HasFailure()) return;
    }
}

TEST(ConfigurationDiffTest, EditScriptsOfLongListsWithFewEditsAreShortest) {
    std::mt19937 random(7);
    for (int round = 0; round < 12; ++round) {
        Entries a;
        for (int i = 0; i < 400; ++i) a.push_back(MakeString("entry " + std::to_string(i)));
        Entries b = a;
        for (int edit = 0; edit < 1 + round * 4; ++edit) {
            const std::size_t at = random() % (b.size() + 1);
            if (random() % 2 == 0 && at < b.size())
                b.erase(b.begin() + static_cast<std::ptrdiff_t>(at));
            else
                b.insert(b.begin() + static_cast<std::ptrdiff_t>(at),
                         MakeString("new " + std::to_string(edit)));
        }
        ExpectShortestScript(a, b);
        if (HasFailure()) return;
    }
}

}  // namespace
}  // namespace zeltcfg
