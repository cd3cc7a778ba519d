# Checks that the installed schema file holds exactly what "zeltcfg schema"
# prints.
#   cmake -DTOOL=<zeltcfg> -DSCHEMA=<zelt-config.schema.json> -P SchemaFile.cmake
execute_process(COMMAND ${TOOL} schema OUTPUT_VARIABLE printed RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "zeltcfg schema failed with ${status}")
endif()
file(READ ${SCHEMA} kept)
if(NOT printed STREQUAL kept)
  file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/zelt-config.schema.printed.json "${printed}")
  message(FATAL_ERROR "${SCHEMA} differs from what zeltcfg schema prints; the printed schema "
                      "is in ${CMAKE_CURRENT_BINARY_DIR}/zelt-config.schema.printed.json")
endif()
