// Tests of the three string lists (ClientRequestHeaders, IPList, VPNDescList)
// and their entries. Every case runs once per list.
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

struct ClientRequestHeadersKind {
    using List = IClientRequestHeaders;
    using Entry = IClientRequestHeadersArray;
    static List* NewList() { return ClientRequestHeaders_CreateNewInstance(); }
    static Entry* NewEntry() { return ClientRequestHeadersArray_CreateNewInstance(); }
    static constexpr const wchar_t* kList = L"ClientRequestHeaders";
    static constexpr const wchar_t* kEntry = L"ClientRequestHeadersArray";
};

struct IPListKind {
    using List = IIPList;
    using Entry = IIPListArray;
    static List* NewList() { return IPList_CreateNewInstance(); }
    static Entry* NewEntry() { return IPListArray_CreateNewInstance(); }
    static constexpr const wchar_t* kList = L"IPList";
    static constexpr const wchar_t* kEntry = L"IPListArray";
};

struct VPNDescListKind {
    using List = IVPNDescList;
    using Entry = IVPNDescListArray;
    static List* NewList() { return VPNDescList_CreateNewInstance(); }
    static Entry* NewEntry() { return VPNDescListArray_CreateNewInstance(); }
    static constexpr const wchar_t* kList = L"VPNDescList";
    static constexpr const wchar_t* kEntry = L"VPNDescListArray";
};

template <class Kind>
class StringListsTest : public ::testing::Test {
protected:
    using List = typename Kind::List;
    using Entry = typename Kind::Entry;
    using ListPtr = std::unique_ptr<List>;
    using EntryPtr = std::unique_ptr<Entry>;

    static std::string Key() { return Narrow(Kind::kList); }
    static std::wstring Text(const wchar_t* middle, const wchar_t* name) {
        return std::wstring(L"JSONManager: ") + middle + name;
    }

    static EntryPtr NewEntry(const std::wstring& value) {
        EntryPtr entry(Kind::NewEntry());
        EXPECT_EQ(entry->SetStringValue(&value), ZELT_SUCCESS);
        return entry;
    }

    static ListPtr NewList(const std::vector<std::wstring>& values = {}) {
        ListPtr list(Kind::NewList());
        for (const std::wstring& value : values) list->AddItem(NewEntry(value).get());
        return list;
    }

    static std::vector<std::wstring> Values(List& list) {
        std::vector<std::wstring> values;
        for (DWORD i = 0; i < list.GetItemCount(); ++i) {
            Entry* entry = list.GetItem(i);
            EXPECT_NE(entry, nullptr);
            EXPECT_EQ(entry->GetElementType(), ELEMENT_TYPE_LIST_ENTRY);
            values.push_back(*entry->GetStringValue());
        }
        return values;
    }

    // Reads the member under the list's key of the document text.
    static int ReadFromText(List& list, const std::string& text) {
        return ReadFromDocument(list, text, Kind::kList);
    }

    // The document text of a root holding the list's member with this value.
    static std::string Document(const std::string& value) {
        return "{ \"" + Key() + "\": " + value + " }";
    }

    std::wstring ReadItemFailed() const {
        return Text(L"read  multiple element failed. element:", Kind::kEntry);
    }
    std::wstring ReadStringFailed() const {
        return Text(L"read required String Attribute failed. element:", Kind::kEntry) +
               L", attr:StringValue";
    }
};

using Kinds = ::testing::Types<ClientRequestHeadersKind, IPListKind, VPNDescListKind>;

class KindNames {
public:
    template <class Kind>
    static std::string GetName(int) {
        return Narrow(Kind::kList);
    }
};

TYPED_TEST_SUITE(StringListsTest, Kinds, KindNames);

}  // namespace

// Slots and factories ---------------------------------------------------------

