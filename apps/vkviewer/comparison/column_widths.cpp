#include "column_widths.h"

#include <QtCore/QEvent>
#include <QtWidgets/QHeaderView>
#include <algorithm>

ColumnWidths::ColumnWidths(QTableView *view, std::vector<int> shares, int least)
    : QObject(view), m_view(view), m_shares(std::move(shares)), m_least(least)
{
    view->viewport()->installEventFilter(this);
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

void ColumnWidths::divide()
{
    const int columns = m_view->model() ? m_view->model()->columnCount() : 0;
    int shares = 0;
    for (int column = 0; column < columns; ++column)
        shares += m_view->isColumnHidden(column) ? 0 : share(column);
    if (m_isOfUser || shares == 0)
        return;
    m_isDividing = true;
    const int width = m_view->viewport()->width();
    const int least = m_view->fontMetrics().averageCharWidth() * m_least;
    for (int column = 0; column < columns; ++column) {
        if (!m_view->isColumnHidden(column))
            m_view->setColumnWidth(column, std::max(least, width * share(column) / shares));
    }
    m_isDividing = false;
}

bool ColumnWidths::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        divide();
    return QObject::eventFilter(watched, event);
}
