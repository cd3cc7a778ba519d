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

// ---- JSON Patch: each operation ----

TEST(JsonPatch, AnEmptyPatchChangesNothing) {
    const TextValue full = Example("full.json");
    EXPECT_EQ(WriteJsonLine(full), WriteJsonLine(JsonPatched(full, "[ ]")));
}

TEST(JsonPatch, OperationsApplyInOrderEachSeeingTheOnesBefore) {
    const TextValue result = JsonPatched(Example("minimal.json"), R"([
        { "op": "add", "path": "/ClientSetting/FailOpen", "value": 1 },
        { "op": "test", "path": "/ClientSetting/FailOpen", "value": 1 },
        { "op": "replace", "path": "/ClientSetting/FailOpen", "value": 0 } ])");
    EXPECT_EQ("0", Show(result, "/ClientSetting/FailOpen"));
}

TEST(JsonPatch, AddOfAPresentMemberReplacesItInPlace) {
    const TextValue result =
        JsonPatched(Example("full.json"),
                    R"([ { "op": "add", "path": "/ClientSetting/FailOpen", "value": 0 } ])");
    EXPECT_EQ("0", Show(result, "/ClientSetting/FailOpen"));
}

TEST(JsonPatch, AddAppendsWithDashAndInsertsAtTheLength) {
    const TextValue result = JsonPatched(Example("full.json"), R"([
        { "op": "add", "path": "/AdvancedRule/WhiteList/IPList/-", "value": "c" },
        { "op": "add", "path": "/AdvancedRule/WhiteList/IPList/3", "value": "d" },
        { "op": "add", "path": "/AdvancedRule/WhiteList/IPList/0", "value": "a" } ])");
    EXPECT_EQ(R"([ "a", "172.16.0.0/12", "203.0.113.7", "c", "d" ])",
              Show(result, "/AdvancedRule/WhiteList/IPList"));
}

TEST(JsonPatch, AddOfAWholeListReplacesIt) {
    const TextValue result = JsonPatched(Example("full.json"), R"([
        { "op": "add", "path": "/AdvancedRule/WhiteList/IPList", "value": [ ] } ])");
    EXPECT_EQ("[ ]", Show(result, "/AdvancedRule/WhiteList/IPList"));
}

TEST(JsonPatch, AddOfTheWholeConfigurationReplacesIt) {
    const TextValue minimal = Example("minimal.json");
    const TextValue result =
        JsonPatched(Example("full.json"),
                    R"([ { "op": "add", "path": "", "value": )" + WriteJsonLine(minimal) + " } ]");
    EXPECT_EQ(WriteJsonLine(minimal), WriteJsonLine(result));
}

TEST(JsonPatch, ValuesTakeTheConfigurationsOwnForm) {
    // Members in member order, the last of duplicate keys, integers as plain digits.
    const TextValue result = JsonPatched(Example("minimal.json"), R"([ { "op": "add",
        "path": "/AdvancedRule", "value": { "BypassLocalIP": 1, "EnforceProxyServer": 2,
        "WhiteList": { "ProcessNames": "p", "IPList": [ "x" ] }, "BypassLocalIP": 3 } } ])");
    EXPECT_EQ(
        R"({ "WhiteList": { "IPList": [ "x" ], "ProcessNames": "p" }, "EnforceProxyServer": 2, )"
        R"("BypassLocalIP": 3 })",
        Show(result, "/AdvancedRule"));
}

TEST(JsonPatch, RemoveTakesAMemberAnEntryAnObjectOrAList) {
    const TextValue result = JsonPatched(Example("full.json"), R"([
        { "op": "remove", "path": "/EnableTrayiconMenu" },
        { "op": "remove", "path": "/AdvancedRule/WhiteList/IPList/0" },
        { "op": "remove", "path": "/AdvancedRule/WhiteList/IPList/0" },
        { "op": "remove", "path": "/AdvancedRule/EnforceList" },
        { "op": "remove", "path": "/ContentUploadChannel/ClientRequestHeaders" } ])");
    EXPECT_EQ("(absent)", Show(result, "/EnableTrayiconMenu"));
    EXPECT_EQ("[ ]", Show(result, "/AdvancedRule/WhiteList/IPList"));
    EXPECT_EQ("(absent)", Show(result, "/AdvancedRule/EnforceList"));
    EXPECT_EQ("(absent)", Show(result, "/ContentUploadChannel/ClientRequestHeaders"));
}