TYPED_TEST(StringListsTest, ListVirtualSlotsAreInContractOrder) {
    using List = typename TypeParam::List;
    EXPECT_EQ(VirtualSlotOf(&List::WriteToJSONMgr), 1);
    EXPECT_EQ(VirtualSlotOf(&List::ReadFromJSONMgr), 2);
    EXPECT_EQ(VirtualSlotOf(&List::Clear), 3);
    EXPECT_EQ(VirtualSlotOf(&List::CopyFrom), 4);
    EXPECT_EQ(VirtualSlotOf(&List::GetElementType), 5);
    EXPECT_EQ(VirtualSlotOf(&List::GetItemCount), 6);
    EXPECT_EQ(VirtualSlotOf(&List::GetItem), 7);
    EXPECT_EQ(VirtualSlotOf(&List::AddItem), 8);
    EXPECT_EQ(VirtualSlotOf(&List::InsertItem), 9);
    EXPECT_EQ(VirtualSlotOf(&List::RemoveItem), 10);
    EXPECT_EQ(VirtualSlotOf(&List::RemoveAllItems), 11);
}

TYPED_TEST(StringListsTest, EntryVirtualSlotsAreInContractOrder) {
    using Entry = typename TypeParam::Entry;
    EXPECT_EQ(VirtualSlotOf(&Entry::WriteToJSONMgr), 1);
    EXPECT_EQ(VirtualSlotOf(&Entry::ReadFromJSONMgr), 2);
    EXPECT_EQ(VirtualSlotOf(&Entry::Clear), 3);
    EXPECT_EQ(VirtualSlotOf(&Entry::CopyFrom), 4);
    EXPECT_EQ(VirtualSlotOf(&Entry::GetElementType), 5);
    EXPECT_EQ(VirtualSlotOf(&Entry::GetStringValue), 6);
    EXPECT_EQ(VirtualSlotOf(&Entry::SetStringValue), 7);
}

TYPED_TEST(StringListsTest, FactoriesGiveAnEmptyListAndAnEmptyEntry) {
    auto list = this->NewList();
    EXPECT_EQ(list->GetElementType(), ELEMENT_TYPE_ORDINARY);
    EXPECT_EQ(list->GetItemCount(), 0u);
    typename TestFixture::EntryPtr entry(TypeParam::NewEntry());
    EXPECT_EQ(entry->GetElementType(), ELEMENT_TYPE_LIST_ENTRY);
    EXPECT_EQ(entry->ElementType, 2u);
    EXPECT_EQ(*entry->GetStringValue(), L"");
}

// Entry accessors ---------------------------------------------------------------

TYPED_TEST(StringListsTest, EntryGetterGivesTheMemberItself) {
    auto entry = this->NewEntry(L"first");
    const std::wstring* member = entry->GetStringValue();
    const std::wstring second = L"second";
    EXPECT_EQ(entry->SetStringValue(&second), ZELT_SUCCESS);
    EXPECT_EQ(entry->GetStringValue(), member);
    EXPECT_EQ(*member, L"second");
}

TYPED_TEST(StringListsTest, EntrySetterRefusesNull) {
    MessageCapture capture;
    auto entry = this->NewEntry(L"kept");
    EXPECT_EQ(entry->SetStringValue(nullptr), ZELT_FAILED);
    EXPECT_EQ(*entry->GetStringValue(), L"kept");
    EXPECT_EQ(capture.Messages(),
              Messages{this->Text(L"set Attribute failed due to parama pointer is NULL. element:",
                                  TypeParam::kEntry) +
                       L", attr:StringValue"});
}

TYPED_TEST(StringListsTest, EntrySetFromItsOwnMemberLeavesItEmpty) {
    auto entry = this->NewEntry(L"value");
    EXPECT_EQ(entry->SetStringValue(entry->GetStringValue()), ZELT_SUCCESS);
    EXPECT_EQ(*entry->GetStringValue(), L"");
}

TYPED_TEST(StringListsTest, EntryClearEmptiesItAndKeepsItsType) {
    auto entry = this->NewEntry(L"value");
    entry->ElementType = 7;
    entry->Clear();
    EXPECT_EQ(*entry->GetStringValue(), L"");
    EXPECT_EQ(entry->GetElementType(), ELEMENT_TYPE_LIST_ENTRY);
}

