# Qt for compilation only: headers and moc of the native Qt. The package files of the native
# Qt cannot be used, because they look for its libraries.
include(${CMAKE_CURRENT_LIST_DIR}/query_qt.cmake)

set(Qt5Core_VERSION ${qt_version})
set(Qt5Core_VERSION_MAJOR 5)
string(REGEX REPLACE "^5\\.([0-9]+)\\..*" "\\1" Qt5Core_VERSION_MINOR ${qt_version})

foreach(tool moc rcc)
    if(NOT TARGET Qt5::${tool})
        add_executable(Qt5::${tool} IMPORTED)
        set_target_properties(Qt5::${tool} PROPERTIES IMPORTED_LOCATION ${qt_tools}/${tool})
    endif()
endforeach()

function(add_qt_module name)
    if(TARGET Qt5::${name})
        return()
    endif()
    string(TOUPPER ${name} upper_name)
    add_library(Qt5::${name} INTERFACE IMPORTED)
    target_include_directories(Qt5::${name} INTERFACE ${qt_headers} ${qt_headers}/Qt${name})
    target_compile_definitions(Qt5::${name} INTERFACE QT_${upper_name}_LIB)
    target_link_libraries(Qt5::${name} INTERFACE ${ARGN})
endfunction()

add_qt_module(Core)
# qplatformdefs.h for the C library headers of mingw-w64
target_include_directories(Qt5::Core INTERFACE ${qt_data}/mkspecs/win32-g++)
add_qt_module(Gui Qt5::Core)
add_qt_module(Widgets Qt5::Gui)
add_qt_module(Network Qt5::Core)
add_qt_module(PrintSupport Qt5::Widgets)
add_qt_module(OpenGL Qt5::Widgets)
add_qt_module(Test Qt5::Core)
target_compile_definitions(Qt5::Core INTERFACE $<$<NOT:$<CONFIG:Debug>>:QT_NO_DEBUG>)
set_target_properties(Qt5::Core PROPERTIES INTERFACE_QT_MAJOR_VERSION 5)

set(Qt5Core_PRIVATE_INCLUDE_DIRS ${qt_headers}/QtCore/${qt_version} ${qt_headers}/QtCore/${qt_version}/QtCore)
set(Qt5Gui_PRIVATE_INCLUDE_DIRS
    ${Qt5Core_PRIVATE_INCLUDE_DIRS} ${qt_headers}/QtGui/${qt_version} ${qt_headers}/QtGui/${qt_version}/QtGui)

foreach(component ${Qt5_FIND_COMPONENTS})
    if(NOT TARGET Qt5::${component})
        set(Qt5_FOUND FALSE)
        set(Qt5_NOT_FOUND_MESSAGE "${CMAKE_CURRENT_LIST_FILE} does not define Qt5::${component}")
    endif()
endforeach()
