#include "comparison_words.h"

#include "labels.h"
#include "section_names.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

QString orderWord(const Change &change)
{
    if (change.order == Order::Unknown || change.row < 0)
        return {};
    const bool isNew = change.order == Order::NewIsNewer;
    const Type type = factRows()[std::size_t(change.row)].type;
    if (type == Type::Version || type == Type::Date)
        return isNew ? QStringLiteral("newer") : QStringLiteral("older");
    return isNew ? QStringLiteral("larger") : QStringLiteral("smaller");
}

/// Whether the values are lists with semicolons and have equal entries.
static bool haveEqualEntries(const Change &change)
{
    const QLatin1Char separator(';');
    if (!change.oldValue.contains(separator))
        return false;
    QStringList a = change.oldValue.split(separator, Qt::SkipEmptyParts);
    QStringList b = change.newValue.split(separator, Qt::SkipEmptyParts);
    a.sort();
    b.sort();
    return a == b;
}

bool isOtherOrder(const Change &change)
{
    if (change.difference != Difference::Changed || change.row < 0 || !change.addedEntries.isEmpty() || !change.removedEntries.isEmpty())
        return false;
    return factRows()[std::size_t(change.row)].type == Type::List || haveEqualEntries(change);
}

QString counted(std::size_t count, const char *one, const char *many)
{
    return QStringLiteral("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : many));
}

template <typename Changes>
QString summary(const Changes &changes, bool all)
{
    const auto everyMoment = std::size_t(std::count_if(changes.begin(), changes.end(), [](const auto &change) { return change.everyMoment; }));
    const std::size_t differences = changes.size() - everyMoment;
    QString text = differences == 0 ? QStringLiteral("No differences.") : counted(differences, "difference.", "differences.");
    if (everyMoment > 0) {
        text += QLatin1Char(' ') + counted(everyMoment, "value that changes", "values that change") + QStringLiteral(" every moment ")
            + QLatin1String(everyMoment == 1 ? "differs" : "differ") + QLatin1String(all ? ", too." : ", too; not shown.");
    }
    return text;
}

template <typename Change>
std::vector<const Change *> shown(const std::vector<Change> &changes, bool all)
{
    std::vector<const Change *> result;
    for (const Change &change : changes) {
        if (all || !change.everyMoment)
            result.push_back(&change);
    }
    return result;
}

} // namespace

QString factTitle(int row)
{
    return factLabel(factRows()[std::size_t(row)]);
}

QString sectionHeading(const QString &section)
{
    const std::vector<int> found = resolveSection(section);
    const QString title = found.empty() ? section : sectionTitle(found.front());
    return title == section ? section : QStringLiteral("%1 (%2)").arg(title, section);
}

QString itemHeading(const QStringList &items)
{
    return items.join(QStringLiteral(" > "));
}

QString reportName(const ComparisonOptions &options, int report)
{
    return options.reportNames.value(report, QStringLiteral("report %1").arg(report + 1));
}

QString noteOf(const Change &change)
{
    QStringList notes;
    const QString order = orderWord(change);
    if (!order.isEmpty())
        notes += order;
    if (isOtherOrder(change))
        notes += QStringLiteral("other order");
    if (change.everyMoment)
        notes += QStringLiteral("every moment");
    return notes.join(QStringLiteral(", "));
}

bool showsEntries(const Change &change)
{
    return change.difference == Difference::Changed && !(change.addedEntries.isEmpty() && change.removedEntries.isEmpty());
}

QString oneLine(const QString &value)
{
    QString line = value;
    line.replace(QLatin1Char('\n'), QStringLiteral(" | "));
    return line.isEmpty() ? QStringLiteral("(empty)") : line;
}

std::vector<ItemFact> factsToShow(const Change &change)
{
    std::vector<ItemFact> facts;
    const QString name = change.items.isEmpty() ? QString() : change.items.constLast().section(QLatin1Char(' '), 1);
    for (const ItemFact &fact : change.facts) {
        if (!fact.value.isEmpty() && fact.value.compare(name, Qt::CaseInsensitive) != 0)
            facts.push_back(fact);
    }
    return facts;
}

std::vector<const Change *> shownChanges(const Comparison &comparison, const ComparisonOptions &options)
{
    return shown(comparison.changes, options.all);
}

std::vector<const ComparisonRow *> shownRows(const ComparisonTable &table, const ComparisonOptions &options)
{
    return shown(table.rows, options.all);
}

QString summaryOf(const Comparison &comparison, const ComparisonOptions &options)
{
    return summary(comparison.changes, options.all);
}

QString summaryOf(const ComparisonTable &table, const ComparisonOptions &options)
{
    return summary(table.rows, options.all);
}

std::size_t endOfGroup(const std::vector<const Change *> &changes, std::size_t begin)
{
    std::size_t end = begin + 1;
    while (changes[begin]->row >= 0 && end < changes.size() && changes[end]->row >= 0
           && changes[end]->section == changes[begin]->section && changes[end]->items == changes[begin]->items)
        ++end;
    return end;
}

QString presence(bool isThere)
{
    return isThere ? QStringLiteral("yes") : QStringLiteral("-");
}

} // namespace Reports
} // namespace velkor
