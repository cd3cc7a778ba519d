// Writes a generated configuration document to standard output.
// Usage: zelt-generate-config <entries per string list> [seed]
#include "ConfigurationGenerator.h"

#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv) {
    if (argc < 2 || argc > 3) {
        std::fprintf(stderr, "usage: %s <entries per string list> [seed]\n", argv[0]);
        return 2;
    }
    const std::size_t entries = std::strtoull(argv[1], nullptr, 10);
    const auto seed = argc == 3 ? static_cast<std::uint32_t>(std::strtoul(argv[2], nullptr, 10))
                                : zelt_bench::kDefaultSeed;
    const std::string text = zelt_bench::GenerateConfiguration(entries, seed);
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() ? 0 : 1;
}
