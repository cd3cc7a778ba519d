#include "manager/FileProbe.h"

#include <windows.h>

static_assert(GENERIC_READ == 0x80000000 && OPEN_EXISTING == 3 &&
              (FILE_FLAG_OVERLAPPED | FILE_ATTRIBUTE_NORMAL) == 0x40000080);

bool ProbeFileExclusive(const wchar_t* path, std::uint32_t& size) {
    // Access 0x80000000 (generic read), share mode 0, creation disposition 3
    // (open existing), flags 0x40000080 (overlapped, normal attributes). With
    // share mode 0 a file that another handle holds open fails here.
    HANDLE file = CreateFileW(path, GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                              FILE_FLAG_OVERLAPPED | FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    size = GetFileSize(file, nullptr);
    CloseHandle(file);
    return true;
}
