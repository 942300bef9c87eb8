# A compiler for 32-bit programs. There need not be libraries to link with.
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
set(CMAKE_CXX_FLAGS_INIT -m32)
