// Halves, sections and the lines between them.
#include "reader.h"

#include "section_order.h"
#include "strong_lines.h"

#include <algorithm>
#include <cstring>

namespace velkor {
namespace Reports {

/// Lines that are values whatever stands in them.
bool Reader::readForced()
{
    if (m_valueOnNextLine) {
        takeNextLine();
        return true;
    }
    if (!m_afterRule || m_section == noSection || m_line.isEmpty())
        return false;
    m_afterRule = false;
    int begins = noSection;
    if (isSeparator(m_text, m_line.content, m_line.end) && (m_line.next == m_size || isHeading(peekText(), begins)))
        return false;
    markQuote();
    for (int i = 0; i < int(m_form->lines.size()); ++i) {
        const LineForm &form = m_form->lines[std::size_t(i)];
        Span spans[maximalValues];
        if (!form.has(Anything) || !form.has(Opens))
            continue;
        if (form.match(m_text, m_line.content, m_line.end, spans)) {
            accept(form, i, spans);
            return true;
        }
        if (form.matchBeginning(m_text, m_line.content, m_line.end, spans) && !readExact()) {
            accept(form, i, spans);
            m_pendingSuffix = form.suffix();
        }
        return true;
    }
    return false;
}

/// Decides whether a line of hyphens separates sections: then the heading of a later section follows,
/// or the text ends.
bool Reader::readSeparator()
{
    if (!isSeparator(m_text, m_line.content, m_line.end)) {
        const int hyphens = m_section == noSection ? -1 : gluedSeparator(m_text, m_line.content, m_line.end);
        if (hyphens < 0)
            return false;
        for (int i = 0; i < int(m_form->lines.size()); ++i) {
            const LineForm &form = m_form->lines[std::size_t(i)];
            Span spans[maximalValues];
            if (!form.has(NoLineEnd) || !form.match(m_text, m_line.content, hyphens, spans))
                continue;
            accept(form, i, spans);
            leave();
            m_data.sections.back().end = hyphens;
            mark(PlaceKind::Separator, hyphens, m_line.next);
            m_separated = true;
            m_interrupted = false;
            return true;
        }
        return false;
    }
    int begins = noSection;
    const bool headingFollows = isHeading(peekText(), begins);
    const int section = m_section;
    if (section == noSection && m_separated && !m_interrupted && m_order >= 0 && m_order < lastSection()
        && !isOptional(m_order + 1))
        noteAmbiguous(); // nothing between two separators
    leave();
    markQuote();
    mark(PlaceKind::Separator, m_line.content, m_line.next);
    m_suspended = headingFollows || section == lastSection() ? noSection : section;
    m_separated = true;
    m_interrupted = false;
    return true;
}

/// Enters the half or the section that the line begins. \a expected: a heading can stand here.
bool Reader::readHeading(bool expected)
{
    Alterations alterations;
    int begins = headingAt(m_text, m_line.content, m_line.end, &alterations);
    if (begins == noSection)
        begins = wrappedHeading();
    if (begins == noSection)
        return false;
    if (begins < 0) {
        int follows = noSection;
        const TextLine next = peekText();
        const bool proven = isHeading(next, follows) || next.begin == m_size;
        if (!expected && !proven)
            return false;
        if (!expected)
            noteAmbiguous();
        leave();
        if (begins == windowsHalf || m_report < 0) {
            ++m_report;
            m_order = -1;
            if (m_report > 0) {
                m_states |= m_spaces.states();
                m_spaces = SpaceEvidence();
            }
        }
        markQuote();
        mark(PlaceKind::Heading, m_line.content, m_line.next);
        m_separated = true;
        m_interrupted = false;
        m_suspended = noSection;
        m_hasBeginning |= begins == windowsHalf && m_report == 0;
        if (begins == qtHalf)
            m_order = std::max(m_order, lastWindowsSection());
        return true;
    }
    if (!expected && begins <= m_order)
        return false;
    if (beginsWithFact(begins)) {
        if (m_order < 0 ? alterations.any() : !m_spaces.allows(alterations))
            return false;
        if (!expected && !(m_section != noSection && begins == m_section + 1))
            return false;
        enter(begins, false);
        readSectionLine();
        return true;
    }
    m_spaces.count(alterations);
    if (!expected && isOpenEnded())
        noteAmbiguous();
    enter(begins, true);
    return true;
}

/// True if any line can be an entry of the section, so that its end shows only by a separator.
bool Reader::isOpenEnded() const
{
    const auto takesAnything = [](const LineForm &form) {
        return form.has(Anything) || (form.weight() < strongWeight && form.has(Opens));
    };
    return sectionRow().separator && std::any_of(m_form->lines.begin(), m_form->lines.end(), takesAnything);
}

void Reader::enter(int section, bool heading)
{
    leave();
    if (m_report < 0)
        m_report = 0;
    // A report does not go back. A value with line breaks can look like that, but so can two
    // reports of which the second has no beginning.
    if (section <= m_order && m_separated && !m_interrupted) {
        noteAmbiguous();
    } else if (section <= m_order) {
        ++m_report;
    }
    m_order = section;
    m_section = section;
    m_form = &sectionForm(section);
    m_separated = false;
    m_interrupted = false;
    m_suspended = noSection;
    m_lastForm = -1;
    m_lastFact = -1;
    m_emptyLines = 0;
    m_atStart = true;
    m_afterRule = false;
    m_valueOnNextLine = false;
    m_pendingSuffix = {};
    m_levels.assign(1, {-1, 0});
    Section entered;
    entered.row = section;
    entered.report = m_report;
    entered.begin = m_line.begin;
    entered.end = m_line.next;
    entered.firstFact = int(m_data.facts.size());
    entered.firstItem = int(m_data.items.size());
    m_data.sections.push_back(entered);
    if (!heading)
        return;
    markQuote();
    mark(PlaceKind::Heading, m_line.content, m_line.next);
}

void Reader::leave()
{
    if (m_section == noSection)
        return;
    closeItems(0);
    Section &section = m_data.sections.back();
    section.end = m_line.begin;
    section.lastFact = int(m_data.facts.size());
    section.lastItem = int(m_data.items.size());
    m_section = noSection;
    m_form = nullptr;
    m_valueOnNextLine = false;
    m_pendingSuffix = {};
}

} // namespace Reports
} // namespace velkor
