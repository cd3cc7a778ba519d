/// \file
/// Version.h: the version of the zelt library.
///
/// This header is the one place the version is written: the build reads it
/// for the project version, the shared library's soname, the DLL's version
/// resource, zelt.pc, the CMake package's version file and zeltcfg --version.
/// Keep each definition on one line of the form the build reads.
#ifndef ZELT_VERSION_H
#define ZELT_VERSION_H

/// Major version: changes when the binary interface changes incompatibly.
#define ZELT_VERSION_MAJOR 1
/// Minor version: changes when the interface grows compatibly.
#define ZELT_VERSION_MINOR 0
/// Patch version: changes for fixes only.
#define ZELT_VERSION_PATCH 0
/// The version as text, "MAJOR.MINOR.PATCH".
#define ZELT_VERSION_STRING "1.0.0"

#endif  // ZELT_VERSION_H
