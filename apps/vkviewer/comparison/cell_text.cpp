#include "cell_text.h"

#include "neutral_text.h"

using namespace velkor::Reports;

namespace {

constexpr int mostOfCell = 300;
constexpr int mostOfToolTip = 2000;

/// The first \a most characters, with an ellipsis if there are more.
QString bounded(const QString &text, int most)
{
    if (text.size() <= most)
        return text;
    const int length = text.at(most - 1).isHighSurrogate() ? most - 1 : most;
    return text.left(length) + QChar(0x2026);
}

QString oneLine(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text.replace(QLatin1Char('\n'), QLatin1String(" | ")).replace(QLatin1Char('\t'), QLatin1Char(' '));
}

} // namespace

QString cellText(const QString &value)
{
    return terminalText(oneLine(bounded(value, mostOfCell)));
}

QString cellToolTip(const QString &value)
{
    return value.isEmpty() ? QString()
                           : QStringLiteral("<p style=\"white-space: pre-wrap\">%1</p>").arg(htmlText(bounded(value, mostOfToolTip)));
}

QString copiedText(const QString &value)
{
    return terminalText(tableText(oneLine(value)));
}
