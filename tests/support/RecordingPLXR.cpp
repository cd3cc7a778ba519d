#include "support/RecordingPLXR.h"

#include <deque>
#include <string>

namespace {
struct StoredCall {
    std::wstring file;
    std::wstring function;
    int line;
    int level;
    std::wstring message;
};

// A deque keeps earlier entries in place, so the texts handed out stay valid
// while later calls are recorded.
std::deque<StoredCall>& StoredCalls() {
    static std::deque<StoredCall> calls;
    return calls;
}

std::wstring TextOrNullMark(const wchar_t* text) { return text ? text : L"(null)"; }
}  // namespace

void PLXR_PrintMessage(const wchar_t* file, const wchar_t* function, int line, int level,
                       const wchar_t* message) {
    StoredCalls().push_back(StoredCall{TextOrNullMark(file), TextOrNullMark(function), line, level,
                                       TextOrNullMark(message)});
}

int RecordedCallCount() { return static_cast<int>(StoredCalls().size()); }

RecordedCall RecordedCallAt(int index) {
    const StoredCall& call = StoredCalls().at(static_cast<std::size_t>(index));
    return RecordedCall{call.file.c_str(), call.function.c_str(), call.line, call.level,
                        call.message.c_str()};
}

void ClearRecordedCalls() { StoredCalls().clear(); }
