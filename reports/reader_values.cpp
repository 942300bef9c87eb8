// Values of several lines, and items.
#include "reader.h"

#include "strong_lines.h"
#include "text_runs.h"

#include <algorithm>
#include <cstring>

namespace velkor {
namespace Reports {

namespace {

constexpr int examinedFacts = 64;

bool hasNativeDigits(std::string_view value)
{
    const QString text = QString::fromUtf8(value.data(), int(value.size()));
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() > 0x7f && c.isDigit(); });
}

} // namespace

/// True if the item, or the section, has a line of that form already.
bool Reader::isRepeated(const LineForm &form, int formIndex) const
{
    if (form.has(Opens) || form.valueCount() == 0)
        return false;
    for (auto level = m_levels.rbegin(); level != m_levels.rend(); ++level) {
        const int kind = level->item < 0 ? -1 : m_data.items[std::size_t(level->item)].kind;
        if (kind == form.item())
            return (level->seen >> formIndex & 1) != 0 && !(m_emptyLines > 0 && inKind("driver"));
    }
    return false;
}

/// A line that stands twice: if the order of the lines shows that the first one belongs to the value
/// before it, gives it to that value.
bool Reader::givesBack(const LineForm &form, int formIndex)
{
    if (formIndex < m_lastForm || form.valueCount() != 1)
        return false;
    std::vector<Fact> &facts = m_data.facts;
    const int first = std::max(m_data.sections.back().firstFact + 1, int(facts.size()) - examinedFacts);
    for (int i = int(facts.size()) - 2; i >= first; --i) {
        const std::size_t at = std::size_t(i);
        if (facts[at + 1].item != m_levels.back().item || facts[at].item != facts[at + 1].item)
            return false;
        if (facts[at].row != form.firstRow())
            continue;
        Fact &before = facts[at - 1];
        if (facts[at + 1].row > facts[at].row || before.item != facts[at].item || isOneLine(factRows()[std::size_t(before.row)].type))
            return false;
        before.end = facts[at].end;
        facts.erase(facts.begin() + i);
        --m_lastFact;
        return true;
    }
    return false;
}

/// A line whose value goes on in the next line, so that the text after the value is missing.
bool Reader::readBeginning()
{
    for (int i = 0; i < int(m_form->lines.size()); ++i) {
        const LineForm &form = m_form->lines[std::size_t(i)];
        Span spans[maximalValues];
        if (form.has(Anything) || form.has(NextLine) || form.weight() < strongWeight
            || isOneLine(form.row(std::max(form.valueCount() - 1, 0)).type)
            || !form.matchBeginning(m_text, m_line.content, m_line.end, spans) || isRepeated(form, i))
            continue;
        accept(form, i, spans);
        m_pendingSuffix = form.suffix();
        m_valueOnNextLine = false;
        return true;
    }
    return false;
}

void Reader::finishBeginning()
{
    const std::string_view line(m_text + m_line.content, std::size_t(m_line.end - m_line.content));
    Fact &fact = m_data.facts[std::size_t(m_lastFact)];
    extend(fact);
    if (line.size() < m_pendingSuffix.size() || line.substr(line.size() - m_pendingSuffix.size()) != m_pendingSuffix)
        return;
    fact.end -= int(m_pendingSuffix.size());
    m_pendingSuffix = {};
    m_emptyLines = 0;
    m_valueOnNextLine = nextLineIsValue(m_lastForm);
}

/// Gives the line to the value. An empty line in a value seemed to end its item.
void Reader::extend(Fact &fact)
{
    absorb(fact.end);
    fact.end = m_line.end;
    for (int item = fact.item; item >= 0; item = m_data.items[std::size_t(item)].parent)
        m_data.items[std::size_t(item)].end = std::max(m_data.items[std::size_t(item)].end, m_line.next);
}

