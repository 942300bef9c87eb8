// What the formats for people have in common.
#pragma once

#include "shortening.h"
#include "vkReports.h"

namespace velkor {
namespace Reports {

/// What was left out and why, in sentences; empty if nothing was left out.
QString leftOutSentences(const LeftOut &leftOut, int maxLength);

/// Counts of what a section has instead of all of it: "54 modules"; empty if it has no items.
QStringList sectionCounts(const Document &document, int section);

/// Whether a fact is a list with so many entries that a short form counts them.
bool isLongList(const Document &document, const Fact &fact);
/// "393 entries".
QString listCount(const Document &document, const Fact &fact);

/// "Windows: ..." with one column for the labels, with line feeds. Values are made visible.
QString summaryText(const std::vector<SummaryLine> &lines);

/// "Report 2: Windows" at the first section of a half or report, else an empty text. \a section is an
/// index in Document::sections(), \a previous the one before it that is written, or -1.
QString partTitle(const Document &document, int section, int previous);

} // namespace Reports
} // namespace velkor
