// ClientSettingTest.cpp: the ClientSetting element: its two required children
// and its switches, its write and read over a manager with every failure
// message and the messages of the children below it, copying and its virtual
// slot order.
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

const char kFreshClientSetting[] =
    R"({ "ClientSetting": { "Communication": { "DispServerHostname": "", "LogUploadInterval": 0, )"
    R"("ManagementQueryInterval": 0 }, "HTTPS": { "InspectHostnameOnly": 0, "SSLFilter": 0, )"
    R"("UpstreamVerification": 0 }, "ContentUpload": 0, "LogUpload": 0, "URLLocalCache": 0 } })";

const char kCommunicationWritten[] =
    R"("Communication": { "AutoUpgradeQueryInterval": 3600, "DispServerHostname": "disp.example.net", )"
    R"("LogUploadInterval": 600, "ManagementQueryInterval": 300 })";
const char kHTTPSWritten[] =
    R"("HTTPS": { "InspectHostnameOnly": 1, "SSLFilter": 1, "UpstreamVerification": 0, )"
    R"("WhiteList": "bank.example.com" })";

std::string FullClientSetting() {
    return std::string(R"({ "ClientSetting": { )") + kCommunicationWritten + ", " + kHTTPSWritten +
           R"(, "ContentUpload": 1, "FailOpen": 0, "LogUpload": 2, "URLLocalCache": 3, )"
           R"("SafeMode": 4, "StatsPeriod": 900 } })";
}

class ClientSettingTest : public ::testing::Test {
protected:
    int ReadFromText(const std::string& text) {
        return ReadFromDocument(*setting, text, L"ClientSetting");
    }

    void ReadFrom(const std::string& text) { ASSERT_EQ(ReadFromText(text), ZELT_SUCCESS); }

    void Fill() {
        const DWORD interval = 3600, logs = 600, management = 300;
        const std::wstring host = L"disp.example.net";
        ICommunication* communication = setting->GetCommunication();
        communication->SetAutoUpgradeQueryInterval(&interval);
        communication->SetDispServerHostname(&host);
        communication->SetLogUploadInterval(&logs);
        communication->SetManagementQueryInterval(&management);

        const DWORD zero = 0, one = 1, two = 2, three = 3, four = 4, period = 900;
        const std::wstring whiteList = L"bank.example.com";
        IHTTPS* https = setting->GetHTTPS();
        https->SetInspectHostnameOnly(&one);
        https->SetSSLFilter(&one);
        https->SetUpstreamVerification(&zero);
        https->SetWhiteList(&whiteList);

        setting->SetContentUpload(&one);
        setting->SetFailOpen(&zero);
        setting->SetLogUpload(&two);
        setting->SetURLLocalCache(&three);
        setting->SetSafeMode(&four);
        setting->SetStatsPeriod(&period);
    }

    void ExpectCleared() {
        EXPECT_EQ(setting->GetElementType(), 0u);
        EXPECT_EQ(*setting->GetCommunication()->GetDispServerHostname(), L"");
        EXPECT_EQ(setting->GetCommunication()->GetManagementQueryInterval(), 0u);
        DWORD out = 12345;
        EXPECT_EQ(setting->GetCommunication()->GetAutoUpgradeQueryInterval(&out), ZELT_NOT_PRESENT);
        EXPECT_EQ(setting->GetHTTPS()->GetInspectHostnameOnly(), 0u);
        std::wstring text = L"untouched";
        EXPECT_EQ(setting->GetHTTPS()->GetWhiteList(&text), ZELT_NOT_PRESENT);
        EXPECT_EQ(setting->GetContentUpload(), 0u);
        EXPECT_EQ(setting->GetLogUpload(), 0u);
        EXPECT_EQ(setting->GetURLLocalCache(), 0u);
        EXPECT_EQ(setting->GetFailOpen(&out), ZELT_NOT_PRESENT);
        EXPECT_EQ(setting->GetSafeMode(&out), ZELT_NOT_PRESENT);
        EXPECT_EQ(setting->GetStatsPeriod(&out), ZELT_NOT_PRESENT);
        EXPECT_EQ(out, 12345u);
        EXPECT_EQ(WrittenText(*setting), kFreshClientSetting);
    }

    MessageCapture capture;
    ElementPtr<IClientSetting> setting{ClientSetting_CreateNewInstance()};
};

