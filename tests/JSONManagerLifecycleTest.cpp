// JSONManagerLifecycleTest.cpp: the manager's exports, its document lifecycle
// (clear, new document), the imports from a text and from a file, and saving to
// a file, with the log records each file failure leaves.
#include <zelt/zelt.h>

#include <sys/stat.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "support/HeldFile.h"
#include "support/LogCapture.h"
#include "support/ManagerTesting.h"
#include "support/MessageCapture.h"
#include "support/TempFile.h"

namespace {

const LogRecord kNullPathRecord{L"JSONManager", L"CJSONManager::ImportFromJSONFile", 75, 3,
                                L"File path is NULL."};
const LogRecord kOpenFailedRecord{L"JSONManager", L"CJSONManager::ImportFromJSONFile", 96, 3,
                                  L"Failed to open file."};
const LogRecord kShortWriteRecord{L"JSONManager", L"CJSONManager::SaveToJSONFile", 174, 3,
                                  L"Failed to write full string to export file."};
const LogRecord kNoTextRecord{L"JSONManager", L"CJSONManager::SaveToJSONFile", 179, 3,
                              L"Failed to convert object to a JSON string."};

using Records = std::vector<LogRecord>;

// The longest file name, and the longest path, the system takes (on Windows
// without the long-path prefix).
#if defined(_WIN32)
constexpr std::size_t kNameMax = 255;
constexpr std::size_t kPathMax = 260;
#else
constexpr std::size_t kNameMax = NAME_MAX;
constexpr std::size_t kPathMax = PATH_MAX;
#endif

// Makes a symbolic link. False only where the system does not let this
// process make one (Windows grants it with a privilege); elsewhere a refusal
// fails the test.
bool MakeSymbolicLink(const std::string& target, const std::string& link) {
    std::error_code error;
    const std::filesystem::path targetPath = std::filesystem::u8path(target);
    if (std::filesystem::is_directory(targetPath))
        std::filesystem::create_directory_symlink(targetPath, std::filesystem::u8path(link), error);
    else
        std::filesystem::create_symlink(targetPath, std::filesystem::u8path(link), error);
#if !defined(_WIN32)
    EXPECT_FALSE(error) << error.message();
#endif
    return !error;
}

// The text of `levels` nested arrays (or objects, each holding the next under
// key "a"), the innermost holding `inner`.
std::string NestedArrays(int levels, const std::string& inner) {
    return std::string(static_cast<std::size_t>(levels), '[') + inner +
           std::string(static_cast<std::size_t>(levels), ']');
}

std::string NestedObjects(int levels, const std::string& innerMembers) {
    std::string text = "{" + innerMembers + "}";
    for (int level = 1; level < levels; ++level) text = "{\"a\":" + text + "}";
    return text;
}

class JSONManagerLifecycleTest : public ::testing::Test {
protected:
    void SetUp() override { ClearCapturedLogs(); }

    // A manager holding {"old":1}, whose saved text tells whether a failed
    // operation kept it.
    static ExportDestroyedManagerPtr ManagerWithOldDocument() {
        return ManagerWithText("{\"old\":1}");
    }
    static constexpr const char* kOldSaved = "{ \"old\": 1 }";

    // A file import that the probe refuses: -1, one "Failed to open file."
    // record, and the document that was there stays.
    static void ExpectImportRefused(IJSONManager& manager, const std::wstring& path) {
        EXPECT_EQ(manager.ImportFromJSONFile(path.c_str()), ZELT_BAD_ARGUMENT);
        EXPECT_EQ(CapturedLogs(), Records{kOpenFailedRecord});
        ClearCapturedLogs();
        EXPECT_EQ(SavedText(manager), kOldSaved);
    }

