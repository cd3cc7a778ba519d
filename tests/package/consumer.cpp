// Uses the installed library through its public header only.
#include <zelt/zelt.h>

#include <cstdio>

int main() {
    char text[] = "{ \"Answer\": 42 }";
    IJSONManager* manager = zeltCreateJSONManager(text, sizeof text - 1);
    DWORD answer = 0;
    const int result = manager->GetDWORDAttribute(nullptr, L"Answer", &answer);
    zeltDestroyJSONManager(manager);
    if (result != ZELT_SUCCESS || answer != 42) {
        std::fprintf(stderr, "unexpected result %d, value %u\n", result,
                     static_cast<unsigned>(answer));
        return 1;
    }
    std::puts("installed zelt works");
    return 0;
}
