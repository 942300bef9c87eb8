#include "platform.h"

namespace bench {

QStringList platformProblems()
{
    return {};
}

bool measurePlatformGrowth(std::size_t, const QString &)
{
    return false;
}

} // namespace bench
