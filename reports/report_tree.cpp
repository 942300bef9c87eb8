#include "report_tree.h"

#include "line_plan.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

class TreeBuilder
{
public:
    explicit TreeBuilder(const Document &document);
    TreeNode section(const Section &section) const;

private:
    TreeNode item(int index) const;
    void addFacts(TreeNode &node, int item, int first, int last) const;
    bool isInParent(const Item &item) const;

    const Document &m_document;
    std::vector<std::vector<int>> m_children; // of each item
};

TreeBuilder::TreeBuilder(const Document &document) : m_document(document), m_children(document.items().size())
{
    const std::vector<Item> &items = document.items();
    for (size_t i = 0; i < items.size(); ++i) {
        if (isInParent(items[i]))
            m_children[size_t(items[i].parent)].push_back(int(i));
    }
}

/// An item whose parent is missing belongs to the section.
bool TreeBuilder::isInParent(const Item &item) const
{
    return item.parent >= 0
        && parentKind(item.kind) == m_document.items()[size_t(item.parent)].kind;
}

void TreeBuilder::addFacts(TreeNode &node, int item, int first, int last) const
{
    for (int i = first; i < last; ++i) {
        const Fact &fact = m_document.facts()[size_t(i)];
        const int row = firstRowOfKey(fact.row);
        if (fact.item != item || node.find(row))
            continue;
        TreeFact added;
        added.row = row;
        added.fact = i;
        if (factRows()[size_t(row)].type == Type::List)
            added.entries = m_document.values(fact);
        else
            added.text = m_document.value(fact);
        node.facts.push_back(std::move(added));
    }
}

TreeNode TreeBuilder::item(int index) const
{
    const Item &source = m_document.items()[size_t(index)];
    TreeNode node;
    node.row = m_document.sections()[size_t(source.section)].row;
    node.kind = source.kind;
    addFacts(node, index, source.firstFact, source.lastFact);
    for (const int child : m_children[size_t(index)])
        node.items.push_back(item(child));
    return node;
}

TreeNode TreeBuilder::section(const Section &section) const
{
    TreeNode node;
    node.row = section.row;
    addFacts(node, -1, section.firstFact, section.lastFact);
    for (int i = section.firstItem; i < section.lastItem; ++i) {
        if (!isInParent(m_document.items()[size_t(i)]))
            node.items.push_back(item(i));
    }
    return node;
}

/// Items without facts and items: nothing in JSON would show them.
void removeEmptyItems(TreeNode &node)
{
    for (TreeNode &item : node.items)
        removeEmptyItems(item);
    const auto isEmpty = [](const TreeNode &item) { return item.facts.empty() && item.items.empty(); };
    node.items.erase(std::remove_if(node.items.begin(), node.items.end(), isEmpty), node.items.end());
}

} // namespace

const TreeFact *TreeNode::find(int factRow) const
{
    for (const TreeFact &fact : facts) {
        if (fact.row == factRow)
            return &fact;
    }
    return nullptr;
}

ReportTrees reportTrees(const Document &document)
{
    ReportTrees trees;
    const TreeBuilder builder(document);
    for (const Section &section : document.sections()) {
        if (trees.size() <= size_t(section.report))
            trees.resize(size_t(section.report) + 1);
        trees[size_t(section.report)].push_back(builder.section(section));
        removeEmptyItems(trees[size_t(section.report)].back());
    }
    return trees;
}

} // namespace Reports
} // namespace velkor