TYPED_TEST(StringListsTest, EntryCopyFromCopiesTheStringOnly) {
    auto source = this->NewEntry(L"value");
    source->ElementType = 9;
    auto copy = this->NewEntry(L"old");
    EXPECT_EQ(&copy->CopyFrom(*source), copy.get());
    EXPECT_EQ(*copy->GetStringValue(), L"value");
    EXPECT_EQ(copy->GetElementType(), ELEMENT_TYPE_LIST_ENTRY);
    EXPECT_EQ(&copy->CopyFrom(*copy), copy.get());
    EXPECT_EQ(*copy->GetStringValue(), L"value");
    const std::wstring other = L"other";
    copy->SetStringValue(&other);
    EXPECT_EQ(*source->GetStringValue(), L"value");
}

// Entry on its own ----------------------------------------------------------------

TYPED_TEST(StringListsTest, EntryWrittenUnderAnObjectBecomesTheMemberStringValue) {
    auto entry = this->NewEntry(L"value-1");
    EXPECT_EQ(WrittenText(*entry), "{ \"StringValue\": \"value-1\" }");
}

TYPED_TEST(StringListsTest, EntryWrittenUnderAnArrayBecomesABareItem) {
    auto entry = this->NewEntry(L"value-1");
    ManagerPtr mgr = ManagerWithEmptyDocument();
    JSONNode* array = mgr->AddElement(nullptr, L"items", ZELT_ADD_ARRAY);
    EXPECT_EQ(entry->WriteToJSONMgr(mgr.get(), array, 7), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*mgr), "{ \"items\": [ \"value-1\" ] }");
}

TYPED_TEST(StringListsTest, EntryWriteFailures) {
    MessageCapture capture;
    auto entry = this->NewEntry(L"value");
    ManagerPtr mgr = ManagerWithText("{ \"text\": \"x\" }");
    EXPECT_EQ(entry->WriteToJSONMgr(nullptr, mgr->GetRootElement(), 1), ZELT_FAILED);
    EXPECT_EQ(entry->WriteToJSONMgr(mgr.get(), nullptr, 1), ZELT_FAILED);
    // A string node can hold no member.
    EXPECT_EQ(entry->WriteToJSONMgr(mgr.get(), mgr->GetElement(nullptr, L"text"), 1), ZELT_FAILED);
    EXPECT_EQ(
        capture.Messages(),
        (Messages{
            L"JSONManager: WriteToJSONMgr require xmlmanager pointer is NULL.",
            this->Text(L"required element pointer is NULL. element: ", TypeParam::kEntry),
            this->Text(L"write required string Attribute failed. element:", TypeParam::kEntry) +
                L", attr:StringValue"}));
    EXPECT_EQ(SavedText(*mgr), "{ \"text\": \"x\" }");
}

TYPED_TEST(StringListsTest, EntryReadsBothItemForms) {
    ManagerPtr mgr =
        ManagerWithText("{ \"StringValue\": \"from object\", \"bare\": \"from string\" }");
    auto entry = this->NewEntry(L"old");
    EXPECT_EQ(entry->ReadFromJSONMgr(mgr.get(), mgr->GetRootElement()), ZELT_SUCCESS);
    EXPECT_EQ(*entry->GetStringValue(), L"from object");
    EXPECT_EQ(entry->ReadFromJSONMgr(mgr.get(), mgr->GetElement(nullptr, L"bare")), ZELT_SUCCESS);
    EXPECT_EQ(*entry->GetStringValue(), L"from string");
}

TYPED_TEST(StringListsTest, EntryReadFailures) {
    MessageCapture capture;
    ManagerPtr mgr = ManagerWithText("{ \"number\": 5 }");
    auto entry = this->NewEntry(L"kept");
    EXPECT_EQ(entry->ReadFromJSONMgr(nullptr, mgr->GetRootElement()), ZELT_FAILED);
    EXPECT_EQ(*entry->GetStringValue(), L"kept");
    EXPECT_EQ(entry->ReadFromJSONMgr(mgr.get(), mgr->GetElement(nullptr, L"number")), ZELT_FAILED);
    EXPECT_EQ(*entry->GetStringValue(), L"");
    EXPECT_EQ(entry->GetElementType(), ELEMENT_TYPE_LIST_ENTRY);
    EXPECT_EQ(capture.Messages(),
              (Messages{L"JSONManager: ReadFromJSONMgr require xmlmanager pointer is NULL.",
                        this->ReadStringFailed()}));
}

