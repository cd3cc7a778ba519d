#include "FuzzInput.h"

#include <unistd.h>

#include <filesystem>

// In memory where the system offers a folder for it: saving runs thousands
// of times a second.
std::string FuzzSavePath() {
    static const std::string path = [] {
        std::error_code error;
        const std::filesystem::path folder = std::filesystem::is_directory("/dev/shm", error)
                                                 ? std::filesystem::path("/dev/shm")
                                                 : std::filesystem::temp_directory_path();
        return (folder / ("zelt-fuzz-" + std::to_string(getpid()) + ".json")).string();
    }();
    return path;
}
