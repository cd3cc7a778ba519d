#include "ConfigurationPatch.h"
#include "ConfigurationValue.h"
#include "ExampleConfiguration.h"
#include "MemberPath.h"

#include <gtest/gtest.h>

#include <string>

namespace zeltcfg {
namespace {

// The configuration of an example, as the commands capture it.
TextValue Example(const std::string& name) {
    LoadedConfiguration loaded(ReadExample(name));
    return CaptureConfiguration(loaded.Bound());
}

// The value at pointer as one JSON line, "(absent)" when there is none.
std::string Show(const TextValue& value, const std::string& pointer) {
    const TextValue* at = &value;
    for (const std::string& key : SplitPath(pointer)) {
        if (at->type == TextValue::Type::Array) {
            const std::size_t index = std::stoul(key);
            if (index >= at->items.size()) return "(absent)";
            at = &at->items[index];
            continue;
        }
        const TextMember* member = FindMember(*at, key);
        if (member == nullptr) return "(absent)";
        at = &member->value;
    }
    return WriteJsonLine(*at);
}

// A changed configuration must be one the typed tree holds as it is: stored
// and captured again, it gives the same line (members in member order).
void ExpectHeldByTheTree(const TextValue& value) {
    LoadedConfiguration tree(ReadExample("minimal.json"));
    StoreConfiguration(value, tree.Bound());
    EXPECT_EQ(WriteJsonLine(value), WriteJsonLine(CaptureConfiguration(tree.Bound())));
}

TextValue JsonPatched(TextValue configuration, const std::string& patch) {
    ApplyJsonPatch(configuration, ScanText(patch));
    ExpectHeldByTheTree(configuration);
    return configuration;
}

TextValue MergePatched(TextValue configuration, const std::string& patch) {
    ApplyMergePatch(configuration, ScanText(patch));
    ExpectHeldByTheTree(configuration);
    return configuration;
}

using Apply = void (*)(TextValue&, const TextValue&);

// Expects apply to refuse patch with message at the first occurrence of
// place in the patch text, leaving the configuration as it was.
void ExpectRefused(Apply apply, const TextValue& configuration, const std::string& patch,
                   const std::string& place, const std::string& message) {
    TextValue changed = configuration;
    try {
        apply(changed, ScanText(patch));
        ADD_FAILURE() << "applied " << patch;
    } catch (const ChangeFailure& failure) {
        EXPECT_EQ(message, failure.what());
        EXPECT_EQ(patch.find(place), failure.offset) << "expected at " << place;
        EXPECT_EQ(WriteJsonLine(configuration), WriteJsonLine(changed));
    }
}

void ExpectJsonPatchRefused(const TextValue& configuration, const std::string& patch,
                            const std::string& place, const std::string& message) {
    ExpectRefused(&ApplyJsonPatch, configuration, patch, place, message);
}

void ExpectMergePatchRefused(const TextValue& configuration, const std::string& patch,
                             const std::string& place, const std::string& message) {
    ExpectRefused(&ApplyMergePatch, configuration, patch, place, message);
}

const char* const kRootMembers =
    "ClientSetting, AdvancedRule, ContentUploadChannel, ProfileName, SchemaVersion, "
    "AdminPassword, EnableTrayiconMenu";

// ---- RFC 6902 Appendix A, carried over to the configuration ----

TEST(JsonPatchRfc6902, A1_AddingAnObjectMember) {
    const TextValue result =
        JsonPatched(Example("minimal.json"),
                    R"([ { "op": "add", "path": "/ClientSetting/FailOpen", "value": 1 } ])");
    EXPECT_EQ("1", Show(result, "/ClientSetting/FailOpen"));
}

TEST(JsonPatchRfc6902, A2_AddingAnArrayElement) {
    const TextValue result = JsonPatched(
        Example("full.json"), R"([ { "op": "add", "path": "/AdvancedRule/EnforceList/IPList/1",
                     "value": "172.31.0.0/16" } ])");
    EXPECT_EQ(R"([ "10.0.0.0/8", "172.31.0.0/16", "192.168.10.0/24", "fd00::/8" ])",
              Show(result, "/AdvancedRule/EnforceList/IPList"));
}

TEST(JsonPatchRfc6902, A3_RemovingAnObjectMember) {
    const TextValue result = JsonPatched(
        Example("full.json"), R"([ { "op": "remove", "path": "/ClientSetting/FailOpen" } ])");
    EXPECT_EQ("(absent)", Show(result, "/ClientSetting/FailOpen"));
}

