// ReplayMain.cpp: runs a fuzz target without libFuzzer over stored inputs,
// so that every input that ever failed is replayed by a normal test. Each
// argument is a file or a folder whose files (names starting with a dot
// excepted) are replayed in name order; a missing one fails the test.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void Replay(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    const std::vector<char> bytes((std::istreambuf_iterator<char>(in)),
                                  std::istreambuf_iterator<char>());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int argc, char** argv) {
    std::size_t replayed = 0;
    for (int i = 1; i < argc; ++i) {
        const std::filesystem::path argument(argv[i]);
        std::vector<std::filesystem::path> files;
        if (std::filesystem::is_directory(argument)) {
            for (const auto& entry : std::filesystem::directory_iterator(argument)) {
                if (entry.is_regular_file() && entry.path().filename().string()[0] != '.')
                    files.push_back(entry.path());
            }
            std::sort(files.begin(), files.end());
        } else if (std::filesystem::is_regular_file(argument)) {
            files.push_back(argument);
        } else {
            std::fprintf(stderr, "no such file or folder: %s\n", argv[i]);
            return 1;
        }
        for (const auto& file : files) {
            Replay(file);
            ++replayed;
        }
    }
    std::printf("%zu inputs replayed\n", replayed);
    return 0;
}
