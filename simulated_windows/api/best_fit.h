// Best-fit characters: what Windows writes for a character that an ANSI code page lacks.
#pragma once

#include <iterator>
#include <vector>

namespace simulated {

/// Consecutive UTF-16 units and their best-fit characters, each of `width` bytes.
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
