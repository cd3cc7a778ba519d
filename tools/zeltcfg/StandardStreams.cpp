#include "StandardStreams.h"

#include "Failure.h"
#include "SystemError.h"

#include <cerrno>
#include <cstdarg>
#include <vector>

namespace zeltcfg {

void PrintOutput(const std::string& bytes) {
    if (!WriteStream(stdout, bytes))
        throw Failure(kExitInputOutput, "cannot write to standard output: " + ErrorText(errno));
}

void PrintError(const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    std::va_list measuring;
    va_copy(measuring, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, measuring);
    va_end(measuring);
    if (length > 0) {
        std::vector<char> text(static_cast<std::size_t>(length) + 1);
        std::vsnprintf(text.data(), text.size(), format, arguments);
        // A message that cannot be shown has nowhere else to go.
        WriteStream(stderr, std::string(text.data(), static_cast<std::size_t>(length)));
    }
    va_end(arguments);
}

}  // namespace zeltcfg
