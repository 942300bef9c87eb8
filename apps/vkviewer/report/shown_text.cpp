#include "shown_text.h"

#include "neutral_text.h"

namespace {

constexpr int longestLine = 500; // UTF-16 units
constexpr int longestToolTip = 2000;

QString shortened(const QString &text, int length)
{
    return text.size() <= length ? text : text.left(length) + QChar(0x2026);
}

} // namespace

QString lineText(const QString &value)
{
    return velkor::Reports::terminalText(shortened(value, longestLine)).replace(QLatin1Char('\n'), QStringLiteral(" \u21b5 "));
}

QString plainToolTip(const QString &text)
{
    if (text.isEmpty())
        return text;
    const QString html = velkor::Reports::htmlText(shortened(text, longestToolTip));
    return QStringLiteral("<p>%1</p>").arg(QString(html).replace(QLatin1Char('\n'), QLatin1String("<br>")));
}
