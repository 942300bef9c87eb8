// One page without scripts. Every value goes through htmlText().

#include "decoded_text.h"
#include "formats.h"
#include "html_style.h"
#include "labels.h"
#include "neutral_text.h"
#include "outline.h"
#include "section_names.h"
#include "state_texts.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

// Items with at most so many facts stand in one table, with a column for each.
constexpr std::size_t mostColumns = 8;

class Page
{
public:
    Page(const Document &document, const WriteOptions &options) : m_document(document), m_options(options) { }

    QByteArray html()
    {
        begin();
        addStates();
        if (m_options.sections.empty())
            addSummary();
        if (!m_options.onlySummary) {
            collectForeignText();
            addContents();
            addSections();
            addForeignText();
        }
        m_html += "</body>\n</html>\n";
        return m_html;
    }

private:
    using Node = OutlineNode;

    void add(const QString &text) { m_html += text.toUtf8(); }
    void addText(const QString &text) { add(htmlText(text)); }

    void begin()
    {
        m_html += "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                  "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src 'unsafe-inline'\">\n"
                  "<meta name=\"referrer\" content=\"no-referrer\">\n"
                  "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
                  "<title>System report</title>\n<style>";
        m_html += htmlStyle;
        m_html += "</style>\n</head>\n<body>\n<h1 id=\"top\">System report</h1>\n";
    }

    void addStates()
    {
        const QStringList sentences = stateSentences(m_document);
        if (sentences.isEmpty())
            return;
        m_html += "<div class=\"notes\"><strong>About this text</strong>\n<ul>\n";
        for (const QString &sentence : sentences)
            add(QLatin1String("<li>") + htmlText(sentence) + QLatin1String("</li>\n"));
        m_html += "</ul></div>\n";
    }

    void addSummary()
    {
        const std::vector<SummaryLine> lines = summary(m_document);
        if (lines.empty())
            return;
        m_html += "<h2 class=\"first\">Summary</h2>\n<table><tbody>\n";
        for (const SummaryLine &line : lines)
            addRow(line.label, line.value);
        m_html += "</tbody></table>\n";
    }

    void addRow(const QString &label, const QString &value)
    {
        add(QLatin1String("<tr><th scope=\"row\">") + htmlText(label) + QLatin1String("</th>"));
        addCell(value);
        m_html += "</tr>\n";
    }

    void addCell(const QString &value)
    {
        if (value.isEmpty())
            m_html += "<td class=\"empty\">empty</td>";
        else
            add(QLatin1String("<td>") + htmlText(value) + QLatin1String("</td>"));
    }

    void addFactCell(const Fact &fact)
    {
        if (m_document.row(fact).type != Type::List)
            return addCell(shownValue(m_document, fact));
        const std::vector<QByteArray> values = m_document.values(fact);
        if (values.size() < 2)
            return addCell(m_document.display(fact));
        m_html += isLongList(m_document, fact) ? "<td><ul class=\"values many\">" : "<td><ul class=\"values\">";
        for (const QByteArray &value : values)
            add(QLatin1String("<li>") + htmlText(decodedText(value)) + QLatin1String("</li>"));
        m_html += "</ul></td>";
    }

    /// The lines that no rule knows, apart for each section; the last are outside of all.
    void collectForeignText()
    {
        m_foreign.resize(m_document.sections().size() + 1);
        for (const OtherText &other : otherTexts(m_document)) {
            QString &text = other.section >= 0 ? m_foreign[std::size_t(other.section)] : m_foreign.back();
            text += textBetween(m_document, other.begin, other.end);
            if (!text.endsWith(QLatin1Char('\n')))
                text += QLatin1Char('\n');
        }
    }

    bool hasForeignText() const { return m_options.sections.empty() && !m_foreign.back().isEmpty(); }

    QString title(int section) const { return sectionTitle(m_document.sections()[std::size_t(section)].row); }

    /// Calls \a visit(section, title of the half or an empty text).
    template <typename Visit>
    void forSections(Visit visit) const
    {
        int previous = -1;
        for (int i = 0; i < int(m_document.sections().size()); ++i) {
            if (!isChosen(m_document, i, m_options))
                continue;
            visit(i, partTitle(m_document, i, previous));
            previous = i;
        }
    }

    void addContents()
    {
        m_html += "<nav aria-label=\"Contents\">\n<h2 class=\"first\">Contents</h2>\n";
        bool isOpen = false;
        forSections([&](int section, const QString &half) {
            if (!half.isEmpty()) {
                add((isOpen ? QStringLiteral("</ul>\n<h3>") : QStringLiteral("<h3>")) + htmlText(half) + QStringLiteral("</h3>\n<ul>\n"));
                isOpen = true;
            }
            const QString counts = sectionCounts(m_document, section).join(QStringLiteral(", "));
            add(QStringLiteral("<li><a href=\"#s%1\">").arg(section) + htmlText(title(section)) + QStringLiteral("</a>"));
            if (!counts.isEmpty())
                add(QStringLiteral(" <span class=\"count\">") + htmlText(counts) + QStringLiteral("</span>"));
            m_html += "</li>\n";
        });
        m_html += isOpen ? "</ul>\n" : "";
        if (hasForeignText())
            m_html += "<p><a href=\"#other\">Text that is no report</a></p>\n";
        m_html += "</nav>\n";
    }

    void addSections()
    {
        forSections([&](int section, const QString &half) {
            if (!half.isEmpty())
                add(QStringLiteral("<h2>") + htmlText(half) + QStringLiteral("</h2>\n"));
            addSection(section);
        });
    }

