#include "EditLock.h"

#include "Failure.h"

#include <chrono>

namespace zeltcfg {

EditLock::EditLock(const std::string& argument, const std::string& name, double waitSeconds,
                   MissingFile missing) {
    std::string path;
    if (!edit_lock::LockFilePath(argument, missing, path)) return;
    file_ = edit_lock::OpenLockFile(path, name);
    open_ = true;
    const auto deadline = std::chrono::steady_clock::now() +
                          std::chrono::duration_cast<std::chrono::steady_clock::duration>(
                              std::chrono::duration<double>(waitSeconds));
    while (!edit_lock::TryLock(file_, name)) {
        if (std::chrono::steady_clock::now() >= deadline)
            throw Failure(kExitInputOutput,
                          name +
                              ": the file is being changed by another process; the file is "
                              "unchanged; try again when that process has finished, or wait "
                              "longer with --wait SECONDS");
        edit_lock::PauseBeforeRetry();
    }
}

EditLock::~EditLock() {
    if (open_) edit_lock::CloseLockFile(file_);
}

}  // namespace zeltcfg
