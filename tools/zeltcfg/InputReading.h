// InputReading.h: the bytes of a configuration file, or of standard input,
// read whole.
#ifndef ZELTCFG_INPUTREADING_H
#define ZELTCFG_INPUTREADING_H

#include <string>

namespace zeltcfg {

// The name under which standard input is read and reported.
inline constexpr const char* kStandardInput = "-";

// The whole content of the file argument names, or of standard input for
// "-". Only a regular file is read; opening never blocks, so a FIFO is
// refused instead of waited on. Throws Failure naming name.
std::string ReadInput(const std::string& argument, const std::string& name);

#ifdef _WIN32
using FileHandle = void*;  // a HANDLE
#else
using FileHandle = int;  // a descriptor
#endif

// Whether a file that a command writes may be missing: then the command
// makes it (an output file), or refuses it (a file it changes).
enum class MissingFile { Refused, Made };

// Reads an open file from where it stands to its end; throws Failure naming
// name.
std::string ReadAll(FileHandle file, const std::string& name);

}  // namespace zeltcfg

#endif  // ZELTCFG_INPUTREADING_H
