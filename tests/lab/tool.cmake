# cmake -DTOOL=<tavlon12-lab> -P tool.cmake
# Runs the tool as a process: its status, its two outputs, and the definitions that it finds beside itself.

cmake_minimum_required(VERSION 3.25)

# input: what stands on standard input, or "". status, output, error: what must come; error is a part of the text.
function(expect input status output error)
    set(file "${CMAKE_CURRENT_BINARY_DIR}/tavlon12_lab_tool_input")
    file(WRITE "${file}" "${input}")
    execute_process(COMMAND "${TOOL}" ${ARGN} INPUT_FILE "${file}" WORKING_DIRECTORY /
        RESULT_VARIABLE got_status OUTPUT_VARIABLE got_output ERROR_VARIABLE got_error)
    file(REMOVE "${file}")
    string(FIND "${got_error}" "${error}" found)
    if(NOT got_status STREQUAL status OR NOT got_output STREQUAL output OR found EQUAL -1
            OR (error STREQUAL "" AND NOT got_error STREQUAL ""))
        message(SEND_ERROR "${ARGN}\nstatus ${got_status}\noutput ${got_output}\nerror ${got_error}")
    endif()
endfunction()

expect("" 0 "perft 1 11\nperft 2 121\nperft 3 1222\n" "" perft --depth 3)
expect("" 0 "perft 1 11\n" "" perft --depth 1 --variant "Canadian Checkers" --fast)
expect("" 2 "" "--depth \"21\": must be a whole number from 1 to 20\n" perft --depth 21)
expect("" 2 "" "No Such.ini: cannot be read\n" moves --variant "No Such")
expect("" 2 "" "no command")
expect("" 2 "" "batch takes no options" batch --fast)
expect("" 0 "" "" batch)
expect("perft --depth 1\nbad\nperft --depth 2" 0
    "perft 1 11\n.\nerror unknown command \"bad\", must be moves, perft, eval, search, bench, games, load or batch\n.\nperft 1 11\nperft 2 121\n.\n"
    "" batch)
