# clang-cl for 64-bit Windows in MSVC's ABI, shared by the toolchain files that use it. The headers
# are those of libc++, mingw-w64 and the native Qt; run_time/ declares MSVC's C++ run time.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
set(CMAKE_CXX_COMPILER clang-cl-14)
set(CMAKE_CXX_COMPILER_TARGET x86_64-pc-windows-msvc)
set(CMAKE_RC_COMPILER llvm-rc-14)
set(CMAKE_AR llvm-lib-14)

# ccache does not support some of these options and would compile each source three times.
unset(ENV{CMAKE_CXX_COMPILER_LAUNCHER})

# The package files of the native Qt look for libraries of this machine.
set(Qt5_DIR ${CMAKE_CURRENT_LIST_DIR})

set(CMAKE_RC_FLAGS_INIT "-I /usr/share/mingw-w64/include")

string(JOIN " " CMAKE_CXX_FLAGS_INIT
    -fms-compatibility-version=19.29 # Visual Studio 2019
    /Zc:twoPhase
    # mingw-w64's headers require a GCC version. Their intrin.h must be found before clang's,
    # which conflicts with their other headers: -isystem has this order, -imsvc does not.
    /clang:-fgnuc-version=4.2.1
    /X /clang:-nostdinc++
    "/clang:-isystem\"${CMAKE_CURRENT_LIST_DIR}/run_time\""
    /clang:-isystem/usr/lib/llvm-14/include/c++/v1
    /clang:-isystem/usr/share/mingw-w64/include
    # Nothing of libc++ is imported from a DLL.
    -D_UCRT -D_LIBCPP_DISABLE_VISIBILITY_ANNOTATIONS
    "/FI\"${CMAKE_CURRENT_LIST_DIR}/msvc_declarations.h\""
    # GCC extensions, except one that MSVC has too and QSKIP() needs
    -Wpedantic -Wgnu -Wno-gnu-zero-variadic-macro-arguments
    # Conversions that lose data: C4244, C4267, C4305
    -Wshorten-64-to-32 -Wimplicit-int-conversion -Wimplicit-int-float-conversion -Wfloat-conversion
    # Hidden declarations: C4456 to C4459
    -Wshadow-all)