/// Gives the line to the value before it.
bool Reader::continueValue()
{
    if (m_lastForm < 0 || m_lastFact < m_data.sections.back().firstFact) // a section that goes on has no last line
        return false;
    Fact &fact = m_data.facts[std::size_t(m_lastFact)];
    const FactRow &row = factRows()[std::size_t(fact.row)];
    const LineForm &form = m_form->lines[std::size_t(m_lastForm)];
    if (m_line.formFeed || isOneLine(row.type) || !form.suffix().empty() || *row.only != '\0')
        return false;
    extend(fact);
    return true;
}

void Reader::accept(const LineForm &form, int formIndex, const Span *spans, bool altered)
{
    m_pendingSuffix = {};
    if (form.has(Opens))
        openItem(form.item());
    else
        placeIn(form.item());
    m_levels.back().seen |= quint64(1) << formIndex;
    m_lastFact = -1;
    bool emptyValue = form.valueCount() == 0;
    for (int i = 0; i < form.valueCount(); ++i) {
        if (spans[i].begin < 0)
            continue;
        emptyValue = spans[i].begin == spans[i].end;
        if (form.row(i).type == Type::Date && hasNativeDigits({m_text + spans[i].begin, std::size_t(spans[i].end - spans[i].begin)}))
            m_states |= State::NativeDigits;
        m_lastFact = int(m_data.facts.size());
        int begin = spans[i].begin;
        while (form.row(i).type == Type::Number && begin < spans[i].end && m_text[begin] == ' ')
            ++begin; // the format aligns some numbers to the right
        m_data.facts.push_back({form.firstRow() + i, m_levels.back().item, begin, spans[i].end});
    }
    if (!altered)
        m_spaces.count(form, emptyValue);
    m_lastForm = formIndex;
    m_emptyLines = 0;
    m_atStart = false;
    m_valueOnNextLine = nextLineIsValue(formIndex);
}

bool Reader::nextLineIsValue(int formIndex) const
{
    const std::size_t next = std::size_t(formIndex) + 1;
    return next < m_form->lines.size() && m_form->lines[next].has(NextLine);
}

void Reader::takeNextLine()
{
    m_valueOnNextLine = false;
    markQuote();
    const Span span {m_line.content, m_line.end};
    accept(m_form->lines[std::size_t(m_lastForm) + 1], m_lastForm + 1, &span);
}

/// Begins an item of that kind in the item around it.
void Reader::openItem(int kind)
{
    const ItemRow &row = itemRows()[std::size_t(kind)];
    std::size_t depth = 1;
    for (std::size_t i = 1; i < m_levels.size(); ++i) {
        const Item &around = m_data.items[std::size_t(m_levels[i].item)];
        if (isKind(itemRows()[std::size_t(around.kind)].kind, row.parent))
            depth = i + 1;
    }
    closeItems(depth);
    Item item;
    item.kind = kind;
    item.section = int(m_data.sections.size()) - 1;
    item.parent = m_levels.back().item;
    item.begin = m_line.begin;
    item.firstFact = int(m_data.facts.size());
    m_levels.push_back({int(m_data.items.size()), 0});
    m_data.items.push_back(item);
}

/// Makes the item of that kind the innermost one. A driver and an instance begin with their first line.
void Reader::placeIn(int kind)
{
    if (kind < 0) {
        closeItems(1);
        return;
    }
    for (std::size_t i = m_levels.size(); i-- > 1;) {
        if (m_data.items[std::size_t(m_levels[i].item)].kind != kind)
            continue;
        if (m_emptyLines > 0 && inKind("driver"))
            break;
        closeItems(i + 1);
        return;
    }
    openItem(kind);
}

/// Ends the items that are nested deeper than \a depth levels; the section itself is the first level.
void Reader::closeItems(std::size_t depth)
{
    while (m_levels.size() > depth) {
        const int index = m_levels.back().item;
        if (index >= 0) {
            m_data.items[std::size_t(index)].end = m_line.begin;
            m_data.items[std::size_t(index)].lastFact = int(m_data.facts.size());
        }
        m_levels.pop_back();
    }
}

} // namespace Reports
} // namespace velkor
