#include "difference_words.h"

#include "comparison_words.h"
#include "labels.h"
#include "section_names.h"

using namespace velkor::Reports;

namespace {

/// A sign and a word that translators see.
struct Kind
{
    ushort sign;
    const char *word;
};

constexpr Kind added {'+', QT_TRANSLATE_NOOP("DifferenceWords", "added")};
constexpr Kind removed {0x2212, QT_TRANSLATE_NOOP("DifferenceWords", "removed")};
constexpr Kind changed {0x2260, QT_TRANSLATE_NOOP("DifferenceWords", "changed")};
constexpr Kind otherOrder {0x2260, QT_TRANSLATE_NOOP("DifferenceWords", "other order")};
constexpr Kind newer {0x2191, QT_TRANSLATE_NOOP("DifferenceWords", "newer")};
constexpr Kind older {0x2193, QT_TRANSLATE_NOOP("DifferenceWords", "older")};
constexpr Kind larger {0x2191, QT_TRANSLATE_NOOP("DifferenceWords", "larger")};
constexpr Kind smaller {0x2193, QT_TRANSLATE_NOOP("DifferenceWords", "smaller")};

Kind kindOf(const Change &change, bool isOtherOrder)
{
    if (change.difference != Difference::Changed)
        return change.difference == Difference::Added ? added : removed;
    if (change.row >= 0 && change.order != Order::Unknown) {
        const bool isNew = change.order == Order::NewIsNewer;
        const Type type = factRows()[std::size_t(change.row)].type;
        if (type == Type::Version || type == Type::Date)
            return isNew ? newer : older;
        return isNew ? larger : smaller;
    }
    return isOtherOrder ? otherOrder : changed;
}

QString joined(QStringList lines, std::size_t count)
{
    if (count > std::size_t(lines.size()))
        lines += DifferenceWords::tr("and %1 more").arg(count - std::size_t(lines.size()));
    return lines.join(QLatin1Char('\n'));
}

QString factsOf(const Change &change, int most)
{
    QStringList lines;
    const std::vector<ItemFact> facts = factsToShow(change);
    for (std::size_t i = 0; i < facts.size() && i < std::size_t(most); ++i)
        lines += QStringLiteral("%1: %2").arg(factTitle(facts[i].row), facts[i].value);
    return joined(lines, facts.size());
}

QString shownValue(const Change &change, const QString &value, const QStringList &entries, int most)
{
    if (change.row < 0)
        return factsOf(change, most);
    if (showsEntries(change))
        return joined(entries.mid(0, most), std::size_t(entries.size()));
    return value.isEmpty() ? DifferenceWords::tr("(empty)") : value;
}

} // namespace

QString DifferenceWords::section(const QString &name)
{
    const std::vector<int> found = resolveSection(name);
    if (found.empty())
        return name;
    QString title = sectionTitle(found.front());
    for (const int row : resolveSection(title)) {
        if (row != found.front())
            return QStringLiteral("%1: %2").arg(title, name.mid(name.indexOf(QLatin1Char(':')) + 1));
    }
    return title;
}

QString DifferenceWords::items(const QStringList &items)
{
    QStringList names;
    for (const QString &item : items) {
        const int end = item.indexOf(QLatin1Char(' '));
        names += end < 0 ? words(item) : words(item.left(end)) + item.mid(end);
    }
    return names.join(QStringLiteral(" \u203a "));
}

QString DifferenceWords::subject(const QStringList &items, int row)
{
    const QString path = DifferenceWords::items(items);
    if (row < 0)
        return path.isEmpty() ? tr("the whole section") : path;
    const QString title = factTitle(row);
    return path.isEmpty() ? title : QStringLiteral("%1 \u203a %2").arg(path, title);
}

bool DifferenceWords::isOtherOrder(const Change &change)
{
    Change alone = change;
    alone.order = Order::Unknown;
    alone.everyMoment = false;
    return !noteOf(alone).isEmpty(); // nothing else is left to note
}

QString DifferenceWords::kind(const Change &change, bool isOtherOrder)
{
    return QChar(kindOf(change, isOtherOrder).sign) + QLatin1Char(' ') + word(change, isOtherOrder);
}

QString DifferenceWords::word(const Change &change, bool isOtherOrder)
{
    const QString word = tr(kindOf(change, isOtherOrder).word);
    return change.everyMoment ? tr("%1, every moment").arg(word) : word;
}

QString DifferenceWords::olderValue(const Change &change, int mostEntries)
{
    return change.difference == Difference::Added ? QString() : shownValue(change, change.oldValue, change.removedEntries, mostEntries);
}

QString DifferenceWords::newerValue(const Change &change, int mostEntries)
{
    return change.difference == Difference::Removed ? QString() : shownValue(change, change.newValue, change.addedEntries, mostEntries);
}
