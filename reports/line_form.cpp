#include "line_form.h"

#include "drive_line.h"

#include <algorithm>
#include <cstring>

namespace velkor {
namespace Reports {

namespace {

constexpr int mostFurtherSpaces = 16; // that a run can have more than in the format

int countBlanks(std::string_view text)
{
    return int(std::count(text.begin(), text.end(), ' '));
}

int findItemRow(const FactRow &row)
{
    const std::vector<ItemRow> &rows = itemRows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (std::strcmp(rows[i].section, row.section) == 0 && std::strcmp(rows[i].kind, row.item) == 0)
            return int(i);
    }
    return -1;
}

/// \a line without its placeholders.
std::vector<std::string_view> literalsOf(std::string_view line, int valueCount)
{
    std::vector<std::string_view> literals;
    for (int i = 1; i <= valueCount; ++i) {
        const char placeholder[] = {'%', char('0' + i), '\0'};
        const std::size_t at = line.find(placeholder);
        literals.push_back(line.substr(0, at));
        line.remove_prefix(at + 2);
    }
    literals.push_back(line);
    return literals;
}

bool startsWith(std::string_view text, std::string_view literal)
{
    return text.size() >= literal.size() && std::memcmp(text.data(), literal.data(), literal.size()) == 0;
}

bool endsWith(std::string_view text, std::string_view literal)
{
    return text.size() >= literal.size() && text.substr(text.size() - literal.size()) == literal;
}

/// Matches literals whose spaces may have changed on the way.
class AlteredText
{
public:
    AlteredText(const char *text, int end, Alterations *alterations)
        : m_text(text), m_end(end), m_alterations(alterations)
    {
    }

    /// Returns the offset after \a literal at \a at, or -1. \a first: the literal begins the line.
    int match(std::string_view literal, int at, bool first)
    {
        for (std::size_t i = 0; i < literal.size();) {
            if (literal[i] != ' ') {
                if (at >= m_end || m_text[at] != literal[i])
                    return -1;
                ++at;
                ++i;
                continue;
            }
            const std::size_t run = std::min(literal.find_first_not_of(' ', i), literal.size()) - i;
            at = matchBlanks(int(run), at, first && i == 0, i + run == literal.size());
            if (at < 0)
                return -1;
            i += run;
        }
        return at;
    }

private:
    int matchBlanks(int expected, int at, bool leading, bool last)
    {
        int found = 0;
        while (at < m_end && m_text[at] == ' ' && !(last && found == expected)) {
            ++at;
            if (++found > expected + mostFurtherSpaces)
                return -1; // bounds the time for long runs of spaces
        }
        if (found == 0 && leading)
            m_alterations->leading = true;
        else if (found == 0 && at == m_end)
            m_alterations->trailing = true;
        else if (found == 0)
            return -1;
        else
            m_alterations->collapsed |= found != expected;
        return at;
    }

