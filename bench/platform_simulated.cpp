#include "growth.h"
#include "platform.h"

namespace bench {
namespace {

// Growth is that of the workstation, whichever machine the rest is measured with.
const QString workstation = QStringLiteral(MACHINES_DIR "/workstation");

} // namespace

QStringList platformProblems()
{
    return growthProblems(workstation);
}

bool measurePlatformGrowth(std::size_t factor, const QString &kind)
{
    return factor > 0 && measureGrowth(workstation, factor, kind);
}

} // namespace bench
