/// \file
/// Export.h: marks the declarations that the zelt library exports.
///
/// Everything else in the library is hidden. Include <zelt/zelt.h> rather than
/// this header.
#ifndef ZELT_EXPORT_H
#define ZELT_EXPORT_H

#if defined(_WIN32)
#if defined(ZELT_BUILDING_LIBRARY)
#define ZELT_API __declspec(dllexport)
#else
#define ZELT_API __declspec(dllimport)
#endif
#else
/// Marks a declaration that the library exports: dllexport while the DLL is
/// built and dllimport for its callers on Windows, default visibility
/// elsewhere.
#define ZELT_API __attribute__((visibility("default")))
#endif

#endif  // ZELT_EXPORT_H
