#include "manager/FileProbe.h"

#include "manager/TextConversion.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

namespace {
// True when no other descriptor has the file open. A write lease is granted
// only in that case, and released at once. Where leases are not permitted
// (EPERM: not the owner; EINVAL: the file system has none), an exclusive
// flock is the closest check left, though it sees only other flocks.
bool NoOtherDescriptorOpen(int fd) {
    if (fcntl(fd, F_SETLEASE, F_WRLCK) == 0) {
        fcntl(fd, F_SETLEASE, F_UNLCK);
        return true;
    }
    if (errno != EPERM && errno != EINVAL) return false;
    if (flock(fd, LOCK_EX | LOCK_NB) != 0) return false;
    flock(fd, LOCK_UN);
    return true;
}
}  // namespace

bool ProbeFileExclusive(const wchar_t* path, std::uint32_t& size) {
    std::string utf8Path;
    if (!ConvertWideToUtf8(path, utf8Path)) return false;
    // Non-blocking, so that opening a FIFO without a writer returns at once.
    const int fd = open(utf8Path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) return false;
    struct stat status;
    const bool probed =
        fstat(fd, &status) == 0 && S_ISREG(status.st_mode) && NoOtherDescriptorOpen(fd);
    if (probed) size = static_cast<std::uint32_t>(status.st_size);
    close(fd);
    return probed;
}
