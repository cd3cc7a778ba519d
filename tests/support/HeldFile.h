// HeldFile.h: keeps a file open through a handle of its own (a descriptor on
// POSIX systems, a Windows file handle on Windows) for the object's lifetime,
// as another part of the agent would while the library probes the file.
#ifndef ZELT_TESTS_HELDFILE_H
#define ZELT_TESTS_HELDFILE_H

#include <cstdint>
#include <string>

class HeldFile {
public:
    enum class Access { kRead, kAppend };

    // Opens the existing file at the UTF-8 path. On Windows the handle shares
    // reading, writing and deletion with every other handle, so that only the
    // other side's own share mode can refuse it.
    HeldFile(const std::string& path, Access access);
    ~HeldFile();
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

    bool IsOpen() const;

private:
    std::intptr_t handle_;
};

#endif  // ZELT_TESTS_HELDFILE_H
