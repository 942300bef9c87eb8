#include "table_menu.h"

#include "text/context_menu_key.h"

#include <QtGui/QContextMenuEvent>
#include <QtWidgets/QMenu>
#include <QtWidgets/QTableView>

TableMenu::TableMenu(QTableView *table, Fill fill)
    : QObject(table), m_table(table), m_fill(std::move(fill))
{
    // The mouse sends its event to the viewport, a key to the table.
    m_table->viewport()->installEventFilter(this);
    m_table->installEventFilter(this);
}

bool TableMenu::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ContextMenu) {
        const auto *request = static_cast<QContextMenuEvent *>(event);
        open(request->reason() == QContextMenuEvent::Mouse ? request->globalPos() : placeOfCurrentRow());
        return true;
    }
    if (event->type() == QEvent::KeyPress && watched == m_table && isContextMenuKey(*static_cast<QKeyEvent *>(event))) {
        open(placeOfCurrentRow());
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void TableMenu::open(const QPoint &global)
{
    QMenu menu(m_table);
    m_fill(menu);
    menu.exec(global);
}

QPoint TableMenu::placeOfCurrentRow() const
{
    const QModelIndex current = m_table->currentIndex();
    QPoint place;
    if (current.isValid()) {
        m_table->scrollTo(current);
        const QRect cell = m_table->visualRect(current);
        place = QPoint(qMax(cell.left(), 0), cell.bottom());
    }
    return m_table->viewport()->mapToGlobal(place);
}
