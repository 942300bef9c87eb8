// How the sections build their texts.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

namespace velkor {
namespace SystemInfo {

/// The end of every line of the report, on Windows too.
inline const QString newline = QStringLiteral("\n");

/// Returns \a text with its own data. The data of a QStringLiteral belong to this library
/// and become invalid when the library is unloaded, so an exported function must not
/// return them.
QString detached(QString text);

/// Appends \a more. The capacity grows by a quarter, because reports are long; QString would
/// double it.
void append(QString &text, const QString &more);

/// Appends a whole section. Squeezes the section first, which limits the peak memory.
void appendSection(QString &text, QString section);

/// Appends \a line and a line end.
void appendLine(QString &text, const QString &line);

/// Appends \a format with \a value in place of its only %1, and a line end. A "%1" in
/// \a value stays as it is.
void appendLine(QString &text, const char *format, QStringView value);

} // namespace SystemInfo
} // namespace velkor
