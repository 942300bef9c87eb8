# Compile options of this project: each target links vksysteminfo_options privately.
add_library(vksysteminfo_options INTERFACE)
target_compile_definitions(vksysteminfo_options INTERFACE
    QT_DEPRECATED_WARNINGS QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS UNICODE _UNICODE)

if(MSVC)
    target_compile_options(vksysteminfo_options INTERFACE /W4 /utf-8 /permissive-
        # C4996: the report's text depends on GetVersionEx(), which the Windows SDK declares as deprecated, and the C
        # library of MSVC declares standard functions, such as getenv(), as deprecated.
        /wd4996
        $<$<BOOL:${VKSYSTEMINFO_WERROR}>:/WX>)
    # Qt 5.15 uses iterators of namespace stdext, which Visual Studio 2022 17.8 and later declare as deprecated.
    target_compile_definitions(vksysteminfo_options INTERFACE _SILENCE_STDEXT_ARR_ITERS_DEPRECATION_WARNING)
else()
    target_compile_options(vksysteminfo_options INTERFACE -Wall -Wextra -Wpedantic
        $<$<BOOL:${VKSYSTEMINFO_WERROR}>:-Werror>)
endif()

if(VKSYSTEMINFO_SANITIZE)
    target_compile_options(vksysteminfo_options INTERFACE
        -fsanitize=${VKSYSTEMINFO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(vksysteminfo_options INTERFACE -fsanitize=${VKSYSTEMINFO_SANITIZE})
endif()
if(VKSYSTEMINFO_COVERAGE)
    target_compile_options(vksysteminfo_options INTERFACE --coverage -fno-inline)
    target_link_options(vksysteminfo_options INTERFACE --coverage)
endif()
if(VKSYSTEMINFO_FUZZ) # the assertions of the containers find errors that the sanitizers miss
    target_compile_options(vksysteminfo_options INTERFACE -fsanitize=fuzzer-no-link)
    target_compile_definitions(vksysteminfo_options INTERFACE _GLIBCXX_ASSERTIONS)
endif()
