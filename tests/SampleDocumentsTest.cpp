// SampleDocumentsTest.cpp: the sample configurations of examples/: the valid
// ones read into the whole element tree with every value in place, write back
// to the expected one-line text and survive a round trip through a file; each
// invalid one fails in its own element with the full chain of messages and
// leaves the root cleared.
#include <zelt/zelt.h>

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "support/ConfigurationTexts.h"
#include "support/ElementTesting.h"
#include "support/MessageCapture.h"
#include "support/TempFile.h"

using namespace VextorJSConfig;

namespace {

using Values = std::vector<std::wstring>;

// A manager that imported the sample from a file. The import refuses a file
// that any other descriptor holds open, and other tests running at the same
// time read the samples, so each import is of a private copy.
ManagerPtr SampleManager(const std::string& name) {
    TempDir dir;
    const std::string copy = dir.File(name);
    WriteFileBytes(copy, SampleText(name));
    ManagerPtr manager = NewManager();
    EXPECT_EQ(manager->ImportFromJSONFile(WidePath(copy).c_str()), ZELT_SUCCESS) << name;
    return manager;
}

template <class Element>
std::wstring OptionalText(const Element& element, int (Element::*getter)(std::wstring*) const) {
    std::wstring out;
    return (element.*getter)(&out) == ZELT_SUCCESS ? out : L"<absent>";
}

template <class Element>
long OptionalValue(const Element& element, int (Element::*getter)(DWORD*) const) {
    DWORD out = 0;
    return (element.*getter)(&out) == ZELT_SUCCESS ? static_cast<long>(out) : -1;
}

// The strings of a list, checking that every entry is a list entry.
template <class List>
Values EntriesOf(List& list) {
    for (DWORD index = 0; index < list.GetItemCount(); ++index)
        EXPECT_EQ(list.GetItem(index)->GetElementType(), 2u);
    return ListValues(list);
}

// The values of examples/full.json in its ClientSetting.
void ExpectFullClientSetting(IClientSetting& setting) {
    const ICommunication& communication = *setting.GetCommunication();
    EXPECT_EQ(OptionalValue(communication, &ICommunication::GetAutoUpgradeQueryInterval), 3600);
    EXPECT_EQ(*communication.GetDispServerHostname(), L"disp.example.net");
    EXPECT_EQ(OptionalText(communication, &ICommunication::GetLogServerHostname),
              L"logs.example.net");
    EXPECT_EQ(OptionalText(communication, &ICommunication::GetEventLogUploadURL),
              L"https://logs.example.net/upload/events?site=m\u00fcnchen");
    EXPECT_EQ(OptionalText(communication, &ICommunication::GetAutoupgradeURI),
              L"https://updates.example.net/agent/latest");
    EXPECT_EQ(communication.GetLogUploadInterval(), 600u);
    EXPECT_EQ(communication.GetManagementQueryInterval(), 300u);
    EXPECT_EQ(OptionalValue(communication, &ICommunication::GetEnablePII), 1);

    const IHTTPS& https = *setting.GetHTTPS();
    EXPECT_EQ(https.GetInspectHostnameOnly(), 1u);
    EXPECT_EQ(https.GetSSLFilter(), 1u);
    EXPECT_EQ(https.GetUpstreamVerification(), 0u);
    EXPECT_EQ(OptionalText(https, &IHTTPS::GetWhiteList), L"bank.example.com;pay.example.org");
    EXPECT_EQ(OptionalText(https, &IHTTPS::GetWhiteListWithPorts),
              L"mail.example.com:993;intranet.example.local:8443");

    EXPECT_EQ(setting.GetContentUpload(), 1u);
    EXPECT_EQ(OptionalValue(setting, &IClientSetting::GetFailOpen), 1);
    EXPECT_EQ(setting.GetLogUpload(), 1u);
    EXPECT_EQ(setting.GetURLLocalCache(), 0u);
    EXPECT_EQ(OptionalValue(setting, &IClientSetting::GetSafeMode), 0);
    EXPECT_EQ(OptionalValue(setting, &IClientSetting::GetStatsPeriod), 900);
}

// The values of examples/full.json in its AdvancedRule.
void ExpectFullAdvancedRule(IAdvancedRule& rule) {
    IEnforceList* enforce = nullptr;
    ASSERT_EQ(rule.GetEnforceList(&enforce), ZELT_SUCCESS);
    IIPList* enforceAddresses = nullptr;
    ASSERT_EQ(enforce->GetIPList(&enforceAddresses), ZELT_SUCCESS);
    EXPECT_EQ(EntriesOf(*enforceAddresses),
              (Values{L"10.0.0.0/8", L"192.168.10.0/24", L"fd00::/8"}));
    EXPECT_EQ(OptionalText(*enforce, &IEnforceList::GetProcessNames),
              L"chrome.exe;firefox.exe;msedge.exe");
    EXPECT_EQ(OptionalText(*enforce, &IEnforceList::GetDomainLists),
              L"*.example.com;*.example.org");

    IWhiteList* white = nullptr;
    ASSERT_EQ(rule.GetWhiteList(&white), ZELT_SUCCESS);
    IIPList* whiteAddresses = nullptr;
    ASSERT_EQ(white->GetIPList(&whiteAddresses), ZELT_SUCCESS);
    EXPECT_EQ(EntriesOf(*whiteAddresses), (Values{L"172.16.0.0/12", L"203.0.113.7"}));
    IVPNDescList* vpns = nullptr;
    ASSERT_EQ(white->GetVPNDescList(&vpns), ZELT_SUCCESS);
    EXPECT_EQ(EntriesOf(*vpns), (Values{L"Corporate VPN \"Main\"", L"B\u00fcro-VPN Z\u00fcrich",
                                        L"\u6771\u4eac VPN \U0001F512"}));
    EXPECT_EQ(OptionalText(*white, &IWhiteList::GetDomainLists),
              L"update.example.com;time.example.net");
    EXPECT_EQ(OptionalText(*white, &IWhiteList::GetProcessNames),
              L"C:\\Program Files\\Agent\\agent.exe;backup.exe");
    EXPECT_EQ(OptionalValue(rule, &IAdvancedRule::GetEnforceProxyServer), 1);
    EXPECT_EQ(OptionalValue(rule, &IAdvancedRule::GetBypassPrivateIP), 1);
    EXPECT_EQ(OptionalValue(rule, &IAdvancedRule::GetBypassLocalIP), 0);
}

// The values of examples/full.json in its ContentUploadChannel.
void ExpectFullContentUploadChannel(IContentUploadChannel& channel) {
    IClientRequestHeaders* headers = nullptr;
    ASSERT_EQ(channel.GetClientRequestHeaders(&headers), ZELT_SUCCESS);
    EXPECT_EQ(EntriesOf(*headers),
              (Values{L"X-Tenant: acme", L"X-Region: eu-west/1", L"X-Label: \"Qualit\u00e4t\""}));
    EXPECT_EQ(channel.GetMaxFileSizeForScan(), 52428800u);
    EXPECT_EQ(OptionalText(channel, &IContentUploadChannel::GetFileTypesToBlock), L"exe;dll;scr");
    EXPECT_EQ(OptionalText(channel, &IContentUploadChannel::GetFileTypesToScan),
              L"pdf;docx;xlsx;zip");
}

class SampleDocumentsTest : public ::testing::Test {
protected:
    MessageCapture capture;
    ElementPtr<IVextorJSConfig> root{VextorJSConfig_CreateNewInstance()};
};

TEST_F(SampleDocumentsTest, FullSampleReadsEveryValue) {
    ManagerPtr manager = SampleManager("full.json");
    ASSERT_EQ(root->ReadFromJSONMgr(manager.get(), manager->GetRootElement()), ZELT_SUCCESS);
    EXPECT_TRUE(capture.Messages().empty());

    ExpectFullClientSetting(*root->GetClientSetting());
    ExpectFullAdvancedRule(*root->GetAdvancedRule());
    ExpectFullContentUploadChannel(*root->GetContentUploadChannel());
    EXPECT_EQ(*root->GetProfileName(), L"Standard-Profil f\u00fcr Au\u00dfendienst");
    EXPECT_EQ(*root->GetSchemaVersion(), L"2.1");
    EXPECT_EQ(*root->GetAdminPassword(), L"p@ss/w\\rd\"42");
    EXPECT_EQ(OptionalValue(*root, &IVextorJSConfig::GetEnableTrayiconMenu), 1);

    EXPECT_EQ(root->WriteToJSONMgr(manager.get(), nullptr, 1), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), kFullSampleText);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(SampleDocumentsTest, MinimalSampleReadsWithEveryOptionalMemberAbsent) {
    ManagerPtr manager = SampleManager("minimal.json");
    ASSERT_EQ(root->ReadFromJSONMgr(manager.get(), manager->GetRootElement()), ZELT_SUCCESS);

    const ICommunication& communication = *root->GetClientSetting()->GetCommunication();
    EXPECT_EQ(OptionalValue(communication, &ICommunication::GetAutoUpgradeQueryInterval), -1);
    EXPECT_EQ(*communication.GetDispServerHostname(), L"disp.example.net");
    EXPECT_EQ(OptionalText(communication, &ICommunication::GetLogServerHostname), L"<absent>");
    EXPECT_EQ(OptionalText(communication, &ICommunication::GetEventLogUploadURL), L"<absent>");
    EXPECT_EQ(OptionalText(communication, &ICommunication::GetAutoupgradeURI), L"<absent>");
    EXPECT_EQ(OptionalValue(communication, &ICommunication::GetEnablePII), -1);

    const IHTTPS& https = *root->GetClientSetting()->GetHTTPS();
    EXPECT_EQ(https.GetSSLFilter(), 1u);
    EXPECT_EQ(OptionalText(https, &IHTTPS::GetWhiteList), L"<absent>");
    EXPECT_EQ(OptionalText(https, &IHTTPS::GetWhiteListWithPorts), L"<absent>");

    const IClientSetting& setting = *root->GetClientSetting();
    EXPECT_EQ(setting.GetURLLocalCache(), 1u);
    EXPECT_EQ(OptionalValue(setting, &IClientSetting::GetFailOpen), -1);
    EXPECT_EQ(OptionalValue(setting, &IClientSetting::GetSafeMode), -1);
    EXPECT_EQ(OptionalValue(setting, &IClientSetting::GetStatsPeriod), -1);

    IAdvancedRule& rule = *root->GetAdvancedRule();
    IEnforceList* enforce = nullptr;
    IWhiteList* white = nullptr;
    EXPECT_EQ(rule.GetEnforceList(&enforce), ZELT_NOT_PRESENT);
    EXPECT_EQ(rule.GetWhiteList(&white), ZELT_NOT_PRESENT);
    EXPECT_EQ(OptionalValue(rule, &IAdvancedRule::GetEnforceProxyServer), -1);
    EXPECT_EQ(OptionalValue(rule, &IAdvancedRule::GetBypassPrivateIP), -1);
    EXPECT_EQ(OptionalValue(rule, &IAdvancedRule::GetBypassLocalIP), -1);

    IContentUploadChannel& channel = *root->GetContentUploadChannel();
    IClientRequestHeaders* headers = nullptr;
    EXPECT_EQ(channel.GetClientRequestHeaders(&headers), ZELT_NOT_PRESENT);
    EXPECT_EQ(channel.GetMaxFileSizeForScan(), 10485760u);
    EXPECT_EQ(OptionalText(channel, &IContentUploadChannel::GetFileTypesToBlock), L"<absent>");
    EXPECT_EQ(OptionalText(channel, &IContentUploadChannel::GetFileTypesToScan), L"<absent>");

    EXPECT_EQ(*root->GetProfileName(), L"Default");
    EXPECT_EQ(*root->GetSchemaVersion(), L"1.0");
    EXPECT_EQ(*root->GetAdminPassword(), L"");
    EXPECT_EQ(OptionalValue(*root, &IVextorJSConfig::GetEnableTrayiconMenu), -1);

    EXPECT_EQ(WrittenConfigurationText(*root), kMinimalSampleText);
    EXPECT_TRUE(capture.Messages().empty());
}

class ValidSampleTest : public SampleDocumentsTest,
                        public ::testing::WithParamInterface<const char*> {};

TEST_P(ValidSampleTest, SurvivesARoundTripThroughAFile) {
    ManagerPtr manager = SampleManager(GetParam());
    ASSERT_EQ(root->ReadFromJSONMgr(manager.get(), manager->GetRootElement()), ZELT_SUCCESS);
    ASSERT_EQ(root->WriteToJSONMgr(manager.get(), nullptr, 1), ZELT_SUCCESS);
    TempDir dir;
    const std::string path = dir.File("round-trip.json");
    ASSERT_EQ(manager->SaveToJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);

    ManagerPtr imported = NewManager();
    ASSERT_EQ(imported->ImportFromJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    ElementPtr<IVextorJSConfig> again(VextorJSConfig_CreateNewInstance());
    ASSERT_EQ(again->ReadFromJSONMgr(imported.get(), imported->GetRootElement()), ZELT_SUCCESS);

    // Both trees write the same document, which is what was saved.
    EXPECT_EQ(WrittenConfigurationText(*again), WrittenConfigurationText(*root));
    EXPECT_EQ(WrittenConfigurationText(*again), ReadFileBytes(path));
    EXPECT_TRUE(capture.Messages().empty());
}

INSTANTIATE_TEST_SUITE_P(SampleDocumentsTest, ValidSampleTest,
                         ::testing::Values("full.json", "minimal.json"));

struct InvalidSample {
    const char* name;
    Messages messages;
};

// Printed as the failure it describes, so that test names stay the same
// from run to run.
void PrintTo(const InvalidSample& failure, std::ostream* out) { *out << failure.name; }

class InvalidSampleTest : public SampleDocumentsTest,
                          public ::testing::WithParamInterface<InvalidSample> {};

TEST_P(InvalidSampleTest, FailsWithTheWholeChainAndLeavesTheRootCleared) {
    {
        ManagerPtr full = SampleManager("full.json");
        ASSERT_EQ(root->ReadFromJSONMgr(full.get(), full->GetRootElement()), ZELT_SUCCESS);
    }
    ManagerPtr manager = SampleManager(GetParam().name);
    EXPECT_EQ(root->ReadFromJSONMgr(manager.get(), manager->GetRootElement()), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(), GetParam().messages);

    capture.Clear();
    EXPECT_EQ(*root->GetProfileName(), L"");
    IEnforceList* enforce = nullptr;
    EXPECT_EQ(root->GetAdvancedRule()->GetEnforceList(&enforce), ZELT_NOT_PRESENT);
    EXPECT_EQ(WrittenConfigurationText(*root), kFreshRootText);
    EXPECT_TRUE(capture.Messages().empty());
}

INSTANTIATE_TEST_SUITE_P(
    SampleDocumentsTest, InvalidSampleTest,
    ::testing::Values(
        InvalidSample{"invalid-missing-sslfilter.json",
                      {L"JSONManager: read required dword/bool Attribute failed. element:HTTPS, "
                       L"attr:SSLFilter",
                       L"JSONManager: read require element failed. element:HTTPS",
                       L"JSONManager: read require element failed. element:ClientSetting"}},
        InvalidSample{"invalid-missing-dispserverhostname.json",
                      {L"JSONManager: read required String Attribute failed. "
                       L"element:Communication, attr:DispServerHostname",
                       L"JSONManager: read require element failed. element:Communication",
                       L"JSONManager: read require element failed. element:ClientSetting"}},
        InvalidSample{"invalid-bad-iplist-item.json",
                      {L"JSONManager: read required String Attribute failed. "
                       L"element:IPListArray, attr:StringValue",
                       L"JSONManager: read  multiple element failed. element:IPListArray",
                       L"JSONManager: read  optional element failed. element:IPList",
                       L"JSONManager: read  optional element failed. element:EnforceList",
                       L"JSONManager: read require element failed. element:AdvancedRule"}},
        InvalidSample{"invalid-vpndesclist-not-array.json",
                      {L"JSONManager: read  multiple element failed. element:VPNDescListArray",
                       L"JSONManager: read  optional element failed. element:VPNDescList",
                       L"JSONManager: read  optional element failed. element:WhiteList",
                       L"JSONManager: read require element failed. element:AdvancedRule"}},
        InvalidSample{"invalid-missing-maxfilesize.json",
                      {L"JSONManager: read required dword/bool Attribute failed. "
                       L"element:ContentUploadChannel, attr:MaxFileSizeForScan",
                       L"JSONManager: read require element failed. element:ContentUploadChannel"}},
        InvalidSample{"invalid-bad-header-item.json",
                      {L"JSONManager: read required String Attribute failed. "
                       L"element:ClientRequestHeadersArray, attr:StringValue",
                       L"JSONManager: read  multiple element failed. "
                       L"element:ClientRequestHeadersArray",
                       L"JSONManager: read  optional element failed. element:ClientRequestHeaders",
                       L"JSONManager: read require element failed. element:ContentUploadChannel"}},
        InvalidSample{"invalid-missing-adminpassword.json",
                      {L"JSONManager: read required String Attribute failed. "
                       L"element:VextorJSConfig, attr:AdminPassword"}},
        InvalidSample{"invalid-wrapped-root.json",
                      {L"JSONManager: read require element failed. element:ClientSetting"}}));

}  // namespace
