#include "AtomicFileReplacement.h"

#include "Failure.h"
#include "InputReading.h"
#include "SystemError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>

namespace zeltcfg {

namespace {

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

// The rename is on disk only once the folder is: until then a power loss
// can bring the old file back after success was reported.
void FlushFolder(const std::string& path, const std::string& name) {
    const int folder = open(FolderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const int error = folder < 0 || fsync(folder) != 0 ? errno : 0;
    if (folder >= 0) close(folder);
    if (error != 0)
        throw Failure(kExitInputOutput,
                      name +
                          ": the new text is in place, but the folder cannot be flushed to "
                          "disk: " +
                          ErrorText(error) + "; a power loss may still undo the change");
}

}  // namespace

TemporaryFile::TemporaryFile(const std::string& folder, const std::string& stem) {
    path_ = folder + "/." + stem + ".zeltcfg-XXXXXX";
    file_ = mkostemp(path_.data(), O_CLOEXEC);
    open_ = file_ >= 0;
    if (!open_)
        throw Failure(kExitInputOutput, "cannot create a temporary file in " + folder + ": " +
                                            ErrorText(errno) + "; the folder must be writable");
}

TemporaryFile::~TemporaryFile() {
    if (open_) close(file_);
    if (!renamed_) unlink(path_.c_str());
}

std::string TemporaryFile::ReadWritten(const std::string& name) { return ReadAll(file_, name); }

std::string TemporaryFolder() {
    const char* folder = std::getenv("TMPDIR");
    return folder != nullptr && *folder != '\0' ? folder : "/tmp";
}

struct FileReplacement::Original {
    std::string target;
    struct stat status {};
};

namespace {

std::string NameOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

// What a file made at argument would be: its full path, and the permissions
// of a new file (owner and group as made). False when argument's folder is
// not there either.
bool DescribeNewFile(const std::string& argument, std::string& target, struct stat& status) {
    char folder[PATH_MAX];
    if (realpath(FolderOf(argument).c_str(), folder) == nullptr) return false;
    target = std::string(folder) + (std::string(folder) == "/" ? "" : "/") + NameOf(argument);
    const mode_t mask = umask(0);
    umask(mask);
    status.st_mode = S_IFREG | (0666 & ~mask);
    status.st_uid = static_cast<uid_t>(-1);
    status.st_gid = static_cast<gid_t>(-1);
    return true;
}

}  // namespace

FileReplacement::FileReplacement(const std::string& argument, const std::string& name,
                                 MissingFile missing)
    : name_(name), original_(std::make_unique<Original>()) {
    const auto fail = [&name](const char* outcome) {
        throw Failure(kExitInputOutput, name + ": " + ErrorText(errno) + "; " + outcome);
    };
    char resolved[PATH_MAX];
    std::string& target = original_->target;
    if (realpath(argument.c_str(), resolved) != nullptr) {
        target = resolved;
        if (stat(target.c_str(), &original_->status) != 0) fail("the file is unchanged");
    } else if (missing == MissingFile::Refused) {
        fail("the file is unchanged");
    } else if (errno != ENOENT || !DescribeNewFile(argument, target, original_->status)) {
        fail("nothing is written");
    }
    const std::string folder = FolderOf(target);
    file_ = std::make_unique<TemporaryFile>(folder,
                                            target.substr(folder.size() + (folder == "/" ? 0 : 1)));
}

FileReplacement::~FileReplacement() = default;

void FileReplacement::Commit() {
    const auto fail = [this](const char* step) {
        throw Failure(kExitInputOutput,
                      name_ + ": " + step + ": " + ErrorText(errno) + "; the file is unchanged");
    };
    const int descriptor = file_->file_;
    const struct stat& original = original_->status;
    if (fchmod(descriptor, original.st_mode & 07777) != 0) fail("cannot keep permissions");
    // Keeping the owner needs privileges that an ordinary user lacks; the
    // file then belongs to that user, as any new file would.
    if (fchown(descriptor, original.st_uid, original.st_gid) != 0 && errno != EPERM)
        fail("cannot keep the owner");
    if (fsync(descriptor) != 0) fail("cannot flush the new text to disk");
    if (rename(file_->path_.c_str(), original_->target.c_str()) != 0)
        fail("cannot replace the file");
    file_->renamed_ = true;
    FlushFolder(original_->target, name_);
}

}  // namespace zeltcfg
