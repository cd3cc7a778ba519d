// edit_config: imports a configuration document, reads it into the typed
// configuration tree, changes its profile name, writes and saves it, and
// prints the saved text.
//
//   zelt-example <input.json> <output.json> [profile name]
#include <zelt/zelt.h>

#include <cstdio>
#include <string>

namespace {
void PrintMessage(const wchar_t* message) { std::fprintf(stderr, "%ls\n", message); }

std::wstring Widen(const char* text) {
    std::wstring wide;
    for (const char* p = text; *p != '\0'; ++p)
        wide += static_cast<wchar_t>(static_cast<unsigned char>(*p));
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

    // Read the whole configuration into its typed tree, change the profile
    // name, write the tree back into the manager and save it.
    SetZeltDebugDumpCallBack(&PrintMessage);
    IJSONManager* manager = zeltCreateJSONManager(nullptr, 0);
    VextorJSConfig::IVextorJSConfig* config = VextorJSConfig::VextorJSConfig_CreateNewInstance();
    int result = manager->ImportFromJSONFile(input.c_str());
    if (result == ZELT_SUCCESS)
        result = config->ReadFromJSONMgr(manager, manager->GetRootElement());
    if (result == ZELT_SUCCESS) result = config->SetProfileName(&profile);
    if (result == ZELT_SUCCESS) result = config->WriteToJSONMgr(manager, nullptr, 1);
    if (result == ZELT_SUCCESS) result = manager->SaveToJSONFile(output.c_str());
    delete config;
    zeltDestroyJSONManager(manager);
    if (result != ZELT_SUCCESS) {
        std::fprintf(stderr, "failed with result %d\n", result);
        return 1;
    }

    std::FILE* saved = std::fopen(argv[2], "rb");
    if (saved == nullptr) return 1;
    char chunk[4096];
    for (std::size_t n; (n = std::fread(chunk, 1, sizeof chunk, saved)) > 0;)
        std::fwrite(chunk, 1, n, stdout);
    std::fclose(saved);
    std::fputc('\n', stdout);
    return 0;
}
