// A DNS-SD client library for tests. Its only function returns DAEMON_VERSION or ERROR_CODE,
// which the build defines. If neither is defined, the library lacks the function.

#include <windows.h>

#include <cstring>

extern "C" {

#if defined(DAEMON_VERSION) || defined(ERROR_CODE)

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
