// The library's log sink. Because the program defines it, the library's log
// calls come here instead of standard error and are reported with the
// command's other messages.
#include "MessageCapture.h"
#include "TextEncoding.h"

#include <string>

extern "C" void PLXR_PrintMessage(const wchar_t* /*file*/, const wchar_t* function, int line,
                                  int level, const wchar_t* message) {
    using zeltcfg::ConvertWideToUtf8;
    zeltcfg::LibraryMessages().push_back(
        "JSONManager: " + ConvertWideToUtf8(function != nullptr ? function : L"") + "(" +
        std::to_string(line) + ") level " + std::to_string(level) + ": " +
        ConvertWideToUtf8(message != nullptr ? message : L""));
}
