# The archive of scripts/package --msvc-abi: the library, and what somebody with MSVC needs to check it.
install(TARGETS vkSystemInfo RUNTIME DESTINATION bin ARCHIVE DESTINATION lib)
install(FILES include/vkSystemInfo.h DESTINATION include)
install(DIRECTORY tests/msvc_abi/check/ DESTINATION check)
install(FILES LICENSE docs/msvc-abi.md DESTINATION .)
# Files that are read on Windows
foreach(file cmake/msvc-abi/package-README.txt scripts/check-msvc-abi.cmd)
    get_filename_component(name ${file} NAME)
    configure_file(${file} ${PROJECT_BINARY_DIR}/package/${name} @ONLY NEWLINE_STYLE WIN32)
endforeach()
install(FILES ${PROJECT_BINARY_DIR}/package/package-README.txt DESTINATION . RENAME README.txt)
install(FILES ${PROJECT_BINARY_DIR}/package/check-msvc-abi.cmd DESTINATION .)

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_SOURCE_DIR}/dist)
set(CPACK_PACKAGE_FILE_NAME vkSystemInfo-${PROJECT_VERSION}-win64-msvc-experimental)
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
include(CPack)
