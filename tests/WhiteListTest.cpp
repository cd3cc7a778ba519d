// Tests of WhiteList: its address list, its VPN description list and its two
// strings (in the reverse order of EnforceList's), writing, reading, copying
// and the messages of every failure.
#include "support/ElementTesting.h"
#include "support/InterceptingManager.h"
#include "support/MessageCapture.h"
#include "support/VirtualSlot.h"

#include <zelt/zelt.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace VextorJSConfig;

namespace {

using WhiteListPtr = std::unique_ptr<IWhiteList>;
using IPListPtr = std::unique_ptr<IIPList>;
using VPNDescListPtr = std::unique_ptr<IVPNDescList>;
using Values = std::vector<std::wstring>;

WhiteListPtr NewWhiteList() { return WhiteListPtr(WhiteList_CreateNewInstance()); }

Values IPListValues(IWhiteList& element) {
    IIPList* list = nullptr;
    EXPECT_EQ(element.GetIPList(&list), ZELT_SUCCESS);
    return list != nullptr ? ListValues(*list) : Values{L"(absent)"};
}

Values VPNDescListValues(IWhiteList& element) {
    IVPNDescList* list = nullptr;
    EXPECT_EQ(element.GetVPNDescList(&list), ZELT_SUCCESS);
    return list != nullptr ? ListValues(*list) : Values{L"(absent)"};
}

WhiteListPtr FilledWhiteList() {
    WhiteListPtr element = NewWhiteList();
    element->SetIPList(MakeIPList({L"value-1", L"value-2"}).get());
    element->SetVPNDescList(MakeVPNDescList({L"value-1"}).get());
    const std::wstring domains = L"domains-text", names = L"names-text";
    element->SetDomainLists(&domains);
    element->SetProcessNames(&names);
    return element;
}

const char* const kFilledText =
    "{ \"WhiteList\": { \"IPList\": [ \"value-1\", \"value-2\" ], \"VPNDescList\": [ "
    "\"value-1\" ], \"DomainLists\": \"domains-text\", \"ProcessNames\": \"names-text\" } }";

void ExpectAllAbsent(IWhiteList& element) {
    IPListPtr ipMarker = MakeIPList({});
    VPNDescListPtr vpnMarker = MakeVPNDescList({});
    IIPList* ipList = ipMarker.get();
    IVPNDescList* vpnList = vpnMarker.get();
    std::wstring text = L"untouched";
    EXPECT_EQ(element.GetElementType(), ELEMENT_TYPE_ORDINARY);
    EXPECT_EQ(element.GetIPList(&ipList), ZELT_NOT_PRESENT);
    EXPECT_EQ(element.GetVPNDescList(&vpnList), ZELT_NOT_PRESENT);
    EXPECT_EQ(element.GetDomainLists(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(element.GetProcessNames(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(ipList, ipMarker.get());
    EXPECT_EQ(vpnList, vpnMarker.get());
    EXPECT_EQ(text, L"untouched");
}

void ExpectSameMembers(IWhiteList& a, IWhiteList& b) {
    IIPList* ipA = nullptr;
    IIPList* ipB = nullptr;
    ASSERT_EQ(a.GetIPList(&ipA), b.GetIPList(&ipB));
    if (ipA != nullptr) {
        EXPECT_EQ(ListValues(*ipA), ListValues(*ipB));
    }
    IVPNDescList* vpnA = nullptr;
    IVPNDescList* vpnB = nullptr;
    ASSERT_EQ(a.GetVPNDescList(&vpnA), b.GetVPNDescList(&vpnB));
    if (vpnA != nullptr) {
        EXPECT_EQ(ListValues(*vpnA), ListValues(*vpnB));
    }
    std::wstring sa = L"unset", sb = L"unset";
    EXPECT_EQ(a.GetDomainLists(&sa), b.GetDomainLists(&sb));
    EXPECT_EQ(sa, sb);
    EXPECT_EQ(a.GetProcessNames(&sa), b.GetProcessNames(&sb));
    EXPECT_EQ(sa, sb);
}

int ReadFromText(IWhiteList& element, const std::string& text) {
    return ReadFromDocument(element, text, L"WhiteList");
}

std::string Document(const std::string& members) {
    return "{ \"WhiteList\": { " + members + " } }";
}

}  // namespace

TEST(WhiteListTest, VirtualSlotsAreInContractOrder) {
    EXPECT_EQ(VirtualSlotOf(&IWhiteList::WriteToJSONMgr), 1);
    EXPECT_EQ(VirtualSlotOf(&IWhiteList::ReadFromJSONMgr), 2);
    EXPECT_EQ(VirtualSlotOf(&IWhiteList::Clear), 3);
    EXPECT_EQ(VirtualSlotOf(&IWhiteList::CopyFrom), 4);
    EXPECT_EQ(VirtualSlotOf(&IWhiteList::GetElementType), 5);
    EXPECT_EQ(VirtualSlotOf(&IWhiteList::GetIPList), 6);
    EXPECT_EQ(VirtualSlotOf(&IWhiteList::SetIPList), 7);
    EXPECT_EQ(VirtualSlotOf(&IWhiteList::GetVPNDescList), 8);
    EXPECT_EQ(VirtualSlotOf(&IWhiteList::SetVPNDescList), 9);
    EXPECT_EQ(VirtualSlotOf(&IWhiteList::GetDomainLists), 10);
    EXPECT_EQ(VirtualSlotOf(&IWhiteList::SetDomainLists), 11);
    EXPECT_EQ(VirtualSlotOf(&IWhiteList::GetProcessNames), 12);
    EXPECT_EQ(VirtualSlotOf(&IWhiteList::SetProcessNames), 13);
}

TEST(WhiteListTest, FactoryGivesAnElementWithEveryMemberAbsent) {
    WhiteListPtr element = NewWhiteList();
    EXPECT_EQ(element->ElementType, 0u);
    ExpectAllAbsent(*element);
}

TEST(WhiteListTest, StringAccessorsFollowTheOptionalStringRules) {
    MessageCapture capture;
    WhiteListPtr element = FilledWhiteList();
    std::wstring text;
    EXPECT_EQ(element->GetDomainLists(&text), ZELT_SUCCESS);
    EXPECT_EQ(text, L"domains-text");
    EXPECT_EQ(element->GetProcessNames(&text), ZELT_SUCCESS);
    EXPECT_EQ(text, L"names-text");
    element->SetDomainLists(nullptr);
    element->SetProcessNames(nullptr);
    text = L"untouched";
    EXPECT_EQ(element->GetDomainLists(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(element->GetProcessNames(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(text, L"untouched");
    EXPECT_TRUE(capture.Messages().empty());
}

TEST(WhiteListTest, ListGettersGiveTheEmbeddedListsThemselves) {
    WhiteListPtr element = FilledWhiteList();
    IIPList* ipList = nullptr;
    IVPNDescList* vpnList = nullptr;
    ASSERT_EQ(element->GetIPList(&ipList), ZELT_SUCCESS);
    ASSERT_EQ(element->GetVPNDescList(&vpnList), ZELT_SUCCESS);
    ipList->RemoveItem(0);
    vpnList->AddItem(vpnList->GetItem(0));
    EXPECT_EQ(WrittenText(*element),
              "{ \"WhiteList\": { \"IPList\": [ \"value-2\" ], \"VPNDescList\": [ \"value-1\", "
              "\"value-1\" ], \"DomainLists\": \"domains-text\", \"ProcessNames\": \"names-text\" "
              "} }");
}

TEST(WhiteListTest, ListSettersStoreCopies) {
    WhiteListPtr element = NewWhiteList();
    IPListPtr ipSource = MakeIPList({L"a"});
    VPNDescListPtr vpnSource = MakeVPNDescList({L"vpn"});
    element->SetIPList(ipSource.get());
    element->SetVPNDescList(vpnSource.get());
    ipSource.reset();
    vpnSource->RemoveAllItems();
    EXPECT_EQ(IPListValues(*element), Values{L"a"});
    EXPECT_EQ(VPNDescListValues(*element), Values{L"vpn"});
}

TEST(WhiteListTest, ListSettersWithNullHideTheListsButKeepTheirEntries) {
    WhiteListPtr element = FilledWhiteList();
    IIPList* ipList = nullptr;
    IVPNDescList* vpnList = nullptr;
    ASSERT_EQ(element->GetIPList(&ipList), ZELT_SUCCESS);
    ASSERT_EQ(element->GetVPNDescList(&vpnList), ZELT_SUCCESS);
    element->SetIPList(nullptr);
    element->SetVPNDescList(nullptr);
    EXPECT_EQ(WrittenText(*element),
              "{ \"WhiteList\": { \"DomainLists\": \"domains-text\", \"ProcessNames\": "
              "\"names-text\" } }");
    element->SetVPNDescList(vpnList);
    EXPECT_EQ(VPNDescListValues(*element), Values{L"value-1"});
    element->SetIPList(ipList);
    EXPECT_EQ(WrittenText(*element), kFilledText);
}

TEST(WhiteListTest, CopyFromCarriesHiddenListsAlongWithTheirFlags) {
    WhiteListPtr source = FilledWhiteList();
    source->SetIPList(nullptr);
    source->SetVPNDescList(nullptr);
    WhiteListPtr copy = NewWhiteList();
    copy->SetIPList(MakeIPList({L"other"}).get());
    copy->SetVPNDescList(MakeVPNDescList({L"other"}).get());
    IIPList* ipList = nullptr;
    IVPNDescList* vpnList = nullptr;
    ASSERT_EQ(copy->GetIPList(&ipList), ZELT_SUCCESS);
    ASSERT_EQ(copy->GetVPNDescList(&vpnList), ZELT_SUCCESS);

    copy->CopyFrom(*source);
    ExpectSameMembers(*copy, *source);
    copy->SetIPList(ipList);
    copy->SetVPNDescList(vpnList);
    EXPECT_EQ(IPListValues(*copy), (Values{L"value-1", L"value-2"}));
    EXPECT_EQ(VPNDescListValues(*copy), Values{L"value-1"});
}

TEST(WhiteListTest, ClearEmptiesBothListsAndTheStrings) {
    WhiteListPtr element = FilledWhiteList();
    IIPList* ipList = nullptr;
    IVPNDescList* vpnList = nullptr;
    ASSERT_EQ(element->GetIPList(&ipList), ZELT_SUCCESS);
    ASSERT_EQ(element->GetVPNDescList(&vpnList), ZELT_SUCCESS);
    element->ElementType = 3;
    element->Clear();
    ExpectAllAbsent(*element);
    EXPECT_EQ(ipList->GetItemCount(), 0u);
    EXPECT_EQ(vpnList->GetItemCount(), 0u);
}

TEST(WhiteListTest, WritingAFilledElementWritesDomainListsBeforeProcessNames) {
    WhiteListPtr element = FilledWhiteList();
    EXPECT_EQ(WrittenText(*element), kFilledText);
}

TEST(WhiteListTest, WritingAnEmptyElementWritesAnEmptyObject) {
    WhiteListPtr element = NewWhiteList();
    EXPECT_EQ(WrittenText(*element), "{ \"WhiteList\": { } }");
    element->SetIPList(MakeIPList({}).get());
    element->SetVPNDescList(MakeVPNDescList({}).get());
    EXPECT_EQ(WrittenText(*element), "{ \"WhiteList\": { } }");
}

TEST(WhiteListTest, WriteWithoutManagerOrOwnObjectFails) {
    MessageCapture capture;
    WhiteListPtr element = FilledWhiteList();
    EXPECT_EQ(element->WriteToJSONMgr(nullptr, nullptr, 1), ZELT_FAILED);
    ManagerPtr mgr = NewManager();
    EXPECT_EQ(element->WriteToJSONMgr(mgr.get(), nullptr, 1), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              (Messages{L"JSONManager: WriteToJSONMgr require xmlmanager pointer is NULL.",
                        L"JSONManager: required element pointer is NULL. element: WhiteList"}));
}

TEST(WhiteListTest, FailingListWritesAreReportedByEachLevel) {
    struct Case {
        int failingStringWrite;
        Messages messages;
        const char* partial;
    };
    const Case cases[] = {
        {2,
         {L"JSONManager: write required string Attribute failed. element:IPListArray, "
          L"attr:StringValue",
          L"JSONManager: write none to multiple element failed. element:IPListArray",
          L"JSONManager: write optional element failed. element:IPList"},
         "{ \"WhiteList\": { \"IPList\": [ \"value-1\" ] } }"},
        {3,
         {L"JSONManager: write required string Attribute failed. element:VPNDescListArray, "
          L"attr:StringValue",
          L"JSONManager: write none to multiple element failed. element:VPNDescListArray",
          L"JSONManager: write optional element failed. element:VPNDescList"},
         "{ \"WhiteList\": { \"IPList\": [ \"value-1\", \"value-2\" ], \"VPNDescList\": [ ] } }"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.failingStringWrite);
        MessageCapture capture;
        WhiteListPtr element = FilledWhiteList();
        InterceptingManager mgr(ManagerWithEmptyDocument());
        mgr.failingStringWrite = c.failingStringWrite;
        EXPECT_EQ(element->WriteToJSONMgr(&mgr, mgr.GetRootElement(), 1), ZELT_FAILED);
        EXPECT_EQ(capture.Messages(), c.messages);
        EXPECT_EQ(SavedText(mgr), c.partial);
    }
}

TEST(WhiteListTest, AVPNDescListWhoseArrayIsNotCreatedFailsTheWrite) {
    MessageCapture capture;
    WhiteListPtr element = FilledWhiteList();
    InterceptingManager mgr(ManagerWithEmptyDocument());
    mgr.refusedElements.insert(L"VPNDescList");
    EXPECT_EQ(element->WriteToJSONMgr(&mgr, mgr.GetRootElement(), 1), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              (Messages{L"JSONManager: required element pointer is NULL. element: VPNDescList",
                        L"JSONManager: write optional element failed. element:VPNDescList"}));
}

TEST(WhiteListTest, EachFailingStringWriteGivesItsMessage) {
    struct Case {
        const wchar_t* key;
        const wchar_t* message;
        const char* partial;
    };
    const Case cases[] = {
        {L"DomainLists",
         L"JSONManager: write required string Attribute failed. element:WhiteList, "
         L"attr:DomainLists",
         "{ \"WhiteList\": { \"IPList\": [ \"value-1\", \"value-2\" ], \"VPNDescList\": [ "
         "\"value-1\" ] } }"},
        {L"ProcessNames",
         L"JSONManager: write required string Attribute failed. element:WhiteList, "
         L"attr:ProcessNames",
         "{ \"WhiteList\": { \"IPList\": [ \"value-1\", \"value-2\" ], \"VPNDescList\": [ "
         "\"value-1\" ], \"DomainLists\": \"domains-text\" } }"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(Narrow(c.key));
        MessageCapture capture;
        WhiteListPtr element = FilledWhiteList();
        InterceptingManager mgr(ManagerWithEmptyDocument());
        mgr.failingAttributes.insert(c.key);
        EXPECT_EQ(element->WriteToJSONMgr(&mgr, mgr.GetRootElement(), 1), ZELT_FAILED);
        EXPECT_EQ(capture.Messages(), Messages{c.message});
        EXPECT_EQ(SavedText(mgr), c.partial);
    }
}

TEST(WhiteListTest, AnEmptyObjectReadsWithEveryMemberAbsent) {
    MessageCapture capture;
    WhiteListPtr element = FilledWhiteList();
    EXPECT_EQ(ReadFromText(*element, "{ \"WhiteList\": { } }"), ZELT_SUCCESS);
    ExpectAllAbsent(*element);
    EXPECT_EQ(WrittenText(*element), "{ \"WhiteList\": { } }");
    EXPECT_TRUE(capture.Messages().empty());
}

TEST(WhiteListTest, AFullObjectReadsEveryMember) {
    WhiteListPtr element = NewWhiteList();
    ASSERT_EQ(ReadFromText(*element, kFilledText), ZELT_SUCCESS);
    ExpectSameMembers(*element, *FilledWhiteList());
}

TEST(WhiteListTest, MembersInAnotherOrderReadTheSame) {
    WhiteListPtr element = NewWhiteList();
    ASSERT_EQ(ReadFromText(*element, Document("\"ProcessNames\": \"names-text\", \"DomainLists\": "
                                              "\"domains-text\", \"VPNDescList\": [ { "
                                              "\"StringValue\": \"value-1\" } ], \"IPList\": [ "
                                              "\"value-1\", \"value-2\" ]")),
              ZELT_SUCCESS);
    ExpectSameMembers(*element, *FilledWhiteList());
}

TEST(WhiteListTest, MembersAreLookedUpInOrder) {
    WhiteListPtr element = NewWhiteList();
    InterceptingManager mgr(ManagerWithText(Document("")));
    ASSERT_EQ(element->ReadFromJSONMgr(&mgr, mgr.Inner().GetElement(nullptr, L"WhiteList")),
              ZELT_SUCCESS);
    EXPECT_EQ(mgr.calls, (std::vector<std::wstring>{L"GetElement IPList", L"GetElement VPNDescList",
                                                    L"GetStringAttribute DomainLists",
                                                    L"GetStringAttribute ProcessNames"}));
}

TEST(WhiteListTest, EmptyListsReadPresentButDoNotSurviveAWrite) {
    WhiteListPtr element = NewWhiteList();
    ASSERT_EQ(ReadFromText(*element, Document("\"IPList\": [ ], \"VPNDescList\": [ ]")),
              ZELT_SUCCESS);
    EXPECT_EQ(IPListValues(*element), Values{});
    EXPECT_EQ(VPNDescListValues(*element), Values{});
    const std::string written = WrittenText(*element);
    EXPECT_EQ(written, "{ \"WhiteList\": { } }");
    ASSERT_EQ(ReadFromText(*element, written), ZELT_SUCCESS);
    ExpectAllAbsent(*element);
}

TEST(WhiteListTest, UnreadableListsFailTheReadAndClearTheElement) {
    struct Case {
        const char* members;
        Messages messages;
    };
    const Case cases[] = {
        {"\"IPList\": \"value\", \"DomainLists\": \"d\"",
         {L"JSONManager: read  multiple element failed. element:IPListArray",
          L"JSONManager: read  optional element failed. element:IPList"}},
        {"\"IPList\": [ \"a\" ], \"VPNDescList\": { \"StringValue\": \"v\" }",
         {L"JSONManager: read  multiple element failed. element:VPNDescListArray",
          L"JSONManager: read  optional element failed. element:VPNDescList"}},
        {"\"IPList\": [ \"a\" ], \"VPNDescList\": [ \"v\", false ], \"ProcessNames\": \"p\"",
         {L"JSONManager: read required String Attribute failed. element:VPNDescListArray, "
          L"attr:StringValue",
          L"JSONManager: read  multiple element failed. element:VPNDescListArray",
          L"JSONManager: read  optional element failed. element:VPNDescList"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.members);
        MessageCapture capture;
        WhiteListPtr element = FilledWhiteList();
        EXPECT_EQ(ReadFromText(*element, Document(c.members)), ZELT_FAILED);
        ExpectAllAbsent(*element);
        EXPECT_EQ(capture.Messages(), c.messages);
    }
}

TEST(WhiteListTest, StringsOfAnotherKindOrMissingNeverFailTheRead) {
    MessageCapture capture;
    WhiteListPtr element = FilledWhiteList();
    ASSERT_EQ(ReadFromText(*element, Document("\"DomainLists\": [ 1, 2 ]")), ZELT_SUCCESS);
    std::wstring text = L"untouched";
    EXPECT_EQ(element->GetProcessNames(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(element->GetDomainLists(&text), ZELT_SUCCESS);
    EXPECT_EQ(text, L"[ 1, 2 ]");
    EXPECT_TRUE(capture.Messages().empty());
}

TEST(WhiteListTest, ReadWithoutManagerFailsAndKeepsTheElement) {
    MessageCapture capture;
    WhiteListPtr element = FilledWhiteList();
    EXPECT_EQ(element->ReadFromJSONMgr(nullptr, nullptr), ZELT_FAILED);
    ExpectSameMembers(*element, *FilledWhiteList());
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: ReadFromJSONMgr require xmlmanager pointer is NULL."});
}

TEST(WhiteListTest, LongStringsAreReadWhole) {
    for (std::size_t length : {1023u, 1024u, 2000u, 5000u}) {
        SCOPED_TRACE(length);
        WhiteListPtr source = FilledWhiteList();
        const std::wstring names = LongText(length), domains = LongText(length + 1);
        source->SetProcessNames(&names);
        source->SetDomainLists(&domains);
        source->SetVPNDescList(MakeVPNDescList({LongText(length + 2), L"x"}).get());
        WhiteListPtr read = NewWhiteList();
        ASSERT_EQ(ReadFromText(*read, WrittenText(*source)), ZELT_SUCCESS);
        ExpectSameMembers(*read, *source);
    }
}

TEST(WhiteListTest, WriteSaveImportAndReadGiveTheSameElement) {
    TempDir dir;
    const std::string path = dir.File("white.json");
    WhiteListPtr source = FilledWhiteList();
    ManagerPtr written = ManagerWithEmptyDocument();
    ASSERT_EQ(source->WriteToJSONMgr(written.get(), written->GetRootElement(), 1), ZELT_SUCCESS);
    ASSERT_EQ(written->SaveToJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    ManagerPtr imported = NewManager();
    ASSERT_EQ(imported->ImportFromJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    WhiteListPtr read = NewWhiteList();
    ASSERT_EQ(read->ReadFromJSONMgr(imported.get(), imported->GetElement(nullptr, L"WhiteList")),
              ZELT_SUCCESS);
    ExpectSameMembers(*read, *source);
}

TEST(WhiteListTest, CopyFromGivesAnIndependentCopy) {
    WhiteListPtr source = FilledWhiteList();
    WhiteListPtr copy = NewWhiteList();
    EXPECT_EQ(&copy->CopyFrom(*source), copy.get());
    ExpectSameMembers(*copy, *source);
    IVPNDescList* vpnList = nullptr;
    ASSERT_EQ(copy->GetVPNDescList(&vpnList), ZELT_SUCCESS);
    vpnList->RemoveItem(0);
    copy->SetDomainLists(nullptr);
    ExpectSameMembers(*source, *FilledWhiteList());
    source.reset();
    EXPECT_EQ(VPNDescListValues(*copy), Values{});
    EXPECT_EQ(IPListValues(*copy), (Values{L"value-1", L"value-2"}));
}

TEST(WhiteListTest, CopyFromItselfOrFromAnEmptyElement) {
    WhiteListPtr element = FilledWhiteList();
    EXPECT_EQ(&element->CopyFrom(*element), element.get());
    ExpectSameMembers(*element, *FilledWhiteList());
    element->CopyFrom(*NewWhiteList());
    ExpectAllAbsent(*element);
}
