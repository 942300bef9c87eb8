// A report that the window shows.
#pragma once

#include "vkReports.h"

/// A document and where it comes from. Copying is cheap.
struct LoadedReport
{
    QString name; ///< for people: a file name, or where the text comes from
    QString path; ///< of the file, absolute; empty if the text comes from no file
    velkor::Reports::Document document;

    /// Whether something of a report was found in the text.
    bool isReport() const { return !document.states().testFlag(velkor::Reports::State::NoReport); }
};
