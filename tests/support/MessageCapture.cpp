#include "support/MessageCapture.h"

#include <zelt/zelt.h>

namespace {
std::vector<std::wstring>& RecordedMessages() {
    static std::vector<std::wstring> messages;
    return messages;
}

void RecordMessage(const wchar_t* message) { RecordedMessages().push_back(message); }
}  // namespace

MessageCapture::MessageCapture() {
    RecordedMessages().clear();
    SetZeltDebugDumpCallBack(&RecordMessage);
}

MessageCapture::~MessageCapture() { SetZeltDebugDumpCallBack(nullptr); }

const std::vector<std::wstring>& MessageCapture::Messages() const { return RecordedMessages(); }

void MessageCapture::Clear() { RecordedMessages().clear(); }

void MessageCapture::Reinstall() { SetZeltDebugDumpCallBack(&RecordMessage); }
