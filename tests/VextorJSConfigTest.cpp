// VextorJSConfigTest.cpp: the root element: its accessors and reserved slots,
// its write (which starts a new document) and read (from the top-level object
// the caller passes) with every failure message, the message chains of
// failures deep in the tree, copying a whole tree and its virtual slot order.
#include <zelt/zelt.h>

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "support/ConfigurationTexts.h"
#include "support/ElementTesting.h"
#include "support/InterceptingManager.h"
#include "support/MessageCapture.h"
#include "support/VirtualSlot.h"

using namespace VextorJSConfig;

namespace {

using Values = std::vector<std::wstring>;

class VextorJSConfigTest : public ::testing::Test {
protected:
    int ReadFromText(const std::string& text) {
        ManagerPtr manager = ManagerWithText(text);
        return root->ReadFromJSONMgr(manager.get(), manager->GetRootElement());
    }

    void ReadFrom(const std::string& text) { ASSERT_EQ(ReadFromText(text), ZELT_SUCCESS); }

    void ExpectCleared() {
        EXPECT_EQ(root->GetElementType(), 0u);
        EXPECT_EQ(*root->GetProfileName(), L"");
        EXPECT_EQ(*root->GetSchemaVersion(), L"");
        EXPECT_EQ(*root->GetAdminPassword(), L"");
        DWORD out = 12345;
        EXPECT_EQ(root->GetEnableTrayiconMenu(&out), ZELT_NOT_PRESENT);
        EXPECT_EQ(out, 12345u);
        IEnforceList* enforce = nullptr;
        EXPECT_EQ(root->GetAdvancedRule()->GetEnforceList(&enforce), ZELT_NOT_PRESENT);
        IClientRequestHeaders* headers = nullptr;
        EXPECT_EQ(root->GetContentUploadChannel()->GetClientRequestHeaders(&headers),
                  ZELT_NOT_PRESENT);
        const Messages before = capture.Messages();
        EXPECT_EQ(WrittenConfigurationText(*root), kFreshRootText);
        EXPECT_EQ(capture.Messages(), before);
    }