    TempDir dir_;
};

// ---- zeltCreateJSONManager, zeltDestroyJSONManager, SetZeltDebugDumpCallBack

TEST_F(JSONManagerLifecycleTest, CreateWithNullTextGivesManagerWithoutDocument) {
    ExportDestroyedManagerPtr manager(zeltCreateJSONManager(nullptr, 10));
    ASSERT_NE(manager, nullptr);
    EXPECT_EQ(manager->GetRootElement(), nullptr);
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(JSONManagerLifecycleTest, CreateWithZeroLengthGivesManagerWithoutDocument) {
    char text[] = "{}";
    ExportDestroyedManagerPtr manager(zeltCreateJSONManager(text, 0));
    ASSERT_NE(manager, nullptr);
    EXPECT_EQ(manager->GetRootElement(), nullptr);
}

TEST_F(JSONManagerLifecycleTest, CreateWithWrongLengthGivesManagerWithoutDocument) {
    char text[] = "{}";
    for (int length : {5, 1, 3, -1}) {
        SCOPED_TRACE(length);
        ExportDestroyedManagerPtr manager(zeltCreateJSONManager(text, length));
        ASSERT_NE(manager, nullptr);
        EXPECT_EQ(manager->GetRootElement(), nullptr);
    }
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(JSONManagerLifecycleTest, CreateWithInvalidTextGivesManagerWithoutDocument) {
    char invalid[] = "[1,2,";
    ExportDestroyedManagerPtr manager(zeltCreateJSONManager(invalid, 5));
    ASSERT_NE(manager, nullptr);
    EXPECT_EQ(manager->GetRootElement(), nullptr);

    char jsonNull[] = "null";
    ExportDestroyedManagerPtr nullManager(zeltCreateJSONManager(jsonNull, 4));
    ASSERT_NE(nullManager, nullptr);
    EXPECT_EQ(nullManager->GetRootElement(), nullptr);
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(JSONManagerLifecycleTest, CreateWithValidTextHoldsDocument) {
    char text[] = "{\"a\":1,\"b\":\"x\"}";
    ExportDestroyedManagerPtr manager(
        zeltCreateJSONManager(text, static_cast<int>(sizeof(text) - 1)));
    ASSERT_NE(manager, nullptr);
    EXPECT_NE(manager->GetRootElement(), nullptr);
    EXPECT_EQ(SavedText(*manager), "{ \"a\": 1, \"b\": \"x\" }");
}

TEST_F(JSONManagerLifecycleTest, ManagerWithoutDocumentCanStartOne) {
    char text[] = "{}";
    ExportDestroyedManagerPtr manager(zeltCreateJSONManager(text, 7));
    ASSERT_NE(manager, nullptr);
    EXPECT_EQ(ImportText(*manager, "[1]"), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), "[ 1 ]");
}

// The callback is read only by failing elements: a Communication element read
// with no manager fails and reports once to the callback, if one is set.
std::size_t MessagesFromOneElementFailure(MessageCapture& capture) {
    capture.Clear();
    std::unique_ptr<VextorJSConfig::ICommunication> element(
        VextorJSConfig::Communication_CreateNewInstance());
    EXPECT_NE(element, nullptr);
    if (element == nullptr) return 0;
    EXPECT_EQ(element->ReadFromJSONMgr(nullptr, nullptr), ZELT_FAILED);
    for (const std::wstring& message : capture.Messages()) {
        EXPECT_EQ(message.rfind(L"JSONManager: ", 0), 0u);
    }
    return capture.Messages().size();
}

TEST_F(JSONManagerLifecycleTest, SetCallbackDeliversElementFailures) {
    MessageCapture capture;
    EXPECT_EQ(MessagesFromOneElementFailure(capture), 1u);
    SetZeltDebugDumpCallBack(nullptr);
    EXPECT_EQ(MessagesFromOneElementFailure(capture), 0u);
}

TEST_F(JSONManagerLifecycleTest, DestroyNullManagerClearsCallback) {
    MessageCapture capture;
    zeltDestroyJSONManager(nullptr);
    EXPECT_EQ(MessagesFromOneElementFailure(capture), 0u);
    // Reporting resumes only when a callback is installed again.
    capture.Reinstall();
    EXPECT_EQ(MessagesFromOneElementFailure(capture), 1u);
}

TEST_F(JSONManagerLifecycleTest, DestroyingOneOfTwoManagersTurnsReportingOff) {
    MessageCapture capture;
    ExportDestroyedManagerPtr kept = ManagerWithText("{\"a\":1}");
    IJSONManager* destroyed = zeltCreateJSONManager(nullptr, 0);
    ASSERT_NE(destroyed, nullptr);
    EXPECT_EQ(MessagesFromOneElementFailure(capture), 1u);
    zeltDestroyJSONManager(destroyed);
    EXPECT_EQ(MessagesFromOneElementFailure(capture), 0u);
    // The other manager itself is unaffected.
    EXPECT_EQ(SavedText(*kept), "{ \"a\": 1 }");
}

TEST_F(JSONManagerLifecycleTest, DeleteThroughInterfaceLeavesCallbackSet) {
    MessageCapture capture;
    IJSONManager* manager = zeltCreateJSONManager(nullptr, 0);
    ASSERT_NE(manager, nullptr);
    delete manager;
    EXPECT_EQ(MessagesFromOneElementFailure(capture), 1u);
}

TEST_F(JSONManagerLifecycleTest, DestroyWithDocumentReleasesIt) {
    IJSONManager* manager = zeltCreateJSONManager(nullptr, 0);
    ASSERT_NE(manager, nullptr);
    ASSERT_EQ(ImportText(*manager, "{\"a\":{\"b\":[1,2,{\"c\":\"d\"}]}}"), ZELT_SUCCESS);
    zeltDestroyJSONManager(manager);  // the leak checker of the asan build verifies the release
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(JSONManagerLifecycleTest, DeleteThroughInterfaceReleasesDocument) {
    IJSONManager* manager = zeltCreateJSONManager(nullptr, 0);
    ASSERT_NE(manager, nullptr);
    ASSERT_EQ(manager->CreateNewDocument(), ZELT_SUCCESS);
    ASSERT_NE(manager->AddElement(nullptr, L"child", ZELT_ADD_OBJECT), nullptr);
    delete manager;
}

// ---- ClearDocument

TEST_F(JSONManagerLifecycleTest, ClearDocumentRemovesDocument) {
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    manager->ClearDocument();
    EXPECT_EQ(manager->GetRootElement(), nullptr);
    const SaveOutcome outcome = SaveToTemporaryFile(*manager);
    EXPECT_EQ(outcome.result, ZELT_NOTHING_TO_SAVE);
    EXPECT_EQ(CapturedLogs(), Records{kNoTextRecord});
}

TEST_F(JSONManagerLifecycleTest, ClearDocumentWithoutDocumentDoesNothing) {
    ExportDestroyedManagerPtr manager = NewManager();
    manager->ClearDocument();
    manager->ClearDocument();
    EXPECT_EQ(manager->GetRootElement(), nullptr);
    EXPECT_TRUE(CapturedLogs().empty());
}

// ---- CreateNewDocument

TEST_F(JSONManagerLifecycleTest, CreateNewDocumentSavesAsEmptyObject) {
    ExportDestroyedManagerPtr manager = NewManager();
    EXPECT_EQ(manager->CreateNewDocument(), ZELT_SUCCESS);
    EXPECT_NE(manager->GetRootElement(), nullptr);
    EXPECT_EQ(SavedText(*manager), "{ }");
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(JSONManagerLifecycleTest, CreateNewDocumentReplacesOldDocument) {
    ExportDestroyedManagerPtr manager = ManagerWithText("[1,2,3]");
    EXPECT_EQ(manager->CreateNewDocument(), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), "{ }");
    EXPECT_EQ(manager->GetElement(nullptr, L"old"), nullptr);
}

TEST_F(JSONManagerLifecycleTest, CreateNewDocumentTwiceStartsEmptyAgain) {
    ExportDestroyedManagerPtr manager = NewManager();
    ASSERT_EQ(manager->CreateNewDocument(), ZELT_SUCCESS);
    ASSERT_EQ(manager->SetDWORDAttribute(manager->GetRootElement(), L"a", 1), ZELT_SUCCESS);
    EXPECT_EQ(manager->CreateNewDocument(), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), "{ }");
}

TEST_F(JSONManagerLifecycleTest, GetRootElementWithoutDocumentIsNull) {
    ExportDestroyedManagerPtr manager = NewManager();
    EXPECT_EQ(manager->GetRootElement(), nullptr);
}

TEST_F(JSONManagerLifecycleTest, GetRootElementIsStableAcrossCalls) {
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    JSONNode* root = manager->GetRootElement();
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(manager->GetRootElement(), root);
    EXPECT_EQ(manager->GetElement(nullptr, L"old"), manager->GetElement(root, L"old"));
}

// ---- ImportFromJSONString

TEST_F(JSONManagerLifecycleTest, ImportStringNullTextKeepsDocument) {
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->ImportFromJSONString(nullptr, 2), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(SavedText(*manager), kOldSaved);
}

TEST_F(JSONManagerLifecycleTest, ImportStringZeroLengthKeepsDocument) {
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->ImportFromJSONString("{}", 0), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(SavedText(*manager), kOldSaved);
}

TEST_F(JSONManagerLifecycleTest, ImportStringLengthOneLessKeepsDocument) {
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->ImportFromJSONString("{\"new\":2}", 8), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(SavedText(*manager), kOldSaved);
}

TEST_F(JSONManagerLifecycleTest, ImportStringLengthOneMoreKeepsDocument) {
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->ImportFromJSONString("{\"new\":2}", 10), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(SavedText(*manager), kOldSaved);
}

TEST_F(JSONManagerLifecycleTest, ImportStringNegativeLengthKeepsDocument) {
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->ImportFromJSONString("{}", -1), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager->ImportFromJSONString("{}", INT_MIN), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(SavedText(*manager), kOldSaved);
}

TEST_F(JSONManagerLifecycleTest, ImportStringWithEmbeddedZeroByteKeepsDocument) {
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    const std::string text("{\"a\":1}\0{}", 10);
    EXPECT_EQ(manager->ImportFromJSONString(text.data(), 10), ZELT_BAD_ARGUMENT);
    const std::string inString("{\"a\":\"x\0y\"}", 11);
    EXPECT_EQ(manager->ImportFromJSONString(inString.data(), 11), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(SavedText(*manager), kOldSaved);
}

TEST_F(JSONManagerLifecycleTest, ImportStringOfJsonNullLeavesNoDocument) {
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->ImportFromJSONString("null", 4), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager->GetRootElement(), nullptr);
}

TEST_F(JSONManagerLifecycleTest, ImportStringThatDoesNotParseLeavesNoDocument) {
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(ImportText(*manager, "[1,2,"), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager->GetRootElement(), nullptr);
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(JSONManagerLifecycleTest, ImportStringReplacesDocument) {
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(ImportText(*manager, "{\"new\":2}"), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), "{ \"new\": 2 }");
    EXPECT_EQ(manager->GetElement(nullptr, L"old"), nullptr);
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(JSONManagerLifecycleTest, ImportStringAcceptsAnyKindOfRoot) {
    ExportDestroyedManagerPtr manager = NewManager();
    EXPECT_EQ(ImportText(*manager, "[]"), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), "[ ]");
    EXPECT_EQ(ImportText(*manager, "5"), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), "5");
    EXPECT_EQ(ImportText(*manager, "true"), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), "true");
    EXPECT_EQ(ImportText(*manager, "\"abc\""), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), "abc");
}

