#include "labels.h"

namespace velkor {
namespace Reports {

namespace {

bool isDecoration(QChar character)
{
    return character.isSpace() || QLatin1String(":=#'").contains(character);
}

QString withoutDecoration(const QString &text)
{
    int begin = 0;
    int end = text.size();
    while (begin < end && isDecoration(text.at(begin)))
        ++begin;
    while (end > begin && isDecoration(text.at(end - 1)))
        --end;
    return text.mid(begin, end - begin);
}

bool isPlainNumber(const QString &text)
{
    for (const QChar next : text) {
        if (!QLatin1String("0123456789.-+").contains(next))
            return false;
    }
    return !text.isEmpty();
}

} // namespace

QString words(const QString &key)
{
    QString result;
    for (int i = 0; i < key.size(); ++i) {
        const bool followsSmall = i > 0 && !key.at(i - 1).isUpper();
        const bool precedesSmall = i > 0 && i + 1 < key.size() && key.at(i + 1).isLower();
        if (key.at(i).isUpper() && (followsSmall || precedesSmall))
            result += QLatin1Char(' ');
        result += key.at(i).toLower();
    }
    return result.replace(QLatin1String("open gl"), QLatin1String("OpenGL"));
}

QString factLabel(const FactRow &row)
{
    const bool hasSeveralValues = QLatin1String(row.line).indexOf(QLatin1String("%2")) >= 0;
    const bool isSentence = *row.only != '\0';
    const QString label = hasSeveralValues || isSentence ? QString() : withoutDecoration(row.label());
    return label.isEmpty() ? words(QString::fromLatin1(row.key)) : label;
}

QString shownValue(const Document &document, const Fact &fact)
{
    const QString value = document.display(fact);
    const QString unit = QString::fromLatin1(document.row(fact).unit);
    return !unit.isEmpty() && isPlainNumber(value) ? value + QLatin1Char(' ') + unit : value;
}

QString countOf(const ItemRow &kind, int count)
{
    return QStringLiteral("%1 %2").arg(count).arg(words(QString::fromLatin1(count == 1 ? kind.kind : kind.list)));
}

QString halfTitle(Half half)
{
    switch (half) {
    case Half::Windows:
        return QStringLiteral("Windows");
    case Half::Qt:
        return QStringLiteral("Qt");
    case Half::OpenGL:
        break;
    }
    return QStringLiteral("OpenGL");
}

} // namespace Reports
} // namespace velkor
