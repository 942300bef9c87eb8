#include "prepared_report.h"

PreparedReport PreparedReport::of(const LoadedReport &report)
{
    return {report, TextLines(report.document.text()), velkor::Reports::summary(report.document)};
}
