// What it costs to read the text of a report, to compare two of them and to redact one.
#pragma once

#include <cstddef>

namespace bench {

/// Writes the costs for the report of machines/workstation with \a factor times as much of
/// everything. Each time is taken \a runs times. The baseline splits the text into lines.
void writeReportReading(std::size_t factor, int runs);

} // namespace bench
