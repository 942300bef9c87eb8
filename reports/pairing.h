// Finds what several documents have in common: the same section, item and fact in each of them.
#pragma once

#include "vkReports.h"

#include <functional>

namespace velkor {
namespace Reports {

struct OwnedFacts;

/// A section or an item that at least one of the documents has.
struct Node
{
    int parent = -1;           ///< index of the node around it; -1 for a section
    int sectionRow = 0;        ///< index in sectionRows()
    int kind = -1;             ///< index in itemRows(); -1 for a section
    int occurrence = 0;        ///< 1 for the second node with the same parent, kind and identity
    bool sameIdentity = false; ///< there are several nodes with that identity
    bool identical = false;    ///< a section that has the same bytes in all documents; its items have no nodes
    QString identity;
    std::vector<int> children; ///< nodes of the items in it, in the order of the catalogue
};

/// The first report of each of several documents, side by side.
///
/// Items are paired among the items of the same parent by kind and identity, without regard to
/// upper and lower case. Of items with equal identities, those with equal facts are paired first,
/// the others in order. The time grows linearly with the size of the documents.
class Pairing
{
public:
    explicit Pairing(const std::vector<Document> &documents);

    const std::vector<Document> &documents() const { return m_documents; }
    const std::vector<Node> &nodes() const { return m_nodes; }
    /// The nodes of the sections, in the order of the report.
    const std::vector<int> &sections() const { return m_sections; }

    /// The index of the node's section or item in a document; -1 if the document does not have it.
    int place(int node, std::size_t document) const { return m_places[std::size_t(node) * m_documents.size() + document]; }
    /// How many documents have it.
    int count(int node) const;
    /// Names of the items from the outermost one to \a node, as in Change::items.
    QStringList itemNames(int node) const;
    QString sectionName(int node) const;
    /// Whether the node or one around it has the identity of another one.
    bool hasSameIdentity(int node) const;

    /// Calls \a function with each fact of the section or item itself: one pointer for each
    /// document, null if it does not have the fact. Facts with equal keys are paired in order.
    /// Facts with equal bytes in all documents are left out.
    using FactFunction = std::function<void(const std::vector<const Fact *> &facts)>;
    void forEachFact(int node, const FactFunction &function) const;

private:
    friend class ItemMatcher;

    int addNode(Node node);
    void setPlace(int node, std::size_t document, int place);
    void markSameIdentity(int node) { m_nodes[std::size_t(node)].sameIdentity = true; }
    void addSections();
    void markIdenticalSections();
    void addItems();
    void collectChildren();

    std::vector<Document> m_documents;
    std::vector<Node> m_nodes;
    std::vector<int> m_places; ///< for each node one of each document
    std::vector<int> m_sections;
    std::vector<std::shared_ptr<const OwnedFacts>> m_facts; ///< one of each document
};

} // namespace Reports
} // namespace velkor
