#include "name_label.h"

#include "shown_text.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

NameLabel::NameLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void NameLabel::setName(const QString &name, const QString &toolTip)
{
    setText(lineText(name));
    setToolTip(plainToolTip(toolTip));
}

QSize NameLabel::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 8, QLabel::minimumSizeHint().height()};
}

void NameLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
    style()->drawItemText(&painter, contentsRect(), int(alignment()), palette(), isEnabled(), shown, foregroundRole());
}
