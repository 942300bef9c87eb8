# The only place that chooses what implements the Windows calls of src/: the system
# libraries, or the simulated Windows over a described machine.
if(WIN32)
    add_library(win32api INTERFACE)
    target_link_libraries(win32api INTERFACE advapi32 iphlpapi psapi shell32 user32 kernel32 opengl32)
    # Windows 7 and later. The report uses calls that newer SDKs declare as deprecated.
    target_compile_definitions(win32api INTERFACE _WIN32_WINNT=0x0601 WINVER=0x0601 NOMINMAX)
else()
    add_library(win32api ALIAS simulated_windows)
endif()
