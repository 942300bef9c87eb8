#include "line_keys.h"

using namespace velkor::Reports;

namespace {

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t';
}

int withoutBlanksAtEnd(const QByteArray &text, int begin, int end)
{
    while (end > begin && isBlank(text.at(end - 1)))
        --end;
    return end;
}

/// The length of the part of \a prefix that the line begins with: mail programs remove the blank of a quote if nothing
/// follows it.
int prefixLength(const QByteArray &text, const AlignedLine &line, const QByteArray &prefix)
{
    int length = 0;
    while (length < prefix.size() && line.begin + length < line.end && text.at(line.begin + length) == prefix.at(length))
        ++length;
    const bool isWhole = length == prefix.size() || line.begin + length == line.end;
    return isWhole ? length : 0;
}

/// One space for each run of blanks, none at the beginning.
QByteArray simplified(QByteArray text)
{
    return text.replace("\xc2\xa0", " ").simplified();
}

} // namespace

LineKeys::LineKeys(States states)
    : m_ignoresBlanks(states & (State::BlanksCollapsed | State::NoBreakSpaces | State::LeadingBlanksStripped))
{
}

int LineKeys::text(const Document &document, const AlignedLine &line)
{
    return key(content(document, line));
}

int LineKeys::label(const Document &document, const AlignedLine &line)
{
    const QByteArray text = content(document, line);
    int begin = 0;
    while (begin < text.size() && isBlank(text.at(begin)))
        ++begin;
    for (int i = begin + 1; i < text.size(); ++i) {
        const bool isGap = text.at(i) == ' ' && text.at(i - 1) == ' ';
        if (text.at(i) == ':' || text.at(i) == '=' || isGap)
            return key(text.mid(begin, i - begin).trimmed());
    }
    return -1;
}

QByteArray LineKeys::content(const Document &document, const AlignedLine &line) const
{
    const QByteArray &text = document.text();
    const int begin = line.begin + prefixLength(text, line, document.linePrefix());
    const int end = withoutBlanksAtEnd(text, begin, line.end);
    const QByteArray content = QByteArray::fromRawData(text.constData() + begin, end - begin);
    return m_ignoresBlanks ? simplified(content) : content;
}

int LineKeys::key(const QByteArray &text)
{
    const auto found = m_keys.constFind(text);
    if (found != m_keys.constEnd())
        return *found;
    const int next = m_keys.size();
    m_keys.insert(text, next);
    return next;
}
