#include "row_copier.h"

#include "cell_text.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QAction>
#include <algorithm>

RowCopier::RowCopier(QTableView *view, Text text) : QObject(view), m_view(view), m_text(std::move(text))
{
    view->installEventFilter(this);
    auto *action = new QAction(tr("&Copy rows"), view);
    connect(action, &QAction::triggered, this, &RowCopier::copy);
    view->addAction(action);
    view->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void RowCopier::copy()
{
    std::vector<int> rows;
    const QItemSelection selection = m_view->selectionModel()->selection();
    for (const QItemSelectionRange &range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    if (!rows.empty())
        QGuiApplication::clipboard()->setText(m_text(rows));
}

bool RowCopier::eventFilter(QObject *watched, QEvent *event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (!isKey || !static_cast<QKeyEvent *>(event)->matches(QKeySequence::Copy))
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress)
        copy();
    event->accept();
    return true;
}

namespace {

void addCells(QStringList &cells, const QTableView *view, int row)
{
    const QAbstractItemModel *model = view->model();
    for (int column = 0; column < model->columnCount(); ++column) {
        if (!view->isColumnHidden(column))
            cells += model->index(row, column).data(CopyRole).toString();
    }
}

} // namespace

QString rowsAsText(const QTableView *first, const QTableView *second, const std::vector<int> &rows)
{
    QString text;
    for (const int row : rows) {
        QStringList cells;
        addCells(cells, first, row);
        if (second)
            addCells(cells, second, row);
        text += cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    return text;
}
