#include "support/HeldFile.h"

#include <filesystem>

#if defined(_WIN32)
#include <windows.h>

HeldFile::HeldFile(const std::string& path, Access access) {
    const DWORD rights = access == Access::kRead ? GENERIC_READ : FILE_APPEND_DATA;
    const HANDLE file = CreateFileW(std::filesystem::u8path(path).c_str(), rights,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    handle_ = reinterpret_cast<std::intptr_t>(file);
}

HeldFile::~HeldFile() {
    if (IsOpen()) CloseHandle(reinterpret_cast<HANDLE>(handle_));
}

bool HeldFile::IsOpen() const { return reinterpret_cast<HANDLE>(handle_) != INVALID_HANDLE_VALUE; }

#else
#include <fcntl.h>
#include <unistd.h>

HeldFile::HeldFile(const std::string& path, Access access) {
    const int flags = access == Access::kRead ? O_RDONLY : O_WRONLY | O_APPEND;
    handle_ = open(path.c_str(), flags | O_CLOEXEC);
}

HeldFile::~HeldFile() {
    if (IsOpen()) close(static_cast<int>(handle_));
}

bool HeldFile::IsOpen() const { return handle_ >= 0; }
#endif
