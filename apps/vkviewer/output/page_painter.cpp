#include "page_painter.h"

#include "neutral_text.h"
#include "page_layout.h"
#include "text/fixed_font.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPagedPaintDevice>
#include <QtGui/QPainter>
#include <algorithm>

namespace {

constexpr int pointSize = 8;
constexpr int gutterCells = 2; ///< to the left of the text, for the sign of rows that continue a line
constexpr int headRows = 2;    ///< the header or the footer, and an empty row
constexpr int smallestRows = 1;

QString translated(const char *text)
{
    return QCoreApplication::translate("Output", text);
}

/// Of the printable characters of ASCII. In a fixed font all have this width.
qreal widestCharacter(const QFontMetricsF &metrics)
{
    qreal width = 0;
    for (char character = ' '; character <= '~'; ++character)
        width = std::max(width, metrics.horizontalAdvance(QLatin1Char(character)));
    return width;
}

class PagePainter
{
public:
    PagePainter(QPainter &reportPainter, const OutputReport &reportToPaint)
        : painter(reportPainter), report(reportToPaint), font(printFont()), metrics(font, reportPainter.device()),
          area(QPointF(), QSizeF(reportPainter.device()->width(), reportPainter.device()->height())), cell(widestCharacter(metrics)),
          height(std::max(metrics.height(), metrics.lineSpacing())), layout(report.document.text(), area.width() - gutterCells * cell, rowsOfPage(), cell, [this](const QString &text) {
              return metrics.horizontalAdvance(text);
          })
    {
        painter.setFont(font);
        painter.setPen(Qt::black); // whatever the palette of the window is
    }

    int pageCount() const { return layout.pageCount(); }

    void paint(int page)
    {
        paintHeader();
        qreal y = headRows * height + metrics.ascent();
        for (const PageLayout::Row &row : layout.page(page - 1)) {
            if (row.continues)
                paintSign(y);
            painter.drawText(QPointF(gutterCells * cell, y), row.text);
            y += height;
        }
        const QString number = translated(QT_TRANSLATE_NOOP("Output", "Page %1 of %2")).arg(page).arg(pageCount());
        painter.drawText(QRectF(0, area.height() - height, area.width(), height), Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, number);
    }

private:
    int rowsOfPage() const { return std::max(int(area.height() / height) - 2 * headRows, smallestRows); }

    void paintHeader()
    {
        const QString note = report.isRedacted() ? translated(QT_TRANSLATE_NOOP("Output", "Personal data is hidden; not anonymous")) : QString();
        const qreal noteWidth = note.isEmpty() ? 0 : metrics.horizontalAdvance(note) + 2 * cell;
        const QString name = metrics.elidedText(velkor::Reports::terminalText(report.name), Qt::ElideMiddle, std::max(area.width() - noteWidth, 0.0));
        const QRectF header(0, 0, area.width(), height);
        painter.drawText(header, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, name);
        painter.drawText(header, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, note);
        painter.setPen(QPen(Qt::black, height / 20));
        painter.drawLine(QPointF(0, height * 1.3), QPointF(area.width(), height * 1.3));
    }

    /// An arrow around the corner, as lines: it is no part of the text.
    void paintSign(qreal baseline)
    {
        const qreal left = cell * 0.3;
        const qreal right = cell * 1.4;
        const qreal y = baseline - metrics.xHeight() / 2;
        const QPointF corner[] = {{left, y - metrics.xHeight()}, {left, y}, {right, y}};
        const QPointF head[] = {{right - cell * 0.4, y - cell * 0.3}, {right, y}, {right - cell * 0.4, y + cell * 0.3}};
        painter.drawPolyline(corner, 3);
        painter.drawPolyline(head, 3);
    }

    QPainter &painter;
    const OutputReport &report;
    QFont font;
    QFontMetricsF metrics;
    QRectF area;
    qreal cell;
    qreal height;
    PageLayout layout;
};

} // namespace

QFont printFont()
{
    QFont font = fixedFont();
    font.setPointSize(pointSize);
    font.setKerning(false);
    return font;
}

WriteResult paintReport(QPagedPaintDevice &device, const OutputReport &report, PageRange range,
                        const std::function<bool(int page, int pages)> &goesOn)
{
    QPainter painter;
    if (!painter.begin(&device))
        return WriteResult::Failed;
    PagePainter pages(painter, report);
    const int last = range.last > 0 ? std::min(range.last, pages.pageCount()) : pages.pageCount();
    const int first = std::min(std::max(range.first, 1), last);
    for (int page = first; page <= last; ++page) {
        if (!goesOn(page, pages.pageCount()))
            return WriteResult::Cancelled;
        if (page > first && !device.newPage())
            return WriteResult::Failed;
        pages.paint(page);
    }
    return painter.end() ? WriteResult::Written : WriteResult::Failed;
}
