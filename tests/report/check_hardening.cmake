# Fails unless LIBRARY has ASLR with 64-bit entropy and DEP, and is stripped of symbols, which
# its size shows.
execute_process(COMMAND ${OBJDUMP} -p ${LIBRARY} OUTPUT_VARIABLE dump COMMAND_ERROR_IS_FATAL ANY)
foreach(flag HIGH_ENTROPY_VA DYNAMIC_BASE NX_COMPAT)
    if(NOT dump MATCHES "\n[ \t]+${flag}\n")
        message(FATAL_ERROR "${LIBRARY} lacks ${flag}")
    endif()
endforeach()
file(SIZE ${LIBRARY} size)
if(size GREATER_EQUAL 1048576) # a library with symbols is larger than 1 MiB
    message(FATAL_ERROR "${LIBRARY} has ${size} bytes")
endif()
message(STATUS "hardened, ${size} bytes")
