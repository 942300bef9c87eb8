#include "transport.h"

#include "headings.h"

#include <QtCore/QByteArrayMatcher>
#include <algorithm>
#include <cstring>

namespace velkor {
namespace Reports {

namespace {

constexpr int longestPrefix = 40;
constexpr int examinedMarks = 256;    // lines of the structure that are looked at
constexpr int examinedLines = 400;    // lines that are looked at if there are no such lines
constexpr int doubleSpacedLines = 20; // a report begins with more lines than that before an empty one
constexpr int shortestWrap = 65;
constexpr int longestWrap = 100;

bool isQuoteCharacter(char character)
{
    return character == '>' || character == ' ' || character == '|';
}

/// Evidence from the lines of the structure.
struct Evidence
{
    int lines = 0;
    int withCarriageReturn = 0;
    QByteArray prefix;
};

/// The quote before \a at in its line, if nothing else stands there.
QByteArray quoteBefore(const QByteArray &text, int at)
{
    int begin = at;
    while (begin > 0 && at - begin <= longestPrefix && isQuoteCharacter(text[begin - 1]))
        --begin;
    if (begin > 0 && text[begin - 1] != '\n' && text[begin - 1] != '\r')
        return {};
    const QByteArray quote = text.mid(begin, at - begin);
    return quote.startsWith('>') ? quote : QByteArray();
}

void collect(const QByteArray &text, const QByteArray &mark, Evidence &evidence)
{
    const QByteArrayMatcher matcher(mark);
    int at = matcher.indexIn(text);
    for (int i = 0; i < examinedMarks && at >= 0; ++i) {
        ++evidence.lines;
        int end = at + mark.size();
        while (end < text.size() && text[end] == ' ')
            ++end;
        evidence.withCarriageReturn += end < text.size() && text[end] == '\r' ? 1 : 0;
        if (evidence.prefix.isEmpty())
            evidence.prefix = quoteBefore(text, at);
        at = matcher.indexIn(text, at + mark.size());
    }
}

/// If the text has no separator and no heading of a half: the quote before a heading of a section.
QByteArray quoteOfHeadings(const QByteArray &text)
{
    int begin = 0;
    for (int i = 0; i < examinedLines && begin < text.size(); ++i) {
        int end = text.indexOf('\n', begin);
        if (end < 0)
            end = text.size();
        int at = begin;
        while (at < end && at - begin <= longestPrefix && isQuoteCharacter(text[at]))
            ++at;
        const int length = end > at && text[end - 1] == '\r' ? end - 1 : end;
        Alterations ignored;
        if (at > begin && text[begin] == '>' && headingAt(text.constData(), at, length, &ignored) != noSection)
            return text.mid(begin, at - begin);
        begin = end + 1;
    }
    return {};
}

/// True if a space stands between other characters.
bool hasInnerSpace(const char *begin, const char *end)
{
    while (begin < end && isQuoteCharacter(*begin))
        ++begin;
    while (end > begin && (end[-1] == ' ' || end[-1] == '\r'))
        --end;
    return std::memchr(begin, ' ', std::size_t(end - begin)) != nullptr;
}

/// The longest line, with its quote, that has a space in it, if all lines are short enough to have been broken there.
int wrapColumn(const QByteArray &text, const QByteArray &lineEnd)
{
    int longest = 0;
    const char last = lineEnd[lineEnd.size() - 1];
    for (int begin = 0; begin < text.size();) {
        int end = text.indexOf(last, begin);
        if (end < 0)
            end = text.size();
        if (end - begin > longest) {
            const int length = lengthOf(text.constData() + begin, text.constData() + end);
            const bool canBreak = length > longest && hasInnerSpace(text.constData() + begin, text.constData() + end);
            if (canBreak && length > longestWrap)
                return 0;
            if (canBreak)
                longest = length;
        }
        begin = end + 1;
    }
    return longest >= shortestWrap ? longest : 0;
}

/// True if each of the first lines is followed by an empty one.
bool isDoubleSpaced(const QByteArray &text, const QByteArray &lineEnd)
{
    const char last = lineEnd[lineEnd.size() - 1];
    int lines = 0;
    int begin = 0;
    for (; lines < doubleSpacedLines; ++lines) {
        const int end = text.indexOf(last, begin);
        const bool empty = end == begin || (end == begin + 1 && text[begin] == '\r');
        if (end < 0 || empty != (lines % 2 == 1))
            return false;
        begin = end + 1;
    }
    return true;
}

} // namespace

int lengthOf(const char *begin, const char *end)
{
    while (end > begin && end[-1] == '\r')
        --end;
    return int(std::count_if(begin, end, [](char character) { return (uchar(character) & 0xc0) != 0x80; }));
}

Transport detectTransport(const QByteArray &text)
{
    Transport transport;
    Evidence evidence;
    collect(text, separatorLine(), evidence);
    collect(text, halfHeading(Half::Windows), evidence);
    collect(text, halfHeading(Half::Qt), evidence);
    transport.linePrefix = evidence.prefix;
    const bool lineFeeds = text.contains('\n');
    if (evidence.lines == 0) {
        transport.linePrefix = quoteOfHeadings(text);
        const int firstLineFeed = text.indexOf('\n');
        evidence.lines = 1;
        evidence.withCarriageReturn = firstLineFeed > 0 && text[firstLineFeed - 1] == '\r' ? 1 : 0;
    }
    if (!lineFeeds && text.contains('\r'))
        transport.lineEnd = QByteArrayLiteral("\r");
    else if (2 * evidence.withCarriageReturn > evidence.lines)
        transport.lineEnd = QByteArrayLiteral("\r\n");
    transport.carriageReturns = transport.lineEnd != "\r" && text.contains("\r\n");
    transport.doubleSpaced = isDoubleSpaced(text, transport.lineEnd);
    transport.wrapColumn = wrapColumn(text, transport.lineEnd);
    return transport;
}

} // namespace Reports
} // namespace velkor
