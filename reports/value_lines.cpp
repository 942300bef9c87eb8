#include "value_lines.h"

#include <algorithm>
#include <cstring>

namespace velkor {
namespace Reports {

std::vector<ValueLine> valueLines(const DocumentData &data, int begin, int end)
{
    std::vector<ValueLine> lines;
    const char last = data.lineEnd[data.lineEnd.size() - 1];
    const QByteArray &prefix = data.linePrefix;
    for (;;) {
        const int found = data.text.indexOf(last, begin);
        if (found < 0 || found >= end) {
            lines.push_back({begin, end});
            return lines;
        }
        int lineEnd = found;
        while (data.carriageReturns && lineEnd > begin && data.text[lineEnd - 1] == '\r')
            --lineEnd;
        if (!data.doubleSpaced || lineEnd > begin)
            lines.push_back({begin, lineEnd});
        begin = found + 1;
        if (prefix.isEmpty())
            continue;
        if (std::strncmp(data.text.constData() + begin, prefix.constData(), std::size_t(prefix.size())) == 0)
            begin = std::min(begin + prefix.size(), end);
        else if (prefix.endsWith(' ') && data.text.mid(begin, prefix.size() - 1) == prefix.left(prefix.size() - 1))
            begin = std::min(begin + prefix.size() - 1, end);
    }
}

} // namespace Reports
} // namespace velkor
