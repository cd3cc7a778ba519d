// ContentUploadChannelTest.cpp: the ContentUploadChannel element: its
// accessors (the request-header list kept behind its presence flag), its write
// and read over a manager with every failure message and the messages of the
// list below it, copying and its virtual slot order.
#include <zelt/zelt.h>

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "support/ElementTesting.h"
#include "support/InterceptingManager.h"
#include "support/MessageCapture.h"
#include "support/VirtualSlot.h"

using namespace VextorJSConfig;

namespace {

using Values = std::vector<std::wstring>;

class ContentUploadChannelTest : public ::testing::Test {
protected:
    int ReadFromText(const std::string& text) {
        return ReadFromDocument(*channel, text, L"ContentUploadChannel");
    }

    void ReadFrom(const std::string& text) { ASSERT_EQ(ReadFromText(text), ZELT_SUCCESS); }

    void Fill() {
        const DWORD size = 52428800;
        const std::wstring block = L"exe;dll";
        const std::wstring scan = L"pdf;zip";
        channel->SetClientRequestHeaders(
            MakeClientRequestHeaders({L"X-One: 1", L"X-Two: 2"}).get());
        channel->SetMaxFileSizeForScan(&size);
        channel->SetFileTypesToBlock(&block);
        channel->SetFileTypesToScan(&scan);
    }

    Values Headers() {
        IClientRequestHeaders* headers = nullptr;
        if (channel->GetClientRequestHeaders(&headers) != ZELT_SUCCESS) return {L"<absent>"};
        return ListValues(*headers);
    }

    void ExpectCleared() {
        EXPECT_EQ(channel->GetElementType(), 0u);
        IClientRequestHeaders* headers = nullptr;
        EXPECT_EQ(channel->GetClientRequestHeaders(&headers), ZELT_NOT_PRESENT);
        EXPECT_EQ(headers, nullptr);
        EXPECT_EQ(channel->GetMaxFileSizeForScan(), 0u);
        std::wstring out = L"untouched";
        EXPECT_EQ(channel->GetFileTypesToBlock(&out), ZELT_NOT_PRESENT);
        EXPECT_EQ(channel->GetFileTypesToScan(&out), ZELT_NOT_PRESENT);
        EXPECT_EQ(out, L"untouched");
    }

