#include "section_model.h"

#include "cell_text.h"
#include "comparison_notes.h"
#include "difference_words.h"

#include <algorithm>

SectionModel::SectionModel(QObject *parent) : QAbstractTableModel(parent), m_rows(1) { }

void SectionModel::setSections(const std::vector<Row> &rows)
{
    beginResetModel();
    m_rows.assign(1, {});
    for (const Row &row : rows) {
        m_rows.push_back(row);
        m_rows.front().differences += row.differences;
    }
    endResetModel();
}

QString SectionModel::section(int row) const
{
    return row < 0 || row >= int(m_rows.size()) ? QString() : m_rows[std::size_t(row)].section;
}

int SectionModel::rowOf(const QString &section) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(), [&](const Row &row) { return row.section == section; });
    return found == m_rows.end() ? 0 : int(found - m_rows.begin());
}

int SectionModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int SectionModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant SectionModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Row &row = m_rows[std::size_t(index.row())];
    const QString title = row.section.isEmpty() ? tr("All sections") : DifferenceWords::section(row.section);
    switch (role) {
    case Qt::DisplayRole:
    case CopyRole:
        return index.column() == Title ? QVariant(title) : QVariant(row.differences);
    case Qt::TextAlignmentRole:
        return index.column() == Count ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    case Qt::ToolTipRole:
        return cellToolTip(row.section.isEmpty() ? title : QStringLiteral("%1 (%2)").arg(title, row.section));
    case Qt::AccessibleTextRole:
        return index.column() == Title ? QStringLiteral("%1, %2").arg(title, ComparisonNotes::differences(row.differences))
                                       : QString::number(row.differences);
    default:
        return {};
    }
}

QVariant SectionModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == Title ? tr("Section") : tr("Number");
}
