// FileAccess.h: the manager's file access: the exclusive probe that precedes
// an import, and streams opened with the C stdio functions.
#ifndef ZELT_MANAGER_FILEACCESS_H
#define ZELT_MANAGER_FILEACCESS_H

#include <cstdint>
#include <cstdio>

// An exclusive open for reading of an existing regular file. Fails when the
// file is missing, is not a regular file, or is held open by any other
// descriptor; never blocks (a FIFO is refused at once). Gives the low 32 bits
// of the file's size.
bool ProbeFileExclusive(const wchar_t* path, std::uint32_t& size);

// Opens path with the C stdio functions ("rb" or "wb"). The stream is
// unbuffered, so that a short write shows in fwrite's own count. Null when
// the path is null or cannot be opened.
std::FILE* OpenFileStream(const wchar_t* path, const char* mode);

#endif  // ZELT_MANAGER_FILEACCESS_H
