// vkbench_time: the times of vkbench's subjects by Google Benchmark. They are for
// orientation; the counts are what is compared. Options are Google Benchmark's.

#include "baselines.h"
#include "figures.h"

#include <QtWidgets/QApplication>
#include <benchmark/benchmark.h>

namespace {

void registerSide(const bench::Subject &subject, const char *side, const std::function<void()> &run)
{
    benchmark::RegisterBenchmark((subject.name + '|' + side).constData(), [run](benchmark::State &state) {
        for (auto _ : state)
            run();
    })->Unit(benchmark::kMicrosecond);
}

/// Writes the processor's time of each repetition as a figure; of several the
/// reader takes the least.
class FigureReporter : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context &) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            const QList<QByteArray> name = QByteArray::fromStdString(run.run_name.function_name).split('|');
            if (run.run_type == Run::RT_Iteration && !run.error_occurred)
                bench::writeFigure(name.value(0), name.value(1), "warm", "ns",
                                   1e9 * run.cpu_accumulated_time / double(run.iterations));
        }
    }
};

} // namespace

int main(int argc, char *argv[])
{
    benchmark::Initialize(&argc, argv);
    const QApplication application(argc, argv);
    const bool withOpenGL = QCoreApplication::arguments().contains(QStringLiteral("--opengl"));
    const auto subjects = bench::makeSubjects(bench::recordSections(withOpenGL), withOpenGL);
    for (const bench::Subject &subject : subjects) {
        registerSide(subject, "library", [&subject] { bench::keep(subject.library()); });
        registerSide(subject, "baseline", subject.baseline);
    }
    FigureReporter reporter;
    return benchmark::RunSpecifiedBenchmarks(&reporter) > 0 ? 0 : 1;
}
