#include "json_string.h"

#include "neutral_text.h"

namespace velkor {
namespace Reports {

namespace {

/// The units of a character as escapes.
QString escaped(const QString &character)
{
    QString result;
    for (const QChar unit : character)
        result += QStringLiteral("\\u%1").arg(unit.unicode(), 4, 16, QLatin1Char('0'));
    return result;
}

} // namespace

QString jsonString(const QString &text)
{
    const bool isHarmless = terminalText(text) == text;
    QString result(QLatin1Char('"'));
    for (int i = 0; i < text.size(); ++i) {
        const QChar next = text.at(i);
        if (next == QLatin1Char('"') || next == QLatin1Char('\\')) {
            result += QLatin1Char('\\') + next;
        } else if (next == QLatin1Char('\n')) {
            result += QStringLiteral("\\n");
        } else if (isHarmless) {
            result += next;
        } else {
            const bool isPair = next.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
            const QString character = text.mid(i, isPair ? 2 : 1);
            result += terminalText(character) == character ? character : escaped(character);
            i += isPair ? 1 : 0;
        }
    }
    return result + QLatin1Char('"');
}

} // namespace Reports
} // namespace velkor
