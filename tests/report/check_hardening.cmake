# What Windows expects of a DLL today: laid out anew in the whole 64-bit address space at
# each start, data not executable, and no symbols carried along.
execute_process(COMMAND ${OBJDUMP} -p ${LIBRARY} OUTPUT_VARIABLE dump COMMAND_ERROR_IS_FATAL ANY)
foreach(flag HIGH_ENTROPY_VA DYNAMIC_BASE NX_COMPAT)
    if(NOT dump MATCHES "\n[ \t]+${flag}\n")
        message(FATAL_ERROR "${LIBRARY} lacks ${flag}")
    endif()
endforeach()
file(SIZE ${LIBRARY} size)
if(size GREATER_EQUAL 1048576)
    message(FATAL_ERROR "${LIBRARY} has ${size} bytes")
endif()
message(STATUS "hardened, ${size} bytes")
