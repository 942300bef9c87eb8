# The one place that decides who answers the Windows calls of src/: the system
# itself, or a simulated Windows that knows what a machine description says.
if(WIN32)
    add_library(win32api INTERFACE)
    target_link_libraries(win32api INTERFACE advapi32 iphlpapi psapi shell32 user32 kernel32 opengl32)
    # Windows 7 and later; the calls that newer SDKs call deprecated are the report's own.
    target_compile_definitions(win32api INTERFACE _WIN32_WINNT=0x0601 WINVER=0x0601 NOMINMAX)
else()
    add_library(win32api ALIAS simulated_windows)
endif()
