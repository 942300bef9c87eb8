// The rows in which a text is shown.
#pragma once

#include "text_lines.h"

#include <vector>

/// A line is one row. A line of more than longestRow bytes is several, so that the time and the memory that a row needs
/// are bounded. Rows of one line do not overlap and have no space between them; characters and the accents on them
/// stay together.
class TextRows
{
public:
    /// Bytes. The longest value of a common report, the search path of Windows, is about as long.
    static constexpr int longestRow = 2048;

    explicit TextRows(const TextLines &lines = TextLines());

    const TextLines &lines() const { return m_lines; }
    int count() const { return m_count; }
    /// Without its line end.
    TextRange row(int index) const;
    int rowAt(int offset) const;
    /// Whether the line goes on in the next row.
    bool continues(int index) const;
    /// The width of the widest row in a font of equally wide characters; an estimate, as only the font knows it.
    int widestColumns() const { return m_widestColumns; }

private:
    /// A line of several rows.
    struct LongLine
    {
        int line;
        int firstRow;
    };
    struct Place
    {
        int line;
        int rowInLine;
    };

    Place placeOf(int row) const;
    int firstRowOf(int line) const;
    int breakIn(TextRange line, int rowInLine) const;

    TextLines m_lines;
    std::vector<LongLine> m_longLines; // sorted
    int m_count = 0;
    int m_widestColumns = 0;
};
