// Natively the simulated Windows keeps a journal of calls, so every subject has a baseline.

#include "baselines.h"
#include "commands.h"
#include "costs.h"
#include "growth.h"
#include "report_reading.h"

#include <cstdio>

namespace bench {
namespace {

Side library(const Subject &subject)
{
    return {"library", [text = subject.text] { text(); }};
}

ExitCode check(const QStringList &, bool withOpenGL)
{
    const Recordings recordings = recordSections(withOpenGL);
    QStringList problems;
    for (const Subject &subject : subjects(withOpenGL)) {
        const Calls calls = recordedCalls(library(subject).run);
        const QString different = difference(calls, recordedCalls(makeBaseline(subject, recordings).run));
        if (!different.isEmpty())
            problems += QLatin1String(subject.name) + QStringLiteral(": ") + different;
    }
    problems += growthProblems();
    for (const QString &problem : problems)
        std::fprintf(stderr, "vkbench: %s\n", qPrintable(problem));
    return problems.isEmpty() ? Done : Failed;
}

ExitCode record(const QStringList &arguments, bool withOpenGL)
{
    if (arguments.size() != 1)
        return WrongUsage;
    return writeRecordings(arguments.front(), recordSections(withOpenGL)) ? Done : Failed;
}

ExitCode warm(const QStringList &, bool withOpenGL)
{
    const Recordings recordings = recordSections(withOpenGL);
    for (const Subject &subject : subjects(withOpenGL)) {
        writeFigure(subject.name, "library", "warm", "text", 2 * subject.text().size());
        for (const Side &side : {library(subject), makeBaseline(subject, recordings)}) {
            side.run();
            writeCost(subject.name, side, "warm");
        }
    }
    return Done;
}

ExitCode cold(const QStringList &arguments, bool withOpenGL)
{
    const std::vector<Subject> chosen = subjects(withOpenGL, arguments.mid(2));
    const Recordings recordings = readRecordings(arguments.value(0));
    if (chosen.size() != 1 || recordings.isEmpty())
        return WrongUsage;
    const Subject &subject = chosen.front();
    simulated::machineInUse(); // reads the description of the machine
    const bool isBaseline = arguments.at(1) == QLatin1String("baseline");
    const Side side = isBaseline ? makeBaseline(subject, recordings) : library(subject);
    writeFigure(subject.name, side.name, "cold", "ns", measureCost(subject.name, side, "cold").nanoseconds);
    return Done;
}

ExitCode time(const QStringList &arguments, bool withOpenGL)
{
    const int runs = arguments.value(0).toInt();
    const std::vector<Subject> chosen = subjects(withOpenGL, arguments.mid(1));
    if (runs <= 0 || chosen.empty())
        return WrongUsage;
    const Recordings recordings = recordSections(withOpenGL);
    for (const Subject &subject : chosen) {
        const Cost first = measureCost(subject.name, library(subject), "warm");
        writeFigure(subject.name, "library", "warm", "calls", first.calls);
        writeTimes(subject.name, {library(subject), makeBaseline(subject, recordings)}, runs);
    }
    return Done;
}

ExitCode growth(const QStringList &arguments, bool)
{
    const uint factor = arguments.value(0).toUInt();
    if (factor == 0)
        return WrongUsage;
    writeGrowth(factor);
    return Done;
}

ExitCode reading(const QStringList &arguments, bool)
{
    const uint factor = arguments.value(0).toUInt();
    const int runs = arguments.value(1).toInt();
    if (factor == 0 || runs < 0)
        return WrongUsage;
    writeReportReading(factor, runs);
    return Done;
}

} // namespace

std::vector<Command> commands()
{
    return {
        {"check", "                fails if a baseline makes other calls, or growth is not linear", check},
        {"record", "FILE           writes the calls of each section, for 'cold'", record},
        {"warm", "                 the cost of each subject after its first run", warm},
        {"cold", "FILE SIDE NAME   the time of the first run in this process; SIDE is 'library' or 'baseline'", cold},
        {"time", "RUNS [NAME]...   the times of these subjects, or of all", time},
        {"growth", "FACTOR         the cost of a report with FACTOR times as many drivers, devices and so on", growth},
        {"reading", "FACTOR RUNS   the cost of reading such a report, of comparing two and of redacting one", reading},
    };
}

} // namespace bench
