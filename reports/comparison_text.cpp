#include "comparison_words.h"
#include "neutral_text.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

constexpr int widestLine = 110;       ///< wider changes have a line for each value
constexpr int widestTitle = 36;       ///< longer titles do not widen the column
constexpr int widestCell = 40;        ///< wider cells of a table have a line each
constexpr std::size_t mostFacts = 10; ///< more facts of an item that was added or removed are counted

enum class Colour {
    Removed = 31,
    Added = 32,
    Heading = 1, ///< bold
};

/// Lines of text. All texts that it is given come from reports.
class Lines
{
public:
    explicit Lines(bool colours) : m_colours(colours) { }

    void add(const QString &line) { m_text += line + QLatin1Char('\n'); }
    void add(Colour colour, const QString &line) { add(coloured(colour, line)); }
    QByteArray utf8() const { return m_text.toUtf8(); }

    QString coloured(Colour colour, const QString &text) const
    {
        return m_colours ? QStringLiteral("\x1b[%1m%2\x1b[0m").arg(QString::number(int(colour)), text) : text;
    }

private:
    QString m_text;
    bool m_colours;
};

QString safe(const QString &value)
{
    return terminalText(oneLine(value));
}

QString blanks(int count)
{
    return QString(std::max(count, 0), QLatin1Char(' '));
}

QString padded(const QString &text, int width)
{
    return text + blanks(width - text.size());
}

class TextWriter
{
public:
    TextWriter(const Comparison &comparison, const ComparisonOptions &options)
        : m_changes(shownChanges(comparison, options)), m_lines(options.colours)
    {
        m_lines.add(Colour::Removed, QStringLiteral("--- ") + safe(reportName(options, 0)));
        m_lines.add(Colour::Added, QStringLiteral("+++ ") + safe(reportName(options, 1)));
        for (std::size_t i = 0; i < m_changes.size(); i = addGroup(i)) { }
        m_lines.add({});
        m_lines.add(summaryOf(comparison, options));
    }
    QByteArray utf8() const { return m_lines.utf8(); }

private:
    std::size_t addGroup(std::size_t begin);
    void addMissing(const Change &change);
    void addFact(const Change &change, int indentation, int width);
    void addChangedFact(const Change &change, int indentation, int width);
    void addValues(const Change &change, int indentation);

    std::vector<const Change *> m_changes;
    Lines m_lines;
    QString m_section; ///< the section of the last heading
};

std::size_t TextWriter::addGroup(std::size_t begin)
{
    const Change &first = *m_changes[begin];
    const std::size_t end = endOfGroup(m_changes, begin);
    if (first.section != m_section) {
        m_section = first.section;
        m_lines.add({});
        m_lines.add(Colour::Heading, sectionHeading(m_section));
    }
    if (first.row < 0) {
        addMissing(first);
        return end;
    }
    if (!first.items.isEmpty())
        m_lines.add(QStringLiteral("    ") + safe(itemHeading(first.items)));
    int width = 0;
    for (std::size_t i = begin; i < end; ++i)
        width = std::max(width, factTitle(m_changes[i]->row).size());
    for (std::size_t i = begin; i < end; ++i)
        addFact(*m_changes[i], first.items.isEmpty() ? 4 : 8, std::min(width, widestTitle));
    return end;
}

void TextWriter::addMissing(const Change &change)
{
    const bool added = change.difference == Difference::Added;
    const QString sign = added ? QStringLiteral("  + ") : QStringLiteral("  - ");
    const QString name = change.items.isEmpty() ? QStringLiteral("the whole section") : safe(itemHeading(change.items));
    m_lines.add(added ? Colour::Added : Colour::Removed, sign + name);
    int width = 0;
    const std::vector<ItemFact> facts = factsToShow(change);
    for (const ItemFact &fact : facts)
        width = std::max(width, factTitle(fact.row).size());
    const std::size_t count = std::min(facts.size(), mostFacts);
    for (std::size_t i = 0; i < count; ++i)
        m_lines.add(blanks(8) + padded(factTitle(facts[i].row), std::min(width, widestTitle)) + QStringLiteral("  ") + safe(facts[i].value));
    if (count < facts.size())
        m_lines.add(blanks(8) + QStringLiteral("... and %1 more").arg(facts.size() - count));
}

void TextWriter::addFact(const Change &change, int indentation, int width)
{
    if (change.difference == Difference::Changed) {
        addChangedFact(change, indentation, width);
        return;
    }
    const bool added = change.difference == Difference::Added;
    m_lines.add(added ? Colour::Added : Colour::Removed,
                blanks(indentation - 2) + QLatin1String(added ? "+ " : "- ") + padded(factTitle(change.row), width)
                    + QStringLiteral("  ") + safe(added ? change.newValue : change.oldValue));
}

