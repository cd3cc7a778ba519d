// MessageCapture.h: everything the library reports while a command runs, the
// elements' debug dump messages and the manager's log calls, in the order
// they came, so that a failure can be explained with them.
#ifndef ZELTCFG_MESSAGECAPTURE_H
#define ZELTCFG_MESSAGECAPTURE_H

#include <string>
#include <vector>

namespace zeltcfg {

// The messages captured since the last clear(); each is one UTF-8 line.
std::vector<std::string>& LibraryMessages();

// Captures one call of the library's log sink.
void CaptureLogCall(const wchar_t* function, int line, int level, const wchar_t* message);

// Sends the library's log calls to CaptureLogCall; called once at the entry.
void HookLibraryLog();

// Captures the elements' debug dump messages while it lives.
class DebugDumpCapture {
public:
    DebugDumpCapture();
    ~DebugDumpCapture();
    DebugDumpCapture(const DebugDumpCapture&) = delete;
    DebugDumpCapture& operator=(const DebugDumpCapture&) = delete;
};

}  // namespace zeltcfg

#endif  // ZELTCFG_MESSAGECAPTURE_H
