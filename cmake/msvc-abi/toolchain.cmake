# Builds vkSystemInfo.dll in MSVC's ABI with clang-cl and lld, without a library of MSVC or Qt:
# import libraries are made from names (make_import_libraries), and run_time.cpp is the part of
# MSVC's run time that a DLL contains. Experimental: see docs/msvc-abi.md.
include(${CMAKE_CURRENT_LIST_DIR}/../clang-cl/compiler.cmake)
set(CMAKE_LINKER lld-link-14)
set(CMAKE_USER_MAKE_RULES_OVERRIDE_CXX ${CMAKE_CURRENT_LIST_DIR}/link_rules.cmake)
set(CMAKE_CXX_FLAGS_INIT "${CMAKE_CXX_FLAGS_INIT} /GS-") # run_time.cpp has no stack cookies
set(VKSYSTEMINFO_MSVC_ABI ON)
