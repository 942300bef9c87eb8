# Fails unless the libraries alone came, and no variable of the host changed.
all_variables(later_variables)
list(REMOVE_ITEM later_variables ${host_variables})
# Options of the libraries, and what project(), find_package() and FetchContent of CMake keep in the cache.
string(JOIN "|" expected VKSYSTEMINFO_ vkSystemInfo_ vksysteminfo_ CMAKE_PROJECT_VERSION FIND_PACKAGE_MESSAGE_DETAILS_
    NLOHMANN_JSON_HEADERS= _?Qt5 OPENGL_ OpenGL_ FETCHCONTENT_ _FetchContent)
list(FILTER later_variables EXCLUDE REGEX "^(${expected})")
if(later_variables)
    message(FATAL_ERROR "The libraries set variables of the host: ${later_variables}")
endif()

# targets_below(RESULT FOLDER): what CMake builds there and in its sub-folders
function(targets_below result folder)
    get_property(found DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
    foreach(below ${folders})
        targets_below(more ${below})
        list(APPEND found ${more})
    endforeach()
    set(${result} ${found} PARENT_SCOPE)
endfunction()
targets_below(targets ${sources})
set(allowed vkSystemInfo vkReports vksysteminfo_objects vksysteminfo_internal vksysteminfo_options win32api
    machine_description simulated_windows)
list(REMOVE_ITEM targets ${allowed})
if(targets)
    message(FATAL_ERROR "The libraries bring more targets: ${targets}")
endif()
get_property(tests DIRECTORY ${sources} PROPERTY TESTS)
if(tests OR CPack_CMake_INCLUDED OR TARGET package)
    message(FATAL_ERROR "The libraries bring tests or packages: ${tests}")
endif()
