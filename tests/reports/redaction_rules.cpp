#include "redaction_rules.h"

#include <QtCore/QMap>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

using namespace velkor::Reports;

namespace {

bool isEqual(const Section &left, const Section &right)
{
    return left.row == right.row && left.report == right.report && left.firstFact == right.firstFact
        && left.lastFact == right.lastFact && left.firstItem == right.firstItem && left.lastItem == right.lastItem;
}

bool isEqual(const Item &left, const Item &right)
{
    return left.kind == right.kind && left.section == right.section && left.parent == right.parent
        && left.firstFact == right.firstFact && left.lastFact == right.lastFact;
}

bool isEqual(const Fact &left, const Fact &right) { return left.row == right.row && left.item == right.item; }

/// The number of the line that the offset is in, from 1.
int lineOf(const Document &document, int offset) { return document.text().left(offset).count('\n') + 1; }

template <typename Part>
QString flawOfParts(const char *name, const Document &before, const std::vector<Part> &left,
                    const std::vector<Part> &right)
{
    for (std::size_t i = 0; i < left.size() && i < right.size(); ++i) {
        if (!isEqual(left[i], right[i]))
            return QStringLiteral("%1 %2 in line %3 is another one")
                .arg(QLatin1String(name))
                .arg(i)
                .arg(lineOf(before, left[i].begin));
    }
    if (left.size() != right.size())
        return QStringLiteral("%1 instead of %2 of: %3").arg(right.size()).arg(left.size()).arg(QLatin1String(name));
    return {};
}

/// The bytes of the format itself, without line ends.
QByteArray bytesOutsideOfValues(const Document &document)
{
    QByteArray bytes;
    for (const Place &place : document.places()) {
        if (place.kind == PlaceKind::Heading || place.kind == PlaceKind::Separator || place.kind == PlaceKind::Label)
            bytes += document.text().mid(place.begin, place.end - place.begin);
    }
    return bytes.replace('\n', "").replace('\r', "");
}

QString firstDifference(const QByteArray &left, const QByteArray &right)
{
    int at = 0;
    while (at < left.size() && at < right.size() && left[at] == right[at])
        ++at;
    const int begin = std::max(0, at - 40);
    return QStringLiteral("\"%1\" instead of \"%2\"")
        .arg(QString::fromUtf8(right.mid(begin, 100)), QString::fromUtf8(left.mid(begin, 100)));
}

QString flawOfAlias(const Alias &alias, bool hasKey)
{
    static const QRegularExpression numbered(QStringLiteral("\\A[a-z]+-[1-9][0-9]*\\z"));
    static const QRegularExpression keyed(QStringLiteral("\\A[a-z]+-[0-9]{12}\\z"));
    if (!(hasKey ? keyed : numbered).match(alias.text).hasMatch())
        return QStringLiteral("another form");
    if (!alias.text.startsWith(aliasKindName(alias.kind) + QLatin1Char('-')))
        return QStringLiteral("another kind");
    if (alias.count < 1)
        return QStringLiteral("no place");
    if (!alias.reasons)
        return QStringLiteral("no reason");
    if (alias.spellings.isEmpty() != (alias.kind == AliasKind::Secret))
        return QStringLiteral("spellings");
    if (QSet<QString>(alias.spellings.begin(), alias.spellings.end()).size() != alias.spellings.size())
        return QStringLiteral("a spelling twice");
    return {};
}

/// What a place with \a original must have, apart from the alias.
QByteArray lineBreaksOf(const QByteArray &original)
{
    QByteArray breaks;
    for (const char byte : original) {
        if (byte == '\n' || byte == '\r')
            breaks += byte;
    }
    return breaks;
}

} // namespace

bool haveSameLineBreaks(const Document &before, const Document &after)
{
    return before.text().count('\n') == after.text().count('\n')
        && before.text().count('\r') == after.text().count('\r');
}

