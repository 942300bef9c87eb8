// Where the caret goes.
#pragma once

#include "row_layouts.h"

/// Places of the caret in a text. All functions take and return offsets; at the ends of the text they return the end.
class TextMovement
{
public:
    /// \a layouts must exist as long as the movement.
    explicit TextMovement(const RowLayouts &layouts)
        : m_layouts(layouts)
    {
    }

    int nextCharacter(int offset) const;
    int previousCharacter(int offset) const;
    int nextWord(int offset) const;
    int previousWord(int offset) const;
    int rowBegin(int offset) const;
    int rowEnd(int offset) const;
    int textBegin(int offset) const;
    int textEnd(int offset) const;
    /// The place nearest to \a x in the row that is so many \a rows further. At the ends of the text the first or
    /// last row.
    int vertically(int offset, int rows, qreal x) const;

    TextRange wordAt(int offset) const;
    /// With its line end.
    TextRange lineAt(int offset) const;

private:
    const TextRows &rows() const { return m_layouts.rows(); }
    int next(int offset, QTextLayout::CursorMode mode) const;
    int previous(int offset, QTextLayout::CursorMode mode) const;

    const RowLayouts &m_layouts;
};
