// What happened to a text on its way: line ends, mail quotes, wrapped lines.
#pragma once

#include <QtCore/QByteArray>

namespace velkor {
namespace Reports {

struct Transport
{
    QByteArray lineEnd = QByteArrayLiteral("\n"); ///< of most lines
    bool carriageReturns = false;                 ///< before line feeds they belong to the line end
    bool doubleSpaced = false;                    ///< every second line is empty: each line end became two
    QByteArray linePrefix;                        ///< the mail quote at the beginning of lines
    int wrapColumn = 0;                           ///< the length at which lines were broken; 0 if they were not
};

/// The number of characters of UTF-8, without carriage returns at the end.
int lengthOf(const char *begin, const char *end);

Transport detectTransport(const QByteArray &text);

} // namespace Reports
} // namespace velkor
