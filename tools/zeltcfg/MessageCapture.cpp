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

DebugDumpCapture::DebugDumpCapture() { SetZeltDebugDumpCallBack(&ReceiveMessage); }

DebugDumpCapture::~DebugDumpCapture() { SetZeltDebugDumpCallBack(nullptr); }

}  // namespace zeltcfg
