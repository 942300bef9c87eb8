// The reports that vkcompare reads.
#pragma once

#include "vkReports.h"

/// A report and what it is called in the output.
struct Input
{
    QString name;
    velkor::Reports::Document document;
};

/// Reads a report as text or JSON from a file, or from standard input for "-". Writes warnings
/// about what is missing to standard error. Returns nothing, after a message, if that fails or if
/// there is no report in it.
std::optional<Input> readInputReport(const QString &fileName);
