#include "summary_model.h"

#include "shown_text.h"

SummaryModel::SummaryModel(QObject *parent)
    : QAbstractTableModel(parent)
{
}

void SummaryModel::setLines(const std::vector<velkor::Reports::SummaryLine> &lines)
{
    beginResetModel();
    m_lines = lines;
    endResetModel();
}

QString SummaryModel::text(const std::vector<int> &rows) const
{
    QStringList texts;
    for (const int row : rows)
        texts << QStringLiteral("%1: %2\n").arg(m_lines[std::size_t(row)].label, m_lines[std::size_t(row)].value);
    return texts.join(QString());
}

int SummaryModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_lines.size());
}

int SummaryModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant SummaryModel::data(const QModelIndex &index, int role) const
{
    const auto &line = m_lines[std::size_t(index.row())];
    const QString text = index.column() == 0 ? line.label : line.value;
    if (role == Qt::DisplayRole)
        return lineText(text);
    return role == Qt::ToolTipRole && index.column() == 1 ? QVariant(plainToolTip(text)) : QVariant();
}

QVariant SummaryModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == 0 ? tr("Property") : tr("Value");
}
