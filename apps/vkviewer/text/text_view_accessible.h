// TextView for screen readers and magnifiers.
#pragma once

#include "text_positions.h"
#include "text_range.h"

#include <QtWidgets/QAccessibleWidget>

class TextView;

/// The text with its line ends. Offsets are UTF-16 units, as QAccessibleTextInterface defines them. "Line" is a row of
/// the view, "paragraph" a line of the text.
class TextViewAccessible : public QAccessibleWidget, public QAccessibleTextInterface
{
public:
    explicit TextViewAccessible(TextView *view);

    /// Lets Qt make these objects. Can be called several times.
    static void install();
    // What changed in a view. Does nothing if nobody reads the screen.
    static void textChanged(TextView *view);
    static void caretMoved(TextView *view);
    static void selectionChanged(TextView *view);
    static void scrolled(TextView *view);

    void *interface_cast(QAccessible::InterfaceType type) override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text type) const override;

    void selection(int selectionIndex, int *startOffset, int *endOffset) const override;
    int selectionCount() const override;
    void addSelection(int startOffset, int endOffset) override;
    void removeSelection(int selectionIndex) override;
    void setSelection(int selectionIndex, int startOffset, int endOffset) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;
    QString text(int startOffset, int endOffset) const override;
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int *startOffset, int *endOffset) const override;
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType type, int *startOffset, int *endOffset) const override;
    QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int *startOffset, int *endOffset) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint &point) const override;
    void scrollToSubstring(int startIndex, int endIndex) override;
    QString attributes(int offset, int *startOffset, int *endOffset) const override;

private:
    TextView *view() const;
    const TextPositions &positions() const;
    int byteAt(int unit) const;
    TextRange rangeAt(int byte, QAccessible::TextBoundaryType type) const;
    QString report(TextRange range, int *startOffset, int *endOffset) const;

    mutable TextPositions m_positions;
};