    void addSection(int section)
    {
        add(QStringLiteral("<h3 id=\"s%1\">").arg(section) + htmlText(title(section))
            + QStringLiteral("<a class=\"back\" href=\"#top\">top</a></h3>\n"));
        const Outline outline = outlineOf(m_document, section);
        const Node &root = outline.nodes.front();
        addFacts(root);
        addItems(outline, root, 4);
        const QString &foreign = m_foreign[std::size_t(section)];
        if (root.facts.empty() && root.items.empty() && foreign.isEmpty())
            m_html += "<p>Nothing.</p>\n";
        if (!foreign.isEmpty())
            addLines(QStringLiteral("Lines that no rule knows"), foreign);
    }

    void addFacts(const Node &node)
    {
        if (node.facts.empty())
            return;
        m_html += "<table><tbody>\n";
        for (const int index : node.facts) {
            const Fact &fact = m_document.facts()[std::size_t(index)];
            add(QLatin1String("<tr><th scope=\"row\">") + htmlText(factLabel(m_document.row(fact))) + QLatin1String("</th>"));
            addFactCell(fact);
            m_html += "</tr>\n";
        }
        m_html += "</tbody></table>\n";
    }

    /// Runs of small items of one kind as a table, all others with a heading. The kinds of the catalogue
    /// bound the depth.
    void addItems(const Outline &outline, const Node &parent, int level)
    {
        std::size_t i = 0;
        while (i < parent.items.size()) {
            const std::size_t end = endOfRun(outline, parent, i);
            if (end > i) {
                addTable(outline, parent, i, end);
                i = end;
            } else {
                addItem(outline, outline.nodes[std::size_t(parent.items[i])], level);
                ++i;
            }
        }
    }

    int kindOf(const Node &node) const { return m_document.items()[std::size_t(node.item)].kind; }

    bool isSmall(const Node &node) const { return node.items.empty() && node.facts.size() <= mostColumns; }

    /// The index after the small items of one kind that begin at \a begin and have few different facts.
    std::size_t endOfRun(const Outline &outline, const Node &parent, std::size_t begin) const
    {
        std::vector<int> rows;
        std::size_t end = begin;
        for (; end < parent.items.size(); ++end) {
            const Node &node = outline.nodes[std::size_t(parent.items[end])];
            if (!isSmall(node) || kindOf(node) != kindOf(outline.nodes[std::size_t(parent.items[begin])]))
                break;
            std::vector<int> both = rows;
            addColumns(node, both);
            if (both.size() > mostColumns)
                break;
            rows = both;
        }
        return end;
    }

    /// Facts with one key are one column, whatever their line.
    void addColumns(const Node &node, std::vector<int> &rows) const
    {
        for (const int index : node.facts) {
            const int row = m_document.facts()[std::size_t(index)].row;
            const bool isKnown = std::any_of(rows.begin(), rows.end(), [row](int known) { return isSameKey(known, row); });
            if (!isKnown)
                rows.push_back(row);
        }
    }

    static bool isSameKey(int a, int b)
    {
        return qstrcmp(factRows()[std::size_t(a)].key, factRows()[std::size_t(b)].key) == 0;
    }

    void addTable(const Outline &outline, const Node &parent, std::size_t begin, std::size_t end)
    {
        std::vector<int> rows;
        for (std::size_t i = begin; i < end; ++i)
            addColumns(outline.nodes[std::size_t(parent.items[i])], rows);
        std::sort(rows.begin(), rows.end());
        m_html += "<table><thead><tr>";
        for (const int row : rows)
            add(QLatin1String("<th scope=\"col\">") + htmlText(factLabel(factRows()[std::size_t(row)])) + QLatin1String("</th>"));
        m_html += "</tr></thead><tbody>\n";
        for (std::size_t i = begin; i < end; ++i)
            addTableRow(outline.nodes[std::size_t(parent.items[i])], rows);
        m_html += "</tbody></table>\n";
    }

    /// A key that an item has twice stands in one cell.
    void addTableRow(const Node &node, const std::vector<int> &rows)
    {
        m_html += "<tr>";
        for (const int row : rows) {
            QStringList values;
            for (const int index : node.facts) {
                const Fact &fact = m_document.facts()[std::size_t(index)];
                if (isSameKey(fact.row, row))
                    values << shownValue(m_document, fact);
            }
            if (values.isEmpty())
                m_html += "<td></td>";
            else
                addCell(values.join(QLatin1Char('\n')));
        }
        m_html += "</tr>\n";
    }

    void addItem(const Outline &outline, const Node &node, int level)
    {
        const QString heading = words(QString::fromLatin1(itemRows()[std::size_t(kindOf(node))].kind));
        const QString name = m_document.identity(node.item);
        add(QStringLiteral("<div class=\"item\"><h%1>").arg(level));
        addText(heading + QLatin1Char(' ') + name);
        add(QStringLiteral("</h%1>\n").arg(level));
        addFacts(node);
        addItems(outline, node, level + 1);
        m_html += "</div>\n";
    }

    void addLines(const QString &heading, const QString &lines)
    {
        add(QLatin1String("<h4>") + htmlText(heading) + QLatin1String("</h4>\n<pre>\n") + htmlText(lines) + QLatin1String("</pre>\n"));
    }

    void addForeignText()
    {
        if (!hasForeignText())
            return;
        m_html += "<h2 id=\"other\">Text that is no report</h2>\n";
        add(QLatin1String("<pre>\n") + htmlText(m_foreign.back()) + QLatin1String("</pre>\n"));
    }

    const Document &m_document;
    const WriteOptions &m_options;
    std::vector<QString> m_foreign;
    QByteArray m_html;
};

} // namespace

QByteArray toHtml(const Document &document, const WriteOptions &options)
{
    return Page(document, options).html();
}

} // namespace Reports
} // namespace velkor
