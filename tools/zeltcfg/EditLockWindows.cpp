#include "EditLock.h"

#include "Failure.h"
#include "SystemError.h"
#include "TextEncoding.h"

#include <windows.h>

namespace zeltcfg::edit_lock {

bool LockFilePath(const std::string& argument, MissingFile missing, std::string& path) {
    if (argument == kStandardInput) return false;
    path = argument + ".lock";
    // Replacing a file is not one step everywhere (not under Wine): while
    // another process replaces it, the file can be missing for a moment. Its
    // lock file is there all the while, and waiting for the lock waits for
    // the file.
    const DWORD attributes = GetFileAttributesW(WidePath(argument).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return (missing == MissingFile::Made && GetLastError() == ERROR_FILE_NOT_FOUND) ||
               GetFileAttributesW(WidePath(path).c_str()) != INVALID_FILE_ATTRIBUTES;
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

FileHandle OpenLockFile(const std::string& path, const std::string& name) {
    // Shared with everyone: only the lock on its first byte excludes.
    const HANDLE file = CreateFileW(WidePath(path).c_str(), GENERIC_READ | GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        throw Failure(kExitInputOutput, name + ": cannot open the lock file " + name +
                                            ".lock: " + WindowsErrorText(GetLastError()) +
                                            "; the folder must be writable; the file is "
                                            "unchanged");
    return file;
}

bool TryLock(FileHandle file, const std::string& name) {
    OVERLAPPED start{};
    if (LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &start) != 0)
        return true;
    const DWORD code = GetLastError();
    if (code == ERROR_LOCK_VIOLATION || code == ERROR_IO_PENDING) return false;
    throw Failure(kExitInputOutput, name + ": cannot lock " + name + ".lock: " +
                                        WindowsErrorText(code) + "; the file is unchanged");
}

void CloseLockFile(FileHandle file) {
    OVERLAPPED start{};
    UnlockFileEx(file, 0, 1, 0, &start);
    CloseHandle(file);
}

void PauseBeforeRetry() { Sleep(10); }

}  // namespace zeltcfg::edit_lock