// List operations -------------------------------------------------------------------

TYPED_TEST(StringListsTest, AddItemAppendsCopies) {
    auto list = this->NewList();
    auto entry = this->NewEntry(L"a");
    list->AddItem(entry.get());
    const std::wstring changed = L"changed";
    entry->SetStringValue(&changed);
    list->AddItem(entry.get());
    EXPECT_EQ(this->Values(*list), (std::vector<std::wstring>{L"a", L"changed"}));
    EXPECT_NE(list->GetItem(0), entry.get());
    entry.reset();
    EXPECT_EQ(this->Values(*list), (std::vector<std::wstring>{L"a", L"changed"}));
}

TYPED_TEST(StringListsTest, GetItemGivesTheListsOwnEntry) {
    auto list = this->NewList({L"a", L"b"});
    const std::wstring changed = L"changed";
    EXPECT_EQ(list->GetItem(1)->SetStringValue(&changed), ZELT_SUCCESS);
    EXPECT_EQ(list->GetItem(1), list->GetItem(1));
    EXPECT_EQ(this->Values(*list), (std::vector<std::wstring>{L"a", L"changed"}));
}

TYPED_TEST(StringListsTest, GetItemOutOfRangeGivesNull) {
    auto empty = this->NewList();
    EXPECT_EQ(empty->GetItem(0), nullptr);
    EXPECT_EQ(empty->GetItem(1), nullptr);
    EXPECT_EQ(empty->GetItem(4294967295u), nullptr);
    auto list = this->NewList({L"a", L"b"});
    EXPECT_NE(list->GetItem(1), nullptr);
    EXPECT_EQ(list->GetItem(list->GetItemCount()), nullptr);
    EXPECT_EQ(list->GetItem(4294967295u), nullptr);
}

TYPED_TEST(StringListsTest, RemoveItemOutOfRangeChangesNothing) {
    auto empty = this->NewList();
    empty->RemoveItem(0);
    empty->RemoveItem(4294967295u);
    EXPECT_EQ(empty->GetItemCount(), 0u);
    auto list = this->NewList({L"a", L"b"});
    list->RemoveItem(2);
    list->RemoveItem(4294967295u);
    EXPECT_EQ(this->Values(*list), (std::vector<std::wstring>{L"a", L"b"}));
}

TYPED_TEST(StringListsTest, RemoveItemClosesTheGapInOrder) {
    auto list = this->NewList({L"a", L"b", L"c", L"d"});
    list->RemoveItem(1);
    EXPECT_EQ(this->Values(*list), (std::vector<std::wstring>{L"a", L"c", L"d"}));
    list->RemoveItem(2);
    EXPECT_EQ(this->Values(*list), (std::vector<std::wstring>{L"a", L"c"}));
    list->RemoveItem(0);
    EXPECT_EQ(this->Values(*list), (std::vector<std::wstring>{L"c"}));
    list->RemoveItem(0);
    EXPECT_EQ(list->GetItemCount(), 0u);
}

TYPED_TEST(StringListsTest, InsertItemOnAnEmptyListAtZeroInserts) {
    auto list = this->NewList();
    list->InsertItem(0, this->NewEntry(L"first").get());
    EXPECT_EQ(this->Values(*list), (std::vector<std::wstring>{L"first"}));
}

TYPED_TEST(StringListsTest, InsertItemInsertsBeforeTheIndexOrAppendsPastTheEnd) {
    auto list = this->NewList({L"b"});
    list->InsertItem(1, this->NewEntry(L"c").get());  // one past the end: appends
    EXPECT_EQ(this->Values(*list), (std::vector<std::wstring>{L"b", L"c"}));
    list->InsertItem(0, this->NewEntry(L"a").get());
    EXPECT_EQ(this->Values(*list), (std::vector<std::wstring>{L"a", L"b", L"c"}));
    list->InsertItem(2, this->NewEntry(L"b2").get());
    EXPECT_EQ(this->Values(*list), (std::vector<std::wstring>{L"a", L"b", L"b2", L"c"}));
    list->InsertItem(list->GetItemCount(), this->NewEntry(L"d").get());
    list->InsertItem(4294967295u, this->NewEntry(L"e").get());
    EXPECT_EQ(this->Values(*list),
              (std::vector<std::wstring>{L"a", L"b", L"b2", L"c", L"d", L"e"}));
}