TEST_F(ClientSettingTest, VirtualSlotsFollowTheContract) {
    using I = IClientSetting;
    EXPECT_EQ(VirtualSlotOf(&I::WriteToJSONMgr), 1);
    EXPECT_EQ(VirtualSlotOf(&I::ReadFromJSONMgr), 2);
    EXPECT_EQ(VirtualSlotOf(&I::Clear), 3);
    EXPECT_EQ(VirtualSlotOf(&I::CopyFrom), 4);
    EXPECT_EQ(VirtualSlotOf(&I::GetElementType), 5);
    EXPECT_EQ(VirtualSlotOf(&I::GetCommunication), 6);
    EXPECT_EQ(VirtualSlotOf(&I::SetCommunication), 7);
    EXPECT_EQ(VirtualSlotOf(&I::GetHTTPS), 8);
    EXPECT_EQ(VirtualSlotOf(&I::SetHTTPS), 9);
    EXPECT_EQ(VirtualSlotOf(&I::GetContentUpload), 10);
    EXPECT_EQ(VirtualSlotOf(&I::SetContentUpload), 11);
    EXPECT_EQ(VirtualSlotOf(&I::GetFailOpen), 12);
    EXPECT_EQ(VirtualSlotOf(&I::SetFailOpen), 13);
    EXPECT_EQ(VirtualSlotOf(&I::GetLogUpload), 14);
    EXPECT_EQ(VirtualSlotOf(&I::SetLogUpload), 15);
    EXPECT_EQ(VirtualSlotOf(&I::GetURLLocalCache), 16);
    EXPECT_EQ(VirtualSlotOf(&I::SetURLLocalCache), 17);
    EXPECT_EQ(VirtualSlotOf(&I::GetSafeMode), 18);
    EXPECT_EQ(VirtualSlotOf(&I::SetSafeMode), 19);
    EXPECT_EQ(VirtualSlotOf(&I::GetStatsPeriod), 20);
    EXPECT_EQ(VirtualSlotOf(&I::SetStatsPeriod), 21);
}

