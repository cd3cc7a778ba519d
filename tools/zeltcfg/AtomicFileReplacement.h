// AtomicFileReplacement.h: new text put in place of a file so that a reader
// sees either the old file or the new one, never a part of either, and a
// failure at any step leaves the old file as it was.
//
// The new text is written, by the library, to a new file in the same folder
// as the file it replaces; Commit then flushes it to disk and renames it
// over the original, keeping the original's permissions (on Windows its
// attributes and security). Until Commit succeeds, the new file is removed
// again when the replacement ends.
#ifndef ZELTCFG_ATOMICFILEREPLACEMENT_H
#define ZELTCFG_ATOMICFILEREPLACEMENT_H

#include "InputReading.h"

#include <memory>
#include <string>

namespace zeltcfg {

// A new, empty file that is removed again unless it was renamed into place.
class TemporaryFile {
public:
    // Makes the file in folder, named after stem; throws Failure.
    TemporaryFile(const std::string& folder, const std::string& stem);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    // The path to hand to the library for writing.
    const std::string& path() const { return path_; }
    // Everything written to the file so far; throws Failure naming name.
    std::string ReadWritten(const std::string& name);

private:
    friend class FileReplacement;
    std::string path_;
    FileHandle file_{};
    bool open_ = false;
    bool renamed_ = false;
};

// The folder for temporary files that are not put in place of another.
std::string TemporaryFolder();

// The replacement of the file that argument names; a link is followed, so
// that the file it names is replaced, not the link. With MissingFile::Made a
// file that does not exist yet is made, in the same steps, with the
// permissions that a new file gets.
class FileReplacement {
public:
    // Finds the file and makes the new file beside it; throws Failure naming
    // name, the path as the user gave it.
    FileReplacement(const std::string& argument, const std::string& name,
                    MissingFile missing = MissingFile::Refused);
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    TemporaryFile& file() { return *file_; }
    // Puts the new file in place of the original and, on Linux, flushes the
    // folder to disk; throws Failure, leaving the original as it was, or the
    // new text in place when only flushing the folder fails.
    void Commit();

private:
    struct Original;
    std::string name_;
    std::unique_ptr<Original> original_;
    std::unique_ptr<TemporaryFile> file_;
};

}  // namespace zeltcfg

#endif  // ZELTCFG_ATOMICFILEREPLACEMENT_H
