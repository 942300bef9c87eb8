# add_windows_resources(PROGRAM DESCRIPTION [MANIFEST])
# Adds a version, the icon and a manifest to a program: manifest/program.manifest, or manifest/MANIFEST.manifest. Does
# nothing on other systems.
set(program_resources_dir ${CMAKE_CURRENT_LIST_DIR})

function(add_windows_resources program description)
    if(NOT WIN32)
        return()
    endif()
    set(manifest program)
    if(ARGC GREATER 2)
        set(manifest ${ARGV2})
    endif()
    add_version_resource(${program} VFT_APP "${description}")
    target_sources(${program} PRIVATE ${program_resources_dir}/icon/program_icon.rc)
    if(MSVC) # MSVC's linker adds a manifest of its own; CMake merges both
        target_sources(${program} PRIVATE ${program_resources_dir}/manifest/${manifest}.manifest)
    else()
        target_sources(${program} PRIVATE ${program_resources_dir}/manifest/${manifest}_manifest.rc)
    endif()
    set_source_files_properties(${program_resources_dir}/icon/program_icon.rc
        PROPERTIES OBJECT_DEPENDS ${program_resources_dir}/icon/program.ico)
    set_source_files_properties(${program_resources_dir}/manifest/${manifest}_manifest.rc
        PROPERTIES OBJECT_DEPENDS ${program_resources_dir}/manifest/${manifest}.manifest)
    target_include_directories(${program} PRIVATE ${program_resources_dir}/icon ${program_resources_dir}/manifest)
endfunction()
