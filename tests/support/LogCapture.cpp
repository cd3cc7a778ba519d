#include "support/LogCapture.h"

#include "support/RecordingPLXR.h"

bool LogRecord::operator==(const LogRecord& other) const {
    return file == other.file && function == other.function && line == other.line &&
           level == other.level && message == other.message;
}

std::vector<LogRecord> CapturedLogs() {
    std::vector<LogRecord> records;
    for (int index = 0; index < RecordedCallCount(); ++index) {
        const RecordedCall call = RecordedCallAt(index);
        records.push_back(LogRecord{call.file, call.function, call.line, call.level, call.message});
    }
    return records;
}

void ClearCapturedLogs() { ClearRecordedCalls(); }