TYPED_TEST(StringListsTest, InsertItemPastZeroOnAnEmptyListDoesNotBreakTheList) {
    // A caller error that the list does not catch; the entry is appended
    // rather than placed past the end.
    auto list = this->NewList();
    list->InsertItem(5, this->NewEntry(L"x").get());
    list->AddItem(this->NewEntry(L"y").get());
    EXPECT_EQ(this->Values(*list), (std::vector<std::wstring>{L"x", L"y"}));
}

TYPED_TEST(StringListsTest, InsertItemStoresACopy) {
    auto list = this->NewList({L"b"});
    auto entry = this->NewEntry(L"a");
    list->InsertItem(0, entry.get());
    EXPECT_NE(list->GetItem(0), entry.get());
    const std::wstring changed = L"changed";
    entry->SetStringValue(&changed);
    EXPECT_EQ(this->Values(*list), (std::vector<std::wstring>{L"a", L"b"}));
}

TYPED_TEST(StringListsTest, RemoveAllItemsAndClearEmptyTheList) {
    auto list = this->NewList({L"a", L"b"});
    list->RemoveAllItems();
    EXPECT_EQ(list->GetItemCount(), 0u);
    list->AddItem(this->NewEntry(L"c").get());
    EXPECT_EQ(this->Values(*list), (std::vector<std::wstring>{L"c"}));
    list->ElementType = 4;
    list->Clear();
    EXPECT_EQ(list->GetItemCount(), 0u);
    EXPECT_EQ(list->GetElementType(), ELEMENT_TYPE_ORDINARY);
}

TYPED_TEST(StringListsTest, ListOperationsSendNoMessage) {
    MessageCapture capture;
    auto list = this->NewList({L"a"});
    list->GetItem(9);
    list->RemoveItem(9);
    list->InsertItem(9, this->NewEntry(L"b").get());
    list->RemoveAllItems();
    list->GetItemCount();
    EXPECT_TRUE(capture.Messages().empty());
}

TYPED_TEST(StringListsTest, CopyFromGivesAnIndependentCopy) {
    auto source = this->NewList({L"a", L"b", L"c"});
    auto copy = this->NewList({L"old"});
    EXPECT_EQ(&copy->CopyFrom(*source), copy.get());
    EXPECT_EQ(this->Values(*copy), (std::vector<std::wstring>{L"a", L"b", L"c"}));
    EXPECT_NE(copy->GetItem(0), source->GetItem(0));
    copy->RemoveItem(0);
    const std::wstring changed = L"changed";
    copy->GetItem(0)->SetStringValue(&changed);
    EXPECT_EQ(this->Values(*source), (std::vector<std::wstring>{L"a", L"b", L"c"}));
    source.reset();
    EXPECT_EQ(this->Values(*copy), (std::vector<std::wstring>{L"changed", L"c"}));
}

TYPED_TEST(StringListsTest, CopyFromItselfOrFromAnEmptyList) {
    auto list = this->NewList({L"a", L"b"});
    EXPECT_EQ(&list->CopyFrom(*list), list.get());
    EXPECT_EQ(this->Values(*list), (std::vector<std::wstring>{L"a", L"b"}));
    list->CopyFrom(*this->NewList());
    EXPECT_EQ(list->GetItemCount(), 0u);
}

// Writing ---------------------------------------------------------------------------

TYPED_TEST(StringListsTest, TwoEntriesAreWrittenAsAnArrayInOrder) {
    auto list = this->NewList({L"value-1", L"value-2"});
    EXPECT_EQ(WrittenText(*list), this->Document("[ \"value-1\", \"value-2\" ]"));
}

