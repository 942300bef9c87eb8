# Where the DLLs of a compiler are found: cmake -DFOLDER=... -P check_run_time_libraries.cmake
include(${CMAKE_CURRENT_LIST_DIR}/../../cmake/RunTimeLibraries.cmake)
file(REMOVE_RECURSE ${FOLDER})

# A compiler that finds known.dll, and repeats the name of any other file as GCC does
file(WRITE ${FOLDER}/bin/compiler "#!/bin/sh
case $1 in
  -print-file-name=known.dll) echo ${FOLDER}/gcc/known.dll ;;
  -print-file-name=*) echo \"\${1#*=}\" ;;
  *) exit 1 ;;
esac
")
file(CHMOD ${FOLDER}/bin/compiler PERMISSIONS OWNER_READ OWNER_EXECUTE OWNER_WRITE)
foreach(file gcc/known.dll bin/beside.dll root/usr/x86_64-w64-mingw32/lib/debian.dll)
    file(WRITE ${FOLDER}/${file} "")
endforeach()

function(expect compiler name expected)
    find_run_time_library(found ${FOLDER}/bin/${compiler} ${name} ${FOLDER}/root)
    if(NOT found STREQUAL expected)
        message(SEND_ERROR "${name} of ${compiler}: found '${found}', expected '${expected}'")
    endif()
endfunction()
expect(compiler known.dll ${FOLDER}/gcc/known.dll)
expect(compiler beside.dll ${FOLDER}/bin/beside.dll)
expect(compiler debian.dll ${FOLDER}/root/usr/x86_64-w64-mingw32/lib/debian.dll)
expect(compiler absent.dll "")
expect(absent_compiler known.dll "")
expect(absent_compiler beside.dll ${FOLDER}/bin/beside.dll)
file(REMOVE ${FOLDER}/gcc/known.dll) # the compiler names a file that does not exist
expect(compiler known.dll "")
file(WRITE ${FOLDER}/bin/known.dll "")
expect(compiler known.dll ${FOLDER}/bin/known.dll)
