// How the cost of a report grows with the machine.
#pragma once

#include <QtCore/QStringList>

namespace bench {

/// The report without OpenGL of the machine in \a folder with \a factor times as many
/// of everything, and of each kind of thing alone: items, calls, text, and allocations
/// and instructions where somebody counts them; of one kind where it is named. Writes
/// figures.
bool measureGrowth(const QString &folder, std::size_t factor, const QString &onlyKind);

/// What grows faster than the machine does, in calls and allocations; empty when
/// nothing does.
QStringList growthProblems(const QString &folder);

} // namespace bench
