#include "texts.h"

#include <QtCore/QStringList>

QString textDifference(const QString &actual, const QString &expected)
{
    const QStringList actualLines = actual.split(QLatin1Char('\n'));
    const QStringList expectedLines = expected.split(QLatin1Char('\n'));
    int line = 0;
    while (line < actualLines.size() && line < expectedLines.size() && actualLines.at(line) == expectedLines.at(line))
        ++line;
    const auto shown = [&](const QStringList &lines) {
        return line < lines.size() ? QLatin1Char('"') + lines.at(line) + QLatin1Char('"') : QStringLiteral("(text ends)");
    };
    return QStringLiteral("line %1 differs\n   Actual:   %2\n   Expected: %3\n--- whole actual text:\n%4")
        .arg(line + 1)
        .arg(shown(actualLines), shown(expectedLines), actual);
}
