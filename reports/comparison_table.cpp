#include "fact_difference.h"
#include "pairing.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

class TableMaker
{
public:
    explicit TableMaker(const Pairing &pairing) : m_pairing(pairing) { m_table.reports = pairing.documents().size(); }

    ComparisonTable makeTable()
    {
        for (const int section : m_pairing.sections())
            addNode(section);
        return std::move(m_table);
    }

private:
    void addNode(int node);
    void addPresence(int node);
    void addFact(int node, const std::vector<const Fact *> &facts);
    ComparisonRow rowOf(int node) const;

    const Pairing &m_pairing;
    ComparisonTable m_table;
};

void TableMaker::addNode(int node)
{
    const int count = m_pairing.count(node);
    if (count < int(m_table.reports))
        addPresence(node);
    if (count < 2)
        return;
    m_pairing.forEachFact(node, [this, node](const std::vector<const Fact *> &facts) { addFact(node, facts); });
    for (const int child : m_pairing.nodes()[std::size_t(node)].children)
        addNode(child);
}

ComparisonRow TableMaker::rowOf(int node) const
{
    ComparisonRow row;
    row.section = m_pairing.sectionName(node);
    row.items = m_pairing.itemNames(node);
    row.sameIdentity = m_pairing.hasSameIdentity(node);
    row.values.resize(m_table.reports);
    return row;
}

void TableMaker::addPresence(int node)
{
    ComparisonRow row = rowOf(node);
    for (std::size_t document = 0; document < m_table.reports; ++document) {
        if (m_pairing.place(node, document) >= 0)
            row.values[document] = QString();
    }
    m_table.rows.push_back(std::move(row));
}

/// Adds a row if the fact differs between reports that have the item.
void TableMaker::addFact(int node, const std::vector<const Fact *> &facts)
{
    const auto isThere = [](const Fact *fact) { return fact != nullptr; };
    const std::size_t first = std::size_t(std::find_if(facts.begin(), facts.end(), isThere) - facts.begin());
    const Document &firstDocument = m_pairing.documents()[first];
    bool differs = false;
    bool everyMoment = true;
    for (std::size_t i = 0; i < facts.size(); ++i) {
        if (i == first || m_pairing.place(node, i) < 0)
            continue;
        const FactDifference found = factDifference(firstDocument, facts[first], m_pairing.documents()[i], facts[i]);
        differs = differs || !found.equal;
        everyMoment = everyMoment && (found.equal || found.everyMoment);
    }
    if (!differs)
        return;
    ComparisonRow row = rowOf(node);
    row.row = facts[first]->row;
    row.everyMoment = everyMoment;
    for (std::size_t i = 0; i < facts.size(); ++i) {
        if (facts[i])
            row.values[i] = m_pairing.documents()[i].display(*facts[i]);
    }
    m_table.rows.push_back(std::move(row));
}

} // namespace

bool ComparisonTable::same() const
{
    return std::all_of(rows.begin(), rows.end(), [](const ComparisonRow &row) { return row.everyMoment; });
}

ComparisonTable compareSeveral(const std::vector<Document> &documents)
{
    const Pairing pairing(documents);
    return TableMaker(pairing).makeTable();
}

} // namespace Reports
} // namespace velkor
