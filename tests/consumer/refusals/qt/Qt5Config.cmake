# A Qt that has a version and nothing else.
set(Qt5Core_VERSION ${QT})
if(NOT TARGET Qt5::Core)
    add_library(Qt5::Core INTERFACE IMPORTED)
endif()
