#include "manager/TextConversion.h"

#include <windows.h>

#include <climits>

namespace {
constexpr UINT kUtf8CodePage = 65001;

int ClampToInt(std::size_t capacity) {
    return capacity > static_cast<std::size_t>(INT_MAX) ? INT_MAX : static_cast<int>(capacity);
}
}  // namespace

std::size_t ConvertWideToUtf8(const wchar_t* text, char* buffer, std::size_t capacity) {
    const int written = WideCharToMultiByte(kUtf8CodePage, 0, text, -1, capacity ? buffer : nullptr,
                                            ClampToInt(capacity), nullptr, nullptr);
    return written < 1 ? 0 : static_cast<std::size_t>(written);
}

std::size_t ConvertUtf8ToWide(const char* text, wchar_t* buffer, std::size_t capacity) {
    const int written = MultiByteToWideChar(kUtf8CodePage, 0, text, -1, capacity ? buffer : nullptr,
                                            ClampToInt(capacity));
    return written < 1 ? 0 : static_cast<std::size_t>(written);
}
