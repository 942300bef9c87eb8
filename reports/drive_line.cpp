#include "drive_line.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

constexpr std::string_view types[] = {
    "no root dir mounted  ",
    "removable media      ",
    "fixed drive          ",
    "remote/network drive ",
    "CD/DVD drive         ",
    "RAM disk drive       ",
};

constexpr int rootLength = 3; // "C:\"

enum Part {
    Root,
    Type,
    FileSystem,
    Label,
    Free,
    Total,
};

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

class DriveLine
{
public:
    DriveLine(const char *text, int begin, int end, Span *spans, Alterations *altered)
        : m_text(text), m_begin(begin), m_end(end), m_spans(spans), m_altered(altered)
    {
    }

    bool match()
    {
        return matchRoot() && matchType() && matchSizes() && matchVolume();
    }

private:
    std::string_view view(int begin, int end) const
    {
        return std::string_view(m_text + begin, std::size_t(end - begin));
    }

    int afterBlanks(int at) const
    {
        while (at < m_end && m_text[at] == ' ')
            ++at;
        return at;
    }

    int beforeBlanks(int from, int at) const
    {
        while (at > from && m_text[at - 1] == ' ')
            --at;
        return at;
    }

    bool matchRoot()
    {
        if (m_end - m_begin < rootLength || m_text[m_begin] < 'A' || m_text[m_begin] > 'Z' || m_text[m_begin + 1] != ':'
            || m_text[m_begin + 2] != '\\')
            return false;
        m_spans[Root] = {m_begin, m_begin + rootLength};
        m_begin += rootLength;
        if (m_altered) {
            m_altered->trailing |= m_begin == m_end;
            m_begin = afterBlanks(m_begin);
            return true;
        }
        if (m_begin == m_end || m_text[m_begin] != ' ')
            return false;
        ++m_begin;
        return true;
    }

    bool matchType()
    {
        m_spans[Type] = {};
        for (const std::string_view padded : types) {
            const std::string_view type = trimmed(padded);
            const std::string_view rest = view(m_begin, m_end);
            if (rest.substr(0, type.size()) != type)
                continue;
            if (!m_altered && rest.substr(0, padded.size()) != padded)
                continue;
            m_spans[Type] = {m_begin, m_begin + int(type.size())};
            m_begin += int(m_altered ? type.size() : padded.size());
            if (m_altered) {
                const int next = afterBlanks(m_begin);
                const bool shorter = next - m_begin != int(padded.size() - type.size());
                m_altered->collapsed |= shorter && next > m_begin;
                m_altered->trailing |= shorter && next == m_begin;
                m_begin = next;
            }
            return true;
        }
        return true;
    }

    /// Moves \a end before the size that ends there, "70.6 GByte", if \a label stands before it.
    bool cutSize(std::string_view label, int &end, Span &span) const
    {
        const std::size_t found = view(m_begin, end).rfind(label);
        if (found == std::string_view::npos)
            return false;
        const int valueBegin = m_begin + int(found + label.size());
        const std::string_view size = view(valueBegin, end);
        if (size.empty() || size.front() < '0' || size.front() > '9' || size.size() > 32
            || size.substr(size.size() >= 4 ? size.size() - 4 : 0) != "Byte")
            return false;
        span = {valueBegin, end};
        end = m_begin + int(found);
        return true;
    }

    bool matchSizes()
    {
        m_spans[Free] = {};
        m_spans[Total] = {};
        int end = m_end;
        if (m_altered)
            end = beforeBlanks(m_begin, end);
        else if (end > m_begin && m_text[end - 1] == ' ')
            --end;
        else
            return true;
        Span total;
        Span available;
        if (!cutSize(" Total: ", end, total) || !cutSize("Free: ", end, available))
            return true;
        m_spans[Free] = available;
        m_spans[Total] = total;
        if (m_altered && m_end == total.end)
            m_altered->trailing = true;
        m_end = end;
        return true;
    }

    bool matchVolume()
    {
        m_spans[FileSystem] = {};
        m_spans[Label] = {};
        if (m_begin == m_end)
            return true;
        if (m_altered)
            return matchAlteredVolume();
        const std::string_view volume = view(m_begin, m_end);
        const std::size_t gap = volume.find("  ");
        if (gap == std::string_view::npos || volume.size() < gap + 4 || volume.substr(volume.size() - 2) != "  ")
            return false;
        m_spans[FileSystem] = {m_begin, m_begin + int(gap)};
        m_spans[Label] = {m_begin + int(gap) + 2, m_end - 2};
        return true;
    }

    bool matchAlteredVolume()
    {
        const int end = beforeBlanks(m_begin, m_end);
        if (end == m_begin)
            return true;
        const int gap = int(std::min(view(0, end).find(' ', std::size_t(m_begin)), std::size_t(end)));
        const int label = std::min(afterBlanks(gap), end);
        m_spans[FileSystem] = {m_begin, gap};
        m_spans[Label] = {label, end};
        m_altered->collapsed |= label - gap != 2 || m_end - end != 2;
        return true;
    }

    const char *m_text;
    int m_begin;
    int m_end;
    Span *m_spans;
    Alterations *m_altered;
};

} // namespace

bool matchDrive(const char *text, int begin, int end, Span *spans, Alterations *altered)
{
    return DriveLine(text, begin, end, spans, altered).match();
}

} // namespace Reports
} // namespace velkor
