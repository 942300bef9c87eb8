// Lines that were broken at a space.
#include "reader.h"

#include "altered_line.h"
#include "strong_lines.h"
#include "text_runs.h"

#include <algorithm>
#include <cstring>

namespace velkor {
namespace Reports {

/// What the line and the one that was broken off it begin. Extends the line if they do.
int Reader::wrappedHeading()
{
    if (m_transport.wrapColumn == 0 || m_line.next == m_size)
        return noSection;
    const TextLine next = peek();
    const int length = lengthOf(m_text + m_line.begin, m_text + next.end);
    if (next.isEmpty() || length <= m_transport.wrapColumn || next.end - m_line.begin > longestHeading)
        return noSection;
    Alterations ignored;
    const int begins = headingAt(m_text, m_line.content, next.end, &ignored);
    if (begins == noSection || (begins >= 0 && beginsWithFact(begins)))
        return noSection;
    m_line.end = next.end;
    m_line.next = next.next;
    m_states |= State::WrappedLines;
    return begins;
}

/// Extends the line by those that were broken off it.
void Reader::joinWrapped()
{
    const int column = m_transport.wrapColumn;
    TextLine last = m_line;
    while (column > 0 && m_line.next < m_size) {
        const TextLine next = peek();
        if (!isBrokenOff(last, next))
            return;
        m_line.end = next.end;
        m_line.next = next.next;
        m_line.wrapped = true;
        m_states |= State::WrappedLines;
        last = next;
    }
}

/// True if \a before was broken at a space because the first word of \a line did not fit.
bool Reader::isBrokenOff(const TextLine &before, const TextLine &line) const
{
    const std::string_view text(m_text + line.content, std::size_t(line.end - line.content));
    const std::string_view word = text.substr(0, text.find(' '));
    const std::string_view previous(m_text + before.content, std::size_t(before.end - before.content));
    const int length = lengthOf(m_text + before.begin, m_text + before.end);
    const int wordLength = lengthOf(word.data(), word.data() + word.size());
    const bool oneWord = previous.find(' ', std::min(previous.find_first_not_of(' '), previous.size())) == std::string_view::npos;
    if (word.empty() || previous.empty() || (length > m_transport.wrapColumn && !oneWord) || line.formFeed
        || length + 1 + wordLength <= m_transport.wrapColumn || previous.find_last_not_of(" -_") == std::string_view::npos)
        return false;
    const bool path = word.substr(0, 2) == "\\\\" || (word.size() > 2 && word.substr(1, 2) == ":\\") || word.front() == '/';
    if ((path && isKind(sectionRow().facts, "loadedModules")) || isKind(sectionRow().facts, "winSxSDirectoryEntries"))
        return false; // an assembly's name has no spaces
    int begins = noSection;
    return !isHeading(before, begins) && !isRun(text, '-', hyphensOfClass) && !isRun(text, '_', underscoresOfInterface)
        && !isSeparator(m_text, line.content, line.end) && !isHeading(line, begins) && !isKnown(line);
}

/// True if the line's label shows that the section has such a line.
bool Reader::isKnown(const TextLine &line) const
{
    const AlteredLine altered(m_text, line.content, line.end);
    for (const LineForm &form : m_form->lines) {
        Span spans[maximalValues];
        Alterations alterations;
        const bool severalValues = form.valueCount() > 1 && form.weight() > 1;
        if (severalValues && form.match(m_text, line.content, line.end, spans))
            return true;
        if (form.weight() >= strongWeight
            && (form.match(m_text, line.content, line.end, spans)
                || form.matchBeginning(m_text, line.content, line.end, spans)
                || (altered.match(form, spans, &alterations) && m_spaces.allows(alterations))))
            return true;
    }
    return false;
}

} // namespace Reports
} // namespace velkor
