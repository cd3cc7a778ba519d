// zeltcfg_file_situation: puts a file into a situation that only another
// Windows program can make, runs a command while it lasts, and exits with the
// command's exit code. The command's standard streams are this program's.
//
//   zeltcfg_file_situation hold FILE PROGRAM [ARGUMENT...]
//       FILE stays open, shared with nobody, while PROGRAM runs.
//   zeltcfg_file_situation read-only FILE PROGRAM [ARGUMENT...]
//       FILE gets the read-only attribute before PROGRAM runs.
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

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc < 4) {
        std::fprintf(stderr, "usage: zeltcfg_file_situation hold|read-only FILE PROGRAM...\n");
        return 125;
    }
    const std::wstring situation = argv[1];
    const wchar_t* file = argv[2];
    if (situation == L"hold") {
        const HANDLE held = CreateFileW(file, GENERIC_READ | GENERIC_WRITE, 0, nullptr,
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
    std::fprintf(stderr, "zeltcfg_file_situation: unknown situation\n");
    return 125;
}
