#include "ConfigurationValue.h"
#include "Document.h"
#include "ExampleConfiguration.h"
#include "Failure.h"
#include "TextEncoding.h"

#include <gtest/gtest.h>

namespace zeltcfg {
namespace {

TEST(ConfigurationValueTest, CaptureHoldsThePresentMembersInMemberOrder) {
    LoadedConfiguration minimal(ReadExample("minimal.json"));
    EXPECT_EQ(
        "{ \"ClientSetting\": { \"Communication\": { \"DispServerHostname\": "
        "\"disp.example.net\", \"LogUploadInterval\": 600, \"ManagementQueryInterval\": 300 }, "
        "\"HTTPS\": { \"InspectHostnameOnly\": 0, \"SSLFilter\": 1, \"UpstreamVerification\": 1 "
        "}, \"ContentUpload\": 0, \"LogUpload\": 1, \"URLLocalCache\": 1 }, \"AdvancedRule\": { "
        "}, \"ContentUploadChannel\": { \"MaxFileSizeForScan\": 10485760 }, \"ProfileName\": "
        "\"Default\", \"SchemaVersion\": \"1.0\", \"AdminPassword\": \"\" }",
        WriteJsonLine(CaptureConfiguration(minimal.Bound())));
}

TEST(ConfigurationValueTest, StoreThenCaptureGivesTheSameValue) {
    LoadedConfiguration full(ReadExample("full.json"));
    LoadedConfiguration minimal(ReadExample("minimal.json"));
    const TextValue fullValue = CaptureConfiguration(full.Bound());
    StoreConfiguration(fullValue, minimal.Bound());
    EXPECT_TRUE(SameValue(fullValue, CaptureConfiguration(minimal.Bound())));
    EXPECT_EQ(WriteConfigurationText(*full.configuration),
              WriteConfigurationText(*minimal.configuration));

    // And back: the optional members that the minimal value lacks are made absent.
    LoadedConfiguration other(ReadExample("minimal.json"));
    StoreConfiguration(CaptureConfiguration(other.Bound()), full.Bound());
    EXPECT_EQ(WriteConfigurationText(*other.configuration),
              WriteConfigurationText(*full.configuration));
}

TEST(ConfigurationValueTest, StoreRefusesAValueWithoutARequiredMember) {
    LoadedConfiguration minimal(ReadExample("minimal.json"));
    TextValue value = CaptureConfiguration(minimal.Bound());
    value.members.pop_back();  // AdminPassword
    try {
        StoreConfiguration(value, minimal.Bound());
        FAIL() << "stored";
    } catch (const Failure& failure) {
        EXPECT_EQ(kExitInvalid, failure.code);
        EXPECT_STREQ("/AdminPassword: a required member is missing", failure.what());
    }
}

TEST(ConfigurationValueTest, StoreRefusesAnIntegerOutOfRange) {
    LoadedConfiguration minimal(ReadExample("minimal.json"));
    TextValue value = CaptureConfiguration(minimal.Bound());
    value.members[0].value.members[2].value.token = "4294967296";
    try {
        StoreConfiguration(value, minimal.Bound());
        FAIL() << "stored";
    } catch (const Failure& failure) {
        EXPECT_STREQ("/ClientSetting/ContentUpload: expected an integer from 0 to 4294967295",
                     failure.what());
    }
}

TEST(ConfigurationValueTest, SameValueComparesAsJson) {
    const TextValue one = ScanText("{ \"a\": 1, \"b\": [ \"x\", \"y\" ], \"c\": null }");
    EXPECT_TRUE(SameValue(one, ScanText("{\"c\": null, \"b\": [\"x\", \"y\"], \"a\": 1.0}")));
    EXPECT_TRUE(
        SameValue(one, ScanText("{\"a\": 2, \"a\": 1, \"b\": [\"x\", \"y\"], \"c\": null}")));
    EXPECT_FALSE(SameValue(one, ScanText("{\"a\": 1, \"b\": [\"y\", \"x\"], \"c\": null}")));
    EXPECT_FALSE(SameValue(one, ScanText("{\"a\": \"1\", \"b\": [\"x\", \"y\"], \"c\": null}")));
    EXPECT_FALSE(SameValue(one, ScanText("{\"a\": 1, \"b\": [\"x\", \"y\"]}")));
    EXPECT_FALSE(SameValue(one, ScanText("{\"a\": 1, \"b\": [\"x\", \"y\"], \"c\": false}")));
    EXPECT_FALSE(SameValue(ScanText("[ 1 ]"), ScanText("[ 1, 1 ]")));
}

TEST(ConfigurationValueTest, WriteJsonLineEscapesAndShowsEmptyValues) {
    TextValue value = MakeObject();
    value.members.push_back(TextMember{"E", 0, MakeArray()});
    value.members.push_back(TextMember{"O", 0, MakeObject()});
    value.members.push_back(TextMember{"S", 0, MakeString("a\"b\\c\n")});
    value.members.push_back(TextMember{"N", 0, MakeNumber(4294967295u)});
    EXPECT_EQ("{ \"E\": [ ], \"O\": { }, \"S\": \"a\\\"b\\\\c\\n\", \"N\": 4294967295 }",
              WriteJsonLine(value));
}

}  // namespace
}  // namespace zeltcfg
