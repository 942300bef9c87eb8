#include <vkSystemInfo.h>

// A public header compiles alone, under strict flags.
velkor::SystemInfo::COpenGLVersionInfo headerAlone()
{
    return velkor::SystemInfo::ScanOpenGLInfo::GetOpenGLVersionCached();
}
