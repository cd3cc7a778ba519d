// LogCapture.h: records the calls that the library makes to the logging sink,
// so that a test can assert file, function, line, level and text exactly.
// The calls are kept by the tests' own sink (support/RecordingPLXR.h), which
// is the PLXR.dll beside the test programs on Windows.
#ifndef ZELT_TESTS_LOGCAPTURE_H
#define ZELT_TESTS_LOGCAPTURE_H

#include <string>
#include <vector>

struct LogRecord {
    std::wstring file;
    std::wstring function;
    int line;
    int level;
    std::wstring message;
    bool operator==(const LogRecord& other) const;
};

// Every call received since the last ClearCapturedLogs, in order.
std::vector<LogRecord> CapturedLogs();
void ClearCapturedLogs();

#endif  // ZELT_TESTS_LOGCAPTURE_H
