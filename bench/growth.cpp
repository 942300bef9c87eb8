#include "growth.h"

#include "allocations.h"
#include "baselines.h"
#include "figures.h"
#include "grown_machine.h"
#include "instructions.h"
#include "machine_loader.h"
#include "simulated_windows.h"
#include "vkSystemInfo.h"

#include <cmath>

namespace bench {
namespace {

struct Cost
{
    double items = 0;
    double calls = 0;
    double textBytes = 0;
    double allocations = 0;
    double peak = 0;
    double peakMoved = 0;
};

bool install(const QString &folder, const GrowthKind &kind, std::size_t factor, double &items)
{
    QString error;
    auto machine = machine::loadMachine(folder, error);
    if (!machine) {
        qCritical("%s", qPrintable(error));
        return false;
    }
    items = double(kind.grow(*machine, factor));
    simulated::install(std::move(*machine));
    return true;
}

Cost measure(const std::function<void()> &run)
{
    Cost cost;
    const std::size_t callsBefore = simulated::callCount();
    if (const Allocations *counted = allocations()) {
        startPeak();
        const Allocations before = *counted;
        run();
        const Allocations behind = *counted;
        cost.allocations = double(behind.count - before.count);
        cost.peak = double(behind.peak - before.live);
        cost.peakMoved = double(behind.peakMoved - before.live);
    } else {
        run();
    }
    cost.calls = double(simulated::callCount() - callsBefore);
    return cost;
}

bool measureKind(const QString &folder, const GrowthKind &kind, std::size_t factor, Cost &cost)
{
    double items = 0;
    if (!install(folder, kind, factor, items))
        return false;
    const QString text = velkor::SystemInfo::allInfos(true); // what is made once is made
    cost = measure([] { keep(velkor::SystemInfo::allInfos(true)); });
    cost.items = items;
    cost.textBytes = 2 * text.size();
    return true;
}

/// How much an item costs between the first and the second measurement.
double slope(const Cost &first, const Cost &second, double Cost::*unit)
{
    return (second.*unit - first.*unit) / (second.items - first.items);
}

} // namespace

bool measureGrowth(const QString &folder, std::size_t factor, const QString &onlyKind)
{
    for (const GrowthKind &kind : growthKinds()) {
        if (!onlyKind.isEmpty() && onlyKind != QLatin1String(kind.name))
            continue;
        Cost cost;
        if (!measureKind(folder, kind, factor, cost))
            return false;
        const QByteArray state = 'x' + QByteArray::number(qulonglong(factor));
        writeFigure(kind.name, "library", state, "items", cost.items);
        writeFigure(kind.name, "library", state, "calls", cost.calls);
        writeFigure(kind.name, "library", state, "text", cost.textBytes);
        if (allocations()) {
            writeFigure(kind.name, "library", state, "allocations", cost.allocations);
            writeFigure(kind.name, "library", state, "peak", cost.peak);
            writeFigure(kind.name, "library", state, "peak-moved", cost.peakMoved);
        }
        const Subject subject = makeSubjects(recordSections(false), false).front();
        subject.baseline();
        const Cost baseline = measure(subject.baseline);
        if (allocations())
            writeFigure(kind.name, "baseline", state, "peak", baseline.peak);
        countInstructions(QByteArray(kind.name) + "|library|" + state, [] { keep(velkor::SystemInfo::allInfos(true)); });
        countInstructions(QByteArray(kind.name) + "|baseline|" + state, subject.baseline);
    }
    return true;
}

QStringList growthProblems(const QString &folder)
{
    constexpr double tolerance = 0.1;
    QStringList problems;
    for (const GrowthKind &kind : growthKinds()) {
        Cost once;
        Cost tenTimes;
        Cost hundredTimes;
        if (!measureKind(folder, kind, 1, once) || !measureKind(folder, kind, 10, tenTimes)
            || !measureKind(folder, kind, 100, hundredTimes))
            return {QStringLiteral("no machine")};
        for (const auto unit : {&Cost::calls, &Cost::allocations}) {
            const double early = slope(once, tenTimes, unit);
            const double late = slope(tenTimes, hundredTimes, unit);
            if (std::abs(late - early) > tolerance * early)
                problems += QStringLiteral("%1: an item costs %2 %3 between 1 and 10 times the machine, %4 up to 100 times")
                                .arg(QLatin1String(kind.name))
                                .arg(early)
                                .arg(unit == &Cost::calls ? QLatin1String("calls") : QLatin1String("allocations"))
                                .arg(late);
        }
    }
    return problems;
}

} // namespace bench
