# Fails, or kills, a changing command at each of its file-system calls in
# turn (the preloaded library FileSystemFaults.cpp), for every call until the
# command completes, and checks what each run leaves behind:
#   - the file is byte for byte its old text (or still missing, for a file
#     that the command makes) or the command's new text;
#   - after a failure, the command exits 3 with a message (or exits 0 with
#     the new text, when the failing call was one whose failure does not
#     matter), and no file but the file and its lock file is left;
#   - after a kill, a leftover temporary file is not taken for the
#     configuration: check reads the file as valid, and the same command run
#     again succeeds.
# It prints the number of fault points of each command.
#
#   cmake -DCASE=<binary dir>/cases/file_system_faults.cmake -P FileSystemFaults.cmake
cmake_minimum_required(VERSION 3.25)
include(${CASE})

# One command line an entry, its words separated by spaces. patch.json and
# overlay.json lie beside the target; both can be applied again. A command
# with -o writes the file named after it; made.json does not exist before.
set(commands
  "set target.json /ProfileName changed"
  "unset target.json /ClientSetting/FailOpen"
  "add target.json /AdvancedRule/EnforceList/IPList 10.9.0.0/16"
  "remove target.json /AdvancedRule/EnforceList/IPList 0"
  "fmt target.json"
  "patch target.json patch.json"
  "merge -o target.json target.json overlay.json"
  "merge -o made.json target.json overlay.json")
set(patch_text "[
  { \"op\": \"replace\", \"path\": \"/ProfileName\", \"value\": \"changed\" },
  { \"op\": \"add\", \"path\": \"/AdvancedRule/EnforceList/IPList/0\", \"value\": \"10.9.0.0/16\" }
]")
set(overlay_text "{ \"ClientSetting\": { \"FailOpen\": null }, \"ProfileName\": \"changed\" }")
set(failures "")
set(mark ${WORK_DIR}/fault-made)

# A new folder that holds a copy of SAMPLE as target.json and the inputs.
function(prepare_folder folder)
  file(REMOVE_RECURSE ${folder})
  file(MAKE_DIRECTORY ${folder})
  file(COPY_FILE ${SAMPLE} ${folder}/target.json)
  file(WRITE ${folder}/patch.json "${patch_text}")
  file(WRITE ${folder}/overlay.json "${overlay_text}")
endfunction()

# Runs the tool in folder with the fault environment given after it.
function(run_tool folder)
  cmake_parse_arguments(arg "" "" "ENVIRONMENT;ARGUMENTS" ${ARGN})
  execute_process(COMMAND ${CMAKE_COMMAND} -E env ${arg_ENVIRONMENT} ${TOOL} ${arg_ARGUMENTS}
    WORKING_DIRECTORY ${folder} RESULT_VARIABLE code OUTPUT_VARIABLE out ERROR_VARIABLE err)
  set(code "${code}" PARENT_SCOPE)
  set(err "${err}" PARENT_SCOPE)
endfunction()

# The files in folder other than the target, the written file, their lock
# files and the inputs.
function(other_files folder variable)
  file(GLOB found LIST_DIRECTORIES true RELATIVE ${folder} ${folder}/* ${folder}/.*)
  list(REMOVE_ITEM found target.json target.json.lock ${output} ${output}.lock patch.json
       overlay.json)
  set(${variable} "${found}" PARENT_SCOPE)
endfunction()

# The text of the written file in folder, or "(missing)".
function(read_output folder variable)
  set(text "(missing)")
  if(EXISTS ${folder}/${output})
    file(READ ${folder}/${output} text)
  endif()
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()

foreach(line IN LISTS commands)
  string(REPLACE " " ";" command "${line}")
  list(GET command 0 name)
  set(output target.json)
  list(FIND command -o option)
  if(option GREATER -1)
    math(EXPR option "${option} + 1")
    list(GET command ${option} output)
  endif()
  if(NOT output STREQUAL "target.json")
    set(name "${name}-${output}")
  endif()
  string(REPLACE "." "\\." escaped "${output}")
  set(leftover "^(\\.${escaped}\\.zeltcfg-[A-Za-z0-9]+)?$")
  set(clean ${WORK_DIR}/${name}-expected)
  prepare_folder(${clean})
  run_tool(${clean} ARGUMENTS ${command})
  if(NOT code EQUAL 0)
    message(FATAL_ERROR "${name} fails without faults (${code}): ${err}")
  endif()
  set(old_text "(missing)")
  if(output STREQUAL "target.json")
    file(READ ${SAMPLE} old_text)
  endif()
  read_output(${clean} new_text)
  foreach(kind EIO ENOSPC EINTR KILL)
    set(point 1)
    while(TRUE)
      set(folder ${WORK_DIR}/${name}-${kind})
      prepare_folder(${folder})
      file(REMOVE ${mark})
      run_tool(${folder} ARGUMENTS ${command} ENVIRONMENT LD_PRELOAD=${FAULTS}
        ZELTCFG_FAULT_AT=${point} ZELTCFG_FAULT=${kind} ZELTCFG_FAULT_MARK=${mark})
      if(NOT EXISTS ${mark})
        break()  # the command completed before the call with this number
      endif()
      set(run "${name} with ${kind} at call ${point}")
      read_output(${folder} text)
      if(NOT text STREQUAL old_text AND NOT text STREQUAL new_text)
        string(APPEND failures "${run}: the file is neither the old nor the new text\n")
      endif()
      other_files(${folder} others)
      if(kind STREQUAL "KILL")
        if(NOT others MATCHES "${leftover}")
          string(APPEND failures "${run}: left ${others}\n")
        endif()
        set(code 0)
        if(NOT text STREQUAL "(missing)")
          run_tool(${folder} ARGUMENTS check ${output})
        endif()
        if(NOT code EQUAL 0)
          string(APPEND failures "${run}: check then fails (${code}): ${err}\n")
        endif()
        run_tool(${folder} ARGUMENTS ${command})
        if(NOT code EQUAL 0)
          string(APPEND failures "${run}: the command run again fails (${code}): ${err}\n")
        endif()
      else()
        if(NOT ((code EQUAL 3 AND NOT err STREQUAL "") OR
                (code EQUAL 0 AND err STREQUAL "" AND text STREQUAL new_text)))
          string(APPEND failures "${run}: exit code ${code}, message \"${err}\"\n")
        endif()
        if(others)
          string(APPEND failures "${run}: left ${others}\n")
        endif()
      endif()
      math(EXPR point "${point} + 1")
    endwhile()
    math(EXPR points "${point} - 1")
    message(STATUS "${name}: ${points} fault points with ${kind}")
  endforeach()
endforeach()
if(NOT failures STREQUAL "")
  message(FATAL_ERROR "${failures}")
endif()
