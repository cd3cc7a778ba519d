// FileStream.h: the manager's reads and writes of whole files, with the C
// stdio functions.
#ifndef ZELT_MANAGER_FILESTREAM_H
#define ZELT_MANAGER_FILESTREAM_H

#include <cstdio>

// Opens path with the C stdio functions ("rb" or "wb"). The stream is
// unbuffered, so that a short write shows in fwrite's own count instead of
// hiding in a stream buffer. Null when the path is null or cannot be opened.
std::FILE* OpenFileStream(const wchar_t* path, const char* mode);

#endif  // ZELT_MANAGER_FILESTREAM_H
