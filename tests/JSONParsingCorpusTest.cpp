// JSONParsingCorpusTest.cpp: robustness of both imports and of saving over a
// public corpus of valid (y_), invalid (n_) and implementation-defined (i_)
// JSON texts. Every file is imported from the file and, when it holds no zero
// byte, from memory; whatever imports must save, and a saved object or array
// must import again and save to the same text.
#include <zelt/zelt.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <string>
#include <vector>

#include "support/LogCapture.h"
#include "support/ManagerTesting.h"
#include "support/TempFile.h"

namespace {

const char kCorpusDir[] = ZELT_TEST_DATA_DIR "/JSONTestSuite/test_parsing";

std::vector<std::string> CorpusFiles() {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(kCorpusDir, error)) {
        if (entry.is_regular_file() && entry.path().extension() == ".json") {
            names.push_back(entry.path().filename().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

bool HasZeroByte(const std::string& bytes) { return bytes.find('\0') != std::string::npos; }

// Whether the text's first value starts an object or an array.
bool StartsContainer(const std::string& bytes) {
    const std::size_t first = bytes.find_first_not_of(" \t\r\n");
    return first != std::string::npos && (bytes[first] == '{' || bytes[first] == '[');
}

// Whether saved text holds a number the writer cannot write as JSON (an
// infinite or NaN double printed as inf or nan): outside strings, the only
// words the writer produces are true, false and null.
bool HoldsNonFiniteNumber(const std::string& saved) {
    bool inString = false;
    std::string word;
    for (std::size_t i = 0; i < saved.size(); ++i) {
        const char c = saved[i];
        if (inString) {
            if (c == '\\')
                ++i;
            else if (c == '"')
                inString = false;
            continue;
        }
        if (std::isalpha(static_cast<unsigned char>(c))) {
            word += c;
            continue;
        }
        if (!word.empty() && word != "true" && word != "false" && word != "null") return true;
        word.clear();
        if (c == '"') inString = true;
    }
    return !word.empty() && word != "true" && word != "false" && word != "null";
}

// A GoogleTest name for a corpus file: its letters and digits.
std::string TestNameFor(const testing::TestParamInfo<std::string>& info) {
    std::string name = std::to_string(info.index) + "_";
    for (char c : info.param.substr(0, info.param.size() - 5)) {
        name += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
    }
    return name;
}

class JSONParsingCorpusTest : public ::testing::TestWithParam<std::string> {
protected:
    void SetUp() override { ClearCapturedLogs(); }
    std::string Path() const { return std::string(kCorpusDir) + "/" + GetParam(); }
};

TEST(JSONParsingCorpusPresenceTest, CorpusIsPresent) {
    if (!std::filesystem::is_directory(kCorpusDir)) GTEST_SKIP() << "no corpus at " << kCorpusDir;
    EXPECT_GT(CorpusFiles().size(), 300u);
}

TEST_P(JSONParsingCorpusTest, ImportsAndSavesConsistently) {
    const std::string bytes = ReadFileBytes(Path());
    const char kind = GetParam()[0];

    ExportDestroyedManagerPtr fromFile = NewManager();
    const int fileResult = fromFile->ImportFromJSONFile(WidePath(Path()).c_str());
    EXPECT_TRUE(CapturedLogs().empty());
    if (bytes.empty()) {
        EXPECT_EQ(fileResult, ZELT_BAD_ARGUMENT);
    } else {
        EXPECT_TRUE(fileResult == ZELT_SUCCESS || fileResult == ZELT_FAILED) << fileResult;
    }
    EXPECT_EQ(fromFile->GetRootElement() != nullptr, fileResult == ZELT_SUCCESS);
    if (kind == 'y' && StartsContainer(bytes) && !HasZeroByte(bytes)) {
        EXPECT_EQ(fileResult, ZELT_SUCCESS);
    }

    if (!HasZeroByte(bytes)) {
        ExportDestroyedManagerPtr fromText = NewManager();
        const int textResult = ImportText(*fromText, bytes);
        EXPECT_TRUE(textResult == ZELT_SUCCESS || textResult == ZELT_BAD_ARGUMENT) << textResult;
        // Both imports parse the same text the same way.
        EXPECT_EQ(textResult == ZELT_SUCCESS, fileResult == ZELT_SUCCESS);
        if (textResult == ZELT_SUCCESS && fileResult == ZELT_SUCCESS) {
            EXPECT_EQ(SavedText(*fromText), SavedText(*fromFile));
        }
    }

    if (fileResult != ZELT_SUCCESS) return;
    const SaveOutcome saved = SaveToTemporaryFile(*fromFile);
    EXPECT_EQ(saved.result, ZELT_SUCCESS);
    EXPECT_TRUE(CapturedLogs().empty());
    // A text that starts with { or [ and imports has an object or array root.
    if (!StartsContainer(bytes) || HoldsNonFiniteNumber(saved.bytes)) return;
    ExportDestroyedManagerPtr again = NewManager();
    ASSERT_EQ(ImportText(*again, saved.bytes), ZELT_SUCCESS) << saved.bytes;
    EXPECT_EQ(SavedText(*again), saved.bytes);
}

INSTANTIATE_TEST_SUITE_P(Corpus, JSONParsingCorpusTest, testing::ValuesIn(CorpusFiles()),
                         TestNameFor);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(JSONParsingCorpusTest);

}  // namespace
