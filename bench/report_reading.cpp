#include "report_reading.h"

#include "costs.h"
#include "grown_machine.h"
#include "machine_loader.h"
#include "simulated_windows.h"
#include "vkReports.h"
#include "vkSystemInfo.h"

namespace bench {
namespace {

using namespace velkor;

/// The report without OpenGL of a grown machine, in a process with as many more variables.
QString grownReport(std::size_t factor)
{
    constexpr std::size_t variables = 40; // of a usual session
    for (std::size_t i = 0; i < variables * factor; ++i) {
        const QByteArray number = QByteArray::number(qulonglong(i));
        qputenv("BENCH_VARIABLE_" + number, "C:\\Program Files\\Vendor " + number + "\\bin;C:\\Tools\\" + number);
    }
    QString error;
    auto machine = machine::loadMachine(QStringLiteral(WORKSTATION), error);
    if (!machine)
        qFatal("%s", qPrintable(error));
    growthKinds.back().grow(*machine, factor);
    simulated::install(std::move(*machine));
    return SystemInfo::allInfos(true);
}

/// The report after an update: other versions and dates.
QByteArray updated(const QByteArray &text)
{
    QByteArray newer = text;
    newer.replace("10.0.", "10.1.");
    newer.replace("2021", "2022");
    return newer;
}

void writeSide(const Side &side, const QByteArray &state, int runs)
{
    side.run();
    const Cost cost = measureCost("reports", side, state);
    if (cost.allocations > 0) { // they are counted
        writeFigure("reports", side.name, state, "allocations", cost.allocations);
        writeFigure("reports", side.name, state, "peak", cost.peak);
    }
    for (int i = 0; i < runs; ++i)
        writeFigure("reports", side.name, state, "ns", measureCost("reports", side, "time").nanoseconds);
}

} // namespace

void writeReportReading(std::size_t factor, int runs)
{
    const QString report = grownReport(factor);
    const QByteArray text = report.toUtf8();
    const Reports::Document older = Reports::read(text);
    const Reports::Document newer = Reports::read(updated(text));
    const std::vector<Side> sides = {
        {"split", [&] { const QStringList lines = report.split(QLatin1Char('\n')); Q_UNUSED(lines) }},
        {"read", [&] { Reports::read(text); }},
        {"compare", [&] { Reports::compare(older, newer); }},
        {"redact", [&] { Reports::redact({older}); }},
    };
    const QByteArray state = "read-x" + QByteArray::number(qulonglong(factor));
    writeFigure("reports", "text", state, "bytes", text.size());
    writeFigure("reports", "text", state, "facts", double(older.facts().size()));
    writeFigure("reports", "text", state, "changes", double(Reports::compare(older, newer).changes.size()));
    for (const Side &side : sides)
        writeSide(side, state, runs);
}

} // namespace bench
