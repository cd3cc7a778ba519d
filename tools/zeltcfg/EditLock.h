// EditLock.h: one changing command at a time on a file.
//
// A changing command holds an exclusive lock on the lock file beside its
// target ("<target>.lock", in the same folder) from before it reads the file
// until after the new text is in place, so that the read-modify-write cycles
// of several processes run one after another. The lock is on a file of its
// own because the target is replaced by a rename, which a lock on the target
// would not survive.
//
// The lock file is left in place when the lock ends: removing it would race
// with a process that has just opened it and would then lock a file that no
// longer has that name. An empty lock file is harmless and is reused.
#ifndef ZELTCFG_EDITLOCK_H
#define ZELTCFG_EDITLOCK_H

#include "InputReading.h"

#include <string>

namespace zeltcfg {

// Seconds a changing command waits for another one by default.
inline constexpr double kDefaultWaitSeconds = 5;

class EditLock {
public:
    // Locks the lock file of the file argument names, trying again until
    // waitSeconds have passed (0: once). Standard input, and a path that
    // names no regular file, take no lock; loading the file then reports
    // what is wrong. With MissingFile::Made a file that does not exist yet
    // in an existing folder is locked too, as the command makes it. Throws
    // Failure naming name when another process holds the lock past the
    // limit, or when the lock file cannot be made.
    EditLock(const std::string& argument, const std::string& name, double waitSeconds,
             MissingFile missing = MissingFile::Refused);
    ~EditLock();
    EditLock(const EditLock&) = delete;
    EditLock& operator=(const EditLock&) = delete;

private:
    FileHandle file_{};
    bool open_ = false;
};

// The platform's part: each returns false instead of a lock file or a lock
// where the calling EditLock decides what follows.
namespace edit_lock {

// The path of the lock file for the regular file argument names, or with
// MissingFile::Made for a missing file in an existing folder; false for
// standard input and for anything else.
bool LockFilePath(const std::string& argument, MissingFile missing, std::string& path);
// Opens or makes the lock file; throws Failure naming name.
FileHandle OpenLockFile(const std::string& path, const std::string& name);
// One attempt that does not wait; false while another process holds it.
// Throws Failure naming name on any other error.
bool TryLock(FileHandle file, const std::string& name);
// Ends the lock and closes the file.
void CloseLockFile(FileHandle file);
// The pause between two attempts.
void PauseBeforeRetry();

}  // namespace edit_lock

}  // namespace zeltcfg

#endif  // ZELTCFG_EDITLOCK_H
