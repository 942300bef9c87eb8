// Shows a text in a fixed font.
#pragma once

#include "row_layouts.h"
#include "text_lines.h"
#include "text_marks.h"
#include "text_movement.h"

#include <QtCore/QBasicTimer>
#include <QtCore/QElapsedTimer>
#include <QtWidgets/QAbstractScrollArea>
#include <functional>
#include <memory>

class MarkStrip;
class QMimeData;

/// Read-only, with a caret and a selection as those of a read-only QPlainTextEdit. All offsets are bytes of
/// lines().text(). Lays out and paints only the rows that are visible. Lines that are longer than
/// TextRows::longestRow go on in the next row.
///
/// Keys: as QPlainTextEdit; Ctrl with +, - and 0, and Ctrl with the wheel change the size of the font.
class TextView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit TextView(QWidget *parent = nullptr);
    ~TextView() override;

    /// Shows another text from its begin, without marks and selection.
    void setLines(const TextLines &lines);
    const TextLines &lines() const { return m_layouts.rows().lines(); }

    /// Replaces the marks of a kind. \a sortedRanges do not overlap.
    void setMarks(TextMark kind, std::vector<TextRange> sortedRanges);
    /// Shows the hits of a search as marks; null for none. If it found more, call it again.
    void setHits(std::shared_ptr<const TextHits> hits);

    TextRange selection() const;
    /// The caret goes to the end of the range.
    void setSelection(TextRange range);
    int caret() const { return m_caret; }
    /// Moves the caret and scrolls to it. The selection ends, or with \a extend reaches to the caret.
    void setCaret(int offset, bool extend = false);
    /// Selects the range and scrolls so that it is visible.
    void showRange(TextRange range);
    /// Scrolls so that the range, or its begin if it is too large, is visible.
    void scrollTo(TextRange range);
    /// Scrolls so that the line of \a offset is the first one, or as near to the top as the end of the text allows.
    void scrollToTop(int offset);

    /// The bytes of the selection, with their line ends.
    QByteArray selectedBytes() const;
    /// For the clipboard, which becomes the owner. The bytes are decoded when they are pasted.
    static QMimeData *toMimeData(const QByteArray &utf8);

    /// What is shown beside the mouse: plain text about an offset, or nothing.
    void setHoverText(std::function<QString(int offset)> hoverText);
    QString hoverText(int offset) const;

    /// The rectangle of the character at \a offset, or of the caret at the end of a line, in the viewport.
    QRect characterRect(int offset) const;
    /// The place of the caret nearest to a point of the viewport.
    int placeAt(QPoint point) const;
    const RowLayouts &layouts() const { return m_layouts; }

    QSize sizeHint() const override;

public Q_SLOTS:
    void selectAll();
    void zoomIn();
    void zoomOut();
    void resetZoom();

Q_SIGNALS:
    void caretMoved(int offset);
    void selectionChanged();
    /// setLines() was called.
    void linesChanged();
    /// The user wants the selection in the clipboard.
    void copyRequested();
    void contextMenuRequested(QPoint global, int offset);

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    friend class MarkStrip;

    /// What a drag of the mouse selects.
    enum class Unit {
        Character,
        Word,
        Line,
    };
    struct Colours;

    const TextRows &rows() const { return m_layouts.rows(); }
    void applyFont();
    void setPointSize(qreal size);
    void updateScrollBars();
    void placeStrip();
    void keepWidth(qreal width);
    int visibleRows() const;
    int rowTop(int row) const;
    int rowAtY(int y) const;
    qreal left() const;
    int characterAtPoint(QPoint point) const;

    void select(int anchor, int caret);
    void ensureVisible(int offset);
    void moveTo(int offset, bool extend);
    void moveVertically(int distance, bool extend);
    void requestContextMenu();
    bool handleMovement(QKeyEvent *event);
    bool handleZoom(QKeyEvent *event);
    void publishSelection();
    TextRange unitAt(int offset) const;
    void dragTo(QPoint point);
    void scrollWhileDragging();
    void restartBlinking();
    void showHoverText(QPoint point, QPoint global);

    void paintRow(QPainter &painter, int row, const Colours &colours, TextRange selected);
    void paintCaret(QPainter &painter);

    RowLayouts m_layouts;
    TextMovement m_movement;
    TextMarks m_marks;
    MarkStrip *m_strip;
    std::function<QString(int)> m_hoverText;
    qreal m_usualPointSize = 0;
    int m_rowHeight = 1;
    int m_ascent = 0;
    qreal m_columnWidth = 1;
    qreal m_widest = 0; // of all rows: estimated, then of those that were shown
    int m_anchor = 0;
    int m_caret = 0;
    qreal m_wantedX = -1; // of the caret while it moves up and down; -1 for where it is
    int m_wheelRest = 0;  // eighths of a degree

    Unit m_dragUnit = Unit::Character;
    TextRange m_dragBegin; // what the press of the button selected
    bool m_dragging = false;
    QPoint m_dragPoint;
    QBasicTimer m_scrollTimer;
    QElapsedTimer m_sinceDoubleClick;
    QPoint m_doubleClickPoint;

    QBasicTimer m_blinkTimer;
    bool m_caretShown = false;
};
