# Install rules, and the archives of scripts/package: an SDK for developers of hosts, the
# portable programs with all DLLs that they need, and the symbols.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/vkSystemInfo)
install(TARGETS vkSystemInfo vkReports EXPORT vkSystemInfoTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT sdk
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT sdk
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT sdk)
install(FILES include/vkSystemInfo.h include/vkReports.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT sdk)
install(EXPORT vkSystemInfoTargets NAMESPACE vkSystemInfo:: DESTINATION ${package_dir} COMPONENT sdk)
configure_package_config_file(cmake/vkSystemInfoConfig.cmake.in ${PROJECT_BINARY_DIR}/vkSystemInfoConfig.cmake
    INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vkSystemInfoConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/vkSystemInfoConfig.cmake ${PROJECT_BINARY_DIR}/vkSystemInfoConfigVersion.cmake
    DESTINATION ${package_dir} COMPONENT sdk)
install(FILES LICENSE README.md CHANGELOG.md DESTINATION . COMPONENT sdk)
install(DIRECTORY docs DESTINATION . COMPONENT sdk PATTERN man EXCLUDE)

# The programs with their manual pages and the completion of bash. They find the library of the SDK.
set(programs)
set(modules)
if(VKSYSTEMINFO_APPS)
    set(programs vkreport vkcompare)
    set(modules vkreport_library vkreport_sections)
    set_target_properties(${programs} PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
    install(TARGETS ${programs} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT sdk)
    install(DIRECTORY docs/man/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT sdk)
    install(DIRECTORY completions/ DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT sdk)
endif()
# Windows finds the library of a module in the program's folder.
if(WIN32)
    set(module_dir ${CMAKE_INSTALL_BINDIR})
else()
    set(module_dir ${CMAKE_INSTALL_LIBDIR}/vkSystemInfo)
    if(modules)
        set_target_properties(${modules} PROPERTIES INSTALL_RPATH "$ORIGIN/..")
    endif()
endif()
if(modules)
    install(TARGETS ${modules} LIBRARY DESTINATION ${module_dir} COMPONENT sdk)
endif()
if(CMAKE_STRIP)
    set(stripped)
    foreach(program ${programs})
        list(APPEND stripped ${CMAKE_INSTALL_BINDIR}/${program}${CMAKE_EXECUTABLE_SUFFIX})
    endforeach()
    foreach(module ${modules})
        list(APPEND stripped ${module_dir}/${module}${CMAKE_SHARED_MODULE_SUFFIX})
    endforeach()
    foreach(file ${stripped})
        install(CODE "execute_process(COMMAND \"${CMAKE_STRIP}\" \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${file}\"
            COMMAND_ERROR_IS_FATAL ANY)" COMPONENT sdk)
    endforeach()
endif()

if(MINGW)
    # Debug information would make up most of the SDK.
    install(CODE "set(folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}\")
        execute_process(COMMAND ${CMAKE_STRIP} --strip-debug \"\${folder}/${CMAKE_INSTALL_LIBDIR}/$<TARGET_FILE_NAME:vkReports>\"
            COMMAND_ERROR_IS_FATAL ANY)" COMPONENT sdk)
    install(FILES $<TARGET_FILE:vkSystemInfo>.debug DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT symbols)

    # The portable folder contains Qt and the run-time libraries of the compiler.
    get_target_property(qmake Qt5::qmake IMPORTED_LOCATION)
    get_filename_component(qt_bin ${qmake} DIRECTORY)
    set(run_time)
    foreach(module Core Gui Widgets Network PrintSupport OpenGL)
        list(APPEND run_time ${qt_bin}/Qt5${module}.dll)
    endforeach()
    foreach(library libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
            OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
        if(NOT IS_ABSOLUTE ${file}) # Debian installs libwinpthread in another folder
            find_file(file_of_${library} ${library} PATHS /usr/x86_64-w64-mingw32/lib NO_DEFAULT_PATH REQUIRED
                      NO_CMAKE_FIND_ROOT_PATH)
            set(file ${file_of_${library}})
        endif()
        list(APPEND run_time ${file})
    endforeach()
    install(TARGETS ${programs} vkcapture ${modules}
        RUNTIME DESTINATION . COMPONENT portable LIBRARY DESTINATION . COMPONENT portable)
    install(DIRECTORY docs DESTINATION . COMPONENT portable PATTERN man EXCLUDE)
    install(FILES $<TARGET_FILE:vkSystemInfo> ${run_time} LICENSE DESTINATION . COMPONENT portable)
    # The symbols of vkSystemInfo.dll are an archive of their own; the others are not shipped.
    install(CODE "file(GLOB libraries \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/lib*.dll\" \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/vkreport_*.dll\" \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/*.exe\")
        execute_process(COMMAND ${CMAKE_STRIP} \${libraries} COMMAND_ERROR_IS_FATAL ANY)" COMPONENT portable)
    foreach(plugin platforms/qwindows platforms/qminimal printsupport/windowsprintersupport styles/qwindowsvistastyle)
        get_filename_component(folder ${plugin} DIRECTORY)
        install(FILES ${qt_bin}/../plugins/${plugin}.dll DESTINATION ${folder} COMPONENT portable)
    endforeach()
    install(FILES cmake/portable-README.txt DESTINATION . RENAME README.txt COMPONENT portable)
endif()

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_VENDOR velkor)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_SOURCE_DIR}/dist)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
set(CPACK_STRIP_FILES OFF)
if(WIN32)
    set(CPACK_SYSTEM_NAME win64)
endif()
set(CPACK_ARCHIVE_SDK_FILE_NAME vkSystemInfo-${PROJECT_VERSION}-${CPACK_SYSTEM_NAME}-sdk)
set(CPACK_ARCHIVE_PORTABLE_FILE_NAME vkreport-${PROJECT_VERSION}-${CPACK_SYSTEM_NAME}-portable)
set(CPACK_ARCHIVE_SYMBOLS_FILE_NAME vkSystemInfo-${PROJECT_VERSION}-${CPACK_SYSTEM_NAME}-symbols)
include(CPack)
