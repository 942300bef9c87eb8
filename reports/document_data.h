// What a Document holds.
#pragma once

#include "vkReports.h"

namespace velkor {
namespace Reports {

/// Part of the text that is no value. What neither a mark nor a value covers is a label.
struct Mark
{
    PlaceKind kind;
    int begin;
    int end;
};

class DocumentData
{
public:
    QByteArray text;
    QByteArray encoding = QByteArrayLiteral("UTF-8");
    QByteArray tail; ///< the last byte of UTF-16 with an odd number of bytes
    QByteArray lineEnd = QByteArrayLiteral("\n");
    bool carriageReturns = false; ///< before line feeds they belong to the line end
    bool doubleSpaced = false;    ///< each line end became two
    QByteArray linePrefix;
    States states;
    bool isLoose = false; ///< made by looseDocument(): reading the text again would not find the facts
    std::vector<int> ambiguous;
    std::vector<Section> sections;
    std::vector<Item> items;
    std::vector<Fact> facts;
    std::vector<Mark> marks; ///< in ascending order
};

} // namespace Reports
} // namespace velkor