TEST(JsonPatch, ReplaceSetsAnEntryAnObjectOrTheWholeConfiguration) {
    const TextValue result = JsonPatched(Example("full.json"), R"([
        { "op": "replace", "path": "/AdvancedRule/EnforceList/IPList/2", "value": "fc00::/7" },
        { "op": "replace", "path": "/AdvancedRule/WhiteList", "value": { "DomainLists": "d" } } ])");
    EXPECT_EQ(R"([ "10.0.0.0/8", "192.168.10.0/24", "fc00::/7" ])",
              Show(result, "/AdvancedRule/EnforceList/IPList"));
    EXPECT_EQ(R"({ "DomainLists": "d" })", Show(result, "/AdvancedRule/WhiteList"));
    const TextValue minimal = Example("minimal.json");
    EXPECT_EQ(WriteJsonLine(minimal),
              WriteJsonLine(JsonPatched(result, R"([ { "op": "replace", "path": "", "value": )" +
                                                    WriteJsonLine(minimal) + " } ]")));
}

TEST(JsonPatch, CopyPutsACopyAtThePath) {
    const TextValue result = JsonPatched(Example("full.json"), R"([
        { "op": "copy", "from": "/SchemaVersion", "path": "/ProfileName" },
        { "op": "copy", "from": "/AdvancedRule/EnforceList/IPList/0", "path": "/AdvancedRule/WhiteList/IPList/-" },
        { "op": "copy", "from": "/AdvancedRule/WhiteList/IPList", "path": "/ContentUploadChannel/ClientRequestHeaders" },
        { "op": "copy", "from": "/AdvancedRule/WhiteList/DomainLists", "path": "/AdvancedRule/EnforceList/IPList/0" } ])");
    EXPECT_EQ(R"("2.1")", Show(result, "/ProfileName"));
    EXPECT_EQ(R"([ "172.16.0.0/12", "203.0.113.7", "10.0.0.0/8" ])",
              Show(result, "/AdvancedRule/WhiteList/IPList"));
    EXPECT_EQ(R"([ "172.16.0.0/12", "203.0.113.7", "10.0.0.0/8" ])",
              Show(result, "/ContentUploadChannel/ClientRequestHeaders"));
    EXPECT_EQ(
        R"([ "update.example.com;time.example.net", "10.0.0.0/8", "192.168.10.0/24", "fd00::/8" ])",
        Show(result, "/AdvancedRule/EnforceList/IPList"));
}

TEST(JsonPatch, CopyOfAnObjectIsCheckedAgainstItsNewPlace) {
    const TextValue result = JsonPatched(Example("minimal.json"), R"([
        { "op": "add", "path": "/AdvancedRule/EnforceList", "value": { "IPList": [ "a" ] } },
        { "op": "copy", "from": "/AdvancedRule/EnforceList", "path": "/AdvancedRule/WhiteList" } ])");
    EXPECT_EQ(R"({ "EnforceList": { "IPList": [ "a" ] }, "WhiteList": { "IPList": [ "a" ] } })",
              Show(result, "/AdvancedRule"));
    ExpectJsonPatchRefused(
        Example("full.json"),
        R"([ { "op": "copy", "from": "/AdvancedRule/WhiteList", "path": "/AdvancedRule/EnforceList" } ])",
        R"("/AdvancedRule/EnforceList")",
        "operation 0 (copy /AdvancedRule/EnforceList): /AdvancedRule/EnforceList/VPNDescList: "
        "unknown member; remove it, the configuration does not use it");
}

