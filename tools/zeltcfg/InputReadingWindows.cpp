#include "Failure.h"
#include "InputReading.h"
#include "SystemError.h"
#include "TextEncoding.h"

#include <windows.h>

namespace zeltcfg {

namespace {

// A handle closed when the reading ends, however it ends.
struct OpenFile {
    HANDLE handle;
    ~OpenFile() { CloseHandle(handle); }
};

Failure OpenFailure(const std::string& name, DWORD code) {
    if (code == ERROR_SHARING_VIOLATION || code == ERROR_LOCK_VIOLATION)
        return Failure(kExitInputOutput, name +
                                             ": cannot open the file: another program holds it "
                                             "open without sharing; close that program and try "
                                             "again");
    return Failure(kExitInputOutput,
                   name + ": cannot open the file: " + WindowsErrorText(code) + "; check the path");
}

bool IsRegularFile(HANDLE handle) {
    BY_HANDLE_FILE_INFORMATION information{};
    return GetFileType(handle) == FILE_TYPE_DISK &&
           GetFileInformationByHandle(handle, &information) != 0 &&
           (information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

}  // namespace

std::string ReadAll(FileHandle file, const std::string& name) {
    std::string text;
    char chunk[65536];
    for (;;) {
        DWORD count = 0;
        if (ReadFile(file, chunk, sizeof chunk, &count, nullptr) == 0) {
            const DWORD code = GetLastError();
            // The writer of a pipe closing it is the end of the input.
            if (code == ERROR_BROKEN_PIPE) return text;
            throw Failure(kExitInputOutput, name + ": cannot read: " + WindowsErrorText(code));
        }
        if (count == 0) return text;
        text.append(chunk, count);
    }
}

// Standard input is read through its handle, so its bytes arrive as they
// are, whatever mode the C library's stream is in.
std::string ReadInput(const std::string& argument, const std::string& name) {
    if (argument == kStandardInput) return ReadAll(GetStdHandle(STD_INPUT_HANDLE), name);
    // A folder opens too (backup semantics), so that it is refused as not a
    // regular file rather than as an access error.
    const HANDLE handle = CreateFileW(WidePath(argument).c_str(), GENERIC_READ,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE) throw OpenFailure(name, GetLastError());
    const OpenFile file{handle};
    if (!IsRegularFile(handle))
        throw Failure(kExitInputOutput,
                      name +
                          ": not a regular file; give a configuration file, or - to read "
                          "standard input");
    return ReadAll(handle, name);
}

}  // namespace zeltcfg
