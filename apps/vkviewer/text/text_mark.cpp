#include "text_mark.h"

#include <algorithm>
#include <cmath>

namespace {

struct MarkRow
{
    TextMark mark;
    int hue;
    MarkLine line;
};

constexpr MarkRow markRows[] = {
    {TextMark::Hit, 50, MarkLine::Frame},
    {TextMark::CurrentHit, 30, MarkLine::ThickFrame},
    {TextMark::Replacement, 280, MarkLine::Underline},
    {TextMark::Changed, 210, MarkLine::DottedUnderline},
    {TextMark::Added, 130, MarkLine::ThickUnderline},
    {TextMark::Removed, 0, MarkLine::DashedFrame},
};

qreal linear(qreal channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

qreal luminance(const QColor &colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

QColor mixed(const QColor &one, const QColor &other, qreal share)
{
    const auto channel = [share](qreal a, qreal b) { return qBound(0.0, a + (b - a) * share, 1.0); };
    return QColor::fromRgbF(channel(one.redF(), other.redF()), channel(one.greenF(), other.greenF()),
                            channel(one.blueF(), other.blueF()));
}

/// Moves \a colour towards \a target until the contrast to \a against is at least \a wanted.
QColor withContrast(const QColor &colour, const QColor &target, const QColor &against, qreal wanted)
{
    constexpr int steps = 20;
    for (int step = 0; step < steps; ++step) {
        QColor tried = mixed(colour, target, qreal(step) / steps);
        if (contrast(tried, against) >= wanted)
            return tried;
    }
    return target;
}

} // namespace

qreal contrast(const QColor &one, const QColor &other)
{
    const qreal a = luminance(one), b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

MarkStyle markStyle(TextMark mark, const QPalette &palette)
{
    constexpr qreal textContrast = 4.5, lineContrast = 3;
    constexpr qreal strongest = 0.5; // more colour would be louder than the text
    const MarkRow &row = *std::find_if(std::begin(markRows), std::end(markRows),
                                       [mark](const MarkRow &candidate) { return candidate.mark == mark; });
    const QColor &base = palette.color(QPalette::Base), &text = palette.color(QPalette::Text);
    const QColor pure = QColor::fromHsv(row.hue, 255, 230);
    MarkStyle style;
    style.background = withContrast(mixed(base, pure, strongest), base, text, textContrast);
    style.lineColour = row.line == MarkLine::ThickFrame ? text : withContrast(pure, text, base, lineContrast);
    style.line = row.line;
    return style;
}
