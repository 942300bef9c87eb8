// Columns that share the width of a table.
#pragma once

#include <QtWidgets/QTableView>
#include <vector>

/// Divides the width among the columns that are not hidden, until the user changes the width of one.
class ColumnWidths : public QObject
{
    Q_OBJECT

public:
    /// \a view owns it. \a shares has the share of each column; a column without one gets that of the last. No column is
    /// narrower than \a least characters.
    ColumnWidths(QTableView *view, std::vector<int> shares, int least);

public Q_SLOTS:
    void divide();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    int share(int column) const;

    QTableView *m_view;
    std::vector<int> m_shares;
    int m_least;
    bool m_isDividing = false;
    bool m_isOfUser = false;
};
