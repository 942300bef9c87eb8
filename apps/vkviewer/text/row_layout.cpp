#include "row_layout.h"

#include "utf8_character.h"

#include <QtCore/QTextBoundaryFinder>
#include <QtGui/QFontInfo>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>
#include <algorithm>

namespace {

constexpr int tabColumns = 8;

/// Line and paragraph separators, which would break the row, and what changes the direction of the text after it.
bool isHiddenControl(uint code)
{
    return (code >= 0x7F && code < 0xA0) || code == 0x2028 || code == 0x2029 || (code >= 0x202A && code <= 0x202E)
        || (code >= 0x2066 && code <= 0x2069);
}

/// The letter in the sign of a control character, as terminals write it after "^"; "?" for others.
uint shownCharacter(uint code)
{
    if (code < 0x20 && code != '\t')
        return '@' + code;
    return isHiddenControl(code) ? '?' : code;
}

bool isRightToLeft(uint code)
{
    const QChar::Direction direction = QChar::direction(code);
    return direction == QChar::DirR || direction == QChar::DirAL;
}

QTextOption rowOption(const QFont &font)
{
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setTextDirection(Qt::LeftToRight); // labels stay at the left
    option.setFlags(QTextOption::IncludeTrailingSpaces);
    option.setTabStopDistance(tabColumns * QFontMetricsF(font).horizontalAdvance(QLatin1Char(' ')));
    return option;
}

} // namespace

RowLayout::RowLayout(const QByteArray &text, TextRange row, const QFont &font)
    : m_row(row)
{
    decode(text);
    m_layout.setText(m_shown);
    m_layout.setFont(font);
    m_layout.setTextOption(rowOption(font));
    m_layout.setCacheEnabled(true);
    m_layout.beginLayout();
    m_layout.createLine();
    m_layout.endLayout();
    m_width = m_layout.lineCount() > 0 ? line().naturalTextWidth() : 0;

    const auto isPlain = [](QChar unit) { return unit >= QLatin1Char(' ') && unit <= QLatin1Char('~'); };
    if (m_shown.isEmpty() || !std::all_of(m_shown.cbegin(), m_shown.cend(), isPlain) || !QFontInfo(font).fixedPitch())
        return;
    const qreal column = xOfUnit(1);
    if (qAbs(column * m_shown.size() - m_width) < 0.5)
        m_columnWidth = column;
}

void RowLayout::decode(const QByteArray &text)
{
    m_shown.reserve(m_row.end - m_row.begin);
    for (int offset = m_row.begin; offset < m_row.end;) {
        const Utf8Character character = characterAt(text.constData(), m_row.end, offset);
        const uint shown = shownCharacter(character.code);
        const int units = QChar::requiresSurrogates(shown) ? 2 : 1;
        if (units != character.length && m_offsets.empty()) {
            for (int i = 0; i < m_shown.size(); ++i)
                m_offsets.push_back(quint16(i));
        }
        if (!m_offsets.empty() || units != character.length)
            m_offsets.insert(m_offsets.end(), std::size_t(units), quint16(offset - m_row.begin));
        if (shown != character.code)
            m_signs.push_back(quint16(m_shown.size()));
        m_hasRightToLeft = m_hasRightToLeft || isRightToLeft(shown);
        if (units == 2) {
            m_shown += QChar(QChar::highSurrogate(shown));
            m_shown += QChar(QChar::lowSurrogate(shown));
        } else {
            m_shown += QChar(ushort(shown));
        }
        offset += character.length;
    }
    if (!m_offsets.empty())
        m_offsets.push_back(quint16(m_row.end - m_row.begin));
}

int RowLayout::unitOf(int offset) const
{
    const int distance = qBound(0, offset - m_row.begin, m_row.end - m_row.begin);
    if (m_offsets.empty())
        return distance;
    return int(std::lower_bound(m_offsets.begin(), m_offsets.end(), distance) - m_offsets.begin());
}

int RowLayout::offsetOf(int unit) const
{
    return m_row.begin + (m_offsets.empty() ? unit : m_offsets[std::size_t(unit)]);
}

qreal RowLayout::xOfUnit(int unit) const
{
    if (m_columnWidth > 0)
        return unit * m_columnWidth;
    return m_layout.lineCount() > 0 ? line().cursorToX(unit) : 0;
}

