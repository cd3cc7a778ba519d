#include "manager/LogSink.h"

// The agent's logging library; zelt.dll is linked against an import library
// made from PLXR.def, so PLXR.dll must sit beside it.
extern "C" __declspec(dllimport) void PLXR_PrintMessage(const wchar_t* file,
                                                        const wchar_t* function, int line,
                                                        int level, const wchar_t* message);

void LogManagerFailure(const ManagerFailureRecord& record) {
    PLXR_PrintMessage(kLogFile, record.function, record.line, kLogLevel, record.message);
}
