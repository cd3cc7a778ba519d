#include "manager/FileStream.h"

#include "manager/TextConversion.h"

#include <string>

std::FILE* OpenFileStream(const wchar_t* path, const char* mode) {
    std::string utf8Path;
    if (!ConvertWideToUtf8(path, utf8Path)) return nullptr;
    std::FILE* stream = std::fopen(utf8Path.c_str(), mode);
    if (stream != nullptr) std::setvbuf(stream, nullptr, _IONBF, 0);
    return stream;
}