void TextWriter::addChangedFact(const Change &change, int indentation, int width)
{
    const QString note = noteOf(change);
    const QString end = note.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(note);
    const QString oldValue = safe(change.oldValue);
    const QString newValue = safe(change.newValue);
    const QString begin = blanks(indentation) + padded(factTitle(change.row), width) + QStringLiteral("  ");
    if (begin.size() + oldValue.size() + newValue.size() + end.size() + 4 <= widestLine) {
        m_lines.add(begin + m_lines.coloured(Colour::Removed, oldValue) + QStringLiteral(" -> ")
                    + m_lines.coloured(Colour::Added, newValue) + end);
        return;
    }
    m_lines.add(blanks(indentation) + factTitle(change.row) + end);
    addValues(change, indentation);
}

void TextWriter::addValues(const Change &change, int indentation)
{
    const bool entries = showsEntries(change);
    for (const QString &value : entries ? change.removedEntries : QStringList(change.oldValue))
        m_lines.add(Colour::Removed, blanks(indentation + 2) + QStringLiteral("- ") + safe(value));
    for (const QString &value : entries ? change.addedEntries : QStringList(change.newValue))
        m_lines.add(Colour::Added, blanks(indentation + 2) + QStringLiteral("+ ") + safe(value));
}

/// Writes several reports side by side.
class TableWriter
{
public:
    TableWriter(const ComparisonTable &table, const ComparisonOptions &options)
        : m_reports(table.reports), m_rows(shownRows(table, options)), m_lines(options.colours)
    {
        for (std::size_t i = 0; i < m_reports; ++i)
            m_lines.add(QStringLiteral("[%1] %2").arg(i + 1).arg(safe(reportName(options, int(i)))));
        for (std::size_t i = 0; i < m_rows.size(); i = addSection(i)) { }
        m_lines.add({});
        m_lines.add(summaryOf(table, options));
    }
    QByteArray utf8() const { return m_lines.utf8(); }

private:
    std::size_t addSection(std::size_t begin);
    void addRow(const ComparisonRow &row, const std::vector<int> &widths);
    QStringList cells(const ComparisonRow &row) const;

    std::size_t m_reports;
    std::vector<const ComparisonRow *> m_rows;
    Lines m_lines;
};

/// The name of the row and its values.
QStringList TableWriter::cells(const ComparisonRow &row) const
{
    const bool isFact = row.row >= 0;
    QStringList result(isFact                    ? QStringLiteral("  ") + factTitle(row.row)
                           : row.items.isEmpty() ? QStringLiteral("  the whole section")
                                                 : QStringLiteral("  is in the report"));
    for (const auto &value : row.values)
        result += isFact ? (value ? safe(*value) : QStringLiteral("-")) : presence(value.has_value());
    return result;
}

bool isWide(const QStringList &cells)
{
    return std::any_of(cells.begin(), cells.end(), [](const QString &cell) { return cell.size() > widestCell; });
}

std::size_t TableWriter::addSection(std::size_t begin)
{
    std::size_t end = begin;
    QStringList headings(QString {});
    for (std::size_t i = 0; i < m_reports; ++i)
        headings += QStringLiteral("[%1]").arg(i + 1);
    std::vector<int> widths;
    for (const QString &heading : headings)
        widths.push_back(heading.size());
    bool hasColumns = false;
    for (; end < m_rows.size() && m_rows[end]->section == m_rows[begin]->section; ++end) {
        const QStringList all = cells(*m_rows[end]);
        hasColumns = hasColumns || !isWide(all);
        for (int i = 0; i < all.size() && !isWide(all); ++i)
            widths[std::size_t(i)] = std::max(widths[std::size_t(i)], all.at(i).size());
    }
    m_lines.add({});
    m_lines.add(Colour::Heading, sectionHeading(m_rows[begin]->section));
    QString line;
    for (int i = 0; i < headings.size(); ++i)
        line += padded(headings.at(i), widths[std::size_t(i)]) + QStringLiteral("  ");
    if (hasColumns)
        m_lines.add(line.left(line.lastIndexOf(QLatin1Char(']')) + 1));
    QStringList items;
    for (std::size_t i = begin; i < end; ++i) {
        if (m_rows[i]->items != items && !m_rows[i]->items.isEmpty())
            m_lines.add(safe(itemHeading(m_rows[i]->items)));
        items = m_rows[i]->items;
        addRow(*m_rows[i], widths);
    }
    return end;
}

void TableWriter::addRow(const ComparisonRow &row, const std::vector<int> &widths)
{
    const QStringList all = cells(row);
    if (isWide(all)) {
        m_lines.add(all.constFirst());
        for (int i = 1; i < all.size(); ++i)
            m_lines.add(QStringLiteral("    [%1] %2").arg(i).arg(all.at(i)));
        return;
    }
    QString line;
    for (int i = 0; i + 1 < all.size(); ++i)
        line += padded(all.at(i), widths[std::size_t(i)]) + QStringLiteral("  ");
    m_lines.add(line + all.constLast());
}

} // namespace

QByteArray comparisonText(const Comparison &comparison, const ComparisonOptions &options)
{
    return TextWriter(comparison, options).utf8();
}

QByteArray comparisonText(const ComparisonTable &table, const ComparisonOptions &options)
{
    return TableWriter(table, options).utf8();
}

} // namespace Reports
} // namespace velkor
