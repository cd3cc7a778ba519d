// ManagerHelpers.h: conveniences shared by the manager suites: a manager that
// is destroyed with the test, importing a byte string, the bytes a save
// writes, the two-step string read, and readable printing of log records.
#ifndef ZELT_TESTS_MANAGERHELPERS_H
#define ZELT_TESTS_MANAGERHELPERS_H

#include <zelt/zelt.h>

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "support/LogCapture.h"
#include "support/TempFile.h"

struct ManagerDeleter {
    void operator()(IJSONManager* manager) const { zeltDestroyJSONManager(manager); }
};
using ManagerPtr = std::unique_ptr<IJSONManager, ManagerDeleter>;

// A manager without a document.
inline ManagerPtr NewManager() { return ManagerPtr(zeltCreateJSONManager(nullptr, 0)); }

// Imports text through the in-memory import, with its exact byte length.
inline int ImportText(IJSONManager& manager, const std::string& text) {
    return manager.ImportFromJSONString(text.c_str(), static_cast<int>(text.size()));
}

// A manager holding the document parsed from text; the test fails if the text
// does not import.
inline ManagerPtr ManagerWithText(const std::string& text) {
    ManagerPtr manager = NewManager();
    EXPECT_EQ(ImportText(*manager, text), ZELT_SUCCESS) << text;
    return manager;
}

struct SaveOutcome {
    int result;
    std::string bytes;  // the file's content after the save, empty if no file
};

inline SaveOutcome SaveToTemporaryFile(IJSONManager& manager) {
    TempDir dir;
    const std::string path = dir.File("saved.json");
    const int result = manager.SaveToJSONFile(WidePath(path).c_str());
    return SaveOutcome{result, FileExists(path) ? ReadFileBytes(path) : std::string()};
}

// The text a document is saved as; the test fails if the save does not succeed.
inline std::string SavedText(IJSONManager& manager) {
    const SaveOutcome outcome = SaveToTemporaryFile(manager);
    EXPECT_EQ(outcome.result, ZELT_SUCCESS);
    return outcome.bytes;
}

struct StringRead {
    int result;
    std::wstring text;  // filled only when result is ZELT_SUCCESS
};

// Reads a string with the caller-buffer protocol: a small buffer first, then
// one of the length the library asks for.
inline StringRead ReadString(IJSONManager& manager, JSONNode* node, const wchar_t* name) {
    std::vector<wchar_t> buffer(8, L'#');
    int length = static_cast<int>(buffer.size());
    int result = manager.GetStringAttribute(node, name, buffer.data(), &length);
    if (result == ZELT_BUFFER_TOO_SMALL) {
        buffer.assign(static_cast<std::size_t>(length), L'#');
        result = manager.GetStringAttribute(node, name, buffer.data(), &length);
    }
    if (result != ZELT_SUCCESS) return StringRead{result, std::wstring()};
    return StringRead{result, std::wstring(buffer.data())};
}

// Same protocol for an array item.
inline StringRead ReadArrayString(IJSONManager& manager, JSONNode* array, const wchar_t* name,
                                  int index) {
    std::vector<wchar_t> buffer(8, L'#');
    int length = static_cast<int>(buffer.size());
    int result = manager.GetArrayStringAttribute(array, name, index, buffer.data(), &length);
    if (result == ZELT_BUFFER_TOO_SMALL) {
        buffer.assign(static_cast<std::size_t>(length), L'#');
        result = manager.GetArrayStringAttribute(array, name, index, buffer.data(), &length);
    }
    if (result != ZELT_SUCCESS) return StringRead{result, std::wstring()};
    return StringRead{result, std::wstring(buffer.data())};
}

// A wide string of count copies of one code point.
inline std::wstring Repeated(wchar_t unit, std::size_t count) { return std::wstring(count, unit); }

// A narrow string of count copies of a UTF-8 sequence.
inline std::string RepeatedBytes(const std::string& sequence, std::size_t count) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i) result += sequence;
    return result;
}

// Log records print as readable text in failure messages (all test texts are
// ASCII).
inline std::string NarrowForPrinting(const std::wstring& text) {
    std::string result;
    for (wchar_t unit : text) result += (unit < 0x80) ? static_cast<char>(unit) : '?';
    return result;
}

inline void PrintTo(const LogRecord& record, std::ostream* out) {
    *out << "{" << NarrowForPrinting(record.file) << ", " << NarrowForPrinting(record.function)
         << ", " << record.line << ", " << record.level << ", " << NarrowForPrinting(record.message)
         << "}";
}

#endif  // ZELT_TESTS_MANAGERHELPERS_H
