#include "compared_reports.h"

#include "difference_words.h"
#include "pairing.h"

using namespace velkor::Reports;

namespace {

/// Finds the lines of changes. It visits sections, items and facts in the order in which compare() adds its changes, so each
/// change is that of the next place that fits.
class ChangeFinder
{
public:
    ChangeFinder(const Pairing &pairing, const std::vector<Change> &changes, const AlignedText &text)
        : m_pairing(pairing), m_changes(changes), m_text(text), m_lines(changes.size())
    {
        for (std::size_t i = 0; i < pairing.sections().size(); ++i) {
            m_section = &text.sections[i];
            visit(pairing.sections()[i]);
        }
    }

    /// For each change the indexes in AlignedText::older and newer.
    const std::vector<ChangePlace> &lines() const { return m_lines; }

private:
    void visit(int node);
    void visitFact(int node, const Fact *older, const Fact *newer);
    bool isOf(const Change &change, int node) const;
    LineIndexes olderLines(int begin, int end) const { return linesAt(m_text.older, m_section->older, begin, end); }
    LineIndexes newerLines(int begin, int end) const { return linesAt(m_text.newer, m_section->newer, begin, end); }
    /// The lines of the section or item in one of the documents.
    LineIndexes linesOf(int node, std::size_t report) const;

    const Pairing &m_pairing;
    const std::vector<Change> &m_changes;
    const AlignedText &m_text;
    const AlignedSection *m_section = nullptr;
    std::vector<ChangePlace> m_lines;
    std::size_t m_next = 0;
};

bool ChangeFinder::isOf(const Change &change, int node) const
{
    return change.section == m_pairing.sectionName(node) && change.items == m_pairing.itemNames(node);
}

LineIndexes ChangeFinder::linesOf(int node, std::size_t report) const
{
    const int place = m_pairing.place(node, report);
    if (place < 0)
        return {};
    if (m_pairing.nodes()[std::size_t(node)].kind < 0)
        return report == 0 ? m_section->older : m_section->newer;
    const Item &item = m_pairing.documents()[report].items()[std::size_t(place)];
    return report == 0 ? olderLines(item.begin, item.end) : newerLines(item.begin, item.end);
}

void ChangeFinder::visit(int node)
{
    if (m_next == m_changes.size() || m_pairing.nodes()[std::size_t(node)].identical)
        return;
    if (m_pairing.count(node) < 2) {
        if (m_changes[m_next].row < 0 && isOf(m_changes[m_next], node))
            m_lines[m_next++] = {linesOf(node, 0), linesOf(node, 1)};
        return;
    }
    m_pairing.forEachFact(node, [this, node](const std::vector<const Fact *> &facts) { visitFact(node, facts[0], facts[1]); });
    for (const int child : m_pairing.nodes()[std::size_t(node)].children)
        visit(child); // not deeper than items of the catalogue
}

void ChangeFinder::visitFact(int node, const Fact *older, const Fact *newer)
{
    if (m_next == m_changes.size())
        return;
    const Change &change = m_changes[m_next];
    const Document &olderDocument = m_pairing.documents()[0];
    const Document &newerDocument = m_pairing.documents()[1];
    if (change.row != (newer ? newer : older)->row || !isOf(change, node)
        || change.oldValue != (older ? olderDocument.display(*older) : QString())
        || change.newValue != (newer ? newerDocument.display(*newer) : QString()))
        return;
    m_lines[m_next++] = {older ? olderLines(older->begin, older->end) : LineIndexes(),
                         newer ? newerLines(newer->begin, newer->end) : LineIndexes()};
}

/// For each line the row that it is in.
std::vector<int> rowsOfLines(const AlignedText &text, std::size_t lines, int AlignedRow::*line)
{
    std::vector<int> result(lines, 0);
    for (std::size_t row = 0; row < text.rows.size(); ++row) {
        if (text.rows[row].*line >= 0)
            result[std::size_t(text.rows[row].*line)] = int(row);
    }
    return result;
}

LineIndexes rowsFor(LineIndexes lines, const std::vector<int> &rows)
{
    if (lines.size() == 0)
        return {};
    return {rows[std::size_t(lines.begin)], rows[std::size_t(lines.end - 1)] + 1};
}

/// Which changes a line has a part of.
struct LineChanges
{
    bool lasting = false;
    bool everyMoment = false;
};

void addChange(std::vector<LineChanges> &lines, LineIndexes indexes, bool everyMoment)
{
    for (int i = indexes.begin; i < indexes.end; ++i)
        (everyMoment ? lines[std::size_t(i)].everyMoment : lines[std::size_t(i)].lasting) = true;
}

bool isOnlyEveryMoment(const std::vector<LineChanges> &lines, int line)
{
    return line < 0 || (lines[std::size_t(line)].everyMoment && !lines[std::size_t(line)].lasting);
}

void markEveryMoment(AlignedText &text, const std::vector<Change> &changes, const std::vector<ChangePlace> &lines)
{
    std::vector<LineChanges> older(text.older.size());
    std::vector<LineChanges> newer(text.newer.size());
    for (std::size_t i = 0; i < changes.size(); ++i) {
        addChange(older, lines[i].older, changes[i].everyMoment);
        addChange(newer, lines[i].newer, changes[i].everyMoment);
    }
    for (AlignedRow &row : text.rows) {
        row.everyMoment = row.change != LineChange::Same && isOnlyEveryMoment(older, row.older) && isOnlyEveryMoment(newer, row.newer);
    }
}

} // namespace

std::optional<ComparedReports> compareReports(const Document &older, const Document &newer, const std::atomic_bool &cancelled)
{
    ComparedReports result;
    result.comparison = compare(older, newer);
    if (cancelled)
        return std::nullopt;
    const Pairing pairing({older, newer});
    if (cancelled)
        return std::nullopt;
    std::vector<SectionPair> sections;
    for (const int node : pairing.sections())
        sections.push_back({pairing.sectionName(node), pairing.place(node, 0), pairing.place(node, 1)});
    result.text = alignTexts(older, newer, sections);
    if (cancelled)
        return std::nullopt;
    const std::vector<ChangePlace> lines = ChangeFinder(pairing, result.comparison.changes, result.text).lines();
    markEveryMoment(result.text, result.comparison.changes, lines);
    const std::vector<int> olderRows = rowsOfLines(result.text, result.text.older.size(), &AlignedRow::older);
    const std::vector<int> newerRows = rowsOfLines(result.text, result.text.newer.size(), &AlignedRow::newer);
    for (const ChangePlace &place : lines)
        result.places.push_back({rowsFor(place.older, olderRows), rowsFor(place.newer, newerRows)});
    for (const Change &change : result.comparison.changes)
        result.otherOrder.push_back(DifferenceWords::isOtherOrder(change));
    return result;
}
