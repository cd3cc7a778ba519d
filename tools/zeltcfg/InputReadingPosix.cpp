#include "InputReading.h"

#include "Failure.h"
#include "SystemError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace zeltcfg {

std::string ReadAll(FileHandle descriptor, const std::string& name) {
    std::string text;
    char chunk[65536];
    for (;;) {
        const ssize_t count = read(descriptor, chunk, sizeof chunk);
        if (count == 0) return text;
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) throw Failure(kExitInputOutput, name + ": cannot read: " + ErrorText(errno));
        text.append(chunk, static_cast<std::size_t>(count));
    }
}

std::string ReadInput(const std::string& argument, const std::string& name) {
    if (argument == kStandardInput) return ReadAll(STDIN_FILENO, name);
    const int descriptor = open(argument.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        throw Failure(kExitInputOutput,
                      name + ": cannot open the file: " + ErrorText(errno) + "; check the path");
    struct stat status {};
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        close(descriptor);
        throw Failure(kExitInputOutput,
                      name +
                          ": not a regular file; give a configuration file, or - to read "
                          "standard input");
    }
    std::string text;
    try {
        text = ReadAll(descriptor, name);
    } catch (...) {
        close(descriptor);
        throw;
    }
    close(descriptor);
    return text;
}

}  // namespace zeltcfg
