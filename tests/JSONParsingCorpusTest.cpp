// JSONParsingCorpusTest.cpp: both imports and saving over a public corpus of
// JSON texts: valid (y_), invalid (n_) and implementation-defined (i_) texts
// of test_parsing, and the texts of test_transform. Every file is imported
// from a private copy and from memory; the outcome of each (accepted or
// refused, with its code) and the saved text of an accepted one are checked
// against the table in JSONParsingCorpusOutcomes.txt, so that any change of
// behaviour shows. A saved object or array must also import again and save
// to the same text.
//
// The table is one line per file: folder/name, the code of the string
// import, the code of the file import, and the saved text, separated by tabs.
// In the saved text a backslash, tab, line feed and every byte below 0x20 or
// from 0x7f up are written as \xHH. Setting ZELT_WRITE_CORPUS_TABLE to a
// path makes the table test write the table of the current behaviour there.
#include <zelt/zelt.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "support/LogCapture.h"
#include "support/ManagerTesting.h"
#include "support/TempFile.h"

namespace {

const char kCorpusDir[] = ZELT_TEST_DATA_DIR "/JSONTestSuite";
const char kTablePath[] = ZELT_SOURCE_DIR "/tests/JSONParsingCorpusOutcomes.txt";
const char* const kFolders[] = {"test_parsing", "test_transform"};

// In CI the corpus must be there; elsewhere its absence skips the suite.
bool CorpusRequired() {
    const char* ci = std::getenv("CI");
    return ci != nullptr && std::string(ci) == "true";
}

// folder/name of every .json file of the corpus, sorted.
std::vector<std::string> CorpusFiles() {
    std::vector<std::string> names;
    for (const char* folder : kFolders) {
        std::error_code error;
        const std::string dir = std::string(kCorpusDir) + "/" + folder;
        for (const auto& entry : std::filesystem::directory_iterator(dir, error)) {
            if (entry.is_regular_file() && entry.path().extension() == ".json") {
                names.push_back(std::string(folder) + "/" + entry.path().filename().string());
            }
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

struct Outcome {
    int stringResult = 0;
    int fileResult = 0;
    std::string saved;  // empty when neither import accepts the text
    bool operator==(const Outcome& other) const {
        return stringResult == other.stringResult && fileResult == other.fileResult &&
               saved == other.saved;
    }
};

void PrintTo(const Outcome& outcome, std::ostream* out) {
    *out << "{string " << outcome.stringResult << ", file " << outcome.fileResult << ", saved \""
         << outcome.saved << "\"}";
}

std::string EscapeSaved(const std::string& bytes) {
    std::string escaped;
    for (unsigned char c : bytes) {
        if (c < 0x20 || c >= 0x7f || c == '\\') {
            char hex[5];
            std::snprintf(hex, sizeof hex, "\\x%02x", c);
            escaped += hex;
        } else {
            escaped += static_cast<char>(c);
        }
    }
    return escaped;
}

std::string UnescapeSaved(const std::string& text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 3 < text.size()) {
            bytes += static_cast<char>(std::stoi(text.substr(i + 2, 2), nullptr, 16));
            i += 3;
        } else {
            bytes += text[i];
        }
    }
    return bytes;
}

std::map<std::string, Outcome> ReadTable() {
    std::map<std::string, Outcome> table;
    std::ifstream in(kTablePath, std::ios::binary);
    std::string line;
    while (std::getline(in, line)) {
        std::istringstream fields(line);
        std::string name, stringResult, fileResult, saved;
        std::getline(fields, name, '\t');
        std::getline(fields, stringResult, '\t');
        std::getline(fields, fileResult, '\t');
        std::getline(fields, saved);
        table[name] = Outcome{std::stoi(stringResult), std::stoi(fileResult), UnescapeSaved(saved)};
    }
    return table;
}

const std::map<std::string, Outcome>& Table() {
    static const std::map<std::string, Outcome> table = ReadTable();
    return table;
}

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

// Imports the file both ways and saves what was accepted. The file import
// reads a private copy, since the import refuses a file that another process
// holds open.
Outcome ImportBothWays(const std::string& bytes) {
    Outcome outcome;
    ExportDestroyedManagerPtr fromText = NewManager();
    outcome.stringResult = ImportText(*fromText, bytes);
    EXPECT_EQ(fromText->GetRootElement() != nullptr, outcome.stringResult == ZELT_SUCCESS);

    TempDir dir;
    const std::string copy = dir.File("copy.json");
    WriteFileBytes(copy, bytes);
    ExportDestroyedManagerPtr fromFile = NewManager();
    outcome.fileResult = fromFile->ImportFromJSONFile(WidePath(copy).c_str());
    EXPECT_EQ(fromFile->GetRootElement() != nullptr, outcome.fileResult == ZELT_SUCCESS);

    if (outcome.fileResult == ZELT_SUCCESS) outcome.saved = SavedText(*fromFile);
    if (outcome.stringResult == ZELT_SUCCESS) {
        const std::string savedFromText = SavedText(*fromText);
        // Both imports parse the same text the same way.
        if (outcome.fileResult == ZELT_SUCCESS) {
            EXPECT_EQ(savedFromText, outcome.saved);
        }
        outcome.saved = savedFromText;
    }
    return outcome;
}

// A GoogleTest name for a corpus file: its index, letters and digits.
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

TEST(JSONParsingCorpusTableTest, CorpusIsPresentAndEveryFileHasARow) {
    if (!std::filesystem::is_directory(kCorpusDir)) {
        if (CorpusRequired()) FAIL() << "no corpus at " << kCorpusDir;
        GTEST_SKIP() << "no corpus at " << kCorpusDir;
    }
    const std::vector<std::string> files = CorpusFiles();
    EXPECT_EQ(files.size(), 340u);
    std::vector<std::string> rows;
    for (const auto& row : Table()) rows.push_back(row.first);
    EXPECT_EQ(rows, files);
}

TEST(JSONParsingCorpusTableTest, WritesTableWhenAsked) {
    const char* target = std::getenv("ZELT_WRITE_CORPUS_TABLE");
    if (target == nullptr) GTEST_SKIP() << "ZELT_WRITE_CORPUS_TABLE is not set";
    std::ofstream out(target, std::ios::binary | std::ios::trunc);
    for (const std::string& name : CorpusFiles()) {
        const Outcome outcome = ImportBothWays(ReadFileBytes(std::string(kCorpusDir) + "/" + name));
        out << name << '\t' << outcome.stringResult << '\t' << outcome.fileResult << '\t'
            << EscapeSaved(outcome.saved) << '\n';
    }
    ASSERT_TRUE(out.good());
}

TEST_P(JSONParsingCorpusTest, OutcomeMatchesTable) {
    const std::string bytes = ReadFileBytes(Path());
    const Outcome outcome = ImportBothWays(bytes);
    // Only the four file failures log, and none of them applies here.
    EXPECT_TRUE(CapturedLogs().empty());

    const auto row = Table().find(GetParam());
    ASSERT_NE(row, Table().end()) << "no row for " << GetParam();
    EXPECT_EQ(outcome, row->second)
        << "table line: " << GetParam() << '\t' << outcome.stringResult << '\t'
        << outcome.fileResult << '\t' << EscapeSaved(outcome.saved);

    // The codes stay within the documented ones of each import.
    EXPECT_TRUE(outcome.stringResult == ZELT_SUCCESS || outcome.stringResult == ZELT_BAD_ARGUMENT);
    if (bytes.empty()) {
        EXPECT_EQ(outcome.fileResult, ZELT_BAD_ARGUMENT);
    } else {
        EXPECT_TRUE(outcome.fileResult == ZELT_SUCCESS || outcome.fileResult == ZELT_FAILED);
    }
    const bool accepted =
        outcome.stringResult == ZELT_SUCCESS || outcome.fileResult == ZELT_SUCCESS;
    if (GetParam().rfind("test_parsing/y_", 0) == 0 && StartsContainer(bytes) &&
        bytes.find('\0') == std::string::npos) {
        EXPECT_TRUE(accepted);
    }

    // A saved object or array imports again and saves to the same bytes.
    if (!accepted || !StartsContainer(bytes) || HoldsNonFiniteNumber(outcome.saved)) return;
    ExportDestroyedManagerPtr again = NewManager();
    ASSERT_EQ(ImportText(*again, outcome.saved), ZELT_SUCCESS) << outcome.saved;
    EXPECT_EQ(SavedText(*again), outcome.saved);
}

INSTANTIATE_TEST_SUITE_P(Corpus, JSONParsingCorpusTest, testing::ValuesIn(CorpusFiles()),
                         TestNameFor);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(JSONParsingCorpusTest);

}  // namespace
