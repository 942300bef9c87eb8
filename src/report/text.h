// Text constants that every section shares.
#pragma once

#include <QtCore/QString>

namespace velkor {
namespace SystemInfo {

/// The end of every line of the report, on Windows too.
inline const QString newline = QStringLiteral("\n");

} // namespace SystemInfo
} // namespace velkor
