// Which similar character stands for one that an ANSI code page lacks.
#pragma once

#include <iterator>
#include <vector>

namespace simulated {

/// Consecutive UTF-16 units, and so many bytes for each of them.
struct BestFitRun
{
    unsigned short first;
    int width;
    const char *bytes;
};

struct BestFitTable
{
    int codePage;
    const BestFitRun *begin;
    const BestFitRun *end;
};

const std::vector<BestFitTable> &bestFitTables();

} // namespace simulated
