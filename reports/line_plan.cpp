#include "line_plan.h"

#include "catalogue.h"
#include "report_tree.h"

#include <algorithm>
#include <cstring>

namespace velkor {
namespace Reports {

namespace {

bool same(const char *one, const char *other)
{
    return std::strcmp(one, other) == 0;
}

int findKind(const char *section, const char *kind)
{
    const std::vector<ItemRow> &rows = itemRows();
    for (size_t i = 0; i < rows.size(); ++i) {
        if (same(rows[i].section, section) && same(rows[i].kind, kind))
            return int(i);
    }
    return sectionItself;
}

std::vector<int> firstRows()
{
    const std::vector<FactRow> &rows = factRows();
    std::vector<int> first(rows.size());
    for (size_t i = 0; i < rows.size(); ++i) {
        const auto found = std::find_if(rows.begin(), rows.end(), [&](const FactRow &row) {
            return same(row.section, rows[i].section) && same(row.item, rows[i].item) && same(row.key, rows[i].key);
        });
        first[i] = int(found - rows.begin());
    }
    return first;
}

class Planner
{
public:
    Planner(const char *section, int kind) : m_section(section), m_kind(kind) { }
    std::vector<LineStep> steps();

private:
    void addLine(size_t row);
    void addItems(int kind);
    void addInstead();

    const char *m_section;
    int m_kind;
    std::vector<LineStep> m_steps;
};

std::vector<LineStep> Planner::steps()
{
    const std::vector<FactRow> &rows = factRows();
    for (size_t i = 0; i < rows.size(); ++i) {
        if (!same(rows[i].section, m_section))
            continue;
        const int kind = findKind(m_section, rows[i].item);
        if (kind == m_kind)
            addLine(i);
        else if (kind != sectionItself && parentKind(kind) == m_kind)
            addItems(kind);
    }
    addInstead();
    return std::move(m_steps);
}

void Planner::addLine(size_t row)
{
    const FactRow &fact = factRows()[row];
    if (fact.place > 1) { // a further value of the line before
        m_steps.back().rows.push_back(firstRowOfKey(int(row)));
        return;
    }
    LineStep step;
    step.what = fact.form & Fixed ? LineStep::What::Text : LineStep::What::Facts;
    step.line = fact.line;
    step.lineEnd = !(fact.form & NoLineEnd);
    if (step.what == LineStep::What::Facts)
        step.rows = {firstRowOfKey(int(row))};
    m_steps.push_back(step);
}

void Planner::addItems(int kind)
{
    const auto isThere = [kind](const LineStep &step) { return step.kind == kind; };
    if (std::any_of(m_steps.begin(), m_steps.end(), isThere))
        return;
    if (m_kind == sectionItself) { // items whose parent is missing stand before the others
        for (size_t i = 0; i < itemRows().size(); ++i) {
            if (parentKind(int(i)) == kind)
                addItems(int(i));
        }
    }
    LineStep step;
    step.what = LineStep::What::Items;
    step.kind = kind;
    m_steps.push_back(step);
}

void Planner::addInstead()
{
    for (size_t i = 0; i < m_steps.size(); ++i) {
        for (size_t j = 0; j < m_steps.size() && m_steps[i].what == LineStep::What::Facts; ++j) {
            std::vector<int> rows = m_steps[i].rows;
            std::vector<int> others = m_steps[j].rows;
            std::sort(rows.begin(), rows.end());
            std::sort(others.begin(), others.end());
            const bool includes = std::includes(others.begin(), others.end(), rows.begin(), rows.end());
            if (includes && (others.size() > rows.size() || j < i))
                m_steps[i].instead.push_back(int(j));
        }
    }
}

} // namespace

int firstRowOfKey(int row)
{
    static const std::vector<int> rows = firstRows();
    return rows[size_t(row)];
}

int parentKind(int kind)
{
    const ItemRow &row = itemRows()[size_t(kind)];
    return findKind(row.section, row.parent);
}

bool sectionHasKind(int sectionRow, int kind)
{
    return same(sectionRows()[size_t(sectionRow)].facts, itemRows()[size_t(kind)].section);
}

const std::vector<LineStep> &lineSteps(int sectionRow, int kind)
{
    static const std::vector<std::vector<LineStep>> ofSections = [] {
        std::vector<std::vector<LineStep>> all;
        for (const SectionRow &row : sectionRows())
            all.push_back(Planner(row.facts, sectionItself).steps());
        return all;
    }();
    static const std::vector<std::vector<LineStep>> ofItems = [] {
        std::vector<std::vector<LineStep>> all;
        for (size_t i = 0; i < itemRows().size(); ++i)
            all.push_back(Planner(itemRows()[i].section, int(i)).steps());
        return all;
    }();
    return kind == sectionItself ? ofSections[size_t(sectionRow)] : ofItems[size_t(kind)];
}

} // namespace Reports
} // namespace velkor
