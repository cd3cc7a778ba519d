// ManagerTesting.h: owning a manager in a test, filling it from a text,
// saving it and reading its strings, plus the text helpers and the printing
// of log records that the suites share.
#ifndef ZELT_TESTS_MANAGERTESTING_H
#define ZELT_TESTS_MANAGERTESTING_H

#include <zelt/zelt.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "support/LogCapture.h"
#include "support/TempFile.h"

// ---- Owning a manager

// Deletes the manager through its virtual destructor, which leaves the
// process-wide debug dump callback alone. The element suites must own their
// managers this way: zeltDestroyJSONManager would also remove the callback,
// and they go on recording messages after a manager is gone.
using ManagerPtr = std::unique_ptr<IJSONManager>;

// Destroys the manager with zeltDestroyJSONManager, as a caller of the exports
// does; this also clears the debug dump callback. For the suites of the
// manager itself. A ManagerPtr converts to it, so the factories below serve
// both kinds of suite.
struct DestroyThroughExport {
    DestroyThroughExport() = default;
    DestroyThroughExport(std::default_delete<IJSONManager>) {}
    void operator()(IJSONManager* manager) const { zeltDestroyJSONManager(manager); }
};
using ExportDestroyedManagerPtr = std::unique_ptr<IJSONManager, DestroyThroughExport>;

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

// A manager with a new, empty document.
inline ManagerPtr ManagerWithEmptyDocument() {
    ManagerPtr manager = NewManager();
    EXPECT_EQ(manager->CreateNewDocument(), ZELT_SUCCESS);
    return manager;
}

// ---- Saving

struct SaveOutcome {
    int result;
    std::string bytes;  // the file's content after the save, empty if no file
};

// Saves the document to a file of a private temporary folder.
inline SaveOutcome SaveToTemporaryFile(IJSONManager& manager) {
    TempDir dir;
    const std::string path = dir.File("saved.json");
    const int result = manager.SaveToJSONFile(WidePath(path).c_str());
    return SaveOutcome{result, FileExists(path) ? ReadFileBytes(path) : std::string()};
}

// The bytes SaveToJSONFile writes for the document; the test fails if the
// save does not succeed.
inline std::string SavedText(IJSONManager& manager) {
    const SaveOutcome outcome = SaveToTemporaryFile(manager);
    EXPECT_EQ(outcome.result, ZELT_SUCCESS);
    return outcome.bytes;
}

// ---- Reading strings with the caller-buffer protocol

struct StringRead {
    int result;
    std::wstring text;  // filled only when result is ZELT_SUCCESS
};

// A small buffer first, then one of the length the library asks for.
// read(buffer, length) makes one call of the protocol.
template <class ReadCall>
StringRead ReadInTwoSteps(ReadCall read) {
    std::vector<wchar_t> buffer(8, L'#');
    int length = static_cast<int>(buffer.size());
    int result = read(buffer.data(), &length);
    if (result == ZELT_BUFFER_TOO_SMALL) {
        buffer.assign(static_cast<std::size_t>(length), L'#');
        result = read(buffer.data(), &length);
    }
    if (result != ZELT_SUCCESS) return StringRead{result, std::wstring()};
    return StringRead{result, std::wstring(buffer.data())};
}

inline StringRead ReadString(IJSONManager& manager, JSONNode* node, const wchar_t* name) {
    return ReadInTwoSteps([&](wchar_t* buffer, int* length) {
        return manager.GetStringAttribute(node, name, buffer, length);
    });
}

inline StringRead ReadArrayString(IJSONManager& manager, JSONNode* array, const wchar_t* name,
                                  int index) {
    return ReadInTwoSteps([&](wchar_t* buffer, int* length) {
        return manager.GetArrayStringAttribute(array, name, index, buffer, length);
    });
}

// ---- Texts

// Where wchar_t is a UTF-16 unit (Windows), a code point above U+FFFF takes
// two of them, a surrogate pair; elsewhere one wchar_t holds any code point.
inline constexpr bool kWideTextIsUtf16 = sizeof(wchar_t) == 2;

// The wide text of one code point.
inline std::wstring CodePoint(char32_t codePoint) {
    if (kWideTextIsUtf16 && codePoint > 0xFFFF) {
        const char32_t offset = codePoint - 0x10000;
        return {static_cast<wchar_t>(0xD800 + (offset >> 10)),
                static_cast<wchar_t>(0xDC00 + (offset & 0x3FF))};
    }
    return std::wstring(1, static_cast<wchar_t>(codePoint));
}

// A wide string of count copies of one unit, or of one text.
inline std::wstring Repeated(wchar_t unit, std::size_t count) { return std::wstring(count, unit); }
inline std::wstring Repeated(const std::wstring& text, std::size_t count) {
    std::wstring result;
    for (std::size_t i = 0; i < count; ++i) result += text;
    return result;
}

// A narrow string of count copies of a UTF-8 sequence.
inline std::string RepeatedBytes(const std::string& sequence, std::size_t count) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i) result += sequence;
    return result;
}

// A text of count letters, varied so that a cut or shifted copy shows.
inline std::wstring LongText(std::size_t count) {
    std::wstring text(count, L'a');
    for (std::size_t i = 0; i < count; ++i) text[i] = static_cast<wchar_t>(L'a' + i % 26);
    return text;
}

// An ASCII text as a narrow string, for building documents and for readable
// test names and failure messages; any other unit becomes '?'.
inline std::string Narrow(const std::wstring& text) {
    std::string result;
    for (wchar_t unit : text) result += (unit < 0x80) ? static_cast<char>(unit) : '?';
    return result;
}

// ---- Printing

// Log records print as readable text in failure messages.
inline void PrintTo(const LogRecord& record, std::ostream* out) {
    *out << "{" << Narrow(record.file) << ", " << Narrow(record.function) << ", " << record.line
         << ", " << record.level << ", " << Narrow(record.message) << "}";
}

#endif  // ZELT_TESTS_MANAGERTESTING_H