TYPED_TEST(StringListsTest, AnEmptyListWritesNothing) {
    MessageCapture capture;
    auto list = this->NewList();
    InterceptingManager mgr(ManagerWithEmptyDocument());
    EXPECT_EQ(list->WriteToJSONMgr(&mgr, mgr.GetRootElement(), 1), ZELT_SUCCESS);
    EXPECT_TRUE(mgr.calls.empty());
    EXPECT_EQ(SavedText(mgr), "{ }");
    EXPECT_TRUE(capture.Messages().empty());
}

TYPED_TEST(StringListsTest, WritingReplacesAMemberOfTheSameKey) {
    auto list = this->NewList({L"new"});
    ManagerPtr mgr = ManagerWithText("{ \"" + this->Key() + "\": 5, \"after\": 1 }");
    EXPECT_EQ(list->WriteToJSONMgr(mgr.get(), mgr->GetRootElement(), 1), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*mgr), "{ \"after\": 1, \"" + this->Key() + "\": [ \"new\" ] }");
}

TYPED_TEST(StringListsTest, WrittenStringsAreEscapedAndKeepTheirCharacters) {
    auto list = this->NewList({L"a/b", L"\"q\"", L"\u00e9\u20ac\U0001f600", L""});
    EXPECT_EQ(WrittenText(*list),
              this->Document("[ \"a\\/b\", \"\\\"q\\\"\", "
                             "\"\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80\", \"\" ]"));
}

TYPED_TEST(StringListsTest, WriteWithoutManagerOrParentFails) {
    MessageCapture capture;
    auto list = this->NewList({L"a"});
    ManagerPtr mgr = ManagerWithEmptyDocument();
    EXPECT_EQ(list->WriteToJSONMgr(nullptr, mgr->GetRootElement(), 1), ZELT_FAILED);
    EXPECT_EQ(list->WriteToJSONMgr(mgr.get(), nullptr, 1), ZELT_FAILED);
    // The parent is tested before the entries: an empty list fails as well.
    EXPECT_EQ(this->NewList()->WriteToJSONMgr(mgr.get(), nullptr, 1), ZELT_FAILED);
    const std::wstring missing =
        this->Text(L"required element pointer is NULL. element: ", TypeParam::kList);
    EXPECT_EQ(capture.Messages(),
              (Messages{L"JSONManager: WriteToJSONMgr require xmlmanager pointer is NULL.", missing,
                        missing}));
    EXPECT_EQ(SavedText(*mgr), "{ }");
}

TYPED_TEST(StringListsTest, WriteFailsWhenTheArrayIsNotCreated) {
    MessageCapture capture;
    auto list = this->NewList({L"a"});
    InterceptingManager mgr(ManagerWithEmptyDocument());
    mgr.refusedElements.insert(TypeParam::kList);
    EXPECT_EQ(list->WriteToJSONMgr(&mgr, mgr.GetRootElement(), 1), ZELT_FAILED);
    EXPECT_EQ(
        capture.Messages(),
        Messages{this->Text(L"required element pointer is NULL. element: ", TypeParam::kList)});
    EXPECT_EQ(mgr.calls,
              std::vector<std::wstring>{AddElementCall(TypeParam::kList, ZELT_ADD_ARRAY)});
}

TYPED_TEST(StringListsTest, AFailingEntryStopsTheWriteAndKeepsTheEarlierItems) {
    MessageCapture capture;
    auto list = this->NewList({L"a", L"b", L"c"});
    InterceptingManager mgr(ManagerWithEmptyDocument());
    mgr.failingStringWrite = 2;
    EXPECT_EQ(list->WriteToJSONMgr(&mgr, mgr.GetRootElement(), 1), ZELT_FAILED);
    EXPECT_EQ(
        capture.Messages(),
        (Messages{
            this->Text(L"write required string Attribute failed. element:", TypeParam::kEntry) +
                L", attr:StringValue",
            this->Text(L"write none to multiple element failed. element:", TypeParam::kEntry)}));
    EXPECT_EQ(mgr.stringWrites, 2);
    EXPECT_EQ(SavedText(mgr), this->Document("[ \"a\" ]"));
}

