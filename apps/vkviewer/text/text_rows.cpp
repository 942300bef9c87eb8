#include "text_rows.h"

#include "utf8_character.h"

#include <QtCore/QChar>
#include <algorithm>
#include <cstring>

namespace {

constexpr int tabColumns = 8;

int rowsOf(TextRange line)
{
    return std::max(1, (line.end - line.begin + TextRows::longestRow - 1) / TextRows::longestRow);
}

/// East Asian characters have two columns. Their bytes begin with 0xE1 to 0xF4, as those of some narrow ones do.
int columnsOfByte(uchar byte)
{
    if ((byte & 0xC0) == 0x80)
        return 0;
    return byte >= 0xE1 ? 2 : 1;
}

int columnsOf(const char *text, TextRange range)
{
    int columns = 0;
    for (int i = range.begin; i < range.end; ++i)
        columns += text[i] == '\t' ? tabColumns - columns % tabColumns : columnsOfByte(uchar(text[i]));
    return columns;
}

constexpr uint zeroWidthJoiner = 0x200D;

/// Whether the character at \a offset belongs to the one before it.
bool joinsPrevious(const QByteArray &text, int offset, int previous)
{
    const uint code = characterAt(text, offset).code;
    return QChar::isMark(code) || code == zeroWidthJoiner || characterAt(text, previous).code == zeroWidthJoiner;
}

} // namespace

TextRows::TextRows(const TextLines &lines)
    : m_lines(lines)
{
    for (int line = 0; line < lines.count(); ++line) {
        TextRange range = lines.line(line);
        const int rows = rowsOf(range);
        if (rows > 1) {
            m_longLines.push_back({line, m_count});
            range.end = range.begin + longestRow;
        }
        m_count += rows;
        // A byte has at most one column, but for tabs.
        const char *const begin = lines.text().constData() + range.begin;
        const int bytes = range.end - range.begin;
        if (bytes > m_widestColumns || std::memchr(begin, '\t', std::size_t(bytes)))
            m_widestColumns = std::max(m_widestColumns, columnsOf(lines.text().constData(), range));
    }
}

TextRange TextRows::row(int index) const
{
    const Place place = placeOf(index);
    const TextRange line = m_lines.line(place.line);
    return {breakIn(line, place.rowInLine), breakIn(line, place.rowInLine + 1)};
}

int TextRows::rowAt(int offset) const
{
    const int line = m_lines.lineAt(offset);
    const TextRange range = m_lines.line(line);
    const int last = rowsOf(range) - 1;
    // A break is at or before a multiple of longestRow.
    int rowInLine = std::min(last, (offset - range.begin) / longestRow);
    if (rowInLine < last && breakIn(range, rowInLine + 1) <= offset)
        ++rowInLine;
    return firstRowOf(line) + rowInLine;
}

bool TextRows::continues(int index) const
{
    const Place place = placeOf(index);
    return place.rowInLine + 1 < rowsOf(m_lines.line(place.line));
}

TextRows::Place TextRows::placeOf(int row) const
{
    const auto after = std::upper_bound(m_longLines.begin(), m_longLines.end(), row,
                                        [](int wanted, const LongLine &line) { return wanted < line.firstRow; });
    if (after == m_longLines.begin())
        return {row, 0};
    const LongLine &before = *(after - 1);
    const int rows = rowsOf(m_lines.line(before.line));
    const int distance = row - before.firstRow;
    return distance < rows ? Place {before.line, distance} : Place {before.line + 1 + distance - rows, 0};
}

int TextRows::firstRowOf(int line) const
{
    const auto after = std::upper_bound(m_longLines.begin(), m_longLines.end(), line,
                                        [](int wanted, const LongLine &other) { return wanted < other.line; });
    if (after == m_longLines.begin())
        return line;
    const LongLine &before = *(after - 1);
    if (before.line == line)
        return before.firstRow;
    return before.firstRow + rowsOf(m_lines.line(before.line)) + line - before.line - 1;
}

int TextRows::breakIn(TextRange line, int rowInLine) const
{
    if (rowInLine >= rowsOf(line))
        return line.end;
    if (rowInLine == 0)
        return line.begin;
    const QByteArray &text = m_lines.text();
    const int wanted = beginOfCharacter(text, line.begin + rowInLine * longestRow);
    constexpr int mostJoined = 16; // no word of any language has more accents on a letter
    int begin = wanted;
    for (int i = 0; i < mostJoined; ++i) {
        const int previous = beginOfCharacter(text, begin - 1);
        if (!joinsPrevious(text, begin, previous))
            return begin;
        begin = previous;
    }
    return wanted;
}
