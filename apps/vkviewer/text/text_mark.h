// Kinds of marks in a text, and how they look.
#pragma once

#include <QtGui/QColor>
#include <QtGui/QPalette>

enum class TextMark {
    Hit,
    CurrentHit,
    Replacement,
    Changed,
    Added,
    Removed,
};

/// In the order in which they are drawn: a later one covers an earlier one.
constexpr TextMark textMarks[] = {TextMark::Changed, TextMark::Added, TextMark::Removed,
                                  TextMark::Replacement, TextMark::Hit, TextMark::CurrentHit};

/// Each kind has another line, so that nobody needs to distinguish colours.
enum class MarkLine {
    Frame,
    ThickFrame,
    DashedFrame,
    Underline,
    DottedUnderline,
    ThickUnderline,
};

struct MarkStyle
{
    QColor background;
    QColor lineColour;
    MarkLine line = MarkLine::Frame;
};

/// Text in the text colour of \a palette has a contrast of at least 4.5 on the background, and lines one of at least 3 on
/// the base, if the palette's own text has.
MarkStyle markStyle(TextMark mark, const QPalette &palette);

/// The ratio of the luminances of two colours, from 1 to 21, as the Web Content Accessibility Guidelines define it.
qreal contrast(const QColor &one, const QColor &other);
