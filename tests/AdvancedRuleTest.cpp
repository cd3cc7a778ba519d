// AdvancedRuleTest.cpp: the AdvancedRule element: its optional switches and
// its two optional lists kept behind their presence flags, its write and read
// over a manager with every failure message and the messages of the elements
// below it, copying and its virtual slot order.
#include <zelt/zelt.h>

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "support/ElementTesting.h"
#include "support/InterceptingManager.h"
#include "support/MessageCapture.h"
#include "support/VirtualSlot.h"

using namespace VextorJSConfig;

namespace {

using Values = std::vector<std::wstring>;

ElementPtr<IEnforceList> MakeEnforceList(const Values& addresses, const std::wstring& names,
                                         const std::wstring& domains) {
    ElementPtr<IEnforceList> list(EnforceList_CreateNewInstance());
    list->SetIPList(MakeIPList(addresses).get());
    list->SetProcessNames(&names);
    list->SetDomainLists(&domains);
    return list;
}

ElementPtr<IWhiteList> MakeWhiteList(const Values& addresses, const Values& vpns,
                                     const std::wstring& domains, const std::wstring& names) {
    ElementPtr<IWhiteList> list(WhiteList_CreateNewInstance());
    list->SetIPList(MakeIPList(addresses).get());
    list->SetVPNDescList(MakeVPNDescList(vpns).get());
    list->SetDomainLists(&domains);
    list->SetProcessNames(&names);
    return list;
}

Values AddressesOf(IEnforceList& list) {
    IIPList* addresses = nullptr;
    if (list.GetIPList(&addresses) != ZELT_SUCCESS) return {L"<absent>"};
    return ListValues(*addresses);
}

Values AddressesOf(IWhiteList& list) {
    IIPList* addresses = nullptr;
    if (list.GetIPList(&addresses) != ZELT_SUCCESS) return {L"<absent>"};
    return ListValues(*addresses);
}

Values VPNsOf(IWhiteList& list) {
    IVPNDescList* vpns = nullptr;
    if (list.GetVPNDescList(&vpns) != ZELT_SUCCESS) return {L"<absent>"};
    return ListValues(*vpns);
}

const char kFullRule[] =
    R"({ "AdvancedRule": { "EnforceList": { "IPList": [ "10.0.0.0\/8", "fd00::\/8" ], )"
    R"("ProcessNames": "a.exe", "DomainLists": "*.example.com" }, )"
    R"("WhiteList": { "IPList": [ "203.0.113.7" ], "VPNDescList": [ "VPN \"Main\"" ], )"
    R"("DomainLists": "ok.example.com", "ProcessNames": "b.exe" }, )"
    R"("EnforceProxyServer": 1, "BypassPrivateIP": 0, "BypassLocalIP": -1 } })";

class AdvancedRuleTest : public ::testing::Test {
protected:
    int ReadFromText(const std::string& text) {
        return ReadFromDocument(*rule, text, L"AdvancedRule");
    }

    void ReadFrom(const std::string& text) { ASSERT_EQ(ReadFromText(text), ZELT_SUCCESS); }

    void Fill() {
        const DWORD one = 1, zero = 0, largest = 4294967295u;
        rule->SetEnforceList(
            MakeEnforceList({L"10.0.0.0/8", L"fd00::/8"}, L"a.exe", L"*.example.com").get());
        rule->SetWhiteList(
            MakeWhiteList({L"203.0.113.7"}, {L"VPN \"Main\""}, L"ok.example.com", L"b.exe").get());
        rule->SetEnforceProxyServer(&one);
        rule->SetBypassPrivateIP(&zero);
        rule->SetBypassLocalIP(&largest);
    }

