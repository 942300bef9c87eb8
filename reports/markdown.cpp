// Markdown as GitHub and other issue trackers read it. Words of the catalogue stand as they are;
// every value is in a code span or block.

#include "decoded_text.h"
#include "formats.h"
#include "labels.h"
#include "neutral_text.h"
#include "outline.h"
#include "section_names.h"
#include "state_texts.h"

namespace velkor {
namespace Reports {

namespace {

// Longer tables are folded.
constexpr std::size_t longTable = 12;
// The summary and the states are more important than all sections.
constexpr int mostImportant = 1000;

/// Words of the catalogue, in which "_" and "<" are letters.
QString plain(const QString &text)
{
    QString result;
    for (const QChar next : text) {
        if (QLatin1String("\\`*_<>[]|#&").contains(next))
            result += QLatin1Char('\\');
        result += next;
    }
    return result;
}

QString tableHead(const QString &first, const QString &second)
{
    return QStringLiteral("| %1 | %2 |\n|---|---|\n").arg(first, second);
}

QString tableRow(const QString &label, const QString &value)
{
    return QLatin1String("| ") + plain(label) + QLatin1String(" | ") + value + QLatin1String(" |\n");
}

QString valueCell(const QString &value)
{
    return value.isEmpty() ? QStringLiteral("*(empty)*") : markdownCode(value);
}

/// The entries of a list below each other; of a long one in one line.
QString factCell(const Document &document, const Fact &fact)
{
    const std::vector<QByteArray> values = document.row(fact).type == Type::List ? document.values(fact) : std::vector<QByteArray>();
    if (values.size() < 2)
        return valueCell(shownValue(document, fact));
    if (isLongList(document, fact))
        return markdownCode(document.display(fact).simplified());
    QStringList cells;
    for (const QByteArray &value : values)
        cells << valueCell(decodedText(value));
    return cells.join(QLatin1String("<br>"));
}

QString fold(const QString &title, const QString &content)
{
    return QLatin1String("<details><summary>") + htmlText(title) + QLatin1String("</summary>\n\n") + content
        + QLatin1String("\n</details>\n\n");
}

QString lineCount(int count)
{
    return count == 1 ? QStringLiteral("1 line") : QStringLiteral("%1 lines").arg(count);
}

QString quoted(const QString &sentences)
{
    return sentences.isEmpty() ? QString() : QLatin1String("> ") + sentences + QLatin1String("\n\n");
}

/// The facts of the section itself; long lists are counted if \a isShort.
QString ownFacts(const Document &document, const OutlineNode &node, bool isShort)
{
    QString rows;
    for (const int index : node.facts) {
        const Fact &fact = document.facts()[std::size_t(index)];
        const bool isCounted = isShort && isLongList(document, fact);
        rows += tableRow(factLabel(document.row(fact)),
                         isCounted ? listCount(document, fact) : factCell(document, fact));
    }
    return rows.isEmpty() ? rows : tableHead(QStringLiteral("Fact"), QStringLiteral("Value")) + rows + QLatin1Char('\n');
}

class Markdown
{
public:
    Markdown(const Document &document, const WriteOptions &options) : m_document(document), m_options(options) { }

    QString text()
    {
        addStates();
        if (m_options.sections.empty())
            addSummary();
        if (!m_options.onlySummary) {
            addSections();
            addForeignText();
        }
        return shortened(QStringLiteral("# System report\n\n"), m_parts, m_options.maxLength,
                         [this](const LeftOut &leftOut) { return quoted(leftOutSentences(leftOut, m_options.maxLength)); });
    }

private:
    void addStates()
    {
        const QStringList sentences = stateSentences(m_document);
        QString list;
        for (const QString &sentence : sentences)
            list += QLatin1String("- ") + plain(sentence) + QLatin1Char('\n');
        if (!list.isEmpty())
            m_parts.push_back({QStringLiteral("notes about the text"), mostImportant + 1, list + QLatin1Char('\n'), {}});
    }

    void addSummary()
    {
        QString rows;
        for (const SummaryLine &line : summary(m_document))
            rows += tableRow(line.label, markdownCode(line.value));
        if (!rows.isEmpty())
            m_parts.push_back({QStringLiteral("summary"), mostImportant, tableHead(QStringLiteral("Summary"), QString()) + rows + QLatin1Char('\n'), {}});
    }

    void addSections()
    {
        int previous = -1;
        for (int i = 0; i < int(m_document.sections().size()); ++i) {
            if (!isChosen(m_document, i, m_options))
                continue;
            addSection(i, partTitle(m_document, i, previous));
            previous = i;
        }
    }

    /// The title of the half is a part of its first section, so that it is left out only with it.
    void addSection(int index, const QString &halfHeading)
    {
        const int row = m_document.sections()[std::size_t(index)].row;
        const char *name = sectionRows()[std::size_t(row)].name;
        const QString half = halfHeading.isEmpty() ? QString() : QLatin1String("## ") + halfHeading + QLatin1String("\n\n");
        const QString heading = half + QLatin1String("### ") + plain(sectionTitle(row)) + QLatin1String("\n\n");
        const Outline outline = outlineOf(m_document, index);
        const QStringList counts = sectionCounts(m_document, index);
        QString shortForm = ownFacts(m_document, outline.nodes.front(), true);
        if (!counts.isEmpty())
            shortForm += counts.join(QStringLiteral(", ")) + QStringLiteral(": left out\n\n");
        m_parts.push_back({QString::fromLatin1(name), importanceOf(name), heading + fullForm(index, outline, counts),
                           shortForm.isEmpty() ? shortForm : heading + shortForm});
    }

    /// A table, or the text if the section has items.
    QString fullForm(int index, const Outline &outline, const QStringList &counts) const
    {
        const Section &section = m_document.sections()[std::size_t(index)];
        if (!counts.isEmpty())
            return fold(counts.join(QStringLiteral(", ")), markdownBlock(textBetween(m_document, section.begin, section.end)));
        const QString table = ownFacts(m_document, outline.nodes.front(), false);
        if (table.isEmpty())
            return QStringLiteral("*(nothing)*\n\n");
        const std::size_t facts = outline.nodes.front().facts.size();
        return facts > longTable ? fold(QStringLiteral("%1 facts").arg(facts), table) : table;
    }

    /// Text that no rule knows; in a section with items it is in the section's text already.
    void addForeignText()
    {
        QString lines;
        for (const OtherText &other : otherTexts(m_document)) {
            if (other.section >= 0 ? isChosen(m_document, other.section, m_options) : m_options.sections.empty())
                lines += textBetween(m_document, other.begin, other.end);
            if (!lines.isEmpty() && !lines.endsWith(QLatin1Char('\n')))
                lines += QLatin1Char('\n');
        }
        if (!lines.isEmpty())
            m_parts.push_back({QStringLiteral("text that is no report"), -1, QStringLiteral("## Text that is no report\n\n") + fold(lineCount(lines.count(QLatin1Char('\n'))), markdownBlock(lines)), {}});
    }

    const Document &m_document;
    const WriteOptions &m_options;
    std::vector<Part> m_parts;
};

} // namespace

QByteArray toMarkdown(const Document &document, const WriteOptions &options)
{
    return Markdown(document, options).text().toUtf8();
}

} // namespace Reports
} // namespace velkor
