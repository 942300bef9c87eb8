// The rows of a text on pages of paper. Long lines are wrapped.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <functional>
#include <vector>

/// A line for paper: tabs become spaces, other control characters and those that change the direction become visible.
QString printedLine(const QByteArray &utf8);

class PageLayout
{
public:
    struct Row
    {
        QString text;
        bool continues = false; ///< it is not the beginning of its line
    };

    using Width = std::function<qreal(const QString &)>;

    /// \a cell is the width of a printable ASCII character; \a widthOf measures other texts. Both have the unit of \a pageWidth.
    PageLayout(const QByteArray &utf8, qreal pageWidth, int rowsOfPage, qreal cell, const Width &widthOf);

    int pageCount() const;
    /// The rows of a page, from 0. Fast if the pages are visited in order.
    std::vector<Row> page(int index) const;

private:
    struct Piece
    {
        int line;  ///< offset of the line in the text
        int begin; ///< in printedLine()
        int end;
    };

    void addLine(int begin, int end, const Width &widthOf);
    QString lineAt(int begin) const;
    int fittingEnd(const QString &line, int begin, const Width &widthOf) const;

    QByteArray m_text;
    qreal m_pageWidth;
    int m_rowsOfPage;
    int m_columns;
    std::vector<Piece> m_pieces;
};
