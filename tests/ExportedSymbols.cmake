# Checks that the library's dynamic symbol table (on Windows: zelt.dll's
# export table) holds exactly the public entry points: the three manager
# exports and the fourteen element factories, and nothing of the
# implementation or of json-c.
#   cmake -DNM=<nm> -DLIBRARY=<path> -P ExportedSymbols.cmake
#   cmake -DOBJDUMP=<objdump> -DCXXFILT=<c++filt> -DLIBRARY=<zelt.dll> -P ExportedSymbols.cmake
set(expected
  "SetZeltDebugDumpCallBack(void (*)(wchar_t const*))"
  "VextorJSConfig::AdvancedRule_CreateNewInstance()"
  "VextorJSConfig::ClientRequestHeadersArray_CreateNewInstance()"
  "VextorJSConfig::ClientRequestHeaders_CreateNewInstance()"
  "VextorJSConfig::ClientSetting_CreateNewInstance()"
  "VextorJSConfig::Communication_CreateNewInstance()"
  "VextorJSConfig::ContentUploadChannel_CreateNewInstance()"
  "VextorJSConfig::EnforceList_CreateNewInstance()"
  "VextorJSConfig::HTTPS_CreateNewInstance()"
  "VextorJSConfig::IPListArray_CreateNewInstance()"
  "VextorJSConfig::IPList_CreateNewInstance()"
  "VextorJSConfig::VPNDescListArray_CreateNewInstance()"
  "VextorJSConfig::VPNDescList_CreateNewInstance()"
  "VextorJSConfig::VextorJSConfig_CreateNewInstance()"
  "VextorJSConfig::WhiteList_CreateNewInstance()"
  "zeltCreateJSONManager(char*, int)"
  "zeltDestroyJSONManager(IJSONManager*)")

set(exported)
if(OBJDUMP)
  # Windows: the names of zelt.dll's export table, demangled.
  execute_process(COMMAND ${OBJDUMP} -p ${LIBRARY} OUTPUT_VARIABLE listing RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "objdump failed on ${LIBRARY}")
  endif()
  # Rows of "\t[ <ordinal>] <name>" under the table's heading; square
  # brackets would keep CMake from splitting a list, so only names are kept.
  string(REGEX MATCH "\\[Ordinal/Name Pointer\\] Table\n(\t[^\n]+\n)*" table "${listing}")
  string(REGEX MATCHALL "\t\\[ *[0-9]+\\] [^\n]+" rows "${table}")
  string(REGEX REPLACE "\t\\[ *[0-9]+\\] ([^\n;]+)" "\\1" entries "${rows}")
  foreach(name IN LISTS entries)
    execute_process(COMMAND ${CXXFILT} ${name} OUTPUT_VARIABLE demangled
      OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE status)
    if(NOT status EQUAL 0)
      message(FATAL_ERROR "c++filt failed on ${name}")
    endif()
    list(APPEND exported "${demangled}")
  endforeach()
else()
  execute_process(COMMAND ${NM} -DC --defined-only ${LIBRARY}
    OUTPUT_VARIABLE listing RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "nm failed on ${LIBRARY}")
  endif()
  string(REPLACE "\n" ";" lines "${listing}")
  foreach(line IN LISTS lines)
    # "<address> <kind> <name>": the name may hold blanks.
    if(line MATCHES "^[0-9a-fA-F]+ [A-Za-z] (.+)$")
      list(APPEND exported "${CMAKE_MATCH_1}")
    endif()
  endforeach()
endif()
list(SORT exported)
list(SORT expected)
if(NOT exported STREQUAL expected)
  string(REPLACE ";" "\n  " shown "${exported}")
  message(FATAL_ERROR "exported symbols differ from the public entry points:\n  ${shown}")
endif()
message(STATUS "exactly the 17 public entry points are exported")
