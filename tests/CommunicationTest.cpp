// Tests of Communication: accessors, writing, reading, copying and the
// messages of every failure.
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

using CommunicationPtr = std::unique_ptr<ICommunication>;

CommunicationPtr NewCommunication() { return CommunicationPtr(Communication_CreateNewInstance()); }

// Every member set, the optional ones present.
CommunicationPtr FilledCommunication() {
    CommunicationPtr element = NewCommunication();
    const DWORD queryInterval = 30, logInterval = 60, managementInterval = 120, pii = 1;
    const std::wstring disp = L"disp.example", log = L"log.example",
                       events = L"https://upload.example/events",
                       upgrade = L"https://upgrade.example";
    element->SetAutoUpgradeQueryInterval(&queryInterval);
    EXPECT_EQ(element->SetDispServerHostname(&disp), ZELT_SUCCESS);
    element->SetLogServerHostname(&log);
    element->SetEventLogUploadURL(&events);
    element->SetAutoupgradeURI(&upgrade);
    EXPECT_EQ(element->SetLogUploadInterval(&logInterval), ZELT_SUCCESS);
    EXPECT_EQ(element->SetManagementQueryInterval(&managementInterval), ZELT_SUCCESS);
    element->SetEnablePII(&pii);
    return element;
}

const char* const kFilledText =
    "{ \"Communication\": { \"AutoUpgradeQueryInterval\": 30, \"DispServerHostname\": "
    "\"disp.example\", \"LogServerHostname\": \"log.example\", \"EventLogUploadURL\": "
    "\"https:\\/\\/upload.example\\/events\", \"AutoupgradeURI\": "
    "\"https:\\/\\/upgrade.example\", \"LogUploadInterval\": 60, \"ManagementQueryInterval\": "
    "120, \"EnablePII\": 1 } }";

// Every getter of a and b agrees.
void ExpectSameMembers(ICommunication& a, ICommunication& b) {
    DWORD va = 7, vb = 7;
    EXPECT_EQ(a.GetAutoUpgradeQueryInterval(&va), b.GetAutoUpgradeQueryInterval(&vb));
    EXPECT_EQ(va, vb);
    EXPECT_EQ(*a.GetDispServerHostname(), *b.GetDispServerHostname());
    std::wstring sa = L"unset", sb = L"unset";
    EXPECT_EQ(a.GetLogServerHostname(&sa), b.GetLogServerHostname(&sb));
    EXPECT_EQ(sa, sb);
    EXPECT_EQ(a.GetEventLogUploadURL(&sa), b.GetEventLogUploadURL(&sb));
    EXPECT_EQ(sa, sb);
    EXPECT_EQ(a.GetAutoupgradeURI(&sa), b.GetAutoupgradeURI(&sb));
    EXPECT_EQ(sa, sb);
    EXPECT_EQ(a.GetLogUploadInterval(), b.GetLogUploadInterval());
    EXPECT_EQ(a.GetManagementQueryInterval(), b.GetManagementQueryInterval());
    EXPECT_EQ(a.GetEnablePII(&va), b.GetEnablePII(&vb));
    EXPECT_EQ(va, vb);
    EXPECT_EQ(a.GetElementType(), b.GetElementType());
}

