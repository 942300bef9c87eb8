// Everything that can be made from a redacted report, as texts to search.
#pragma once

#include "vkReports.h"

#include <vector>

struct Output
{
    const char *name; ///< "text", "JSON, strings decoded"
    QString text;     ///< prepared by searchable()
};

/// \a text without the differences that do not matter when somebody looks for a name: cases of letters, with
/// and without dots on i, and carriage returns.
QString searchable(QString text);

/// All outputs of a document of \a redaction.
std::vector<Output> outputsOf(const velkor::Reports::Document &document, const velkor::Reports::Redaction &redaction);
