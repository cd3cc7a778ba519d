// SystemError.h: the system's own words for an error number.
#ifndef ZELTCFG_SYSTEMERROR_H
#define ZELTCFG_SYSTEMERROR_H

#include <cstring>
#include <string>

namespace zeltcfg {

inline std::string ErrorText(int error) { return std::strerror(error); }

#ifdef _WIN32
// The reason for a Windows error code in words: where the C library has the
// same reason, its words, so that messages read as on other systems;
// otherwise the system's own description.
std::string WindowsErrorText(unsigned long code);
#endif

}  // namespace zeltcfg

#endif  // ZELTCFG_SYSTEMERROR_H
