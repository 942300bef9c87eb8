#include "row_layouts.h"

namespace {

/// UTF-16 units. A layout needs some 50 bytes for each, and some 1000 bytes.
constexpr int mostUnits = 160 * 1024;
constexpr int unitsOfEmptyRow = 20;

} // namespace

RowLayouts::RowLayouts()
    : m_layouts(mostUnits)
{
}

void RowLayouts::setRows(const TextRows &rows)
{
    m_layouts.clear();
    m_rows = rows;
}

void RowLayouts::setFont(const QFont &font)
{
    m_layouts.clear();
    m_font = font;
}

std::shared_ptr<const RowLayout> RowLayouts::layout(int row) const
{
    if (const std::shared_ptr<const RowLayout> *known = m_layouts.object(row))
        return *known;
    auto made = std::make_shared<const RowLayout>(m_rows.lines().text(), m_rows.row(row), m_font);
    m_layouts.insert(row, new std::shared_ptr<const RowLayout>(made), made->shownText().size() + unitsOfEmptyRow);
    return made;
}
