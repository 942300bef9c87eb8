// Layouts of the rows that were shown last.
#pragma once

#include "row_layout.h"
#include "text_rows.h"

#include <QtCore/QCache>
#include <QtGui/QFont>
#include <memory>

/// Makes layouts when they are needed and keeps as many as a few screens have.
class RowLayouts
{
public:
    RowLayouts();

    void setRows(const TextRows &rows);
    void setFont(const QFont &font);
    const TextRows &rows() const { return m_rows; }

    std::shared_ptr<const RowLayout> layout(int row) const;
    std::shared_ptr<const RowLayout> layoutOf(int offset) const { return layout(m_rows.rowAt(offset)); }

private:
    TextRows m_rows;
    QFont m_font;
    mutable QCache<int, std::shared_ptr<const RowLayout>> m_layouts;
};
