#include "page_layout.h"

#include "neutral_text.h"

#include <QtCore/QTextBoundaryFinder>
#include <algorithm>

namespace {

constexpr int tabWidth = 8;

bool isPlain(char byte)
{
    return byte >= ' ' && byte <= '~';
}

/// The offset of what ends the line, which is "\n", "\r\n" or "\r".
int lineEndAfter(const QByteArray &text, int begin)
{
    const auto isLineEnd = [](char byte) { return byte == '\n' || byte == '\r'; };
    return int(std::find_if(text.begin() + begin, text.end(), isLineEnd) - text.begin());
}

int nextLine(const QByteArray &text, int end)
{
    const bool isPair = end + 1 < text.size() && text.at(end) == '\r' && text.at(end + 1) == '\n';
    return end + (isPair ? 2 : 1);
}

QString withoutTabs(const QString &line)
{
    QString text;
    for (const QChar character : line) {
        if (character == QLatin1Char('\t'))
            text += QString(tabWidth - text.size() % tabWidth, QLatin1Char(' '));
        else
            text += character;
    }
    return text;
}

} // namespace

QString printedLine(const QByteArray &utf8)
{
    if (std::all_of(utf8.begin(), utf8.end(), isPlain))
        return QString::fromLatin1(utf8);
    return velkor::Reports::terminalText(withoutTabs(QString::fromUtf8(utf8)));
}

PageLayout::PageLayout(const QByteArray &utf8, qreal pageWidth, int rowsOfPage, qreal cell, const Width &widthOf)
    : m_text(utf8), m_pageWidth(pageWidth), m_rowsOfPage(std::max(rowsOfPage, 1)), m_columns(std::max(int(pageWidth / cell), 1))
{
    for (int begin = 0; begin < m_text.size();) {
        const int end = lineEndAfter(m_text, begin);
        addLine(begin, end, widthOf);
        begin = nextLine(m_text, end);
    }
}

void PageLayout::addLine(int begin, int end, const Width &widthOf)
{
    const QByteArray bytes = m_text.mid(begin, end - begin);
    const bool isSimple = std::all_of(bytes.begin(), bytes.end(), isPlain);
    const QString line = isSimple ? QString() : printedLine(bytes);
    const int length = isSimple ? bytes.size() : line.size();
    int at = 0;
    do {
        const int next = isSimple ? std::min(at + m_columns, length) : fittingEnd(line, at, widthOf);
        m_pieces.push_back({begin, at, next});
        at = next;
    } while (at < length);
}

/// The longest piece that fits, at least one character. Characters that belong together are not separated.
int PageLayout::fittingEnd(const QString &line, int begin, const Width &widthOf) const
{
    const int most = std::min(line.size() - begin, 4 * m_columns); // of characters without width
    QString piece = line.mid(begin, most);
    if (most <= m_columns && widthOf(piece) <= m_pageWidth)
        return begin + most;
    int low = 0; // fits
    int high = most + 1;
    while (high - low > 1) {
        const int middle = (low + high) / 2;
        (widthOf(piece.left(middle)) <= m_pageWidth ? low : high) = middle;
    }
    QTextBoundaryFinder boundary(QTextBoundaryFinder::Grapheme, piece);
    boundary.setPosition(low);
    if (low < most && !boundary.isAtBoundary() && boundary.toPreviousBoundary() > 0)
        low = boundary.position();
    if (low > 0)
        return begin + low;
    boundary.toStart();
    return begin + std::max(boundary.toNextBoundary(), 1);
}

int PageLayout::pageCount() const
{
    return std::max((int(m_pieces.size()) + m_rowsOfPage - 1) / m_rowsOfPage, 1);
}

QString PageLayout::lineAt(int begin) const
{
    return printedLine(m_text.mid(begin, lineEndAfter(m_text, begin) - begin));
}

std::vector<PageLayout::Row> PageLayout::page(int index) const
{
    std::vector<Row> rows;
    const int first = index * m_rowsOfPage;
    const int last = std::min(first + m_rowsOfPage, int(m_pieces.size()));
    int lineOfText = -1;
    QString text;
    for (int i = first; i < last; ++i) {
        const Piece &piece = m_pieces[std::size_t(i)];
        if (piece.line != lineOfText)
            text = lineAt(piece.line);
        lineOfText = piece.line;
        rows.push_back({text.mid(piece.begin, piece.end - piece.begin), piece.begin > 0});
    }
    return rows;
}
