// HTTPSTest.cpp: the HTTPS element: its accessors, its write and read over a
// manager with every failure message, copying and its virtual slot order.
#include <zelt/zelt.h>

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "support/ElementTesting.h"
#include "support/InterceptingManager.h"
#include "support/MessageCapture.h"
#include "support/VirtualSlot.h"

using namespace VextorJSConfig;

namespace {

const std::string kFreshHTTPS =
    R"({ "HTTPS": { "InspectHostnameOnly": 0, "SSLFilter": 0, "UpstreamVerification": 0 } })";

class HTTPSTest : public ::testing::Test {
protected:
    // The element after reading the "HTTPS" object of text; the read must
    // succeed.
    void ReadFrom(const std::string& text) {
        ASSERT_EQ(ReadFromDocument(*https, text, L"HTTPS"), ZELT_SUCCESS);
    }

    void Fill() {
        const DWORD one = 1, two = 2, three = 3;
        const std::wstring list = L"bank.example.com;pay.example.org";
        const std::wstring ports = L"mail.example.com:993";
        https->SetInspectHostnameOnly(&one);
        https->SetSSLFilter(&two);
        https->SetUpstreamVerification(&three);
        https->SetWhiteList(&list);
        https->SetWhiteListWithPorts(&ports);
    }

    void ExpectCleared() {
        EXPECT_EQ(https->GetElementType(), 0u);
        EXPECT_EQ(https->GetInspectHostnameOnly(), 0u);
        EXPECT_EQ(https->GetSSLFilter(), 0u);
        EXPECT_EQ(https->GetUpstreamVerification(), 0u);
        std::wstring out = L"untouched";
        EXPECT_EQ(https->GetWhiteList(&out), ZELT_NOT_PRESENT);
        EXPECT_EQ(https->GetWhiteListWithPorts(&out), ZELT_NOT_PRESENT);
        EXPECT_EQ(out, L"untouched");
    }

