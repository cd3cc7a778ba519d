// edit_config: imports a configuration document, changes its profile name,
// saves it and prints the saved text.
//
//   zelt-example <input.json> <output.json> [profile name]
#include <zelt/zelt.h>

#include <cstdio>
#include <string>

namespace {
std::wstring Widen(const char* text) {
    std::wstring wide;
    for (const char* p = text; *p != '\0'; ++p) wide += static_cast<wchar_t>(static_cast<unsigned char>(*p));
    return wide;
}
}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: %s <input.json> <output.json> [profile name]\n", argv[0]);
        return 2;
    }
    const std::wstring input = Widen(argv[1]), output = Widen(argv[2]);
    const std::wstring profile = argc > 3 ? Widen(argv[3]) : L"edited profile";

    IJSONManager* manager = zeltCreateJSONManager(nullptr, 0);
    int result = manager->ImportFromJSONFile(input.c_str());
    if (result == ZELT_SUCCESS)
        result = manager->SetStringAttribute(manager->GetRootElement(), L"ProfileName", profile.c_str());
    if (result == ZELT_SUCCESS) result = manager->SaveToJSONFile(output.c_str());
    zeltDestroyJSONManager(manager);
    if (result != ZELT_SUCCESS) {
        std::fprintf(stderr, "failed with result %d\n", result);
        return 1;
    }

    std::FILE* saved = std::fopen(argv[2], "rb");
    if (saved == nullptr) return 1;
    char chunk[4096];
    for (std::size_t n; (n = std::fread(chunk, 1, sizeof chunk, saved)) > 0;) std::fwrite(chunk, 1, n, stdout);
    std::fclose(saved);
    std::fputc('\n', stdout);
    return 0;
}