TEST_F(JSONManagerLifecycleTest, ImportStringAcceptsTheParsersLeniencies) {
    ExportDestroyedManagerPtr manager = NewManager();
    EXPECT_EQ(ImportText(*manager, "/* note */ {\"a\":1} // end"), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), "{ \"a\": 1 }");
    EXPECT_EQ(ImportText(*manager, "{\"a\":2} trailing"), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), "{ \"a\": 2 }");
    EXPECT_EQ(ImportText(*manager, "{'a':3,}"), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), "{ \"a\": 3 }");
    EXPECT_EQ(ImportText(*manager, "[TRUE,NULL,1,]"), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), "[ true, null, 1 ]");
}

TEST_F(JSONManagerLifecycleTest, ImportStringDoesNotSkipByteOrderMark) {
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(ImportText(*manager, "\xEF\xBB\xBF{}"), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager->GetRootElement(), nullptr);
}

TEST_F(JSONManagerLifecycleTest, ImportStringDuplicateKeyKeepsLastValue) {
    ExportDestroyedManagerPtr manager = ManagerWithText("{\"a\":1,\"a\":2}");
    DWORD value = 0;
    EXPECT_EQ(manager->GetDWORDAttribute(nullptr, L"a", &value), ZELT_SUCCESS);
    EXPECT_EQ(value, 2u);
}

