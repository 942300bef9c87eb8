// TextView: keyboard and mouse.

#include "text_view.h"

#include "context_menu_key.h"
#include "text_mime_data.h"

#include <QtGui/QClipboard>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QHelpEvent>
#include <QtGui/QStyleHints>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QToolTip>
#include <algorithm>

namespace {

constexpr int stepsOfWheel = 120;      // eighths of a degree, as Qt defines them
constexpr int dragScrollInterval = 40; // milliseconds
constexpr int longestHoverText = 1000;

/// Plain text that a tool tip cannot take for rich text, which could load files. Long lines wrap.
QString escapedToolTip(const QString &text)
{
    return QStringLiteral("<p style=\"white-space: pre-wrap\">%1</p>").arg(text.left(longestHoverText).toHtmlEscaped());
}

/// Keys that the view handles even if the window has a shortcut for them.
bool isOwnKey(QKeyEvent *event)
{
    constexpr QKeySequence::StandardKey keys[] = {
        QKeySequence::Copy, QKeySequence::SelectAll, QKeySequence::MoveToNextChar, QKeySequence::MoveToPreviousChar,
        QKeySequence::MoveToNextWord, QKeySequence::MoveToPreviousWord, QKeySequence::MoveToStartOfLine,
        QKeySequence::MoveToEndOfLine, QKeySequence::MoveToStartOfDocument, QKeySequence::MoveToEndOfDocument};
    return std::any_of(std::begin(keys), std::end(keys), [event](auto key) { return event->matches(key); });
}

} // namespace

bool TextView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && isOwnKey(static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QAbstractScrollArea::event(event);
}

void TextView::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy))
        Q_EMIT copyRequested();
    else if (event->matches(QKeySequence::SelectAll))
        selectAll();
    else if (isContextMenuKey(*event))
        requestContextMenu();
    else if (!handleMovement(event) && !handleZoom(event))
        event->ignore();
}

/// Moves the caret or extends the selection.
bool TextView::handleMovement(QKeyEvent *event)
{
    using Function = int (TextMovement::*)(int) const;
    struct Move
    {
        QKeySequence::StandardKey move;
        QKeySequence::StandardKey select;
        Function function;
    };
    static constexpr Move moves[] = {
        {QKeySequence::MoveToNextChar, QKeySequence::SelectNextChar, &TextMovement::nextCharacter},
        {QKeySequence::MoveToPreviousChar, QKeySequence::SelectPreviousChar, &TextMovement::previousCharacter},
        {QKeySequence::MoveToNextWord, QKeySequence::SelectNextWord, &TextMovement::nextWord},
        {QKeySequence::MoveToPreviousWord, QKeySequence::SelectPreviousWord, &TextMovement::previousWord},
        {QKeySequence::MoveToStartOfLine, QKeySequence::SelectStartOfLine, &TextMovement::rowBegin},
        {QKeySequence::MoveToEndOfLine, QKeySequence::SelectEndOfLine, &TextMovement::rowEnd},
        {QKeySequence::MoveToStartOfDocument, QKeySequence::SelectStartOfDocument, &TextMovement::textBegin},
        {QKeySequence::MoveToEndOfDocument, QKeySequence::SelectEndOfDocument, &TextMovement::textEnd},
    };
    for (const Move &move : moves) {
        const bool extend = event->matches(move.select);
        if (!extend && !event->matches(move.move))
            continue;
        const TextRange selected = selection();
        const bool leavesSelection = !extend && selected.begin < selected.end;
        if (leavesSelection && move.move == QKeySequence::MoveToNextChar)
            moveTo(selected.end, false);
        else if (leavesSelection && move.move == QKeySequence::MoveToPreviousChar)
            moveTo(selected.begin, false);
        else
            moveTo((m_movement.*move.function)(m_caret), extend);
        return true;
    }

    const int page = std::max(1, visibleRows() - 1);
    const struct
    {
        QKeySequence::StandardKey move;
        QKeySequence::StandardKey select;
        int distance;
    } verticalMoves[] = {
        {QKeySequence::MoveToNextLine, QKeySequence::SelectNextLine, 1},
        {QKeySequence::MoveToPreviousLine, QKeySequence::SelectPreviousLine, -1},
        {QKeySequence::MoveToNextPage, QKeySequence::SelectNextPage, page},
        {QKeySequence::MoveToPreviousPage, QKeySequence::SelectPreviousPage, -page},
    };
    for (const auto &move : verticalMoves) {
        const bool extend = event->matches(move.select);
        if (!extend && !event->matches(move.move))
            continue;
        if (std::abs(move.distance) > 1) // a page: the caret stays where it is in the view
            verticalScrollBar()->setValue(verticalScrollBar()->value() + move.distance);
        moveVertically(move.distance, extend);
        return true;
    }
    if (event->key() == Qt::Key_Space && !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
        moveVertically(event->modifiers() & Qt::ShiftModifier ? -page : page, false);
        return true;
    }
    return false;
}

bool TextView::handleZoom(QKeyEvent *event)
{
    // With Alt it is AltGr, which makes other characters.
    if (!(event->modifiers() & Qt::ControlModifier) || event->modifiers() & Qt::AltModifier)
        return false;
    if (event->matches(QKeySequence::ZoomIn) || event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal)
        zoomIn();
    else if (event->matches(QKeySequence::ZoomOut) || event->key() == Qt::Key_Minus)
        zoomOut();
    else if (event->key() == Qt::Key_0)
        resetZoom();
    else
        return false;
    return true;
}

