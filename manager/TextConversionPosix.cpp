#include "manager/TextConversion.h"

// wchar_t holds one code point.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <cwchar>

namespace {
constexpr char32_t kReplacement = 0xFFFD;

// Whether unit is a character from 1 to 0x7F: one byte in UTF-8 and one unit
// as wide text.
template <class Unit>
bool IsAscii(Unit unit) {
    return static_cast<std::uint32_t>(unit) - 1 < 0x7F;
}

// The number of ASCII characters at the start of text, at most count, all of
// which come before the terminator; they are copied to out unless it is
// null. Before the terminator no unit is zero, so eight units are ASCII when
// all their bits above the lowest seven are clear.
template <class From, class To>
std::size_t CopyAsciiPrefix(const From* text, std::size_t count, To* out) {
    constexpr std::size_t kBlock = 8;
    std::size_t done = 0;
    for (; count - done >= kBlock; done += kBlock) {
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < kBlock; ++i) bits |= static_cast<std::uint32_t>(text[done + i]);
        if (bits >= 0x80) break;
        if (out != nullptr)
            for (std::size_t i = 0; i < kBlock; ++i)
                out[done + i] = static_cast<To>(text[done + i]);
    }
    for (; done < count && IsAscii(text[done]); ++done)
        if (out != nullptr) out[done] = static_cast<To>(text[done]);
    return done;
}

// The ASCII run at p, copied to buffer + used when there is a capacity;
// terminator is the position of the text's terminator.
template <class From, class To>
std::size_t AsciiRun(const From* p, const From* terminator, To* buffer, std::size_t capacity,
                     std::size_t used) {
    const auto readable = static_cast<std::size_t>(terminator - p);
    if (capacity == 0) return CopyAsciiPrefix(p, readable, static_cast<To*>(nullptr));
    return CopyAsciiPrefix(p, std::min(readable, capacity - used), buffer + used);
}

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
    const wchar_t* const terminator = text + std::wcslen(text);
    std::size_t used = 0;
    for (const wchar_t* p = text;; ++p) {
        // A run of ASCII characters, the common case, is copied unit for byte.
        const std::size_t run = AsciiRun(p, terminator, buffer, capacity, used);
        p += run;
        used += run;
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
    const auto* const terminator = reinterpret_cast<const unsigned char*>(text + std::strlen(text));
    std::size_t used = 0;
    for (auto p = reinterpret_cast<const unsigned char*>(text);;) {
        // A run of ASCII bytes, the common case, is copied byte for unit.
        const std::size_t run = AsciiRun(p, terminator, buffer, capacity, used);
        p += run;
        used += run;
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
