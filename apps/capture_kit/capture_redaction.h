// Redacts a machine description together with the report of the machine.
#pragma once

#include "machine.h"
#include "vkReports.h"

struct RedactedCapture
{
    machine::Machine machine;
    velkor::Reports::Document report;
    QStringList notes;
    velkor::Reports::Redaction redaction; ///< its only document is the report
};

/// The same thing has the same alias in the description, the report and the \a notes. The redacted description gives
/// the Windows half of the redacted report, as far as the description gave that of \a report.
RedactedCapture redactCapture(const machine::Machine &machine, const velkor::Reports::Document &report,
                              const QStringList &notes, const velkor::Reports::RedactionOptions &options);
