#include "manager/TextConversion.h"

// wchar_t holds one code point.

namespace {
constexpr char32_t kReplacement = 0xFFFD;

bool IsValidCodePoint(char32_t c) { return c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF); }

std::size_t Utf8Length(char32_t c) { return c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4; }

void EncodeUtf8(char32_t c, char* out) {
    const std::size_t length = Utf8Length(c);
    static const unsigned char kLead[] = {0, 0x00, 0xC0, 0xE0, 0xF0};
    for (std::size_t i = length - 1; i > 0; --i) {
        out[i] = static_cast<char>(0x80 | (c & 0x3F));
        c >>= 6;
    }
    out[0] = static_cast<char>(kLead[length] | c);
}

// Decodes one sequence at p (which is not the terminator) and moves past it.
// An invalid sequence gives one U+FFFD for its longest valid beginning, so
// the byte that broke it is read again as the start of the next sequence.
char32_t DecodeUtf8(const unsigned char*& p) {
    const unsigned char lead = *p++;
    if (lead < 0x80) return lead;
    int trailing;
    unsigned char low = 0x80, high = 0xBF;
    char32_t c;
    if (lead >= 0xC2 && lead <= 0xDF) {
        trailing = 1, c = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        trailing = 2, c = lead & 0x0F;
        if (lead == 0xE0) low = 0xA0;   // no overlong forms
        if (lead == 0xED) high = 0x9F;  // no surrogates
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        trailing = 3, c = lead & 0x07;
        if (lead == 0xF0) low = 0x90;
        if (lead == 0xF4) high = 0x8F;  // nothing above U+10FFFF
    } else {
        return kReplacement;
    }
    for (int i = 0; i < trailing; ++i) {
        if (*p < low || *p > high) return kReplacement;
        c = (c << 6) | (*p++ & 0x3F);
        low = 0x80, high = 0xBF;
    }
    return c;
}
}  // namespace

std::size_t ConvertWideToUtf8(const wchar_t* text, char* buffer, std::size_t capacity) {
    std::size_t used = 0;
    for (const wchar_t* p = text;; ++p) {
        char32_t c = static_cast<char32_t>(*p);
        if (!IsValidCodePoint(c)) c = kReplacement;
        const std::size_t length = Utf8Length(c);
        if (capacity != 0) {
            if (capacity - used < length) return 0;
            EncodeUtf8(c, buffer + used);
        }
        used += length;
        if (c == 0) return used;
    }
}

std::size_t ConvertUtf8ToWide(const char* text, wchar_t* buffer, std::size_t capacity) {
    std::size_t used = 0;
    for (auto p = reinterpret_cast<const unsigned char*>(text);;) {
        const bool end = *p == 0;
        const char32_t c = end ? 0 : DecodeUtf8(p);
        if (capacity != 0) {
            if (used == capacity) return 0;
            buffer[used] = static_cast<wchar_t>(c);
        }
        ++used;
        if (end) return used;
    }
}
