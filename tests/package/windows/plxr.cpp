// The logging library that zelt.dll imports PLXR_PrintMessage from; a host
// brings its own. This one writes each message to standard error.
#include <cstdio>
#include <cwchar>

extern "C" __declspec(dllexport) void PLXR_PrintMessage(const wchar_t* file,
                                                        const wchar_t* function, int line,
                                                        int level, const wchar_t* message) {
    std::fwprintf(stderr, L"%ls: %ls:%d (level %d): %ls\n", file, function, line, level, message);
}
