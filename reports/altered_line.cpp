#include "altered_line.h"

namespace velkor {
namespace Reports {

AlteredLine::AlteredLine(const char *text, int begin, int end, bool wrapped, std::string_view prefix)
    : m_text(text), m_begin(begin), m_end(end)
{
    const std::string_view line(text + begin, std::size_t(end - begin));
    m_noBreak = line.find('\t') != std::string_view::npos || line.find("\xc2\xa0") != std::string_view::npos;
    if (!m_noBreak && !wrapped)
        return;
    for (int at = begin; at < end;) {
        const bool lineEnd = wrapped && (text[at] == '\n' || text[at] == '\r');
        const int blank = blankLength(text, at, end);
        m_plain += lineEnd || blank > 0 ? ' ' : text[at];
        m_offsets.push_back(at);
        at += blank > 0 ? blank : 1;
        if (!lineEnd)
            continue;
        while (at < end && text[at] == '\n')
            ++at;
        if (std::string_view(text + at, std::size_t(end - at)).substr(0, prefix.size()) == prefix)
            at += int(prefix.size());
    }
    m_offsets.push_back(end);
}

bool AlteredLine::match(const LineForm &form, Span *spans, Alterations *alterations) const
{
    if (m_plain.empty())
        return form.matchAltered(m_text, m_begin, m_end, spans, alterations);
    const int size = int(m_plain.size());
    alterations->noBreak = m_noBreak;
    if (!form.match(m_plain.data(), 0, size, spans) && !form.matchAltered(m_plain.data(), 0, size, spans, alterations))
        return false;
    for (int i = 0; i < form.valueCount(); ++i) {
        if (spans[i].begin >= 0)
            spans[i] = {m_offsets[std::size_t(spans[i].begin)], m_offsets[std::size_t(spans[i].end)]};
    }
    return true;
}

} // namespace Reports
} // namespace velkor