// Every member at its default: optional getters give 2 and leave the output.
void ExpectCleared(ICommunication& element) {
    DWORD value = 77;
    std::wstring text = L"untouched";
    EXPECT_EQ(element.GetElementType(), ELEMENT_TYPE_ORDINARY);
    EXPECT_EQ(element.GetAutoUpgradeQueryInterval(&value), ZELT_NOT_PRESENT);
    EXPECT_EQ(*element.GetDispServerHostname(), L"");
    EXPECT_EQ(element.GetLogServerHostname(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(element.GetEventLogUploadURL(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(element.GetAutoupgradeURI(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(element.GetLogUploadInterval(), 0u);
    EXPECT_EQ(element.GetManagementQueryInterval(), 0u);
    EXPECT_EQ(element.GetEnablePII(&value), ZELT_NOT_PRESENT);
    EXPECT_EQ(value, 77u);
    EXPECT_EQ(text, L"untouched");
}

// Reads the "Communication" member of the document text into element.
int ReadFromText(ICommunication& element, const std::string& text) {
    return ReadFromDocument(element, text, L"Communication");
}

const std::string kMinimalText =
    "{ \"Communication\": { \"DispServerHostname\": \"disp\", \"LogUploadInterval\": 5, "
    "\"ManagementQueryInterval\": 6 } }";

}  // namespace

TEST(CommunicationTest, VirtualSlotsAreInContractOrder) {
    EXPECT_EQ(VirtualSlotOf(&ICommunication::WriteToJSONMgr), 1);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::ReadFromJSONMgr), 2);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::Clear), 3);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::CopyFrom), 4);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::GetElementType), 5);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::GetAutoUpgradeQueryInterval), 6);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::SetAutoUpgradeQueryInterval), 7);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::GetDispServerHostname), 8);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::SetDispServerHostname), 9);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::GetLogServerHostname), 10);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::SetLogServerHostname), 11);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::GetEventLogUploadURL), 12);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::SetEventLogUploadURL), 13);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::GetAutoupgradeURI), 14);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::SetAutoupgradeURI), 15);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::GetLogUploadInterval), 16);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::SetLogUploadInterval), 17);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::GetManagementQueryInterval), 18);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::SetManagementQueryInterval), 19);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::GetEnablePII), 20);
    EXPECT_EQ(VirtualSlotOf(&ICommunication::SetEnablePII), 21);
}

TEST(CommunicationTest, FactoryGivesAClearedOrdinaryElement) {
    CommunicationPtr element = NewCommunication();
    EXPECT_EQ(element->GetElementType(), ELEMENT_TYPE_ORDINARY);
    EXPECT_EQ(element->ElementType, 0u);
    ExpectCleared(*element);
}

TEST(CommunicationTest, OptionalGettersDeliverPresentValues) {
    CommunicationPtr element = FilledCommunication();
    DWORD value = 0;
    std::wstring text;
    EXPECT_EQ(element->GetAutoUpgradeQueryInterval(&value), ZELT_SUCCESS);
    EXPECT_EQ(value, 30u);
    EXPECT_EQ(element->GetLogServerHostname(&text), ZELT_SUCCESS);
    EXPECT_EQ(text, L"log.example");
    EXPECT_EQ(element->GetEventLogUploadURL(&text), ZELT_SUCCESS);
    EXPECT_EQ(text, L"https://upload.example/events");
    EXPECT_EQ(element->GetAutoupgradeURI(&text), ZELT_SUCCESS);
    EXPECT_EQ(text, L"https://upgrade.example");
    EXPECT_EQ(element->GetEnablePII(&value), ZELT_SUCCESS);
    EXPECT_EQ(value, 1u);
    EXPECT_EQ(*element->GetDispServerHostname(), L"disp.example");
    EXPECT_EQ(element->GetLogUploadInterval(), 60u);
    EXPECT_EQ(element->GetManagementQueryInterval(), 120u);
}

TEST(CommunicationTest, RequiredGetterGivesTheMemberItself) {
    CommunicationPtr element = NewCommunication();
    const std::wstring* member = element->GetDispServerHostname();
    const std::wstring value = L"host";
    element->SetDispServerHostname(&value);
    EXPECT_EQ(element->GetDispServerHostname(), member);
    EXPECT_EQ(*member, L"host");
}

