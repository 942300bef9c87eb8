#include "fact_meaning.h"

#include <QtCore/QCoreApplication>
#include <algorithm>

using namespace velkor;
using Reports::Reveal;

namespace {

struct FactMeaning
{
    Q_DECLARE_TR_FUNCTIONS(FactMeaning)
};

struct RevealName
{
    Reveal reveal;
    const char *name;
};

constexpr RevealName revealNames[] = {
    {Reveal::User, QT_TRANSLATE_NOOP("FactMeaning", "a user's name")},
    {Reveal::Host, QT_TRANSLATE_NOOP("FactMeaning", "the name of a computer")},
    {Reveal::Organisation, QT_TRANSLATE_NOOP("FactMeaning", "an organisation")},
    {Reveal::Address, QT_TRANSLATE_NOOP("FactMeaning", "an address")},
    {Reveal::SerialNumber, QT_TRANSLATE_NOOP("FactMeaning", "a serial number")},
    {Reveal::Path, QT_TRANSLATE_NOOP("FactMeaning", "a path")},
    {Reveal::Printer, QT_TRANSLATE_NOOP("FactMeaning", "a printer")},
    {Reveal::DriveLabel, QT_TRANSLATE_NOOP("FactMeaning", "the label of a drive")},
    {Reveal::NetworkDrive, QT_TRANSLATE_NOOP("FactMeaning", "a network drive")},
    {Reveal::Secret, QT_TRANSLATE_NOOP("FactMeaning", "a secret")},
};

QString changesText(Reports::Changes changes)
{
    if (changes == Reports::Changes::EveryMoment)
        return FactMeaning::tr("It changes every moment.");
    return changes == Reports::Changes::Slowly ? FactMeaning::tr("It changes slowly.") : QString();
}

QString revealsText(Reports::Reveals reveals)
{
    QStringList names;
    for (const RevealName &row : revealNames) {
        if (reveals.testFlag(row.reveal))
            names << FactMeaning::tr(row.name);
    }
    return names.isEmpty() ? QString() : FactMeaning::tr("It can reveal %1.").arg(names.join(QStringLiteral(", ")));
}

bool isLineEnd(char character)
{
    return character == '\n' || character == '\r';
}

int lineBegin(const QByteArray &text, int offset)
{
    while (offset > 0 && !isLineEnd(text.at(offset - 1)))
        --offset;
    return offset;
}

int lineEnd(const QByteArray &text, int offset)
{
    while (offset < text.size() && !isLineEnd(text.at(offset)))
        ++offset;
    return offset;
}

} // namespace

QString factMeaning(const Reports::FactRow &row)
{
    const QString unit = QString::fromLatin1(row.unit);
    QStringList sentences {row.meaning()};
    if (!unit.isEmpty())
        sentences << FactMeaning::tr("Its unit is %1.").arg(unit);
    sentences << changesText(row.changes) << revealsText(row.reveals);
    sentences.removeAll(QString());
    return sentences.join(QLatin1Char(' '));
}

int factAt(const Reports::Document &document, int offset)
{
    const QByteArray &text = document.text();
    const std::vector<Reports::Fact> &facts = document.facts();
    if (offset < 0 || offset > text.size())
        return -1;
    const int end = lineEnd(text, offset);
    const int begin = lineBegin(text, offset);
    auto after = std::upper_bound(facts.begin(), facts.end(), end, [](int place, const Reports::Fact &fact) { return place < fact.begin; });
    int found = -1;
    for (; after != facts.begin() && (after - 1)->end >= begin; --after) { // the facts of the line, backwards
        if (found >= 0 && (after - 1)->end < offset)
            break;
        found = int(after - 1 - facts.begin());
    }
    return found;
}

int sectionAt(const Reports::Document &document, int offset)
{
    const std::vector<Reports::Section> &sections = document.sections();
    const auto after = std::upper_bound(sections.begin(), sections.end(), offset,
                                        [](int place, const Reports::Section &section) { return place < section.begin; });
    return after != sections.begin() && offset < (after - 1)->end ? int(after - 1 - sections.begin()) : -1;
}

QString meaningAt(const Reports::Document &document, int offset)
{
    const int fact = factAt(document, offset);
    if (fact >= 0)
        return factMeaning(document.row(document.facts()[std::size_t(fact)]));
    const int section = sectionAt(document, offset);
    return section < 0 ? QString() : Reports::sectionRows()[std::size_t(document.sections()[std::size_t(section)].row)].meaning();
}
