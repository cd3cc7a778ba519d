# Checks that zeltcfg.exe needs nothing beside it but zelt.dll (and, through
# it, PLXR.dll): the compiler's runtime is linked in, so its imports are
# zelt.dll and the system's own DLLs.
#
#   cmake -DOBJDUMP=<objdump> -DPROGRAM=<zeltcfg.exe> -P ImportedLibraries.cmake
cmake_minimum_required(VERSION 3.25)
execute_process(COMMAND ${OBJDUMP} -p ${PROGRAM} OUTPUT_VARIABLE headers
                COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "DLL Name: [^\r\n]+" lines "${headers}")
set(imported)
foreach(line IN LISTS lines)
  string(REPLACE "DLL Name: " "" name "${line}")
  string(TOLOWER "${name}" name)
  list(APPEND imported ${name})
endforeach()
list(SORT imported)
set(expected advapi32.dll kernel32.dll msvcrt.dll zelt.dll)
if(NOT imported STREQUAL expected)
  message(FATAL_ERROR "zeltcfg.exe imports ${imported}, not ${expected}")
endif()