TEST(CommunicationTest, RequiredSettersRefuseNullAndKeepTheValue) {
    MessageCapture capture;
    CommunicationPtr element = FilledCommunication();
    EXPECT_EQ(element->SetDispServerHostname(nullptr), ZELT_FAILED);
    EXPECT_EQ(element->SetLogUploadInterval(nullptr), ZELT_FAILED);
    EXPECT_EQ(element->SetManagementQueryInterval(nullptr), ZELT_FAILED);
    EXPECT_EQ(*element->GetDispServerHostname(), L"disp.example");
    EXPECT_EQ(element->GetLogUploadInterval(), 60u);
    EXPECT_EQ(element->GetManagementQueryInterval(), 120u);
    EXPECT_EQ(capture.Messages(),
              (Messages{L"JSONManager: set Attribute failed due to parama pointer is NULL. "
                        L"element:Communication, attr:DispServerHostname",
                        L"JSONManager: set Attribute failed due to parama pointer is NULL. "
                        L"element:Communication, attr:LogUploadInterval",
                        L"JSONManager: set Attribute failed due to parama pointer is NULL. "
                        L"element:Communication, attr:ManagementQueryInterval"}));
}

TEST(CommunicationTest, OptionalSettersWithNullMakeMembersAbsentSilently) {
    MessageCapture capture;
    CommunicationPtr element = FilledCommunication();
    element->SetAutoUpgradeQueryInterval(nullptr);
    element->SetLogServerHostname(nullptr);
    element->SetEventLogUploadURL(nullptr);
    element->SetAutoupgradeURI(nullptr);
    element->SetEnablePII(nullptr);
    DWORD value = 77;
    std::wstring text = L"untouched";
    EXPECT_EQ(element->GetAutoUpgradeQueryInterval(&value), ZELT_NOT_PRESENT);
    EXPECT_EQ(element->GetLogServerHostname(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(element->GetEventLogUploadURL(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(element->GetAutoupgradeURI(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(element->GetEnablePII(&value), ZELT_NOT_PRESENT);
    EXPECT_EQ(value, 77u);
    EXPECT_EQ(text, L"untouched");
    EXPECT_TRUE(capture.Messages().empty());
}

TEST(CommunicationTest, SettingTheRequiredStringFromItselfLeavesItEmpty) {
    // The setter empties the member before it notices that the value is the
    // member itself.
    CommunicationPtr element = FilledCommunication();
    EXPECT_EQ(element->SetDispServerHostname(element->GetDispServerHostname()), ZELT_SUCCESS);
    EXPECT_EQ(*element->GetDispServerHostname(), L"");
}

TEST(CommunicationTest, ClearResetsEveryMember) {
    CommunicationPtr element = FilledCommunication();
    element->Clear();
    ExpectCleared(*element);
}

TEST(CommunicationTest, WritingAFreshElementWritesOnlyTheRequiredMembers) {
    CommunicationPtr element = NewCommunication();
    EXPECT_EQ(WrittenText(*element),
              "{ \"Communication\": { \"DispServerHostname\": \"\", \"LogUploadInterval\": 0, "
              "\"ManagementQueryInterval\": 0 } }");
}

TEST(CommunicationTest, WritingAFilledElementWritesEveryMemberInOrder) {
    CommunicationPtr element = FilledCommunication();
    EXPECT_EQ(WrittenText(*element), kFilledText);
}

TEST(CommunicationTest, WritingDoesNotChangeTheElement) {
    CommunicationPtr element = FilledCommunication();
    CommunicationPtr reference = FilledCommunication();
    WrittenText(*element);
    ExpectSameMembers(*element, *reference);
}

TEST(CommunicationTest, AnAbsentOptionalStringIsDroppedFromTheNextWrite) {
    CommunicationPtr element = FilledCommunication();
    element->SetLogServerHostname(nullptr);
    element->SetEnablePII(nullptr);
    EXPECT_EQ(WrittenText(*element),
              "{ \"Communication\": { \"AutoUpgradeQueryInterval\": 30, \"DispServerHostname\": "
              "\"disp.example\", \"EventLogUploadURL\": \"https:\\/\\/upload.example\\/events\", "
              "\"AutoupgradeURI\": \"https:\\/\\/upgrade.example\", \"LogUploadInterval\": 60, "
              "\"ManagementQueryInterval\": 120 } }");
}

TEST(CommunicationTest, TheLargestDWORDIsWrittenNegativeAndReadBackWhole) {
    CommunicationPtr element = NewCommunication();
    const DWORD largest = 4294967295u, high = 2147483648u;
    element->SetLogUploadInterval(&largest);
    element->SetManagementQueryInterval(&high);
    element->SetEnablePII(&largest);
    EXPECT_EQ(WrittenText(*element),
              "{ \"Communication\": { \"DispServerHostname\": \"\", \"LogUploadInterval\": -1, "
              "\"ManagementQueryInterval\": -2147483648, \"EnablePII\": -1 } }");
    CommunicationPtr read = NewCommunication();
    ASSERT_EQ(ReadFromText(*read, WrittenText(*element)), ZELT_SUCCESS);
    ExpectSameMembers(*read, *element);
}

TEST(CommunicationTest, WriteWithoutManagerFails) {
    MessageCapture capture;
    CommunicationPtr element = FilledCommunication();
    EXPECT_EQ(element->WriteToJSONMgr(nullptr, nullptr, 1), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: WriteToJSONMgr require xmlmanager pointer is NULL."});
}

TEST(CommunicationTest, WriteFailsWhenItsObjectIsNotCreated) {
    MessageCapture capture;
    CommunicationPtr element = FilledCommunication();
    ManagerPtr mgr = NewManager();
    EXPECT_EQ(element->WriteToJSONMgr(mgr.get(), nullptr, 1), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: required element pointer is NULL. element: Communication"});
}

TEST(CommunicationTest, WriteWithANullParentWritesUnderTheRoot) {
    CommunicationPtr element = FilledCommunication();
    ManagerPtr mgr = ManagerWithEmptyDocument();
    EXPECT_EQ(element->WriteToJSONMgr(mgr.get(), nullptr, 1), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*mgr), kFilledText);
}

// Each attribute whose write fails stops the write with its own message and
// leaves the earlier members in the document.
TEST(CommunicationTest, EachFailingAttributeWriteGivesItsMessage) {
    struct Case {
        const wchar_t* key;
        const wchar_t* message;
        const char* partial;
    };
    const Case cases[] = {
        {L"AutoUpgradeQueryInterval",
         L"JSONManager: write optional DWORD Attribute failed. element:Communication, "
         L"attr:AutoUpgradeQueryInterval",
         "{ \"Communication\": { } }"},
        {L"DispServerHostname",
         L"JSONManager: write required string Attribute failed. element:Communication, "
         L"attr:DispServerHostname",
         "{ \"Communication\": { \"AutoUpgradeQueryInterval\": 30 } }"},
        {L"LogServerHostname",
         L"JSONManager: write required string Attribute failed. element:Communication, "
         L"attr:LogServerHostname",
         "{ \"Communication\": { \"AutoUpgradeQueryInterval\": 30, \"DispServerHostname\": "
         "\"disp.example\" } }"},
        {L"EventLogUploadURL",
         L"JSONManager: write required string Attribute failed. element:Communication, "
         L"attr:EventLogUploadURL",
         nullptr},
        {L"AutoupgradeURI",
         L"JSONManager: write required string Attribute failed. element:Communication, "
         L"attr:AutoupgradeURI",
         nullptr},
        {L"LogUploadInterval",
         L"JSONManager: write required DWORD Attribute failed. element:Communication, "
         L"attr:LogUploadInterval",
         nullptr},
        {L"ManagementQueryInterval",
         L"JSONManager: write required DWORD Attribute failed. element:Communication, "
         L"attr:ManagementQueryInterval",
         nullptr},
        {L"EnablePII",
         L"JSONManager: write optional DWORD Attribute failed. element:Communication, "
         L"attr:EnablePII",
         "{ \"Communication\": { \"AutoUpgradeQueryInterval\": 30, \"DispServerHostname\": "
         "\"disp.example\", \"LogServerHostname\": \"log.example\", \"EventLogUploadURL\": "
         "\"https:\\/\\/upload.example\\/events\", \"AutoupgradeURI\": "
         "\"https:\\/\\/upgrade.example\", \"LogUploadInterval\": 60, "
         "\"ManagementQueryInterval\": 120 } }"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(Narrow(c.key));
        MessageCapture capture;
        CommunicationPtr element = FilledCommunication();
        InterceptingManager mgr(ManagerWithEmptyDocument());
        mgr.failingAttributes.insert(c.key);
        EXPECT_EQ(element->WriteToJSONMgr(&mgr, mgr.GetRootElement(), 1), ZELT_FAILED);
        EXPECT_EQ(capture.Messages(), Messages{c.message});
        if (c.partial != nullptr) {
            EXPECT_EQ(SavedText(mgr), c.partial);
        }
        // Nothing after the failing member was attempted.
        EXPECT_NE(mgr.calls.back().find(c.key), std::wstring::npos);
    }
}

TEST(CommunicationTest, ReadingAMinimalObjectLeavesTheOptionalMembersAbsent) {
    MessageCapture capture;
    CommunicationPtr element = FilledCommunication();
    ASSERT_EQ(ReadFromText(*element, kMinimalText), ZELT_SUCCESS);
    DWORD value = 77;
    std::wstring text = L"untouched";
    EXPECT_EQ(element->GetAutoUpgradeQueryInterval(&value), ZELT_NOT_PRESENT);
    EXPECT_EQ(element->GetLogServerHostname(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(element->GetEventLogUploadURL(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(element->GetAutoupgradeURI(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(element->GetEnablePII(&value), ZELT_NOT_PRESENT);
    EXPECT_EQ(value, 77u);
    EXPECT_EQ(text, L"untouched");
    EXPECT_EQ(*element->GetDispServerHostname(), L"disp");
    EXPECT_EQ(element->GetLogUploadInterval(), 5u);
    EXPECT_EQ(element->GetManagementQueryInterval(), 6u);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST(CommunicationTest, ReadingAFullObjectTakesEveryMember) {
    CommunicationPtr element = NewCommunication();
    ASSERT_EQ(ReadFromText(*element, kFilledText), ZELT_SUCCESS);
    CommunicationPtr expected = FilledCommunication();
    ExpectSameMembers(*element, *expected);
}

TEST(CommunicationTest, EachMissingRequiredMemberFailsTheReadAndClearsEverything) {
    struct Case {
        const char* text;
        const wchar_t* message;
    };
    const Case cases[] = {
        {"{ \"Communication\": { \"AutoUpgradeQueryInterval\": 1, \"LogUploadInterval\": 5, "
         "\"ManagementQueryInterval\": 6 } }",
         L"JSONManager: read required String Attribute failed. element:Communication, "
         L"attr:DispServerHostname"},
        {"{ \"Communication\": { \"AutoUpgradeQueryInterval\": 1, \"DispServerHostname\": \"d\", "
         "\"LogServerHostname\": \"l\", \"ManagementQueryInterval\": 6 } }",
         L"JSONManager: read required dword/bool Attribute failed. element:Communication, "
         L"attr:LogUploadInterval"},
        {"{ \"Communication\": { \"AutoUpgradeQueryInterval\": 1, \"DispServerHostname\": \"d\", "
         "\"LogServerHostname\": \"l\", \"EventLogUploadURL\": \"e\", \"AutoupgradeURI\": \"a\", "
         "\"LogUploadInterval\": 5, \"EnablePII\": 1 } }",
         L"JSONManager: read required dword/bool Attribute failed. element:Communication, "
         L"attr:ManagementQueryInterval"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        MessageCapture capture;
        CommunicationPtr element = FilledCommunication();
        EXPECT_EQ(ReadFromText(*element, c.text), ZELT_FAILED);
        EXPECT_EQ(capture.Messages(), Messages{c.message});
        ExpectCleared(*element);
    }
}

TEST(CommunicationTest, ReadWithoutManagerFailsAndKeepsTheElement) {
    MessageCapture capture;
    CommunicationPtr element = FilledCommunication();
    CommunicationPtr reference = FilledCommunication();
    EXPECT_EQ(element->ReadFromJSONMgr(nullptr, nullptr), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: ReadFromJSONMgr require xmlmanager pointer is NULL."});
    ExpectSameMembers(*element, *reference);
}

TEST(CommunicationTest, AnEmptyHostNameIsAValueAndIsWrittenBack) {
    CommunicationPtr element = FilledCommunication();
    const std::string text =
        "{ \"Communication\": { \"DispServerHostname\": \"\", \"LogUploadInterval\": 5, "
        "\"ManagementQueryInterval\": 6 } }";
    ASSERT_EQ(ReadFromText(*element, text), ZELT_SUCCESS);
    EXPECT_EQ(*element->GetDispServerHostname(), L"");
    EXPECT_EQ(WrittenText(*element), text);
}

TEST(CommunicationTest, UnreadableOptionalMembersStayAbsentSilently) {
    // A member holding JSON null counts as missing; a number read as a string
    // gives its text.
    MessageCapture capture;
    CommunicationPtr element = NewCommunication();
    ASSERT_EQ(ReadFromText(*element,
                           "{ \"Communication\": { \"AutoUpgradeQueryInterval\": null, "
                           "\"DispServerHostname\": \"d\", \"LogServerHostname\": null, "
                           "\"EventLogUploadURL\": 17, \"LogUploadInterval\": 5, "
                           "\"ManagementQueryInterval\": 6, \"EnablePII\": null } }"),
              ZELT_SUCCESS);
    DWORD value = 77;
    std::wstring text = L"untouched";
    EXPECT_EQ(element->GetAutoUpgradeQueryInterval(&value), ZELT_NOT_PRESENT);
    EXPECT_EQ(element->GetLogServerHostname(&text), ZELT_NOT_PRESENT);
    EXPECT_EQ(element->GetEnablePII(&value), ZELT_NOT_PRESENT);
    EXPECT_EQ(element->GetEventLogUploadURL(&text), ZELT_SUCCESS);
    EXPECT_EQ(text, L"17");
    EXPECT_TRUE(capture.Messages().empty());
}

TEST(CommunicationTest, StringsOfEveryLengthAreReadWhole) {
    for (std::size_t length : {0u, 1u, 1022u, 1023u, 1024u, 1025u, 3000u, 5000u}) {
        SCOPED_TRACE(length);
        CommunicationPtr source = FilledCommunication();
        const std::wstring disp = LongText(length), log = LongText(length + 1);
        source->SetDispServerHostname(&disp);
        source->SetLogServerHostname(&log);
        CommunicationPtr read = NewCommunication();
        ASSERT_EQ(ReadFromText(*read, WrittenText(*source)), ZELT_SUCCESS);
        EXPECT_EQ(*read->GetDispServerHostname(), disp);
        std::wstring text;
        EXPECT_EQ(read->GetLogServerHostname(&text), ZELT_SUCCESS);
        EXPECT_EQ(text, log);
    }
}

TEST(CommunicationTest, ALogServerHostnameOf3000CharactersTakesTheSecondBuffer) {
    const std::wstring log = LongText(3000);
    InterceptingManager mgr(
        ManagerWithText("{ \"DispServerHostname\": \"d\", \"LogServerHostname\": \"" + Narrow(log) +
                        "\", \"LogUploadInterval\": 5, "
                        "\"ManagementQueryInterval\": 6 }"));
    CommunicationPtr element = NewCommunication();
    ASSERT_EQ(element->ReadFromJSONMgr(&mgr, mgr.GetRootElement()), ZELT_SUCCESS);
    std::wstring text;
    EXPECT_EQ(element->GetLogServerHostname(&text), ZELT_SUCCESS);
    EXPECT_EQ(text, log);
    // DispServerHostname once, LogServerHostname twice, the last two once each.
    EXPECT_EQ(mgr.stringLengthsIn, (std::vector<int>{1024, 1024, 3002, 1024, 1024}));
}

TEST(CommunicationTest, TextOutsideASCIIRoundTrips) {
    CommunicationPtr source = FilledCommunication();
    const std::wstring text = L"h\u00e9te \u20ac \U0001d11e \"quoted\" back\\slash";
    source->SetDispServerHostname(&text);
    source->SetAutoupgradeURI(&text);
    CommunicationPtr read = NewCommunication();
    ASSERT_EQ(ReadFromText(*read, WrittenText(*source)), ZELT_SUCCESS);
    ExpectSameMembers(*read, *source);
}

TEST(CommunicationTest, WriteSaveImportAndReadGiveTheSameElement) {
    TempDir dir;
    const std::string path = dir.File("communication.json");
    CommunicationPtr source = FilledCommunication();
    ManagerPtr written = ManagerWithEmptyDocument();
    ASSERT_EQ(source->WriteToJSONMgr(written.get(), written->GetRootElement(), 1), ZELT_SUCCESS);
    ASSERT_EQ(written->SaveToJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);

    ManagerPtr imported = NewManager();
    ASSERT_EQ(imported->ImportFromJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    CommunicationPtr read = NewCommunication();
    ASSERT_EQ(
        read->ReadFromJSONMgr(imported.get(), imported->GetElement(nullptr, L"Communication")),
        ZELT_SUCCESS);
    ExpectSameMembers(*read, *source);
}

TEST(CommunicationTest, CopyFromCopiesEveryMember) {
    CommunicationPtr source = FilledCommunication();
    CommunicationPtr copy = NewCommunication();
    EXPECT_EQ(&copy->CopyFrom(*source), copy.get());
    ExpectSameMembers(*copy, *source);
}

TEST(CommunicationTest, CopyFromReplacesPresentMembersWithAbsentOnes) {
    CommunicationPtr source = NewCommunication();
    const std::wstring disp = L"only";
    source->SetDispServerHostname(&disp);
    CommunicationPtr copy = FilledCommunication();
    copy->CopyFrom(*source);
    ExpectSameMembers(*copy, *source);
}

TEST(CommunicationTest, CopyFromAClearedElementClearsTheTarget) {
    CommunicationPtr source = NewCommunication();
    CommunicationPtr copy = FilledCommunication();
    copy->CopyFrom(*source);
    ExpectCleared(*copy);
}

TEST(CommunicationTest, CopyFromItselfChangesNothing) {
    CommunicationPtr element = FilledCommunication();
    CommunicationPtr reference = FilledCommunication();
    EXPECT_EQ(&element->CopyFrom(*element), element.get());
    ExpectSameMembers(*element, *reference);
}

TEST(CommunicationTest, CopiesShareNothing) {
    CommunicationPtr source = FilledCommunication();
    CommunicationPtr copy = NewCommunication();
    copy->CopyFrom(*source);
    const std::wstring other = L"other";
    const DWORD number = 9;
    copy->SetDispServerHostname(&other);
    copy->SetLogServerHostname(nullptr);
    copy->SetManagementQueryInterval(&number);
    ExpectSameMembers(*source, *FilledCommunication());

    copy->CopyFrom(*source);
    source->Clear();
    ExpectSameMembers(*copy, *FilledCommunication());
}

TEST(CommunicationTest, CopyFromDoesNotCopyTheElementType) {
    CommunicationPtr source = FilledCommunication();
    source->ElementType = 5;
    CommunicationPtr copy = NewCommunication();
    copy->CopyFrom(*source);
    EXPECT_EQ(copy->GetElementType(), ELEMENT_TYPE_ORDINARY);
    source->Clear();
    EXPECT_EQ(source->GetElementType(), ELEMENT_TYPE_ORDINARY);
}
