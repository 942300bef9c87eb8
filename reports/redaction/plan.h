// What is to be replaced in a document.
#pragma once

#include "regions.h"
#include "vkReports.h"

#include <vector>

namespace velkor {
namespace Reports {

/// What a place becomes.
struct Planned
{
    static constexpr int length = -1; ///< the number of its characters
    static constexpr int keep = -2;   ///< stays as it is

    int begin = 0; ///< offset in a text, first of a region, then of the document
    int end = 0;
    int what = keep; ///< index of an identity, or one of the above
    Reason reason = Reason::Form;
    bool continues = false; ///< the place before this one is the beginning of the same name
};

using Plan = std::vector<Planned>;

/// Sorts \a plan and removes overlaps: of two places the one that begins first remains, and reaches as far as both.
void normalise(Plan &plan);

/// Both plans. Where they overlap, that of \a high holds. Both are in order and without overlaps.
Plan merged(const Plan &high, const Plan &low, std::string_view text);

/// Appends the places of \a found, which refer to the text of \a region, with offsets in the document.
void appendMapped(const Region &region, const Plan &found, Plan &plan);

} // namespace Reports
} // namespace velkor
