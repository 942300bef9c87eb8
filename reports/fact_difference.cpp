#include "fact_difference.h"

#include "value_comparison.h"

#include <algorithm>
#include <cstring>

namespace velkor {
namespace Reports {

namespace {

/// Whether the fact is what identifies items of the kind; it was compared when they were paired.
bool isIdentity(const FactRow &row)
{
    const std::vector<ItemRow> &kinds = itemRows();
    return std::any_of(kinds.begin(), kinds.end(), [&](const ItemRow &kind) {
        return std::strcmp(kind.section, row.section) == 0 && std::strcmp(kind.kind, row.item) == 0
            && (std::strcmp(kind.identity, row.key) == 0 || std::strcmp(kind.otherIdentity, row.key) == 0);
    });
}

/// The size of the drive whose free space \a fact is.
std::optional<quint64> totalOf(const Document &document, const Fact &fact)
{
    if (fact.item < 0)
        return std::nullopt;
    const Fact *total = document.find(document.items()[std::size_t(fact.item)].section, fact.item, "total");
    return total ? document.bytes64(*total) : std::nullopt;
}

/// Whether a difference of these values is no more than what happens by itself.
bool isEveryMoment(const Document &older, const Fact &oldFact, const Document &newer, const Fact &newFact)
{
    const Changes changes = newer.row(newFact).changes;
    if (changes != Changes::Slowly)
        return changes == Changes::EveryMoment;
    const auto oldFree = older.bytes64(oldFact);
    const auto newFree = newer.bytes64(newFact);
    const auto oldTotal = totalOf(older, oldFact);
    const auto newTotal = totalOf(newer, newFact);
    return oldFree && newFree && oldTotal && newTotal && !isLargeChange(*oldFree, *oldTotal, *newFree, *newTotal);
}

} // namespace

FactDifference factDifference(const Document &older, const Fact *oldFact, const Document &newer, const Fact *newFact)
{
    FactDifference result;
    if (oldFact && newFact) {
        const ValueComparison values = compareValues(older, *oldFact, newer, *newFact, isIdentity(newer.row(*newFact)));
        result.equal = values.equal;
        result.order = values.order;
        result.everyMoment = !values.equal && isEveryMoment(older, *oldFact, newer, *newFact);
    } else {
        const FactRow &row = oldFact ? older.row(*oldFact) : newer.row(*newFact);
        result.everyMoment = row.changes == Changes::EveryMoment;
    }
    return result;
}

} // namespace Reports
} // namespace velkor