TEST_F(JSONManagerLifecycleTest, ImportStringNestedArraysUpToThirtyTwoLevels) {
    ExportDestroyedManagerPtr manager = NewManager();
    EXPECT_EQ(ImportText(*manager, NestedArrays(32, "")), ZELT_SUCCESS);
    EXPECT_EQ(ImportText(*manager, NestedArrays(31, "1")), ZELT_SUCCESS);
    EXPECT_EQ(ImportText(*manager, NestedArrays(31, "[]")), ZELT_SUCCESS);
}

TEST_F(JSONManagerLifecycleTest, ImportStringNestedArraysBeyondThirtyTwoLevelsFail) {
    ExportDestroyedManagerPtr manager = NewManager();
    EXPECT_EQ(ImportText(*manager, NestedArrays(33, "")), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager->GetRootElement(), nullptr);
    // An item inside the 32nd level would be the 33rd.
    EXPECT_EQ(ImportText(*manager, NestedArrays(32, "1")), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(ImportText(*manager, NestedArrays(32, "\"s\"")), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(ImportText(*manager, NestedArrays(31, "{\"a\":1}")), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager->GetRootElement(), nullptr);
}

TEST_F(JSONManagerLifecycleTest, ImportStringNestedObjectsUpToThirtyTwoLevels) {
    ExportDestroyedManagerPtr manager = NewManager();
    EXPECT_EQ(ImportText(*manager, NestedObjects(32, "")), ZELT_SUCCESS);
    EXPECT_EQ(ImportText(*manager, NestedObjects(31, "\"a\":1")), ZELT_SUCCESS);
}

TEST_F(JSONManagerLifecycleTest, ImportStringNestedObjectsBeyondThirtyTwoLevelsFail) {
    ExportDestroyedManagerPtr manager = NewManager();
    EXPECT_EQ(ImportText(*manager, NestedObjects(33, "")), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(ImportText(*manager, NestedObjects(32, "\"a\":1")), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager->GetRootElement(), nullptr);
}

// ---- ImportFromJSONFile

TEST_F(JSONManagerLifecycleTest, ImportFileNullPathLogsAndKeepsDocument) {
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->ImportFromJSONFile(nullptr), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(CapturedLogs(), Records{kNullPathRecord});
    ClearCapturedLogs();
    EXPECT_EQ(SavedText(*manager), kOldSaved);
}

TEST_F(JSONManagerLifecycleTest, ImportFileMissingLogsAndKeepsDocument) {
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    ExpectImportRefused(*manager, WidePath(dir_.File("missing.json")));
}

TEST_F(JSONManagerLifecycleTest, ImportFileInMissingFolderLogs) {
    ExportDestroyedManagerPtr manager = NewManager();
    EXPECT_EQ(manager->ImportFromJSONFile(WidePath(dir_.File("none/doc.json")).c_str()),
              ZELT_BAD_ARGUMENT);
    EXPECT_EQ(CapturedLogs(), Records{kOpenFailedRecord});
    EXPECT_EQ(manager->GetRootElement(), nullptr);
}

TEST_F(JSONManagerLifecycleTest, ImportFileRefusesDirectory) {
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    ExpectImportRefused(*manager, WidePath(dir_.Path()));
}

TEST_F(JSONManagerLifecycleTest, ImportFileRefusesFifoWithoutBlocking) {
#if defined(_WIN32)
    GTEST_SKIP() << "Windows file systems have no FIFOs";
#else
    const std::string path = dir_.File("pipe");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    ExpectImportRefused(*manager, WidePath(path));
#endif
}

TEST_F(JSONManagerLifecycleTest, ImportFileRefusesFileOpenForReading) {
    const std::string path = dir_.File("held.json");
    WriteFileBytes(path, "{\"new\":2}");
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    {
        HeldFile holder(path, HeldFile::Access::kRead);
        ASSERT_TRUE(holder.IsOpen());
        ExpectImportRefused(*manager, WidePath(path));
    }
    // Once the other handle is closed the same file imports.
    EXPECT_EQ(manager->ImportFromJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), "{ \"new\": 2 }");
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(JSONManagerLifecycleTest, ImportFileRefusesFileOpenForWriting) {
    const std::string path = dir_.File("written.json");
    WriteFileBytes(path, "{\"new\":2}");
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    HeldFile holder(path, HeldFile::Access::kAppend);
    ASSERT_TRUE(holder.IsOpen());
    ExpectImportRefused(*manager, WidePath(path));
}

TEST_F(JSONManagerLifecycleTest, ImportFileRefusesFileOpenThroughStream) {
    const std::string path = dir_.File("stream.json");
    WriteFileBytes(path, "{\"new\":2}");
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    FILE* stream = std::fopen(path.c_str(), "rb");
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(manager->ImportFromJSONFile(WidePath(path).c_str()), ZELT_BAD_ARGUMENT);
    std::fclose(stream);
    EXPECT_EQ(CapturedLogs(), Records{kOpenFailedRecord});
}

TEST_F(JSONManagerLifecycleTest, ImportFileEmptyKeepsDocumentWithoutLog) {
    const std::string path = dir_.File("empty.json");
    WriteFileBytes(path, "");
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->ImportFromJSONFile(WidePath(path).c_str()), ZELT_BAD_ARGUMENT);
    EXPECT_TRUE(CapturedLogs().empty());
    EXPECT_EQ(SavedText(*manager), kOldSaved);
}

TEST_F(JSONManagerLifecycleTest, ImportFileShorterThanItsSizeKeepsDocumentWithoutLog) {
    // sysfs reports 4096 bytes for its attribute files but reads only their
    // few bytes of text: the read comes up short of the probed size.
    const std::string path = "/sys/kernel/uevent_seqnum";
    struct stat status {};
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
        GTEST_SKIP() << path << " does not exist";
    }
    if (ReadFileBytes(path).size() >= static_cast<std::size_t>(status.st_size)) {
        GTEST_SKIP() << path << " reads as long as its size";
    }
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->ImportFromJSONFile(WidePath(path).c_str()), ZELT_BAD_ARGUMENT);
    EXPECT_TRUE(CapturedLogs().empty());
    EXPECT_EQ(SavedText(*manager), kOldSaved);
}

