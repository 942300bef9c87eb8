#include "text_view.h"

#include "fixed_font.h"
#include "mark_strip.h"
#include "text_mime_data.h"
#include "text_view_accessible.h"
#include "utf8_character.h"

#include <QtCore/QEvent>
#include <QtGui/QFontMetricsF>
#include <QtWidgets/QScrollBar>
#include <algorithm>
#include <cmath>

namespace {

constexpr qreal smallestFont = 4, largestFont = 72; // points
constexpr int usualColumns = 80, usualRows = 30;

/// The place that the caret can have for an offset from elsewhere: not inside a character.
int boundedPlace(const QByteArray &text, int offset)
{
    return beginOfCharacter(text, qBound(0, offset, text.size()));
}

} // namespace

TextView::TextView(QWidget *parent)
    : QAbstractScrollArea(parent), m_movement(m_layouts), m_strip(new MarkStrip(this))
{
    TextViewAccessible::install();
    setAccessibleName(tr("Text"));
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    horizontalScrollBar()->setLayoutDirection(Qt::LeftToRight); // the rows begin at the left in every language
    QFont fixed = fixedFont();
    if (fixed.pointSizeF() <= 0)
        fixed.setPointSizeF(font().pointSizeF() > 0 ? font().pointSizeF() : 10);
    m_usualPointSize = fixed.pointSizeF();
    setFont(fixed);
    setLines(TextLines());
}

TextView::~TextView() = default;

void TextView::setLines(const TextLines &lines)
{
    m_layouts.setRows(TextRows(lines));
    m_marks.clear();
    m_anchor = m_caret = 0;
    m_wantedX = -1;
    m_dragging = false;
    m_scrollTimer.stop();
    m_widest = rows().widestColumns() * m_columnWidth;
    updateScrollBars();
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
    viewport()->update();
    m_strip->update();
    TextViewAccessible::textChanged(this);
    Q_EMIT linesChanged();
    Q_EMIT selectionChanged();
    Q_EMIT caretMoved(0);
}

void TextView::setMarks(TextMark kind, std::vector<TextRange> sortedRanges)
{
    m_marks.set(kind, std::move(sortedRanges));
    viewport()->update();
    m_strip->update();
}

void TextView::setHits(std::shared_ptr<const TextHits> hits)
{
    m_marks.setHits(std::move(hits));
    viewport()->update();
    m_strip->update();
}

TextRange TextView::selection() const
{
    return {std::min(m_anchor, m_caret), std::max(m_anchor, m_caret)};
}

void TextView::setSelection(TextRange range)
{
    const int begin = boundedPlace(lines().text(), range.begin);
    int end = boundedPlace(lines().text(), range.end);
    if (end < range.end && end < lines().text().size()) // the end is inside a character, which is selected
        end += characterAt(lines().text(), end).length;
    select(begin, std::max(begin, end));
}

void TextView::setCaret(int offset, bool extend)
{
    moveTo(boundedPlace(lines().text(), offset), extend);
}

void TextView::showRange(TextRange range)
{
    setSelection(range);
    scrollTo(selection());
}

void TextView::scrollTo(TextRange range)
{
    const int begin = boundedPlace(lines().text(), range.begin);
    const int row = rows().rowAt(begin);
    const int top = verticalScrollBar()->value();
    if (row < top || row >= top + visibleRows())
        verticalScrollBar()->setValue(row - visibleRows() / 3);
    ensureVisible(boundedPlace(lines().text(), range.end));
    ensureVisible(begin);
}

void TextView::scrollToTop(int offset)
{
    verticalScrollBar()->setValue(rows().rowAt(boundedPlace(lines().text(), offset)));
}

QByteArray TextView::selectedBytes() const
{
    const TextRange range = selection();
    return lines().text().mid(range.begin, range.end - range.begin);
}

QMimeData *TextView::toMimeData(const QByteArray &utf8)
{
    return new TextMimeData(utf8);
}

void TextView::setHoverText(std::function<QString(int offset)> hoverText)
{
    m_hoverText = std::move(hoverText);
}

QString TextView::hoverText(int offset) const
{
    return m_hoverText ? m_hoverText(offset) : QString();
}

QSize TextView::sizeHint() const
{
    return {int(usualColumns * m_columnWidth), usualRows * m_rowHeight};
}

void TextView::selectAll()
{
    select(0, lines().text().size());
    publishSelection();
}

void TextView::zoomIn() { setPointSize(font().pointSizeF() + 1); }

void TextView::zoomOut() { setPointSize(font().pointSizeF() - 1); }

void TextView::resetZoom() { setPointSize(m_usualPointSize); }

void TextView::setPointSize(qreal size)
{
    QFont changed = font();
    changed.setPointSizeF(qBound(smallestFont, size, largestFont));
    setFont(changed);
}