TEST_F(ClientSettingTest, FactoryGivesAClearedOrdinaryElement) {
    ExpectCleared();
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(ClientSettingTest, NullRequiredValuesAreRefusedAndKeepTheOldValue) {
    Fill();
    EXPECT_EQ(setting->SetContentUpload(nullptr), ZELT_FAILED);
    EXPECT_EQ(setting->SetLogUpload(nullptr), ZELT_FAILED);
    EXPECT_EQ(setting->SetURLLocalCache(nullptr), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              (Messages{L"JSONManager: set Attribute failed due to parama pointer is NULL. "
                        L"element:ClientSetting, attr:ContentUpload",
                        L"JSONManager: set Attribute failed due to parama pointer is NULL. "
                        L"element:ClientSetting, attr:LogUpload",
                        L"JSONManager: set Attribute failed due to parama pointer is NULL. "
                        L"element:ClientSetting, attr:URLLocalCache"}));
    EXPECT_EQ(setting->GetContentUpload(), 1u);
    EXPECT_EQ(setting->GetLogUpload(), 2u);
    EXPECT_EQ(setting->GetURLLocalCache(), 3u);
}

TEST_F(ClientSettingTest, OptionalValuesArePresentOnlyAfterASet) {
    Fill();
    DWORD out = 0;
    EXPECT_EQ(setting->GetFailOpen(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, 0u);
    EXPECT_EQ(setting->GetSafeMode(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, 4u);
    EXPECT_EQ(setting->GetStatsPeriod(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, 900u);

    setting->SetFailOpen(nullptr);
    setting->SetSafeMode(nullptr);
    setting->SetStatsPeriod(nullptr);
    out = 12345;
    EXPECT_EQ(setting->GetFailOpen(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(setting->GetSafeMode(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(setting->GetStatsPeriod(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(out, 12345u);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(ClientSettingTest, NullChildIsRefusedAndKeepsTheChild) {
    Fill();
    EXPECT_EQ(setting->SetCommunication(nullptr), ZELT_FAILED);
    EXPECT_EQ(setting->SetHTTPS(nullptr), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              (Messages{L"JSONManager: Set element failed due to param is NULL. "
                        L"element:Communication",
                        L"JSONManager: Set element failed due to param is NULL. element:HTTPS"}));
    EXPECT_EQ(*setting->GetCommunication()->GetDispServerHostname(), L"disp.example.net");
    EXPECT_EQ(setting->GetHTTPS()->GetSSLFilter(), 1u);
}

TEST_F(ClientSettingTest, SetChildStoresACopyAndGetHandsOutTheEmbeddedChild) {
    ElementPtr<IHTTPS> https(HTTPS_CreateNewInstance());
    const DWORD five = 5;
    https->SetSSLFilter(&five);
    EXPECT_EQ(setting->SetHTTPS(https.get()), ZELT_SUCCESS);
    EXPECT_NE(setting->GetHTTPS(), https.get());
    https->Clear();
    EXPECT_EQ(setting->GetHTTPS()->GetSSLFilter(), 5u);

    ElementPtr<ICommunication> communication(Communication_CreateNewInstance());
    const std::wstring host = L"h";
    communication->SetDispServerHostname(&host);
    EXPECT_EQ(setting->SetCommunication(communication.get()), ZELT_SUCCESS);
    EXPECT_NE(setting->GetCommunication(), communication.get());
    communication->Clear();
    EXPECT_EQ(*setting->GetCommunication()->GetDispServerHostname(), L"h");
    EXPECT_EQ(setting->GetCommunication(), setting->GetCommunication());
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(ClientSettingTest, ClearResetsEveryMemberAndBothChildren) {
    Fill();
    setting->ElementType = 8;
    setting->Clear();
    ExpectCleared();
}

TEST_F(ClientSettingTest, FreshElementWritesBothChildrenAndTheRequiredValues) {
    EXPECT_EQ(WrittenText(*setting), kFreshClientSetting);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(ClientSettingTest, WritesEveryMemberInOrder) {
    Fill();
    EXPECT_EQ(WrittenText(*setting), FullClientSetting());
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(ClientSettingTest, WriteWithoutManagerFails) {
    EXPECT_EQ(setting->WriteToJSONMgr(nullptr, nullptr, 1), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: WriteToJSONMgr require xmlmanager pointer is NULL."});
}

class ClientSettingWriteFailureTest : public ClientSettingTest,
                                      public ::testing::WithParamInterface<WriteFailure> {};

TEST_P(ClientSettingWriteFailureTest, StopsAtTheFailingMemberAndKeepsWhatWasWritten) {
    Fill();
    InterceptingManager manager(ManagerWithText("{}"));
    IJSONManager& real = manager.Inner();
    InjectFailure(manager, GetParam());
    EXPECT_EQ(setting->WriteToJSONMgr(&manager, real.GetRootElement(), 1), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(), GetParam().messages);
    EXPECT_EQ(SavedText(real), GetParam().partialDocument);
}

const std::string kChildrenWritten =
    std::string(R"({ "ClientSetting": { )") + kCommunicationWritten + ", " + kHTTPSWritten;

WriteFailure AttributeFailure(const wchar_t* key, const wchar_t* message,
                              const std::string& writtenBefore) {
    return WriteFailure{nullptr, key, {message}, kChildrenWritten + writtenBefore + " } }"};
}

INSTANTIATE_TEST_SUITE_P(
    ClientSettingTest, ClientSettingWriteFailureTest,
    ::testing::Values(
        WriteFailure{L"ClientSetting",
                     nullptr,
                     {L"JSONManager: required element pointer is NULL. element: ClientSetting"},
                     "{ }"},
        WriteFailure{L"Communication",
                     nullptr,
                     {L"JSONManager: required element pointer is NULL. element: Communication",
                      L"JSONManager: write require element failed. element:Communication"},
                     R"({ "ClientSetting": { } })"},
        WriteFailure{
            nullptr,
            L"DispServerHostname",
            {L"JSONManager: write required string Attribute failed. "
             L"element:Communication, attr:DispServerHostname",
             L"JSONManager: write require element failed. element:Communication"},
            R"({ "ClientSetting": { "Communication": { "AutoUpgradeQueryInterval": 3600 } } })"},
        WriteFailure{L"HTTPS",
                     nullptr,
                     {L"JSONManager: required element pointer is NULL. element: HTTPS",
                      L"JSONManager: write require element failed. element:HTTPS"},
                     std::string(R"({ "ClientSetting": { )") + kCommunicationWritten + " } }"},
        WriteFailure{nullptr,
                     L"SSLFilter",
                     {L"JSONManager: write required DWORD Attribute failed. element:HTTPS, "
                      L"attr:SSLFilter",
                      L"JSONManager: write require element failed. element:HTTPS"},
                     std::string(R"({ "ClientSetting": { )") + kCommunicationWritten +
                         R"(, "HTTPS": { "InspectHostnameOnly": 1 } } })"},
        AttributeFailure(L"ContentUpload",
                         L"JSONManager: write required DWORD Attribute failed. "
                         L"element:ClientSetting, attr:ContentUpload",
                         ""),
        AttributeFailure(L"FailOpen",
                         L"JSONManager: write optional DWORD Attribute failed. "
                         L"element:ClientSetting, attr:FailOpen",
                         R"(, "ContentUpload": 1)"),
        AttributeFailure(L"LogUpload",
                         L"JSONManager: write required DWORD Attribute failed. "
                         L"element:ClientSetting, attr:LogUpload",
                         R"(, "ContentUpload": 1, "FailOpen": 0)"),
        AttributeFailure(L"URLLocalCache",
                         L"JSONManager: write required DWORD Attribute failed. "
                         L"element:ClientSetting, attr:URLLocalCache",
                         R"(, "ContentUpload": 1, "FailOpen": 0, "LogUpload": 2)"),
        AttributeFailure(
            L"SafeMode",
            L"JSONManager: write optional DWORD Attribute failed. "
            L"element:ClientSetting, attr:SafeMode",
            R"(, "ContentUpload": 1, "FailOpen": 0, "LogUpload": 2, "URLLocalCache": 3)"),
        AttributeFailure(
            L"StatsPeriod",
            L"JSONManager: write optional DWORD Attribute failed. "
            L"element:ClientSetting, attr:StatsPeriod",
            R"(, "ContentUpload": 1, "FailOpen": 0, "LogUpload": 2, "URLLocalCache": 3, "SafeMode": 4)")));

TEST_F(ClientSettingTest, ReadsEveryMember) {
    ReadFrom(FullClientSetting());
    const ICommunication* communication = setting->GetCommunication();
    DWORD value = 0;
    EXPECT_EQ(communication->GetAutoUpgradeQueryInterval(&value), ZELT_SUCCESS);
    EXPECT_EQ(value, 3600u);
    EXPECT_EQ(*communication->GetDispServerHostname(), L"disp.example.net");
    EXPECT_EQ(communication->GetLogUploadInterval(), 600u);
    EXPECT_EQ(communication->GetManagementQueryInterval(), 300u);
    EXPECT_EQ(setting->GetHTTPS()->GetInspectHostnameOnly(), 1u);
    std::wstring text;
    EXPECT_EQ(setting->GetHTTPS()->GetWhiteList(&text), ZELT_SUCCESS);
    EXPECT_EQ(text, L"bank.example.com");
    EXPECT_EQ(setting->GetContentUpload(), 1u);
    EXPECT_EQ(setting->GetFailOpen(&value), ZELT_SUCCESS);
    EXPECT_EQ(value, 0u);
    EXPECT_EQ(setting->GetLogUpload(), 2u);
    EXPECT_EQ(setting->GetURLLocalCache(), 3u);
    EXPECT_EQ(setting->GetSafeMode(&value), ZELT_SUCCESS);
    EXPECT_EQ(value, 4u);
    EXPECT_EQ(setting->GetStatsPeriod(&value), ZELT_SUCCESS);
    EXPECT_EQ(value, 900u);
    EXPECT_TRUE(capture.Messages().empty());
    EXPECT_EQ(WrittenText(*setting), FullClientSetting());
}

TEST_F(ClientSettingTest, RequiredMembersAloneReadWithTheOptionalOnesAbsent) {
    Fill();
    const std::string text = std::string(R"({ "ClientSetting": { )") + kCommunicationWritten +
                             ", " + kHTTPSWritten +
                             R"(, "ContentUpload": 1, "LogUpload": 1, "URLLocalCache": 1 } })";
    ReadFrom(text);
    DWORD value = 12345;
    EXPECT_EQ(setting->GetFailOpen(&value), ZELT_NOT_PRESENT);
    EXPECT_EQ(setting->GetSafeMode(&value), ZELT_NOT_PRESENT);
    EXPECT_EQ(setting->GetStatsPeriod(&value), ZELT_NOT_PRESENT);
    EXPECT_EQ(value, 12345u);
    EXPECT_TRUE(capture.Messages().empty());
    EXPECT_EQ(WrittenText(*setting), text);
}

TEST_F(ClientSettingTest, ReadWithoutManagerFailsAndKeepsTheElement) {
    Fill();
    EXPECT_EQ(setting->ReadFromJSONMgr(nullptr, nullptr), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: ReadFromJSONMgr require xmlmanager pointer is NULL."});
    EXPECT_EQ(WrittenText(*setting), FullClientSetting());
}

struct ReadFailure {
    const char* name;
    std::string document;
    Messages messages;
};

// Printed as the failure it describes, so that test names stay the same
// from run to run.
void PrintTo(const ReadFailure& failure, std::ostream* out) { *out << failure.name; }

class ClientSettingReadFailureTest : public ClientSettingTest,
                                     public ::testing::WithParamInterface<ReadFailure> {};

TEST_P(ClientSettingReadFailureTest, FailsAndLeavesTheWholeElementCleared) {
    Fill();
    EXPECT_EQ(ReadFromText(GetParam().document), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(), GetParam().messages);
    capture.Clear();
    ExpectCleared();
}

const char kValidCommunication[] =
    R"("Communication": { "DispServerHostname": "d", "LogUploadInterval": 1, "ManagementQueryInterval": 2 })";
const char kValidHTTPS[] =
    R"("HTTPS": { "InspectHostnameOnly": 1, "SSLFilter": 1, "UpstreamVerification": 1 })";

std::string Document(const std::string& members) {
    return R"({ "ClientSetting": { )" + members + " } }";
}

INSTANTIATE_TEST_SUITE_P(
    ClientSettingTest, ClientSettingReadFailureTest,
    ::testing::Values(
        ReadFailure{"MissingCommunication",
                    Document(std::string(kValidHTTPS) +
                             R"(, "ContentUpload": 1, "LogUpload": 1, "URLLocalCache": 1)"),
                    {L"JSONManager: read require element failed. element:Communication"}},
        ReadFailure{
            "CommunicationFails",
            Document(R"("Communication": { "DispServerHostname": "d", "LogUploadInterval": 1 }, )" +
                     std::string(kValidHTTPS) +
                     R"(, "ContentUpload": 1, "LogUpload": 1, "URLLocalCache": 1)"),
            {L"JSONManager: read required dword/bool Attribute failed. "
             L"element:Communication, attr:ManagementQueryInterval",
             L"JSONManager: read require element failed. element:Communication"}},
        ReadFailure{"MissingHTTPS",
                    Document(std::string(kValidCommunication) +
                             R"(, "ContentUpload": 1, "LogUpload": 1, "URLLocalCache": 1)"),
                    {L"JSONManager: read require element failed. element:HTTPS"}},
        ReadFailure{
            "HTTPSFails",
            Document(std::string(kValidCommunication) +
                     R"(, "HTTPS": { "InspectHostnameOnly": 1, "UpstreamVerification": 1 })" +
                     R"(, "ContentUpload": 1, "LogUpload": 1, "URLLocalCache": 1)"),
            {L"JSONManager: read required dword/bool Attribute failed. element:HTTPS, "
             L"attr:SSLFilter",
             L"JSONManager: read require element failed. element:HTTPS"}},
        ReadFailure{"MissingContentUpload",
                    Document(std::string(kValidCommunication) + ", " + kValidHTTPS +
                             R"(, "FailOpen": 1, "LogUpload": 1, "URLLocalCache": 1)"),
                    {L"JSONManager: read required dword/bool Attribute failed. "
                     L"element:ClientSetting, attr:ContentUpload"}},
        ReadFailure{"MissingLogUpload",
                    Document(std::string(kValidCommunication) + ", " + kValidHTTPS +
                             R"(, "ContentUpload": 1, "URLLocalCache": 1, "SafeMode": 1)"),
                    {L"JSONManager: read required dword/bool Attribute failed. "
                     L"element:ClientSetting, attr:LogUpload"}},
        ReadFailure{"NullURLLocalCache",
                    Document(std::string(kValidCommunication) + ", " + kValidHTTPS +
                             R"(, "ContentUpload": 1, "LogUpload": 1, "URLLocalCache": null)"),
                    {L"JSONManager: read required dword/bool Attribute failed. "
                     L"element:ClientSetting, attr:URLLocalCache"}}));

TEST_F(ClientSettingTest, CopyFromMakesAnIndependentCopy) {
    Fill();
    setting->ElementType = 2;
    ElementPtr<IClientSetting> copy(ClientSetting_CreateNewInstance());
    EXPECT_EQ(&copy->CopyFrom(*setting), copy.get());
    EXPECT_EQ(copy->GetElementType(), 0u);

    setting->GetCommunication()->Clear();
    setting->GetHTTPS()->SetWhiteList(nullptr);
    setting->SetStatsPeriod(nullptr);
    const DWORD nine = 9;
    setting->SetContentUpload(&nine);

    EXPECT_EQ(WrittenText(*copy), FullClientSetting());
}

TEST_F(ClientSettingTest, CopyFromItselfChangesNothing) {
    Fill();
    setting->CopyFrom(*setting);
    EXPECT_EQ(WrittenText(*setting), FullClientSetting());
}

TEST_F(ClientSettingTest, CopyFromAClearedElementClearsTheTarget) {
    Fill();
    ElementPtr<IClientSetting> cleared(ClientSetting_CreateNewInstance());
    setting->CopyFrom(*cleared);
    ExpectCleared();
}

}  // namespace