    const char *m_text;
    int m_end;
    Alterations *m_alterations;
};

} // namespace

int blankLength(const char *text, int at, int end)
{
    if (text[at] == ' ' || text[at] == '\t')
        return 1;
    return text[at] == '\xc2' && at + 1 < end && text[at + 1] == '\xa0' ? 2 : 0;
}

bool Alterations::any() const
{
    return leading || trailing || collapsed || noBreak;
}

LineForm::LineForm(int firstRow, int rowCount)
    : m_firstRow(firstRow), m_valueCount(factRows()[std::size_t(firstRow)].place == 0 ? 0 : rowCount), m_form(factRows()[std::size_t(firstRow)].form)
{
    const std::string_view line = row().line;
    m_item = findItemRow(row());
    m_literals = literalsOf(line, m_valueCount);
    for (const std::string_view literal : m_literals)
        m_weight += int(literal.size()) - countBlanks(literal);
    m_runs = line.find("  ", std::min(line.find_first_not_of(' '), line.size())) != std::string_view::npos;
    m_leading = !line.empty() && line.front() == ' ';
    m_trailing = (m_literals.size() == 1 || suffix().empty()) && !m_literals[m_literals.size() > 1 ? m_literals.size() - 2 : 0].empty()
        && m_literals[m_literals.size() > 1 ? m_literals.size() - 2 : 0].back() == ' ';
    m_drive = std::strcmp(row().item, "drive") == 0;
    if (m_valueCount > 0)
        m_only = row(m_valueCount - 1).only;
    m_weight += int(m_only.size());
}

const FactRow &LineForm::row(int value) const
{
    return factRows()[std::size_t(m_firstRow + value)];
}

bool LineForm::match(const char *text, int begin, int end, Span *spans) const
{
    if (m_drive)
        return matchDrive(text, begin, end, spans);
    if (!startsWith({text + begin, std::size_t(end - begin)}, m_literals.front()))
        return false;
    const int at = begin + int(m_literals.front().size());
    if (m_valueCount == 0)
        return at == end;
    return m_only.empty() ? matchFrom(text, at, end, spans, true) : matchOnly(text, at, end, spans);
}

bool LineForm::matchBeginning(const char *text, int begin, int end, Span *spans) const
{
    if (m_drive || m_valueCount == 0 || !m_only.empty() || suffix().empty()
        || !startsWith({text + begin, std::size_t(end - begin)}, m_literals.front()))
        return false;
    return matchFrom(text, begin + int(m_literals.front().size()), end, spans, false);
}

/// \a whole: the text after the last value is there, too.
bool LineForm::matchFrom(const char *text, int at, int end, Span *spans, bool whole) const
{
    for (int i = 0; i < m_valueCount; ++i) {
        const std::string_view next = m_literals[std::size_t(i) + 1];
        const std::string_view rest(text + at, std::size_t(end - at));
        if (i + 1 == m_valueCount) {
            if (whole && !endsWith(rest, next))
                return false;
            spans[i] = {at, whole ? end - int(next.size()) : end};
            return true;
        }
        const std::size_t found = rest.find(next, i == 0 && has(NotEmpty) ? 1 : 0);
        if (found == std::string_view::npos)
            return false;
        spans[i] = {at, at + int(found)};
        at += int(found + next.size());
    }
    return false;
}

/// The last value is known, so it is looked for from the end.
bool LineForm::matchOnly(const char *text, int begin, int end, Span *spans) const
{
    const std::string_view after = suffix();
    std::string_view rest(text + begin, std::size_t(end - begin));
    if (!endsWith(rest, after) || !endsWith(rest.substr(0, rest.size() - after.size()), m_only))
        return false;
    const int valueEnd = end - int(after.size());
    const int valueBegin = valueEnd - int(m_only.size());
    if (m_valueCount == 1) {
        spans[0] = {valueBegin, valueEnd};
        return valueBegin == begin;
    }
    const std::string_view between = m_literals[1];
    rest = rest.substr(0, std::size_t(valueBegin - begin));
    if (!endsWith(rest, between) || (has(NotEmpty) && rest.size() == between.size()))
        return false;
    spans[0] = {begin, valueBegin - int(between.size())};
    spans[1] = {valueBegin, valueEnd};
    return true;
}

bool LineForm::matchAltered(const char *text, int begin, int end, Span *spans, Alterations *alterations) const
{
    if (m_drive)
        return matchDrive(text, begin, end, spans, alterations);
    AlteredText line(text, end, alterations);
    int at = line.match(m_literals.front(), begin, true);
    if (at < 0)
        return false;
    if (m_valueCount == 0)
        return at == end;
    if (m_valueCount == 2 && !m_only.empty())
        return matchAlteredOnly(text, at, end, spans, alterations);
    for (int i = 0; i < m_valueCount; ++i) {
        const std::string_view next = m_literals[std::size_t(i) + 1];
        spans[i] = {at, end};
        if (next.empty())
            break;
        int after = -1;
        int candidate = at + (i == 0 && has(NotEmpty) ? 1 : 0);
        for (; candidate <= end; ++candidate) {
            Alterations tried = *alterations;
            AlteredText rest(text, end, &tried);
            after = rest.match(next, candidate, false);
            if (after >= 0 && (i + 1 < m_valueCount || after == end)) {
                *alterations = tried;
                break;
            }
            after = -1;
        }
        if (after < 0)
            return false;
        spans[i].end = candidate;
        at = after;
    }
    if (!m_only.empty()) {
        const Span &last = spans[m_valueCount - 1];
        return std::string_view(text + last.begin, std::size_t(last.end - last.begin)) == m_only;
    }
    return true;
}

/// The last value is known, so it is looked for from the end, and the spaces before it.
bool LineForm::matchAlteredOnly(const char *text, int begin, int end, Span *spans, Alterations *alterations) const
{
    const std::string_view rest(text + begin, std::size_t(end - begin));
    if (!endsWith(rest, m_only))
        return false;
    const int only = end - int(m_only.size());
    int valueEnd = only;
    while (valueEnd > begin && text[valueEnd - 1] == ' ')
        --valueEnd;
    alterations->collapsed |= only - valueEnd < int(m_literals[1].size());
    spans[0] = {begin, valueEnd};
    spans[1] = {only, end};
    return valueEnd < only && valueEnd > begin;
}

const SectionForm &sectionForm(int section)
{
    static const std::vector<SectionForm> forms = [] {
        std::vector<SectionForm> result;
        const std::vector<FactRow> &rows = factRows();
        for (const SectionRow &sectionRow : sectionRows()) {
            SectionForm form;
            for (std::size_t i = 0; i < rows.size();) {
                std::size_t count = 1;
                while (i + count < rows.size() && rows[i + count].place == int(count) + 1)
                    ++count;
                if (std::strcmp(rows[i].section, sectionRow.facts) == 0)
                    form.lines.emplace_back(int(i), int(count));
                i += count;
            }
            result.push_back(std::move(form));
        }
        return result;
    }();
    return forms[std::size_t(section)];
}

} // namespace Reports
} // namespace velkor
