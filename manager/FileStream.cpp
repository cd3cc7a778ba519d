#include "manager/FileStream.h"

#if defined(_WIN32)

std::FILE* OpenFileStream(const wchar_t* path, const char* mode) {
    if (path == nullptr) return nullptr;
    std::FILE* stream = nullptr;
    if (_wfopen_s(&stream, path, mode[0] == 'r' ? L"rb" : L"wb") != 0) return nullptr;
    if (stream != nullptr) std::setvbuf(stream, nullptr, _IONBF, 0);
    return stream;
}

#else
#include "manager/TextConversion.h"

#include <string>

std::FILE* OpenFileStream(const wchar_t* path, const char* mode) {
    std::string utf8Path;
    if (!ConvertWideToUtf8(path, utf8Path)) return nullptr;
    std::FILE* stream = std::fopen(utf8Path.c_str(), mode);
    if (stream != nullptr) std::setvbuf(stream, nullptr, _IONBF, 0);
    return stream;
}
#endif
