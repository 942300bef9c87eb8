#include "reader.h"

#include "section_order.h"
#include "text_runs.h"

#include <algorithm>
#include <cstring>

namespace velkor {
namespace Reports {

namespace {

constexpr int peekedLines = 3;

} // namespace

Reader::Reader(DocumentData &data, const Transport &transport)
    : m_data(data), m_transport(transport), m_text(data.text.constData()), m_size(data.text.size())
{
}

void Reader::read()
{
    int begin = 0;
    if (m_data.text.startsWith("\xef\xbb\xbf")) {
        begin = 3;
        mark(PlaceKind::Mark, 0, begin);
        m_states |= State::ByteOrderMark;
    }
    m_previous.next = begin;
    while (begin < m_size) {
        m_line = lineAt(begin);
        if (m_line.content > m_line.begin && !m_line.formFeed)
            m_states |= State::MailQuotes;
        readLine();
        m_previous = m_line;
        begin = m_line.next;
    }
    finish();
}

TextLine Reader::lineAt(int begin) const
{
    TextLine line;
    line.begin = begin;
    const char last = m_transport.lineEnd[m_transport.lineEnd.size() - 1];
    const void *found = std::memchr(m_text + begin, last, std::size_t(m_size - begin));
    line.end = found ? int(static_cast<const char *>(found) - m_text) : m_size;
    line.next = found ? line.end + 1 : m_size;
    while (m_transport.carriageReturns && line.end > begin && m_text[line.end - 1] == '\r')
        --line.end;
    line.content = begin;
    if (line.content < line.end && m_text[line.content] == '\f') {
        ++line.content;
        line.formFeed = true;
        return line;
    }
    const QByteArray &prefix = m_transport.linePrefix;
    if (prefix.isEmpty())
        return line;
    const std::string_view bytes(m_text + begin, std::size_t(line.end - begin));
    const std::string_view quote(prefix.constData(), std::size_t(prefix.size()));
    Alterations ignored;
    if (bytes.substr(0, quote.size()) == quote) {
        if (headingAt(m_text, line.content, line.end, &ignored) == noSection || quote.size() > 1)
            line.content += prefix.size();
    } else if (quote.back() == ' ' && bytes == quote.substr(0, quote.size() - 1)) {
        line.content = line.end;
    }
    return line;
}

TextLine Reader::peek() const
{
    TextLine line;
    line.begin = line.content = line.end = line.next = m_size;
    return m_line.next < m_size ? lineAt(m_line.next) : line;
}

/// The next line that is not empty, of the next few.
TextLine Reader::peekText() const
{
    TextLine line = peek();
    for (int i = 0; i < peekedLines && line.isEmpty() && line.next < m_size; ++i)
        line = lineAt(line.next);
    return line;
}

bool Reader::isHeading(const TextLine &line, int &begins) const
{
    Alterations ignored;
    begins = headingAt(m_text, line.content, line.end, &ignored);
    return begins != noSection;
}

void Reader::readLine()
{
    if (readForced() || readSeparator())
        return;
    if (m_section == noSection) {
        if (m_line.isEmpty()) {
            readForeignLine();
            return;
        }
        if (readHeading(true) || resumes() || startsWithoutHeading())
            return;
        readForeignLine();
        return;
    }
    readSectionLine();
}

/// A line outside of every section.
void Reader::readForeignLine()
{
    markQuote();
    const std::string_view line(m_text + m_line.content, std::size_t(m_line.end - m_line.content));
    const bool blank = line.find_first_not_of(" \t") == std::string_view::npos;
    mark(blank ? PlaceKind::Empty : PlaceKind::Other, m_line.content, m_line.next);
    m_interrupted = true;
}

void Reader::mark(PlaceKind kind, int begin, int end)
{
    std::vector<Mark> &marks = m_data.marks;
    if (begin == end || (!marks.empty() && begin < marks.back().end)) // a line that was looked at before
        return;
    const bool joins = kind == PlaceKind::Other || kind == PlaceKind::Empty;
    if (joins && !marks.empty() && marks.back().kind == kind && marks.back().end == begin)
        marks.back().end = end;
    else
        marks.push_back({kind, begin, end});
}

/// Removes the marks from \a begin on: a value covers them.
void Reader::absorb(int begin)
{
    std::vector<Mark> &marks = m_data.marks;
    while (!marks.empty() && marks.back().end > begin) {
        if (marks.back().begin < begin) {
            marks.back().end = begin;
            break;
        }
        marks.pop_back();
    }
}

/// Marks what precedes the line's content: a quote, or the form feed of a page.
void Reader::markQuote()
{
    mark(m_line.formFeed ? PlaceKind::Other : PlaceKind::Quote, m_line.begin, m_line.content);
}

void Reader::noteAmbiguous()
{
    m_states |= State::Ambiguous;
    if (m_data.ambiguous.empty() || m_data.ambiguous.back() < m_line.begin)
        m_data.ambiguous.push_back(m_line.begin);
}

bool Reader::inKind(const char *kind) const
{
    const int item = m_levels.empty() ? -1 : m_levels.back().item;
    return item >= 0 && isKind(itemRows()[std::size_t(m_data.items[std::size_t(item)].kind)].kind, kind);
}

const SectionRow &Reader::sectionRow() const
{
    return sectionRows()[std::size_t(m_section)];
}

void Reader::finish()
{
    const bool open = m_section != noSection;
    m_line.begin = m_line.content = m_line.end = m_line.next = m_size;
    leave();
    States states = m_states | m_spaces.states();
    states.setFlag(State::NoReport, m_data.sections.empty());
    states.setFlag(State::SeveralReports, m_report > 0);
    states.setFlag(State::CrLf, m_transport.carriageReturns || m_transport.lineEnd != "\n");
    if (open || !m_data.tail.isEmpty())
        states |= State::EndMissing;
    states |= missingSections(m_data.sections, m_hasBeginning);
    if (!m_data.sections.empty() && hasForeignText(states.testFlag(State::StartMissing)))
        states |= State::ForeignText;
    m_data.states |= states;
}

/// The rest of the line in which a text begins is not foreign.
bool Reader::hasForeignText(bool startMissing) const
{
    const auto isForeign = [&](const Mark &mark) {
        if (mark.kind != PlaceKind::Other)
            return false;
        const bool oneLine = m_data.text.indexOf('\n', mark.begin) == mark.end - 1;
        return !(startMissing && mark.begin == 0 && oneLine);
    };
    return std::any_of(m_data.marks.begin(), m_data.marks.end(), isForeign);
}

} // namespace Reports
} // namespace velkor
