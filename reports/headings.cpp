#include "headings.h"

#include "altered_line.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>

namespace velkor {
namespace Reports {

namespace {

constexpr int separatorLength = 72;

/// \a line with single spaces in the place of runs, and without spaces at its ends.
std::string normalised(const char *text, int begin, int end)
{
    std::string result;
    for (int at = begin; at < end;) {
        const bool lineEnd = text[at] == '\n' || text[at] == '\r'; // of a wrapped heading
        const int length = lineEnd ? 1 : blankLength(text, at, end);
        if (length == 0) {
            result += text[at];
            ++at;
            continue;
        }
        if (!result.empty() && result.back() != ' ')
            result += ' ';
        at += length;
    }
    if (!result.empty() && result.back() == ' ')
        result.pop_back();
    return result;
}

std::string firstLine(const char *heading)
{
    const std::string text = heading;
    return text.substr(0, text.find('\n'));
}

struct Heading
{
    int begins;
    std::string line;
};

/// The first character of the line, which is that of the only text that the line can have.
char firstCharacter(const FactRow &row)
{
    return row.line[0] == '%' && row.only[0] != '\0' ? row.only[0] : row.line[0];
}

class HeadingTable
{
public:
    HeadingTable()
    {
        add(windowsHalf, halfHeading(Half::Windows).toStdString());
        add(qtHalf, halfHeading(Half::Qt).toStdString());
        const std::vector<SectionRow> &rows = sectionRows();
        for (int i = 0; i < int(rows.size()); ++i) {
            const char *heading = rows[std::size_t(i)].heading;
            if (*heading != '\0')
                add(i, firstLine(heading));
            else
                addFact(i);
        }
    }

    const Heading *find(const std::string &line) const
    {
        const auto found = m_headings.find(line);
        return found == m_headings.end() ? nullptr : &found->second;
    }

    bool canBegin(char first) const { return m_first[uchar(first)]; }
    bool canBeginFact(char first) const { return m_firstOfFact[uchar(first)]; }
    const std::vector<int> &facts() const { return m_facts; }

private:
    void add(int begins, const std::string &line)
    {
        m_headings[normalised(line.data(), 0, int(line.size()))] = {begins, line};
        m_first[uchar(line.front())] = true;
    }

    void addFact(int section)
    {
        m_facts.push_back(section);
        for (const LineForm &form : sectionForm(section).lines)
            m_firstOfFact[uchar(firstCharacter(form.row()))] = true;
    }

    std::unordered_map<std::string, Heading> m_headings;
    std::array<bool, 256> m_first {};
    std::array<bool, 256> m_firstOfFact {};
    std::vector<int> m_facts;
};

const HeadingTable &table()
{
    static const HeadingTable headings;
    return headings;
}

/// A section without a heading begins with one of its first lines, which have equal labels.
int factHeadingAt(const char *text, int begin, int end, Alterations *alterations)
{
    const AlteredLine line(text, begin, end);
    for (const int section : table().facts()) {
        for (const LineForm &form : sectionForm(section).lines) {
            Span spans[maximalValues];
            const std::string_view label = sectionForm(section).lines.front().row().line;
            if (form.row().line != label && form.row().line[0] != label[0])
                continue;
            if (form.match(text, begin, end, spans))
                return section;
            Alterations found;
            if (!line.match(form, spans, &found))
                continue;
            *alterations = found;
            return section;
        }
    }
    return noSection;
}

} // namespace

bool beginsWithFact(int section)
{
    return *sectionRows()[std::size_t(section)].heading == '\0';
}

int headingAt(const char *text, int begin, int end, Alterations *alterations)
{
    int at = begin;
    while (at < end && blankLength(text, at, end) > 0)
        at += blankLength(text, at, end);
    if (at == end)
        return noSection;
    if (end - at <= longestHeading && table().canBegin(text[at])) {
        const Heading *heading = table().find(normalised(text, at, end));
        if (heading) {
            const std::string_view line(text + begin, std::size_t(end - begin));
            if (line != heading->line) {
                const bool shorter = line.size() < heading->line.size();
                alterations->leading |= at > begin;
                alterations->trailing |= shorter && heading->line.back() == ' ';
                alterations->noBreak |= line.find_first_of("\t\xc2") != std::string_view::npos;
                alterations->collapsed |= shorter && heading->line.back() != ' ';
            }
            return heading->begins;
        }
    }
    return table().canBeginFact(text[at]) ? factHeadingAt(text, at, end, alterations) : noSection;
}

bool isSeparator(const char *text, int begin, int end)
{
    if (end - begin < separatorLength || text[begin] != '-')
        return false;
    const std::string_view line(text + begin, std::size_t(end - begin));
    const std::size_t hyphens = std::min(line.find_first_not_of('-'), line.size());
    return hyphens == separatorLength && line.find_first_not_of(' ', hyphens) == std::string_view::npos;
}

int gluedSeparator(const char *text, int begin, int end)
{
    if (end - begin <= separatorLength || text[end - 1] != '-')
        return -1;
    const std::string_view hyphens(text + end - separatorLength, separatorLength);
    return hyphens.find_first_not_of('-') == std::string_view::npos ? end - separatorLength : -1;
}

} // namespace Reports
} // namespace velkor
