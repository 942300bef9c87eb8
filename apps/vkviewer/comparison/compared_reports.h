// What differs between two reports, and where it stands in their texts.
#pragma once

#include "aligned_text.h"
#include "vkReports.h"

#include <atomic>

/// Where a change stands in AlignedText::rows. Empty for a report that does not have it.
struct ChangePlace
{
    LineIndexes older;
    LineIndexes newer;
};

struct ComparedReports
{
    velkor::Reports::Comparison comparison;
    std::vector<ChangePlace> places; ///< one for each change
    std::vector<bool> otherOrder;    ///< one for each change: whether only the order of the entries differs
    AlignedText text;
};

/// Compares the first report of each document. Returns nothing if \a cancelled becomes true meanwhile.
std::optional<ComparedReports> compareReports(const velkor::Reports::Document &older, const velkor::Reports::Document &newer,
                                              const std::atomic_bool &cancelled);
