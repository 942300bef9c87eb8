// One row of a text, ready to be drawn.
#pragma once

#include "text_range.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtGui/QTextLayout>
#include <vector>

/// Part of a row, from left to right.
struct RowSpan
{
    qreal left = 0;
    qreal right = 0;
};

/// Positions of QTextLayout are UTF-16 units of the shown text; callers use bytes of the text. What cannot be shown, or
/// would change the order or the number of the lines, is shown as a sign, a letter in a box: control characters and directional
/// overrides.
class RowLayout
{
public:
    RowLayout(const QByteArray &text, TextRange row, const QFont &font);

    TextRange range() const { return m_row; }
    qreal width() const { return m_width; }
    const QString &shownText() const { return m_shown; }

    /// The horizontal place of the caret before \a offset.
    qreal xOf(int offset) const;
    /// The place of the caret that is nearest to \a x.
    int offsetAt(qreal x) const;
    /// The character that covers \a x; the end of the row if there is none.
    int characterAtX(qreal x) const;

    /// The places of the caret next to \a offset. An accent and its letter have one place.
    int nextPlace(int offset, QTextLayout::CursorMode mode = QTextLayout::SkipCharacters) const;
    int previousPlace(int offset, QTextLayout::CursorMode mode = QTextLayout::SkipCharacters) const;
    /// The word, or the blanks, that include \a offset.
    TextRange wordAt(int offset) const;

    /// Where a range of bytes is. In a row with text from right to left these can be several.
    std::vector<RowSpan> spansOf(TextRange range) const;
    /// The places of the signs between two places.
    std::vector<RowSpan> signSpans(qreal left, qreal right) const;
    /// Which bytes are between two places; the whole row if it has text from right to left.
    TextRange visibleRange(qreal left, qreal right) const;

    /// Draws the text with the pen of \a painter, and \a selected with \a selectedColour.
    void draw(QPainter &painter, QPointF topLeft, qreal ascent, TextRange selected, const QColor &selectedColour) const;

private:
    void decode(const QByteArray &text);
    int unitOf(int offset) const;
    int offsetOf(int unit) const;
    qreal xOfUnit(int unit) const;
    QTextLine line() const { return m_layout.lineAt(0); }

    TextRange m_row;
    QString m_shown;
    std::vector<quint16> m_offsets; // of each unit, from the begin of the row; empty if they are equal
    std::vector<quint16> m_signs;   // units
    QTextLayout m_layout;
    qreal m_width = 0;
    qreal m_columnWidth = 0; // of rows with equally wide characters, otherwise 0
    bool m_hasRightToLeft = false;
};
