// The sections, items and facts of a document without their places: what JSON holds of them.
#pragma once

#include "vkReports.h"

namespace velkor {
namespace Reports {

constexpr int sectionItself = -1; ///< in the place of a kind of item

struct TreeFact
{
    int row = 0;   ///< index in factRows(), of the first row with the key
    int fact = -1; ///< index in Document::facts(); -1 if it comes from JSON
    QByteArray text;
    std::vector<QByteArray> entries; ///< of a list
};

/// A section or an item.
struct TreeNode
{
    int row = 0;                 ///< of the section: index in sectionRows()
    int kind = sectionItself;    ///< index in itemRows()
    bool isLeftOut = false;      ///< the section has facts and items in the text, but not here
    std::vector<TreeFact> facts; ///< with different rows
    std::vector<TreeNode> items;

    const TreeFact *find(int factRow) const;
};

/// The sections of each report of a text.
using ReportTrees = std::vector<std::vector<TreeNode>>;

/// Of several facts with one key in one item, the trees have the first.
ReportTrees reportTrees(const Document &document);

} // namespace Reports
} // namespace velkor
