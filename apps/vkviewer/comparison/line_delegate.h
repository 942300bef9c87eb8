// Paints lines of AlignedTextModel.
#pragma once

#include <QtWidgets/QStyledItemDelegate>

/// Marks a line by colour, and the part that differs by a stronger colour and a line under it.
class LineDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