void TextView::applyFont()
{
    const int top = rows().row(std::min(verticalScrollBar()->value(), rows().count() - 1)).begin;
    const QFontMetricsF metrics(font());
    const qreal height = std::max(metrics.height(), metrics.lineSpacing()); // the leading of some fonts is negative
    m_rowHeight = std::max(1, int(std::ceil(height)));
    m_ascent = int(std::ceil(metrics.ascent()));
    m_columnWidth = std::max<qreal>(1, metrics.horizontalAdvance(QLatin1Char('x')));
    m_layouts.setFont(font());
    m_widest = rows().widestColumns() * m_columnWidth;
    m_wantedX = -1;
    updateScrollBars();
    scrollToTop(top);
    viewport()->update();
}

void TextView::changeEvent(QEvent *event)
{
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        applyFont();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        placeStrip();
}

void TextView::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    placeStrip();
    updateScrollBars();
}

void TextView::placeStrip()
{
    const int width = m_strip->sizeHint().width();
    const bool fromRight = isRightToLeft();
    setViewportMargins(fromRight ? width : 0, 0, fromRight ? 0 : width, 0);
    const QRect area = viewport()->geometry();
    m_strip->setGeometry(fromRight ? area.left() - width : area.right() + 1, area.top(), width, area.height());
}

void TextView::updateScrollBars()
{
    verticalScrollBar()->setRange(0, std::max(0, rows().count() - visibleRows()));
    verticalScrollBar()->setPageStep(visibleRows());
    verticalScrollBar()->setSingleStep(1);
    const int width = int(std::ceil(m_widest + 3 * m_columnWidth)); // margins, and the sign of a row that goes on
    horizontalScrollBar()->setRange(0, std::max(0, width - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(int(m_columnWidth) * 4);
}

void TextView::keepWidth(qreal width)
{
    if (width <= m_widest)
        return;
    m_widest = width;
    updateScrollBars();
}

void TextView::scrollContentsBy(int, int)
{
    viewport()->update();
    TextViewAccessible::scrolled(this);
}

int TextView::visibleRows() const
{
    return std::max(1, viewport()->height() / m_rowHeight);
}

int TextView::rowTop(int row) const
{
    const qint64 top = (qint64(row) - verticalScrollBar()->value()) * m_rowHeight;
    constexpr qint64 farAway = 1 << 24; // such rows are not visible
    return int(qBound(-farAway, top, farAway));
}

int TextView::rowAtY(int y) const
{
    const int distance = y >= 0 ? y / m_rowHeight : -((m_rowHeight - 1 - y) / m_rowHeight);
    return qBound(0, verticalScrollBar()->value() + distance, rows().count() - 1);
}

/// The horizontal place at which rows begin.
qreal TextView::left() const
{
    return std::round(m_columnWidth / 2) - horizontalScrollBar()->value();
}

QRect TextView::characterRect(int offset) const
{
    const int row = rows().rowAt(offset);
    const std::shared_ptr<const RowLayout> layout = m_layouts.layout(row);
    const std::vector<RowSpan> spans = layout->spansOf({offset, layout->nextPlace(offset)});
    const qreal x = spans.empty() ? layout->xOf(offset) : spans.front().left;
    const qreal width = spans.empty() ? m_columnWidth : spans.front().right - spans.front().left;
    return QRectF(left() + x, rowTop(row), width, m_rowHeight).toAlignedRect();
}

int TextView::placeAt(QPoint point) const
{
    const int row = rowAtY(point.y());
    const int place = m_layouts.layout(row)->offsetAt(point.x() - left());
    return std::min(place, m_movement.rowEnd(rows().row(row).begin));
}

/// The character under a point; -1 if there is none.
int TextView::characterAtPoint(QPoint point) const
{
    const int row = rowAtY(point.y());
    if (point.y() < rowTop(row) || point.y() >= rowTop(row) + m_rowHeight)
        return -1;
    const int offset = m_layouts.layout(row)->characterAtX(point.x() - left());
    return offset < rows().row(row).end ? offset : -1;
}

void TextView::select(int anchor, int caret)
{
    const bool moved = caret != m_caret;
    const TextRange before = selection();
    m_anchor = anchor;
    m_caret = caret;
    m_wantedX = -1;
    restartBlinking();
    viewport()->update();
    if (moved) {
        TextViewAccessible::caretMoved(this);
        Q_EMIT caretMoved(m_caret);
    }
    const bool isEmpty = before.begin == before.end && anchor == caret;
    if (selection() != before && !isEmpty) {
        TextViewAccessible::selectionChanged(this);
        Q_EMIT selectionChanged();
    }
}

void TextView::ensureVisible(int offset)
{
    const int row = rows().rowAt(offset);
    const int top = verticalScrollBar()->value();
    if (row < top)
        verticalScrollBar()->setValue(row);
    else if (row >= top + visibleRows())
        verticalScrollBar()->setValue(row - visibleRows() + 1);

    const std::shared_ptr<const RowLayout> layout = m_layouts.layout(row);
    keepWidth(layout->width());
    const qreal x = left() + layout->xOf(offset);
    const qreal space = 2 * m_columnWidth; // some of what is beside it is visible, too
    if (x < space)
        horizontalScrollBar()->setValue(int(horizontalScrollBar()->value() + x - space));
    else if (x > viewport()->width() - space)
        horizontalScrollBar()->setValue(int(std::ceil(horizontalScrollBar()->value() + x + space - viewport()->width())));
}
