#include "comparison_table_model.h"

#include "cell_text.h"
#include "difference_words.h"

#include <QtGui/QFont>
#include <algorithm>

using namespace velkor::Reports;

ComparisonTableModel::ComparisonTableModel(QObject *parent) : QAbstractTableModel(parent) { }

void ComparisonTableModel::setTable(std::shared_ptr<const ComparisonTable> table, const QStringList &names, const QStringList &toolTips)
{
    beginResetModel();
    m_table = std::move(table);
    m_names = names;
    m_toolTips = toolTips;
    updateRows();
    endResetModel();
}

void ComparisonTableModel::setFilter(const QString &filter)
{
    beginResetModel();
    m_filter = filter.trimmed();
    updateRows();
    endResetModel();
}

void ComparisonTableModel::setShowsEveryMoment(bool shows)
{
    beginResetModel();
    m_showsEveryMoment = shows;
    updateRows();
    endResetModel();
}

void ComparisonTableModel::updateRows()
{
    m_rows.clear();
    for (std::size_t i = 0; m_table && i < m_table->rows.size(); ++i) {
        const ComparisonRow &row = m_table->rows[i];
        if ((m_showsEveryMoment || !row.everyMoment) && matches(row))
            m_rows.push_back(int(i));
    }
}

bool ComparisonTableModel::matches(const ComparisonRow &row) const
{
    if (m_filter.isEmpty())
        return true;
    const auto isFound = [this](const QString &text) { return text.contains(m_filter, Qt::CaseInsensitive); };
    const bool isInValue = row.row >= 0
        && std::any_of(row.values.begin(), row.values.end(), [&](const auto &value) { return value && isFound(*value); });
    return isInValue || isFound(text(row, Subject)) || isFound(text(row, SectionTitle));
}

QString ComparisonTableModel::text(const ComparisonRow &row, int column) const
{
    if (column == SectionTitle)
        return DifferenceWords::section(row.section);
    if (column == Subject)
        return DifferenceWords::subject(row.items, row.row);
    const std::optional<QString> &value = row.values[std::size_t(column - FirstReport)];
    if (!value)
        return tr("(not there)");
    if (row.row < 0)
        return tr("there");
    return value->isEmpty() ? tr("(empty)") : *value;
}

bool ComparisonTableModel::differs(const ComparisonRow &row, int column)
{
    return column > FirstReport && row.values[std::size_t(column - FirstReport)] != row.values.front();
}

int ComparisonTableModel::rowOf(const ComparisonRow &row) const
{
    for (int i = 0; i < rowCount(); ++i) {
        const ComparisonRow &found = this->row(i);
        if (found.section == row.section && found.items == row.items && found.row == row.row)
            return i;
    }
    return -1;
}

int ComparisonTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int ComparisonTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : FirstReport + m_names.size();
}

QVariant ComparisonTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const ComparisonRow &row = this->row(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return (differs(row, index.column()) ? QStringLiteral("\u2260 ") : QString()) + cellText(text(row, index.column()));
    case Qt::AccessibleTextRole:
        return differs(row, index.column()) ? tr("other than the first: %1").arg(cellText(text(row, index.column()))) : QVariant();
    case Qt::ToolTipRole:
        return cellToolTip(text(row, index.column()));
    case CopyRole:
        return copiedText(text(row, index.column()));
    case DiffersRole:
        return differs(row, index.column());
    default:
        return {};
    }
}

QVariant ComparisonTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    if (role == Qt::ToolTipRole)
        return section < FirstReport ? QVariant() : QVariant(cellToolTip(m_toolTips.value(section - FirstReport)));
    if (section == SectionTitle)
        return tr("Section");
    return section == Subject ? tr("What") : m_names.value(section - FirstReport);
}
