// What can be measured on one platform only.
#pragma once

#include <QtCore/QStringList>

namespace bench {

/// What 'check' finds wrong beside the baselines.
QStringList platformProblems();

/// Growth of that kind, or of each where none is named. False when the platform has no
/// machines that grow.
bool measurePlatformGrowth(std::size_t factor, const QString &kind);

} // namespace bench
