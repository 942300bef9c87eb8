// What can be measured on one platform only.
#pragma once

#include <QtCore/QStringList>

namespace bench {

/// What 'check' finds wrong beside the floors.
QStringList platformProblems();

/// False when the platform has no machines that grow.
bool measurePlatformGrowth(std::size_t factor);

} // namespace bench
