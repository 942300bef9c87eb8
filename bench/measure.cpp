#include "measure.h"

#include "allocations.h"
#include "figures.h"
#include "instructions.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QStringList>
#include <algorithm>

namespace bench {
namespace {

std::vector<std::pair<QByteArray, std::function<void()>>> sides(const Subject &subject)
{
    return {{"library", [&subject] { keep(subject.library()); }}, {"baseline", subject.baseline}};
}

void measureOnce(const Subject &subject, const QByteArray &side, const QByteArray &state, const std::function<void()> &run)
{
    if (const Allocations *counted = allocations()) {
        startPeak();
        const Allocations before = *counted;
        run();
        const Allocations behind = *counted;
        writeFigure(subject.name, side, state, "allocations", double(behind.count - before.count));
        writeFigure(subject.name, side, state, "peak", double(behind.peak - before.live));
        writeFigure(subject.name, side, state, "peak-moved", double(behind.peakMoved - before.live));
    }
    if (countsInstructions())
        countInstructions(subject.name + '|' + side + '|' + state, run);
}

} // namespace

void measureWarm(const std::vector<Subject> &subjects)
{
    for (const Subject &subject : subjects) {
        writeFigure(subject.name, "library", "warm", "calls", double(subject.calls));
        writeFigure(subject.name, "library", "warm", "text", 2 * subject.library().size());
        for (const auto &[side, run] : sides(subject)) {
            run();
            measureOnce(subject, side, "warm", run);
        }
    }
}

void measureCold(const std::vector<Subject> &subjects, const QByteArray &name, const QByteArray &side)
{
    for (const Subject &subject : subjects) {
        if (subject.name != name)
            continue;
        for (const auto &[sideName, run] : sides(subject)) {
            if (sideName != side)
                continue;
            QElapsedTimer timer;
            timer.start();
            if (allocations() || countsInstructions())
                measureOnce(subject, side, "cold", run);
            else
                run();
            writeFigure(name, side, "cold", "ns", double(timer.nsecsElapsed()));
        }
    }
}

void measureTime(const std::vector<Subject> &subjects, int runs)
{
    for (const Subject &subject : subjects) {
        const auto both = sides(subject);
        std::vector<qint64> times[2];
        for (int i = 0; i < runs; ++i) {
            for (int turn = 0; turn < 2; ++turn) {
                const std::size_t side = std::size_t((i + turn) % 2); // neither is always the first
                QElapsedTimer timer;
                timer.start();
                both[side].second();
                times[side].push_back(timer.nsecsElapsed());
            }
        }
        for (std::size_t side = 0; side < 2; ++side) {
            std::sort(times[side].begin(), times[side].end());
            writeFigure(subject.name, both[side].first, "warm", "ns", double(times[side].front()));
            writeFigure(subject.name, both[side].first, "warm", "ns-median", double(times[side][times[side].size() / 2]));
        }
        writeFigure(subject.name, "library", "warm", "calls", double(subject.calls));
    }
}

QStringList baselineProblems(const std::vector<Subject> &subjects)
{
    QStringList problems;
    for (const Subject &subject : subjects) {
        const std::vector<Call> library = recorded([&] { keep(subject.library()); });
        const std::vector<Call> baseline = recorded(subject.baseline);
        const QString different = difference(library, baseline);
        if (!different.isEmpty())
            problems += QString::fromLatin1(subject.name) + QStringLiteral(": library and baseline differ in ") + different;
        if (library.size() != subject.calls)
            problems += QString::fromLatin1(subject.name) + QStringLiteral(": its sections make other calls alone");
    }
    return problems;
}

} // namespace bench
