// Finds out what happened to all lines of a text.
#pragma once

#include "canonical_text.h"
#include "line_edits.h"

namespace velkor {
namespace Reports {

/// The forms of line ends that JSON knows.
const std::vector<QByteArray> &knownLineEnds();

/// The form of \a document that gives its text the most lines of \a canonical. The form's line end
/// is the most frequent one, and \a canonical is the canonical text of the document.
TextForm findForm(const Document &document, const QByteArray &canonical);

} // namespace Reports
} // namespace velkor
