#include "value_delegate.h"

#include "comparison_table_model.h"
#include "mark_colours.h"

void ValueDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.data(ComparisonTableModel::DiffersRole).toBool())
        option->backgroundBrush = markColour(option->palette, LineChange::Changed, false);
}
