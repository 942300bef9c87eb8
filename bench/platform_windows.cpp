#include "platform.h"

namespace bench {

QStringList platformProblems()
{
    return {};
}

bool measurePlatformGrowth(std::size_t)
{
    return false;
}

} // namespace bench
