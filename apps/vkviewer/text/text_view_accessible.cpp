#include "text_view_accessible.h"

#include "text_view.h"
#include "utf8_character.h"

#include <algorithm>

namespace {

/// The accessible object of a view; null if nobody reads the screen.
TextViewAccessible *reading(TextView *view)
{
    return QAccessible::isActive() ? dynamic_cast<TextViewAccessible *>(QAccessible::queryAccessibleInterface(view)) : nullptr;
}

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    auto *const view = qobject_cast<TextView *>(object);
    return view ? new TextViewAccessible(view) : nullptr;
}

} // namespace

TextViewAccessible::TextViewAccessible(TextView *view)
    : QAccessibleWidget(view, QAccessible::EditableText)
{
}

void TextViewAccessible::install()
{
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(installed)
}

void TextViewAccessible::textChanged(TextView *view)
{
    if (!reading(view))
        return;
    QAccessibleTextUpdateEvent event(view, 0, QString(), QString()); // without the texts, which can be large
    QAccessible::updateAccessibility(&event);
}

void TextViewAccessible::caretMoved(TextView *view)
{
    if (const TextViewAccessible *accessible = reading(view)) {
        QAccessibleTextCursorEvent event(view, accessible->cursorPosition());
        QAccessible::updateAccessibility(&event);
    }
}

void TextViewAccessible::selectionChanged(TextView *view)
{
    if (const TextViewAccessible *accessible = reading(view)) {
        const TextRange range = view->selection();
        QAccessibleTextSelectionEvent event(view, accessible->positions().unitsBefore(range.begin),
                                            accessible->positions().unitsBefore(range.end));
        event.setCursorPosition(accessible->cursorPosition());
        QAccessible::updateAccessibility(&event);
    }
}

void TextViewAccessible::scrolled(TextView *view)
{
    if (reading(view)) {
        QAccessibleEvent event(view, QAccessible::VisibleDataChanged);
        QAccessible::updateAccessibility(&event);
    }
}

TextView *TextViewAccessible::view() const
{
    return static_cast<TextView *>(widget());
}

const TextPositions &TextViewAccessible::positions() const
{
    if (!m_positions.isOf(view()->lines().text()))
        m_positions = TextPositions(view()->lines().text());
    return m_positions;
}

int TextViewAccessible::byteAt(int unit) const
{
    return positions().offsetOf(unit);
}

void *TextViewAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessible::State TextViewAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    state.multiLine = true;
    state.selectableText = true;
    return state;
}

QString TextViewAccessible::text(QAccessible::Text type) const
{
    if (type == QAccessible::Value)
        return text(0, characterCount());
    return QAccessibleWidget::text(type);
}

void TextViewAccessible::selection(int selectionIndex, int *startOffset, int *endOffset) const
{
    const TextRange range = selectionIndex == 0 ? view()->selection() : TextRange();
    *startOffset = positions().unitsBefore(range.begin);
    *endOffset = positions().unitsBefore(range.end);
}

int TextViewAccessible::selectionCount() const
{
    return view()->selection().begin < view()->selection().end ? 1 : 0;
}

void TextViewAccessible::addSelection(int startOffset, int endOffset)
{
    setSelection(0, startOffset, endOffset);
}

void TextViewAccessible::removeSelection(int selectionIndex)
{
    if (selectionIndex == 0)
        view()->setSelection({view()->caret(), view()->caret()});
}

void TextViewAccessible::setSelection(int selectionIndex, int startOffset, int endOffset)
{
    if (selectionIndex == 0)
        view()->setSelection({byteAt(startOffset), byteAt(endOffset)});
}

int TextViewAccessible::cursorPosition() const
{
    return positions().unitsBefore(view()->caret());
}

void TextViewAccessible::setCursorPosition(int position)
{
    view()->setCaret(byteAt(position));
}

QString TextViewAccessible::text(int startOffset, int endOffset) const
{
    const int begin = byteAt(startOffset), end = byteAt(endOffset);
    return begin < end ? decodedText(view()->lines().text(), begin, end) : QString();
}

/// The unit of \a type that includes a byte.
TextRange TextViewAccessible::rangeAt(int byte, QAccessible::TextBoundaryType type) const
{
    const TextView &text = *view();
    const int size = text.lines().text().size();
    const TextMovement movement(text.layouts());
    const TextRows &rows = text.layouts().rows();
    const int row = rows.rowAt(byte);
    switch (type) {
    case QAccessible::CharBoundary:
        return {byte, movement.nextCharacter(byte)};
    case QAccessible::WordBoundary:
        return byte >= rows.row(row).end ? TextRange {byte, movement.nextCharacter(byte)} : movement.wordAt(byte);
    case QAccessible::LineBoundary:
        return {rows.row(row).begin, row + 1 < rows.count() ? rows.row(row + 1).begin : size};
    case QAccessible::SentenceBoundary: // a report has lines and no sentences
    case QAccessible::ParagraphBoundary:
        return movement.lineAt(byte);
    case QAccessible::NoBoundary:
        break;
    }
    return {0, size};
}

QString TextViewAccessible::report(TextRange range, int *startOffset, int *endOffset) const
{
    *startOffset = positions().unitsBefore(range.begin);
    *endOffset = positions().unitsBefore(range.end);
    return decodedText(view()->lines().text(), range.begin, range.end);
}

QString TextViewAccessible::textAtOffset(int offset, QAccessible::TextBoundaryType type, int *startOffset, int *endOffset) const
{
    return report(rangeAt(byteAt(offset), type), startOffset, endOffset);
}

QString TextViewAccessible::textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int *startOffset, int *endOffset) const
{
    const int begin = rangeAt(byteAt(offset), type).begin;
    if (begin == 0)
        return report({0, 0}, startOffset, endOffset);
    const int before = TextMovement(view()->layouts()).previousCharacter(begin);
    return report(rangeAt(before, type), startOffset, endOffset);
}

QString TextViewAccessible::textAfterOffset(int offset, QAccessible::TextBoundaryType type, int *startOffset, int *endOffset) const
{
    const int end = rangeAt(byteAt(offset), type).end;
    if (end == view()->lines().text().size())
        return report({end, end}, startOffset, endOffset);
    return report(rangeAt(end, type), startOffset, endOffset);
}

int TextViewAccessible::characterCount() const
{
    return positions().units();
}

QRect TextViewAccessible::characterRect(int offset) const
{
    const QRect rect = view()->characterRect(byteAt(offset));
    return {view()->viewport()->mapToGlobal(rect.topLeft()), rect.size()};
}

int TextViewAccessible::offsetAtPoint(const QPoint &point) const
{
    const QPoint inside = view()->viewport()->mapFromGlobal(point);
    if (!view()->viewport()->rect().contains(inside))
        return -1;
    return positions().unitsBefore(view()->placeAt(inside));
}

void TextViewAccessible::scrollToSubstring(int startIndex, int endIndex)
{
    view()->scrollTo({byteAt(startIndex), byteAt(endIndex)});
}

QString TextViewAccessible::attributes(int, int *startOffset, int *endOffset) const
{
    *startOffset = 0;
    *endOffset = characterCount();
    return {};
}
