// The summary of a report as a table.
#pragma once

#include "vkReports.h"

#include <QtCore/QAbstractTableModel>

class SummaryModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit SummaryModel(QObject *parent = nullptr);

    void setLines(const std::vector<velkor::Reports::SummaryLine> &lines);
    const velkor::Reports::SummaryLine &line(int row) const { return m_lines[std::size_t(row)]; }
    /// "Memory: 16 GByte" for each row, with line feeds.
    QString text(const std::vector<int> &rows) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    std::vector<velkor::Reports::SummaryLine> m_lines;
};
