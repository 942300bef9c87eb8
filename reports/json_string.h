// A string of JSON that a terminal can show.
#pragma once

#include <QtCore/QString>

namespace velkor {
namespace Reports {

/// \a text in quotation marks. What a terminal could take for more than text is escaped.
QString jsonString(const QString &text);

} // namespace Reports
} // namespace velkor
