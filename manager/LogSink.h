// LogSink.h: the agent's logging sink, which receives the manager's file
// operation failures, and the records the manager sends it.
#ifndef ZELT_MANAGER_LOGSINK_H
#define ZELT_MANAGER_LOGSINK_H

// Contract: every record names this file and this level, and the four records
// below are sent with exactly these functions, line numbers and texts. The
// agent's logs are read by these values, so none of them may change; the line
// numbers are not those of any source file.
inline constexpr const wchar_t* kLogFile = L"JSONManager";
inline constexpr int kLogLevel = 3;

// One failure record as the sink receives it.
struct ManagerFailureRecord {
    const wchar_t* function;
    int line;
    const wchar_t* message;
};

inline constexpr ManagerFailureRecord kImportPathNull{L"CJSONManager::ImportFromJSONFile", 75,
                                                      L"File path is NULL."};
inline constexpr ManagerFailureRecord kImportOpenFailed{L"CJSONManager::ImportFromJSONFile", 96,
                                                        L"Failed to open file."};
inline constexpr ManagerFailureRecord kSaveWithoutText{
    L"CJSONManager::SaveToJSONFile", 179, L"Failed to convert object to a JSON string."};
inline constexpr ManagerFailureRecord kSaveShortWrite{
    L"CJSONManager::SaveToJSONFile", 174, L"Failed to write full string to export file."};

// Sends one record with file "JSONManager" and level 3. On Windows it goes to
// PLXR_PrintMessage, imported from the agent's PLXR.dll. On Linux it goes to
// PLXR_PrintMessage when the host process defines it, and otherwise to
// standard error as one line: "JSONManager: <function>(<line>) level 3: <text>".
void LogManagerFailure(const ManagerFailureRecord& record);

#endif  // ZELT_MANAGER_LOGSINK_H