    MessageCapture capture;
    ElementPtr<IContentUploadChannel> channel{ContentUploadChannel_CreateNewInstance()};
};

const char kFullChannel[] =
    R"({ "ContentUploadChannel": { "ClientRequestHeaders": [ "X-One: 1", "X-Two: 2" ], )"
    R"("MaxFileSizeForScan": 52428800, "FileTypesToBlock": "exe;dll", "FileTypesToScan": "pdf;zip" } })";

TEST_F(ContentUploadChannelTest, VirtualSlotsFollowTheContract) {
    using I = IContentUploadChannel;
    EXPECT_EQ(VirtualSlotOf(&I::WriteToJSONMgr), 1);
    EXPECT_EQ(VirtualSlotOf(&I::ReadFromJSONMgr), 2);
    EXPECT_EQ(VirtualSlotOf(&I::Clear), 3);
    EXPECT_EQ(VirtualSlotOf(&I::CopyFrom), 4);
    EXPECT_EQ(VirtualSlotOf(&I::GetElementType), 5);
    EXPECT_EQ(VirtualSlotOf(&I::GetClientRequestHeaders), 6);
    EXPECT_EQ(VirtualSlotOf(&I::SetClientRequestHeaders), 7);
    EXPECT_EQ(VirtualSlotOf(&I::GetMaxFileSizeForScan), 8);
    EXPECT_EQ(VirtualSlotOf(&I::SetMaxFileSizeForScan), 9);
    EXPECT_EQ(VirtualSlotOf(&I::GetFileTypesToBlock), 10);
    EXPECT_EQ(VirtualSlotOf(&I::SetFileTypesToBlock), 11);
    EXPECT_EQ(VirtualSlotOf(&I::GetFileTypesToScan), 12);
    EXPECT_EQ(VirtualSlotOf(&I::SetFileTypesToScan), 13);
}

TEST_F(ContentUploadChannelTest, FactoryGivesAClearedOrdinaryElement) {
    ExpectCleared();
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(ContentUploadChannelTest, NullSizeIsRefusedAndKeepsTheOldValue) {
    const DWORD size = 77;
    EXPECT_EQ(channel->SetMaxFileSizeForScan(&size), ZELT_SUCCESS);
    EXPECT_EQ(channel->SetMaxFileSizeForScan(nullptr), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: set Attribute failed due to parama pointer is NULL. "
                       L"element:ContentUploadChannel, attr:MaxFileSizeForScan"});
    EXPECT_EQ(channel->GetMaxFileSizeForScan(), 77u);
}

TEST_F(ContentUploadChannelTest, OptionalTextsArePresentOnlyAfterASet) {
    const std::wstring block = L"exe";
    channel->SetFileTypesToBlock(&block);
    std::wstring out = L"untouched";
    EXPECT_EQ(channel->GetFileTypesToBlock(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, L"exe");
    out = L"untouched";
    EXPECT_EQ(channel->GetFileTypesToScan(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(out, L"untouched");
    channel->SetFileTypesToBlock(nullptr);
    EXPECT_EQ(channel->GetFileTypesToBlock(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(out, L"untouched");
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(ContentUploadChannelTest, SetHeadersStoresACopyAndGetHandsOutTheEmbeddedList) {
    ElementPtr<IClientRequestHeaders> source = MakeClientRequestHeaders({L"a", L"b"});
    channel->SetClientRequestHeaders(source.get());
    IClientRequestHeaders* embedded = nullptr;
    ASSERT_EQ(channel->GetClientRequestHeaders(&embedded), ZELT_SUCCESS);
    EXPECT_NE(embedded, source.get());

    source->RemoveAllItems();
    EXPECT_EQ(Headers(), (Values{L"a", L"b"}));

    embedded->RemoveItem(0);
    EXPECT_EQ(Headers(), (Values{L"b"}));
    EXPECT_EQ(
        WrittenText(*channel),
        R"({ "ContentUploadChannel": { "ClientRequestHeaders": [ "b" ], "MaxFileSizeForScan": 0 } })");
}

TEST_F(ContentUploadChannelTest, NullHeadersHideTheListButKeepItsEntries) {
    channel->SetClientRequestHeaders(MakeClientRequestHeaders({L"a", L"b"}).get());
    IClientRequestHeaders* embedded = nullptr;
    ASSERT_EQ(channel->GetClientRequestHeaders(&embedded), ZELT_SUCCESS);

    channel->SetClientRequestHeaders(nullptr);
    IClientRequestHeaders* out = nullptr;
    EXPECT_EQ(channel->GetClientRequestHeaders(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(WrittenText(*channel), R"({ "ContentUploadChannel": { "MaxFileSizeForScan": 0 } })");

    // Handing back the embedded list itself makes the same entries present.
    channel->SetClientRequestHeaders(embedded);
    EXPECT_EQ(Headers(), (Values{L"a", L"b"}));
}

TEST_F(ContentUploadChannelTest, ClearEmptiesEvenAHiddenList) {
    Fill();
    IClientRequestHeaders* embedded = nullptr;
    ASSERT_EQ(channel->GetClientRequestHeaders(&embedded), ZELT_SUCCESS);
    channel->SetClientRequestHeaders(nullptr);
    channel->ElementType = 5;
    channel->Clear();
    ExpectCleared();
    EXPECT_EQ(embedded->GetItemCount(), 0u);
}

TEST_F(ContentUploadChannelTest, FreshElementWritesOnlyTheSize) {
    EXPECT_EQ(WrittenText(*channel), R"({ "ContentUploadChannel": { "MaxFileSizeForScan": 0 } })");
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(ContentUploadChannelTest, WritesEveryMemberInOrder) {
    Fill();
    EXPECT_EQ(WrittenText(*channel), kFullChannel);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(ContentUploadChannelTest, PresentEmptyListWritesNothing) {
    channel->SetClientRequestHeaders(MakeClientRequestHeaders({}).get());
    IClientRequestHeaders* embedded = nullptr;
    EXPECT_EQ(channel->GetClientRequestHeaders(&embedded), ZELT_SUCCESS);
    EXPECT_EQ(WrittenText(*channel), R"({ "ContentUploadChannel": { "MaxFileSizeForScan": 0 } })");
}

TEST_F(ContentUploadChannelTest, WriteWithoutManagerFails) {
    EXPECT_EQ(channel->WriteToJSONMgr(nullptr, nullptr, 1), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: WriteToJSONMgr require xmlmanager pointer is NULL."});
}

class ContentUploadChannelWriteFailureTest : public ContentUploadChannelTest,
                                             public ::testing::WithParamInterface<WriteFailure> {};

TEST_P(ContentUploadChannelWriteFailureTest, StopsAtTheFailingMemberAndKeepsWhatWasWritten) {
    Fill();
    InterceptingManager manager(ManagerWithText("{}"));
    IJSONManager& real = manager.Inner();
    InjectFailure(manager, GetParam());
    EXPECT_EQ(channel->WriteToJSONMgr(&manager, real.GetRootElement(), 1), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(), GetParam().messages);
    EXPECT_EQ(SavedText(real), GetParam().partialDocument);
}

INSTANTIATE_TEST_SUITE_P(
    ContentUploadChannelTest, ContentUploadChannelWriteFailureTest,
    ::testing::Values(
        WriteFailure{L"ContentUploadChannel",
                     nullptr,
                     {L"JSONManager: required element pointer is NULL. element: "
                      L"ContentUploadChannel"},
                     "{ }"},
        WriteFailure{L"ClientRequestHeaders",
                     nullptr,
                     {L"JSONManager: required element pointer is NULL. element: "
                      L"ClientRequestHeaders",
                      L"JSONManager: write optional element failed. "
                      L"element:ClientRequestHeaders"},
                     R"({ "ContentUploadChannel": { } })"},
        WriteFailure{nullptr,
                     L"StringValue",
                     {L"JSONManager: write required string Attribute failed. "
                      L"element:ClientRequestHeadersArray, attr:StringValue",
                      L"JSONManager: write none to multiple element failed. "
                      L"element:ClientRequestHeadersArray",
                      L"JSONManager: write optional element failed. "
                      L"element:ClientRequestHeaders"},
                     R"({ "ContentUploadChannel": { "ClientRequestHeaders": [ ] } })"},
        WriteFailure{
            nullptr,
            L"MaxFileSizeForScan",
            {L"JSONManager: write required DWORD Attribute failed. "
             L"element:ContentUploadChannel, attr:MaxFileSizeForScan"},
            R"({ "ContentUploadChannel": { "ClientRequestHeaders": [ "X-One: 1", "X-Two: 2" ] } })"},
        WriteFailure{
            nullptr,
            L"FileTypesToBlock",
            {L"JSONManager: write required string Attribute failed. "
             L"element:ContentUploadChannel, attr:FileTypesToBlock"},
            R"({ "ContentUploadChannel": { "ClientRequestHeaders": [ "X-One: 1", "X-Two: 2" ], "MaxFileSizeForScan": 52428800 } })"},
        WriteFailure{
            nullptr,
            L"FileTypesToScan",
            {L"JSONManager: write required string Attribute failed. "
             L"element:ContentUploadChannel, attr:FileTypesToScan"},
            R"({ "ContentUploadChannel": { "ClientRequestHeaders": [ "X-One: 1", "X-Two: 2" ], "MaxFileSizeForScan": 52428800, "FileTypesToBlock": "exe;dll" } })"}));

TEST_F(ContentUploadChannelTest, ReadsEveryMember) {
    ReadFrom(kFullChannel);
    EXPECT_EQ(Headers(), (Values{L"X-One: 1", L"X-Two: 2"}));
    EXPECT_EQ(channel->GetMaxFileSizeForScan(), 52428800u);
    std::wstring out;
    EXPECT_EQ(channel->GetFileTypesToBlock(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, L"exe;dll");
    EXPECT_EQ(channel->GetFileTypesToScan(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, L"pdf;zip");
    EXPECT_TRUE(capture.Messages().empty());
    EXPECT_EQ(WrittenText(*channel), kFullChannel);
}

TEST_F(ContentUploadChannelTest, SizeAloneReadsWithEverythingElseAbsent) {
    Fill();
    ReadFrom(R"({ "ContentUploadChannel": { "MaxFileSizeForScan": 1 } })");
    EXPECT_EQ(Headers(), Values{L"<absent>"});
    EXPECT_EQ(channel->GetMaxFileSizeForScan(), 1u);
    std::wstring out = L"untouched";
    EXPECT_EQ(channel->GetFileTypesToBlock(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(channel->GetFileTypesToScan(&out), ZELT_NOT_PRESENT);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(ContentUploadChannelTest, ReadEmptiesAListHiddenBeforeIt) {
    Fill();
    IClientRequestHeaders* embedded = nullptr;
    ASSERT_EQ(channel->GetClientRequestHeaders(&embedded), ZELT_SUCCESS);
    channel->SetClientRequestHeaders(nullptr);
    ReadFrom(R"({ "ContentUploadChannel": { "MaxFileSizeForScan": 1 } })");
    EXPECT_EQ(embedded->GetItemCount(), 0u);
}

TEST_F(ContentUploadChannelTest, HeaderItemsReadInBothForms) {
    ReadFrom(
        R"({ "ContentUploadChannel": { "ClientRequestHeaders": [ { "StringValue": "value-1" }, "value-2" ], "MaxFileSizeForScan": 0 } })");
    EXPECT_EQ(Headers(), (Values{L"value-1", L"value-2"}));
}

TEST_F(ContentUploadChannelTest, EmptyHeaderArrayReadsAsPresentAndIsNotWrittenBack) {
    ReadFrom(
        R"({ "ContentUploadChannel": { "ClientRequestHeaders": [ ], "MaxFileSizeForScan": 0 } })");
    EXPECT_EQ(Headers(), Values{});
    EXPECT_EQ(WrittenText(*channel), R"({ "ContentUploadChannel": { "MaxFileSizeForScan": 0 } })");
}

TEST_F(ContentUploadChannelTest, NonIntegerSizeReadsAsTheManagerConvertsIt) {
    ReadFrom(R"({ "ContentUploadChannel": { "MaxFileSizeForScan": "2048 bytes" } })");
    EXPECT_EQ(channel->GetMaxFileSizeForScan(), 2048u);
    ReadFrom(R"({ "ContentUploadChannel": { "MaxFileSizeForScan": -1 } })");
    EXPECT_EQ(channel->GetMaxFileSizeForScan(), 4294967295u);
}

TEST_F(ContentUploadChannelTest, PresentEmptyTextsReadAsPresentAndWriteBack) {
    const char text[] =
        R"({ "ContentUploadChannel": { "MaxFileSizeForScan": 0, "FileTypesToBlock": "", "FileTypesToScan": "" } })";
    ReadFrom(text);
    std::wstring out = L"untouched";
    EXPECT_EQ(channel->GetFileTypesToBlock(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, L"");
    EXPECT_EQ(WrittenText(*channel), text);
}

TEST_F(ContentUploadChannelTest, LongTextsArriveWhole) {
    const std::string longText(3000, 't');
    ReadFrom(R"({ "ContentUploadChannel": { "MaxFileSizeForScan": 0, "FileTypesToBlock": ")" +
             longText + R"(", "FileTypesToScan": "short" } })");
    std::wstring out;
    EXPECT_EQ(channel->GetFileTypesToBlock(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, std::wstring(3000, L't'));
    EXPECT_EQ(channel->GetFileTypesToScan(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, L"short");
}

TEST_F(ContentUploadChannelTest, UnreadableTextsStayAbsentAndTheReadSucceeds) {
    InterceptingManager manager(ManagerWithText(
        R"({ "ContentUploadChannel": { "MaxFileSizeForScan": 3, "FileTypesToBlock": ")" +
        std::string(2000, 'b') + R"(", "FileTypesToScan": "pdf" } })"));
    IJSONManager& real = manager.Inner();
    manager.failingLargeStringReads.insert(L"FileTypesToBlock");
    manager.stringRepliesByName[L"FileTypesToScan"] = {ZELT_BUFFER_TOO_SMALL, 1024, L""};
    EXPECT_EQ(channel->ReadFromJSONMgr(&manager, real.GetElement(nullptr, L"ContentUploadChannel")),
              ZELT_SUCCESS);
    EXPECT_EQ(manager.failedLargeStringReads, 1);
    std::wstring out = L"untouched";
    EXPECT_EQ(channel->GetFileTypesToBlock(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(channel->GetFileTypesToScan(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(channel->GetMaxFileSizeForScan(), 3u);
    EXPECT_TRUE(capture.Messages().empty());
}

TEST_F(ContentUploadChannelTest, ReadWithoutManagerFailsAndKeepsTheElement) {
    Fill();
    EXPECT_EQ(channel->ReadFromJSONMgr(nullptr, nullptr), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(),
              Messages{L"JSONManager: ReadFromJSONMgr require xmlmanager pointer is NULL."});
    EXPECT_EQ(channel->GetMaxFileSizeForScan(), 52428800u);
    EXPECT_EQ(Headers(), (Values{L"X-One: 1", L"X-Two: 2"}));
}

struct ReadFailure {
    const char* name;
    const char* document;
    Messages messages;
};

// Printed as the failure it describes, so that test names stay the same
// from run to run.
void PrintTo(const ReadFailure& failure, std::ostream* out) { *out << failure.name; }

class ContentUploadChannelReadFailureTest : public ContentUploadChannelTest,
                                            public ::testing::WithParamInterface<ReadFailure> {};

TEST_P(ContentUploadChannelReadFailureTest, FailsAndLeavesTheElementCleared) {
    Fill();
    EXPECT_EQ(ReadFromText(GetParam().document), ZELT_FAILED);
    EXPECT_EQ(capture.Messages(), GetParam().messages);
    ExpectCleared();
}

const wchar_t kSizeMissing[] =
    L"JSONManager: read required dword/bool Attribute failed. element:ContentUploadChannel, "
    L"attr:MaxFileSizeForScan";
const wchar_t kHeadersFailed[] =
    L"JSONManager: read  optional element failed. element:ClientRequestHeaders";
const wchar_t kHeaderItemFailed[] =
    L"JSONManager: read  multiple element failed. element:ClientRequestHeadersArray";
const wchar_t kHeaderStringMissing[] =
    L"JSONManager: read required String Attribute failed. element:ClientRequestHeadersArray, "
    L"attr:StringValue";

INSTANTIATE_TEST_SUITE_P(
    ContentUploadChannelTest, ContentUploadChannelReadFailureTest,
    ::testing::Values(
        ReadFailure{
            "MissingSize",
            R"({ "ContentUploadChannel": { "ClientRequestHeaders": [ "h" ], "FileTypesToBlock": "exe", "FileTypesToScan": "pdf" } })",
            {kSizeMissing}},
        ReadFailure{"NullSize",
                    R"({ "ContentUploadChannel": { "MaxFileSizeForScan": null } })",
                    {kSizeMissing}},
        ReadFailure{
            "NumberHeaderItem",
            R"({ "ContentUploadChannel": { "ClientRequestHeaders": [ "h", 5 ], "MaxFileSizeForScan": 1 } })",
            {kHeaderStringMissing, kHeaderItemFailed, kHeadersFailed}},
        ReadFailure{
            "HeaderObjectWithoutStringValue",
            R"({ "ContentUploadChannel": { "ClientRequestHeaders": [ { "Other": "h" } ], "MaxFileSizeForScan": 1 } })",
            {kHeaderStringMissing, kHeaderItemFailed, kHeadersFailed}},
        ReadFailure{
            "HeadersNotAnArray",
            R"({ "ContentUploadChannel": { "ClientRequestHeaders": { "a": "h" }, "MaxFileSizeForScan": 1 } })",
            {kHeaderItemFailed, kHeadersFailed}}));

TEST_F(ContentUploadChannelTest, CopyFromMakesAnIndependentCopy) {
    Fill();
    channel->ElementType = 4;
    ElementPtr<IContentUploadChannel> copy(ContentUploadChannel_CreateNewInstance());
    copy->CopyFrom(*channel);
    EXPECT_EQ(copy->GetElementType(), 0u);

    IClientRequestHeaders* sourceHeaders = nullptr;
    ASSERT_EQ(channel->GetClientRequestHeaders(&sourceHeaders), ZELT_SUCCESS);
    sourceHeaders->RemoveAllItems();
    const DWORD size = 1;
    channel->SetMaxFileSizeForScan(&size);
    channel->SetFileTypesToBlock(nullptr);

    IClientRequestHeaders* copiedHeaders = nullptr;
    ASSERT_EQ(copy->GetClientRequestHeaders(&copiedHeaders), ZELT_SUCCESS);
    EXPECT_EQ(ListValues(*copiedHeaders), (Values{L"X-One: 1", L"X-Two: 2"}));
    EXPECT_EQ(copy->GetMaxFileSizeForScan(), 52428800u);
    std::wstring out;
    EXPECT_EQ(copy->GetFileTypesToBlock(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, L"exe;dll");
    EXPECT_EQ(copy->GetFileTypesToScan(&out), ZELT_SUCCESS);
    EXPECT_EQ(out, L"pdf;zip");
}

TEST_F(ContentUploadChannelTest, CopyFromCarriesAHiddenListAlong) {
    channel->SetClientRequestHeaders(MakeClientRequestHeaders({L"hidden"}).get());
    channel->SetClientRequestHeaders(nullptr);

    ElementPtr<IContentUploadChannel> copy(ContentUploadChannel_CreateNewInstance());
    copy->SetClientRequestHeaders(MakeClientRequestHeaders({L"old"}).get());
    IClientRequestHeaders* copiedHeaders = nullptr;
    ASSERT_EQ(copy->GetClientRequestHeaders(&copiedHeaders), ZELT_SUCCESS);

    copy->CopyFrom(*channel);
    IClientRequestHeaders* out = nullptr;
    EXPECT_EQ(copy->GetClientRequestHeaders(&out), ZELT_NOT_PRESENT);
    EXPECT_EQ(ListValues(*copiedHeaders), Values{L"hidden"});
}

TEST_F(ContentUploadChannelTest, CopyFromItselfChangesNothing) {
    Fill();
    channel->CopyFrom(*channel);
    EXPECT_EQ(Headers(), (Values{L"X-One: 1", L"X-Two: 2"}));
    EXPECT_EQ(WrittenText(*channel), kFullChannel);
}

TEST_F(ContentUploadChannelTest, CopyFromAClearedElementClearsTheTarget) {
    Fill();
    ElementPtr<IContentUploadChannel> cleared(ContentUploadChannel_CreateNewInstance());
    channel->CopyFrom(*cleared);
    ExpectCleared();
}

}  // namespace