    MessageCapture capture;
    ElementPtr<IVextorJSConfig> root{VextorJSConfig_CreateNewInstance()};
};

TEST_F(VextorJSConfigTest, VirtualSlotsFollowTheContract) {
    using I = IVextorJSConfig;
    EXPECT_EQ(VirtualSlotOf(&I::WriteToJSONMgr), 1);
    EXPECT_EQ(VirtualSlotOf(&I::ReadFromJSONMgr), 2);
    EXPECT_EQ(VirtualSlotOf(&I::Clear), 3);
    EXPECT_EQ(VirtualSlotOf(&I::CopyFrom), 4);
    EXPECT_EQ(VirtualSlotOf(&I::GetElementType), 5);
    EXPECT_EQ(VirtualSlotOf(&I::GetClientSetting), 6);
    EXPECT_EQ(VirtualSlotOf(&I::SetClientSetting), 7);
    EXPECT_EQ(VirtualSlotOf(&I::GetAdvancedRule), 8);
    EXPECT_EQ(VirtualSlotOf(&I::SetAdvancedRule), 9);
    EXPECT_EQ(VirtualSlotOf(&I::GetContentUploadChannel), 10);
    EXPECT_EQ(VirtualSlotOf(&I::SetContentUploadChannel), 11);
    EXPECT_EQ(VirtualSlotOf(&I::GetProfileName), 12);
    EXPECT_EQ(VirtualSlotOf(&I::SetProfileName), 13);
    EXPECT_EQ(VirtualSlotOf(&I::GetSchemaVersion), 14);
    EXPECT_EQ(VirtualSlotOf(&I::SetSchemaVersion), 15);
    EXPECT_EQ(VirtualSlotOf(&I::GetAdminPassword), 16);
    EXPECT_EQ(VirtualSlotOf(&I::SetAdminPassword), 17);
    EXPECT_EQ(VirtualSlotOf(&I::GetEnableTrayiconMenu), 18);
    EXPECT_EQ(VirtualSlotOf(&I::SetEnableTrayiconMenu), 19);
    EXPECT_EQ(VirtualSlotOf(&I::ReservedSlot20), 20);
    EXPECT_EQ(VirtualSlotOf(&I::ReservedSlot21), 21);
}

TEST_F(VextorJSConfigTest, EveryFactoryGivesItsElementType) {
    EXPECT_EQ(root->GetElementType(), 0u);
    EXPECT_EQ(ElementPtr<IClientSetting>(ClientSetting_CreateNewInstance())->GetElementType(), 0u);
    EXPECT_EQ(ElementPtr<IHTTPS>(HTTPS_CreateNewInstance())->GetElementType(), 0u);
    EXPECT_EQ(ElementPtr<IAdvancedRule>(AdvancedRule_CreateNewInstance())->GetElementType(), 0u);
    EXPECT_EQ(ElementPtr<IContentUploadChannel>(ContentUploadChannel_CreateNewInstance())
                  ->GetElementType(),
              0u);
}

TEST_F(VextorJSConfigTest, FactoryGivesAClearedRoot) {
    ExpectCleared();
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(VextorJSConfigTest, ReservedSlotsHoldNothing) {
    DWORD out = 12345;
    const DWORD value = 1;
    root->ReservedSlot21(&value);
    root->ReservedSlot21(nullptr);
    EXPECT_EQ(root->ReservedSlot20(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(out, 12345u);
    EXPECT_EQ(WrittenConfigurationText(*root), kFreshRootText);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(VextorJSConfigTest, TextsAreStoredAndGettersGiveTheMembersThemselves) {
    const std::wstring name = L"Profil \u00e9t\u00e9", version = L"3", password = L"";
    const std::wstring* nameMember = root->GetProfileName();
    EXPECT_EQ(root->SetProfileName(&name), ZELT_SUCCESS);
    EXPECT_EQ(root->SetSchemaVersion(&version), ZELT_SUCCESS);
    EXPECT_EQ(root->SetAdminPassword(&password), ZELT_SUCCESS);
    EXPECT_EQ(root->GetProfileName(), nameMember);
    EXPECT_EQ(*nameMember, name);
    EXPECT_EQ(*root->GetSchemaVersion(), L"3");
    EXPECT_EQ(*root->GetAdminPassword(), L"");
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(VextorJSConfigTest, NullTextsAreRefusedAndKeepTheOldValue) {
    const std::wstring old = L"old";
    root->SetProfileName(&old);
    root->SetSchemaVersion(&old);
    root->SetAdminPassword(&old);
    EXPECT_EQ(root->SetProfileName(nullptr), ZELT_FAILED);
    EXPECT_EQ(root->SetSchemaVersion(nullptr), ZELT_FAILED);
    EXPECT_EQ(root->SetAdminPassword(nullptr), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              (Messages{L"JSONManager: set Attribute failed due to parama pointer is NULL. "
                        L"element:VextorJSConfig, attr:ProfileName",
                        L"JSONManager: set Attribute failed due to parama pointer is NULL. "
                        L"element:VextorJSConfig, attr:SchemaVersion",
                        L"JSONManager: set Attribute failed due to parama pointer is NULL. "
                        L"element:VextorJSConfig, attr:AdminPassword"}));
    EXPECT_EQ(*root->GetProfileName(), L"old");
    EXPECT_EQ(*root->GetSchemaVersion(), L"old");
    EXPECT_EQ(*root->GetAdminPassword(), L"old");
}

TEST_F(VextorJSConfigTest, NullChildrenAreRefusedAndKeepTheChild) {
    const DWORD seven = 7;
    root->GetClientSetting()->SetLogUpload(&seven);
    root->GetAdvancedRule()->SetBypassLocalIP(&seven);
    root->GetContentUploadChannel()->SetMaxFileSizeForScan(&seven);
    EXPECT_EQ(root->SetClientSetting(nullptr), ZELT_FAILED);
    EXPECT_EQ(root->SetAdvancedRule(nullptr), ZELT_FAILED);
    EXPECT_EQ(root->SetContentUploadChannel(nullptr), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              (Messages{L"JSONManager: Set element failed due to param is NULL. "
                        L"element:ClientSetting",
                        L"JSONManager: Set element failed due to param is NULL. "
                        L"element:AdvancedRule",
                        L"JSONManager: Set element failed due to param is NULL. "
                        L"element:ContentUploadChannel"}));
    EXPECT_EQ(root->GetClientSetting()->GetLogUpload(), 7u);
    DWORD out = 0;
    EXPECT_EQ(root->GetAdvancedRule()->GetBypassLocalIP(&out), ZELT_SUCCESS);
    EXPECT_EQ(root->GetContentUploadChannel()->GetMaxFileSizeForScan(), 7u);
}

TEST_F(VextorJSConfigTest, SetChildrenStoreCopies) {
    ElementPtr<IClientSetting> setting(ClientSetting_CreateNewInstance());
    ElementPtr<IAdvancedRule> rule(AdvancedRule_CreateNewInstance());
    ElementPtr<IContentUploadChannel> channel(ContentUploadChannel_CreateNewInstance());
    const DWORD three = 3;
    setting->SetURLLocalCache(&three);
    rule->SetEnforceProxyServer(&three);
    channel->SetMaxFileSizeForScan(&three);
    EXPECT_EQ(root->SetClientSetting(setting.get()), ZELT_SUCCESS);
    EXPECT_EQ(root->SetAdvancedRule(rule.get()), ZELT_SUCCESS);
    EXPECT_EQ(root->SetContentUploadChannel(channel.get()), ZELT_SUCCESS);
    setting->Clear();
    rule->Clear();
    channel->Clear();
    EXPECT_EQ(root->GetClientSetting()->GetURLLocalCache(), 3u);
    DWORD out = 0;
    EXPECT_EQ(root->GetAdvancedRule()->GetEnforceProxyServer(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, 3u);
    EXPECT_EQ(root->GetContentUploadChannel()->GetMaxFileSizeForScan(), 3u);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(VextorJSConfigTest, TrayiconMenuSwitchIsOptional) {
    const DWORD zero = 0;
    root->SetEnableTrayiconMenu(&zero);
    DWORD out = 12345;
    EXPECT_EQ(root->GetEnableTrayiconMenu(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, 0u);
    const std::string written = WrittenConfigurationText(*root);
    EXPECT_EQ(written, std::string(kFreshRootText, sizeof kFreshRootText - 3) +
                           R"(, "EnableTrayiconMenu": 0 })");
    root->SetEnableTrayiconMenu(nullptr);
    out = 12345;
    EXPECT_EQ(root->GetEnableTrayiconMenu(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(out, 12345u);
    EXPECT_EQ(WrittenConfigurationText(*root), kFreshRootText);
}

TEST_F(VextorJSConfigTest, WriteReplacesTheManagersDocument) {
    ManagerPtr manager = ManagerWithText(R"({ "Other": [ 1, 2 ], "ProfileName": "x" })");
    EXPECT_EQ(root->WriteToJSONMgr(manager.get(), manager->GetRootElement(), 1), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), kFreshRootText);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(VextorJSConfigTest, WriteWithoutManagerFails) {
    EXPECT_EQ(root->WriteToJSONMgr(nullptr, nullptr, 1), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: WriteToJSONMgr require xmlmanager pointer is NULL."});
}

TEST_F(VextorJSConfigTest, WriteFailsWithoutANewDocument) {
    InterceptingManager manager(ManagerWithText(R"({ "Other": 1 })"));
    IJSONManager& real = manager.Inner();
    manager.failingCreateNewDocument = true;
    EXPECT_EQ(root->WriteToJSONMgr(&manager, nullptr, 1), ZELT_FAILED);
    manager.failingCreateNewDocument = false;
    manager.nullRootElement = true;
    EXPECT_EQ(root->WriteToJSONMgr(&manager, nullptr, 1), ZELT_FAILED);
    EXPECT_EQ(
        capture.Messages(),
        (Messages{L"JSONManager: required element pointer is NULL. element: VextorJSConfig",
                  L"JSONManager: required element pointer is NULL. element: VextorJSConfig"}));
    // The second attempt had already started the new document.
    EXPECT_EQ(SavedText(real), "{ }");
}

class VextorJSConfigWriteFailureTest : public VextorJSConfigTest,
                                       public ::testing::WithParamInterface<WriteFailure> {};

TEST_P(VextorJSConfigWriteFailureTest, StopsAtTheFailingMemberAndKeepsWhatWasWritten) {
    ManagerPtr sample = ManagerWithText(SampleText("full.json"));
    ASSERT_EQ(root->ReadFromJSONMgr(sample.get(), sample->GetRootElement()), ZELT_SUCCESS);
    InterceptingManager manager(ManagerWithText(R"({ "Other": 1 })"));
    IJSONManager& real = manager.Inner();
    InjectFailure(manager, GetParam());
    EXPECT_EQ(root->WriteToJSONMgr(&manager, nullptr, 1), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(), GetParam().messages);
    EXPECT_EQ(SavedText(real), GetParam().partialDocument);
}

// The saved full sample up to (not including) the member named key.
std::string FullSampleBefore(const std::string& key) {
    const std::string text = kFullSampleText;
    const std::size_t at = text.find("\"" + key + "\":");
    std::string prefix = text.substr(0, at);
    if (prefix.size() >= 2 && prefix.compare(prefix.size() - 2, 2, ", ") == 0)
        prefix.resize(prefix.size() - 2);
    else if (prefix.size() >= 1 && prefix.back() == ' ')
        prefix.pop_back();
    return prefix;
}

INSTANTIATE_TEST_SUITE_P(
    VextorJSConfigTest, VextorJSConfigWriteFailureTest,
    ::testing::Values(
        WriteFailure{L"ClientSetting",
                     nullptr,
                     {L"JSONManager: required element pointer is NULL. element: ClientSetting",
                      L"JSONManager: write require element failed. element:ClientSetting"},
                     "{ }"},
        WriteFailure{nullptr,
                     L"SSLFilter",
                     {L"JSONManager: write required DWORD Attribute failed. element:HTTPS, "
                      L"attr:SSLFilter",
                      L"JSONManager: write require element failed. element:HTTPS",
                      L"JSONManager: write require element failed. element:ClientSetting"},
                     FullSampleBefore("SSLFilter") + " } } }"},
        WriteFailure{L"AdvancedRule",
                     nullptr,
                     {L"JSONManager: required element pointer is NULL. element: AdvancedRule",
                      L"JSONManager: write require element failed. element:AdvancedRule"},
                     FullSampleBefore("AdvancedRule") + " }"},
        WriteFailure{nullptr,
                     L"StringValue",
                     {L"JSONManager: write required string Attribute failed. "
                      L"element:IPListArray, attr:StringValue",
                      L"JSONManager: write none to multiple element failed. element:IPListArray",
                      L"JSONManager: write optional element failed. element:IPList",
                      L"JSONManager: write optional element failed. element:EnforceList",
                      L"JSONManager: write require element failed. element:AdvancedRule"},
                     FullSampleBefore("AdvancedRule") +
                         R"(, "AdvancedRule": { "EnforceList": { "IPList": [ ] } } })"},
        WriteFailure{L"ContentUploadChannel",
                     nullptr,
                     {L"JSONManager: required element pointer is NULL. element: "
                      L"ContentUploadChannel",
                      L"JSONManager: write require element failed. element:ContentUploadChannel"},
                     FullSampleBefore("ContentUploadChannel") + " }"},
        WriteFailure{nullptr,
                     L"FileTypesToScan",
                     {L"JSONManager: write required string Attribute failed. "
                      L"element:ContentUploadChannel, attr:FileTypesToScan",
                      L"JSONManager: write require element failed. element:ContentUploadChannel"},
                     FullSampleBefore("FileTypesToScan") + " } }"},
        WriteFailure{nullptr,
                     L"ProfileName",
                     {L"JSONManager: write required string Attribute failed. "
                      L"element:VextorJSConfig, attr:ProfileName"},
                     FullSampleBefore("ProfileName") + " }"},
        WriteFailure{nullptr,
                     L"SchemaVersion",
                     {L"JSONManager: write required string Attribute failed. "
                      L"element:VextorJSConfig, attr:SchemaVersion"},
                     FullSampleBefore("SchemaVersion") + " }"},
        WriteFailure{nullptr,
                     L"AdminPassword",
                     {L"JSONManager: write required string Attribute failed. "
                      L"element:VextorJSConfig, attr:AdminPassword"},
                     FullSampleBefore("AdminPassword") + " }"},
        WriteFailure{nullptr,
                     L"EnableTrayiconMenu",
                     {L"JSONManager: write optional DWORD Attribute failed. "
                      L"element:VextorJSConfig, attr:EnableTrayiconMenu"},
                     FullSampleBefore("EnableTrayiconMenu") + " }"}));

TEST_F(VextorJSConfigTest, EmptyDocumentFailsAtTheFirstChild) {
    const std::wstring old = L"old";
    root->SetProfileName(&old);
    EXPECT_EQ(ReadFromText("{}"), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: read require element failed. element:ClientSetting"});
    ExpectCleared();
}

TEST_F(VextorJSConfigTest, ConfigurationWrappedInAMemberDoesNotRead) {
    const std::string wrapped = R"({ "VextorJSConfig": )" + std::string(kMinimalSampleText) + " }";
    EXPECT_EQ(ReadFromText(wrapped), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: read require element failed. element:ClientSetting"});
    ExpectCleared();
}

TEST_F(VextorJSConfigTest, NullNodeReadsTheTopLevelObject) {
    ManagerPtr manager = ManagerWithText(kMinimalSampleText);
    EXPECT_EQ(root->ReadFromJSONMgr(manager.get(), nullptr), ZELT_SUCCESS);
    EXPECT_EQ(*root->GetProfileName(), L"Default");
    EXPECT_EQ(WrittenConfigurationText(*root), kMinimalSampleText);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(VextorJSConfigTest, ReadWithoutManagerFailsAndKeepsTheRoot) {
    ReadFrom(kMinimalSampleText);
    EXPECT_EQ(root->ReadFromJSONMgr(nullptr, nullptr), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: ReadFromJSONMgr require xmlmanager pointer is NULL."});
    EXPECT_EQ(*root->GetProfileName(), L"Default");
}

TEST_F(VextorJSConfigTest, TrayiconMenuSwitchIsReadWhenPresent) {
    const std::string minimal = kMinimalSampleText;
    ReadFrom(minimal.substr(0, minimal.size() - 2) + R"(, "EnableTrayiconMenu": 4294967295 })");
    DWORD out = 0;
    EXPECT_EQ(root->GetEnableTrayiconMenu(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, 4294967295u);
    ReadFrom(minimal);
    out = 12345;
    EXPECT_EQ(root->GetEnableTrayiconMenu(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(out, 12345u);
}

TEST_F(VextorJSConfigTest, LongTextsArriveWhole) {
    std::string text = kMinimalSampleText;
    const std::string from = R"("ProfileName": "Default")";
    text.replace(text.find(from), from.size(),
                 R"("ProfileName": ")" + std::string(3000, 'n') + "\"");
    ReadFrom(text);
    EXPECT_EQ(*root->GetProfileName(), std::wstring(3000, L'n'));
}

TEST_F(VextorJSConfigTest, FailingSecondStepLeavesARequiredTextEmptyWithoutMessage) {
    std::string text = kMinimalSampleText;
    const std::string from = R"("SchemaVersion": "1.0")";
    text.replace(text.find(from), from.size(),
                 R"("SchemaVersion": ")" + std::string(1023, 'v') + "\"");
    InterceptingManager manager(ManagerWithText(text));
    IJSONManager& real = manager.Inner();
    manager.failingLargeStringReads.insert(L"SchemaVersion");
    EXPECT_EQ(root->ReadFromJSONMgr(&manager, real.GetRootElement()), ZELT_SUCCESS);
    EXPECT_EQ(manager.failedLargeStringReads, 1);
    EXPECT_EQ(*root->GetSchemaVersion(), L"");
    EXPECT_EQ(*root->GetProfileName(), L"Default");
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(VextorJSConfigTest, BufferTooSmallWithoutALargerLengthFailsARequiredText) {
    InterceptingManager manager(ManagerWithText(kMinimalSampleText));
    IJSONManager& real = manager.Inner();
    manager.stringRepliesByName[L"ProfileName"] = {ZELT_BUFFER_TOO_SMALL, 1024, L""};
    EXPECT_EQ(root->ReadFromJSONMgr(&manager, real.GetRootElement()), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(), Messages{L"JSONManager: read required String Attribute failed. "
                                           L"element:VextorJSConfig, attr:ProfileName"});
    capture.Clear();
    ExpectCleared();
}

struct ReadFailure {
    const char* name;
    std::string from;  // replaced in the minimal sample
    std::string to;
    Messages messages;
};

// Printed as the failure it describes, so that test names stay the same
// from run to run.
void PrintTo(const ReadFailure& failure, std::ostream* out) { *out << failure.name; }

class VextorJSConfigReadFailureTest : public VextorJSConfigTest,
                                      public ::testing::WithParamInterface<ReadFailure> {};

TEST_P(VextorJSConfigReadFailureTest, FailureAnywhereLeavesTheRootCleared) {
    ReadFrom(SampleText("full.json"));
    std::string text = kMinimalSampleText;
    const std::size_t at = text.find(GetParam().from);
    ASSERT_NE(at, std::string::npos);
    text.replace(at, GetParam().from.size(), GetParam().to);
    EXPECT_EQ(ReadFromText(text), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(), GetParam().messages);
    capture.Clear();
    ExpectCleared();
}

INSTANTIATE_TEST_SUITE_P(
    VextorJSConfigTest, VextorJSConfigReadFailureTest,
    ::testing::Values(
        ReadFailure{"MissingClientSetting",
                    R"("ClientSetting")",
                    R"("clientSetting")",
                    {L"JSONManager: read require element failed. element:ClientSetting"}},
        ReadFailure{"ClientSettingFails",
                    R"("LogUpload": 1)",
                    R"("LogUpload": null)",
                    {L"JSONManager: read required dword/bool Attribute failed. "
                     L"element:ClientSetting, attr:LogUpload",
                     L"JSONManager: read require element failed. element:ClientSetting"}},
        ReadFailure{"HTTPSFails",
                    R"("SSLFilter": 1, )",
                    "",
                    {L"JSONManager: read required dword/bool Attribute failed. element:HTTPS, "
                     L"attr:SSLFilter",
                     L"JSONManager: read require element failed. element:HTTPS",
                     L"JSONManager: read require element failed. element:ClientSetting"}},
        ReadFailure{"CommunicationFails",
                    R"("DispServerHostname": "disp.example.net", )",
                    "",
                    {L"JSONManager: read required String Attribute failed. "
                     L"element:Communication, attr:DispServerHostname",
                     L"JSONManager: read require element failed. element:Communication",
                     L"JSONManager: read require element failed. element:ClientSetting"}},
        ReadFailure{"NullAdvancedRule",
                    R"("AdvancedRule": { })",
                    R"("AdvancedRule": null)",
                    {L"JSONManager: read require element failed. element:AdvancedRule"}},
        ReadFailure{
            "WhiteListIPListFails",
            R"("AdvancedRule": { })",
            R"("AdvancedRule": { "WhiteList": { "IPList": [ "a", { "StringValue": 1 }, true ] } })",
            {L"JSONManager: read required String Attribute failed. element:IPListArray, "
             L"attr:StringValue",
             L"JSONManager: read  multiple element failed. element:IPListArray",
             L"JSONManager: read  optional element failed. element:IPList",
             L"JSONManager: read  optional element failed. element:WhiteList",
             L"JSONManager: read require element failed. element:AdvancedRule"}},
        ReadFailure{"ContentUploadChannelFails",
                    R"("ContentUploadChannel": { "MaxFileSizeForScan": 10485760 })",
                    R"("ContentUploadChannel": { "FileTypesToScan": "pdf" })",
                    {L"JSONManager: read required dword/bool Attribute failed. "
                     L"element:ContentUploadChannel, attr:MaxFileSizeForScan",
                     L"JSONManager: read require element failed. element:ContentUploadChannel"}},
        ReadFailure{"HeadersFail",
                    R"("ContentUploadChannel": { )",
                    R"("ContentUploadChannel": { "ClientRequestHeaders": [ [ "x" ] ], )",
                    {L"JSONManager: read required String Attribute failed. "
                     L"element:ClientRequestHeadersArray, attr:StringValue",
                     L"JSONManager: read  multiple element failed. "
                     L"element:ClientRequestHeadersArray",
                     L"JSONManager: read  optional element failed. element:ClientRequestHeaders",
                     L"JSONManager: read require element failed. element:ContentUploadChannel"}},
        ReadFailure{"MissingProfileName",
                    R"("ProfileName": "Default", )",
                    "",
                    {L"JSONManager: read required String Attribute failed. "
                     L"element:VextorJSConfig, attr:ProfileName"}},
        ReadFailure{"MissingSchemaVersion",
                    R"("SchemaVersion": "1.0", )",
                    "",
                    {L"JSONManager: read required String Attribute failed. "
                     L"element:VextorJSConfig, attr:SchemaVersion"}},
        ReadFailure{"MissingAdminPassword",
                    R"(, "AdminPassword": "")",
                    "",
                    {L"JSONManager: read required String Attribute failed. "
                     L"element:VextorJSConfig, attr:AdminPassword"}}));

TEST_F(VextorJSConfigTest, CopyFromCopiesAWholeTreeIndependentOfItsSource) {
    ReadFrom(SampleText("full.json"));
    root->ElementType = 5;
    ElementPtr<IVextorJSConfig> copy(VextorJSConfig_CreateNewInstance());
    EXPECT_EQ(&copy->CopyFrom(*root), copy.get());
    EXPECT_EQ(copy->GetElementType(), 0u);

    // Change the source at every depth.
    IEnforceList* enforce = nullptr;
    ASSERT_EQ(root->GetAdvancedRule()->GetEnforceList(&enforce), ZELT_SUCCESS);
    IIPList* addresses = nullptr;
    ASSERT_EQ(enforce->GetIPList(&addresses), ZELT_SUCCESS);
    addresses->RemoveAllItems();
    IClientRequestHeaders* headers = nullptr;
    ASSERT_EQ(root->GetContentUploadChannel()->GetClientRequestHeaders(&headers), ZELT_SUCCESS);
    const std::wstring changed = L"changed";
    headers->GetItem(0)->SetStringValue(&changed);
    root->GetClientSetting()->GetHTTPS()->SetWhiteList(nullptr);
    root->GetClientSetting()->GetCommunication()->SetEnablePII(nullptr);
    root->SetAdminPassword(&changed);

    EXPECT_EQ(WrittenConfigurationText(*copy), kFullSampleText);

    // And the copy's changes do not reach the source.
    copy->Clear();
    EXPECT_EQ(*root->GetAdminPassword(), L"changed");
    EXPECT_EQ(root->GetClientSetting()->GetHTTPS()->GetSSLFilter(), 1u);
}

TEST_F(VextorJSConfigTest, CopyFromCarriesHiddenContentAlong) {
    ReadFrom(SampleText("full.json"));
    root->GetAdvancedRule()->SetWhiteList(nullptr);

    ElementPtr<IVextorJSConfig> copy(VextorJSConfig_CreateNewInstance());
    ElementPtr<IWhiteList> placeholder(WhiteList_CreateNewInstance());
    copy->GetAdvancedRule()->SetWhiteList(placeholder.get());
    IWhiteList* copiedWhiteList = nullptr;
    ASSERT_EQ(copy->GetAdvancedRule()->GetWhiteList(&copiedWhiteList), ZELT_SUCCESS);

    copy->CopyFrom(*root);
    IWhiteList* out = nullptr;
    EXPECT_EQ(copy->GetAdvancedRule()->GetWhiteList(&out), ZELT_NOT_PRESENT);
    IVPNDescList* vpns = nullptr;
    ASSERT_EQ(copiedWhiteList->GetVPNDescList(&vpns), ZELT_SUCCESS);
    EXPECT_EQ(ListValues(*vpns), (Values{L"Corporate VPN \"Main\"", L"B\u00fcro-VPN Z\u00fcrich",
                                         L"\u6771\u4eac VPN \U0001F512"}));

    // Handing the embedded list back makes the hidden content present again.
    copy->GetAdvancedRule()->SetWhiteList(copiedWhiteList);
    EXPECT_EQ(WrittenConfigurationText(*copy), kFullSampleText);
}

TEST_F(VextorJSConfigTest, CopyFromItselfChangesNothing) {
    ReadFrom(SampleText("full.json"));
    root->CopyFrom(*root);
    EXPECT_EQ(WrittenConfigurationText(*root), kFullSampleText);
}

TEST_F(VextorJSConfigTest, CopyFromAClearedRootClearsTheTarget) {
    ReadFrom(SampleText("full.json"));
    ElementPtr<IVextorJSConfig> cleared(VextorJSConfig_CreateNewInstance());
    root->CopyFrom(*cleared);
    ExpectCleared();
}

}  // namespace
