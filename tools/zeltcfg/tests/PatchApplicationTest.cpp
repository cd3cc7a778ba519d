#include "PatchApplication.h"

#include "ConfigurationPatch.h"
#include "ConfigurationValue.h"
#include "ExampleConfiguration.h"
#include "Failure.h"

#include <gtest/gtest.h>

#include <string>

namespace zeltcfg {
namespace {

JsonInput PatchText(const std::string& text) {
    JsonInput patch;
    patch.name = "change.json";
    patch.text = text;
    patch.tree = ScanText(text);
    return patch;
}

// The exit code of the Failure that call throws, and what it printed before.
template <typename Call>
std::string FailureOutput(Call call, ExitCode code) {
    testing::internal::CaptureStderr();
    try {
        call();
        ADD_FAILURE() << "no Failure was thrown";
    } catch (const Failure& failure) {
        EXPECT_EQ(code, failure.code);
        EXPECT_STREQ("", failure.what()) << "the message is printed, not thrown";
    }
    return testing::internal::GetCapturedStderr();
}

void RefuseThirdOperation(TextValue&, const TextValue& patch) {
    throw ChangeFailure(patch.items.at(2).offset, "operation 2 (remove /X): refused");
}

TEST(ApplyOrFail, PrintsTheFailureAtItsPlaceInThePatchAndWhatBecameOfTheFile) {
    const JsonInput patch = PatchText("[\n  1,\n  2,\n    3\n]\n");
    TextValue configuration = MakeObject();
    EXPECT_EQ("change.json:4:5: operation 2 (remove /X): refused; site.json is unchanged\n",
              FailureOutput(
                  [&] {
                      ApplyOrFail(RefuseThirdOperation, configuration, patch,
                                  "site.json is unchanged");
                  },
                  kExitInvalid));
    EXPECT_EQ("change.json:4:5: operation 2 (remove /X): refused\n",
              FailureOutput([&] { ApplyOrFail(RefuseThirdOperation, configuration, patch, ""); },
                            kExitInvalid));
}

TEST(ApplyOrFail, LeavesAChangeThatHoldsInTheConfiguration) {
    TextValue configuration = MakeObject();
    configuration.members.push_back(TextMember{"ProfileName", 0, MakeString("Default")});
    ApplyOrFail(ApplyMergePatch, configuration, PatchText("{ \"ProfileName\": \"Site A\" }"),
                "site.json is unchanged");
    EXPECT_EQ("{ \"ProfileName\": \"Site A\" }", WriteJsonLine(configuration));
}

// minimal.json's typed tree, as the file site.json.
Document MinimalDocument() {
    LoadedConfiguration loaded(ReadExample("minimal.json"));
    Document document;
    document.name = "site.json";
    document.manager = std::move(loaded.manager);
    document.configuration = std::move(loaded.configuration);
    return document;
}

TEST(StoreOrFail, NamesTheFileAndTheMemberThatTheTreeRefuses) {
    Document document = MinimalDocument();
    TextValue configuration = CaptureConfiguration(BindConfiguration(*document.configuration));
    configuration.members.pop_back();  // AdminPassword, a required member
    EXPECT_EQ(
        "site.json: the merged configuration is invalid: /AdminPassword: a required member is "
        "missing; nothing is written\n",
        FailureOutput([&] { StoreOrFail(configuration, document, "merged", "nothing is written"); },
                      kExitInvalid));
}

TEST(StoreOrFail, MakesTheTreeHoldTheConfiguration) {
    Document document = MinimalDocument();
    TextValue configuration = CaptureConfiguration(BindConfiguration(*document.configuration));
    configuration.members.at(3).value = MakeString("Site A");  // ProfileName
    StoreOrFail(configuration, document, "patched", "site.json is unchanged");
    EXPECT_EQ(WriteJsonLine(configuration),
              WriteJsonLine(CaptureConfiguration(BindConfiguration(*document.configuration))));
}

}  // namespace
}  // namespace zeltcfg