TYPED_TEST(StringListsTest, EachEntryIsWrittenIntoTheArrayItself) {
    auto list = this->NewList({L"a", L"b"});
    InterceptingManager mgr(ManagerWithEmptyDocument());
    ASSERT_EQ(list->WriteToJSONMgr(&mgr, mgr.GetRootElement(), 1), ZELT_SUCCESS);
    const std::wstring key = TypeParam::kList;
    EXPECT_EQ(mgr.calls,
              (std::vector<std::wstring>{AddElementCall(key, ZELT_ADD_ARRAY),
                                         AddElementCall(L"StringValue", ZELT_ADD_PARENT_FOR_STRING),
                                         L"SetStringAttribute StringValue",
                                         AddElementCall(L"StringValue", ZELT_ADD_PARENT_FOR_STRING),
                                         L"SetStringAttribute StringValue"}));
    JSONNode* array = mgr.GetElement(nullptr, TypeParam::kList);
    EXPECT_EQ(mgr.attributeNodes, (std::vector<JSONNode*>{array, array}));
}

// Reading ---------------------------------------------------------------------------

TYPED_TEST(StringListsTest, AnArrayOfTwoStringsReadsInOrder) {
    MessageCapture capture;
    auto list = this->NewList({L"old"});
    ASSERT_EQ(this->ReadFromText(*list, this->Document("[ \"value-1\", \"value-2\" ]")),
              ZELT_SUCCESS);
    EXPECT_EQ(this->Values(*list), (std::vector<std::wstring>{L"value-1", L"value-2"}));
    EXPECT_TRUE(capture.Messages().empty());
}

TYPED_TEST(StringListsTest, ObjectItemsWithStringValueReadLikeBareStrings) {
    auto list = this->NewList();
    ASSERT_EQ(this->ReadFromText(
                  *list, this->Document("[ { \"StringValue\": \"value-1\" }, \"value-2\" ]")),
              ZELT_SUCCESS);
    EXPECT_EQ(this->Values(*list), (std::vector<std::wstring>{L"value-1", L"value-2"}));
}

TYPED_TEST(StringListsTest, AStringValueOfAnotherKindReadsAsItsText) {
    auto list = this->NewList();
    ASSERT_EQ(this->ReadFromText(*list, this->Document("[ { \"StringValue\": 42 } ]")),
              ZELT_SUCCESS);
    EXPECT_EQ(this->Values(*list), (std::vector<std::wstring>{L"42"}));
}

TYPED_TEST(StringListsTest, AnEmptyArrayReadsAsAnEmptyList) {
    MessageCapture capture;
    auto list = this->NewList({L"old"});
    EXPECT_EQ(this->ReadFromText(*list, this->Document("[ ]")), ZELT_SUCCESS);
    EXPECT_EQ(list->GetItemCount(), 0u);
    EXPECT_TRUE(capture.Messages().empty());
}

TYPED_TEST(StringListsTest, ANullNodeReadsAsAnEmptyList) {
    MessageCapture capture;
    auto list = this->NewList({L"old"});
    ManagerPtr mgr = ManagerWithEmptyDocument();
    EXPECT_EQ(list->ReadFromJSONMgr(mgr.get(), nullptr), ZELT_SUCCESS);
    EXPECT_EQ(list->GetItemCount(), 0u);
    EXPECT_TRUE(capture.Messages().empty());
}

TYPED_TEST(StringListsTest, AnUnreadableItemFailsTheWholeRead) {
    struct Case {
        const char* items;
        bool entryReports;  // false when the item itself is missing (JSON null)
    };
    const Case cases[] = {
        {"[ \"a\", 5 ]", true},
        {"[ \"a\", true ]", true},
        {"[ \"a\", null ]", false},
        {"[ \"a\", [ \"b\" ] ]", true},
        {"[ \"a\", { \"Other\": \"b\" } ]", true},
        {"[ 1.5, \"a\" ]", true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.items);
        MessageCapture capture;
        auto list = this->NewList({L"old"});
        EXPECT_EQ(this->ReadFromText(*list, this->Document(c.items)), ZELT_FAILED);
        EXPECT_EQ(list->GetItemCount(), 0u);
        Messages expected;
        if (c.entryReports) expected.push_back(this->ReadStringFailed());
        expected.push_back(this->ReadItemFailed());
        EXPECT_EQ(capture.Messages(), expected);
    }
}