void TextView::moveTo(int offset, bool extend)
{
    select(extend ? m_anchor : offset, offset);
    ensureVisible(offset);
    if (extend)
        publishSelection();
}

void TextView::moveVertically(int distance, bool extend)
{
    const qreal x = m_wantedX >= 0 ? m_wantedX : m_layouts.layoutOf(m_caret)->xOf(m_caret);
    const qint64 wantedRow = qint64(rows().rowAt(m_caret)) + distance;
    if (extend && (wantedRow < 0 || wantedRow >= rows().count())) {
        moveTo(wantedRow < 0 ? 0 : lines().text().size(), true);
        return;
    }
    moveTo(m_movement.vertically(m_caret, distance, x), extend);
    m_wantedX = x;
}

/// Middle clicks paste the selection elsewhere, where the platform has this.
void TextView::publishSelection()
{
    QClipboard *const clipboard = QGuiApplication::clipboard();
    const TextRange selected = selection();
    if (clipboard->supportsSelection() && selected.begin < selected.end)
        clipboard->setMimeData(new TextMimeData(lines().text(), selected), QClipboard::Selection);
}

TextRange TextView::unitAt(int offset) const
{
    if (m_dragUnit == Unit::Word)
        return m_movement.wordAt(offset);
    if (m_dragUnit == Unit::Line)
        return m_movement.lineAt(offset);
    return {offset, offset};
}

void TextView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const bool isThird = m_sinceDoubleClick.isValid()
        && m_sinceDoubleClick.elapsed() < QGuiApplication::styleHints()->mouseDoubleClickInterval()
        && (event->pos() - m_doubleClickPoint).manhattanLength() < QApplication::startDragDistance();
    m_sinceDoubleClick.invalidate();
    m_dragging = true;
    m_dragPoint = event->pos();
    m_dragUnit = isThird ? Unit::Line : Unit::Character;
    const int place = placeAt(event->pos());
    if (event->modifiers() & Qt::ShiftModifier && !isThird) {
        m_dragBegin = {m_anchor, m_anchor};
        select(m_anchor, place);
    } else {
        m_dragBegin = unitAt(place);
        select(m_dragBegin.begin, m_dragBegin.end);
    }
}

void TextView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const int character = characterAtPoint(event->pos());
    m_dragging = true;
    m_dragPoint = event->pos();
    m_dragUnit = Unit::Word;
    m_dragBegin = unitAt(character >= 0 ? character : placeAt(event->pos()));
    select(m_dragBegin.begin, m_dragBegin.end);
    m_sinceDoubleClick.start();
    m_doubleClickPoint = event->pos();
}

void TextView::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_dragging || !(event->buttons() & Qt::LeftButton))
        return;
    m_dragPoint = event->pos();
    dragTo(m_dragPoint);
    if (viewport()->rect().contains(m_dragPoint))
        m_scrollTimer.stop();
    else if (!m_scrollTimer.isActive())
        m_scrollTimer.start(dragScrollInterval, this);
}

void TextView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_dragging)
        return;
    m_dragging = false;
    m_scrollTimer.stop();
    publishSelection();
}

void TextView::dragTo(QPoint point)
{
    const TextRange unit = unitAt(placeAt(point));
    if (unit.begin < m_dragBegin.begin)
        select(m_dragBegin.end, unit.begin);
    else
        select(m_dragBegin.begin, std::max(unit.end, m_dragBegin.end));
}

/// The further the mouse is outside, the faster.
void TextView::scrollWhileDragging()
{
    const QRect inside = viewport()->rect();
    const auto distance = [](int value, int low, int high) { return value < low ? value - low : std::max(0, value - high); };
    const int down = distance(m_dragPoint.y(), inside.top(), inside.bottom());
    const int right = distance(m_dragPoint.x(), inside.left(), inside.right());
    const int rowSteps = down / m_rowHeight + (down > 0) - (down < 0);
    verticalScrollBar()->setValue(verticalScrollBar()->value() + rowSteps);
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + right);
    dragTo(m_dragPoint);
}

void TextView::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_scrollTimer.timerId()) {
        scrollWhileDragging();
    } else if (event->timerId() == m_blinkTimer.timerId()) {
        m_caretShown = !m_caretShown;
        viewport()->update(characterRect(m_caret).adjusted(-m_rowHeight, 0, m_rowHeight, 0));
    } else {
        QAbstractScrollArea::timerEvent(event);
    }
}

void TextView::wheelEvent(QWheelEvent *event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        m_wheelRest = 0;
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    m_wheelRest += event->angleDelta().y();
    const int steps = m_wheelRest / stepsOfWheel;
    m_wheelRest -= steps * stepsOfWheel;
    if (steps != 0)
        setPointSize(font().pointSizeF() + steps);
    event->accept();
}

void TextView::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Mouse) {
        Q_EMIT contextMenuRequested(event->globalPos(), placeAt(event->pos()));
        return;
    }
    requestContextMenu();
}

/// At the caret.
void TextView::requestContextMenu()
{
    ensureVisible(m_caret);
    Q_EMIT contextMenuRequested(viewport()->mapToGlobal(characterRect(m_caret).bottomLeft()), m_caret);
}

bool TextView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        showHoverText(help->pos(), help->globalPos());
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void TextView::showHoverText(QPoint point, QPoint global)
{
    const int offset = characterAtPoint(point);
    const QString text = offset >= 0 ? hoverText(offset) : QString();
    if (text.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(global, escapedToolTip(text), viewport(), characterRect(offset));
}
