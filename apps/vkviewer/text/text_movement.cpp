#include "text_movement.h"

#include <algorithm>

int TextMovement::next(int offset, QTextLayout::CursorMode mode) const
{
    const int row = rows().rowAt(offset);
    const TextRange range = rows().row(row);
    if (offset < range.end)
        return m_layouts.layout(row)->nextPlace(offset, mode);
    return row + 1 < rows().count() ? rows().row(row + 1).begin : offset;
}

int TextMovement::previous(int offset, QTextLayout::CursorMode mode) const
{
    const int row = rows().rowAt(offset);
    const TextRange range = rows().row(row);
    if (offset > range.begin)
        return m_layouts.layout(row)->previousPlace(offset, mode);
    if (row == 0)
        return offset;
    const int end = rows().row(row - 1).end;
    // Between two rows of one line there is one place, not two.
    return end < offset ? end : m_layouts.layout(row - 1)->previousPlace(offset, mode);
}

int TextMovement::nextCharacter(int offset) const
{
    return next(offset, QTextLayout::SkipCharacters);
}

int TextMovement::previousCharacter(int offset) const
{
    return previous(offset, QTextLayout::SkipCharacters);
}

int TextMovement::nextWord(int offset) const
{
    return next(offset, QTextLayout::SkipWords);
}

int TextMovement::previousWord(int offset) const
{
    return previous(offset, QTextLayout::SkipWords);
}

int TextMovement::rowBegin(int offset) const
{
    return rows().row(rows().rowAt(offset)).begin;
}

int TextMovement::rowEnd(int offset) const
{
    const int row = rows().rowAt(offset);
    const int end = rows().row(row).end;
    // The end of a row that goes on is the begin of the next one.
    return rows().continues(row) ? m_layouts.layout(row)->previousPlace(end) : end;
}

int TextMovement::textBegin(int) const
{
    return 0;
}

int TextMovement::textEnd(int) const
{
    return rows().lines().text().size();
}

int TextMovement::vertically(int offset, int distance, qreal x) const
{
    const int row = int(qBound(qint64(0), qint64(rows().rowAt(offset)) + distance, qint64(rows().count()) - 1));
    const int found = m_layouts.layout(row)->offsetAt(x);
    return std::min(found, rowEnd(rows().row(row).begin));
}

TextRange TextMovement::wordAt(int offset) const
{
    return m_layouts.layoutOf(offset)->wordAt(offset);
}

TextRange TextMovement::lineAt(int offset) const
{
    const TextLines &lines = rows().lines();
    const int line = lines.lineAt(offset);
    const int end = line + 1 < lines.count() ? lines.line(line + 1).begin : lines.text().size();
    return {lines.line(line).begin, end};
}
