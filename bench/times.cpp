#include "times.h"

#include <QtCore/QElapsedTimer>
#include <algorithm>
#include <cstdio>

namespace bench {

void writeFigure(const QByteArray &subject, const QByteArray &side, const QByteArray &state, const QByteArray &unit,
                 double value)
{
    for (const QByteArray &field : {subject, side, state, unit})
        std::printf("%s\t", field.constData());
    std::printf("%.0f\n", value);
}

void writeTimes(const QByteArray &subject, const std::vector<Side> &sides, int runs)
{
    std::vector<std::vector<qint64>> times(sides.size());
    for (int i = 0; i < runs; ++i) {
        for (std::size_t turn = 0; turn < sides.size(); ++turn) {
            const std::size_t side = (std::size_t(i) + turn) % sides.size(); // neither side is always the first
            QElapsedTimer timer;
            timer.start();
            sides[side].run();
            times[side].push_back(timer.nsecsElapsed());
        }
    }
    for (std::size_t side = 0; side < sides.size(); ++side) {
        std::sort(times[side].begin(), times[side].end());
        writeFigure(subject, sides[side].name, "warm", "ns", double(times[side].front()));
        writeFigure(subject, sides[side].name, "warm", "ns-median", double(times[side][times[side].size() / 2]));
    }
}

} // namespace bench
