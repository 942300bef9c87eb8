#include "difference_model.h"

#include "cell_text.h"
#include "difference_words.h"

#include <algorithm>

using namespace velkor::Reports;

DifferenceModel::DifferenceModel(QObject *parent) : QAbstractTableModel(parent) { }

void DifferenceModel::setReports(std::shared_ptr<const ComparedReports> reports)
{
    beginResetModel();
    m_reports = std::move(reports);
    m_shown.clear();
    endResetModel();
}

void DifferenceModel::setShown(std::vector<int> changes)
{
    beginResetModel();
    m_shown = std::move(changes);
    endResetModel();
}

const Change &DifferenceModel::change(int row) const
{
    return m_reports->comparison.changes[std::size_t(changeIndex(row))];
}

int DifferenceModel::rowOf(int change) const
{
    const auto found = std::lower_bound(m_shown.begin(), m_shown.end(), change);
    return found == m_shown.end() || *found != change ? -1 : int(found - m_shown.begin());
}

int DifferenceModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_shown.size());
}

int DifferenceModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QString DifferenceModel::text(const Change &change, int column) const
{
    switch (column) {
    case Kind:
        return DifferenceWords::kind(change);
    case SectionTitle:
        return DifferenceWords::section(change.section);
    case Subject:
        return DifferenceWords::subject(change.items, change.row);
    case Older:
        return DifferenceWords::olderValue(change);
    default:
        return DifferenceWords::newerValue(change);
    }
}

QVariant DifferenceModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const QString value = role == Qt::DisplayRole || role == Qt::ToolTipRole || role == CopyRole ? text(change(index.row()), index.column()) : QString();
    switch (role) {
    case Qt::DisplayRole:
        return cellText(value);
    case Qt::ToolTipRole:
        return cellToolTip(value);
    case CopyRole:
        return index.column() == Kind ? DifferenceWords::word(change(index.row())) : copiedText(value);
    default:
        return {};
    }
}

QVariant DifferenceModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Kind:
        return tr("Change");
    case SectionTitle:
        return tr("Section");
    case Subject:
        return tr("What");
    case Older:
        return tr("Older value");
    default:
        return tr("Newer value");
    }
}
