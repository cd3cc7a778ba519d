#include "EditLock.h"

#include "Failure.h"
#include "SystemError.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

namespace zeltcfg::edit_lock {

namespace {

// The lock file path for a file not made yet: in its folder, resolved as the
// replacement resolves it.
bool MissingFileLockPath(const std::string& argument, std::string& path) {
    const std::size_t slash = argument.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : argument.substr(0, slash + 1);
    const std::string name = slash == std::string::npos ? argument : argument.substr(slash + 1);
    char resolved[PATH_MAX];
    struct stat status {};
    if (name.empty() || realpath(folder.c_str(), resolved) == nullptr ||
        stat(resolved, &status) != 0 || !S_ISDIR(status.st_mode))
        return false;
    path = std::string(resolved) + (std::string(resolved) == "/" ? "" : "/") + name + ".lock";
    return true;
}

}  // namespace

bool LockFilePath(const std::string& argument, MissingFile missing, std::string& path) {
    if (argument == kStandardInput) return false;
    char resolved[PATH_MAX];
    struct stat status {};
    if (realpath(argument.c_str(), resolved) == nullptr)
        return errno == ENOENT && missing == MissingFile::Made &&
               MissingFileLockPath(argument, path);
    if (stat(resolved, &status) != 0 || !S_ISREG(status.st_mode)) return false;
    path = std::string(resolved) + ".lock";
    return true;
}

FileHandle OpenLockFile(const std::string& path, const std::string& name) {
    // A lock needs no write access: a lock file that another user made is
    // locked through a descriptor for reading.
    int file = open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0666);
    if (file < 0 && errno == EACCES) file = open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC);
    if (file < 0)
        throw Failure(kExitInputOutput, name + ": cannot open the lock file " + name +
                                            ".lock: " + ErrorText(errno) +
                                            "; the folder must be writable; the file is "
                                            "unchanged");
    return file;
}

bool TryLock(FileHandle file, const std::string& name) {
    while (flock(file, LOCK_EX | LOCK_NB) != 0) {
        if (errno == EWOULDBLOCK) return false;
        if (errno != EINTR)
            throw Failure(kExitInputOutput, name + ": cannot lock " + name + ".lock: " +
                                                ErrorText(errno) + "; the file is unchanged");
    }
    return true;
}

void CloseLockFile(FileHandle file) { close(file); }

void PauseBeforeRetry() {
    const timespec pause{0, 10 * 1000 * 1000};
    nanosleep(&pause, nullptr);
}

}  // namespace zeltcfg::edit_lock
