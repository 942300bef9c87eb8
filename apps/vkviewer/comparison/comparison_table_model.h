// What is not the same in several reports.
#pragma once

#include "vkReports.h"

#include <QtCore/QAbstractTableModel>

/// A row for each difference; a column for the section and one for the fact, and then one for each report.
class ComparisonTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column {
        SectionTitle,
        Subject,
        FirstReport,
    };
    enum Role {
        DiffersRole = Qt::UserRole + 100, ///< true if the value is not that of the first report
    };

    explicit ComparisonTableModel(QObject *parent = nullptr);

    /// A name and a tooltip, which is plain text, for each report. Nothing for a null pointer.
    void setTable(std::shared_ptr<const velkor::Reports::ComparisonTable> table, const QStringList &names, const QStringList &toolTips);
    /// The rows with this text in one of their cells, in upper or lower case; all rows for an empty one.
    void setFilter(const QString &filter);
    void setShowsEveryMoment(bool shows);

    const velkor::Reports::ComparisonRow &row(int row) const { return m_table->rows[std::size_t(m_rows[std::size_t(row)])]; }
    /// The row about the same fact or item; -1 if there is none.
    int rowOf(const velkor::Reports::ComparisonRow &row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    void updateRows();
    bool matches(const velkor::Reports::ComparisonRow &row) const;
    QString text(const velkor::Reports::ComparisonRow &row, int column) const;
    static bool differs(const velkor::Reports::ComparisonRow &row, int column);

    std::shared_ptr<const velkor::Reports::ComparisonTable> m_table;
    QStringList m_names;
    QStringList m_toolTips;
    QString m_filter;
    std::vector<int> m_rows; ///< indexes in ComparisonTable::rows
    bool m_showsEveryMoment = false;
};
