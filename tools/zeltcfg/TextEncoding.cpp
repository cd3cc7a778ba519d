#include "TextEncoding.h"

#include "Failure.h"

#include <cstdio>

namespace zeltcfg {

namespace {
// Length of the sequence a lead byte starts, 0 for a byte that cannot start
// one.
int SequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xc2 && lead <= 0xdf) return 2;
    if (lead >= 0xe0 && lead <= 0xef) return 3;
    if (lead >= 0xf0 && lead <= 0xf4) return 4;
    return 0;
}

// On Windows a wide string is UTF-16: a code point beyond U+FFFF takes a
// surrogate pair. Elsewhere each wide character holds one code point.
constexpr bool kWideIsUtf16 = sizeof(wchar_t) == 2;

bool IsLeadSurrogate(char32_t unit) { return unit >= 0xd800 && unit < 0xdc00; }
bool IsTrailSurrogate(char32_t unit) { return unit >= 0xdc00 && unit < 0xe000; }

void AppendWide(std::wstring& wide, char32_t point) {
    if (kWideIsUtf16 && point >= 0x10000) {
        wide += static_cast<wchar_t>(0xd800 + ((point - 0x10000) >> 10));
        wide += static_cast<wchar_t>(0xdc00 + ((point - 0x10000) & 0x3ff));
    } else {
        wide += static_cast<wchar_t>(point);
    }
}

}  // namespace

void AppendUtf8(std::string& out, char32_t point) {
    if (point < 0x80) {
        out += static_cast<char>(point);
    } else if (point < 0x800) {
        out += static_cast<char>(0xc0 | (point >> 6));
        out += static_cast<char>(0x80 | (point & 0x3f));
    } else if (point < 0x10000) {
        out += static_cast<char>(0xe0 | (point >> 12));
        out += static_cast<char>(0x80 | ((point >> 6) & 0x3f));
        out += static_cast<char>(0x80 | (point & 0x3f));
    } else {
        out += static_cast<char>(0xf0 | (point >> 18));
        out += static_cast<char>(0x80 | ((point >> 12) & 0x3f));
        out += static_cast<char>(0x80 | ((point >> 6) & 0x3f));
        out += static_cast<char>(0x80 | (point & 0x3f));
    }
}

bool ConvertUtf8ToWide(const std::string& utf8, std::wstring& wide) {
    wide.clear();
    for (std::size_t i = 0; i < utf8.size();) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        const int length = SequenceLength(lead);
        if (length == 0 || i + length > utf8.size()) return false;
        char32_t point = length == 1 ? lead : lead & (0x7f >> length);
        for (int k = 1; k < length; ++k) {
            const auto next = static_cast<unsigned char>(utf8[i + k]);
            if ((next & 0xc0) != 0x80) return false;
            point = (point << 6) | (next & 0x3f);
        }
        const char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
        if (point < smallest[length] || point > 0x10ffff || (point >= 0xd800 && point < 0xe000))
            return false;
        AppendWide(wide, point);
        i += length;
    }
    return true;
}

std::wstring WidePath(const std::string& path) {
    std::wstring wide;
    if (!ConvertUtf8ToWide(path, wide))
        throw Failure(kExitInputOutput,
                      path + ": the file name is not valid UTF-8; rename the file or copy it");
    return wide;
}

std::string ConvertWideToUtf8(const std::wstring& wide) {
    std::string out;
    out.reserve(wide.size());
    for (std::size_t i = 0; i < wide.size(); ++i) {
        auto point = static_cast<char32_t>(wide[i]);
        if (point < 0x80) {
            out += static_cast<char>(point);
            continue;
        }
        if (kWideIsUtf16 && IsLeadSurrogate(point) && i + 1 < wide.size() &&
            IsTrailSurrogate(static_cast<char32_t>(wide[i + 1])))
            point =
                0x10000 + ((point - 0xd800) << 10) + (static_cast<char32_t>(wide[++i]) - 0xdc00);
        if (point > 0x10ffff || (point >= 0xd800 && point < 0xe000)) point = 0xfffd;
        AppendUtf8(out, point);
    }
    return out;
}

std::string QuoteText(const std::string& utf8) {
    std::string out = "\"";
    for (const char c : utf8) {
        switch (c) {
            case '"':
                out += "\\\"";
                break;
            case '\\':
                out += "\\\\";
                break;
            case '\n':
                out += "\\n";
                break;
            case '\r':
                out += "\\r";
                break;
            case '\t':
                out += "\\t";
                break;
            default:
                if (static_cast<unsigned char>(c) < 0x20) {
                    char escape[8];
                    std::snprintf(escape, sizeof escape, "\\u%04x", c);
                    out += escape;
                } else {
                    out += c;
                }
        }
    }
    return out + "\"";
}

}  // namespace zeltcfg
