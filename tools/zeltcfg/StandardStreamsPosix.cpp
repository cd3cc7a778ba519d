#include "StandardStreams.h"

namespace zeltcfg {

void PrepareStandardStreams() {}

bool WriteStream(std::FILE* stream, const std::string& bytes) {
    return std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size() &&
           std::fflush(stream) == 0;
}

}  // namespace zeltcfg
