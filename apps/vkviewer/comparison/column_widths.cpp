#include "column_widths.h"

#include <QtCore/QEvent>
#include <QtWidgets/QHeaderView>
#include <algorithm>

namespace {

constexpr int mostMeasured = 100; ///< rows beside those that are visible

} // namespace

ColumnWidths::ColumnWidths(QTableView *view, std::vector<int> shares, int least)
    : QObject(view), m_view(view), m_shares(std::move(shares)), m_least(least)
{
    view->horizontalHeader()->setResizeContentsPrecision(mostMeasured);
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
    connect(view->model(), &QAbstractItemModel::modelReset, this, [this] { m_contents.clear(); });
    connect(view->horizontalHeader(), &QHeaderView::sectionResized, this, [this](int, int oldSize, int newSize) {
        const bool isShownOrHidden = oldSize == 0 || newSize == 0;
        if (!m_isDividing && !isShownOrHidden)
            m_isOfUser = true;
    });
}

int ColumnWidths::share(int column) const
{
    return m_shares[std::min(std::size_t(column), m_shares.size() - 1)];
}

int ColumnWidths::contentWidth(int column)
{
    m_contents.resize(std::max(m_contents.size(), std::size_t(column) + 1), -1);
    int &width = m_contents[std::size_t(column)];
    if (width < 0) {
        const QAbstractItemView *view = m_view; // QTableView hides the function
        width = std::max(view->sizeHintForColumn(column), m_view->horizontalHeader()->sectionSizeHint(column)) + m_view->fontMetrics().averageCharWidth();
    }
    return width;
}

std::vector<ColumnWidths::Column> ColumnWidths::shownColumns()
{
    std::vector<Column> columns;
    for (int column = 0; column < m_view->model()->columnCount(); ++column) {
        if (!m_view->isColumnHidden(column))
            columns.push_back({column, contentWidth(column), 0});
    }
    return columns;
}

void ColumnWidths::fit(std::vector<Column> &columns) const
{
    int left = m_view->viewport()->width();
    int shares = 0;
    for (const Column &column : columns)
        shares += share(column.index);
    for (bool isChanged = true; isChanged;) { // each turn some columns get what they need
        isChanged = false;
        for (Column &column : columns) {
            if (column.width > 0 || column.content > left * share(column.index) / shares)
                continue;
            column.width = column.content;
            left -= column.width;
            shares -= share(column.index);
            isChanged = shares > 0;
        }
    }
    const int least = m_view->fontMetrics().averageCharWidth() * m_least;
    for (Column &column : columns) {
        if (column.width == 0)
            column.width = std::max(left * share(column.index) / shares, std::min(least, column.content));
    }
    if (shares == 0)
        columns.back().width += left;
}

void ColumnWidths::divide()
{
    if (m_isOfUser)
        return;
    std::vector<Column> columns = shownColumns();
    if (columns.empty())
        return;
    fit(columns);
    m_isDividing = true;
    for (const Column &column : columns)
        m_view->setColumnWidth(column.index, column.width);
    m_isDividing = false;
}

bool ColumnWidths::eventFilter(QObject *watched, QEvent *event)
{
    // The view gets the event after the viewport and the header.
    const bool isOtherFont = watched == m_view && (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange);
    if (isOtherFont)
        m_contents.clear();
    if (isOtherFont || event->type() == QEvent::Resize)
        divide();
    return QObject::eventFilter(watched, event);
}
