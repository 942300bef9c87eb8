// The tables of questions and the texts that they ask about.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <vector>

/// The rows of a table, without its heading, as columns. A table that has no rows ends the test.
std::vector<QStringList> questionRows(const char *table);

/// A file that a table names: relative to the questions, or to the project if it begins with "docs/".
QString questionFile(const QString &name);
QByteArray questionText(const QString &name);

/// Decodes \\t, \\n, \\r, \\\\ and \\u{HEX}.
QString withoutEscapes(const QString &text);
