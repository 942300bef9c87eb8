// What one run costs: calls of the simulated Windows, allocations, instructions.
#pragma once

#include "times.h"

namespace bench {

struct Cost
{
    double calls = 0;
    double nanoseconds = 0;
    // These are 0 unless count_allocations is preloaded.
    double allocations = 0;
    double peak = 0; // bytes above those allocated before the run; see Allocations
    double peakMoved = 0;
};

/// Runs \a side once. Under callgrind with --instr-atstart=no, callgrind writes a file with the
/// instructions of this run; its "Trigger" is subject, side and state, separated by "|".
Cost measureCost(const QByteArray &subject, const Side &side, const QByteArray &state);

/// Measures the cost and writes calls, allocations and both peaks.
void writeCost(const QByteArray &subject, const Side &side, const QByteArray &state);

} // namespace bench
