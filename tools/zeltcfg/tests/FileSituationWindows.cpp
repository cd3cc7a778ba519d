// zeltcfg_file_situation: puts a file into a situation that only another
// Windows program can make, runs a command while it lasts, and exits with the
// command's exit code. The command's standard streams are this program's.
//
//   zeltcfg_file_situation hold FILE PROGRAM [ARGUMENT...]
//       FILE stays open, shared with nobody, while PROGRAM runs.
//   zeltcfg_file_situation hold-for-reading FILE PROGRAM [ARGUMENT...]
//       FILE stays open for reading, shared for reading and writing.
//   zeltcfg_file_situation read-only FILE PROGRAM [ARGUMENT...]
//       FILE gets the read-only attribute before PROGRAM runs.
//   zeltcfg_file_situation lock FILE PROGRAM [ARGUMENT...]
//       FILE (a lock file, made if missing) stays locked exclusively with
//       LockFileEx, as a changing zeltcfg locks it, while PROGRAM runs.
//   zeltcfg_file_situation console FILE PROGRAM [ARGUMENT...]
//       PROGRAM writes to this program's console; afterwards the lines it
//       wrote there are read back from the console's screen and saved to
//       FILE as UTF-8, each without its trailing blanks.
#include <windows.h>

#include <cstdio>
#include <string>

namespace {

// One argument quoted so that the C runtime's parser gives it back as it is:
// backslashes are doubled only where a quote follows them.
std::wstring QuoteArgument(const std::wstring& argument) {
    if (!argument.empty() && argument.find_first_of(L" \t\"") == std::wstring::npos)
        return argument;
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : argument) {
        if (c == L'\\') {
            ++backslashes;
            continue;
        }
        quoted.append(c == L'"' ? 2 * backslashes + 1 : backslashes, L'\\');
        backslashes = 0;
        quoted += c;
    }
    quoted.append(2 * backslashes, L'\\');
    return quoted + L"\"";
}

int Run(int argc, wchar_t** argv, int first) {
    std::wstring commandLine;
    for (int i = first; i < argc; ++i)
        commandLine += (i == first ? L"" : L" ") + QuoteArgument(argv[i]);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    startup.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                       &startup, &process) == 0) {
        std::fprintf(stderr, "zeltcfg_file_situation: cannot start the command (error %lu)\n",
                     GetLastError());
        return 125;
    }
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = 125;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return static_cast<int>(code);
}

std::string ScreenRow(HANDLE console, SHORT row, SHORT width) {
    std::wstring cells(static_cast<std::size_t>(width), L' ');
    DWORD read = 0;
    ReadConsoleOutputCharacterW(console, cells.data(), static_cast<DWORD>(width), COORD{0, row},
                                &read);
    cells.resize(read);
    while (!cells.empty() && cells.back() == L' ') cells.pop_back();
    std::string line(cells.size() * 3, '\0');
    line.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_UTF8, 0, cells.data(), static_cast<int>(cells.size()), line.data(),
                            static_cast<int>(line.size()), nullptr, nullptr)));
    return line + "\n";
}

// What PROGRAM shows on the console, the rows from where the cursor stood
// before it ran to where it stands after.
int RunOnConsole(int argc, wchar_t** argv, const wchar_t* file) {
    const HANDLE console = GetStdHandle(STD_OUTPUT_HANDLE);
    CONSOLE_SCREEN_BUFFER_INFO before{};
    if (GetConsoleScreenBufferInfo(console, &before) == 0) {
        std::fprintf(stderr, "zeltcfg_file_situation: standard output is not a console\n");
        return 125;
    }
    const int code = Run(argc, argv, 3);
    CONSOLE_SCREEN_BUFFER_INFO after{};
    GetConsoleScreenBufferInfo(console, &after);
    std::string screen;
    for (SHORT row = before.dwCursorPosition.Y; row < after.dwCursorPosition.Y; ++row)
        screen += ScreenRow(console, row, after.dwSize.X);
    std::FILE* saved = _wfopen(file, L"wb");
    if (saved == nullptr) return 125;
    std::fwrite(screen.data(), 1, screen.size(), saved);
    std::fclose(saved);
    return code;
}

// PROGRAM runs while this process holds the lock on the lock file.
int RunWhileLocked(int argc, wchar_t** argv, const wchar_t* file) {
    const HANDLE lockFile = CreateFileW(file, GENERIC_READ | GENERIC_WRITE,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                        nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    OVERLAPPED start{};
    if (lockFile == INVALID_HANDLE_VALUE ||
        LockFileEx(lockFile, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                   &start) == 0) {
        std::fprintf(stderr, "zeltcfg_file_situation: cannot lock the file (error %lu)\n",
                     GetLastError());
        return 125;
    }
    const int code = Run(argc, argv, 3);
    UnlockFileEx(lockFile, 0, 1, 0, &start);
    CloseHandle(lockFile);
    return code;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc < 4) {
        std::fprintf(stderr,
                     "usage: zeltcfg_file_situation hold|hold-for-reading|read-only|lock|console "
                     "FILE "
                     "PROGRAM...\n");
        return 125;
    }
    const std::wstring situation = argv[1];
    const wchar_t* file = argv[2];
    if (situation == L"hold" || situation == L"hold-for-reading") {
        const bool shared = situation != L"hold";
        const HANDLE held = CreateFileW(file, shared ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE,
                                        shared ? FILE_SHARE_READ | FILE_SHARE_WRITE : 0, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (held == INVALID_HANDLE_VALUE) {
            std::fprintf(stderr, "zeltcfg_file_situation: cannot hold the file (error %lu)\n",
                         GetLastError());
            return 125;
        }
        const int code = Run(argc, argv, 3);
        CloseHandle(held);
        return code;
    }
    if (situation == L"read-only") {
        if (SetFileAttributesW(file, FILE_ATTRIBUTE_READONLY) == 0) {
            std::fprintf(stderr, "zeltcfg_file_situation: cannot make the file read-only\n");
            return 125;
        }
        return Run(argc, argv, 3);
    }
    if (situation == L"lock") return RunWhileLocked(argc, argv, file);
    if (situation == L"console") return RunOnConsole(argc, argv, file);
    std::fprintf(stderr, "zeltcfg_file_situation: unknown situation\n");
    return 125;
}
