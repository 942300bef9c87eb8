// The context menu of a table.
#pragma once

#include <QtCore/QObject>
#include <functional>

class QMenu;
class QPoint;
class QTableView;

/// Opens at the mouse, and at the current row after the Menu key or Shift+F10.
class TableMenu : public QObject
{
    Q_OBJECT

public:
    using Fill = std::function<void(QMenu &menu)>;

    /// Belongs to \a table. \a fill adds the commands each time that the menu opens.
    TableMenu(QTableView *table, Fill fill);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void open(const QPoint &global);
    QPoint placeOfCurrentRow() const;

    QTableView *m_table;
    Fill m_fill;
};
