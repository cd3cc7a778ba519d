// TempFile.h: files for the tests: a private temporary folder, byte-exact
// reading and writing, and narrow/wide path helpers. Narrow paths are UTF-8
// on every system.
#ifndef ZELT_TESTS_TEMPFILE_H
#define ZELT_TESTS_TEMPFILE_H

#include <string>

// A fresh folder under the system's temporary folder, removed with its
// content when the object dies.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& Path() const { return path_; }
    std::string File(const std::string& name) const { return path_ + "/" + name; }

private:
    std::string path_;
};

// The path as the library takes it (ASCII paths only in the tests).
std::wstring WidePath(const std::string& path);
void WriteFileBytes(const std::string& path, const std::string& bytes);
std::string ReadFileBytes(const std::string& path);
bool FileExists(const std::string& path);

#endif  // ZELT_TESTS_TEMPFILE_H
