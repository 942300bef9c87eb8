#include "canonical_text.h"

#include "catalogue.h"
#include "line_plan.h"

#include <algorithm>
#include <cstring>

namespace velkor {
namespace Reports {

namespace {

constexpr char noBreakSpace[] = "\xc2\xa0";

class CanonicalWriter
{
public:
    explicit CanonicalWriter(int limit) : m_limit(limit) { }
    void add(const std::vector<TreeNode> &sections);
    bool isTooLong() const { return m_tooLong; }
    QByteArray text() const { return m_text; }

private:
    void addSection(const TreeNode &section);
    void addNode(const TreeNode &node);
    void addItems(const TreeNode &node, int kind);
    void addLine(const TreeNode &node, const LineStep &step);
    void addValue(const TreeFact &fact, int indent);
    void append(const char *text, int length);
    void append(const QByteArray &text) { append(text.constData(), text.size()); }

    QByteArray m_text;
    int m_limit;
    bool m_tooLong = false;
};

/// True if the node has all facts of the line.
bool hasLine(const TreeNode &node, const LineStep &step)
{
    return std::all_of(step.rows.begin(), step.rows.end(), [&](int row) { return node.find(row) != nullptr; });
}

bool isWritten(const TreeNode &node, const std::vector<LineStep> &steps, const LineStep &step)
{
    return hasLine(node, step) && std::none_of(step.instead.begin(), step.instead.end(), [&](int other) {
               return hasLine(node, steps[size_t(other)]);
           });
}

/// A line such as "<no address>" stands in the place of items.
bool standsForNothing(const char *line)
{
    return line[std::strspn(line, " ")] == '<';
}

void CanonicalWriter::append(const char *text, int length)
{
    m_tooLong = m_tooLong || length > m_limit - m_text.size();
    if (!m_tooLong)
        m_text.append(text, length);
}

void CanonicalWriter::add(const std::vector<TreeNode> &sections)
{
    int half = -1;
    for (const TreeNode &section : sections) {
        const SectionRow &row = sectionRows()[size_t(section.row)];
        if (int(row.half) != half && !halfHeading(row.half).isEmpty())
            append(halfHeading(row.half) + '\n');
        half = int(row.half);
        addSection(section);
    }
}

void CanonicalWriter::addSection(const TreeNode &section)
{
    const SectionRow &row = sectionRows()[size_t(section.row)];
    append(QByteArray(row.heading));
    addNode(section);
    if (row.separator)
        append(separatorLine() + '\n');
}

void CanonicalWriter::addNode(const TreeNode &node)
{
    const std::vector<LineStep> &steps = lineSteps(node.row, node.kind);
    for (const LineStep &step : steps) {
        if (isTooLong())
            return;
        if (step.what == LineStep::What::Items)
            addItems(node, step.kind);
        else if (step.what == LineStep::What::Text && !standsForNothing(step.line))
            append(QByteArray(step.line) + '\n');
        else if (step.what == LineStep::What::Facts && isWritten(node, steps, step))
            addLine(node, step);
    }
}

void CanonicalWriter::addItems(const TreeNode &node, int kind)
{
    const ItemRow &row = itemRows()[size_t(kind)];
    bool first = true;
    for (const TreeNode &item : node.items) {
        if (item.kind != kind)
            continue;
        append(QByteArray(first ? "" : row.between) + row.before);
        addNode(item);
        append(QByteArray(row.after));
        first = false;
    }
}

void CanonicalWriter::addLine(const TreeNode &node, const LineStep &step)
{
    int indent = 0; // the width of what stands before the value
    for (const char *at = step.line; *at != '\0'; ++at) {
        const int place = at[0] == '%' && at[1] >= '1' && at[1] <= '9' ? at[1] - '0' : 0;
        if (place > 0 && place <= int(step.rows.size())) {
            addValue(*node.find(step.rows[size_t(place) - 1]), indent);
            ++at;
        } else {
            append(at, 1);
            ++indent;
        }
    }
    if (step.lineEnd)
        append("\n", 1);
}

void CanonicalWriter::addValue(const TreeFact &fact, int indent)
{
    const FactRow &row = factRows()[size_t(fact.row)];
    append(fact.text);
    for (size_t i = 0; i < fact.entries.size(); ++i) {
        if (i > 0 && row.form & Indented)
            append('\n' + QByteArray(indent, ' '));
        if (i > 0 && row.form & Spaced)
            append(" ", 1);
        append(fact.entries[i]);
        if (row.form & Ends)
            append(" ", 1);
    }
}

QByteArray collapse(const QByteArray &line)
{
    QByteArray result;
    result.reserve(line.size());
    for (const char byte : line) {
        if (byte != ' ' || !result.endsWith(' '))
            result.append(byte);
    }
    return result;
}

QByteArray withoutTrailing(QByteArray line)
{
    int end = line.size();
    while (end > 0 && line[end - 1] == ' ')
        --end;
    line.truncate(end);
    return line;
}

QByteArray withoutLeading(const QByteArray &line)
{
    int begin = 0;
    while (begin < line.size() && line[begin] == ' ')
        ++begin;
    return line.mid(begin);
}

QByteArray withNoBreakRuns(const QByteArray &line)
{
    QByteArray result;
    for (int i = 0; i < line.size(); ++i) {
        if (line[i] == ' ' && i + 1 < line.size() && line[i + 1] == ' ')
            result.append(noBreakSpace);
        else
            result.append(line[i]);
    }
    return result;
}

} // namespace

std::optional<QByteArray> canonicalText(const ReportTrees &trees, int limit)
{
    CanonicalWriter writer(limit);
    for (const std::vector<TreeNode> &sections : trees)
        writer.add(sections);
    if (writer.isTooLong())
        return std::nullopt;
    return writer.text();
}

int FormedLines::lineLength() const
{
    const int feed = m_canonical.indexOf('\n', m_at);
    return (feed < 0 ? m_canonical.size() : feed) - m_at;
}

void FormedLines::skip()
{
    m_at += lineLength() + 1;
}

QByteArray FormedLines::next()
{
    QByteArray line = m_canonical.mid(m_at, lineLength());
    skip();
    if (m_form.collapsed)
        line = collapse(line);
    if (m_form.leadingStripped)
        line = withoutLeading(line);
    line.prepend(m_form.linePrefix);
    if (m_form.trailingStripped)
        line = withoutTrailing(line);
    if (m_form.noBreak == TextForm::NoBreak::All)
        line.replace(' ', noBreakSpace);
    if (m_form.noBreak == TextForm::NoBreak::Runs)
        line = withNoBreakRuns(line);
    return line + m_form.lineEnd;
}

} // namespace Reports
} // namespace velkor
