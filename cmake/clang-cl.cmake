# Compiles for 64-bit Windows in MSVC's ABI with clang-cl, to check the sources. Nothing is
# linked: programs and shared libraries become empty files.
include(${CMAKE_CURRENT_LIST_DIR}/clang-cl/compiler.cmake)
set(CMAKE_USER_MAKE_RULES_OVERRIDE_CXX ${CMAKE_CURRENT_LIST_DIR}/clang-cl/link_nothing.cmake)
