#include "readable_style.h"

#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleOption>

namespace {

const QLatin1String fusion("fusion");

QColor between(const QColor &one, const QColor &other)
{
    return {(one.red() + other.red()) / 2, (one.green() + other.green()) / 2, (one.blue() + other.blue()) / 2};
}

} // namespace

ReadableStyle::ReadableStyle()
    : QProxyStyle(fusion)
{
}

void ReadableStyle::install()
{
    if (QApplication::style()->objectName().compare(fusion, Qt::CaseInsensitive) == 0)
        QApplication::setStyle(new ReadableStyle);
}

void ReadableStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter, const QWidget *widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element != PE_IndicatorCheckBox)
        return;
    painter->save();
    painter->setBrush(Qt::NoBrush);
    painter->setPen(between(option->palette.color(QPalette::WindowText), option->palette.color(QPalette::Window)));
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    painter->restore();
}
