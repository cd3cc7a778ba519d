#include "StandardStreams.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <algorithm>

namespace zeltcfg {

namespace {

// The console behind stream, or null when it goes to a file or a pipe.
HANDLE ConsoleOf(std::FILE* stream) {
    const HANDLE handle = GetStdHandle(stream == stdout ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
    DWORD mode = 0;
    return handle != INVALID_HANDLE_VALUE && GetConsoleMode(handle, &mode) != 0 ? handle : nullptr;
}

bool WriteConsoleText(HANDLE console, const std::string& bytes) {
    // Flags 0: a byte that is not UTF-8 shows as U+FFFD instead of failing.
    const int size = static_cast<int>(bytes.size());
    std::wstring text(static_cast<std::size_t>(size), L'\0');
    text.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_UTF8, 0, bytes.data(), size, text.data(), size)));
    for (std::size_t done = 0; done < text.size();) {
        DWORD written = 0;
        const DWORD chunk = static_cast<DWORD>(std::min<std::size_t>(text.size() - done, 8192));
        if (WriteConsoleW(console, text.data() + done, chunk, &written, nullptr) == 0 ||
            written == 0)
            return false;
        done += written;
    }
    return true;
}

}  // namespace

// Binary mode: the bytes written are the bytes that arrive, LF stays LF.
void PrepareStandardStreams() {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
}

bool WriteStream(std::FILE* stream, const std::string& bytes) {
    if (const HANDLE console = ConsoleOf(stream)) {
        std::fflush(stream);
        return WriteConsoleText(console, bytes);
    }
    return std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size() &&
           std::fflush(stream) == 0;
}

}  // namespace zeltcfg
