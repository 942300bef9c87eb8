// The catalogue as the order in which lines are written.
#pragma once

#include "vkReports.h"

namespace velkor {
namespace Reports {

struct LineStep
{
    enum class What {
        Facts, ///< the line of one or more facts
        Text,  ///< a line without a value
        Items, ///< the items of a kind
    };
    What what = What::Facts;
    const char *line = "";
    std::vector<int> rows; ///< the facts of the line, by place; see firstRowOfKey()
    /// Steps with all these facts and more, or the same facts in an earlier line. If all facts of
    /// one of them are present, this line is not written.
    std::vector<int> instead;
    int kind = -1; ///< of the items: index in itemRows()
    bool lineEnd = true;
};

/// The steps of the items of a kind, or of the section itself if \a kind is sectionItself.
const std::vector<LineStep> &lineSteps(int sectionRow, int kind);

/// The first row that has the section, the item and the key of \a row.
int firstRowOfKey(int row);
/// The kind of the item around items of this kind, or sectionItself.
int parentKind(int kind);
/// True if sections of that row can have items of that kind.
bool sectionHasKind(int sectionRow, int kind);

} // namespace Reports
} // namespace velkor
