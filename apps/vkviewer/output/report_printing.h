// Prints reports, and writes them as PDF.
#pragma once

#include "output_report.h"

#include <functional>

class QWidget;

/// Writes a PDF file as a whole: on failure, or if \a goesOn returns false, the file that was there is unchanged. \a error
/// is a message for the user, empty if \a goesOn returned false.
bool savePdf(const OutputReport &report, const QString &fileName, const std::function<bool(int page, int pages)> &goesOn, QString &error);

/// Asks for a file and writes the PDF, with a dialog that shows the progress if it takes long. Returns whether there is
/// one. \a message says where, or what failed; empty if the user cancelled.
bool exportPdf(QWidget *parent, const OutputReport &report, QString &message);

/// Asks for a printer and prints. Returns false if that failed or the user cancelled; \a message is as above.
bool printReport(QWidget *parent, const OutputReport &report, QString &message);
