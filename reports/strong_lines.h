// Lines that prove their section without its heading.
#pragma once

#include "line_form.h"

namespace velkor {
namespace Reports {

constexpr int strongWeight = 6; ///< characters of a label that prove a line
constexpr int longWeight = 12;  ///< that prove it without a further line

struct StrongLine
{
    int section;
    const LineForm *form;
};

/// The lines that begin with that character and prove their section without its heading.
const std::vector<StrongLine> &strongLines(char first);

/// Values of these types are written from numbers, so they have no line breaks.
bool isOneLine(Type type);

} // namespace Reports
} // namespace velkor
