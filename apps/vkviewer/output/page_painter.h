// Paints a report on pages: the exact text in a fixed font, with the name of the report and the number of the page.
#pragma once

#include "output_report.h"
#include "report_saving.h"

#include <QtGui/QFont>
#include <functional>

class QPagedPaintDevice;

/// A fixed font, if the machine has one.
QFont printFont();

struct PageRange
{
    int first = 1;
    int last = 0; ///< 0 for the last page
};

/// \a goesOn is called before each page with its number and the number of pages, and returns whether to go on.
WriteResult paintReport(QPagedPaintDevice &device, const OutputReport &report, PageRange range,
                        const std::function<bool(int page, int pages)> &goesOn);
