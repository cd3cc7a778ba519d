// TextEncoding.h: conversions between the UTF-8 text of files, arguments and
// output, and the wide strings of the configuration library, and the quoting
// of strings for display.
#ifndef ZELTCFG_TEXTENCODING_H
#define ZELTCFG_TEXTENCODING_H

#include <string>

namespace zeltcfg {

// Decodes UTF-8 (on Windows to UTF-16); false for text that is not valid UTF-8 (wide is then
// unspecified).
bool ConvertUtf8ToWide(const std::string& utf8, std::wstring& wide);

// Encodes the wide string's code points: one per wide character, or on
// Windows a surrogate pair for one beyond U+FFFF; a value that is no code
// point (a lone surrogate, beyond U+10FFFF) becomes U+FFFD.
std::string ConvertWideToUtf8(const std::wstring& wide);

// A file name as the wide string that the library (and Windows) take;
// throws Failure for a name that is not valid UTF-8.
std::wstring WidePath(const std::string& path);

// Appends one code point as UTF-8.
void AppendUtf8(std::string& out, char32_t point);

// The text as a JSON string literal: quotes, backslash and control
// characters escaped, everything else as it is.
std::string QuoteText(const std::string& utf8);

}  // namespace zeltcfg

#endif  // ZELTCFG_TEXTENCODING_H
