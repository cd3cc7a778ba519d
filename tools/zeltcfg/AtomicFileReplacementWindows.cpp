#include "AtomicFileReplacement.h"

#include "Failure.h"
#include "SystemError.h"
#include "TextEncoding.h"

#include <windows.h>

namespace zeltcfg {

namespace {

// The folder part of a path as given, and the name after it. Both slashes
// separate; a new name is joined with a backslash, which long (\\?\) paths
// need.
std::size_t LastSeparator(const std::string& path) { return path.find_last_of("\\/"); }

std::string FolderOf(const std::string& path) {
    const std::size_t separator = LastSeparator(path);
    return separator == std::string::npos ? "." : path.substr(0, separator);
}

std::string NameOf(const std::string& path) {
    const std::size_t separator = LastSeparator(path);
    return separator == std::string::npos ? path : path.substr(separator + 1);
}

// Six letters that make a new name; a name that exists already is skipped.
std::string UniqueSuffix() {
    static unsigned state = GetCurrentProcessId() * 2654435761u ^ GetTickCount();
    const char letters[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    std::string suffix;
    for (int i = 0; i < 6; ++i) {
        state = state * 1664525u + 1013904223u;
        suffix += letters[(state >> 16) % (sizeof letters - 1)];
    }
    return suffix;
}

// The full path of a file; ReplaceFileW is given full paths, as some of its
// implementations cannot find the folder of a bare file name.
std::wstring FullPath(const std::wstring& path) {
    const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    if (size == 0) return path;
    std::wstring full(size, L'\0');
    const DWORD length = GetFullPathNameW(path.c_str(), size, full.data(), nullptr);
    if (length == 0 || length >= size) return path;
    full.resize(length);
    return full;
}

}  // namespace

// The file is made and closed again, so that the library can open it for
// writing whatever sharing it asks for; ReadWritten opens it once more.
TemporaryFile::TemporaryFile(const std::string& folder, const std::string& stem) {
    for (;;) {
        path_ = folder + "\\." + stem + ".zeltcfg-" + UniqueSuffix();
        const HANDLE handle = CreateFileW(WidePath(path_).c_str(), GENERIC_WRITE, 0, nullptr,
                                          CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (handle != INVALID_HANDLE_VALUE) {
            CloseHandle(handle);
            return;
        }
        const DWORD code = GetLastError();
        if (code != ERROR_FILE_EXISTS)
            throw Failure(kExitInputOutput, "cannot create a temporary file in " + folder + ": " +
                                                WindowsErrorText(code) +
                                                "; the folder must be writable");
    }
}

TemporaryFile::~TemporaryFile() {
    if (open_) CloseHandle(file_);
    std::wstring path;
    if (!renamed_ && ConvertUtf8ToWide(path_, path)) DeleteFileW(path.c_str());
}

std::string TemporaryFile::ReadWritten(const std::string& name) {
    file_ = CreateFileW(WidePath(path_).c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ,
                        nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    open_ = file_ != INVALID_HANDLE_VALUE;
    if (!open_)
        throw Failure(kExitInputOutput, name + ": cannot read the saved text back: " +
                                            WindowsErrorText(GetLastError()) +
                                            "; the file is unchanged");
    return ReadAll(file_, name);
}

std::string TemporaryFolder() {
    wchar_t folder[MAX_PATH + 1];
    const DWORD length = GetTempPathW(MAX_PATH + 1, folder);
    std::string path = ConvertWideToUtf8(std::wstring(folder, length));
    while (!path.empty() && (path.back() == '\\' || path.back() == '/')) path.pop_back();
    return path.empty() ? "." : path;
}

struct FileReplacement::Original {
    std::wstring target;
    bool missing = false;  // the file is made by the rename
};

// The file is replaced by the path as given; a read-only file is refused
// before anything is written, as Windows would refuse to replace it.
FileReplacement::FileReplacement(const std::string& argument, const std::string& name,
                                 MissingFile missing)
    : name_(name), original_(std::make_unique<Original>()) {
    original_->target = WidePath(argument);
    const DWORD attributes = GetFileAttributesW(original_->target.c_str());
    const DWORD code = attributes == INVALID_FILE_ATTRIBUTES ? GetLastError() : ERROR_SUCCESS;
    original_->missing = code == ERROR_FILE_NOT_FOUND && missing == MissingFile::Made;
    if (code != ERROR_SUCCESS && !original_->missing)
        throw Failure(
            kExitInputOutput,
            name + ": " + WindowsErrorText(code) + "; " +
                (missing == MissingFile::Made ? "nothing is written" : "the file is unchanged"));
    if (!original_->missing && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
        throw Failure(kExitInputOutput,
                      name +
                          ": the file is read-only; clear its read-only attribute (attrib -r) "
                          "to change it; the file is unchanged");
    file_ = std::make_unique<TemporaryFile>(FolderOf(argument), NameOf(argument));
}

FileReplacement::~FileReplacement() = default;

// ReplaceFileW keeps the original's attributes and security on the new text;
// a new file keeps those it was made with in the folder.
void FileReplacement::Commit() {
    const auto fail = [this](const char* step, DWORD code) {
        throw Failure(kExitInputOutput, name_ + ": " + step + ": " + WindowsErrorText(code) +
                                            "; the file is unchanged");
    };
    if (FlushFileBuffers(file_->file_) == 0)
        fail("cannot flush the new text to disk", GetLastError());
    CloseHandle(file_->file_);
    file_->open_ = false;
    const std::wstring target = FullPath(original_->target);
    const std::wstring made = FullPath(WidePath(file_->path_));
    if (original_->missing) {
        if (MoveFileExW(made.c_str(), target.c_str(), MOVEFILE_WRITE_THROUGH) == 0)
            fail("cannot make the file", GetLastError());
    } else if (ReplaceFileW(target.c_str(), made.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS,
                            nullptr, nullptr) == 0) {
        fail("cannot replace the file", GetLastError());
    }
    file_->renamed_ = true;
}

}  // namespace zeltcfg