TEST(JsonPatchRfc6902, A4_RemovingAnArrayElement) {
    const TextValue result =
        JsonPatched(Example("full.json"),
                    R"([ { "op": "remove", "path": "/AdvancedRule/EnforceList/IPList/1" } ])");
    EXPECT_EQ(R"([ "10.0.0.0/8", "fd00::/8" ])", Show(result, "/AdvancedRule/EnforceList/IPList"));
}

TEST(JsonPatchRfc6902, A5_ReplacingAValue) {
    const TextValue result =
        JsonPatched(Example("full.json"),
                    R"([ { "op": "replace", "path": "/ProfileName", "value": "Branch" } ])");
    EXPECT_EQ(R"("Branch")", Show(result, "/ProfileName"));
}

TEST(JsonPatchRfc6902, A6_MovingAValue) {
    const TextValue before = JsonPatched(Example("minimal.json"), R"([
        { "op": "add", "path": "/AdvancedRule/EnforceList",
          "value": { "ProcessNames": "a.exe", "DomainLists": "*.example.com" } },
        { "op": "add", "path": "/AdvancedRule/WhiteList", "value": { "ProcessNames": "b.exe" } } ])");
    const TextValue result = JsonPatched(before, R"([ { "op": "move",
        "from": "/AdvancedRule/EnforceList/DomainLists", "path": "/AdvancedRule/WhiteList/DomainLists" } ])");
    EXPECT_EQ(R"({ "EnforceList": { "ProcessNames": "a.exe" }, "WhiteList": { "DomainLists": )"
              R"("*.example.com", "ProcessNames": "b.exe" } })",
              Show(result, "/AdvancedRule"));
}

TEST(JsonPatchRfc6902, A7_MovingAnArrayElement) {
    const TextValue before = JsonPatched(Example("minimal.json"), R"([ { "op": "add",
        "path": "/AdvancedRule/EnforceList", "value": { "IPList": [ "all", "grass", "cows", "eat" ] } } ])");
    const TextValue result = JsonPatched(before, R"([ { "op": "move",
        "from": "/AdvancedRule/EnforceList/IPList/1", "path": "/AdvancedRule/EnforceList/IPList/3" } ])");
    EXPECT_EQ(R"([ "all", "cows", "eat", "grass" ])",
              Show(result, "/AdvancedRule/EnforceList/IPList"));
}

TEST(JsonPatchRfc6902, A8_TestingAValueSuccess) {
    const TextValue full = Example("full.json");
    const TextValue result = JsonPatched(full, R"([
        { "op": "test", "path": "/SchemaVersion", "value": "2.1" },
        { "op": "test", "path": "/AdvancedRule/EnforceList/IPList/1", "value": "192.168.10.0/24" } ])");
    EXPECT_EQ(WriteJsonLine(full), WriteJsonLine(result));
}

TEST(JsonPatchRfc6902, A9_TestingAValueError) {
    ExpectJsonPatchRefused(
        Example("full.json"), R"([ { "op": "test", "path": "/SchemaVersion", "value": "2.0" } ])",
        R"("2.0")", R"(operation 0 (test /SchemaVersion): the value is "2.1", not "2.0")");
}

TEST(JsonPatchRfc6902, A10_AddingANestedMemberObject) {
    const TextValue result = JsonPatched(Example("minimal.json"), R"([ { "op": "add",
        "path": "/AdvancedRule/WhiteList", "value": { "DomainLists": "update.example.com" } } ])");
    EXPECT_EQ(R"({ "WhiteList": { "DomainLists": "update.example.com" } })",
              Show(result, "/AdvancedRule"));
}

TEST(JsonPatchRfc6902, A11_IgnoringUnrecognizedElements) {
    const TextValue result = JsonPatched(Example("minimal.json"), R"([ { "op": "add",
        "path": "/ClientSetting/FailOpen", "value": 1, "xyz": 123 } ])");
    EXPECT_EQ("1", Show(result, "/ClientSetting/FailOpen"));
}

