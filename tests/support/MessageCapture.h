// MessageCapture.h: installs a debug dump callback for the lifetime of the
// object and records every message the elements send to it.
#ifndef ZELT_TESTS_MESSAGECAPTURE_H
#define ZELT_TESTS_MESSAGECAPTURE_H

#include <string>
#include <vector>

class MessageCapture {
public:
    MessageCapture();   // installs the recording callback, starts empty
    ~MessageCapture();  // uninstalls it
    MessageCapture(const MessageCapture&) = delete;
    MessageCapture& operator=(const MessageCapture&) = delete;

    const std::vector<std::wstring>& Messages() const;
    void Clear();
    // Installs the recording callback again (for example after a manager was
    // destroyed, which clears the callback).
    void Reinstall();
};

#endif  // ZELT_TESTS_MESSAGECAPTURE_H
