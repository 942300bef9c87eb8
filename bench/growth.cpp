#include "growth.h"

#include "baselines.h"
#include "costs.h"
#include "grown_machine.h"
#include "machine_loader.h"
#include "vkSystemInfo.h"

#include <cmath>

namespace bench {
namespace {

const Side library = {"library", [] { velkor::SystemInfo::allInfos(true); }};

/// Installs the machine, runs a report, and returns the number of items.
std::size_t install(const GrowthKind &kind, std::size_t factor)
{
    QString error;
    auto machine = machine::loadMachine(QStringLiteral(WORKSTATION), error);
    if (!machine)
        qFatal("%s", qPrintable(error));
    const std::size_t items = kind.grow(*machine, factor);
    simulated::install(std::move(*machine));
    library.run();
    return items;
}

struct Point
{
    double items;
    Cost cost;
};

/// The cost of an item between two sizes of the machine.
double slope(const Point &first, const Point &second, double Cost::*unit)
{
    return (second.cost.*unit - first.cost.*unit) / (second.items - first.items);
}

} // namespace

void writeGrowth(std::size_t factor)
{
    const Subject report = subjects(false, {QStringLiteral("allInfos(true)")}).front();
    const QByteArray state = 'x' + QByteArray::number(qulonglong(factor));
    for (const GrowthKind &kind : growthKinds) {
        const std::size_t items = install(kind, factor);
        writeFigure(kind.name, "library", state, "items", double(items));
        writeFigure(kind.name, "library", state, "text", 2 * report.text().size());
        writeCost(kind.name, library, state);
        const Side baseline = makeBaseline(report, recordSections(false));
        baseline.run();
        writeCost(kind.name, baseline, state);
    }
}

QStringList growthProblems()
{
    constexpr double tolerance = 0.1;
    QStringList problems;
    for (const GrowthKind &kind : growthKinds) {
        std::vector<Point> points;
        for (const std::size_t factor : {1, 10, 100}) {
            const std::size_t items = install(kind, factor);
            points.push_back({double(items), measureCost(kind.name, library, "growth")});
        }
        for (const auto unit : {&Cost::calls, &Cost::allocations}) {
            const double early = slope(points[0], points[1], unit);
            const double late = slope(points[1], points[2], unit);
            if (std::abs(late - early) > tolerance * early)
                problems += QStringLiteral("%1: an item costs %2 %3 up to 10 times the machine, %4 up to 100 times")
                                .arg(QLatin1String(kind.name))
                                .arg(early)
                                .arg(unit == &Cost::calls ? QLatin1String("calls") : QLatin1String("allocations"))
                                .arg(late);
        }
    }
    return problems;
}

} // namespace bench
