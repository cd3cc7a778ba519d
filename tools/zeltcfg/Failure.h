// Failure.h: exit codes of zeltcfg and the exception that ends a command with
// one of them.
#ifndef ZELTCFG_FAILURE_H
#define ZELTCFG_FAILURE_H

#include <stdexcept>
#include <string>

namespace zeltcfg {

enum ExitCode : int {
    kExitSuccess = 0,
    kExitInvalid = 1,  // the configuration is invalid, or the value is absent
    kExitUsage = 2,
    kExitInputOutput = 3,
};

// Thrown by a command that cannot go on; main prints what() to standard
// error and exits with code. The text names the file or argument, the place
// and what to do.
class Failure : public std::runtime_error {
public:
    Failure(ExitCode code, const std::string& message) : std::runtime_error(message), code(code) {}
    ExitCode code;
};

}  // namespace zeltcfg

#endif  // ZELTCFG_FAILURE_H