TYPED_TEST(StringListsTest, ANodeThatIsNotAnArrayFailsTheRead) {
    for (const char* value : {"{ \"StringValue\": \"a\" }", "\"text\"", "7"}) {
        SCOPED_TRACE(value);
        MessageCapture capture;
        auto list = this->NewList({L"old"});
        EXPECT_EQ(this->ReadFromText(*list, this->Document(value)), ZELT_FAILED);
        EXPECT_EQ(list->GetItemCount(), 0u);
        EXPECT_EQ(capture.Messages(), Messages{this->ReadItemFailed()});
    }
}

TYPED_TEST(StringListsTest, ReadWithoutManagerFailsAndKeepsTheList) {
    MessageCapture capture;
    auto list = this->NewList({L"a", L"b"});
    EXPECT_EQ(list->ReadFromJSONMgr(nullptr, nullptr), ZELT_FAILED);
    EXPECT_EQ(this->Values(*list), (std::vector<std::wstring>{L"a", L"b"}));
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: ReadFromJSONMgr require xmlmanager pointer is NULL."});
}

TYPED_TEST(StringListsTest, ItemsAreFetchedOnceEachInOrder) {
    auto list = this->NewList();
    InterceptingManager mgr(ManagerWithText(this->Document("[ \"a\", \"b\", \"c\" ]")));
    ASSERT_EQ(list->ReadFromJSONMgr(&mgr, mgr.GetElement(nullptr, TypeParam::kList)), ZELT_SUCCESS);
    const std::wstring entry = TypeParam::kEntry;
    mgr.calls.erase(mgr.calls.begin());  // the lookup of the list above
    EXPECT_EQ(mgr.calls, (std::vector<std::wstring>{
                             L"GetArrayCount " + entry, L"GetArrayElement " + entry + L" 0",
                             L"GetStringAttribute StringValue", L"GetArrayElement " + entry + L" 1",
                             L"GetStringAttribute StringValue", L"GetArrayElement " + entry + L" 2",
                             L"GetStringAttribute StringValue"}));
}

TYPED_TEST(StringListsTest, LongEntriesAreReadWhole) {
    for (std::size_t length : {1022u, 1023u, 1024u, 1025u, 3000u, 5000u}) {
        SCOPED_TRACE(length);
        const std::wstring value = LongText(length);
        auto source = this->NewList({L"short", value});
        auto read = this->NewList();
        ASSERT_EQ(this->ReadFromText(*read, WrittenText(*source)), ZELT_SUCCESS);
        EXPECT_EQ(this->Values(*read), this->Values(*source));
    }
}

TYPED_TEST(StringListsTest, WriteSaveImportAndReadGiveTheSameList) {
    TempDir dir;
    const std::string path = dir.File("list.json");
    auto source = this->NewList({L"10.0.0.1", L"", L"h\u00e9llo/\u20ac", LongText(2000)});
    ManagerPtr written = ManagerWithEmptyDocument();
    ASSERT_EQ(source->WriteToJSONMgr(written.get(), written->GetRootElement(), 1), ZELT_SUCCESS);
    ASSERT_EQ(written->SaveToJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    ManagerPtr imported = NewManager();
    ASSERT_EQ(imported->ImportFromJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    auto read = this->NewList();
    ASSERT_EQ(
        read->ReadFromJSONMgr(imported.get(), imported->GetElement(nullptr, TypeParam::kList)),
        ZELT_SUCCESS);
    EXPECT_EQ(this->Values(*read), this->Values(*source));
}

TYPED_TEST(StringListsTest, ManyEntriesRoundTrip) {
    std::vector<std::wstring> values;
    for (int i = 0; i < 2000; ++i) values.push_back(L"entry-" + std::to_wstring(i));
    auto source = this->NewList(values);
    auto read = this->NewList();
    ASSERT_EQ(this->ReadFromText(*read, WrittenText(*source)), ZELT_SUCCESS);
    EXPECT_EQ(this->Values(*read), values);
}