TEST(JsonPatch, MoveTakesTheValueAwayAndPutsItAtThePath) {
    const TextValue result = JsonPatched(Example("full.json"), R"([
        { "op": "move", "from": "/AdvancedRule/EnforceList/IPList", "path": "/AdvancedRule/WhiteList/VPNDescList" },
        { "op": "move", "from": "/AdvancedRule/WhiteList/IPList/1", "path": "/AdvancedRule/WhiteList/IPList/0" },
        { "op": "move", "from": "/ClientSetting/FailOpen", "path": "/ClientSetting/FailOpen" },
        { "op": "move", "from": "/ClientSetting/SafeMode", "path": "/EnableTrayiconMenu" } ])");
    EXPECT_EQ("(absent)", Show(result, "/AdvancedRule/EnforceList/IPList"));
    EXPECT_EQ(R"([ "10.0.0.0/8", "192.168.10.0/24", "fd00::/8" ])",
              Show(result, "/AdvancedRule/WhiteList/VPNDescList"));
    EXPECT_EQ(R"([ "203.0.113.7", "172.16.0.0/12" ])",
              Show(result, "/AdvancedRule/WhiteList/IPList"));
    EXPECT_EQ("1", Show(result, "/ClientSetting/FailOpen"));
    EXPECT_EQ("(absent)", Show(result, "/ClientSetting/SafeMode"));
    EXPECT_EQ("0", Show(result, "/EnableTrayiconMenu"));
}

TEST(JsonPatch, TestComparesWholeObjectsAndListsAsJson) {
    const TextValue full = Example("full.json");
    EXPECT_EQ(WriteJsonLine(full), WriteJsonLine(JsonPatched(full, R"([
        { "op": "test", "path": "/AdvancedRule/WhiteList/IPList", "value": [ "172.16.0.0/12", "203.0.113.7" ] },
        { "op": "test", "path": "/ClientSetting/HTTPS", "value": { "WhiteListWithPorts":
          "mail.example.com:993;intranet.example.local:8443", "SSLFilter": 1.0, "InspectHostnameOnly": 1,
          "UpstreamVerification": 0, "WhiteList": "bank.example.com;pay.example.org" } } ])")));
    ExpectJsonPatchRefused(
        full,
        R"([ { "op": "test", "path": "/AdvancedRule/WhiteList/IPList", "value": [ "203.0.113.7" ] } ])",
        R"([ "203)",
        R"(operation 0 (test /AdvancedRule/WhiteList/IPList): the value is [ "172.16.0.0/12", )"
        R"("203.0.113.7" ], not [ "203.0.113.7" ])");
}

TEST(JsonPatch, AFailingOperationLeavesTheConfigurationAsItWas) {
    ExpectJsonPatchRefused(
        Example("full.json"), R"([
        { "op": "replace", "path": "/ProfileName", "value": "Branch" },
        { "op": "remove", "path": "/AdvancedRule/WhiteList" },
        { "op": "remove", "path": "/AdvancedRule/WhiteList" } ])",
        R"("/AdvancedRule/WhiteList" } ])",
        "operation 2 (remove /AdvancedRule/WhiteList): /AdvancedRule/WhiteList is absent");
}

// ---- JSON Patch: malformed documents ----

TEST(JsonPatch, RefusesADocumentThatIsNoArray) {
    ExpectJsonPatchRefused(Example("minimal.json"), R"({ "op": "remove" })", "{",
                           "a JSON Patch is an array of operations, found an object");
}

TEST(JsonPatch, RefusesAnOperationThatIsNoObject) {
    ExpectJsonPatchRefused(Example("minimal.json"),
                           R"([ { "op": "test", "path": "/ProfileName", "value": "Default" }, 5 ])",
                           "5", "operation 1: expected an object, found the number 5");
}

TEST(JsonPatch, RefusesAMissingOrUnknownOp) {
    const TextValue minimal = Example("minimal.json");
    ExpectJsonPatchRefused(minimal, R"([ { "path": "/ProfileName" } ])", "{",
                           R"(operation 0: missing "op")");
    ExpectJsonPatchRefused(
        minimal, R"([ { "op": "delete", "path": "/ProfileName" } ])", R"("delete")",
        R"(operation 0: "op" must be one of add, remove, replace, move, copy, test, found "delete")");
    ExpectJsonPatchRefused(
        minimal, R"([ { "op": null, "path": "/ProfileName" } ])", "null",
        R"(operation 0: "op" must be one of add, remove, replace, move, copy, test, found null)");
}

