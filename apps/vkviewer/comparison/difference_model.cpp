#include "difference_model.h"

#include "cell_text.h"
#include "difference_words.h"

#include <algorithm>

using namespace velkor::Reports;

namespace {

constexpr int mostShown = 30; ///< entries of a list or facts of an item
constexpr int mostCopied = 10000;

} // namespace

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

QString DifferenceModel::text(int row, int column, int mostEntries) const
{
    const Change &change = this->change(row);
    switch (column) {
    case Kind:
        return DifferenceWords::kind(change, isOtherOrder(row));
    case SectionTitle:
        return DifferenceWords::section(change.section);
    case Subject:
        return DifferenceWords::subject(change.items, change.row);
    case Older:
        return DifferenceWords::olderValue(change, mostEntries);
    default:
        return DifferenceWords::newerValue(change, mostEntries);
    }
}

QString DifferenceModel::copied(int row, int column) const
{
    return column == Kind ? DifferenceWords::word(change(row), isOtherOrder(row)) : copiedText(text(row, column, mostCopied));
}

QVariant DifferenceModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return cellText(text(index.row(), index.column(), mostShown));
    case Qt::ToolTipRole:
        return cellToolTip(text(index.row(), index.column(), mostShown));
    case CopyRole:
        return copied(index.row(), index.column());
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
