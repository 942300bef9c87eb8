// What the writers of comparisons have in common.
#pragma once

#include "vkReports.h"

namespace velkor {
namespace Reports {

/// How a fact is called for people: its label in the report, or the words of its key.
QString factTitle(int row);
/// "Memory Information (memoryInfo)"; the name alone if the section has no heading.
QString sectionHeading(const QString &section);
/// The item as one line: "adapter igfx > configuration 0000". Not neutralised.
QString itemHeading(const QStringList &items);
QString reportName(const ComparisonOptions &options, int report);

/// What is said after a change, in parentheses: "newer", "smaller", "every moment", "other order"; empty if nothing is.
QString noteOf(const Change &change);
/// Whether the writers show the entries instead of the values.
bool showsEntries(const Change &change);
/// The value on one line, with " | " for line feeds; "(empty)" if it is. Not neutralised.
QString oneLine(const QString &value);
/// The facts of an added or removed item without those that its name repeats.
std::vector<ItemFact> factsToShow(const Change &change);

/// The changes to show, in order.
std::vector<const Change *> shownChanges(const Comparison &comparison, const ComparisonOptions &options);
std::vector<const ComparisonRow *> shownRows(const ComparisonTable &table, const ComparisonOptions &options);

/// One sentence: how many differences there are and how many values are not shown.
QString summaryOf(const Comparison &comparison, const ComparisonOptions &options);
QString summaryOf(const ComparisonTable &table, const ComparisonOptions &options);

/// The end of the group that begins at \a begin: all changes of facts of the same item.
std::size_t endOfGroup(const std::vector<const Change *> &changes, std::size_t begin);

/// What a table says about an item or a section in a report.
QString presence(bool isThere);

} // namespace Reports
} // namespace velkor
