#include "SystemError.h"
#include "TextEncoding.h"

#include <windows.h>

#include <cerrno>

namespace zeltcfg {

namespace {

// The error number whose words the C library uses for the same reason, or 0.
int MatchingErrorNumber(DWORD code) {
    switch (code) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
            return ENOENT;
        case ERROR_ACCESS_DENIED:
            return EACCES;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return ENOSPC;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
            return EEXIST;
        case ERROR_FILENAME_EXCED_RANGE:
            return ENAMETOOLONG;
        default:
            return 0;
    }
}

}  // namespace

std::string WindowsErrorText(unsigned long code) {
    if (const int number = MatchingErrorNumber(code)) return ErrorText(number);
    wchar_t* text = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, code, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    std::wstring words(text != nullptr ? text : L"", length);
    LocalFree(text);
    while (!words.empty() && (words.back() == L'\r' || words.back() == L'\n' ||
                              words.back() == L' ' || words.back() == L'.'))
        words.pop_back();
    if (words.empty())
        return "an error that Windows does not describe (code " + std::to_string(code) + ")";
    return ConvertWideToUtf8(words);
}

}  // namespace zeltcfg
