// What the formats for people have in common.
#pragma once

#include "shortening.h"
#include "vkReports.h"

namespace velkor {
namespace Reports {

/// "the modules, the environment": what was left out and why, in one sentence for each way; empty if nothing
/// was left out. The names are those of Part::name.
QStringList leftOutSentences(const LeftOut &leftOut, int maxLength);

/// "Windows: ..." with one column for the labels, with line feeds.
QString summaryText(const std::vector<SummaryLine> &lines);

} // namespace Reports
} // namespace velkor
