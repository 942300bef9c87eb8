// The facts and items of a section as a tree.
#pragma once

#include "vkReports.h"

namespace velkor {
namespace Reports {

/// An item, or the section itself, with what belongs to it directly.
struct OutlineNode
{
    int item = -1;          ///< index in Document::items(), or -1 for the section
    std::vector<int> facts; ///< indexes in Document::facts()
    std::vector<int> items; ///< indexes in Outline::nodes
};

/// The section is the first node.
struct Outline
{
    std::vector<OutlineNode> nodes;
};

Outline outlineOf(const Document &document, int section);

/// Whether the section is one of \a options.
bool isChosen(const Document &document, int section, const WriteOptions &options);

/// Bytes of the text that no rule knows.
struct OtherText
{
    int section = -1; ///< index in Document::sections() if they stand in one, or -1
    int begin = 0;
    int end = 0;
};

/// In the order of the text. Neighbours are one.
std::vector<OtherText> otherTexts(const Document &document);

/// A part of the text for people: with line feeds as the only line ends.
QString textBetween(const Document &document, int begin, int end);

} // namespace Reports
} // namespace velkor