TEST(JsonPatch, RefusesAnOperationMemberGivenTwice) {
    ExpectJsonPatchRefused(
        Example("minimal.json"),
        R"([ { "op": "replace", "path": "/ProfileName", "value": "a", "value": "b" } ])",
        R"("value": "b")", R"(operation 0: "value" is given twice)");
}

TEST(JsonPatch, RefusesAMissingPathValueOrFrom) {
    const TextValue minimal = Example("minimal.json");
    ExpectJsonPatchRefused(minimal, R"([ { "op": "add", "value": 1 } ])", "{",
                           R"(operation 0 (add): missing "path")");
    ExpectJsonPatchRefused(minimal, R"([ { "op": "replace", "path": "/ProfileName" } ])", "{",
                           R"(operation 0 (replace /ProfileName): missing "value")");
    ExpectJsonPatchRefused(minimal, R"([ { "op": "test", "path": "" } ])", "{",
                           R"(operation 0 (test ""): missing "value")");
    ExpectJsonPatchRefused(minimal, R"([ { "op": "copy", "path": "/ProfileName" } ])", "{",
                           R"(operation 0 (copy /ProfileName): missing "from")");
}

TEST(JsonPatch, RefusesAPathOrFromThatIsNoString) {
    const TextValue minimal = Example("minimal.json");
    ExpectJsonPatchRefused(minimal, R"([ { "op": "add", "path": 1, "value": 1 } ])", "1,",
                           R"(operation 0 (add): "path" must be a string, found the number 1)");
    ExpectJsonPatchRefused(
        minimal, R"([ { "op": "move", "path": "/ProfileName", "from": [ ] } ])", "[ ] }",
        R"(operation 0 (move /ProfileName): "from" must be a string, found an array)");
}

TEST(JsonPatch, RefusesAPathOrFromThatIsNoJsonPointer) {
    const TextValue minimal = Example("minimal.json");
    ExpectJsonPatchRefused(
        minimal, R"([ { "op": "add", "path": "ClientSetting.FailOpen", "value": 1 } ])",
        R"("ClientSetting)",
        R"(operation 0 (add ClientSetting.FailOpen): not a JSON Pointer; it must be empty or start with "/")");
    ExpectJsonPatchRefused(
        minimal, R"([ { "op": "copy", "path": "/ProfileName", "from": "SchemaVersion" } ])",
        R"("SchemaVersion")",
        R"(operation 0 (copy /ProfileName): "from": not a JSON Pointer; it must be empty or start with "/")");
}

TEST(JsonPatch, RefusesATildeThatEscapesNothing) {
    const TextValue minimal = Example("minimal.json");
    ExpectJsonPatchRefused(
        minimal, R"([ { "op": "remove", "path": "/Profile~2Name" } ])", R"("/Profile)",
        R"(operation 0 (remove /Profile~2Name): "~" must be followed by 0 or 1 in a JSON Pointer; )"
        R"(write "~0" for "~" and "~1" for "/")");
    ExpectJsonPatchRefused(
        minimal, R"([ { "op": "move", "path": "/ProfileName", "from": "/Schema~" } ])",
        R"("/Schema~")",
        R"(operation 0 (move /ProfileName): "from": "~" must be followed by 0 or 1 in a JSON Pointer; )"
        R"(write "~0" for "~" and "~1" for "/")");
}

// ---- JSON Patch: paths the configuration does not have ----

