// zelt.dll imports its log sink from PLXR.dll. The tool points that import
// at its own capture, so that the library's log calls are reported with the
// command's other messages, as on other systems where the program defines
// the sink itself.
#include "MessageCapture.h"

#include <windows.h>

#include <cstring>

namespace zeltcfg {

namespace {

void ReceiveLogCall(const wchar_t* /*file*/, const wchar_t* function, int line, int level,
                    const wchar_t* message) {
    CaptureLogCall(function, line, level, message);
}

// The import address slot through which module calls name from dll, or null.
ULONG_PTR* ImportSlot(HMODULE module, const char* dll, const char* name) {
    auto* base = reinterpret_cast<BYTE*>(module);
    const auto* dos = reinterpret_cast<IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& imports =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (imports.VirtualAddress == 0) return nullptr;
    for (auto* entry = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
         entry->Name != 0; ++entry) {
        if (_stricmp(reinterpret_cast<char*>(base + entry->Name), dll) != 0) continue;
        auto* names = reinterpret_cast<IMAGE_THUNK_DATA*>(base + (entry->OriginalFirstThunk != 0
                                                                      ? entry->OriginalFirstThunk
                                                                      : entry->FirstThunk));
        auto* slots = reinterpret_cast<IMAGE_THUNK_DATA*>(base + entry->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++slots) {
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
            const auto* byName =
                reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
            if (std::strcmp(reinterpret_cast<const char*>(byName->Name), name) == 0)
                return &slots->u1.Function;
        }
    }
    return nullptr;
}

}  // namespace

void HookLibraryLog() {
    const HMODULE library = GetModuleHandleW(L"zelt.dll");
    if (library == nullptr) return;
    ULONG_PTR* slot = ImportSlot(library, "PLXR.dll", "PLXR_PrintMessage");
    if (slot == nullptr) return;
    DWORD protection = 0;
    if (VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection) == 0) return;
    *slot = reinterpret_cast<ULONG_PTR>(&ReceiveLogCall);
    VirtualProtect(slot, sizeof *slot, protection, &protection);
}

}  // namespace zeltcfg