TEST_F(JSONManagerLifecycleTest, ImportFileThatDoesNotParseLeavesNoDocument) {
    const std::string path = dir_.File("bad.json");
    WriteFileBytes(path, "{\"a\":");
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->ImportFromJSONFile(WidePath(path).c_str()), ZELT_FAILED);
    EXPECT_EQ(manager->GetRootElement(), nullptr);
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(JSONManagerLifecycleTest, ImportFileOfJsonNullLeavesNoDocument) {
    const std::string path = dir_.File("null.json");
    WriteFileBytes(path, "null");
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->ImportFromJSONFile(WidePath(path).c_str()), ZELT_FAILED);
    EXPECT_EQ(manager->GetRootElement(), nullptr);
}

TEST_F(JSONManagerLifecycleTest, ImportFileWithByteOrderMarkDoesNotParse) {
    const std::string path = dir_.File("bom.json");
    WriteFileBytes(path, "\xEF\xBB\xBF{}");
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->ImportFromJSONFile(WidePath(path).c_str()), ZELT_FAILED);
    EXPECT_EQ(manager->GetRootElement(), nullptr);
}

TEST_F(JSONManagerLifecycleTest, ImportFileReplacesDocument) {
    const std::string path = dir_.File("doc.json");
    WriteFileBytes(path, "{\"new\":2,\"list\":[1,\"x\"]}\n");
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->ImportFromJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), "{ \"new\": 2, \"list\": [ 1, \"x\" ] }");
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(JSONManagerLifecycleTest, ImportFileTwiceReleasesTheFileInBetween) {
    const std::string path = dir_.File("doc.json");
    WriteFileBytes(path, "[1]");
    ExportDestroyedManagerPtr manager = NewManager();
    EXPECT_EQ(manager->ImportFromJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    EXPECT_EQ(manager->ImportFromJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    ExportDestroyedManagerPtr other = NewManager();
    EXPECT_EQ(other->ImportFromJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*other), "[ 1 ]");
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(JSONManagerLifecycleTest, ImportFileStopsAtFirstZeroByte) {
    const std::string path = dir_.File("zero.json");
    WriteFileBytes(path, std::string("{\"a\":1}\0{{{ not json", 20));
    ExportDestroyedManagerPtr manager = NewManager();
    EXPECT_EQ(manager->ImportFromJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), "{ \"a\": 1 }");
}

TEST_F(JSONManagerLifecycleTest, ImportFileReadsLargeFileWhole) {
    const std::size_t count = 200000;
    std::string text = "[";
    for (std::size_t i = 0; i < count; ++i) text += (i == 0) ? "7" : ",7";
    text += "]";
    const std::string path = dir_.File("large.json");
    WriteFileBytes(path, text);
    ExportDestroyedManagerPtr manager = NewManager();
    ASSERT_EQ(manager->ImportFromJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    EXPECT_EQ(manager->GetArrayCount(manager->GetRootElement(), nullptr), static_cast<int>(count));
}

TEST_F(JSONManagerLifecycleTest, ImportFileNestingLimitMatchesStringImport) {
    const std::string fits = dir_.File("fits.json");
    const std::string tooDeep = dir_.File("deep.json");
    WriteFileBytes(fits, NestedObjects(31, "\"a\":[]"));
    WriteFileBytes(tooDeep, NestedArrays(32, "0"));
    ExportDestroyedManagerPtr manager = NewManager();
    EXPECT_EQ(manager->ImportFromJSONFile(WidePath(fits).c_str()), ZELT_SUCCESS);
    EXPECT_EQ(manager->ImportFromJSONFile(WidePath(tooDeep).c_str()), ZELT_FAILED);
    EXPECT_EQ(manager->GetRootElement(), nullptr);
}

TEST_F(JSONManagerLifecycleTest, ImportFileWithNonAsciiPath) {
    const std::string narrowPath = dir_.File("\xC3\xA9t\xC3\xA9-\xF0\x9F\x98\x80.json");
    const std::wstring widePath = WidePath(dir_.Path()) + L"/\u00E9t\u00E9-\U0001F600.json";
    WriteFileBytes(narrowPath, "{\"k\":\"v\"}");
    ExportDestroyedManagerPtr manager = NewManager();
    EXPECT_EQ(manager->ImportFromJSONFile(widePath.c_str()), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), "{ \"k\": \"v\" }");
}

TEST_F(JSONManagerLifecycleTest, ImportFileThroughSymbolicLinkReadsTheTarget) {
    const std::string target = dir_.File("target.json");
    const std::string link = dir_.File("link.json");
    WriteFileBytes(target, "{\"linked\":1}");
    if (!MakeSymbolicLink(target, link)) GTEST_SKIP() << "this process may not make symbolic links";
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->ImportFromJSONFile(WidePath(link).c_str()), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), "{ \"linked\": 1 }");
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(JSONManagerLifecycleTest, ImportFileRefusesSymbolicLinkToDirectory) {
    const std::string link = dir_.File("folder-link");
    if (!MakeSymbolicLink(dir_.Path(), link))
        GTEST_SKIP() << "this process may not make symbolic links";
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    ExpectImportRefused(*manager, WidePath(link));
}

