// TextConversion.h: UTF-8 <-> wide text, with the meaning of the Windows
// conversions under flags 0: invalid input becomes U+FFFD, and a conversion
// fails only when its result does not fit the buffer. Wide text is UTF-16 on
// Windows (TextConversionWindows.cpp) and one code point per wchar_t on POSIX
// systems (TextConversionPosix.cpp).
#ifndef ZELT_MANAGER_TEXTCONVERSION_H
#define ZELT_MANAGER_TEXTCONVERSION_H

#include <cstddef>
#include <string>

// Converts text and its terminator into buffer. Returns the bytes written,
// terminator included, or 0 when they do not fit. A capacity of 0 only
// measures: it returns the bytes needed.
std::size_t ConvertWideToUtf8(const wchar_t* text, char* buffer, std::size_t capacity);

// Converts text and its terminator into buffer. Returns the wide units
// written, terminator included, or 0 when they do not fit. A capacity of 0
// only measures.
std::size_t ConvertUtf8ToWide(const char* text, wchar_t* buffer, std::size_t capacity);

// Converts the whole text, with no length limit. False when it fails.
inline bool ConvertWideToUtf8(const wchar_t* text, std::string& out) {
    if (text == nullptr) return false;
    const std::size_t needed = ConvertWideToUtf8(text, nullptr, 0);
    if (needed == 0) return false;
    out.resize(needed);
    if (ConvertWideToUtf8(text, out.data(), needed) != needed) return false;
    out.pop_back();  // the terminator is std::string's own
    return true;
}

#endif  // ZELT_MANAGER_TEXTCONVERSION_H