QString flawOfRedaction(const Document &before, const Document &after)
{
    if (!haveSameLineBreaks(before, after))
        return QStringLiteral("%1 lines instead of %2").arg(after.text().count('\n')).arg(before.text().count('\n'));
    if (before.encoding() != after.encoding() || before.lineEnd() != after.lineEnd()
        || before.linePrefix() != after.linePrefix())
        return QStringLiteral("the encoding, the line ends or the quotes");
    if (before.states().testFlag(State::WrappedLines))
        return {};
    if ((before.states() & ~int(State::Ambiguous)) != (after.states() & ~int(before.states() & State::Ambiguous)))
        return QStringLiteral("the states %1 instead of %2")
            .arg(stateNames(after.states()).join(QLatin1Char(' ')), stateNames(before.states()).join(QLatin1Char(' ')));
    QString flaw = flawOfParts("section", before, before.sections(), after.sections());
    if (flaw.isEmpty())
        flaw = flawOfParts("item", before, before.items(), after.items());
    if (flaw.isEmpty())
        flaw = flawOfParts("fact", before, before.facts(), after.facts());
    const QByteArray left = bytesOutsideOfValues(before);
    const QByteArray right = bytesOutsideOfValues(after);
    if (flaw.isEmpty() && left != right)
        flaw = QStringLiteral("outside of values ") + firstDifference(left, right);
    return flaw;
}

std::vector<FoundAlias> aliasesIn(const QString &text)
{
    static const QRegularExpression expression(
        QStringLiteral("(?<![A-Za-z0-9])(user|host|domain|org|product|serial|mac|ip|printer|label|share|folder|secret|"
                       "word)-[0-9]+(?![0-9])"));
    std::vector<FoundAlias> aliases;
    for (auto matches = expression.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        aliases.push_back({match.captured(1), match.captured()});
    }
    return aliases;
}

QString flawOfAliases(const Redaction &redaction, bool hasKey, bool mayLeaveOut)
{
    QSet<QString> texts;
    QMap<AliasKind, int> numbers;
    for (const Alias &alias : redaction.aliases) {
        QString flaw = flawOfAlias(alias, hasKey);
        if (flaw.isEmpty() && texts.contains(alias.text))
            flaw = QStringLiteral("twice");
        const int number = alias.text.section(QLatin1Char('-'), 1).toInt();
        if (flaw.isEmpty() && !hasKey && !mayLeaveOut && number != ++numbers[alias.kind])
            flaw = QStringLiteral("not the number that follows");
        if (!flaw.isEmpty())
            return QStringLiteral("%1: %2").arg(alias.text, flaw);
        texts += alias.text;
    }
    return {};
}

QString flawOfReplacements(const Document &before, const Redaction &redaction, std::size_t index)
{
    static const QRegularExpression length(QStringLiteral("\\Alength-[0-9]+\\z"));
    const QByteArray &original = before.text();
    const QByteArray &redacted = redaction.documents[index].text();
    int at = 0;
    int originalAt = 0;
    for (const Replacement &place : redaction.replacements[index]) {
        const auto flaw = [&](const QString &what) { return QStringLiteral("line %1: %2").arg(lineOf(before, place.originalBegin)).arg(what); };
        if (place.begin < at || place.end < place.begin || place.originalBegin < originalAt || place.originalEnd <= place.originalBegin)
            return flaw(QStringLiteral("not in order"));
        if (redacted.mid(at, place.begin - at) != original.mid(originalAt, place.originalBegin - originalAt))
            return flaw(QStringLiteral("the text before it differs"));
        const QByteArray breaks = lineBreaksOf(original.mid(place.originalBegin, place.originalEnd - place.originalBegin));
        const QString text = QString::fromUtf8(redacted.mid(place.begin, place.end - place.begin - breaks.size()));
        const bool isRight = place.alias < 0 ? length.match(text).hasMatch() : text == redaction.aliases[std::size_t(place.alias)].text;
        if ((!text.isEmpty() && !isRight) || redacted.mid(place.end - breaks.size(), breaks.size()) != breaks)
            return flaw(QStringLiteral("it has \"%1\"").arg(text));
        at = place.end;
        originalAt = place.originalEnd;
    }
    return redacted.mid(at) == original.mid(originalAt) ? QString() : QStringLiteral("the text at the end differs");
}