TEST(JsonPatchRfc6902, A12_AddingToANonexistentTarget) {
    ExpectJsonPatchRefused(
        Example("minimal.json"),
        R"([ { "op": "add", "path": "/AdvancedRule/WhiteList/DomainLists", "value": "x" } ])",
        R"("/AdvancedRule)",
        "operation 0 (add /AdvancedRule/WhiteList/DomainLists): /AdvancedRule/WhiteList is absent");
}

TEST(JsonPatchRfc6902, A13_InvalidJsonPatchDocument) {
    // json-c keeps only the last "op"; the patch's text keeps both, and the operation is refused.
    ExpectJsonPatchRefused(
        Example("minimal.json"),
        R"([ { "op": "add", "path": "/ProfileName", "value": "x", "op": "remove" } ])",
        R"("op": "remove")", R"(operation 0: "op" is given twice)");
}

TEST(JsonPatchRfc6902, A14_TildeEscapeOrdering) {
    // No key holds "~" or "/": "~01" decodes to the unknown key "~1", not to "/".
    ExpectJsonPatchRefused(
        Example("minimal.json"), R"([ { "op": "test", "path": "/~01", "value": 10 } ])",
        R"("/~01")",
        std::string(R"(operation 0 (test /~01): the configuration has no member "~1"; )"
                    "its members are ") +
            kRootMembers);
}

TEST(JsonPatchRfc6902, A15_ComparingStringsAndNumbers) {
    ExpectJsonPatchRefused(
        Example("full.json"),
        R"([ { "op": "test", "path": "/ClientSetting/StatsPeriod", "value": "900" } ])", R"("900")",
        R"(operation 0 (test /ClientSetting/StatsPeriod): the value is 900, not "900")");
}

TEST(JsonPatchRfc6902, A16_AddingAnArrayValue) {
    const TextValue result = JsonPatched(Example("minimal.json"), R"([ { "op": "add",
        "path": "/ContentUploadChannel/ClientRequestHeaders", "value": [ "abc", "def" ] } ])");
    EXPECT_EQ(R"([ "abc", "def" ])", Show(result, "/ContentUploadChannel/ClientRequestHeaders"));
    // A list's entries are strings: an array is no entry.
    ExpectJsonPatchRefused(
        result,
        R"([ { "op": "add", "path": "/ContentUploadChannel/ClientRequestHeaders/-", "value": [ "abc" ] } ])",
        R"([ "abc" ])",
        "operation 0 (add /ContentUploadChannel/ClientRequestHeaders/-): expected a string, found "
        "an array");
}

// ---- RFC 7386 Appendix A, row by row, carried over to the configuration ----

TEST(MergePatchRfc7386, AppendixA_Row1_ReplacingAMember) {
    const TextValue result =
        MergePatched(Example("minimal.json"), R"({ "ProfileName": "Branch" })");
    EXPECT_EQ(R"("Branch")", Show(result, "/ProfileName"));
}

TEST(MergePatchRfc7386, AppendixA_Row2_AddingAMember) {
    const TextValue result =
        MergePatched(Example("minimal.json"), R"({ "ClientSetting": { "FailOpen": 1 } })");
    EXPECT_EQ("1", Show(result, "/ClientSetting/FailOpen"));
    EXPECT_EQ("1", Show(result, "/ClientSetting/LogUpload"));
}

TEST(MergePatchRfc7386, AppendixA_Row3_RemovingTheOnlyMember) {
    const TextValue before =
        MergePatched(Example("minimal.json"), R"({ "AdvancedRule": { "EnforceProxyServer": 1 } })");
    const TextValue result =
        MergePatched(before, R"({ "AdvancedRule": { "EnforceProxyServer": null } })");
    EXPECT_EQ("{ }", Show(result, "/AdvancedRule"));
}

TEST(MergePatchRfc7386, AppendixA_Row4_RemovingOneOfTwoMembers) {
    const TextValue before =
        MergePatched(Example("minimal.json"),
                     R"({ "AdvancedRule": { "EnforceProxyServer": 1, "BypassLocalIP": 0 } })");
    const TextValue result =
        MergePatched(before, R"({ "AdvancedRule": { "EnforceProxyServer": null } })");
    EXPECT_EQ(R"({ "BypassLocalIP": 0 })", Show(result, "/AdvancedRule"));
}

TEST(MergePatchRfc7386, AppendixA_Row5_ListSetToAString) {
    // Each member's kind is fixed, so a string in place of a list is refused.
    ExpectMergePatchRefused(
        Example("full.json"), R"({ "AdvancedRule": { "EnforceList": { "IPList": "c" } } })",
        R"("c")", "/AdvancedRule/EnforceList/IPList: expected an array of strings, found a string");
}