TEST(JsonPatch, RefusesAnUnknownMemberWithTheClosestKnownKey) {
    const TextValue full = Example("full.json");
    ExpectJsonPatchRefused(
        full, R"([ { "op": "replace", "path": "/ClientSetting/FailOpn", "value": 1 } ])",
        R"("/ClientSetting/FailOpn")",
        R"(operation 0 (replace /ClientSetting/FailOpn): /ClientSetting has no member "FailOpn"; )"
        R"(did you mean "FailOpen"?)");
    ExpectJsonPatchRefused(
        full,
        R"([ { "op": "copy", "from": "/ClientSetting/SafeMod", "path": "/EnableTrayiconMenu" } ])",
        R"("/ClientSetting/SafeMod")",
        R"(operation 0 (copy /EnableTrayiconMenu): "from": /ClientSetting has no member "SafeMod"; )"
        R"(did you mean "SafeMode"?)");
    ExpectJsonPatchRefused(
        full, R"([ { "op": "remove", "path": "/" } ])", R"("/")",
        std::string(R"(operation 0 (remove /): the configuration has no member ""; )"
                    "its members are ") +
            kRootMembers);
}

TEST(JsonPatch, RefusesAPathThroughAValueWithoutMembers) {
    const TextValue full = Example("full.json");
    ExpectJsonPatchRefused(
        full, R"([ { "op": "add", "path": "/ClientSetting/FailOpen/x", "value": 1 } ])",
        R"("/ClientSetting)",
        "operation 0 (add /ClientSetting/FailOpen/x): /ClientSetting/FailOpen is an integer "
        "and "
        "has no members");
    ExpectJsonPatchRefused(
        full, R"([ { "op": "remove", "path": "/ProfileName/0" } ])", R"("/ProfileName/0")",
        "operation 0 (remove /ProfileName/0): /ProfileName is a string and has no members");
    ExpectJsonPatchRefused(
        full, R"([ { "op": "remove", "path": "/AdvancedRule/WhiteList/IPList/0/x" } ])",
        R"("/AdvancedRule)",
        "operation 0 (remove /AdvancedRule/WhiteList/IPList/0/x): "
        "/AdvancedRule/WhiteList/IPList/0 "
        "is a list entry and has no members");
}

TEST(JsonPatch, RefusesAListEntryNamedByNoIndex) {
    const TextValue full = Example("full.json");
    ExpectJsonPatchRefused(
        full, R"([ { "op": "remove", "path": "/AdvancedRule/WhiteList/IPList/01" } ])", R"("/Adv)",
        "operation 0 (remove /AdvancedRule/WhiteList/IPList/01): "
        "/AdvancedRule/WhiteList/IPList is "
        "a list; name an entry by its index (0, 1, ...)");
    ExpectJsonPatchRefused(
        full, R"([ { "op": "add", "path": "/AdvancedRule/WhiteList/IPList/end", "value": "a" } ])",
        R"("/Adv)",
        "operation 0 (add /AdvancedRule/WhiteList/IPList/end): /AdvancedRule/WhiteList/IPList "
        "is a "
        R"(list; name an entry by its index (0, 1, ...) or by "-" to append)");
    ExpectJsonPatchRefused(
        full,
        R"([ { "op": "replace", "path": "/AdvancedRule/WhiteList/IPList/-", "value": "a" } ])",
        R"("/Adv)",
        R"(operation 0 (replace /AdvancedRule/WhiteList/IPList/-): "-" names no entry of the list )"
        "/AdvancedRule/WhiteList/IPList; it is where add, copy and move append");
}

TEST(JsonPatch, RefusesAnIndexPastTheEndOfItsList) {
    const TextValue full = Example("full.json");
    ExpectJsonPatchRefused(
        full, R"([ { "op": "test", "path": "/AdvancedRule/WhiteList/IPList/2", "value": "a" } ])",
        R"("/Adv)",
        "operation 0 (test /AdvancedRule/WhiteList/IPList/2): the list "
        "/AdvancedRule/WhiteList/IPList has 2 entries, numbered from 0 to 1");
    ExpectJsonPatchRefused(
        full, R"([ { "op": "add", "path": "/AdvancedRule/WhiteList/IPList/3", "value": "a" } ])",
        R"("/Adv)",
        "operation 0 (add /AdvancedRule/WhiteList/IPList/3): the list "
        "/AdvancedRule/WhiteList/IPList has 2 entries, numbered from 0 to 1; a new "
        R"(entry goes at 0 to 2 or at "-")");
    const TextValue empty = JsonPatched(
        full, R"([ { "op": "replace", "path": "/AdvancedRule/WhiteList/IPList", "value": [ ] } ])");
    ExpectJsonPatchRefused(
        empty, R"([ { "op": "remove", "path": "/AdvancedRule/WhiteList/IPList/0" } ])", R"("/Adv)",
        "operation 0 (remove /AdvancedRule/WhiteList/IPList/0): the list "
        "/AdvancedRule/WhiteList/IPList has 0 entries");
}

