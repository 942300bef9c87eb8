// The places that a redaction replaced, over several rounds.
#pragma once

#include "vkReports.h"

#include <vector>

namespace velkor {
namespace Reports {

using Replacements = std::vector<Replacement>;

/// The replacements from the first text to the third, from those of the first text to the second and of the second
/// to the third. All are in order and without overlaps.
Replacements composed(const Replacements &first, const Replacements &second);

} // namespace Reports
} // namespace velkor
