// TextView: how it looks.

#include "text_view.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtGui/QStyleHints>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyle>
#include <algorithm>
#include <array>
#include <cmath>

struct TextView::Colours
{
    explicit Colours(const QPalette &palette)
        : text(palette.color(QPalette::Text)), selection(palette.color(QPalette::Highlight)), selectedText(palette.color(QPalette::HighlightedText)), sign(palette.color(QPalette::Disabled, QPalette::Text))
    {
        for (const TextMark kind : textMarks)
            marks[std::size_t(kind)] = markStyle(kind, palette);
    }

    QColor text;
    QColor selection;
    QColor selectedText;
    QColor sign;
    std::array<MarkStyle, std::size(textMarks)> marks;
};

namespace {

void drawMarkLine(QPainter &painter, const QRectF &area, const MarkStyle &style, qreal thin)
{
    const qreal thick = 2 * thin;
    QPen pen(style.lineColour, thin);
    pen.setJoinStyle(Qt::MiterJoin);
    switch (style.line) {
    case MarkLine::ThickFrame:
        pen.setWidthF(thick);
        break;
    case MarkLine::DashedFrame:
        pen.setStyle(Qt::DashLine);
        break;
    case MarkLine::ThickUnderline:
        pen.setWidthF(1.5 * thick);
        pen.setCapStyle(Qt::FlatCap);
        break;
    case MarkLine::DottedUnderline:
        pen.setWidthF(thick);
        pen.setStyle(Qt::DotLine);
        break;
    case MarkLine::Underline:
        pen.setWidthF(thick);
        pen.setCapStyle(Qt::FlatCap);
        break;
    case MarkLine::Frame:
        break;
    }
    painter.setPen(pen);
    const qreal half = pen.widthF() / 2;
    const QRectF inside = area.adjusted(half, half, -half, -half);
    const bool isFrame = style.line == MarkLine::Frame || style.line == MarkLine::ThickFrame
        || style.line == MarkLine::DashedFrame;
    if (isFrame)
        painter.drawRect(inside);
    else
        painter.drawLine(QPointF(area.left(), inside.bottom()), QPointF(area.right(), inside.bottom()));
}

} // namespace

void TextView::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    painter.fillRect(event->rect(), palette().color(QPalette::Base));
    const Colours colours(palette());
    const TextRange selected = selection();
    const int first = verticalScrollBar()->value();
    const int last = std::min(rows().count() - 1, rowAtY(viewport()->height()));
    for (int row = first; row <= last; ++row) {
        const QRect area(0, rowTop(row), viewport()->width(), m_rowHeight);
        if (area.intersects(event->rect()))
            paintRow(painter, row, colours, selected);
    }
    paintCaret(painter);
}

void TextView::paintRow(QPainter &painter, int row, const Colours &colours, TextRange selected)
{
    const std::shared_ptr<const RowLayout> layout = m_layouts.layout(row);
    if (layout->width() > m_widest) // not now: a scroll bar that appears changes the viewport
        QMetaObject::invokeMethod(
            this, [this, width = layout->width()] { keepWidth(width); }, Qt::QueuedConnection);
    const TextRange range = layout->range();
    const TextRange visible = layout->visibleRange(-left(), viewport()->width() - left());
    const qreal top = rowTop(row);
    const auto areaOf = [this, top](RowSpan span) {
        return QRectF(left() + span.left, top, span.right - span.left, m_rowHeight);
    };
    struct Line
    {
        QRectF area;
        TextMark mark;
    };
    std::vector<Line> lines;
    m_marks.visit(visible, [&](TextMark mark, TextRange place) {
        const TextRange part {std::max(place.begin, range.begin), std::min(place.end, range.end)};
        for (const RowSpan span : layout->spansOf(part)) {
            painter.fillRect(areaOf(span), colours.marks[std::size_t(mark)].background);
            lines.push_back({areaOf(span), mark});
        }
    });
    const TextRange selectedPart {std::max(selected.begin, range.begin), std::min(selected.end, range.end)};
    if (selectedPart.begin < selectedPart.end) {
        for (const RowSpan span : layout->spansOf(selectedPart))
            painter.fillRect(areaOf(span), colours.selection);
    }
    const bool continues = rows().continues(row);
    if (!continues && selected.begin <= range.end && selected.end > range.end) // the line end
        painter.fillRect(areaOf({layout->width(), layout->width() + m_columnWidth / 2}), colours.selection);
    painter.setPen(colours.text);
    layout->draw(painter, QPointF(left(), top), m_ascent, selectedPart, colours.selectedText);
    for (const RowSpan span : layout->signSpans(-left(), viewport()->width() - left())) {
        painter.setPen(colours.text);
        painter.drawRect(areaOf(span).adjusted(0.5, 1.5, -0.5, -1.5));
    }
    const qreal thin = std::max(1.0, std::floor(m_rowHeight / 16.0));
    for (const Line &line : lines)
        drawMarkLine(painter, line.area, colours.marks[std::size_t(line.mark)], thin);
    if (continues) {
        painter.setPen(colours.sign);
        painter.setFont(font());
        painter.drawText(QPointF(left() + layout->width(), top + m_ascent), QStringLiteral("\u21A9"));
    }
}

void TextView::paintCaret(QPainter &painter)
{
    if (!m_caretShown || !hasFocus())
        return;
    const int row = rows().rowAt(m_caret);
    const qreal x = left() + m_layouts.layout(row)->xOf(m_caret);
    const int width = std::max(1, style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, this));
    painter.fillRect(QRectF(std::round(x), rowTop(row), width, m_rowHeight), palette().color(QPalette::Text));
}

void TextView::restartBlinking()
{
    m_caretShown = hasFocus();
    const int period = QGuiApplication::styleHints()->cursorFlashTime();
    if (hasFocus() && period > 1)
        m_blinkTimer.start(period / 2, this);
    else
        m_blinkTimer.stop();
}

void TextView::focusInEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusInEvent(event);
    restartBlinking();
    viewport()->update();
}

void TextView::focusOutEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusOutEvent(event);
    restartBlinking();
    viewport()->update();
}
