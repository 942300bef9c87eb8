#include "comparison_words.h"
#include "neutral_text.h"

namespace velkor {
namespace Reports {

namespace {

constexpr const char pageBegin[] = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'">
<title>Comparison of reports</title>
<style>
body { font-family: sans-serif; margin: 2em; }
table { border-collapse: collapse; }
th, td { border: 1px solid #999; padding: 0.2em 0.5em; text-align: left; vertical-align: top; }
td { overflow-wrap: anywhere; }
td { white-space: pre-wrap; font-family: monospace; }
th.item { background: #eee; font-family: monospace; }
.removed { background: #fdd; }
.added { background: #dfd; }
@media print { body { margin: 0; } tr { break-inside: avoid; } h2 { break-after: avoid; } }
</style>
</head>
<body>
)";

QString cell(const QString &value, const char *name = "")
{
    const QString attribute = *name ? QStringLiteral(" class=\"%1\"").arg(QLatin1String(name)) : QString();
    return QStringLiteral("<td") + attribute + QLatin1Char('>') + htmlText(tableText(value)) + QStringLiteral("</td>");
}

QString headCell(const QString &text)
{
    return QStringLiteral("<th scope=\"col\">") + htmlText(text) + QStringLiteral("</th>");
}

QString row(const QString &cells)
{
    return QStringLiteral("<tr>") + cells + QStringLiteral("</tr>\n");
}

QString title(const QString &text)
{
    return QStringLiteral("<th scope=\"row\">") + htmlText(text) + QStringLiteral("</th>");
}

QString itemRow(const QStringList &items, std::size_t columns)
{
    return row(QStringLiteral("<th class=\"item\" colspan=\"%1\">").arg(columns) + htmlText(itemHeading(items)) + QStringLiteral("</th>"));
}

/// A page with a table for each section.
class Page
{
public:
    Page(const ComparisonOptions &options, std::size_t reports, const QString &summary)
        : m_text(QString::fromUtf8(pageBegin))
    {
        m_text += QStringLiteral("<h1>Comparison of reports</h1>\n<ol>\n");
        for (std::size_t i = 0; i < reports; ++i)
            m_text += QStringLiteral("<li>") + htmlText(reportName(options, int(i))) + QStringLiteral("</li>\n");
        m_text += QStringLiteral("</ol>\n<p>") + htmlText(summary) + QStringLiteral("</p>\n");
    }

    /// Begins a table if the section is another one, and a group if the items are.
    void begin(const QString &section, const QStringList &items, const QString &head, std::size_t columns)
    {
        if (section != m_section) {
            end();
            m_section = section;
            m_text += QStringLiteral("<h2>") + htmlText(sectionHeading(section)) + QStringLiteral("</h2>\n<table>\n") + row(head);
            m_items.clear();
        }
        if (items != m_items && !items.isEmpty())
            m_text += itemRow(items, columns);
        m_items = items;
    }
    void add(const QString &cells) { m_text += row(cells); }
    void end() { m_text += m_section.isEmpty() ? QString() : QStringLiteral("</table>\n"); }

    QByteArray utf8()
    {
        end();
        return (m_text + QStringLiteral("</body>\n</html>\n")).toUtf8();
    }

private:
    QString m_text;
    QString m_section;
    QStringList m_items;
};

QString cellsOf(const Change &change)
{
    const bool isOld = change.difference != Difference::Added;
    const bool isNew = change.difference != Difference::Removed;
    const QString none = QStringLiteral("<td></td>");
    if (change.row >= 0) {
        return title(factTitle(change.row)) + (isOld ? cell(change.oldValue, "removed") : none)
            + (isNew ? cell(change.newValue, "added") : none) + cell(noteOf(change));
    }
    const QString what = change.items.isEmpty() ? QStringLiteral("the whole section") : QStringLiteral("the whole item");
    return title(what) + (isOld ? cell(QStringLiteral("removed"), "removed") : none)
        + (isNew ? cell(QStringLiteral("added"), "added") : none) + QStringLiteral("<td></td>");
}

void addFacts(Page &page, const Change &change)
{
    const bool added = change.difference == Difference::Added;
    const QString none = QStringLiteral("<td></td>");
    for (const ItemFact &fact : factsToShow(change)) {
        const QString value = cell(fact.value, added ? "added" : "removed");
        page.add(title(factTitle(fact.row)) + (added ? none + value : value + none) + none);
    }
}

} // namespace

QByteArray comparisonHtml(const Comparison &comparison, const ComparisonOptions &options)
{
    Page page(options, 2, summaryOf(comparison, options));
    const QString head = headCell(QStringLiteral("Fact")) + headCell(QStringLiteral("Old")) + headCell(QStringLiteral("New")) + headCell(QStringLiteral("Note"));
    for (const Change *change : shownChanges(comparison, options)) {
        page.begin(change->section, change->items, head, 4);
        page.add(cellsOf(*change));
        addFacts(page, *change);
    }
    return page.utf8();
}

QByteArray comparisonHtml(const ComparisonTable &table, const ComparisonOptions &options)
{
    Page page(options, table.reports, summaryOf(table, options));
    QString head = headCell(QStringLiteral("Fact"));
    for (std::size_t i = 0; i < table.reports; ++i)
        head += headCell(QString::number(i + 1));
    for (const ComparisonRow *row : shownRows(table, options)) {
        page.begin(row->section, row->items, head, table.reports + 1);
        QString cells = title(row->row >= 0 ? factTitle(row->row) : QStringLiteral("is in the report"));
        for (const auto &value : row->values)
            cells += row->row < 0 ? cell(presence(value.has_value())) : value ? cell(*value)
                                                                              : QStringLiteral("<td>-</td>");
        page.add(cells);
    }
    return page.utf8();
}

} // namespace Reports
} // namespace velkor
