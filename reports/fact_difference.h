// How the same fact of two documents differs.
#pragma once

#include "vkReports.h"

namespace velkor {
namespace Reports {

struct FactDifference
{
    bool equal = false;
    Order order = Order::Unknown;
    bool everyMoment = false; ///< the values differ no more than they do by themselves
};

/// A pointer is null if the document does not have the fact; one of them is not.
FactDifference factDifference(const Document &older, const Fact *oldFact, const Document &newer, const Fact *newFact);

} // namespace Reports
} // namespace velkor
