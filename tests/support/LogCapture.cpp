#include "support/LogCapture.h"

#include <ostream>

bool LogRecord::operator==(const LogRecord& other) const {
    return file == other.file && function == other.function && line == other.line &&
           level == other.level && message == other.message;
}

std::vector<LogRecord>& CapturedLogs() {
    static std::vector<LogRecord> records;
    return records;
}

void ClearCapturedLogs() { CapturedLogs().clear(); }

// The test program is the host process: defining the sink here makes the
// library send its log calls to it instead of standard error.
extern "C" void PLXR_PrintMessage(const wchar_t* file, const wchar_t* function, int line, int level,
                                  const wchar_t* message) {
    CapturedLogs().push_back(LogRecord{file ? file : L"(null)", function ? function : L"(null)",
                                       line, level, message ? message : L"(null)"});
}
