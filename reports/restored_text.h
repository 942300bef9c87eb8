// What JSON holds of a text, and the text that it gives again.
#pragma once

#include "line_edits.h"

namespace velkor {
namespace Reports {

constexpr char byteOrderMark[] = "\xef\xbb\xbf";
constexpr int maximalText = 1 << 30; ///< bytes

struct StoredText
{
    QByteArray encoding = QByteArrayLiteral("UTF-8");
    bool hasMark = false;
    QByteArray tail; ///< see DocumentData
    TextForm form;
    ReportTrees trees;
    std::vector<LineEdit> layout;
};

/// The number of bytes that the text of a JSON document of \a json bytes can have. The JSON of strangers
/// could otherwise hold little and become a long text: each empty entry of a list is a line, indented
/// and quoted. toJson() writes nothing that is longer.
int restoredLimit(int json);

/// The bytes of the text. Nothing if the layout does not fit, or if they are more than \a limit.
std::optional<QByteArray> restoredBytes(const StoredText &stored, int limit);

} // namespace Reports
} // namespace velkor
