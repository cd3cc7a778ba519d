// The library's log sink. Because the program defines it, the library's log
// calls come here instead of standard error and are reported with the
// command's other messages.
#include "MessageCapture.h"

extern "C" void PLXR_PrintMessage(const wchar_t* /*file*/, const wchar_t* function, int line,
                                  int level, const wchar_t* message) {
    zeltcfg::CaptureLogCall(function, line, level, message);
}

void zeltcfg::HookLibraryLog() {}
