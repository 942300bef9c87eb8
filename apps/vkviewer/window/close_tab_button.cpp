#include "close_tab_button.h"

#include <QtGui/QPainter>

CloseTabButton::CloseTabButton(QWidget *parent)
    : QToolButton(parent)
{
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus); // the keyboard has a command for it
    setAccessibleName(tr("Close tab"));
}

QSize CloseTabButton::sizeHint() const
{
    const int side = fontMetrics().height();
    return {side, side};
}

void CloseTabButton::paintEvent(QPaintEvent *event)
{
    QToolButton::paintEvent(event); // the frame under the mouse
    const qreal side = qMin(width(), height()) * 0.5;
    QRectF cross(0, 0, side, side);
    cross.moveCenter(QRectF(rect()).center());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::WindowText), side / 5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(cross.topLeft(), cross.bottomRight());
    painter.drawLine(cross.topRight(), cross.bottomLeft());
}
