#include "MessageCapture.h"

#include "TextEncoding.h"

#include <zelt/zelt.h>

namespace zeltcfg {

namespace {

void ReceiveMessage(const wchar_t* message) {
    LibraryMessages().push_back(ConvertWideToUtf8(message != nullptr ? message : L""));
}

}  // namespace

std::vector<std::string>& LibraryMessages() {
    static std::vector<std::string> messages;
    return messages;
}

void CaptureLogCall(const wchar_t* function, int line, int level, const wchar_t* message) {
    LibraryMessages().push_back(
        "JSONManager: " + ConvertWideToUtf8(function != nullptr ? function : L"") + "(" +
        std::to_string(line) + ") level " + std::to_string(level) + ": " +
        ConvertWideToUtf8(message != nullptr ? message : L""));
}

DebugDumpCapture::DebugDumpCapture() { SetZeltDebugDumpCallBack(&ReceiveMessage); }

DebugDumpCapture::~DebugDumpCapture() { SetZeltDebugDumpCallBack(nullptr); }

}  // namespace zeltcfg
