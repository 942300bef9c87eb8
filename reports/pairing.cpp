#include "pairing.h"

#include "item_matcher.h"
#include "owned_facts.h"

#include <algorithm>
#include <cstring>

namespace velkor {
namespace Reports {

namespace {

bool equalBytes(const Document &a, int aBegin, int aEnd, const Document &b, int bBegin, int bEnd)
{
    return aEnd - aBegin == bEnd - bBegin
        && std::memcmp(a.text().constData() + aBegin, b.text().constData() + bBegin, std::size_t(aEnd - aBegin)) == 0;
}

} // namespace

Pairing::Pairing(const std::vector<Document> &documents) : m_documents(documents)
{
    for (const Document &document : m_documents)
        m_facts.push_back(std::make_shared<const OwnedFacts>(document));
    addSections();
    markIdenticalSections();
    addItems();
    collectChildren();
}

void Pairing::addItems()
{
    ItemMatcher matcher(*this);
    for (std::size_t document = 0; document < m_documents.size(); ++document) {
        std::vector<int> sectionNodes(m_documents[document].sections().size(), -1);
        for (const int node : m_sections) {
            if (place(node, document) >= 0)
                sectionNodes[std::size_t(place(node, document))] = node;
        }
        matcher.addItems(document, sectionNodes);
    }
}

int Pairing::addNode(Node node)
{
    m_nodes.push_back(std::move(node));
    m_places.resize(m_places.size() + m_documents.size(), -1);
    return int(m_nodes.size()) - 1;
}

void Pairing::setPlace(int node, std::size_t document, int place)
{
    m_places[std::size_t(node) * m_documents.size() + document] = place;
}

/// A section that a document has several times is paired in order.
void Pairing::addSections()
{
    std::vector<std::vector<int>> nodesOfRow(sectionRows().size());
    for (std::size_t document = 0; document < m_documents.size(); ++document) {
        const std::vector<Section> &sections = m_documents[document].sections();
        std::vector<std::size_t> used(sectionRows().size(), 0);
        for (std::size_t section = 0; section < sections.size(); ++section) {
            if (sections[section].report != 0)
                continue;
            const std::size_t row = std::size_t(sections[section].row);
            if (used[row] == nodesOfRow[row].size()) {
                Node node;
                node.sectionRow = int(row);
                node.occurrence = int(used[row]);
                nodesOfRow[row].push_back(addNode(std::move(node)));
            }
            setPlace(nodesOfRow[row][used[row]++], document, int(section));
        }
    }
    for (const std::vector<int> &nodes : nodesOfRow)
        m_sections.insert(m_sections.end(), nodes.begin(), nodes.end());
}

void Pairing::markIdenticalSections()
{
    for (const int node : m_sections) {
        bool identical = count(node) == int(m_documents.size());
        for (std::size_t document = 1; identical && document < m_documents.size(); ++document) {
            const Document &first = m_documents.front();
            const Document &other = m_documents[document];
            const Section &a = first.sections()[std::size_t(place(node, 0))];
            const Section &b = other.sections()[std::size_t(place(node, document))];
            identical = first.states() == other.states() && equalBytes(first, a.begin, a.end, other, b.begin, b.end);
        }
        m_nodes[std::size_t(node)].identical = identical;
    }
}

void Pairing::collectChildren()
{
    for (std::size_t node = 0; node < m_nodes.size(); ++node) {
        if (m_nodes[node].parent >= 0)
            m_nodes[std::size_t(m_nodes[node].parent)].children.push_back(int(node));
    }
    const auto isBefore = [this](int a, int b) { return m_nodes[std::size_t(a)].kind < m_nodes[std::size_t(b)].kind; };
    for (Node &node : m_nodes)
        std::stable_sort(node.children.begin(), node.children.end(), isBefore);
}

int Pairing::count(int node) const
{
    const auto first = m_places.begin() + std::ptrdiff_t(std::size_t(node) * m_documents.size());
    return int(std::count_if(first, first + std::ptrdiff_t(m_documents.size()), [](int index) { return index >= 0; }));
}

QStringList Pairing::itemNames(int node) const
{
    QStringList names;
    for (; m_nodes[std::size_t(node)].parent >= 0; node = m_nodes[std::size_t(node)].parent) {
        const Node &item = m_nodes[std::size_t(node)];
        QString name = QString::fromUtf8(itemRows()[std::size_t(item.kind)].kind);
        if (!item.identity.isEmpty())
            name += QLatin1Char(' ') + item.identity;
        if (item.occurrence > 0)
            name += QStringLiteral(" #%1").arg(item.occurrence + 1);
        names.prepend(name);
    }
    return names;
}

QString Pairing::sectionName(int node) const
{
    return QString::fromUtf8(sectionRows()[std::size_t(m_nodes[std::size_t(node)].sectionRow)].name);
}

bool Pairing::hasSameIdentity(int node) const
{
    while (node >= 0 && !m_nodes[std::size_t(node)].sameIdentity)
        node = m_nodes[std::size_t(node)].parent;
    return node >= 0;
}

void Pairing::forEachFact(int node, const FactFunction &function) const
{
    const Node &owner = m_nodes[std::size_t(node)];
    if (owner.identical)
        return;
    struct Range
    {
        const Fact *const *next;
        const Fact *const *end;
    };
    std::vector<Range> ranges;
    for (std::size_t document = 0; document < m_documents.size(); ++document) {
        const OwnedFacts &facts = *m_facts[document];
        const int index = place(node, document);
        const int position = owner.parent < 0 ? facts.items + index : index;
        ranges.push_back(index < 0 ? Range {nullptr, nullptr} : Range {facts.begin(position), facts.end(position)});
    }
    std::vector<const Fact *> found(m_documents.size());
    while (true) {
        int row = int(factRows().size());
        for (const Range &range : ranges) {
            if (range.next != range.end)
                row = std::min(row, keyRow((*range.next)->row));
        }
        if (row == int(factRows().size()))
            return;
        bool equal = true;
        for (std::size_t i = 0; i < ranges.size(); ++i) {
            Range &range = ranges[i];
            found[i] = range.next != range.end && keyRow((*range.next)->row) == row ? *range.next++ : nullptr;
            equal = equal && found[0] && found[i]
                && equalBytes(m_documents[0], found[0]->begin, found[0]->end, m_documents[i], found[i]->begin, found[i]->end);
        }
        if (!equal)
            function(found);
    }
}

} // namespace Reports
} // namespace velkor
