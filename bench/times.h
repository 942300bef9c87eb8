// Figures, and how the benchmark takes times.
#pragma once

#include <QtCore/QByteArray>
#include <functional>
#include <vector>

namespace bench {

/// Writes a line to standard output: its arguments, separated by tabs.
void writeFigure(const QByteArray &subject, const QByteArray &side, const QByteArray &state, const QByteArray &unit,
                 double value);

/// The "library", or the "baseline" that it is compared with.
struct Side
{
    QByteArray name;
    std::function<void()> run;
};

/// Runs \a sides alternately, each \a runs times. Writes the shortest and the median time of each.
void writeTimes(const QByteArray &subject, const std::vector<Side> &sides, int runs);

} // namespace bench
