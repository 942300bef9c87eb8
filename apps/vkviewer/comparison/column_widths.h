// Columns that share the width of a table.
#pragma once

#include <QtWidgets/QTableView>
#include <vector>

/// Gives the columns that are not hidden the width of what they show. If there is not enough for all, the widest ones share
/// what the others leave; if there is more, the last one has it. Ends when the user changes the width of one.
class ColumnWidths : public QObject
{
    Q_OBJECT

public:
    /// \a view owns it, and has its model. \a shares has the share of each column; a column without one gets that of the last.
    /// No column is narrower than what it shows or \a least characters.
    ColumnWidths(QTableView *view, std::vector<int> shares, int least);

public Q_SLOTS:
    void divide();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Column
    {
        int index;
        int content; ///< pixels
        int width;
    };

    int share(int column) const;
    int contentWidth(int column);
    std::vector<Column> shownColumns();
    void fit(std::vector<Column> &columns) const;

    QTableView *m_view;
    std::vector<int> m_shares;
    int m_least;
    std::vector<int> m_contents; ///< widths of what the columns show; -1 for one that is not measured
    bool m_isDividing = false;
    bool m_isOfUser = false;
};
