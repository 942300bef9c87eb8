// Compares the Windows half of a captured report with that of the captured description.
#pragma once

#include "capture_file.h"
#include "vkReports.h"

enum class Verdict {
    Moment,  ///< changes from moment to moment, or is free space
    Modules, ///< loaded modules, which differ between programs
    Host,    ///< depends on the program or the session that asked
    Missing, ///< vkreport could not make the section
    Order,   ///< stands elsewhere: a redacted name sorts elsewhere
    Length,  ///< an alias is longer than the call can return
    Failed,  ///< must not differ
};

/// A line of one of the two texts that the other does not have.
struct DifferentLine
{
    Verdict verdict = Verdict::Failed;
    QByteArray section; ///< its name; "-" before the first one
    int number = 0;     ///< from 1
    bool isReport = true;
    QByteArray text;
};

struct CaptureComparison
{
    std::vector<DifferentLine> lines; ///< in the order of the texts
    int same = 0;
    int notCompared = 0; ///< lines of the report after its Windows half

    int count(Verdict verdict) const;
};

/// \a replay is the Windows half of the description.
CaptureComparison compareCapture(const velkor::Reports::Document &report, const QByteArray &replay, const CaptureNotes &notes);

/// One line for each that differs, and one with the counts. Control characters are visible, and long lines are cut.
QByteArray captureComparisonText(const CaptureComparison &comparison);
