# Runs one zeltcfg test case: copies its samples into a fresh folder of its
# own, runs its steps there (each a zeltcfg command line) and compares the
# standard output, standard error and exit codes of all steps with
# expected/<name>.out, .err and .code (a missing .out or .err means empty).
# It also checks what a step must leave behind: a file byte for byte as it
# was (UNCHANGED) or as expected/<name>.json (RESULT), its permissions (MODE)
# and no other file in the folder or below it than the samples, the RESULT
# file (which a step may make) and the lock file that a changing command
# leaves beside each of these and beside the LOCKED file (<file>.lock).
#
#   cmake -DCASE=<binary dir>/cases/<name>.cmake -P RunCase.cmake
#
# With ZELTCFG_UPDATE_EXPECTED=1 in the environment the expected files are
# written from this run instead (review the difference before committing).
cmake_minimum_required(VERSION 3.25)
include(${CASE})

set(update "$ENV{ZELTCFG_UPDATE_EXPECTED}")
set(expected ${EXPECTED_DIR}/${NAME})
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
set(sample_names ${NAMES})
foreach(sample sample_name IN ZIP_LISTS SAMPLES NAMES)
  get_filename_component(sample_folder ${WORK_DIR}/${sample_name} DIRECTORY)
  file(MAKE_DIRECTORY ${sample_folder})
  file(COPY_FILE ${sample} ${WORK_DIR}/${sample_name})
endforeach()
if(MODE)
  execute_process(COMMAND chmod ${MODE} ${WORK_DIR}/${MODE_FILE} COMMAND_ERROR_IS_FATAL ANY)
endif()

set(launcher)
if(FILE_SIZE_LIMIT_ZERO)
  # No file can grow under this limit, for root as for anyone: every save
  # fails while it writes.
  set(launcher sh -c "ulimit -f 0 && exec \"$0\" \"$@\"")
endif()
# The words as one shell command line, each in single quotes.
function(quote_for_shell variable)
  set(line)
  foreach(word IN LISTS ARGN)
    string(REPLACE "'" "'\\''" word "${word}")
    string(APPEND line "'${word}' ")
  endforeach()
  set(${variable} "${line}" PARENT_SCOPE)
endfunction()

if(LOCK_HOLDER)
  # flock(1) holds the lock on the lock file while it runs the step.
  set(launcher ${LOCK_HOLDER})
endif()
if(SCREEN)
  # The tool writes to a console: script(1) gives it a pseudo-terminal, and
  # what it wrote is read back from the console's screen (SCREEN).
  quote_for_shell(TOOL ${TOOL})
  set(launcher script -qec)
endif()
set(input)
if(STDIN)
  set(input INPUT_FILE ${STDIN})
endif()

set(all_out "")
set(all_err "")
set(all_codes "")
list(APPEND STEPS THEN)
set(step)
foreach(word IN LISTS STEPS)
  if(NOT word STREQUAL "THEN")
    list(APPEND step "${word}")
    continue()
  endif()
  if(SCREEN)
    quote_for_shell(words ${step})
    file(REMOVE ${SCREEN})
    execute_process(COMMAND ${launcher} "${TOOL}${words}" /dev/null
      WORKING_DIRECTORY ${WORK_DIR} INPUT_FILE /dev/null
      OUTPUT_QUIET ERROR_VARIABLE err RESULT_VARIABLE code)
    file(READ ${SCREEN} out)
    file(REMOVE ${SCREEN})
  else()
    execute_process(COMMAND ${launcher} ${TOOL} ${step}
      WORKING_DIRECTORY ${WORK_DIR} ${input}
      OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE code)
  endif()
  string(APPEND all_out "${out}")
  string(APPEND all_err "${err}")
  string(APPEND all_codes "${code}\n")
  set(step)
endforeach()

set(failures "")
function(compare what actual file)
  if(update)
    if(actual STREQUAL "" AND NOT file MATCHES "\\.code$")
      file(REMOVE ${file})
    else()
      file(WRITE ${file} "${actual}")
    endif()
    return()
  endif()
  set(wanted "")
  if(EXISTS ${file})
    file(READ ${file} wanted)
  endif()
  if(NOT actual STREQUAL wanted)
    string(APPEND failures "${what} differs from ${file}\n--- expected\n${wanted}\n--- actual\n${actual}\n")
    set(failures "${failures}" PARENT_SCOPE)
  endif()
endfunction()

compare("standard output" "${all_out}" ${expected}.out)
compare("standard error" "${all_err}" ${expected}.err)
compare("exit codes" "${all_codes}" ${expected}.code)

if(UNCHANGED)
  list(FIND sample_names "${UNCHANGED}" index)
  list(GET SAMPLES ${index} original)
  file(SHA256 ${original} before)
  file(SHA256 "${WORK_DIR}/${UNCHANGED}" after)
  if(NOT before STREQUAL after)
    string(APPEND failures "${UNCHANGED} was changed; it must stay byte for byte as it was\n")
  endif()
endif()
if(RESULT)
  file(READ "${WORK_DIR}/${RESULT}" result_text)
  compare("${RESULT}" "${result_text}" ${expected}.json)
endif()
if(MODE)
  execute_process(COMMAND stat -c %a ${WORK_DIR}/${MODE_FILE} OUTPUT_VARIABLE mode
                  OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT mode STREQUAL MODE)
    string(APPEND failures "${MODE_FILE} has mode ${mode}, not ${MODE}\n")
  endif()
endif()

file(GLOB_RECURSE left LIST_DIRECTORIES true RELATIVE ${WORK_DIR} ${WORK_DIR}/*)
set(written ${sample_names} ${RESULT})
set(kept ${written})
foreach(sample_name IN LISTS written LOCKED)
  if(EXISTS "${WORK_DIR}/${sample_name}.lock")
    list(APPEND kept "${sample_name}.lock")
  endif()
  get_filename_component(folder "${sample_name}" DIRECTORY)
  while(folder)
    list(APPEND kept "${folder}")
    get_filename_component(folder "${folder}" DIRECTORY)
  endwhile()
endforeach()
list(REMOVE_DUPLICATES kept)
list(SORT left)
list(SORT kept)
if(NOT "${left}" STREQUAL "${kept}")
  string(APPEND failures "the folder holds ${left}, not only ${kept}\n")
endif()

if(NOT failures STREQUAL "")
  message(FATAL_ERROR "${failures}")
endif()
