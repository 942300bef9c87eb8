# Sets qt_headers, qt_data, qt_tools and qt_version of the native Qt.
foreach(variable headers:QT_INSTALL_HEADERS data:QT_HOST_DATA tools:QT_HOST_BINS version:QT_VERSION)
    string(REGEX MATCH "(.*):(.*)" _ ${variable})
    set(name qt_${CMAKE_MATCH_1})
    execute_process(COMMAND qmake -qt5 -query ${CMAKE_MATCH_2}
        OUTPUT_VARIABLE ${name} OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
endforeach()
