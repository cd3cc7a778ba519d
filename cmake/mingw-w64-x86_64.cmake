# Cross-builds for Windows x86-64 with Debian's mingw-w64 toolchain (the
# posix thread model). Windows programs built here run under wine64, which
# CTest uses as the emulator of every test program.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(mingw_triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${mingw_triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${mingw_triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${mingw_triplet}-windres)
set(CMAKE_DLLTOOL ${mingw_triplet}-dlltool)

# Target libraries come only from the toolchain's root and from the prefixes
# given on the command line; programs from the build machine.
list(APPEND CMAKE_FIND_ROOT_PATH /usr/${mingw_triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The compiler's own runtime goes into each module, so that zelt.dll needs
# nothing beside it but the system's DLLs and PLXR.dll.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${CMAKE_EXE_LINKER_FLAGS_INIT}")

# A missing wine64 leaves the emulator unfound, so that every Windows test
# fails instead of being skipped.
find_program(ZELT_WINE64 NAMES wine64 PATHS /usr/lib/wine NO_CMAKE_FIND_ROOT_PATH)
find_program(ZELT_WINESERVER NAMES wineserver PATHS /usr/lib/wine NO_CMAKE_FIND_ROOT_PATH)
set(ZELT_WINE_PREFIX "${CMAKE_BINARY_DIR}/wine-prefix" CACHE PATH "The Wine prefix the tests run in")
set(CMAKE_CROSSCOMPILING_EMULATOR
    /usr/bin/env WINEDEBUG=-all WINEPREFIX=${ZELT_WINE_PREFIX} ${ZELT_WINE64})
