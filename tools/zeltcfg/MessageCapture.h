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
