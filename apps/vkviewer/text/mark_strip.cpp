#include "mark_strip.h"

#include "text_view.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QScrollBar>
#include <algorithm>

namespace {

/// A line of this many pixels can be seen.
constexpr int lineHeight = 2;

} // namespace

MarkStrip::MarkStrip(TextView *view)
    : QWidget(view), m_view(view)
{
    setAccessibleName(tr("Marks in the whole text"));
    setCursor(Qt::ArrowCursor);
}

QSize MarkStrip::sizeHint() const
{
    return {fontMetrics().averageCharWidth(), 0};
}

void MarkStrip::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    const TextRows &rows = m_view->rows();
    // A text that does not fill the view is marked where it is.
    const int shownRows = std::max(rows.count(), m_view->visibleRows());
    const QPalette colours = palette();
    for (const TextMark kind : textMarks) {
        const MarkStyle style = markStyle(kind, colours);
        for (int y = 0; y < height(); y += lineHeight) {
            const int first = int(qint64(y) * shownRows / height());
            const int last = std::min(rows.count(), int(qint64(y + lineHeight) * shownRows / height()));
            if (first >= rows.count())
                break;
            const TextRange range {rows.row(first).begin, std::max(rows.row(std::max(first, last - 1)).end, rows.row(first).end)};
            if (!m_view->m_marks.any(kind, range))
                continue;
            // The current hit is the widest, a frame is wider than a line below the text.
            const bool isWide = kind == TextMark::CurrentHit;
            const int inset = isWide ? 0 : width() / 4;
            painter.fillRect(inset, y - isWide, width() - 2 * inset, lineHeight + 2 * isWide, style.lineColour);
        }
    }
}

void MarkStrip::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        scrollTo(event->pos().y());
}

void MarkStrip::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons() & Qt::LeftButton)
        scrollTo(event->pos().y());
}

void MarkStrip::mouseReleaseEvent(QMouseEvent *event)
{
    event->accept();
}

void MarkStrip::scrollTo(int y)
{
    const int shownRows = std::max(m_view->rows().count(), m_view->visibleRows());
    const int row = int(qint64(qBound(0, y, height())) * shownRows / std::max(1, height()));
    m_view->verticalScrollBar()->setValue(row - m_view->visibleRows() / 2);
}
