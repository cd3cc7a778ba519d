#include "support/TempFile.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

namespace fs = std::filesystem;

namespace {
// Test paths are UTF-8 on every platform.
fs::path PathOf(const std::string& utf8Path) { return fs::u8path(utf8Path); }
}  // namespace

TempDir::TempDir() {
    // A name no other test process has taken: create_directory fails on an
    // existing folder, so a clash only means another draw.
    std::random_device random;
    for (int attempt = 0; attempt < 100; ++attempt) {
        const fs::path candidate =
            fs::temp_directory_path() / ("zelt-test-" + std::to_string(random()));
        if (fs::create_directory(candidate)) {
            path_ = candidate.u8string();
            return;
        }
    }
    throw std::runtime_error("cannot create a temporary folder");
}

TempDir::~TempDir() {
    std::error_code ignored;
    fs::remove_all(PathOf(path_), ignored);
}

std::wstring WidePath(const std::string& path) { return std::wstring(path.begin(), path.end()); }

void WriteFileBytes(const std::string& path, const std::string& bytes) {
    std::ofstream out(PathOf(path), std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!out) throw std::runtime_error("cannot write " + path);
}

std::string ReadFileBytes(const std::string& path) {
    std::ifstream in(PathOf(path), std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + path);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

bool FileExists(const std::string& path) { return fs::exists(PathOf(path)); }
