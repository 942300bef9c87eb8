// A DNS-SD client library for tests. The build defines one of these:
// - DAEMON_VERSION or ERROR_CODE: its only function returns this.
// - HANGS or CRASHES: its only function does this.
// - HANGS_ON_LOAD or CRASHES_ON_LOAD: it does this while it is loaded.
// - nothing: it lacks the function.

#include <windows.h>

#include <cstring>

namespace {

[[maybe_unused]] void hang()
{
    for (;;)
        Sleep(INFINITE);
}

[[maybe_unused]] void crash()
{
    *static_cast<volatile int *>(nullptr) = 1;
}

} // namespace

extern "C" {

#if defined(HANGS_ON_LOAD) || defined(CRASHES_ON_LOAD)

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void *)
{
    if (reason == DLL_PROCESS_ATTACH) {
#  ifdef HANGS_ON_LOAD
        hang();
#  else
        crash();
#  endif
    }
    return TRUE;
}

#elif defined(HANGS) || defined(CRASHES)

__declspec(dllexport) INT32 WINAPI DNSServiceGetProperty(const char *, void *, UINT32 *)
{
#  ifdef HANGS
    hang();
#  else
    crash();
#  endif
    return 0;
}

#elif defined(DAEMON_VERSION) || defined(ERROR_CODE)

__declspec(dllexport) INT32 WINAPI DNSServiceGetProperty(const char *property, void *result, UINT32 *size)
{
    constexpr INT32 badParameter = -65540;
    if (std::strcmp(property, "DaemonVersion") != 0 || *size != sizeof(UINT32))
        return badParameter;
#  ifdef ERROR_CODE
    std::memset(result, 0xff, *size); // a caller must not use it as the version
    return ERROR_CODE;
#  else
    const UINT32 version = DAEMON_VERSION;
    std::memcpy(result, &version, sizeof version);
    return 0;
#  endif
}

#else

__declspec(dllexport) INT32 WINAPI DNSServiceRefSockFD(void *)
{
    return -1;
}

#endif

} // extern "C"
