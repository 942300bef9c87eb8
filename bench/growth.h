// How the cost of a report without OpenGL grows with the machine, which is
// machines/workstation with more of one kind of thing, or of all.
#pragma once

#include <QtCore/QStringList>

namespace bench {

/// Writes the costs of the report, and of its baseline, with \a factor times as much of each kind.
void writeGrowth(std::size_t factor);

/// The kinds of which an added item costs more or less calls or allocations between 10 and
/// 100 times the machine than between 1 and 10 times; empty if there are none.
QStringList growthProblems();

} // namespace bench
