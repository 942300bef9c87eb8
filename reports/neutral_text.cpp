#include "neutral_text.h"

namespace velkor {
namespace Reports {

namespace {

// Longer runs of backticks become visible instead of a fence that no parser of Markdown accepts.
constexpr int longestBackticks = 8;

bool changesDirection(ushort unit)
{
    return unit == 0x061c || unit == 0x200e || unit == 0x200f || (unit >= 0x202a && unit <= 0x202e)
        || (unit >= 0x2066 && unit <= 0x206f);
}

/// Characters without a width, which make different texts look equal. Some scripts and emoji need the
/// joiners U+200C and U+200D.
bool hasNoWidth(ushort unit)
{
    return unit == 0x00ad || unit == 0x180e || unit == 0x200b || (unit >= 0x2060 && unit <= 0x2064) || unit == 0xfeff
        || (unit >= 0xfff9 && unit <= 0xfffb);
}

/// Whether the tag characters U+E0000 to U+E007F begin at \a i; they are invisible.
bool isTag(const QString &text, int i)
{
    constexpr ushort firstHigh = 0xdb40;
    constexpr ushort lastLow = 0xdc7f;
    return text.at(i).unicode() == firstHigh && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()
        && text.at(i + 1).unicode() <= lastLow;
}

bool isControl(ushort unit)
{
    constexpr ushort lineSeparator = 0x2028;
    constexpr ushort paragraphSeparator = 0x2029;
    return unit < 0x20 || (unit >= 0x7f && unit < 0xa0) || unit == lineSeparator || unit == paragraphSeparator;
}

/// Whether the surrogate at \a i has no partner.
bool isAlone(const QString &text, int i)
{
    if (text.at(i).isHighSurrogate())
        return i + 1 == text.size() || !text.at(i + 1).isLowSurrogate();
    return text.at(i).isLowSurrogate() && (i == 0 || !text.at(i - 1).isHighSurrogate());
}

QString visible(ushort unit)
{
    const bool isShort = unit < 0x100;
    return (isShort ? QStringLiteral("\\x") : QStringLiteral("\\u"))
        + QStringLiteral("%1").arg(unit, isShort ? 2 : 4, 16, QLatin1Char('0'));
}

bool mustBeVisible(ushort unit)
{
    constexpr ushort firstNoncharacter = 0xfffe;
    return isControl(unit) || changesDirection(unit) || hasNoWidth(unit) || unit >= firstNoncharacter;
}

/// \a text with all characters visible that \a hides names or that no form can show.
template <typename Hides>
QString withVisible(const QString &text, Hides hides)
{
    QString result;
    result.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const ushort unit = text.at(i).unicode();
        if (isTag(text, i)) {
            result += visible(unit) + visible(text.at(++i).unicode());
            continue;
        }
        const bool isHidden = unit != '\n' && (mustBeVisible(unit) || isAlone(text, i));
        if (isHidden || hides(unit))
            result += visible(unit);
        else
            result += text.at(i);
    }
    return result;
}

int longestRun(const QString &text, QChar character)
{
    int longest = 0;
    int run = 0;
    for (const QChar next : text) {
        run = next == character ? run + 1 : 0;
        longest = qMax(longest, run);
    }
    return longest;
}

/// \a text without runs of backticks that are too long for a fence.
QString withShortRuns(const QString &text)
{
    QString result = text;
    if (longestRun(text, QLatin1Char('`')) > longestBackticks)
        result.replace(QLatin1Char('`'), visible('`'));
    return result;
}

bool isAtAnEnd(const QString &text, QChar character)
{
    return text.startsWith(character) || text.endsWith(character);
}

/// A character as spreadsheets read it: full-width and small forms of ASCII as ASCII.
ushort plainForm(QChar character)
{
    constexpr ushort minusSign = 0x2212;
    if (character.unicode() == minusSign)
        return '-';
    const QString plain = QString(character).normalized(QString::NormalizationForm_KC);
    return plain.isEmpty() ? character.unicode() : plain.at(0).unicode();
}

bool beginsFormula(ushort unit)
{
    return unit == '=' || unit == '+' || unit == '-' || unit == '@';
}

int digits(const QString &text, int &position)
{
    const int first = position;
    while (position < text.size() && text.at(position) >= QLatin1Char('0') && text.at(position) <= QLatin1Char('9'))
        ++position;
    return position - first;
}

bool skip(const QString &text, int &position, const char *characters)
{
    if (position >= text.size() || !QLatin1String(characters).contains(text.at(position)))
        return false;
    ++position;
    return true;
}

/// An optional sign, digits, a fraction and an exponent, in ASCII.
bool isNumber(const QString &text)
{
    int position = 0;
    skip(text, position, "+-");
    if (digits(text, position) == 0)
        return false;
    if (skip(text, position, ".,") && digits(text, position) == 0)
        return false;
    if (skip(text, position, "eE")) {
        skip(text, position, "+-");
        if (digits(text, position) == 0)
            return false;
    }
    return position == text.size();
}

/// The first character that a spreadsheet does not skip.
int firstVisible(const QString &text)
{
    int i = 0;
    while (i < text.size()) {
        const QChar next = text.at(i);
        if (!next.isSpace() && !isControl(next.unicode()) && next.category() != QChar::Other_Format)
            break;
        ++i;
    }
    return i;
}

} // namespace

QString terminalText(const QString &text)
{
    return withVisible(text, [](ushort) { return false; });
}

QString htmlText(const QString &text)
{
    QString result = terminalText(text).toHtmlEscaped(); // all but the apostrophe
    return result.replace(QLatin1Char('\''), QStringLiteral("&#39;"));
}

QString markdownCode(const QString &text)
{
    const QString line = withShortRuns(withVisible(text, [](ushort unit) { return unit == '\n' || unit == '|'; }));
    const QString ticks(longestRun(line, QLatin1Char('`')) + 1, QLatin1Char('`'));
    const bool padded = line.isEmpty() || isAtAnEnd(line, QLatin1Char('`'))
        || (isAtAnEnd(line, QLatin1Char(' ')) && !line.trimmed().isEmpty());
    const QString pad = padded ? QStringLiteral(" ") : QString();
    return ticks + pad + line + (line.isEmpty() ? QString() : pad) + ticks;
}

QString markdownBlock(const QString &text)
{
    QString lines = withShortRuns(terminalText(text));
    if (!lines.endsWith(QLatin1Char('\n')))
        lines += QLatin1Char('\n');
    const QString fence(qMax(3, longestRun(lines, QLatin1Char('`')) + 1), QLatin1Char('`'));
    return fence + QLatin1Char('\n') + lines + fence + QLatin1Char('\n');
}

QString tableText(const QString &text)
{
    const int first = firstVisible(text);
    const bool hasControl = !text.isEmpty() && isControl(text.at(0).unicode());
    const bool isFormula = first < text.size() && beginsFormula(plainForm(text.at(first)));
    if ((hasControl || isFormula) && !isNumber(text))
        return QLatin1Char('\'') + text;
    return text;
}

} // namespace Reports
} // namespace velkor
