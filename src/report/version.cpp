#include "vkSystemInfo.h"

namespace velkor {
namespace SystemInfo {

// Hosts rely on this order of the arguments.
void libVersion(int &patch, int &minor, int &major)
{
    major = VKSYSTEMINFO_VERSION_MAJOR;
    minor = VKSYSTEMINFO_VERSION_MINOR;
    patch = VKSYSTEMINFO_VERSION_PATCH;
}

QString libVersionString()
{
    return QStringLiteral("%1.%2.%3")
        .arg(VKSYSTEMINFO_VERSION_MAJOR)
        .arg(VKSYSTEMINFO_VERSION_MINOR)
        .arg(VKSYSTEMINFO_VERSION_PATCH);
}

} // namespace SystemInfo
} // namespace velkor
