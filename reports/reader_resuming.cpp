// Values that look like the end of their section, and sections that begin without a heading.
#include "reader.h"

#include "section_order.h"
#include "strong_lines.h"

#include <algorithm>
#include <cstring>

namespace velkor {
namespace Reports {

namespace {

constexpr int resumedSections = 5; // how many sections a value can hold and still be told from them
constexpr int examinedFacts = 64;

} // namespace

/// A line of a section that has ended shows that its end belongs to a value.
bool Reader::resumes()
{
    std::vector<Section> &sections = m_data.sections;
    const int last = int(sections.size()) - 1;
    const int first = m_section == noSection ? last : last - 1;
    for (int i = first; i >= 0 && i > last - resumedSections; --i) {
        const Section &section = sections[std::size_t(i)];
        if (section.report != m_report)
            return false;
        const bool suspended = i == last && m_suspended == section.row;
        if (!suspended && !repeatsLater(section.row))
            continue;
        if (section.lastFact > section.firstFact && goesOnIn(section)) {
            resume(i);
            return true;
        }
    }
    return false;
}

/// True if the line is one of the section's that it does not have yet.
bool Reader::goesOnIn(const Section &section) const
{
    const int last = section.lastFact - 1;
    for (const LineForm &form : sectionForm(section.row).lines) {
        Span spans[maximalValues];
        const bool proves = form.weight() >= strongWeight || (form.weight() > 0 && form.hasLeading());
        if (!proves || form.has(Anything) || form.has(NextLine) || form.valueCount() == 0
            || !form.match(m_text, m_line.content, m_line.end, spans))
            continue;
        for (int i = last; i >= section.firstFact && i > last - examinedFacts && !form.has(Opens); --i) {
            const Fact &fact = m_data.facts[std::size_t(i)];
            if (fact.row == form.firstRow() && fact.item == m_data.facts[std::size_t(last)].item)
                return false;
        }
        return true;
    }
    return false;
}

/// True if the heading after the next separator is one that the report had after that section.
bool Reader::repeatsLater(int section)
{
    if (m_nextHeadingFrom > m_line.begin || m_nextHeadingAt < m_line.begin) {
        m_nextHeadingFrom = m_line.begin;
        m_nextHeading = noSection;
        m_nextHeadingAt = m_size;
        for (int begin = m_line.next; begin < m_size;) {
            const TextLine line = lineAt(begin);
            begin = line.next;
            if (!isSeparator(m_text, line.content, line.end) || begin >= m_size)
                continue;
            isHeading(lineAt(begin), m_nextHeading);
            m_nextHeadingAt = begin;
            break;
        }
    }
    return m_nextHeading > section && m_nextHeading <= m_order;
}

/// Goes on in a section that seemed to have ended. What was read since belongs to its last value.
void Reader::resume(int index)
{
    if (m_section != noSection)
        leave();
    m_data.sections.resize(std::size_t(index) + 1);
    Section &section = m_data.sections.back();
    m_data.items.resize(std::size_t(section.lastItem));
    m_data.facts.resize(std::size_t(section.lastFact));
    Fact &last = m_data.facts.back();
    absorb(last.end);
    last.end = m_previous.end;
    m_section = section.row;
    m_form = &sectionForm(m_section);
    m_order = m_section;
    m_suspended = noSection;
    m_separated = false;
    m_interrupted = false;
    m_lastFact = section.lastFact - 1;
    m_lastForm = -1;
    m_emptyLines = 0;
    m_levels.assign(1, {-1, 0});
    for (int item = last.item; item >= 0; item = m_data.items[std::size_t(item)].parent)
        m_levels.insert(m_levels.begin() + 1, {item, 0});
    for (int i = section.lastFact - 1; i >= section.firstFact && i >= section.lastFact - examinedFacts; --i) {
        const Fact &fact = m_data.facts[std::size_t(i)];
        for (int form = 0; form < int(m_form->lines.size()); ++form) {
            if (m_form->lines[std::size_t(form)].firstRow() != fact.row)
                continue;
            m_lastForm = std::max(m_lastForm, i == section.lastFact - 1 ? form : -1);
            for (Level &level : m_levels)
                level.seen |= level.item == fact.item ? quint64(1) << form : 0;
        }
    }
    readSectionLine();
}

/// The sections that have such a line; those with the longest label.
std::vector<int> Reader::sectionsWith(const TextLine &text) const
{
    std::vector<int> sections;
    std::size_t longest = 0;
    if (text.isEmpty())
        return sections;
    for (const StrongLine &line : strongLines(m_text[text.content])) {
        Span spans[maximalValues];
        if (!line.form->match(m_text, text.content, text.end, spans))
            continue;
        const std::size_t length = std::strlen(line.form->row().line);
        if (length > longest)
            sections.clear();
        longest = std::max(longest, length);
        if (length == longest && (sections.empty() || sections.back() != line.section))
            sections.push_back(line.section);
    }
    return sections;
}

/// True if the line's label alone shows what it is.
bool Reader::hasLongLabel() const
{
    const std::vector<StrongLine> &lines = strongLines(m_text[m_line.content]);
    return std::any_of(lines.begin(), lines.end(), [this](const StrongLine &line) {
        Span spans[maximalValues];
        return (line.form->hasRuns() || line.form->weight() >= longWeight)
            && line.form->match(m_text, m_line.content, m_line.end, spans);
    });
}

/// A line whose section is known without a heading: the beginning of the section is missing.
bool Reader::startsWithoutHeading()
{
    const std::vector<int> candidates = sectionsWith(m_line);
    if (candidates.empty())
        return false;
    const TextLine next = peek();
    int begins = noSection;
    const std::vector<int> ofNext = sectionsWith(next);
    const bool ends = next.begin == m_size || isHeading(next, begins) || isSeparator(m_text, next.content, next.end);
    if (ofNext != candidates && !(ends && hasLongLabel()))
        return false;
    enter(candidates.size() == 1 ? candidates.front() : sectionBeforeNextHeading(candidates), false);
    m_atStart = false;
    m_states.setFlag(State::StartMissing, m_states.testFlag(State::StartMissing) || (m_data.sections.size() == 1 && !m_hasBeginning));
    readSectionLine();
    return true;
}

int Reader::sectionBeforeNextHeading(const std::vector<int> &candidates)
{
    if (m_headingAhead.at < m_line.next) {
        m_headingAhead = {m_size, noSection};
        for (int begin = m_line.next; begin < m_size;) {
            const TextLine line = lineAt(begin);
            int begins = noSection;
            if (isHeading(line, begins) && begins >= 0) {
                m_headingAhead = {begin, begins};
                break;
            }
            begin = line.next;
        }
    }
    int best = candidates.front();
    for (const int candidate : candidates)
        best = candidate < m_headingAhead.begins ? candidate : best;
    return best;
}

/// A module of which everything before is missing.
bool Reader::startsModules()
{
    static const int section = findSectionRow("loadedModules");
    if (section <= m_section || m_transport.wrapColumn > 0 || !isModule(m_line) || !(isModule(peek()) || m_line.next == m_size))
        return false;
    enter(section, false);
    m_states |= State::SectionsMissing;
    return readAnything();
}

/// True if the line is the path of a file that programs load.
bool Reader::isModule(const TextLine &line) const
{
    const std::string_view path(m_text + line.content, std::size_t(line.end - line.content));
    if (path.size() < 8 || path.substr(1, 2) != ":\\")
        return false;
    const QByteArray suffix = QByteArray(path.data() + path.size() - 4, 4).toLower();
    return suffix == ".dll" || suffix == ".exe" || suffix == ".drv";
}

} // namespace Reports
} // namespace velkor
