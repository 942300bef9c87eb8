#include "costs.h"

#include "allocations.h"
#include "simulated_windows.h"

#include <QtCore/QElapsedTimer>
#include <dlfcn.h>
#include <valgrind/callgrind.h>

namespace bench {
namespace {

Allocations &allocations()
{
    static Allocations notCounted;
    static const auto counted = reinterpret_cast<Allocations *(*)()>(dlsym(RTLD_DEFAULT, "bench_allocations"));
    return counted ? *counted() : notCounted;
}

} // namespace

Cost measureCost(const QByteArray &subject, const Side &side, const QByteArray &state)
{
    const QByteArray trigger = subject + '|' + side.name + '|' + state;
    Allocations &now = allocations();
    now.peak = now.peakMoved = now.live;
    const Allocations before = now;
    const std::size_t callsBefore = simulated::callCount();
    QElapsedTimer timer;
    timer.start();
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    side.run();
    CALLGRIND_DUMP_STATS_AT(trigger.constData());
    CALLGRIND_STOP_INSTRUMENTATION;
    const qint64 nanoseconds = timer.nsecsElapsed();
    return {double(simulated::callCount() - callsBefore), double(nanoseconds), double(now.count - before.count),
            double(now.peak - before.live), double(now.peakMoved - before.live)};
}

void writeCost(const QByteArray &subject, const Side &side, const QByteArray &state)
{
    const Cost cost = measureCost(subject, side, state);
    writeFigure(subject, side.name, state, "calls", cost.calls);
    writeFigure(subject, side.name, state, "allocations", cost.allocations);
    writeFigure(subject, side.name, state, "peak", cost.peak);
    writeFigure(subject, side.name, state, "peak-moved", cost.peakMoved);
}

} // namespace bench
