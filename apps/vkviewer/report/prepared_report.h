// A report with what the window needs at once.
#pragma once

#include "loaded_report.h"
#include "text/text_lines.h"

/// Everything that takes time with a large report. Copying is cheap.
struct PreparedReport
{
    LoadedReport report;
    TextLines lines;
    std::vector<velkor::Reports::SummaryLine> summary;

    /// For any thread.
    static PreparedReport of(const LoadedReport &report);
};

Q_DECLARE_METATYPE(PreparedReport)
