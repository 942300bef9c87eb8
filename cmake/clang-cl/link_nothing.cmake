# Replaces the linker: creates empty files, on which other targets can depend.
set(CMAKE_CXX_LINK_EXECUTABLE "<CMAKE_COMMAND> -E touch <TARGET>")
set(CMAKE_CXX_CREATE_SHARED_LIBRARY "<CMAKE_COMMAND> -E touch <TARGET> <TARGET_IMPLIB>")
set(CMAKE_CXX_CREATE_SHARED_MODULE "<CMAKE_COMMAND> -E touch <TARGET>")
