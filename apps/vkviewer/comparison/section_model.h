// The sections that differ.
#pragma once

#include <QtCore/QAbstractTableModel>
#include <vector>

/// The first row stands for all sections, each other row for a section with its number of differences.
class SectionModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column {
        Title,
        Count,
        ColumnCount,
    };

    struct Row
    {
        QString section; ///< name of the section; empty for all
        int differences = 0;
    };

    explicit SectionModel(QObject *parent = nullptr);

    /// \a rows are those of sections.
    void setSections(const std::vector<Row> &rows);
    /// The name of the section of a row; empty for all sections.
    QString section(int row) const;
    /// The row of a section; 0 if it is not there.
    int rowOf(const QString &section) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    std::vector<Row> m_rows;
};
