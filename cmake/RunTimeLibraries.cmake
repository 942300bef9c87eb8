# find_run_time_library(RESULT COMPILER NAME [ROOT])
# Sets RESULT to the DLL of the compiler's run-time library with this name, or to nothing. MSYS2 and Qt's MinGW
# install it beside the compiler; a cross-compiler knows where it is; Debian has libwinpthread in another folder,
# below ROOT if that is given.
function(find_run_time_library result compiler name)
    get_filename_component(folder "${compiler}" DIRECTORY)
    execute_process(COMMAND "${compiler}" -print-file-name=${name}
        OUTPUT_VARIABLE printed OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    set(${result} "" PARENT_SCOPE)
    foreach(file "${folder}/${name}" "${printed}" "${ARGN}/usr/x86_64-w64-mingw32/lib/${name}")
        if(IS_ABSOLUTE "${file}" AND EXISTS "${file}")
            set(${result} "${file}" PARENT_SCOPE)
            return()
        endif()
    endforeach()
endfunction()
