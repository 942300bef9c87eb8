#include "line_delegate.h"

#include "aligned_text_model.h"
#include "mark_colours.h"

#include <QtGui/QPainter>
#include <QtGui/QTextLayout>
#include <QtWidgets/QApplication>

namespace {

QTextLayout::FormatRange formatOf(const LinePart &part, const QColor &background)
{
    QTextLayout::FormatRange range;
    range.start = part.begin;
    range.length = part.end - part.begin;
    range.format.setFontUnderline(true);
    if (background.isValid())
        range.format.setBackground(background);
    return range;
}

QColor backgroundOf(const QStyleOptionViewItem &option, const QModelIndex &index, QPalette::ColorGroup group)
{
    if (option.state & QStyle::State_Selected)
        return option.palette.color(group, QPalette::Highlight);
    if (index.data(AlignedTextModel::MissingRole).toBool())
        return option.palette.color(group, QPalette::Window);
    return markColour(option.palette, LineChange(index.data(AlignedTextModel::ChangeRole).toInt()), false);
}

void drawLine(QPainter *painter, const QStyleOptionViewItem &option, const QString &text, const QVector<QTextLayout::FormatRange> &formats)
{
    QTextOption textOption;
    textOption.setWrapMode(QTextOption::NoWrap);
    QTextLayout layout(text, option.font, painter->device());
    layout.setTextOption(textOption);
    layout.setFormats(formats);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    layout.draw(painter, option.rect.topLeft(), {}, option.rect);
}

} // namespace

void LineDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const bool isSelected = option.state & QStyle::State_Selected;
    const QPalette::ColorGroup group = option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
    painter->save();
    painter->setClipRect(option.rect);
    painter->fillRect(option.rect, backgroundOf(option, index, group));
    painter->setPen(option.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text));
    QVector<QTextLayout::FormatRange> formats;
    const auto part = index.data(AlignedTextModel::PartRole).value<LinePart>();
    if (part.begin < part.end)
        formats.append(formatOf(part, isSelected ? QColor() : markColour(option.palette, LineChange::Changed, true)));
    drawLine(painter, option, index.data().toString(), formats);
    painter->restore();
    if (option.state & QStyle::State_HasFocus) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.backgroundColor = option.palette.color(group, isSelected ? QPalette::Highlight : QPalette::Base);
        QApplication::style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, option.widget);
    }
}
