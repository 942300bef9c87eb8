#include "comparison_words.h"
#include "neutral_text.h"

namespace velkor {
namespace Reports {

namespace {

QString code(const QString &value)
{
    return markdownCode(oneLine(value));
}

QString cell(const QString &value)
{
    return markdownCode(tableText(oneLine(value)));
}

class MarkdownWriter
{
public:
    MarkdownWriter(const Comparison &comparison, const ComparisonOptions &options)
        : m_changes(shownChanges(comparison, options))
    {
        m_text += QStringLiteral("# Comparison of two reports\n\n- Old: %1\n").arg(code(reportName(options, 0)));
        m_text += QStringLiteral("- New: ") + code(reportName(options, 1)) + QStringLiteral("\n\n");
        m_text += summaryOf(comparison, options) + QLatin1Char('\n');
        for (std::size_t i = 0; i < m_changes.size(); i = addGroup(i)) { }
    }
    QByteArray utf8() const { return m_text.toUtf8(); }

private:
    std::size_t addGroup(std::size_t begin);
    void addMissing(const Change &change);
    void addFact(const Change &change);

    std::vector<const Change *> m_changes;
    QString m_text;
    QString m_section;
    bool m_isInList = false; ///< the last line is one of a list
};

std::size_t MarkdownWriter::addGroup(std::size_t begin)
{
    const Change &first = *m_changes[begin];
    const std::size_t end = endOfGroup(m_changes, begin);
    if (first.section != m_section) {
        m_section = first.section;
        m_text += QStringLiteral("\n## %1\n").arg(sectionHeading(m_section));
        m_isInList = false;
    }
    if (first.row < 0) {
        addMissing(first);
        return end;
    }
    if (!first.items.isEmpty())
        m_text += QStringLiteral("\n%1\n").arg(code(itemHeading(first.items)));
    if (!first.items.isEmpty() || !m_isInList)
        m_text += QLatin1Char('\n');
    for (std::size_t i = begin; i < end; ++i)
        addFact(*m_changes[i]);
    m_isInList = true;
    return end;
}

void MarkdownWriter::addMissing(const Change &change)
{
    if (!m_isInList)
        m_text += QLatin1Char('\n');
    const QString word = change.difference == Difference::Added ? QStringLiteral("added") : QStringLiteral("removed");
    const QString name = change.items.isEmpty() ? QStringLiteral("the whole section") : code(itemHeading(change.items));
    m_text += QStringLiteral("- %1: %2\n").arg(word, name);
    for (const ItemFact &fact : factsToShow(change))
        m_text += QStringLiteral("  - %1: ").arg(factTitle(fact.row)) + code(fact.value) + QLatin1Char('\n');
    m_isInList = true;
}

void MarkdownWriter::addFact(const Change &change)
{
    const QString note = noteOf(change);
    const QString end = note.isEmpty() ? QStringLiteral("\n") : QStringLiteral(" (%1)\n").arg(note);
    m_text += QStringLiteral("- ") + factTitle(change.row);
    if (change.difference == Difference::Added) {
        m_text += QStringLiteral(", added: ") + code(change.newValue) + end;
    } else if (change.difference == Difference::Removed) {
        m_text += QStringLiteral(", removed: ") + code(change.oldValue) + end;
    } else if (showsEntries(change)) {
        m_text += end;
        for (const QString &entry : change.removedEntries)
            m_text += QStringLiteral("  - removed: ") + code(entry) + QLatin1Char('\n');
        for (const QString &entry : change.addedEntries)
            m_text += QStringLiteral("  - added: ") + code(entry) + QLatin1Char('\n');
    } else {
        m_text += QStringLiteral(": ") + code(change.oldValue) + QStringLiteral(" -> ") + code(change.newValue) + end;
    }
}

QString rowTitle(const ComparisonRow &row)
{
    QStringList parts;
    if (!row.items.isEmpty())
        parts += markdownCode(itemHeading(row.items));
    if (row.row >= 0)
        parts += factTitle(row.row);
    return parts.isEmpty() ? QStringLiteral("the whole section") : parts.join(QLatin1Char(' '));
}

QString tableRow(const QStringList &cells)
{
    return QStringLiteral("| ") + cells.join(QStringLiteral(" | ")) + QStringLiteral(" |\n");
}

QString tableHead(std::size_t reports)
{
    QStringList names(QStringLiteral("Fact"));
    QStringList rules(QStringLiteral("---"));
    for (std::size_t i = 0; i < reports; ++i) {
        names += QString::number(i + 1);
        rules += QStringLiteral("---");
    }
    return tableRow(names) + tableRow(rules);
}

} // namespace

QByteArray comparisonMarkdown(const Comparison &comparison, const ComparisonOptions &options)
{
    return MarkdownWriter(comparison, options).utf8();
}

QByteArray comparisonMarkdown(const ComparisonTable &table, const ComparisonOptions &options)
{
    QString text = QStringLiteral("# Comparison of %1 reports\n\n").arg(table.reports);
    for (std::size_t i = 0; i < table.reports; ++i)
        text += QStringLiteral("%1. ").arg(i + 1) + code(reportName(options, int(i))) + QLatin1Char('\n');
    text += QLatin1Char('\n') + summaryOf(table, options) + QLatin1Char('\n');
    QString section;
    for (const ComparisonRow *row : shownRows(table, options)) {
        if (row->section != section) {
            section = row->section;
            text += QStringLiteral("\n## %1\n\n").arg(sectionHeading(section)) + tableHead(table.reports);
        }
        QStringList cells(rowTitle(*row));
        for (const auto &value : row->values)
            cells += row->row < 0 ? presence(value.has_value()) : value ? cell(*value)
                                                                        : QStringLiteral("-");
        text += tableRow(cells);
    }
    return text.toUtf8();
}

} // namespace Reports
} // namespace velkor
