// Ctrl+C in tables.
#pragma once

#include <QtCore/QObject>
#include <QtWidgets/QTableView>
#include <functional>

/// Copies the selected rows of a table when the user presses the keys for it, or chooses it from the context menu. Handles
/// the keys before shortcuts of the window do.
class RowCopier : public QObject
{
    Q_OBJECT

public:
    /// Returns what to copy of the selected rows, which ascend.
    using Text = std::function<QString(const std::vector<int> &rows)>;

    /// \a view owns it.
    RowCopier(QTableView *view, Text text);

public Q_SLOTS:
    void copy();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QTableView *m_view;
    Text m_text;
};

/// Lines with tabs between the cells of CopyRole, of \a first and then of \a second, which has the same rows and can be null.
/// Hidden columns are left out.
QString rowsAsText(const QTableView *first, const QTableView *second, const std::vector<int> &rows);
