// The facts of a section or an item as a table.
#pragma once

#include "vkReports.h"

#include <QtCore/QAbstractTableModel>

/// Sorts and filters itself: a proxy would ask for every value again and again.
class FactModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column {
        Name,
        Value,
        Unit,
        Item,
        ColumnCount,
    };
    /// The whole value for the clipboard.
    static constexpr int copyRole = Qt::UserRole;

    explicit FactModel(QObject *parent = nullptr);

    void setDocument(const velkor::Reports::Document &document);
    /// Shows the facts with these indexes in Document::facts(), up to but not including \a last.
    void setScope(int first, int last);
    int firstOfScope() const { return m_first; }
    int lastOfScope() const { return m_last; }
    /// Only facts with \a text in one of their columns are shown; case does not matter.
    void setFilter(const QString &text);

    /// Index in Document::facts().
    int fact(int row) const { return m_shown[std::size_t(row)]; }
    /// The row of a fact; -1 if it is not shown.
    int rowOf(int fact) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    /// Values by number where the type is a number, before all texts. Column -1 is the order of the report.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

private:
    QString text(int fact, int column) const;
    bool isFound(int fact) const;
    void update();
    void sortShown();

    velkor::Reports::Document m_document;
    int m_first = 0;
    int m_last = 0;
    QString m_filter;
    int m_sortColumn = -1;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
    std::vector<int> m_shown;
};