    MessageCapture capture;
    ElementPtr<IHTTPS> https{HTTPS_CreateNewInstance()};
};

TEST_F(HTTPSTest, VirtualSlotsFollowTheContract) {
    EXPECT_EQ(VirtualSlotOf(&IHTTPS::WriteToJSONMgr), 1);
    EXPECT_EQ(VirtualSlotOf(&IHTTPS::ReadFromJSONMgr), 2);
    EXPECT_EQ(VirtualSlotOf(&IHTTPS::Clear), 3);
    EXPECT_EQ(VirtualSlotOf(&IHTTPS::CopyFrom), 4);
    EXPECT_EQ(VirtualSlotOf(&IHTTPS::GetElementType), 5);
    EXPECT_EQ(VirtualSlotOf(&IHTTPS::GetInspectHostnameOnly), 6);
    EXPECT_EQ(VirtualSlotOf(&IHTTPS::SetInspectHostnameOnly), 7);
    EXPECT_EQ(VirtualSlotOf(&IHTTPS::GetSSLFilter), 8);
    EXPECT_EQ(VirtualSlotOf(&IHTTPS::SetSSLFilter), 9);
    EXPECT_EQ(VirtualSlotOf(&IHTTPS::GetUpstreamVerification), 10);
    EXPECT_EQ(VirtualSlotOf(&IHTTPS::SetUpstreamVerification), 11);
    EXPECT_EQ(VirtualSlotOf(&IHTTPS::GetWhiteList), 12);
    EXPECT_EQ(VirtualSlotOf(&IHTTPS::SetWhiteList), 13);
    EXPECT_EQ(VirtualSlotOf(&IHTTPS::GetWhiteListWithPorts), 14);
    EXPECT_EQ(VirtualSlotOf(&IHTTPS::SetWhiteListWithPorts), 15);
}

TEST_F(HTTPSTest, FactoryGivesAClearedOrdinaryElement) {
    ExpectCleared();
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(HTTPSTest, RequiredSwitchesStoreTheirValue) {
    const DWORD value = 4294967295u;
    EXPECT_EQ(https->SetInspectHostnameOnly(&value), ZELT_SUCCESS);
    EXPECT_EQ(https->SetSSLFilter(&value), ZELT_SUCCESS);
    EXPECT_EQ(https->SetUpstreamVerification(&value), ZELT_SUCCESS);
    EXPECT_EQ(https->GetInspectHostnameOnly(), value);
    EXPECT_EQ(https->GetSSLFilter(), value);
    EXPECT_EQ(https->GetUpstreamVerification(), value);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(HTTPSTest, NullSwitchIsRefusedAndKeepsTheOldValue) {
    Fill();
    EXPECT_EQ(https->SetInspectHostnameOnly(nullptr), ZELT_FAILED);
    EXPECT_EQ(https->SetSSLFilter(nullptr), ZELT_FAILED);
    EXPECT_EQ(https->SetUpstreamVerification(nullptr), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              (Messages{L"JSONManager: set Attribute failed due to parama pointer is NULL. "
                        L"element:HTTPS, attr:InspectHostnameOnly",
                        L"JSONManager: set Attribute failed due to parama pointer is NULL. "
                        L"element:HTTPS, attr:SSLFilter",
                        L"JSONManager: set Attribute failed due to parama pointer is NULL. "
                        L"element:HTTPS, attr:UpstreamVerification"}));
    EXPECT_EQ(https->GetInspectHostnameOnly(), 1u);
    EXPECT_EQ(https->GetSSLFilter(), 2u);
    EXPECT_EQ(https->GetUpstreamVerification(), 3u);
}

TEST_F(HTTPSTest, OptionalTextsArePresentOnlyAfterASet) {
    std::wstring out = L"untouched";
    EXPECT_EQ(https->GetWhiteList(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(out, L"untouched");

    const std::wstring list = L"a.example;b.example";
    const std::wstring empty;
    https->SetWhiteList(&list);
    https->SetWhiteListWithPorts(&empty);
    EXPECT_EQ(https->GetWhiteList(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, list);
    out = L"untouched";
    EXPECT_EQ(https->GetWhiteListWithPorts(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, L"");

    https->SetWhiteList(nullptr);
    out = L"untouched";
    EXPECT_EQ(https->GetWhiteList(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(out, L"untouched");
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(HTTPSTest, ClearResetsEveryMember) {
    Fill();
    https->ElementType = 9;
    https->Clear();
    ExpectCleared();
}

TEST_F(HTTPSTest, FreshElementWritesTheThreeSwitchesAsZero) {
    EXPECT_EQ(WrittenText(*https), kFreshHTTPS);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(HTTPSTest, WritesEveryMemberInOrder) {
    Fill();
    const std::wstring special = L"a/b \"quoted\" back\\slash \u00e9\U0001F512";
    https->SetWhiteListWithPorts(&special);
    EXPECT_EQ(WrittenText(*https),
              "{ \"HTTPS\": { \"InspectHostnameOnly\": 1, \"SSLFilter\": 2, "
              "\"UpstreamVerification\": 3, \"WhiteList\": \"bank.example.com;pay.example.org\", "
              "\"WhiteListWithPorts\": \"a\\/b \\\"quoted\\\" back\\\\slash "
              "\xc3\xa9\xf0\x9f\x94\x92\" } }");
}

TEST_F(HTTPSTest, PresentEmptyTextIsWrittenAsEmptyString) {
    const std::wstring empty;
    https->SetWhiteList(&empty);
    EXPECT_EQ(
        WrittenText(*https),
        R"({ "HTTPS": { "InspectHostnameOnly": 0, "SSLFilter": 0, "UpstreamVerification": 0, "WhiteList": "" } })");
}

TEST_F(HTTPSTest, LargestDWORDIsWrittenAsMinusOneAndReadsBack) {
    const DWORD largest = 4294967295u;
    https->SetSSLFilter(&largest);
    const std::string text = WrittenText(*https);
    EXPECT_EQ(
        text,
        R"({ "HTTPS": { "InspectHostnameOnly": 0, "SSLFilter": -1, "UpstreamVerification": 0 } })");
    https->Clear();
    ReadFrom(text);
    EXPECT_EQ(https->GetSSLFilter(), largest);
}

TEST_F(HTTPSTest, WriteWithoutManagerFails) {
    EXPECT_EQ(https->WriteToJSONMgr(nullptr, nullptr, 1), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: WriteToJSONMgr require xmlmanager pointer is NULL."});
}

TEST_F(HTTPSTest, WriteFailsWhenItsObjectIsNotCreated) {
    InterceptingManager manager(ManagerWithText("{}"));
    IJSONManager& real = manager.Inner();
    manager.refusedElements.insert(L"HTTPS");
    EXPECT_EQ(https->WriteToJSONMgr(&manager, real.GetRootElement(), 1), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: required element pointer is NULL. element: HTTPS"});
    EXPECT_EQ(SavedText(real), "{ }");
}

struct WriteFailure {
    const wchar_t* key;
    const wchar_t* message;
    const char* partialDocument;
};

// Printed as the failure it describes, so that test names stay the same
// from run to run.
void PrintTo(const WriteFailure& failure, std::ostream* out) { *out << Narrow(failure.key); }

class HTTPSWriteFailureTest : public HTTPSTest,
                              public ::testing::WithParamInterface<WriteFailure> {};

TEST_P(HTTPSWriteFailureTest, StopsAtTheFailingMemberAndKeepsWhatWasWritten) {
    Fill();
    InterceptingManager manager(ManagerWithText("{}"));
    IJSONManager& real = manager.Inner();
    manager.failingAttributes.insert(GetParam().key);
    EXPECT_EQ(https->WriteToJSONMgr(&manager, real.GetRootElement(), 1), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(), Messages{GetParam().message});
    EXPECT_EQ(SavedText(real), GetParam().partialDocument);
}

INSTANTIATE_TEST_SUITE_P(
    HTTPSTest, HTTPSWriteFailureTest,
    ::testing::Values(
        WriteFailure{L"InspectHostnameOnly",
                     L"JSONManager: write required DWORD Attribute failed. element:HTTPS, "
                     L"attr:InspectHostnameOnly",
                     R"({ "HTTPS": { } })"},
        WriteFailure{L"SSLFilter",
                     L"JSONManager: write required DWORD Attribute failed. element:HTTPS, "
                     L"attr:SSLFilter",
                     R"({ "HTTPS": { "InspectHostnameOnly": 1 } })"},
        WriteFailure{L"UpstreamVerification",
                     L"JSONManager: write required DWORD Attribute failed. element:HTTPS, "
                     L"attr:UpstreamVerification",
                     R"({ "HTTPS": { "InspectHostnameOnly": 1, "SSLFilter": 2 } })"},
        WriteFailure{
            L"WhiteList",
            L"JSONManager: write required string Attribute failed. element:HTTPS, "
            L"attr:WhiteList",
            R"({ "HTTPS": { "InspectHostnameOnly": 1, "SSLFilter": 2, "UpstreamVerification": 3 } })"},
        WriteFailure{
            L"WhiteListWithPorts",
            L"JSONManager: write required string Attribute failed. element:HTTPS, "
            L"attr:WhiteListWithPorts",
            R"({ "HTTPS": { "InspectHostnameOnly": 1, "SSLFilter": 2, "UpstreamVerification": 3, "WhiteList": "bank.example.com;pay.example.org" } })"}));

TEST_F(HTTPSTest, ReadsEveryMember) {
    ReadFrom(R"({ "HTTPS": { "InspectHostnameOnly": 1, "SSLFilter": 0, "UpstreamVerification": 7,
                 "WhiteList": "a\/b;\u00e9", "WhiteListWithPorts": "x:1" } })");
    EXPECT_EQ(https->GetInspectHostnameOnly(), 1u);
    EXPECT_EQ(https->GetSSLFilter(), 0u);
    EXPECT_EQ(https->GetUpstreamVerification(), 7u);
    std::wstring out;
    EXPECT_EQ(https->GetWhiteList(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, L"a/b;\u00e9");
    EXPECT_EQ(https->GetWhiteListWithPorts(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, L"x:1");
    EXPECT_EQ(https->GetElementType(), 0u);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(HTTPSTest, SwitchesAloneReadWithBothTextsAbsent) {
    Fill();
    ReadFrom(
        R"({ "HTTPS": { "InspectHostnameOnly": 1, "SSLFilter": 1, "UpstreamVerification": 1 } })");
    std::wstring out = L"untouched";
    EXPECT_EQ(https->GetWhiteList(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(https->GetWhiteListWithPorts(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(out, L"untouched");
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(HTTPSTest, PresentEmptyTextReadsAsPresentAndWritesBack) {
    ReadFrom(
        R"({ "HTTPS": { "InspectHostnameOnly": 0, "SSLFilter": 0, "UpstreamVerification": 0, "WhiteList": "" } })");
    std::wstring out = L"untouched";
    EXPECT_EQ(https->GetWhiteList(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, L"");
    EXPECT_EQ(
        WrittenText(*https),
        R"({ "HTTPS": { "InspectHostnameOnly": 0, "SSLFilter": 0, "UpstreamVerification": 0, "WhiteList": "" } })");
}

TEST_F(HTTPSTest, NonIntegerSwitchesReadAsTheManagerConvertsThem) {
    ReadFrom(
        R"({ "HTTPS": { "InspectHostnameOnly": true, "SSLFilter": "12abc", "UpstreamVerification": 2.9 } })");
    EXPECT_EQ(https->GetInspectHostnameOnly(), 1u);
    EXPECT_EQ(https->GetSSLFilter(), 12u);
    EXPECT_EQ(https->GetUpstreamVerification(), 2u);
}

TEST_F(HTTPSTest, NonStringTextReadsAsItsJSONText) {
    ReadFrom(
        R"({ "HTTPS": { "InspectHostnameOnly": 0, "SSLFilter": 0, "UpstreamVerification": 0, "WhiteList": 42 } })");
    std::wstring out;
    EXPECT_EQ(https->GetWhiteList(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, L"42");
}

struct ReadFailure {
    const char* name;
    const char* document;
    const wchar_t* message;
};

// Printed as the failure it describes, so that test names stay the same
// from run to run.
void PrintTo(const ReadFailure& failure, std::ostream* out) { *out << failure.name; }

class HTTPSReadFailureTest : public HTTPSTest, public ::testing::WithParamInterface<ReadFailure> {};

TEST_P(HTTPSReadFailureTest, MissingSwitchFailsAndLeavesTheElementCleared) {
    Fill();
    ManagerPtr manager = ManagerWithText(GetParam().document);
    EXPECT_EQ(https->ReadFromJSONMgr(manager.get(), manager->GetElement(nullptr, L"HTTPS")),
              ZELT_FAILED);
    EXPECT_EQ(capture.Messages(), Messages{GetParam().message});
    ExpectCleared();
}

INSTANTIATE_TEST_SUITE_P(
    HTTPSTest, HTTPSReadFailureTest,
    ::testing::Values(
        ReadFailure{
            "MissingInspectHostnameOnly",
            R"({ "HTTPS": { "SSLFilter": 1, "UpstreamVerification": 1, "WhiteList": "w" } })",
            L"JSONManager: read required dword/bool Attribute failed. element:HTTPS, "
            L"attr:InspectHostnameOnly"},
        ReadFailure{
            "MissingSSLFilter",
            R"({ "HTTPS": { "InspectHostnameOnly": 1, "UpstreamVerification": 1, "WhiteList": "w" } })",
            L"JSONManager: read required dword/bool Attribute failed. element:HTTPS, "
            L"attr:SSLFilter"},
        ReadFailure{
            "MissingUpstreamVerification",
            R"({ "HTTPS": { "InspectHostnameOnly": 1, "SSLFilter": 1, "WhiteList": "w" } })",
            L"JSONManager: read required dword/bool Attribute failed. element:HTTPS, "
            L"attr:UpstreamVerification"},
        ReadFailure{
            "NullSSLFilter",
            R"({ "HTTPS": { "InspectHostnameOnly": 1, "SSLFilter": null, "UpstreamVerification": 1 } })",
            L"JSONManager: read required dword/bool Attribute failed. element:HTTPS, "
            L"attr:SSLFilter"},
        ReadFailure{"ObjectIsANumber", R"({ "HTTPS": 5 })",
                    L"JSONManager: read required dword/bool Attribute failed. element:HTTPS, "
                    L"attr:InspectHostnameOnly"}));

TEST_F(HTTPSTest, ReadWithoutManagerFailsAndKeepsTheElement) {
    Fill();
    EXPECT_EQ(https->ReadFromJSONMgr(nullptr, nullptr), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: ReadFromJSONMgr require xmlmanager pointer is NULL."});
    EXPECT_EQ(https->GetSSLFilter(), 2u);
    std::wstring out;
    EXPECT_EQ(https->GetWhiteList(&out), ZELT_SUCCESS);
}

// The first buffer holds 1024 wide characters and the manager asks for the
// length plus two, so 1022 characters are the longest text of the first step.
TEST_F(HTTPSTest, TextsOfAnyLengthArriveWhole) {
    for (std::size_t length : {1021u, 1022u, 1023u, 1024u, 3000u}) {
        const std::string text(length, 'w');
        ReadFrom(
            R"({ "HTTPS": { "InspectHostnameOnly": 0, "SSLFilter": 0, "UpstreamVerification": 0, "WhiteList": ")" +
            text + R"(", "WhiteListWithPorts": ")" + text + "p" + R"(" } })");
        std::wstring out;
        EXPECT_EQ(https->GetWhiteList(&out), ZELT_SUCCESS);
        EXPECT_EQ(out, std::wstring(length, L'w')) << length;
        EXPECT_EQ(https->GetWhiteListWithPorts(&out), ZELT_SUCCESS);
        EXPECT_EQ(out, std::wstring(length, L'w') + L"p") << length;
    }
}

TEST_F(HTTPSTest, FailingSecondStepLeavesTheTextAbsentWithoutMessage) {
    for (std::size_t length : {1022u, 1023u}) {
        InterceptingManager manager(ManagerWithText(
            R"({ "HTTPS": { "InspectHostnameOnly": 0, "SSLFilter": 0, "UpstreamVerification": 0, "WhiteList": ")" +
            std::string(length, 'w') + R"(", "WhiteListWithPorts": "p" } })"));
        IJSONManager& real = manager.Inner();
        manager.failingLargeStringReads.insert(L"WhiteList");
        EXPECT_EQ(https->ReadFromJSONMgr(&manager, real.GetElement(nullptr, L"HTTPS")),
                  ZELT_SUCCESS);
        std::wstring out = L"untouched";
        // 1022 characters fit the first buffer; 1023 need the failing second.
        EXPECT_EQ(https->GetWhiteList(&out), length == 1022u ? ZELT_SUCCESS : ZELT_NOT_PRESENT);
        EXPECT_EQ(manager.failedLargeStringReads, length == 1022u ? 0 : 1);
        EXPECT_EQ(https->GetWhiteListWithPorts(&out), ZELT_SUCCESS);
        EXPECT_EQ(out, L"p");
    }
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(HTTPSTest, BufferTooSmallWithoutALargerLengthLeavesTheTextAbsent) {
    InterceptingManager manager(ManagerWithText(
        R"({ "HTTPS": { "InspectHostnameOnly": 0, "SSLFilter": 0, "UpstreamVerification": 0, "WhiteList": "w", "WhiteListWithPorts": "p" } })"));
    IJSONManager& real = manager.Inner();
    manager.stringRepliesByName[L"WhiteList"] = {ZELT_BUFFER_TOO_SMALL, 1024, L""};
    manager.stringRepliesByName[L"WhiteListWithPorts"] = {ZELT_BAD_ARGUMENT, 1024, L""};
    EXPECT_EQ(https->ReadFromJSONMgr(&manager, real.GetElement(nullptr, L"HTTPS")), ZELT_SUCCESS);
    std::wstring out;
    EXPECT_EQ(https->GetWhiteList(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(https->GetWhiteListWithPorts(&out), ZELT_NOT_PRESENT);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(HTTPSTest, CopyFromMakesAnIndependentCopy) {
    Fill();
    https->ElementType = 7;
    ElementPtr<IHTTPS> copy(HTTPS_CreateNewInstance());
    const std::wstring old = L"old";
    copy->SetWhiteListWithPorts(&old);
    EXPECT_EQ(&copy->CopyFrom(*https), copy.get());
    EXPECT_EQ(copy->GetElementType(), 0u);

    const DWORD nine = 9;
    const std::wstring changed = L"changed";
    https->SetSSLFilter(&nine);
    https->SetWhiteList(&changed);
    https->SetWhiteListWithPorts(nullptr);

    EXPECT_EQ(copy->GetInspectHostnameOnly(), 1u);
    EXPECT_EQ(copy->GetSSLFilter(), 2u);
    EXPECT_EQ(copy->GetUpstreamVerification(), 3u);
    std::wstring out;
    EXPECT_EQ(copy->GetWhiteList(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, L"bank.example.com;pay.example.org");
    EXPECT_EQ(copy->GetWhiteListWithPorts(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, L"mail.example.com:993");
}

TEST_F(HTTPSTest, CopyFromItselfChangesNothing) {
    Fill();
    https->CopyFrom(*https);
    EXPECT_EQ(https->GetSSLFilter(), 2u);
    std::wstring out;
    EXPECT_EQ(https->GetWhiteList(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, L"bank.example.com;pay.example.org");
}

TEST_F(HTTPSTest, CopyFromAClearedElementClearsTheTarget) {
    Fill();
    ElementPtr<IHTTPS> cleared(HTTPS_CreateNewInstance());
    https->CopyFrom(*cleared);
    ExpectCleared();
}

}  // namespace
