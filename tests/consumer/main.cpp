#include <vkSystemInfo.h>

#include <cstdio>

int main()
{
    int patch = 0;
    int minor = 0;
    int major = 0;
    velkor::SystemInfo::libVersion(patch, minor, major);
    std::printf("vkSystemInfo %s = %d.%d.%d\n", qPrintable(velkor::SystemInfo::libVersionString()), major, minor, patch);
    return velkor::SystemInfo::libVersionString() == QLatin1String("1.3.12") ? 0 : 1;
}
