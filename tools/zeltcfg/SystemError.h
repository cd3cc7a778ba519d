// SystemError.h: the system's own words for an error number.
#ifndef ZELTCFG_SYSTEMERROR_H
#define ZELTCFG_SYSTEMERROR_H

#include <cstring>
#include <string>

namespace zeltcfg {

inline std::string ErrorText(int error) { return std::strerror(error); }

}  // namespace zeltcfg

#endif  // ZELTCFG_SYSTEMERROR_H
