// Text constants that every section shares, and how long texts are put together.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

namespace velkor {
namespace SystemInfo {

/// The end of every line of the report, on Windows too.
inline const QString newline = QStringLiteral("\n");

/// \a text with data of its own. The data of a QStringLiteral are part of this library
/// and go when it is unloaded; what a host gets must not share them. For exported
/// functions whose text may be a literal as it stands.
QString detached(QString text);

/// Appends to a text that may become long. Where it must grow it grows by a quarter
/// and not twofold, as QString does by itself.
void append(QString &text, const QString &more);

/// Appends a whole section, and takes no more room than both need at that moment.
void appendSection(QString &text, QString section);

/// Appends the line that \a format, which holds one %1, makes of \a value, ended.
void appendLine(QString &text, const char *format, QStringView value);

} // namespace SystemInfo
} // namespace velkor
