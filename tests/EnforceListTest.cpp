// Tests of EnforceList: its address list and its two strings, their presence
// flags, writing, reading, copying and the messages of every failure.
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

using EnforceListPtr = std::unique_ptr<IEnforceList>;
using IPListPtr = std::unique_ptr<IIPList>;
using Values = std::vector<std::wstring>;

EnforceListPtr NewEnforceList() { return EnforceListPtr(EnforceList_CreateNewInstance()); }

// The entries of the element's address list, which must be present.
Values IPListValues(IEnforceList& element) {
    IIPList* list = nullptr;
    EXPECT_EQ(element.GetIPList(&list), ZELT_SUCCESS);
    return list != nullptr ? ListValues(*list) : Values{L"(absent)"};
}

EnforceListPtr FilledEnforceList() {
    EnforceListPtr element = NewEnforceList();
    element->SetIPList(MakeIPList({L"10.0.0.1", L"10.0.0.0/8"}).get());
    const std::wstring names = L"a.exe;b.exe", domains = L"example.com;example.org";
    element->SetProcessNames(&names);
    element->SetDomainLists(&domains);
    return element;
}

const char* const kFilledText =
    "{ \"EnforceList\": { \"IPList\": [ \"10.0.0.1\", \"10.0.0.0\\/8\" ], \"ProcessNames\": "
    "\"a.exe;b.exe\", \"DomainLists\": \"example.com;example.org\" } }";

