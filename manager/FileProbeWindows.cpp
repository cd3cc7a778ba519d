#include "manager/FileProbe.h"

#include <windows.h>

bool ProbeFileExclusive(const wchar_t* path, std::uint32_t& size) {
    // Share mode 0: a file that another handle holds open fails here.
    HANDLE file = CreateFileW(path, GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                              FILE_FLAG_OVERLAPPED | FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    size = GetFileSize(file, nullptr);
    CloseHandle(file);
    return true;
}
