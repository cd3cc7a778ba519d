// LogSinkFallbackTest.cpp: a host process without the logging sink. This
// program defines no PLXR_PrintMessage, so each of the manager's log calls must
// arrive on standard error as one line: "<file>: <function>(<line>) level
// <level>: <message>".
#include <zelt/zelt.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace {

struct ManagerDeleter {
    void operator()(IJSONManager* manager) const { zeltDestroyJSONManager(manager); }
};
using ManagerPtr = std::unique_ptr<IJSONManager, ManagerDeleter>;

// A private folder under the system's temporary folder, removed afterwards.
class ScratchFolder {
public:
    ScratchFolder() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "zelt-logsink-XXXXXX").string();
        if (mkdtemp(pattern.data()) != nullptr) path_ = pattern;
    }
    ~ScratchFolder() {
        std::error_code ignored;
        if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    bool Made() const { return !path_.empty(); }
    std::string File(const std::string& name) const { return path_ + "/" + name; }

private:
    std::string path_;
};

std::wstring Wide(const std::string& ascii) { return std::wstring(ascii.begin(), ascii.end()); }

class LogSinkFallbackTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder_.Made());
        manager_.reset(zeltCreateJSONManager(nullptr, 0));
        ASSERT_NE(manager_, nullptr);
    }

    ScratchFolder folder_;
    ManagerPtr manager_;
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
    const std::wstring path = Wide(folder_.File("missing.json"));
    testing::internal::CaptureStderr();
    const int result = manager_->ImportFromJSONFile(path.c_str());
    const std::string written = testing::internal::GetCapturedStderr();
    EXPECT_EQ(result, ZELT_BAD_ARGUMENT);
    EXPECT_EQ(written,
              "JSONManager: CJSONManager::ImportFromJSONFile(96) level 3: "
              "Failed to open file.\n");
}

TEST_F(LogSinkFallbackTest, SaveWithoutDocumentWritesOneLine) {
    const std::wstring path = Wide(folder_.File("out.json"));
    testing::internal::CaptureStderr();
    const int result = manager_->SaveToJSONFile(path.c_str());
    const std::string written = testing::internal::GetCapturedStderr();
    EXPECT_EQ(result, ZELT_NOTHING_TO_SAVE);
    EXPECT_EQ(written,
              "JSONManager: CJSONManager::SaveToJSONFile(179) level 3: "
              "Failed to convert object to a JSON string.\n");
}

TEST_F(LogSinkFallbackTest, ShortWriteWritesOneLine) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "/dev/full does not exist";
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
    const std::wstring path = Wide(folder_.File("out.json"));
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
    std::ofstream(file, std::ios::binary) << "{\"a\":[1,2]}";
    testing::internal::CaptureStderr();
    EXPECT_EQ(manager_->ImportFromJSONFile(Wide(file).c_str()), ZELT_SUCCESS);
    EXPECT_EQ(manager_->SaveToJSONFile(Wide(folder_.File("copy.json")).c_str()), ZELT_SUCCESS);
    EXPECT_EQ(manager_->ImportFromJSONString("[1,", 3), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager_->SaveToJSONFile(nullptr), ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager_->SaveToJSONFile(Wide(folder_.File("none/x.json")).c_str()),
              ZELT_BAD_ARGUMENT);
    EXPECT_EQ(manager_->GetElement(nullptr, L"missing"), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
