// LogSinkFallbackTest.cpp: a host process without the logging sink. This
// program defines no PLXR_PrintMessage, so each of the manager's log calls must
// arrive on standard error as one line: "<file>: <function>(<line>) level
// <level>: <message>". On Windows the sink is always PLXR.dll, so there is
// nothing to fall back from.
#include <zelt/zelt.h>

#include <gtest/gtest.h>

#include <string>

#include "support/ManagerTesting.h"
#include "support/TempFile.h"

namespace {

class LogSinkFallbackTest : public ::testing::Test {
protected:
    void SetUp() override {
#if defined(_WIN32)
        GTEST_SKIP() << "zelt.dll imports PLXR_PrintMessage from PLXR.dll: there is no fallback";
#endif
        manager_ = NewManager();
        ASSERT_NE(manager_, nullptr);
    }

    TempDir folder_;
    ExportDestroyedManagerPtr manager_;
};

TEST_F(LogSinkFallbackTest, NullPathImportWritesOneLine) {
    testing::internal::CaptureStderr();
    const int result = manager_->ImportFromJSONFile(nullptr);
    const std::string written = testing::internal::GetCapturedStderr();
    EXPECT_EQ(result, ZELT_BAD_ARGUMENT);
    EXPECT_EQ(written,
              "JSONManager: CJSONManager::ImportFromJSONFile(75) level 3: "
              "File path is NULL.\n");
}

TEST_F(LogSinkFallbackTest, MissingFileImportWritesOneLine) {
    const std::wstring path = WidePath(folder_.File("missing.json"));
    testing::internal::CaptureStderr();
    const int result = manager_->ImportFromJSONFile(path.c_str());
    const std::string written = testing::internal::GetCapturedStderr();
    EXPECT_EQ(result, ZELT_BAD_ARGUMENT);
    EXPECT_EQ(written,
              "JSONManager: CJSONManager::ImportFromJSONFile(96) level 3: "
              "Failed to open file.\n");
}

TEST_F(LogSinkFallbackTest, SaveWithoutDocumentWritesOneLine) {
    const std::wstring path = WidePath(folder_.File("out.json"));
    testing::internal::CaptureStderr();
    const int result = manager_->SaveToJSONFile(path.c_str());
    const std::string written = testing::internal::GetCapturedStderr();
    EXPECT_EQ(result, ZELT_NOTHING_TO_SAVE);
    EXPECT_EQ(written,
              "JSONManager: CJSONManager::SaveToJSONFile(179) level 3: "
              "Failed to convert object to a JSON string.\n");
}

TEST_F(LogSinkFallbackTest, ShortWriteWritesOneLine) {
    if (!FileExists("/dev/full")) GTEST_SKIP() << "/dev/full does not exist";
    ASSERT_EQ(manager_->CreateNewDocument(), ZELT_SUCCESS);
    testing::internal::CaptureStderr();
    const int result = manager_->SaveToJSONFile(L"/dev/full");
    const std::string written = testing::internal::GetCapturedStderr();
    EXPECT_EQ(result, ZELT_FAILED);
    EXPECT_EQ(written,
              "JSONManager: CJSONManager::SaveToJSONFile(174) level 3: "
              "Failed to write full string to export file.\n");
}

TEST_F(LogSinkFallbackTest, EachFailureWritesItsOwnLine) {
    const std::wstring path = WidePath(folder_.File("out.json"));
    testing::internal::CaptureStderr();
    manager_->ImportFromJSONFile(nullptr);
    manager_->SaveToJSONFile(path.c_str());
    manager_->ImportFromJSONFile(nullptr);
    const std::string written = testing::internal::GetCapturedStderr();
    EXPECT_EQ(written,
              "JSONManager: CJSONManager::ImportFromJSONFile(75) level 3: File path is NULL.\n"
              "JSONManager: CJSONManager::SaveToJSONFile(179) level 3: "
              "Failed to convert object to a JSON string.\n"
              "JSONManager: CJSONManager::ImportFromJSONFile(75) level 3: File path is NULL.\n");
}

TEST_F(LogSinkFallbackTest, SilentOperationsWriteNothing) {
    const std::string file = folder_.File("doc.json");
    WriteFileBytes(file, "{\"a\":[1,2]}");
    testing::internal::CaptureStderr();
    EXPECT_EQ(manager_->ImportFromJSONFile(WidePath(file).c_str()), ZELT_SUCCESS);
    EXPECT_EQ(manager_->SaveToJSONFile(WidePath(folder_.File("copy.json")).c_str()), ZELT_SUCCESS);
    EXPECT_EQ(manager_->ImportFromJSONString("[1,", 3), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager_->SaveToJSONFile(nullptr), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager_->SaveToJSONFile(WidePath(folder_.File("none/x.json")).c_str()),
              ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager_->GetElement(nullptr, L"missing"), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