qreal RowLayout::xOf(int offset) const
{
    return xOfUnit(unitOf(offset));
}

int RowLayout::offsetAt(qreal x) const
{
    if (m_layout.lineCount() == 0)
        return m_row.begin;
    return offsetOf(line().xToCursor(x));
}

int RowLayout::characterAtX(qreal x) const
{
    if (m_layout.lineCount() == 0 || x < 0 || x >= m_width)
        return m_row.end;
    return offsetOf(line().xToCursor(x, QTextLine::CursorOnCharacter));
}

int RowLayout::nextPlace(int offset, QTextLayout::CursorMode mode) const
{
    return offsetOf(m_layout.nextCursorPosition(unitOf(offset), mode));
}

int RowLayout::previousPlace(int offset, QTextLayout::CursorMode mode) const
{
    return offsetOf(m_layout.previousCursorPosition(unitOf(offset), mode));
}

TextRange RowLayout::wordAt(int offset) const
{
    const int size = m_shown.size();
    if (size == 0)
        return m_row;
    const int unit = std::min(unitOf(offset), size - 1);
    int begin = unit, end = unit + 1;
    if (m_shown.at(unit).isSpace()) {
        while (begin > 0 && m_shown.at(begin - 1).isSpace())
            --begin;
        while (end < size && m_shown.at(end).isSpace())
            ++end;
    } else {
        QTextBoundaryFinder finder(QTextBoundaryFinder::Word, m_shown);
        finder.setPosition(unit);
        begin = finder.isAtBoundary() ? unit : std::max(0, int(finder.toPreviousBoundary()));
        finder.setPosition(unit);
        end = int(finder.toNextBoundary());
        end = end < 0 ? size : end;
    }
    return {offsetOf(begin), offsetOf(end)};
}

std::vector<RowSpan> RowLayout::spansOf(TextRange range) const
{
    const int begin = unitOf(range.begin), end = unitOf(range.end);
    if (begin >= end)
        return {};
    if (!m_hasRightToLeft)
        return {{xOfUnit(begin), xOfUnit(end)}};
    std::vector<RowSpan> spans;
    for (int unit = begin; unit < end;) {
        int next = m_layout.nextCursorPosition(unit);
        next = next > unit ? next : end;
        const qreal leading = line().cursorToX(unit, QTextLine::Leading);
        const qreal trailing = line().cursorToX(unit, QTextLine::Trailing);
        const RowSpan span {std::min(leading, trailing), std::max(leading, trailing)};
        if (!spans.empty() && qFuzzyCompare(1 + spans.back().right, 1 + span.left))
            spans.back().right = span.right;
        else if (!spans.empty() && qFuzzyCompare(1 + spans.back().left, 1 + span.right))
            spans.back().left = span.left;
        else
            spans.push_back(span);
        unit = next;
    }
    return spans;
}

std::vector<RowSpan> RowLayout::signSpans(qreal left, qreal right) const
{
    std::vector<RowSpan> spans;
    const TextRange visible = visibleRange(left, right);
    auto sign = std::lower_bound(m_signs.begin(), m_signs.end(), unitOf(visible.begin));
    for (; sign != m_signs.end() && *sign < unitOf(visible.end); ++sign) {
        const int offset = offsetOf(*sign);
        for (const RowSpan span : spansOf({offset, offsetOf(*sign + 1)}))
            spans.push_back(span);
    }
    return spans;
}

TextRange RowLayout::visibleRange(qreal left, qreal right) const
{
    if (m_hasRightToLeft || m_layout.lineCount() == 0)
        return m_row;
    return {offsetOf(line().xToCursor(left, QTextLine::CursorOnCharacter)),
            nextPlace(offsetOf(line().xToCursor(right, QTextLine::CursorOnCharacter)))};
}

void RowLayout::draw(QPainter &painter, QPointF topLeft, qreal ascent, TextRange selected, const QColor &selectedColour) const
{
    if (m_layout.lineCount() == 0)
        return;
    QVector<QTextLayout::FormatRange> selections;
    const int begin = unitOf(selected.begin), end = unitOf(selected.end);
    if (begin < end) {
        QTextLayout::FormatRange range;
        range.start = begin;
        range.length = end - begin;
        range.format.setForeground(selectedColour);
        selections.append(range);
    }
    m_layout.draw(&painter, topLeft + QPointF(0, ascent - line().ascent()), selections);
}
