// StandardStreams.h: the tool's output and messages. Data goes to standard
// output and messages to standard error as UTF-8 bytes with LF line endings,
// the same bytes on every system; on Windows a console is written as text
// instead, so that every character shows.
#ifndef ZELTCFG_STANDARDSTREAMS_H
#define ZELTCFG_STANDARDSTREAMS_H

#include <cstdio>
#include <string>

namespace zeltcfg {

// Sets the standard streams up for bytes; called once at the entry.
void PrepareStandardStreams();

// Prints bytes to standard output; throws Failure when that fails.
void PrintOutput(const std::string& bytes);

// Prints a message to standard error, formatted as by std::printf.
#if defined(__GNUC__)
__attribute__((format(printf, 1, 2)))
#endif
void PrintError(const char* format, ...);

// Writes bytes to stream, which is stdout or stderr, and flushes it; false
// when that fails, with errno set.
bool WriteStream(std::FILE* stream, const std::string& bytes);

}  // namespace zeltcfg

#endif  // ZELTCFG_STANDARDSTREAMS_H
