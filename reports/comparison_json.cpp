#include "comparison_words.h"
#include "json_string.h"

namespace velkor {
namespace Reports {

namespace {

QString quoted(const QString &text)
{
    return jsonString(text);
}

QString quoted(const char *text)
{
    return quoted(QString::fromUtf8(text));
}

QString quotedList(const QStringList &texts)
{
    QStringList all;
    for (const QString &text : texts)
        all += quoted(text);
    return QLatin1Char('[') + all.join(QStringLiteral(", ")) + QLatin1Char(']');
}

QString boolean(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

/// A value, or null if there is none.
QString optional(bool isThere, const QString &value)
{
    return isThere ? quoted(value) : QStringLiteral("null");
}

/// The members of an object on one line.
class Members
{
public:
    void add(const char *name, const QString &json) { m_members += quoted(name) + QStringLiteral(": ") + json; }
    QString object() const { return QLatin1Char('{') + m_members.join(QStringLiteral(", ")) + QLatin1Char('}'); }

private:
    QStringList m_members;
};

QString keyOf(int row)
{
    return row < 0 ? QStringLiteral("null") : quoted(factRows()[std::size_t(row)].key);
}

QString differenceName(Difference difference)
{
    switch (difference) {
    case Difference::Added:
        return quoted("added");
    case Difference::Removed:
        return quoted("removed");
    case Difference::Changed:
        break;
    }
    return quoted("changed");
}

QString newerName(Order order)
{
    switch (order) {
    case Order::NewIsNewer:
        return quoted("new");
    case Order::OldIsNewer:
        return quoted("old");
    case Order::Unknown:
        break;
    }
    return QStringLiteral("null");
}

QString factsObject(const std::vector<ItemFact> &facts)
{
    QStringList all;
    for (const ItemFact &fact : facts) {
        Members members;
        members.add("item", quoted(factRows()[std::size_t(fact.row)].item));
        members.add("key", keyOf(fact.row));
        members.add("value", quoted(fact.value));
        all += members.object();
    }
    return QLatin1Char('[') + all.join(QStringLiteral(", ")) + QLatin1Char(']');
}

QString changeObject(const Change &change)
{
    const bool isFact = change.row >= 0;
    Members members;
    members.add("difference", differenceName(change.difference));
    members.add("section", quoted(change.section));
    members.add("items", quotedList(change.items));
    members.add("key", keyOf(change.row));
    members.add("old", optional(isFact && change.difference != Difference::Added, change.oldValue));
    members.add("new", optional(isFact && change.difference != Difference::Removed, change.newValue));
    members.add("newer", newerName(change.order));
    members.add("everyMoment", boolean(change.everyMoment));
    members.add("sameIdentity", boolean(change.sameIdentity));
    if (showsEntries(change)) {
        members.add("addedEntries", quotedList(change.addedEntries));
        members.add("removedEntries", quotedList(change.removedEntries));
    }
    if (!isFact && !change.items.isEmpty())
        members.add("facts", factsObject(change.facts));
    return members.object();
}

QString rowObject(const ComparisonRow &row)
{
    QStringList values;
    for (const auto &value : row.values)
        values += row.row < 0 ? boolean(value.has_value()) : optional(value.has_value(), value.value_or(QString()));
    Members members;
    members.add("section", quoted(row.section));
    members.add("items", quotedList(row.items));
    members.add("key", keyOf(row.row));
    members.add("values", QLatin1Char('[') + values.join(QStringLiteral(", ")) + QLatin1Char(']'));
    members.add("everyMoment", boolean(row.everyMoment));
    members.add("sameIdentity", boolean(row.sameIdentity));
    return members.object();
}

QByteArray wholeObject(bool same, const QStringList &reportNames, const char *listName, const QStringList &objects)
{
    const QString lineStart = QStringLiteral("\n    ");
    QString text = QStringLiteral("{\n  \"schemaVersion\": %1,\n  \"same\": ").arg(schemaVersion) + boolean(same);
    text += QStringLiteral(",\n  \"reports\": ") + quotedList(reportNames);
    text += QStringLiteral(",\n  ") + quoted(listName) + QStringLiteral(": [");
    for (int i = 0; i < objects.size(); ++i)
        text += (i > 0 ? QStringLiteral(",") : QString()) + lineStart + objects.at(i);
    text += objects.isEmpty() ? QStringLiteral("]\n}\n") : QStringLiteral("\n  ]\n}\n");
    return text.toUtf8();
}

QStringList names(const ComparisonOptions &options, std::size_t reports)
{
    QStringList result;
    for (std::size_t i = 0; i < reports; ++i)
        result += reportName(options, int(i));
    return result;
}

} // namespace

QByteArray comparisonJson(const Comparison &comparison, const ComparisonOptions &options)
{
    QStringList objects;
    for (const Change &change : comparison.changes)
        objects += changeObject(change);
    return wholeObject(comparison.same(), names(options, 2), "changes", objects);
}

QByteArray comparisonJson(const ComparisonTable &table, const ComparisonOptions &options)
{
    QStringList objects;
    for (const ComparisonRow &row : table.rows)
        objects += rowObject(row);
    return wholeObject(table.same(), names(options, table.reports), "rows", objects);
}

} // namespace Reports
} // namespace velkor
