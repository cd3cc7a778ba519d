/// \file
/// Types.h: the small types shared by the whole zelt interface: DWORD, the
/// opaque JSONNode handle, the debug dump callback and the result codes that
/// every operation returns.
#ifndef ZELT_TYPES_H
#define ZELT_TYPES_H

#if defined(_WIN32)
/// The same type as the platform's own DWORD, so that both declarations agree.
typedef unsigned long DWORD;
#else
#include <cstdint>
/// The platform's 32-bit unsigned integer, as on Windows.
typedef std::uint32_t DWORD;
#endif

/// One node of a manager's JSON tree. Callers only ever hold borrowed pointers
/// to it; a node dies with its member or with the document.
struct JSONNode;

/// Receives each element failure message. The text is valid only during the
/// call.
typedef void (*DebugDumpCallback)(const wchar_t* message);

/// \name Result codes
/// Returned by the manager and the configuration elements.
///@{
inline constexpr int ZELT_SUCCESS = 1;      ///< done; for getters: present and delivered
inline constexpr int ZELT_NOT_PRESENT = 2;  ///< member, item or string not found
inline constexpr int ZELT_FAILED = -101;    ///< conversion, parse, allocation or short write failed
inline constexpr int ZELT_BAD_ARGUMENT =
    -102;  ///< null pointer, length mismatch, wrong node kind, unopenable file
inline constexpr int ZELT_BUFFER_TOO_SMALL = -103;  ///< the needed length has been written back
/// SaveToJSONFile only, when the manager holds no document: the file has been
/// opened (created or emptied) and is left empty.
inline constexpr int ZELT_NOTHING_TO_SAVE = -105;
///@}

#endif  // ZELT_TYPES_H
