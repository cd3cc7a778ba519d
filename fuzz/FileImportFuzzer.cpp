// FileImportFuzzer.cpp: the file import against the string import. The input
// is written to a file as it is and imported from there; the string import
// gets the same bytes. The two relate by the library's rules:
// - an empty file is refused (-102) and the document held before stays;
// - the file's text ends at its first zero byte, while the string import
//   refuses a length that runs past a zero byte (-102, document kept);
// - a text that does not parse (an empty one included) is -101 from the
//   file and -102 from the string, and neither leaves a document;
// - otherwise both succeed with the same document, saved to the same bytes.
// Bytes that are not valid UTF-8 go to the parser unchanged by both.
#include <zelt/zelt.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "FuzzInput.h"

namespace {

void WriteFile(const std::string& path, const std::uint8_t* data, std::size_t size) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    FUZZ_CHECK(file != nullptr);
    // The replay gives an empty input as a null pointer, which fwrite must not get.
    FUZZ_CHECK(size == 0 || std::fwrite(data, 1, size, file) == size);
    FUZZ_CHECK(std::fclose(file) == 0);
}

// A manager that holds a document of its own, so that a failure shows
// whether it kept it.
ManagerPtr ManagerWithDocument() {
    ManagerPtr manager(zeltCreateJSONManager(nullptr, 0));
    FUZZ_CHECK(manager->CreateNewDocument() == ZELT_SUCCESS);
    return manager;
}

// The string import of all the bytes, zero bytes included.
void CheckWholeStringImport(const std::string& bytes, std::size_t textLength) {
    if (bytes.empty() || textLength == bytes.size()) return;
    ManagerPtr manager = ManagerWithDocument();
    JSONNode* const before = manager->GetRootElement();
    FUZZ_CHECK(manager->ImportFromJSONString(bytes.c_str(), static_cast<int>(bytes.size())) ==
               ZELT_BAD_ARGUMENT);
    FUZZ_CHECK(manager->GetRootElement() == before);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const std::size_t textLength = strnlen(bytes.c_str(), size);
    CheckWholeStringImport(bytes, textLength);

    const std::string path = FuzzFilePath("imported");
    WriteFile(path, data, size);
    ManagerPtr fromFile = ManagerWithDocument();
    JSONNode* const before = fromFile->GetRootElement();
    const int fileResult = fromFile->ImportFromJSONFile(WidePath(path).c_str());
    std::remove(path.c_str());
    if (size == 0) {
        FUZZ_CHECK(fileResult == ZELT_BAD_ARGUMENT);
        FUZZ_CHECK(fromFile->GetRootElement() == before);
        return 0;
    }

    const std::string text = bytes.substr(0, textLength);
    ManagerPtr fromString(zeltCreateJSONManager(nullptr, 0));
    const int stringResult =
        fromString->ImportFromJSONString(text.c_str(), static_cast<int>(text.size()));
    if (stringResult != ZELT_SUCCESS) {
        FUZZ_CHECK(stringResult == ZELT_BAD_ARGUMENT);
        FUZZ_CHECK(fileResult == ZELT_FAILED);
        FUZZ_CHECK(fromFile->GetRootElement() == nullptr);
        return 0;
    }
    FUZZ_CHECK(fileResult == ZELT_SUCCESS);
    FUZZ_CHECK(SavedText(*fromFile) == SavedText(*fromString));
    return 0;
}
