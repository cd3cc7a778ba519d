// LogSink.h: the agent's logging sink, which receives the manager's file
// operation failures.
#ifndef ZELT_MANAGER_LOGSINK_H
#define ZELT_MANAGER_LOGSINK_H

// Every record names this file and this level.
inline constexpr const wchar_t* kLogFile = L"JSONManager";
inline constexpr int kLogLevel = 3;

// Sends one record with file "JSONManager" and level 3. On Windows it goes to
// PLXR_PrintMessage, imported from the agent's PLXR.dll. On Linux it goes to
// PLXR_PrintMessage when the host process defines it, and otherwise to
// standard error as one line: "JSONManager: <function>(<line>) level 3: <text>".
void LogManagerFailure(const wchar_t* function, int line, const wchar_t* message);

#endif  // ZELT_MANAGER_LOGSINK_H