TEST(MergePatchRfc7386, AppendixA_Row6_StringSetToAList) {
    // Each member's kind is fixed, so a list in place of a string is refused.
    ExpectMergePatchRefused(Example("full.json"), R"({ "ProfileName": [ "b" ] })", R"([ "b" ])",
                            "/ProfileName: expected a string, found an array");
}

TEST(MergePatchRfc7386, AppendixA_Row7_NestedObjectMergedWithNullForAnAbsentMember) {
    const TextValue result = MergePatched(Example("minimal.json"), R"({ "ClientSetting":
        { "Communication": { "DispServerHostname": "d.example.net", "EnablePII": null } } })");
    EXPECT_EQ(R"({ "DispServerHostname": "d.example.net", "LogUploadInterval": 600, )"
              R"("ManagementQueryInterval": 300 })",
              Show(result, "/ClientSetting/Communication"));
}

TEST(MergePatchRfc7386, AppendixA_Row8_ListReplacedWhole) {
    // Entries are strings; what carries over is that a list is replaced, never merged.
    const TextValue result =
        MergePatched(Example("full.json"),
                     R"({ "AdvancedRule": { "EnforceList": { "IPList": [ "10.1.0.0/16" ] } } })");
    EXPECT_EQ(R"([ "10.1.0.0/16" ])", Show(result, "/AdvancedRule/EnforceList/IPList"));
    EXPECT_EQ(Show(Example("full.json"), "/AdvancedRule/EnforceList/DomainLists"),
              Show(result, "/AdvancedRule/EnforceList/DomainLists"));
}

// Rows 9 to 12 patch with something other than an object; a configuration is
// always an object, so such a patch is refused.
TEST(MergePatchRfc7386, AppendixA_Row9_ArrayPatch) {
    ExpectMergePatchRefused(Example("minimal.json"), R"([ "c", "d" ])", "[",
                            "a merge patch is an object of the members to set, found an array");
}

TEST(MergePatchRfc7386, AppendixA_Row10_ArrayPatchOverAnObject) {
    ExpectMergePatchRefused(Example("full.json"), R"(  [ "c" ])", "[",
                            "a merge patch is an object of the members to set, found an array");
}

TEST(MergePatchRfc7386, AppendixA_Row11_NullPatch) {
    ExpectMergePatchRefused(Example("minimal.json"), "null", "null",
                            "a merge patch is an object of the members to set, found null");
}

TEST(MergePatchRfc7386, AppendixA_Row12_StringPatch) {
    ExpectMergePatchRefused(Example("minimal.json"), R"("bar")", R"("bar")",
                            "a merge patch is an object of the members to set, found a string");
}

TEST(MergePatchRfc7386, AppendixA_Row13_MembersThePatchDoesNotNameStay) {
    // A configuration holds no null; what carries over is that the other members stay.
    const TextValue minimal = Example("minimal.json");
    const TextValue result = MergePatched(minimal, R"({ "EnableTrayiconMenu": 1 })");
    EXPECT_EQ(WriteJsonLine(JsonPatched(
                  minimal, R"([ { "op": "add", "path": "/EnableTrayiconMenu", "value": 1 } ])")),
              WriteJsonLine(result));
}

TEST(MergePatchRfc7386, AppendixA_Row14_AbsentObjectMadeFromThePatchWithoutItsNulls) {
    // The target that is no object becomes an absent optional object here.
    const TextValue result = MergePatched(Example("minimal.json"), R"({ "AdvancedRule":
        { "WhiteList": { "DomainLists": "b", "ProcessNames": null } } })");
    EXPECT_EQ(R"({ "WhiteList": { "DomainLists": "b" } })", Show(result, "/AdvancedRule"));
}

TEST(MergePatchRfc7386, AppendixA_Row15_NestedAbsentObjectCreatedEmpty) {
    // Optional objects nest one level deep, so one level is created.
    const TextValue result = MergePatched(
        Example("minimal.json"), R"({ "AdvancedRule": { "WhiteList": { "IPList": null } } })");
    EXPECT_EQ(R"({ "WhiteList": { } })", Show(result, "/AdvancedRule"));
}

}  // namespace
}  // namespace zeltcfg
