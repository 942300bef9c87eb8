// What was replaced in a report, one row for each thing.
#pragma once

#include "redacted_report.h"

#include <QtCore/QAbstractTableModel>

class AliasModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column {
        AliasColumn,
        KindColumn,
        PlacesColumn,
        ReasonColumn,
        OriginalColumn,
        ColumnCount,
    };

    enum Role {
        SortRole = Qt::UserRole, ///< what the rows are sorted by
        AliasRole,               ///< index in Redaction::aliases, -1 for the lengths of values of variables
    };

    using QAbstractTableModel::QAbstractTableModel;

    void setReport(const RedactedReport &report);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row
    {
        int alias;
        QString name;
        QString kind;
        int places;
        QString reason;
    };

    QString textOf(const Row &row, int column) const;

    RedactedReport m_report;
    std::vector<Row> m_rows;
};
