// How the subjects are measured. Each writes figures.
#pragma once

#include "baselines.h"

namespace bench {

/// Platform calls and text; allocations and instructions where somebody counts them.
/// Everything was run before: what is made once is made.
void measureWarm(const std::vector<Subject> &subjects);

/// The first call in this process of one side of one subject.
void measureCold(const std::vector<Subject> &subjects, const QByteArray &name, const QByteArray &side);

/// Both sides in turn, \a runs times; the shortest and the median of the times.
void measureTime(const std::vector<Subject> &subjects, int runs);

/// What is wrong: subjects whose baseline does not make the calls of the library, call
/// by call. Empty when all do.
QStringList baselineProblems(const std::vector<Subject> &subjects);

} // namespace bench