TEST(JsonPatch, RefusesAnAbsentMemberOrParent) {
    const TextValue minimal = Example("minimal.json");
    ExpectJsonPatchRefused(
        minimal, R"([ { "op": "remove", "path": "/ClientSetting/FailOpen" } ])", R"("/Client)",
        "operation 0 (remove /ClientSetting/FailOpen): /ClientSetting/FailOpen is absent");
    ExpectJsonPatchRefused(
        minimal,
        R"([ { "op": "replace", "path": "/AdvancedRule/WhiteList/IPList/0", "value": "a" } ])",
        R"("/Adv)",
        "operation 0 (replace /AdvancedRule/WhiteList/IPList/0): "
        "/AdvancedRule/WhiteList/IPList/0 "
        "is absent, since /AdvancedRule/WhiteList is absent");
    ExpectJsonPatchRefused(
        minimal, R"([ { "op": "add", "path": "/AdvancedRule/WhiteList/IPList/-", "value": "a" } ])",
        R"("/Adv)",
        "operation 0 (add /AdvancedRule/WhiteList/IPList/-): /AdvancedRule/WhiteList/IPList is "
        "absent, since /AdvancedRule/WhiteList is absent");
    ExpectJsonPatchRefused(
        minimal,
        R"([ { "op": "move", "from": "/EnableTrayiconMenu", "path": "/ClientSetting/FailOpen" } ])",
        R"("/Enable)",
        R"(operation 0 (move /ClientSetting/FailOpen): "from": /EnableTrayiconMenu is absent)");
}

TEST(JsonPatch, RefusesToRemoveARequiredMember) {
    const TextValue full = Example("full.json");
    ExpectJsonPatchRefused(
        full, R"([ { "op": "remove", "path": "/ClientSetting/LogUpload" } ])", R"("/Client)",
        "operation 0 (remove /ClientSetting/LogUpload): a required member cannot be removed");
    ExpectJsonPatchRefused(full, R"([ { "op": "remove", "path": "" } ])", R"("")",
                           R"(operation 0 (remove ""): the whole configuration cannot be removed)");
    ExpectJsonPatchRefused(
        full, R"([ { "op": "move", "from": "/ProfileName", "path": "/AdminPassword" } ])",
        R"("/Profile)",
        R"(operation 0 (move /AdminPassword): "from": a required member cannot be removed)");
}

TEST(JsonPatch, RefusesToMoveAMemberIntoItsOwnChild) {
    ExpectJsonPatchRefused(
        Example("full.json"),
        R"([ { "op": "move", "from": "/AdvancedRule/WhiteList", "path": "/AdvancedRule/WhiteList/IPList" } ])",
        R"("/AdvancedRule/WhiteList")",
        "operation 0 (move /AdvancedRule/WhiteList/IPList): cannot move "
        "/AdvancedRule/WhiteList "
        "into "
        "its own child");
}

// ---- JSON Patch: values that do not fit ----