void ExpectAllAbsent(IEnforceList& element) {
    // A getter of an absent member leaves its output alone.
    IPListPtr marker = MakeIPList({});
    IIPList* list = marker.get();
    std::wstring text = L"untouched";
    EXPECT_EQ(element.GetElementType(), ELEMENT_TYPE_ORDINARY);
    EXPECT_EQ(element.GetIPList(&list), ZELT_NOT_PRESENT);
    EXPECT_EQ(list, marker.get());
    EXPECT_EQ(element.GetProcessNames(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(element.GetDomainLists(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(text, L"untouched");
}

void ExpectSameMembers(IEnforceList& a, IEnforceList& b) {
    IIPList* la = nullptr;
    IIPList* lb = nullptr;
    ASSERT_EQ(a.GetIPList(&la), b.GetIPList(&lb));
    if (la != nullptr) {
        EXPECT_EQ(ListValues(*la), ListValues(*lb));
    }
    std::wstring sa = L"unset", sb = L"unset";
    EXPECT_EQ(a.GetProcessNames(&sa), b.GetProcessNames(&sb));
    EXPECT_EQ(sa, sb);
    EXPECT_EQ(a.GetDomainLists(&sa), b.GetDomainLists(&sb));
    EXPECT_EQ(sa, sb);
}

int ReadFromText(IEnforceList& element, const std::string& text) {
    return ReadFromDocument(element, text, L"EnforceList");
}

std::string Document(const std::string& members) {
    return "{ \"EnforceList\": { " + members + " } }";
}

}  // namespace

TEST(EnforceListTest, VirtualSlotsAreInContractOrder) {
    EXPECT_EQ(VirtualSlotOf(&IEnforceList::WriteToJSONMgr), 1);
    EXPECT_EQ(VirtualSlotOf(&IEnforceList::ReadFromJSONMgr), 2);
    EXPECT_EQ(VirtualSlotOf(&IEnforceList::Clear), 3);
    EXPECT_EQ(VirtualSlotOf(&IEnforceList::CopyFrom), 4);
    EXPECT_EQ(VirtualSlotOf(&IEnforceList::GetElementType), 5);
    EXPECT_EQ(VirtualSlotOf(&IEnforceList::GetIPList), 6);
    EXPECT_EQ(VirtualSlotOf(&IEnforceList::SetIPList), 7);
    EXPECT_EQ(VirtualSlotOf(&IEnforceList::GetProcessNames), 8);
    EXPECT_EQ(VirtualSlotOf(&IEnforceList::SetProcessNames), 9);
    EXPECT_EQ(VirtualSlotOf(&IEnforceList::GetDomainLists), 10);
    EXPECT_EQ(VirtualSlotOf(&IEnforceList::SetDomainLists), 11);
}

TEST(EnforceListTest, FactoryGivesAnElementWithEveryMemberAbsent) {
    EnforceListPtr element = NewEnforceList();
    EXPECT_EQ(element->ElementType, 0u);
    ExpectAllAbsent(*element);
}

TEST(EnforceListTest, StringAccessorsFollowTheOptionalStringRules) {
    MessageCapture capture;
    EnforceListPtr element = FilledEnforceList();
    std::wstring text;
    EXPECT_EQ(element->GetProcessNames(&text), ZELT_SUCCESS);
    EXPECT_EQ(text, L"a.exe;b.exe");
    EXPECT_EQ(element->GetDomainLists(&text), ZELT_SUCCESS);
    EXPECT_EQ(text, L"example.com;example.org");
    element->SetProcessNames(nullptr);
    element->SetDomainLists(nullptr);
    text = L"untouched";
    EXPECT_EQ(element->GetProcessNames(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(element->GetDomainLists(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(text, L"untouched");
    const std::wstring empty;
    element->SetDomainLists(&empty);
    EXPECT_EQ(element->GetDomainLists(&text), ZELT_SUCCESS);
    EXPECT_EQ(text, L"");
    EXPECT_TRUE(capture.Messages().empty());
}

TEST(EnforceListTest, GetIPListGivesTheEmbeddedListItself) {
    EnforceListPtr element = FilledEnforceList();
    IIPList* first = nullptr;
    IIPList* second = nullptr;
    ASSERT_EQ(element->GetIPList(&first), ZELT_SUCCESS);
    ASSERT_EQ(element->GetIPList(&second), ZELT_SUCCESS);
    EXPECT_EQ(first, second);
    std::unique_ptr<IIPListArray> entry(IPListArray_CreateNewInstance());
    const std::wstring added = L"192.168.0.1";
    entry->SetStringValue(&added);
    first->AddItem(entry.get());
    first->RemoveItem(0);
    EXPECT_EQ(IPListValues(*element), (Values{L"10.0.0.0/8", L"192.168.0.1"}));
    EXPECT_EQ(
        WrittenText(*element),
        "{ \"EnforceList\": { \"IPList\": [ \"10.0.0.0\\/8\", \"192.168.0.1\" ], "
        "\"ProcessNames\": \"a.exe;b.exe\", \"DomainLists\": \"example.com;example.org\" } }");
}

TEST(EnforceListTest, SetIPListStoresACopy) {
    EnforceListPtr element = NewEnforceList();
    IPListPtr source = MakeIPList({L"a", L"b"});
    element->SetIPList(source.get());
    IIPList* embedded = nullptr;
    ASSERT_EQ(element->GetIPList(&embedded), ZELT_SUCCESS);
    EXPECT_NE(embedded, source.get());
    source->RemoveAllItems();
    source.reset();
    EXPECT_EQ(IPListValues(*element), (Values{L"a", L"b"}));
}

TEST(EnforceListTest, SetIPListWithNullHidesTheListButKeepsItsEntries) {
    MessageCapture capture;
    EnforceListPtr element = FilledEnforceList();
    IIPList* embedded = nullptr;
    ASSERT_EQ(element->GetIPList(&embedded), ZELT_SUCCESS);
    element->SetIPList(nullptr);
    IIPList* out = nullptr;
    EXPECT_EQ(element->GetIPList(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(WrittenText(*element),
              "{ \"EnforceList\": { \"ProcessNames\": \"a.exe;b.exe\", \"DomainLists\": "
              "\"example.com;example.org\" } }");
    // Handing back the pointer from before makes the same entries present.
    element->SetIPList(embedded);
    EXPECT_EQ(IPListValues(*element), (Values{L"10.0.0.1", L"10.0.0.0/8"}));
    EXPECT_EQ(WrittenText(*element), kFilledText);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST(EnforceListTest, CopyFromCarriesAHiddenListAlongWithItsFlag) {
    EnforceListPtr source = FilledEnforceList();
    source->SetIPList(nullptr);
    EnforceListPtr copy = FilledEnforceList();
    IIPList* copyList = nullptr;
    ASSERT_EQ(copy->GetIPList(&copyList), ZELT_SUCCESS);
    const std::wstring changed = L"changed";
    copyList->GetItem(0)->SetStringValue(&changed);

    copy->CopyFrom(*source);
    IIPList* out = nullptr;
    EXPECT_EQ(copy->GetIPList(&out), ZELT_NOT_PRESENT);
    copy->SetIPList(copyList);
    EXPECT_EQ(IPListValues(*copy), (Values{L"10.0.0.1", L"10.0.0.0/8"}));
}

TEST(EnforceListTest, SetIPListWithAnotherListReplacesHiddenEntries) {
    EnforceListPtr element = FilledEnforceList();
    element->SetIPList(nullptr);
    element->SetIPList(MakeIPList({L"new"}).get());
    EXPECT_EQ(IPListValues(*element), (Values{L"new"}));
}

TEST(EnforceListTest, ClearEmptiesTheListAndTheStrings) {
    EnforceListPtr element = FilledEnforceList();
    IIPList* embedded = nullptr;
    ASSERT_EQ(element->GetIPList(&embedded), ZELT_SUCCESS);
    element->ElementType = 3;
    element->Clear();
    ExpectAllAbsent(*element);
    EXPECT_EQ(embedded->GetItemCount(), 0u);
}

TEST(EnforceListTest, WritingAFilledElementWritesItsMembersInOrder) {
    EnforceListPtr element = FilledEnforceList();
    EXPECT_EQ(WrittenText(*element), kFilledText);
}

TEST(EnforceListTest, WritingAnEmptyElementWritesAnEmptyObject) {
    EnforceListPtr element = NewEnforceList();
    EXPECT_EQ(WrittenText(*element), "{ \"EnforceList\": { } }");
}

TEST(EnforceListTest, APresentButEmptyListIsLeftOut) {
    EnforceListPtr element = NewEnforceList();
    element->SetIPList(MakeIPList({}).get());
    IIPList* list = nullptr;
    EXPECT_EQ(element->GetIPList(&list), ZELT_SUCCESS);
    EXPECT_EQ(WrittenText(*element), "{ \"EnforceList\": { } }");
}

TEST(EnforceListTest, WriteWithANullParentWritesUnderTheRoot) {
    EnforceListPtr element = FilledEnforceList();
    ManagerPtr mgr = ManagerWithEmptyDocument();
    EXPECT_EQ(element->WriteToJSONMgr(mgr.get(), nullptr, 1), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*mgr), kFilledText);
}

TEST(EnforceListTest, WriteWithoutManagerOrOwnObjectFails) {
    MessageCapture capture;
    EnforceListPtr element = FilledEnforceList();
    EXPECT_EQ(element->WriteToJSONMgr(nullptr, nullptr, 1), ZELT_FAILED);
    ManagerPtr mgr = NewManager();
    EXPECT_EQ(element->WriteToJSONMgr(mgr.get(), nullptr, 1), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              (Messages{L"JSONManager: WriteToJSONMgr require xmlmanager pointer is NULL.",
                        L"JSONManager: required element pointer is NULL. element: EnforceList"}));
}

TEST(EnforceListTest, AFailingEntryWriteIsReportedByEachLevel) {
    MessageCapture capture;
    EnforceListPtr element = FilledEnforceList();
    InterceptingManager mgr(ManagerWithEmptyDocument());
    mgr.failingStringWrite = 2;
    EXPECT_EQ(element->WriteToJSONMgr(&mgr, mgr.GetRootElement(), 1), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              (Messages{L"JSONManager: write required string Attribute failed. "
                        L"element:IPListArray, attr:StringValue",
                        L"JSONManager: write none to multiple element failed. element:IPListArray",
                        L"JSONManager: write optional element failed. element:IPList"}));
    EXPECT_EQ(SavedText(mgr), "{ \"EnforceList\": { \"IPList\": [ \"10.0.0.1\" ] } }");
}

TEST(EnforceListTest, AListWhoseArrayIsNotCreatedFailsTheWrite) {
    MessageCapture capture;
    EnforceListPtr element = FilledEnforceList();
    InterceptingManager mgr(ManagerWithEmptyDocument());
    mgr.refusedElements.insert(L"IPList");
    EXPECT_EQ(element->WriteToJSONMgr(&mgr, mgr.GetRootElement(), 1), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              (Messages{L"JSONManager: required element pointer is NULL. element: IPList",
                        L"JSONManager: write optional element failed. element:IPList"}));
    EXPECT_EQ(SavedText(mgr), "{ \"EnforceList\": { } }");
}

TEST(EnforceListTest, EachFailingStringWriteGivesItsMessage) {
    struct Case {
        const wchar_t* key;
        const wchar_t* message;
        const char* partial;
    };
    const Case cases[] = {
        {L"ProcessNames",
         L"JSONManager: write required string Attribute failed. element:EnforceList, "
         L"attr:ProcessNames",
         "{ \"EnforceList\": { \"IPList\": [ \"10.0.0.1\", \"10.0.0.0\\/8\" ] } }"},
        {L"DomainLists",
         L"JSONManager: write required string Attribute failed. element:EnforceList, "
         L"attr:DomainLists",
         "{ \"EnforceList\": { \"IPList\": [ \"10.0.0.1\", \"10.0.0.0\\/8\" ], \"ProcessNames\": "
         "\"a.exe;b.exe\" } }"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(Narrow(c.key));
        MessageCapture capture;
        EnforceListPtr element = FilledEnforceList();
        InterceptingManager mgr(ManagerWithEmptyDocument());
        mgr.failingAttributes.insert(c.key);
        EXPECT_EQ(element->WriteToJSONMgr(&mgr, mgr.GetRootElement(), 1), ZELT_FAILED);
        EXPECT_EQ(capture.Messages(), Messages{c.message});
        EXPECT_EQ(SavedText(mgr), c.partial);
    }
}

TEST(EnforceListTest, WritingDoesNotChangeTheElement) {
    EnforceListPtr element = FilledEnforceList();
    WrittenText(*element);
    ExpectSameMembers(*element, *FilledEnforceList());
}

TEST(EnforceListTest, AnEmptyObjectReadsWithEveryMemberAbsent) {
    MessageCapture capture;
    EnforceListPtr element = FilledEnforceList();
    EXPECT_EQ(ReadFromText(*element, "{ \"EnforceList\": { } }"), ZELT_SUCCESS);
    ExpectAllAbsent(*element);
    EXPECT_EQ(WrittenText(*element), "{ \"EnforceList\": { } }");
    EXPECT_TRUE(capture.Messages().empty());
}

TEST(EnforceListTest, AFullObjectReadsEveryMember) {
    EnforceListPtr element = NewEnforceList();
    ASSERT_EQ(ReadFromText(*element, kFilledText), ZELT_SUCCESS);
    ExpectSameMembers(*element, *FilledEnforceList());
}

TEST(EnforceListTest, MembersAreLookedUpInOrder) {
    EnforceListPtr element = NewEnforceList();
    InterceptingManager mgr(ManagerWithText(kFilledText));
    JSONNode* node = mgr.Inner().GetElement(nullptr, L"EnforceList");
    ASSERT_EQ(element->ReadFromJSONMgr(&mgr, node), ZELT_SUCCESS);
    EXPECT_EQ(mgr.calls,
              (std::vector<std::wstring>{
                  L"GetElement IPList", L"GetArrayCount IPListArray",
                  L"GetArrayElement IPListArray 0", L"GetStringAttribute StringValue",
                  L"GetArrayElement IPListArray 1", L"GetStringAttribute StringValue",
                  L"GetStringAttribute ProcessNames", L"GetStringAttribute DomainLists"}));
}

TEST(EnforceListTest, AnEmptyIPListReadsPresentButDoesNotSurviveAWrite) {
    EnforceListPtr element = NewEnforceList();
    ASSERT_EQ(ReadFromText(*element, Document("\"IPList\": [ ]")), ZELT_SUCCESS);
    EXPECT_EQ(IPListValues(*element), Values{});
    const std::string written = WrittenText(*element);
    EXPECT_EQ(written, "{ \"EnforceList\": { } }");
    ASSERT_EQ(ReadFromText(*element, written), ZELT_SUCCESS);
    IIPList* list = nullptr;
    EXPECT_EQ(element->GetIPList(&list), ZELT_NOT_PRESENT);
}

TEST(EnforceListTest, AnIPListThatIsNotAnArrayFailsTheReadAndClearsTheElement) {
    MessageCapture capture;
    EnforceListPtr element = FilledEnforceList();
    EXPECT_EQ(ReadFromText(*element, Document("\"IPList\": \"10.0.0.1\", \"ProcessNames\": \"p\"")),
              ZELT_FAILED);
    ExpectAllAbsent(*element);
    EXPECT_EQ(capture.Messages(),
              (Messages{L"JSONManager: read  multiple element failed. element:IPListArray",
                        L"JSONManager: read  optional element failed. element:IPList"}));
}

TEST(EnforceListTest, AnUnreadableItemIsReportedByEachLevel) {
    MessageCapture capture;
    EnforceListPtr element = FilledEnforceList();
    EXPECT_EQ(ReadFromText(*element,
                           Document("\"IPList\": [ \"10.0.0.1\", 5 ], \"ProcessNames\": \"p\"")),
              ZELT_FAILED);
    ExpectAllAbsent(*element);
    EXPECT_EQ(capture.Messages(),
              (Messages{L"JSONManager: read required String Attribute failed. "
                        L"element:IPListArray, attr:StringValue",
                        L"JSONManager: read  multiple element failed. element:IPListArray",
                        L"JSONManager: read  optional element failed. element:IPList"}));
}

TEST(EnforceListTest, StringsOfAnotherKindOrMissingNeverFailTheRead) {
    MessageCapture capture;
    EnforceListPtr element = FilledEnforceList();
    ASSERT_EQ(ReadFromText(*element, Document("\"ProcessNames\": 42, \"DomainLists\": null")),
              ZELT_SUCCESS);
    std::wstring text = L"untouched";
    EXPECT_EQ(element->GetDomainLists(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(element->GetProcessNames(&text), ZELT_SUCCESS);
    EXPECT_EQ(text, L"42");
    IIPList* list = nullptr;
    EXPECT_EQ(element->GetIPList(&list), ZELT_NOT_PRESENT);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST(EnforceListTest, ReadWithoutManagerFailsAndKeepsTheElement) {
    MessageCapture capture;
    EnforceListPtr element = FilledEnforceList();
    EXPECT_EQ(element->ReadFromJSONMgr(nullptr, nullptr), ZELT_FAILED);
    ExpectSameMembers(*element, *FilledEnforceList());
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: ReadFromJSONMgr require xmlmanager pointer is NULL."});
}

TEST(EnforceListTest, LongStringsAreReadWhole) {
    for (std::size_t length : {1023u, 1024u, 2000u, 5000u}) {
        SCOPED_TRACE(length);
        EnforceListPtr source = FilledEnforceList();
        const std::wstring names = LongText(length), domains = LongText(length + 7);
        source->SetProcessNames(&names);
        source->SetDomainLists(&domains);
        source->SetIPList(MakeIPList({LongText(length + 3)}).get());
        EnforceListPtr read = NewEnforceList();
        ASSERT_EQ(ReadFromText(*read, WrittenText(*source)), ZELT_SUCCESS);
        ExpectSameMembers(*read, *source);
    }
}

TEST(EnforceListTest, WriteSaveImportAndReadGiveTheSameElement) {
    TempDir dir;
    const std::string path = dir.File("enforce.json");
    EnforceListPtr source = FilledEnforceList();
    ManagerPtr written = ManagerWithEmptyDocument();
    ASSERT_EQ(source->WriteToJSONMgr(written.get(), written->GetRootElement(), 1), ZELT_SUCCESS);
    ASSERT_EQ(written->SaveToJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    ManagerPtr imported = NewManager();
    ASSERT_EQ(imported->ImportFromJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    EnforceListPtr read = NewEnforceList();
    ASSERT_EQ(read->ReadFromJSONMgr(imported.get(), imported->GetElement(nullptr, L"EnforceList")),
              ZELT_SUCCESS);
    ExpectSameMembers(*read, *source);
}

TEST(EnforceListTest, CopyFromGivesAnIndependentCopy) {
    EnforceListPtr source = FilledEnforceList();
    EnforceListPtr copy = NewEnforceList();
    EXPECT_EQ(&copy->CopyFrom(*source), copy.get());
    ExpectSameMembers(*copy, *source);
    IIPList* copyList = nullptr;
    ASSERT_EQ(copy->GetIPList(&copyList), ZELT_SUCCESS);
    copyList->RemoveItem(0);
    copy->SetProcessNames(nullptr);
    ExpectSameMembers(*source, *FilledEnforceList());
    source.reset();
    EXPECT_EQ(IPListValues(*copy), (Values{L"10.0.0.0/8"}));
}

TEST(EnforceListTest, CopyFromItselfOrFromAnEmptyElement) {
    EnforceListPtr element = FilledEnforceList();
    EXPECT_EQ(&element->CopyFrom(*element), element.get());
    ExpectSameMembers(*element, *FilledEnforceList());
    element->CopyFrom(*NewEnforceList());
    ExpectAllAbsent(*element);
}
