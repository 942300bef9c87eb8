# Compares what LIBRARY exports with the lines of EXPECTED. Both ways are failures:
# a function that is missing and one that slipped out.
if(WINDOWS)
    execute_process(COMMAND ${OBJDUMP} -p ${LIBRARY} OUTPUT_VARIABLE dump COMMAND_ERROR_IS_FATAL ANY)
    # "[ 0] +base[ 1] 0000 _ZN..." below "[Ordinal/Name Pointer] Table"
    string(FIND "${dump}" "[Ordinal/Name Pointer] Table" start)
    if(start EQUAL -1)
        message(FATAL_ERROR "${LIBRARY} has no export table")
    endif()
    string(SUBSTRING "${dump}" ${start} -1 dump)
    string(FIND "${dump}" "\n\n" end)
    string(SUBSTRING "${dump}" 0 ${end} dump)
    string(REGEX MATCHALL "\n[^\n]*\\[ *[0-9]+\\][^\n]*" lines "${dump}")
    set(mangled "")
    foreach(line IN LISTS lines)
        string(REGEX REPLACE ".*[ \t]([^ \t]+)$" "\\1" name "${line}")
        string(APPEND mangled "${name}\n")
    endforeach()
else()
    execute_process(COMMAND ${NM} -D --defined-only --format=posix ${LIBRARY} OUTPUT_VARIABLE dump
                    COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX REPLACE "([^ \n]+) [^\n]*\n" "\\1\n" mangled "${dump}")
endif()

find_program(CXXFILT NAMES c++filt REQUIRED)
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/exports.mangled "${mangled}")
execute_process(COMMAND ${CXXFILT} INPUT_FILE ${CMAKE_CURRENT_BINARY_DIR}/exports.mangled
                OUTPUT_VARIABLE exported COMMAND_ERROR_IS_FATAL ANY)

string(STRIP "${exported}" exported)
string(REPLACE "\n" ";" exported "${exported}")
list(SORT exported)
file(STRINGS ${EXPECTED} expected)
list(SORT expected)

set(surplus ${exported})
list(REMOVE_ITEM surplus ${expected})
set(missing ${expected})
list(REMOVE_ITEM missing ${exported})
if(surplus OR missing)
    message(FATAL_ERROR "exported though not public: ${surplus}\npublic but not exported: ${missing}")
endif()
list(LENGTH exported count)
message(STATUS "exactly the ${count} public functions are exported")