TEST(JsonPatch, RefusesAnIntegerOutOfRangeOrOfAnotherType) {
    const TextValue full = Example("full.json");
    const auto expectFound = [&full](const std::string& value, const std::string& found) {
        ExpectJsonPatchRefused(
            full,
            R"([ { "op": "replace", "path": "/ClientSetting/FailOpen", "value": )" + value + " } ]",
            value,
            "operation 0 (replace /ClientSetting/FailOpen): expected an integer "
            "from 0 to 4294967295, found " +
                found);
    };
    expectFound(R"("1")", "a string");
    expectFound("1.5", "the number 1.5");
    expectFound("-1", "the number -1");
    expectFound("4294967296", "the number 4294967296");
    expectFound("1e3", "the number 1e3");
    expectFound("null", "null");
    expectFound("true", "a boolean");
    expectFound("{ }", "an object");
    expectFound("[ 1 ]", "an array");
    EXPECT_EQ("4294967295", Show(JsonPatched(full, R"([ { "op": "replace",
        "path": "/ClientSetting/FailOpen", "value": 4294967295 } ])"),
                                 "/ClientSetting/FailOpen"));
}

TEST(JsonPatch, RefusesATextListOrObjectOfAnotherType) {
    const TextValue full = Example("full.json");
    ExpectJsonPatchRefused(
        full, R"([ { "op": "replace", "path": "/ProfileName", "value": 7 } ])", "7 }",
        "operation 0 (replace /ProfileName): expected a string, found the number 7");
    ExpectJsonPatchRefused(
        full, "[ { \"op\": \"add\", \"path\": \"/ProfileName\", \"value\": \"\xff\" } ]", "\"\xff",
        "operation 0 (add /ProfileName): expected a string of valid UTF-8");
    ExpectJsonPatchRefused(
        full,
        R"([ { "op": "add", "path": "/AdvancedRule/WhiteList/IPList/-", "value": "a\u0000b" } ])",
        R"("a\u)",
        R"(operation 0 (add /AdvancedRule/WhiteList/IPList/-): expected a string without \u0000)");
    ExpectJsonPatchRefused(
        full, R"([ { "op": "add", "path": "/AdvancedRule/WhiteList/IPList", "value": "a" } ])",
        R"("a")",
        "operation 0 (add /AdvancedRule/WhiteList/IPList): expected an array of strings, found "
        "a "
        "string");
    ExpectJsonPatchRefused(
        full,
        R"([ { "op": "add", "path": "/AdvancedRule/WhiteList", "value": { "IPList": [ "a", 1 ] } } ])",
        "1 ]",
        "operation 0 (add /AdvancedRule/WhiteList): /AdvancedRule/WhiteList/IPList/1: expected "
        "a "
        "string, found the number 1");
    ExpectJsonPatchRefused(
        full, R"([ { "op": "add", "path": "/AdvancedRule/WhiteList/IPList/0", "value": false } ])",
        "false",
        "operation 0 (add /AdvancedRule/WhiteList/IPList/0): expected a string, found a "
        "boolean");
    ExpectJsonPatchRefused(
        full, R"([ { "op": "replace", "path": "/AdvancedRule", "value": [ ] } ])", "[ ] }",
        "operation 0 (replace /AdvancedRule): expected an object, found an array");
    ExpectJsonPatchRefused(
        full, R"([ { "op": "copy", "from": "/ProfileName", "path": "/ClientSetting/FailOpen" } ])",
        R"("/ClientSetting/FailOpen")",
        "operation 0 (copy /ClientSetting/FailOpen): expected an integer from 0 to 4294967295, "
        "found a string");
}

TEST(JsonPatch, RefusesAnObjectWithAnUnknownOrWithoutARequiredMember) {
    const TextValue full = Example("full.json");
    ExpectJsonPatchRefused(
        full,
        R"([ { "op": "add", "path": "/AdvancedRule/WhiteList", "value": { "IPLst": [ ] } } ])",
        R"("IPLst")",
        R"(operation 0 (add /AdvancedRule/WhiteList): /AdvancedRule/WhiteList/IPLst: unknown member; )"
        R"(did you mean "IPList"?)");
    ExpectJsonPatchRefused(
        full,
        R"([ { "op": "add", "path": "/AdvancedRule/WhiteList", "value": { "Colour": "red" } } ])",
        R"("Colour")",
        "operation 0 (add /AdvancedRule/WhiteList): /AdvancedRule/WhiteList/Colour: unknown "
        "member; "
        "remove it, the configuration does not use it");
    ExpectJsonPatchRefused(
        full,
        R"([ { "op": "replace", "path": "/ClientSetting/HTTPS", "value": { "SSLFilter": 1 } } ])",
        "{ \"SSL",
        "operation 0 (replace /ClientSetting/HTTPS): /ClientSetting/HTTPS/InspectHostnameOnly: "
        "a "
        "required member is missing");
}

