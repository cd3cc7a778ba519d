#include "manager/LogSink.h"

#include <cstdio>

// The host process may define the sink; a weak reference leaves it null
// otherwise, so the library loads without it.
extern "C" void PLXR_PrintMessage(const wchar_t* file, const wchar_t* function, int line, int level,
                                  const wchar_t* message) __attribute__((weak));

void LogManagerFailure(const ManagerFailureRecord& record) {
    if (PLXR_PrintMessage != nullptr) {
        PLXR_PrintMessage(kLogFile, record.function, record.line, kLogLevel, record.message);
        return;
    }
    std::fprintf(stderr, "%ls: %ls(%d) level %d: %ls\n", kLogFile, record.function, record.line,
                 kLogLevel, record.message);
}