    void ExpectCleared() {
        EXPECT_EQ(rule->GetElementType(), 0u);
        IEnforceList* enforce = nullptr;
        IWhiteList* white = nullptr;
        EXPECT_EQ(rule->GetEnforceList(&enforce), ZELT_NOT_PRESENT);
        EXPECT_EQ(rule->GetWhiteList(&white), ZELT_NOT_PRESENT);
        EXPECT_EQ(enforce, nullptr);
        EXPECT_EQ(white, nullptr);
        DWORD out = 12345;
        EXPECT_EQ(rule->GetEnforceProxyServer(&out), ZELT_NOT_PRESENT);
        EXPECT_EQ(rule->GetBypassPrivateIP(&out), ZELT_NOT_PRESENT);
        EXPECT_EQ(rule->GetBypassLocalIP(&out), ZELT_NOT_PRESENT);
        EXPECT_EQ(out, 12345u);
    }

    MessageCapture capture;
    ElementPtr<IAdvancedRule> rule{AdvancedRule_CreateNewInstance()};
};

TEST_F(AdvancedRuleTest, VirtualSlotsFollowTheContract) {
    using I = IAdvancedRule;
    EXPECT_EQ(VirtualSlotOf(&I::WriteToJSONMgr), 1);
    EXPECT_EQ(VirtualSlotOf(&I::ReadFromJSONMgr), 2);
    EXPECT_EQ(VirtualSlotOf(&I::Clear), 3);
    EXPECT_EQ(VirtualSlotOf(&I::CopyFrom), 4);
    EXPECT_EQ(VirtualSlotOf(&I::GetElementType), 5);
    EXPECT_EQ(VirtualSlotOf(&I::GetEnforceList), 6);
    EXPECT_EQ(VirtualSlotOf(&I::SetEnforceList), 7);
    EXPECT_EQ(VirtualSlotOf(&I::GetWhiteList), 8);
    EXPECT_EQ(VirtualSlotOf(&I::SetWhiteList), 9);
    EXPECT_EQ(VirtualSlotOf(&I::GetEnforceProxyServer), 10);
    EXPECT_EQ(VirtualSlotOf(&I::SetEnforceProxyServer), 11);
    EXPECT_EQ(VirtualSlotOf(&I::GetBypassPrivateIP), 12);
    EXPECT_EQ(VirtualSlotOf(&I::SetBypassPrivateIP), 13);
    EXPECT_EQ(VirtualSlotOf(&I::GetBypassLocalIP), 14);
    EXPECT_EQ(VirtualSlotOf(&I::SetBypassLocalIP), 15);
}

