// FileProbe.h: the exclusive probe that precedes a file import.
#ifndef ZELT_MANAGER_FILEPROBE_H
#define ZELT_MANAGER_FILEPROBE_H

#include <cstdint>

// An exclusive open for reading of an existing regular file. Fails when the
// file is missing, is not a regular file, or is held open by any other
// descriptor; never blocks (a FIFO is refused at once). Gives the low 32 bits
// of the file's size.
bool ProbeFileExclusive(const wchar_t* path, std::uint32_t& size);

#endif  // ZELT_MANAGER_FILEPROBE_H
