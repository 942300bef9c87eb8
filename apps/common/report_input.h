// Reads reports that somebody else made.
#pragma once

#include "vkReports.h"

/// The report in a file, or in standard input for "-"; text or JSON. If that fails, writes a message and
/// returns nothing.
std::optional<velkor::Reports::Document> readReport(const QString &fileName);

/// The report in \a bytes; text or JSON. Only JSON can fail: then \a error is a message for the user.
std::optional<velkor::Reports::Document> readReportBytes(const QByteArray &bytes, QString &error);

/// Writes a line about long work to standard error, if that is a terminal. \a size is the number of bytes.
void showProgress(const char *work, qint64 size);
