// Lines of a section.
#include "reader.h"

#include "altered_line.h"
#include "section_order.h"
#include "strong_lines.h"
#include "text_runs.h"

#include <algorithm>
#include <cstring>

namespace velkor {
namespace Reports {

void Reader::readSectionLine()
{
    markQuote();
    if (m_line.isEmpty()) {
        readEmptyLine();
        return;
    }
    joinWrapped();
    // Without its runs of spaces a line can look like one with a shorter label.
    if (m_spaces.collapsed() && m_pendingSuffix.empty() && readAltered(strongWeight))
        return;
    if (readRule() || readExact() || (m_pendingSuffix.empty() && readHeading(false)))
        return;
    if (!m_pendingSuffix.empty()) {
        finishBeginning();
        return;
    }
    if (readAltered(strongWeight) || readAnything() || readBeginning() || readAltered(1) || resumes()
        || startsModules() || continueValue())
        return;
    mark(PlaceKind::Other, m_line.content, m_line.next);
}

void Reader::readEmptyLine()
{
    mark(PlaceKind::Empty, m_line.content, m_line.next);
    if (m_transport.doubleSpaced && m_previous.next == m_line.begin && !m_previous.isEmpty())
        return; // the second line end of the line before
    ++m_emptyLines;
    if (!inKind("instance") && !inKind("device"))
        return;
    // An empty line ends an instance, a further one ends the device.
    closeItems(m_levels.size() - 1);
}

/// The line that begins the block of a device class or of an interface.
bool Reader::readRule()
{
    const std::string_view line(m_text + m_line.content, std::size_t(m_line.end - m_line.content));
    const bool drivers = isKind(sectionRow().facts, "driverInfoFromRegistry") && isRun(line, '-', hyphensOfClass);
    const bool interfaces = isKind(sectionRow().facts, "qtNetworkInterfaces") && isRun(line, '_', underscoresOfInterface);
    if (!drivers && !interfaces)
        return false;
    closeItems(1);
    m_afterRule = true;
    m_pendingSuffix = {};
    m_lastFact = -1;
    return true;
}

bool Reader::readExact()
{
    const int count = int(m_form->lines.size());
    for (int step = 1; step <= count; ++step) {
        const int index = (m_lastForm + step) % count;
        const LineForm &form = m_form->lines[std::size_t(index)];
        Span spans[maximalValues];
        if (form.has(Anything) || form.has(NextLine) || !form.match(m_text, m_line.content, m_line.end, spans))
            continue;
        if (!mayFollow(form, index))
            continue;
        if (isRepeated(form, index) && !givesBack(form, index)) {
            if (index >= m_lastForm)
                noteAmbiguous();
            if (continueValue())
                return true;
        }
        accept(form, index, spans);
        return true;
    }
    return false;
}

/// The conditions of lines that little text identifies.
bool Reader::mayFollow(const LineForm &form, int formIndex) const
{
    if (form.item() < 0 || !form.has(Opens))
        return true;
    const char *kind = itemRows()[std::size_t(form.item())].kind;
    if (isKind(kind, "product"))
        return m_atStart || m_emptyLines > 0 || m_lastForm < 0;
    if (isKind(kind, "openGLDriver"))
        return m_lastForm == formIndex || m_lastForm == formIndex - 1;
    if (isKind(kind, "screen"))
        return m_line.end - m_line.content > 1 && m_text[m_line.end - 1] != '#';
    return true;
}

bool Reader::readAnything()
{
    for (int i = 0; i < int(m_form->lines.size()); ++i) {
        const LineForm &form = m_form->lines[std::size_t(i)];
        Span spans[maximalValues];
        if (form.has(Anything) && mayStand(form) && form.match(m_text, m_line.content, m_line.end, spans)) {
            accept(form, i, spans);
            return true;
        }
    }
    return false;
}

/// Whether an item that any text can begin may begin here.
bool Reader::mayStand(const LineForm &form) const
{
    const char *kind = itemRows()[std::size_t(form.item())].kind;
    const bool indented = m_text[m_line.content] == ' ';
    if (isKind(kind, "module") || isKind(kind, "assembly"))
        return true;
    if (isKind(kind, "deviceClass"))
        return m_lastForm < 0;
    if (isKind(kind, "device"))
        return !indented && (m_lastForm < 0 || !inKind("instance"));
    return isKind(kind, "configuration") && !indented && mayBeConfiguration();
}

/// A configuration is named by its number. Another name can only be told from a value's further
/// line by what stands around it.
bool Reader::mayBeConfiguration() const
{
    const std::string_view name(m_text + m_line.content, std::size_t(m_line.end - m_line.content));
    if (name.size() == 4 && name.find_first_not_of("0123456789") == std::string_view::npos)
        return true;
    return m_lastForm < 0 || inKind("adapter") || m_data.facts[std::size_t(m_lastFact)].end < m_previous.begin;
}

bool Reader::readAltered(int weight)
{
    const std::string_view prefix(m_transport.linePrefix.constData(), std::size_t(m_transport.linePrefix.size()));
    const AlteredLine line(m_text, m_line.content, m_line.end, m_line.wrapped, prefix);
    const int count = int(m_form->lines.size());
    for (int step = 1; step <= count; ++step) {
        const int index = (m_lastForm + step) % count;
        const LineForm &form = m_form->lines[std::size_t(index)];
        const bool spacesOnly = form.weight() == 0;
        if (form.has(Anything) || form.has(NextLine) || form.weight() < weight * (spacesOnly ? 0 : 1)
            || (spacesOnly && (weight > 1 || !mayBeStripped(form))))
            continue;
        Span spans[maximalValues];
        Alterations alterations;
        const bool matches = line.match(form, spans, &alterations);
        alterations.trailing &= m_transport.wrapColumn == 0; // lost where lines were broken
        if (!matches || !m_spaces.allows(alterations) || !mayFollow(form, index)
            || isRepeated(form, index))
            continue;
        m_spaces.count(alterations);
        accept(form, index, spans, true);
        return true;
    }
    return false;
}

/// A line of which only spaces at its beginning are the format's: without them it can be anything.
bool Reader::mayBeStripped(const LineForm &form) const
{
    if (m_text[m_line.content] == ' ')
        return true;
    if (form.item() >= 0)
        return m_spaces.leadingStripped() || m_lastForm < 0 || form.has(Opens);
    return m_lastFact >= 0 && m_data.facts[std::size_t(m_lastFact)].item < 0
        && factRows()[std::size_t(m_data.facts[std::size_t(m_lastFact)].row)].type == Type::Version;
}

} // namespace Reports
} // namespace velkor
