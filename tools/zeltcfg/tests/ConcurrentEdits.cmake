# Races changing commands on one file: PROCESSES processes side by side each
# add EDITS entries to one list of a copy of SAMPLE with EDIT_COMMAND (add or
# patch, see ConcurrentEdits.sh).
# Every command must succeed, and the list must then hold exactly
# PROCESSES x EDITS entries: each process's entries, all of them, in the
# order that process added them. An edit lost to a race (two processes
# reading the same text and the later save dropping the earlier entry) shows
# as a missing entry.
#
#   cmake -DCASE=<binary dir>/cases/concurrent_additions.cmake -P ConcurrentEdits.cmake
cmake_minimum_required(VERSION 3.25)
include(${CASE})

file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
file(COPY_FILE ${SAMPLE} ${WORK_DIR}/edited.json)
set(list /ContentUploadChannel/ClientRequestHeaders)
set(seed "")
if(EDIT_COMMAND STREQUAL "patch")
  # A JSON Patch appends to a list that is there, and a list without entries
  # is not kept: one entry first, left out of the count.
  set(seed "before the race")
  file(WRITE ${WORK_DIR}/seed.json
    "[ { \"op\": \"add\", \"path\": \"${list}\", \"value\": [ \"${seed}\" ] } ]")
  execute_process(COMMAND ${TOOL} patch edited.json seed.json
    WORKING_DIRECTORY ${WORK_DIR} RESULT_VARIABLE code ERROR_VARIABLE err)
  if(NOT code EQUAL 0)
    message(FATAL_ERROR "the list cannot be made (exit code ${code}):\n${err}")
  endif()
endif()
execute_process(COMMAND sh ${DRIVER} ${PROCESSES} ${EDITS} edited.json ${list} ${EDIT_COMMAND} ${TOOL}
  WORKING_DIRECTORY ${WORK_DIR} RESULT_VARIABLE code OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT code EQUAL 0 OR NOT out STREQUAL "" OR NOT err STREQUAL "")
  message(FATAL_ERROR "a change failed (exit code ${code}):\n${out}${err}")
endif()

execute_process(COMMAND ${TOOL} get edited.json ${list}
  WORKING_DIRECTORY ${WORK_DIR} RESULT_VARIABLE code OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT code EQUAL 0)
  message(FATAL_ERROR "the list cannot be read (exit code ${code}):\n${err}")
endif()
string(REGEX REPLACE "\n$" "" out "${out}")
string(REPLACE "\n" ";" entries "${out}")
if(seed)
  list(POP_FRONT entries first)
  if(NOT first STREQUAL seed)
    message(FATAL_ERROR "the list starts with \"${first}\", not \"${seed}\"")
  endif()
endif()
list(LENGTH entries count)
math(EXPR wanted "${PROCESSES} * ${EDITS}")
set(failures "")
if(NOT count EQUAL wanted)
  string(APPEND failures "the list holds ${count} entries, not ${wanted}\n")
endif()
foreach(process RANGE 1 ${PROCESSES})
  set(added ${entries})
  list(FILTER added INCLUDE REGEX "^process ${process} edit [0-9]+$")
  set(expected)
  foreach(edit RANGE 1 ${EDITS})
    list(APPEND expected "process ${process} edit ${edit}")
  endforeach()
  if(NOT added STREQUAL expected)
    string(APPEND failures "process ${process}'s entries are\n  ${added}\nnot\n  ${expected}\n")
  endif()
endforeach()
if(NOT failures STREQUAL "")
  message(FATAL_ERROR "${failures}")
endif()