TEST_F(JSONManagerLifecycleTest, ImportFileRefusesDanglingSymbolicLink) {
    const std::string link = dir_.File("dangling.json");
    if (!MakeSymbolicLink(dir_.File("gone.json"), link))
        GTEST_SKIP() << "this process may not make symbolic links";
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    ExpectImportRefused(*manager, WidePath(link));
}

TEST_F(JSONManagerLifecycleTest, ImportFileRefusesCharacterDevice) {
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
#if defined(_WIN32)
    // The Windows probe opens the null device, whose size is 0: refused
    // without a message.
    EXPECT_EQ(manager->ImportFromJSONFile(L"NUL"), ZELT_BAD_ARGUMENT);
    EXPECT_TRUE(CapturedLogs().empty());
#else
    EXPECT_EQ(manager->ImportFromJSONFile(L"/dev/null"), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(CapturedLogs(), Records{kOpenFailedRecord});
    ClearCapturedLogs();
#endif
    EXPECT_EQ(SavedText(*manager), kOldSaved);
}

TEST_F(JSONManagerLifecycleTest, ImportFileWithOverlongNameLogs) {
    // One path component longer than any file system allows.
    const std::string path = dir_.File(std::string(kNameMax + 1, 'n') + ".json");
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    ExpectImportRefused(*manager, WidePath(path));
}

TEST_F(JSONManagerLifecycleTest, ImportFileWithOverlongPathLogs) {
    std::string path = dir_.Path();
    while (path.size() <= kPathMax) path += "/" + std::string(200, 'd');
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    ExpectImportRefused(*manager, WidePath(path + "/doc.json"));
}

// A long path that the system accepts works like any other, both ways.
TEST_F(JSONManagerLifecycleTest, ImportAndSaveWithLongPath) {
    // Folders of the longest name while two more fit, then the longest file
    // name that still fits.
    std::string folder = dir_.Path();
    while (folder.size() + 2 * (kNameMax + 1) < kPathMax) {
        folder += "/" + std::string(kNameMax, 'd');
        ASSERT_TRUE(std::filesystem::create_directory(std::filesystem::u8path(folder)));
    }
    const std::size_t nameLength = std::min(kNameMax, kPathMax - folder.size() - 2);
    const std::string path = folder + "/" + std::string(nameLength - 5, 'f') + ".json";
    WriteFileBytes(path, "[\"long\"]");
    ExportDestroyedManagerPtr manager = NewManager();
    EXPECT_EQ(manager->ImportFromJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    EXPECT_EQ(manager->SaveToJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    EXPECT_EQ(ReadFileBytes(path), "[ \"long\" ]");
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(JSONManagerLifecycleTest, ImportFileWithInvalidCodePointInPathLogs) {
    if (kWideTextIsUtf16) GTEST_SKIP() << "Windows paths are UTF-16 and take a lone surrogate";
    // A lone surrogate converts to U+FFFD, a name that does not exist here.
    const std::wstring path = WidePath(dir_.Path()) + L"/\xD800.json";
    WriteFileBytes(dir_.File("\xED\xA0\x80.json"), "[1]");
    ExportDestroyedManagerPtr manager = NewManager();
    EXPECT_EQ(manager->ImportFromJSONFile(path.c_str()), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(CapturedLogs(), Records{kOpenFailedRecord});
}

// ---- SaveToJSONFile

TEST_F(JSONManagerLifecycleTest, SaveWithoutDocumentLogsAndLeavesEmptyFile) {
    const std::string path = dir_.File("out.json");
    WriteFileBytes(path, "previous content");
    ExportDestroyedManagerPtr manager = NewManager();
    EXPECT_EQ(manager->SaveToJSONFile(WidePath(path).c_str()), ZELT_NOTHING_TO_SAVE);
    EXPECT_EQ(CapturedLogs(), Records{kNoTextRecord});
    ASSERT_TRUE(FileExists(path));
    EXPECT_EQ(ReadFileBytes(path), "");
}

TEST_F(JSONManagerLifecycleTest, SaveWithoutDocumentCreatesTheFile) {
    const std::string path = dir_.File("new.json");
    ExportDestroyedManagerPtr manager = NewManager();
    EXPECT_EQ(manager->SaveToJSONFile(WidePath(path).c_str()), ZELT_NOTHING_TO_SAVE);
    ASSERT_TRUE(FileExists(path));
    EXPECT_EQ(ReadFileBytes(path), "");
}

TEST_F(JSONManagerLifecycleTest, SaveNullPathFailsWithoutLog) {
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->SaveToJSONFile(nullptr), ZELT_BAD_ARGUMENT);
    EXPECT_TRUE(CapturedLogs().empty());
    EXPECT_EQ(SavedText(*manager), kOldSaved);
}

TEST_F(JSONManagerLifecycleTest, SaveNullPathWithoutDocumentFailsOnTheOpen) {
    ExportDestroyedManagerPtr manager = NewManager();
    EXPECT_EQ(manager->SaveToJSONFile(nullptr), ZELT_BAD_ARGUMENT);
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(JSONManagerLifecycleTest, SaveInMissingFolderFailsWithoutLog) {
    const std::string path = dir_.File("none/out.json");
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->SaveToJSONFile(WidePath(path).c_str()), ZELT_BAD_ARGUMENT);
    EXPECT_FALSE(FileExists(path));
    ExportDestroyedManagerPtr empty = NewManager();
    EXPECT_EQ(empty->SaveToJSONFile(WidePath(path).c_str()), ZELT_BAD_ARGUMENT);
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(JSONManagerLifecycleTest, SaveOntoDirectoryFails) {
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->SaveToJSONFile(WidePath(dir_.Path()).c_str()), ZELT_BAD_ARGUMENT);
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(JSONManagerLifecycleTest, SaveToFullDeviceLogsShortWrite) {
    if (!FileExists("/dev/full")) GTEST_SKIP() << "/dev/full does not exist";
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->SaveToJSONFile(L"/dev/full"), ZELT_FAILED);
    EXPECT_EQ(CapturedLogs(), Records{kShortWriteRecord});
}

TEST_F(JSONManagerLifecycleTest, SaveTruncatesLongerFile) {
    const std::string path = dir_.File("out.json");
    WriteFileBytes(path, std::string(1000, 'x'));
    ExportDestroyedManagerPtr manager = NewManager();
    ASSERT_EQ(manager->CreateNewDocument(), ZELT_SUCCESS);
    EXPECT_EQ(manager->SaveToJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    EXPECT_EQ(ReadFileBytes(path), "{ }");
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(JSONManagerLifecycleTest, SaveLeavesDocumentUnchanged) {
    ExportDestroyedManagerPtr manager = ManagerWithText("{\"a\":[1,{\"b\":\"c\"}],\"d\":true}");
    JSONNode* root = manager->GetRootElement();
    const std::string first = SavedText(*manager);
    EXPECT_EQ(first, "{ \"a\": [ 1, { \"b\": \"c\" } ], \"d\": true }");
    EXPECT_EQ(SavedText(*manager), first);
    EXPECT_EQ(manager->GetRootElement(), root);
    EXPECT_EQ(manager->SetDWORDAttribute(root, L"e", 5), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*manager), "{ \"a\": [ 1, { \"b\": \"c\" } ], \"d\": true, \"e\": 5 }");
}

TEST_F(JSONManagerLifecycleTest, SaveStringRootWritesBareCharacters) {
    ExportDestroyedManagerPtr manager = ManagerWithText("\"abc\"");
    EXPECT_EQ(SavedText(*manager), "abc");
}

TEST_F(JSONManagerLifecycleTest, SaveStringRootIsNotEscaped) {
    ExportDestroyedManagerPtr manager = ManagerWithText("\"a\\\"b/c\\n\\u00e9\"");
    EXPECT_EQ(SavedText(*manager), "a\"b/c\n\xC3\xA9");
}

TEST_F(JSONManagerLifecycleTest, SaveEmptyStringRootWritesNothing) {
    ExportDestroyedManagerPtr manager = ManagerWithText("\"\"");
    const SaveOutcome outcome = SaveToTemporaryFile(*manager);
    EXPECT_EQ(outcome.result, ZELT_SUCCESS);
    EXPECT_EQ(outcome.bytes, "");
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(JSONManagerLifecycleTest, SaveThenImportGivesTheSameText) {
    ExportDestroyedManagerPtr manager =
        ManagerWithText("{\"s\":\"a/b\\t\",\"n\":-3,\"l\":[[],{}],\"t\":false}");
    const std::string path = dir_.File("round.json");
    ASSERT_EQ(manager->SaveToJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    ExportDestroyedManagerPtr again = NewManager();
    ASSERT_EQ(again->ImportFromJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    EXPECT_EQ(SavedText(*again), ReadFileBytes(path));
    EXPECT_EQ(ReadFileBytes(path),
              "{ \"s\": \"a\\/b\\t\", \"n\": -3, \"l\": [ [ ], { } ], \"t\": false }");
}

TEST_F(JSONManagerLifecycleTest, SaveWithNonAsciiPath) {
    const std::string narrowPath = dir_.File("\xC3\xA9-\xF0\x9F\x98\x80.json");
    const std::wstring widePath = WidePath(dir_.Path()) + L"/\u00E9-\U0001F600.json";
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->SaveToJSONFile(widePath.c_str()), ZELT_SUCCESS);
    ASSERT_TRUE(FileExists(narrowPath));
    EXPECT_EQ(ReadFileBytes(narrowPath), kOldSaved);
}

TEST_F(JSONManagerLifecycleTest, SaveThroughSymbolicLinkWritesTheTarget) {
    const std::string target = dir_.File("target.json");
    const std::string link = dir_.File("link.json");
    WriteFileBytes(target, "previous content");
    if (!MakeSymbolicLink(target, link)) GTEST_SKIP() << "this process may not make symbolic links";
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->SaveToJSONFile(WidePath(link).c_str()), ZELT_SUCCESS);
    EXPECT_EQ(ReadFileBytes(target), kOldSaved);
    EXPECT_TRUE(CapturedLogs().empty());
}

TEST_F(JSONManagerLifecycleTest, SaveWithOverlongNameFailsWithoutLog) {
    const std::string path = dir_.File(std::string(kNameMax + 1, 'n') + ".json");
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->SaveToJSONFile(WidePath(path).c_str()), ZELT_BAD_ARGUMENT);
    EXPECT_TRUE(CapturedLogs().empty());
    EXPECT_EQ(SavedText(*manager), kOldSaved);
}

TEST_F(JSONManagerLifecycleTest, SaveWithOverlongPathFailsWithoutLog) {
    std::string path = dir_.Path();
    while (path.size() <= kPathMax) path += "/" + std::string(200, 'd');
    ExportDestroyedManagerPtr manager = ManagerWithOldDocument();
    EXPECT_EQ(manager->SaveToJSONFile(WidePath(path + "/out.json").c_str()), ZELT_BAD_ARGUMENT);
    EXPECT_TRUE(CapturedLogs().empty());
}

}  // namespace
