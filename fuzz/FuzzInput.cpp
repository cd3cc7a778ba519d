#include "FuzzInput.h"

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

// In memory where the system offers a folder for it: the targets write and
// read files thousands of times a second.
std::string FuzzFilePath(const char* name) {
    static const std::filesystem::path folder = [] {
        std::error_code error;
        return std::filesystem::is_directory("/dev/shm", error)
                   ? std::filesystem::path("/dev/shm")
                   : std::filesystem::temp_directory_path();
    }();
    return (folder / ("zelt-fuzz-" + std::to_string(getpid()) + "-" + name + ".json")).string();
}

std::wstring WidePath(const std::string& path) { return std::wstring(path.begin(), path.end()); }

std::string SavedText(IJSONManager& manager) {
    const std::string path = FuzzFilePath("saved");
    FUZZ_CHECK(manager.SaveToJSONFile(WidePath(path).c_str()) == ZELT_SUCCESS);
    std::ifstream in(path, std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::remove(path.c_str());
    return bytes;
}
