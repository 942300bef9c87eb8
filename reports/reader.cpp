#include "reader.h"

#include "altered_line.h"

#include <algorithm>
#include <cstring>

namespace velkor {
namespace Reports {

namespace {

constexpr int strongWeight = 6; // characters that prove a line without its heading
constexpr int longWeight = 12;  // that prove it alone
constexpr int resumedSections = 5; // how many sections a value can hold and still be told from them
constexpr int examinedFacts = 64;
constexpr int peekedLines = 3;
constexpr int hyphensOfClass = 28;
constexpr int underscoresOfInterface = 55;

bool isRun(std::string_view line, char character, int length)
{
    return int(line.size()) == length && line.find_first_not_of(character) == std::string_view::npos;
}

bool isKind(const char *name, const char *kind)
{
    return std::strcmp(name, kind) == 0;
}

bool hasNativeDigits(std::string_view value)
{
    const QString text = QString::fromUtf8(value.data(), int(value.size()));
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() > 0x7f && c.isDigit(); });
}

/// Values of these types are written from numbers, so they have no line breaks.
bool isOneLine(Type type)
{
    return type == Type::Number || type == Type::Number64 || type == Type::Real || type == Type::Bytes;
}

int lastSection()
{
    return int(sectionRows().size()) - 1;
}

int findSectionRow(const char *name)
{
    int row = lastSection();
    while (row >= 0 && !isKind(sectionRows()[std::size_t(row)].name, name))
        --row;
    return row;
}

int lastWindowsSection()
{
    int last = -1;
    for (const SectionRow &row : sectionRows())
        last += row.half == Half::Windows ? 1 : 0;
    return last;
}

/// A section that the report leaves out if a call fails, or that the host can leave out.
bool isOptional(int section)
{
    const char *name = sectionRows()[std::size_t(section)].name;
    return isKind(name, "userName") || isKind(name, "someEnvironmentVariables") || isKind(name, "GetOpenGLInfo");
}

struct StrongLine
{
    int section;
    const LineForm *form;
};

/// The lines that begin with that character and prove their section without its heading.
const std::vector<StrongLine> &strongLines(char first)
{
    static const std::vector<std::vector<StrongLine>> lines = [] {
        std::vector<std::vector<StrongLine>> result(256);
        for (int section = 0; section <= lastSection(); ++section) {
            for (const LineForm &form : sectionForm(section).lines) {
                if (form.weight() >= strongWeight)
                    result[uchar(form.row().line[0])].push_back({section, &form});
            }
        }
        return result;
    }();
    return lines[uchar(first)];
}

/// Which sections of the reports are missing.
States missingSections(const std::vector<Section> &sections, bool hasBeginning)
{
    States states;
    int report = -1;
    int previous = -1;
    const auto endReport = [&] {
        for (int row = previous + 1; report >= 0 && row <= lastSection(); ++row)
            states.setFlag(State::EndMissing, states.testFlag(State::EndMissing) || !isOptional(row));
    };
    for (const Section &section : sections) {
        const bool first = section.report != report;
        if (first)
            endReport();
        if (first && section.row != 0)
            states |= hasBeginning && section.report == 0 ? State::SectionsMissing : State::StartMissing;
        for (int row = previous + 1; !first && row < section.row; ++row)
            states.setFlag(State::SectionsMissing, states.testFlag(State::SectionsMissing) || !isOptional(row));
        report = section.report;
        previous = section.row;
    }
    endReport();
    return states;
}

} // namespace

void SpaceEvidence::count(const LineForm &form, bool emptyValue)
{
    m_leading.exact += form.hasLeading() ? 1 : 0;
    m_collapsed.exact += form.hasRuns() ? 1 : 0;
    m_trailing.exact += emptyValue && form.hasTrailing() ? 1 : 0;
}

bool SpaceEvidence::allows(const Alterations &found) const
{
    return found.noBreak || ((!found.leading || m_leading.allows()) && (!found.trailing || m_trailing.allows())
        && (!found.collapsed || m_collapsed.allows()));
}

void SpaceEvidence::count(const Alterations &found)
{
    m_leading.altered += found.leading ? 1 : 0;
    m_trailing.altered += found.trailing ? 1 : 0;
    m_collapsed.altered += found.collapsed ? 1 : 0;
    m_noBreak |= found.noBreak;
}

States SpaceEvidence::states() const
{
    States states;
    states.setFlag(State::LeadingBlanksStripped, m_leading.altered > 0);
    states.setFlag(State::TrailingBlanksStripped, m_trailing.altered > 0);
    states.setFlag(State::BlanksCollapsed, m_collapsed.altered > 0);
    states.setFlag(State::NoBreakSpaces, m_noBreak);
    return states;
}

Reader::Reader(DocumentData &data, const Transport &transport)
    : m_data(data)
    , m_transport(transport)
    , m_text(data.text.constData())
    , m_size(data.text.size())
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

// -------------------------------------------------------------------------------------------------
// Lines

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

// -------------------------------------------------------------------------------------------------
// Structure

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
    m_states |= m_data.sections.size() == 1 && !m_hasBeginning ? State::StartMissing : State::SectionsMissing;
    readSectionLine();
    return true;
}

int Reader::sectionBeforeNextHeading(const std::vector<int> &candidates) const
{
    for (int begin = m_line.next; begin < m_size;) {
        const TextLine line = lineAt(begin);
        int begins = noSection;
        if (isHeading(line, begins) && begins >= 0) {
            int best = candidates.front();
            for (const int candidate : candidates)
                best = candidate < begins ? candidate : best;
            return best;
        }
        begin = line.next;
    }
    return candidates.front();
}

// -------------------------------------------------------------------------------------------------
// Lines of a section

void Reader::readSectionLine()
{
    markQuote();
    if (m_line.isEmpty()) {
        readEmptyLine();
        return;
    }
    joinWrapped();
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
    if (path && isKind(sectionRow().facts, "loadedModules"))
        return false;
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
        if (form.weight() >= strongWeight
            && (form.match(m_text, line.content, line.end, spans)
                || form.matchBeginning(m_text, line.content, line.end, spans)
                || (altered.match(form, spans, &alterations) && m_spaces.allows(alterations))))
            return true;
    }
    return false;
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
    absorb(fact.end);
    fact.end = m_line.end;
    if (line.size() < m_pendingSuffix.size() || line.substr(line.size() - m_pendingSuffix.size()) != m_pendingSuffix)
        return;
    fact.end -= int(m_pendingSuffix.size());
    m_pendingSuffix = {};
    m_emptyLines = 0;
    m_valueOnNextLine = nextLineIsValue(m_lastForm);
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
    absorb(fact.end);
    fact.end = m_line.end;
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

// -------------------------------------------------------------------------------------------------
// Places

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
        const QByteArray text = m_data.text.mid(mark.begin, mark.end - mark.begin);
        return mark.kind == PlaceKind::Other && !(startMissing && mark.begin == 0 && text.indexOf('\n') == text.size() - 1);
    };
    return std::any_of(m_data.marks.begin(), m_data.marks.end(), isForeign);
}

} // namespace Reports
} // namespace velkor
