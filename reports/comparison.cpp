#include "fact_difference.h"
#include "pairing.h"
#include "value_comparison.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

/// The item's own facts, without those of the items in it.
std::vector<ItemFact> factsOf(const Document &document, int index)
{
    const Item &item = document.items()[std::size_t(index)];
    std::vector<ItemFact> facts;
    for (int i = item.firstFact; i < item.lastFact; ++i) {
        const Fact &fact = document.facts()[std::size_t(i)];
        if (fact.item == index && document.row(fact).key[0] != '\0')
            facts.push_back({fact.row, document.display(fact)});
    }
    return facts;
}

/// Compares two documents.
class Comparer
{
public:
    explicit Comparer(const Pairing &pairing)
        : m_pairing(pairing), m_older(pairing.documents()[0]), m_newer(pairing.documents()[1])
    {
    }

    Comparison compareAll()
    {
        for (const int section : m_pairing.sections())
            compareNode(section);
        return std::move(m_result);
    }

private:
    void compareNode(int node);
    void compareFact(int node, const Fact *oldFact, const Fact *newFact);
    void addMissing(int node);
    Change changeOf(int node, bool isOld, bool isNew) const;

    const Pairing &m_pairing;
    const Document &m_older;
    const Document &m_newer;
    Comparison m_result;
};

void Comparer::compareNode(int node)
{
    if (m_pairing.count(node) < 2) {
        addMissing(node);
        return;
    }
    m_pairing.forEachFact(node, [this, node](const std::vector<const Fact *> &facts) { compareFact(node, facts[0], facts[1]); });
    for (const int child : m_pairing.nodes()[std::size_t(node)].children)
        compareNode(child); // not deeper than items of the catalogue
}

Change Comparer::changeOf(int node, bool isOld, bool isNew) const
{
    Change change;
    change.difference = isOld && isNew ? Difference::Changed : isNew ? Difference::Added
                                                                     : Difference::Removed;
    change.section = m_pairing.sectionName(node);
    change.items = m_pairing.itemNames(node);
    change.sameIdentity = m_pairing.hasSameIdentity(node);
    return change;
}

void Comparer::addMissing(int node)
{
    const bool isOld = m_pairing.place(node, 0) >= 0;
    Change change = changeOf(node, isOld, !isOld);
    if (!change.items.isEmpty()) {
        const Document &document = isOld ? m_older : m_newer;
        change.facts = factsOf(document, m_pairing.place(node, isOld ? 0 : 1));
    }
    m_result.changes.push_back(std::move(change));
}

void Comparer::compareFact(int node, const Fact *oldFact, const Fact *newFact)
{
    const FactDifference found = factDifference(m_older, oldFact, m_newer, newFact);
    if (found.equal)
        return;
    Change change = changeOf(node, oldFact, newFact);
    change.row = newFact ? newFact->row : oldFact->row;
    change.order = found.order;
    change.everyMoment = found.everyMoment;
    if (oldFact)
        change.oldValue = m_older.display(*oldFact);
    if (newFact)
        change.newValue = m_newer.display(*newFact);
    if (oldFact && newFact) {
        if (const auto entries = entryChange(m_older, *oldFact, m_newer, *newFact)) {
            change.addedEntries = entries->added;
            change.removedEntries = entries->removed;
        }
    }
    m_result.changes.push_back(std::move(change));
}

} // namespace

bool Comparison::same() const
{
    return std::all_of(changes.begin(), changes.end(), [](const Change &change) { return change.everyMoment; });
}

Comparison compare(const Document &older, const Document &newer)
{
    const Pairing pairing({older, newer});
    return Comparer(pairing).compareAll();
}

} // namespace Reports
} // namespace velkor
