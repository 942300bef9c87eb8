// Paints values of ComparisonTableModel.
#pragma once

#include <QtWidgets/QStyledItemDelegate>

/// Marks what is not the value of the first report by colour; the model adds a sign.
class ValueDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};
