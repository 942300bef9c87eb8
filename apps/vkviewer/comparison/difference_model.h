// The differences of two reports.
#pragma once

#include "compared_reports.h"

#include <QtCore/QAbstractTableModel>

/// A row for each change of a section, or of all, in the order of the report.
class DifferenceModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column {
        Kind,
        SectionTitle,
        Subject,
        Older,
        Newer,
        ColumnCount,
    };

    explicit DifferenceModel(QObject *parent = nullptr);

    void setReports(std::shared_ptr<const ComparedReports> reports);
    /// The indexes in Comparison::changes to show, ascending.
    void setShown(std::vector<int> changes);

    const velkor::Reports::Change &change(int row) const;
    /// The index in Comparison::changes of a row.
    int changeIndex(int row) const { return m_shown[std::size_t(row)]; }
    /// The row of a change; -1 if it is not shown.
    int rowOf(int change) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    QString text(int row, int column, int mostEntries) const;
    QString copied(int row, int column) const;
    bool isOtherOrder(int row) const { return m_reports->otherOrder[std::size_t(changeIndex(row))]; }

    std::shared_ptr<const ComparedReports> m_reports;
    std::vector<int> m_shown;
};
