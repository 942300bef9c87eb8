# Links targets in MSVC's ABI with the import libraries and the run time of this folder.
include(${PROJECT_SOURCE_DIR}/cmake/clang-cl/query_qt.cmake)
set(msvc_abi_dir ${CMAKE_CURRENT_LIST_DIR})
set(msvc_abi_qt_headers ${qt_headers})

add_library(msvc_run_time OBJECT ${msvc_abi_dir}/run_time.cpp)
set_target_properties(msvc_run_time PROPERTIES AUTOMOC OFF)
target_link_libraries(msvc_run_time PRIVATE vksysteminfo_options)

# link_in_msvc_abi(TARGET OBJECT_LIBRARY [LIBRARY...])
# Links the target from the objects of the library, the import libraries of the given shared libraries of
# this build, and import libraries for what else they need. Sets msvc_abi_imports_TARGET to a file with a line "DLL NAME" for each import.
function(link_in_msvc_abi target object_library)
    set(output ${CMAKE_CURRENT_BINARY_DIR}/${target}.imports)
    set(list ${CMAKE_CURRENT_BINARY_DIR}/${target}.objects.txt)
    set(provided)
    foreach(library ${ARGN})
        list(APPEND provided $<TARGET_LINKER_FILE:${library}>)
    endforeach()
    set(objects $<TARGET_OBJECTS:${object_library}> $<TARGET_OBJECTS:msvc_run_time>)
    file(GENERATE OUTPUT ${list} CONTENT "$<JOIN:${objects},\n>\n")
    add_custom_command(OUTPUT ${output}/link.rsp ${output}/imports.txt
        COMMAND ${msvc_abi_dir}/make_import_libraries --qt-headers ${msvc_abi_qt_headers} --output ${output}
                --objects ${list} --provided ${provided}
        DEPENDS ${objects} ${list} ${ARGN} ${msvc_abi_dir}/make_import_libraries
        COMMENT "Making the import libraries of ${target}" VERBATIM)
    add_custom_target(${target}_imports DEPENDS ${output}/link.rsp)
    add_dependencies(${target} ${target}_imports)
    target_link_libraries(${target} PRIVATE ${object_library} msvc_run_time)
    target_link_options(${target} PRIVATE @${output}/link.rsp ${provided})
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${output}/link.rsp)
    set(msvc_abi_imports_${target} ${output}/imports.txt PARENT_SCOPE)
endfunction()