TEST_F(AdvancedRuleTest, FactoryGivesAClearedOrdinaryElement) {
    ExpectCleared();
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(AdvancedRuleTest, SwitchesArePresentOnlyAfterASet) {
    const DWORD seven = 7;
    rule->SetBypassLocalIP(&seven);
    DWORD out = 0;
    EXPECT_EQ(rule->GetBypassLocalIP(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, 7u);

    rule->SetBypassLocalIP(nullptr);
    out = 12345;
    EXPECT_EQ(rule->GetBypassLocalIP(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(out, 12345u);
    EXPECT_EQ(WrittenText(*rule), R"({ "AdvancedRule": { } })");
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(AdvancedRuleTest, SetListStoresACopyAndGetHandsOutTheEmbeddedChild) {
    ElementPtr<IEnforceList> source = MakeEnforceList({L"1.1.1.1"}, L"p", L"d");
    rule->SetEnforceList(source.get());
    IEnforceList* embedded = nullptr;
    ASSERT_EQ(rule->GetEnforceList(&embedded), ZELT_SUCCESS);
    EXPECT_NE(embedded, source.get());

    source->SetProcessNames(nullptr);
    std::wstring out;
    EXPECT_EQ(embedded->GetProcessNames(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, L"p");

    const std::wstring changed = L"changed";
    embedded->SetDomainLists(&changed);
    EXPECT_EQ(
        WrittenText(*rule),
        R"({ "AdvancedRule": { "EnforceList": { "IPList": [ "1.1.1.1" ], "ProcessNames": "p", "DomainLists": "changed" } } })");
}

TEST_F(AdvancedRuleTest, NullListHidesTheChildButKeepsItsContent) {
    Fill();
    IEnforceList* enforce = nullptr;
    IWhiteList* white = nullptr;
    ASSERT_EQ(rule->GetEnforceList(&enforce), ZELT_SUCCESS);
    ASSERT_EQ(rule->GetWhiteList(&white), ZELT_SUCCESS);

    rule->SetEnforceList(nullptr);
    rule->SetWhiteList(nullptr);
    IEnforceList* absentEnforce = nullptr;
    EXPECT_EQ(rule->GetEnforceList(&absentEnforce), ZELT_NOT_PRESENT);
    EXPECT_EQ(absentEnforce, nullptr);
    EXPECT_EQ(
        WrittenText(*rule),
        R"({ "AdvancedRule": { "EnforceProxyServer": 1, "BypassPrivateIP": 0, "BypassLocalIP": -1 } })");

    // Handing back the embedded children themselves makes them present again.
    rule->SetEnforceList(enforce);
    rule->SetWhiteList(white);
    EXPECT_EQ(WrittenText(*rule), kFullRule);
}

TEST_F(AdvancedRuleTest, ClearEmptiesEvenHiddenChildren) {
    Fill();
    IEnforceList* enforce = nullptr;
    ASSERT_EQ(rule->GetEnforceList(&enforce), ZELT_SUCCESS);
    rule->SetEnforceList(nullptr);
    rule->ElementType = 3;
    rule->Clear();
    ExpectCleared();
    std::wstring out;
    EXPECT_EQ(enforce->GetProcessNames(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(AddressesOf(*enforce), Values{L"<absent>"});
}

TEST_F(AdvancedRuleTest, FreshElementWritesAnEmptyObject) {
    EXPECT_EQ(WrittenText(*rule), R"({ "AdvancedRule": { } })");
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(AdvancedRuleTest, WritesEveryMemberInOrder) {
    Fill();
    EXPECT_EQ(WrittenText(*rule), kFullRule);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(AdvancedRuleTest, WriteWithoutManagerFails) {
    EXPECT_EQ(rule->WriteToJSONMgr(nullptr, nullptr, 1), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: WriteToJSONMgr require xmlmanager pointer is NULL."});
}

class AdvancedRuleWriteFailureTest : public AdvancedRuleTest,
                                     public ::testing::WithParamInterface<WriteFailure> {};

TEST_P(AdvancedRuleWriteFailureTest, StopsAtTheFailingMemberAndKeepsWhatWasWritten) {
    Fill();
    InterceptingManager manager(ManagerWithText("{}"));
    IJSONManager& real = manager.Inner();
    InjectFailure(manager, GetParam());
    EXPECT_EQ(rule->WriteToJSONMgr(&manager, real.GetRootElement(), 1), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(), GetParam().messages);
    EXPECT_EQ(SavedText(real), GetParam().partialDocument);
}

const char kBothListsWritten[] =
    R"({ "AdvancedRule": { "EnforceList": { "IPList": [ "10.0.0.0\/8", "fd00::\/8" ], )"
    R"("ProcessNames": "a.exe", "DomainLists": "*.example.com" }, )"
    R"("WhiteList": { "IPList": [ "203.0.113.7" ], "VPNDescList": [ "VPN \"Main\"" ], )"
    R"("DomainLists": "ok.example.com", "ProcessNames": "b.exe" })";

INSTANTIATE_TEST_SUITE_P(
    AdvancedRuleTest, AdvancedRuleWriteFailureTest,
    ::testing::Values(
        WriteFailure{L"AdvancedRule",
                     nullptr,
                     {L"JSONManager: required element pointer is NULL. element: AdvancedRule"},
                     "{ }"},
        WriteFailure{L"EnforceList",
                     nullptr,
                     {L"JSONManager: required element pointer is NULL. element: EnforceList",
                      L"JSONManager: write optional element failed. element:EnforceList"},
                     R"({ "AdvancedRule": { } })"},
        WriteFailure{nullptr,
                     L"StringValue",
                     {L"JSONManager: write required string Attribute failed. "
                      L"element:IPListArray, attr:StringValue",
                      L"JSONManager: write none to multiple element failed. element:IPListArray",
                      L"JSONManager: write optional element failed. element:IPList",
                      L"JSONManager: write optional element failed. element:EnforceList"},
                     R"({ "AdvancedRule": { "EnforceList": { "IPList": [ ] } } })"},
        WriteFailure{
            L"VPNDescList",
            nullptr,
            {L"JSONManager: required element pointer is NULL. element: VPNDescList",
             L"JSONManager: write optional element failed. element:VPNDescList",
             L"JSONManager: write optional element failed. element:WhiteList"},
            R"({ "AdvancedRule": { "EnforceList": { "IPList": [ "10.0.0.0\/8", "fd00::\/8" ], "ProcessNames": "a.exe", "DomainLists": "*.example.com" }, "WhiteList": { "IPList": [ "203.0.113.7" ] } } })"},
        WriteFailure{nullptr,
                     L"EnforceProxyServer",
                     {L"JSONManager: write optional DWORD Attribute failed. "
                      L"element:AdvancedRule, attr:EnforceProxyServer"},
                     std::string(kBothListsWritten) + " } }"},
        WriteFailure{nullptr,
                     L"BypassPrivateIP",
                     {L"JSONManager: write optional DWORD Attribute failed. "
                      L"element:AdvancedRule, attr:BypassPrivateIP"},
                     std::string(kBothListsWritten) + ", \"EnforceProxyServer\": 1 } }"},
        WriteFailure{nullptr,
                     L"BypassLocalIP",
                     {L"JSONManager: write optional DWORD Attribute failed. "
                      L"element:AdvancedRule, attr:BypassLocalIP"},
                     std::string(kBothListsWritten) +
                         ", \"EnforceProxyServer\": 1, \"BypassPrivateIP\": 0 } }"}));

TEST_F(AdvancedRuleTest, ReadsEveryMember) {
    ReadFrom(kFullRule);
    IEnforceList* enforce = nullptr;
    IWhiteList* white = nullptr;
    ASSERT_EQ(rule->GetEnforceList(&enforce), ZELT_SUCCESS);
    ASSERT_EQ(rule->GetWhiteList(&white), ZELT_SUCCESS);
    EXPECT_EQ(AddressesOf(*enforce), (Values{L"10.0.0.0/8", L"fd00::/8"}));
    EXPECT_EQ(AddressesOf(*white), Values{L"203.0.113.7"});
    EXPECT_EQ(VPNsOf(*white), Values{L"VPN \"Main\""});
    std::wstring text;
    EXPECT_EQ(enforce->GetProcessNames(&text), ZELT_SUCCESS);
    EXPECT_EQ(text, L"a.exe");
    EXPECT_EQ(white->GetDomainLists(&text), ZELT_SUCCESS);
    EXPECT_EQ(text, L"ok.example.com");
    DWORD value = 0;
    EXPECT_EQ(rule->GetEnforceProxyServer(&value), ZELT_SUCCESS);
    EXPECT_EQ(value, 1u);
    EXPECT_EQ(rule->GetBypassPrivateIP(&value), ZELT_SUCCESS);
    EXPECT_EQ(value, 0u);
    EXPECT_EQ(rule->GetBypassLocalIP(&value), ZELT_SUCCESS);
    EXPECT_EQ(value, 4294967295u);
    EXPECT_TRUE(capture.Messages().empty());
    EXPECT_EQ(WrittenText(*rule), kFullRule);
}

TEST_F(AdvancedRuleTest, EmptyObjectReadsWithEverythingAbsentAndWritesBackEmpty) {
    Fill();
    ReadFrom(R"({ "AdvancedRule": { } })");
    ExpectCleared();
    EXPECT_EQ(WrittenText(*rule), R"({ "AdvancedRule": { } })");
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(AdvancedRuleTest, NullMembersAreAbsentAndTheReadSucceeds) {
    ReadFrom(
        R"({ "AdvancedRule": { "EnforceList": null, "WhiteList": null, "EnforceProxyServer": null, "BypassPrivateIP": 1 } })");
    IEnforceList* enforce = nullptr;
    EXPECT_EQ(rule->GetEnforceList(&enforce), ZELT_NOT_PRESENT);
    DWORD value = 12345;
    EXPECT_EQ(rule->GetEnforceProxyServer(&value), ZELT_NOT_PRESENT);
    EXPECT_EQ(rule->GetBypassPrivateIP(&value), ZELT_SUCCESS);
    EXPECT_EQ(value, 1u);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(AdvancedRuleTest, NonIntegerSwitchesReadAsTheManagerConvertsThem) {
    ReadFrom(
        R"({ "AdvancedRule": { "EnforceProxyServer": true, "BypassPrivateIP": "3x", "BypassLocalIP": { } } })");
    DWORD value = 12345;
    EXPECT_EQ(rule->GetEnforceProxyServer(&value), ZELT_SUCCESS);
    EXPECT_EQ(value, 1u);
    EXPECT_EQ(rule->GetBypassPrivateIP(&value), ZELT_SUCCESS);
    EXPECT_EQ(value, 3u);
    EXPECT_EQ(rule->GetBypassLocalIP(&value), ZELT_SUCCESS);
    EXPECT_EQ(value, 0u);
}

TEST_F(AdvancedRuleTest, ASwitchMissingFromTheDocumentIsAbsentAfterTheRead) {
    Fill();
    ReadFrom(R"({ "AdvancedRule": { "BypassLocalIP": 2 } })");
    DWORD value = 12345;
    EXPECT_EQ(rule->GetBypassPrivateIP(&value), ZELT_NOT_PRESENT);
    EXPECT_EQ(rule->GetEnforceProxyServer(&value), ZELT_NOT_PRESENT);
    EXPECT_EQ(value, 12345u);
}

TEST_F(AdvancedRuleTest, ReadEmptiesChildrenHiddenBeforeIt) {
    Fill();
    IWhiteList* white = nullptr;
    ASSERT_EQ(rule->GetWhiteList(&white), ZELT_SUCCESS);
    rule->SetWhiteList(nullptr);
    ReadFrom(R"({ "AdvancedRule": { } })");
    EXPECT_EQ(VPNsOf(*white), Values{L"<absent>"});
    std::wstring out;
    EXPECT_EQ(white->GetProcessNames(&out), ZELT_NOT_PRESENT);
}

TEST_F(AdvancedRuleTest, ReadWithoutManagerFailsAndKeepsTheElement) {
    Fill();
    EXPECT_EQ(rule->ReadFromJSONMgr(nullptr, nullptr), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: ReadFromJSONMgr require xmlmanager pointer is NULL."});
    EXPECT_EQ(WrittenText(*rule), kFullRule);
}

struct ReadFailure {
    const char* name;
    const char* document;
    Messages messages;
};

// Printed as the failure it describes, so that test names stay the same
// from run to run.
void PrintTo(const ReadFailure& failure, std::ostream* out) { *out << failure.name; }

class AdvancedRuleReadFailureTest : public AdvancedRuleTest,
                                    public ::testing::WithParamInterface<ReadFailure> {};

TEST_P(AdvancedRuleReadFailureTest, FailingChildLeavesTheWholeElementCleared) {
    Fill();
    EXPECT_EQ(ReadFromText(GetParam().document), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(), GetParam().messages);
    ExpectCleared();
}

INSTANTIATE_TEST_SUITE_P(
    AdvancedRuleTest, AdvancedRuleReadFailureTest,
    ::testing::Values(
        ReadFailure{
            "NumberInEnforceIPList",
            R"({ "AdvancedRule": { "EnforceList": { "IPList": [ "1.1.1.1", 7 ] }, "EnforceProxyServer": 1 } })",
            {L"JSONManager: read required String Attribute failed. element:IPListArray, "
             L"attr:StringValue",
             L"JSONManager: read  multiple element failed. element:IPListArray",
             L"JSONManager: read  optional element failed. element:IPList",
             L"JSONManager: read  optional element failed. element:EnforceList"}},
        ReadFailure{"EnforceIPListIsAString",
                    R"({ "AdvancedRule": { "EnforceList": { "IPList": "1.1.1.1" } } })",
                    {L"JSONManager: read  multiple element failed. element:IPListArray",
                     L"JSONManager: read  optional element failed. element:IPList",
                     L"JSONManager: read  optional element failed. element:EnforceList"}},
        ReadFailure{
            "NullVPNDescItem",
            R"({ "AdvancedRule": { "EnforceList": { }, "WhiteList": { "VPNDescList": [ null ] }, "BypassLocalIP": 1 } })",
            {L"JSONManager: read  multiple element failed. element:VPNDescListArray",
             L"JSONManager: read  optional element failed. element:VPNDescList",
             L"JSONManager: read  optional element failed. element:WhiteList"}}));

TEST_F(AdvancedRuleTest, CopyFromMakesAnIndependentCopy) {
    Fill();
    rule->ElementType = 6;
    ElementPtr<IAdvancedRule> copy(AdvancedRule_CreateNewInstance());
    EXPECT_EQ(&copy->CopyFrom(*rule), copy.get());
    EXPECT_EQ(copy->GetElementType(), 0u);

    IEnforceList* sourceEnforce = nullptr;
    ASSERT_EQ(rule->GetEnforceList(&sourceEnforce), ZELT_SUCCESS);
    IIPList* sourceAddresses = nullptr;
    ASSERT_EQ(sourceEnforce->GetIPList(&sourceAddresses), ZELT_SUCCESS);
    sourceAddresses->RemoveItem(0);
    rule->SetBypassLocalIP(nullptr);
    rule->SetWhiteList(nullptr);

    EXPECT_EQ(WrittenText(*copy), kFullRule);
}

TEST_F(AdvancedRuleTest, CopyFromCarriesHiddenChildrenAlong) {
    Fill();
    rule->SetEnforceList(nullptr);

    ElementPtr<IAdvancedRule> copy(AdvancedRule_CreateNewInstance());
    copy->SetEnforceList(MakeEnforceList({L"old"}, L"old", L"old").get());
    IEnforceList* copiedEnforce = nullptr;
    ASSERT_EQ(copy->GetEnforceList(&copiedEnforce), ZELT_SUCCESS);

    copy->CopyFrom(*rule);
    IEnforceList* out = nullptr;
    EXPECT_EQ(copy->GetEnforceList(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(AddressesOf(*copiedEnforce), (Values{L"10.0.0.0/8", L"fd00::/8"}));
    copy->SetEnforceList(copiedEnforce);
    EXPECT_EQ(WrittenText(*copy), kFullRule);
}

TEST_F(AdvancedRuleTest, CopyFromItselfChangesNothing) {
    Fill();
    rule->CopyFrom(*rule);
    EXPECT_EQ(WrittenText(*rule), kFullRule);
}

TEST_F(AdvancedRuleTest, CopyFromAClearedElementClearsTheTarget) {
    Fill();
    ElementPtr<IAdvancedRule> cleared(AdvancedRule_CreateNewInstance());
    rule->CopyFrom(*cleared);
    ExpectCleared();
}

}  // namespace
