// The facts of a document by their owners.
#pragma once

#include "vkReports.h"

#include <cstddef>

namespace velkor {
namespace Reports {

/// The first row of the catalogue with the section, item and key of \a row: a key can have several lines.
int keyRow(int row);

/// The facts of a document by the item or section that they belong to.
struct OwnedFacts
{
    explicit OwnedFacts(const Document &document);

    /// The pointers to the facts of an owner, in the order of their keys.
    const Fact *const *begin(int owner) const { return facts.data() + first[std::size_t(owner)]; }
    const Fact *const *end(int owner) const { return facts.data() + first[std::size_t(owner) + 1]; }

    std::vector<std::size_t> first; ///< for each item, then for each section, and one more
    std::vector<const Fact *> facts;
    int items = 0;
};

} // namespace Reports
} // namespace velkor
