// Windows keeps no journal of calls, so there is no baseline: these commands measure the
// library alone.

#include "commands.h"
#include "subjects.h"
#include "times.h"

#include <QtCore/QElapsedTimer>

namespace bench {
namespace {

ExitCode cold(const QStringList &arguments, bool withOpenGL)
{
    const std::vector<Subject> chosen = subjects(withOpenGL, arguments);
    if (chosen.size() != 1)
        return WrongUsage;
    QElapsedTimer timer;
    timer.start();
    chosen.front().text();
    writeFigure(chosen.front().name, "library", "cold", "ns", double(timer.nsecsElapsed()));
    return Done;
}

ExitCode time(const QStringList &arguments, bool withOpenGL)
{
    const int runs = arguments.value(0).toInt();
    const std::vector<Subject> chosen = subjects(withOpenGL, arguments.mid(1));
    if (runs <= 0 || chosen.empty())
        return WrongUsage;
    for (const Subject &subject : chosen) {
        writeFigure(subject.name, "library", "warm", "text", 2 * subject.text().size());
        writeTimes(subject.name, {{"library", [&] { subject.text(); }}}, runs);
    }
    return Done;
}

} // namespace

std::vector<Command> commands()
{
    return {
        {"cold", "NAME            the time of the first run in this process", cold},
        {"time", "RUNS [NAME]...  the times of these subjects, or of all", time},
    };
}

} // namespace bench
