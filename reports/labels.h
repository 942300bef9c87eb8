// Names of sections, items and facts for people.
#pragma once

#include "vkReports.h"

namespace velkor {
namespace Reports {

/// "minimumApplicationAddress" as "minimum application address", "openGLDrivers" as "OpenGL drivers".
QString words(const QString &key);

/// The label of the text without the signs around it, "From GetVersionEx"; the words of the key if
/// the line has no label or several values.
QString factLabel(const FactRow &row);

/// The value with its unit if the unit stands outside of the value: "60 Hz".
QString shownValue(const Document &document, const Fact &fact);

/// "54 modules", "1 module".
QString countOf(const ItemRow &kind, int count);

/// "Windows", "Qt", "OpenGL".
QString halfTitle(Half half);

} // namespace Reports
} // namespace velkor
