#include "manager/FileStream.h"

std::FILE* OpenFileStream(const wchar_t* path, const char* mode) {
    if (path == nullptr) return nullptr;
    std::FILE* stream = nullptr;
    if (_wfopen_s(&stream, path, mode[0] == 'r' ? L"rb" : L"wb") != 0) return nullptr;
    if (stream != nullptr) std::setvbuf(stream, nullptr, _IONBF, 0);
    return stream;
}
