# Stands in for the functions of vcpkg that the port calls, and does what their documentation says. A function of
# a helper port exists only if the port depends on that helper port for the host.

function(require_arguments caller)
    foreach(name IN LISTS ARGN)
        if("${arg_${name}}" STREQUAL "")
            message(FATAL_ERROR "${caller}: ${name} is missing")
        endif()
    endforeach()
    if(DEFINED arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "${caller}: unknown arguments ${arg_UNPARSED_ARGUMENTS}")
    endif()
    set_property(GLOBAL APPEND PROPERTY called_functions ${caller})
endfunction()

if(vcpkg-cmake IN_LIST host_dependencies)
    function(vcpkg_cmake_configure)
        cmake_parse_arguments(PARSE_ARGV 0 arg "" SOURCE_PATH "OPTIONS;OPTIONS_RELEASE;OPTIONS_DEBUG")
        require_arguments(vcpkg_cmake_configure SOURCE_PATH)
        foreach(configuration IN ITEMS Release Debug)
            string(TOUPPER ${configuration} upper)
            set(prefix ${CURRENT_PACKAGES_DIR})
            if(configuration STREQUAL Debug)
                string(APPEND prefix /debug)
            endif()
            execute_process(
                COMMAND ${CMAKE_COMMAND} -S "${arg_SOURCE_PATH}" -B "${CURRENT_BUILDTREES_DIR}/${configuration}" -G Ninja
                    -DCMAKE_DISABLE_SOURCE_CHANGES=ON
                    -DCMAKE_BUILD_TYPE=${configuration}
                    -DBUILD_SHARED_LIBS=ON
                    "-DCMAKE_INSTALL_PREFIX=${prefix}"
                    -DCMAKE_EXPORT_NO_PACKAGE_REGISTRY=ON
                    -DCMAKE_FIND_PACKAGE_NO_PACKAGE_REGISTRY=ON
                    -DCMAKE_FIND_PACKAGE_NO_SYSTEM_PACKAGE_REGISTRY=ON
                    -DCMAKE_INSTALL_SYSTEM_RUNTIME_LIBS_SKIP=TRUE
                    -DCMAKE_ERROR_ON_ABSOLUTE_INSTALL_DESTINATION=ON
                    -DCMAKE_INSTALL_LIBDIR:STRING=lib
                    -DCMAKE_INSTALL_BINDIR:STRING=bin
                    ${VCPKG_CMAKE_CONFIGURE_OPTIONS}
                    ${arg_OPTIONS} ${arg_OPTIONS_${upper}}
                ERROR_VARIABLE messages COMMAND_ERROR_IS_FATAL ANY)
            foreach(option IN LISTS arg_OPTIONS arg_OPTIONS_${upper})
                string(REGEX REPLACE "^-D([^=:]+).*" "\\1" name "${option}")
                if(messages MATCHES "not used by the project.*\n +${name}\n")
                    message(FATAL_ERROR "The project does not use ${option}")
                endif()
            endforeach()
        endforeach()
    endfunction()

    function(vcpkg_cmake_install)
        cmake_parse_arguments(PARSE_ARGV 0 arg "DISABLE_PARALLEL;ADD_BIN_TO_PATH" "" "")
        require_arguments(vcpkg_cmake_install)
        foreach(configuration IN ITEMS Debug Release)
            execute_process(
                COMMAND ${CMAKE_COMMAND} --build "${CURRENT_BUILDTREES_DIR}/${configuration}" --target install -j 2
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
        endforeach()
    endfunction()
endif()

if(vcpkg-cmake-config IN_LIST host_dependencies)
    function(vcpkg_cmake_config_fixup)
        cmake_parse_arguments(PARSE_ARGV 0 arg "" "PACKAGE_NAME;CONFIG_PATH" "")
        require_arguments(vcpkg_cmake_config_fixup)
        if(NOT DEFINED arg_PACKAGE_NAME)
            set(arg_PACKAGE_NAME ${PORT})
        endif()
        if(NOT DEFINED arg_CONFIG_PATH)
            set(arg_CONFIG_PATH share/${arg_PACKAGE_NAME})
        endif()
        set(from ${CURRENT_PACKAGES_DIR}/${arg_CONFIG_PATH})
        set(from_debug ${CURRENT_PACKAGES_DIR}/debug/${arg_CONFIG_PATH})
        set(to ${CURRENT_PACKAGES_DIR}/share/${arg_PACKAGE_NAME})
        foreach(folder IN LISTS from from_debug)
            file(GLOB configs "${folder}/*[Cc]onfig.cmake")
            if(NOT configs)
                message(FATAL_ERROR "No CMake package is in ${folder}")
            endif()
        endforeach()

        # The files of both configurations become one package, and other files of Debug go.
        if(NOT from STREQUAL to)
            file(MAKE_DIRECTORY "${to}")
            file(GLOB files "${from}/*")
            file(COPY ${files} DESTINATION "${to}")
            file(REMOVE_RECURSE "${from}")
        endif()
        file(GLOB debug_targets "${from_debug}/*[Tt]argets-debug.cmake")
        file(COPY ${debug_targets} DESTINATION "${to}")
        file(REMOVE_RECURSE "${from_debug}")
        foreach(folder IN LISTS from from_debug)
            get_filename_component(parent "${folder}" DIRECTORY)
            get_filename_component(name "${parent}" NAME)
            if(name STREQUAL cmake)
                file(REMOVE_RECURSE "${parent}")
            endif()
        endforeach()

        # The targets find the prefix from their new place.
        file(GLOB files "${to}/*[Tt]argets.cmake")
        foreach(file IN LISTS files)
            file(READ "${file}" text)
            set(up [[get_filename_component(_IMPORT_PREFIX "${_IMPORT_PREFIX}" PATH)]])
            string(REGEX REPLACE "(get_filename_component\\(_IMPORT_PREFIX \"[^\"]*\" PATH\\)\n)+" "@up@" text "${text}")
            string(REPLACE "@up@" "get_filename_component(_IMPORT_PREFIX \"\${CMAKE_CURRENT_LIST_FILE}\" PATH)\n${up}\n${up}\n"
                text "${text}")
            file(WRITE "${file}" "${text}")
        endforeach()
        file(GLOB files "${to}/*[Tt]argets-debug.cmake")
        foreach(file IN LISTS files)
            file(READ "${file}" text)
            string(REGEX REPLACE "{_IMPORT_PREFIX}/(lib|bin)/" "{_IMPORT_PREFIX}/debug/\\1/" text "${text}")
            file(WRITE "${file}" "${text}")
        endforeach()
    endfunction()
endif()

# Compilers other than MSVC write no PDB, so this finds nothing to copy here.
function(vcpkg_copy_pdbs)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "" BUILD_PATHS)
    require_arguments(vcpkg_copy_pdbs)
    file(GLOB pdbs "${CURRENT_BUILDTREES_DIR}/*/*.pdb")
    if(pdbs)
        message(FATAL_ERROR "This build has PDB files: ${pdbs}")
    endif()
endfunction()

# Merging several files is not needed.
function(vcpkg_install_copyright)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" COMMENT FILE_LIST)
    require_arguments(vcpkg_install_copyright FILE_LIST)
    list(LENGTH arg_FILE_LIST count)
    if(NOT count EQUAL 1 OR DEFINED arg_COMMENT)
        message(FATAL_ERROR "vcpkg_install_copyright: one file and no comment is all that this function knows")
    endif()
    file(MAKE_DIRECTORY "${CURRENT_PACKAGES_DIR}/share/${PORT}")
    configure_file("${arg_FILE_LIST}" "${CURRENT_PACKAGES_DIR}/share/${PORT}/copyright" COPYONLY)
endfunction()
