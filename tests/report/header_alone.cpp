#include <vkSystemInfo.h>

// So that something of it is used.
velkor::SystemInfo::COpenGLVersionInfo headerAlone()
{
    return velkor::SystemInfo::ScanOpenGLInfo::GetOpenGLVersionCached();
}
