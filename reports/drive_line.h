// The line of a drive. Its parts are present or not, and only spaces separate them.
#pragma once

#include "line_form.h"

namespace velkor {
namespace Reports {

/// Matches a drive's line and sets six spans: root, type, file system, label, free and total size.
/// A part that the line does not have has the span -1. If \a altered is not null, spaces may be
/// missing or be other ones, and the function says how.
bool matchDrive(const char *text, int begin, int end, Span *spans, Alterations *altered = nullptr);

} // namespace Reports
} // namespace velkor