// ---- Merge Patch ----

TEST(MergePatch, SetsMergesAndRemovesInOnePatch) {
    const TextValue result = MergePatched(Example("full.json"), R"({
        "ClientSetting": { "FailOpen": 0, "SafeMode": null, "HTTPS": { "WhiteList": null } },
        "AdvancedRule": { "WhiteList": { "VPNDescList": [ ] }, "EnforceList": null },
        "ProfileName": "Branch" })");
    EXPECT_EQ("0", Show(result, "/ClientSetting/FailOpen"));
    EXPECT_EQ("(absent)", Show(result, "/ClientSetting/SafeMode"));
    EXPECT_EQ("(absent)", Show(result, "/ClientSetting/HTTPS/WhiteList"));
    EXPECT_EQ("[ ]", Show(result, "/AdvancedRule/WhiteList/VPNDescList"));
    EXPECT_EQ(R"([ "172.16.0.0/12", "203.0.113.7" ])",
              Show(result, "/AdvancedRule/WhiteList/IPList"));
    EXPECT_EQ("(absent)", Show(result, "/AdvancedRule/EnforceList"));
    EXPECT_EQ(R"("Branch")", Show(result, "/ProfileName"));
}

TEST(MergePatch, AnEmptyPatchChangesNothing) {
    const TextValue full = Example("full.json");
    EXPECT_EQ(WriteJsonLine(full), WriteJsonLine(MergePatched(full, "{ }")));
}

TEST(MergePatch, TheLastOfDuplicateKeysCounts) {
    const TextValue result =
        MergePatched(Example("minimal.json"), R"({ "ProfileName": "a", "ProfileName": "b" })");
    EXPECT_EQ(R"("b")", Show(result, "/ProfileName"));
}

TEST(MergePatch, RefusesAnUnknownMemberAtItsKey) {
    const TextValue full = Example("full.json");
    ExpectMergePatchRefused(full, R"({ "ClientSetting": { "FailOpn": 1 } })", R"("FailOpn")",
                            R"(/ClientSetting/FailOpn: unknown member; did you mean "FailOpen"?)");
    ExpectMergePatchRefused(
        full, R"({ "ProfileName": "x", "Colour": null })", R"("Colour")",
        "/Colour: unknown member; remove it, the configuration does not use it");
}

TEST(MergePatch, RefusesToRemoveARequiredMember) {
    ExpectMergePatchRefused(Example("full.json"), R"({ "ClientSetting": { "LogUpload": null } })",
                            "null",
                            "/ClientSetting/LogUpload: a required member cannot be removed");
}

TEST(MergePatch, RefusesAValueThatDoesNotFitAndChangesNothing) {
    const TextValue full = Example("full.json");
    ExpectMergePatchRefused(
        full, R"({ "ProfileName": "x", "ClientSetting": { "FailOpen": 4294967296 } })",
        "4294967296",
        "/ClientSetting/FailOpen: expected an integer from 0 to 4294967295, found "
        "the number 4294967296");
    ExpectMergePatchRefused(full, R"({ "ClientSetting": "on" })", R"("on")",
                            "/ClientSetting: expected an object, found a string");
    ExpectMergePatchRefused(full, R"({ "AdvancedRule": { "WhiteList": { "IPList": [ null ] } } })",
                            "null",
                            "/AdvancedRule/WhiteList/IPList/0: expected a string, found null");
    // Members merge in member order: ClientSetting has changed when AdminPassword fails.
    ExpectMergePatchRefused(full, R"({ "AdminPassword": 42, "ClientSetting": { "FailOpen": 0 } })",
                            "42", "/AdminPassword: expected a string, found the number 42");
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
