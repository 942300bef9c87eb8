// vkbench: measures the report beside its baseline. scripts/bench runs it and makes a
// table of what it writes.

#include "measure.h"
#include "platform.h"

#include <QtCore/QTextStream>
#include <QtWidgets/QApplication>

using namespace bench;

namespace {

enum ExitCode {
    Done = 0,
    Failed = 1,
    WrongUsage = 2,
};

const char usage[] = "usage: vkbench [--opengl] COMMAND\n"
                     "  check              that each baseline makes the library's calls, and growth is even\n"
                     "  record FILE        writes the calls of each section\n"
                     "  warm               calls, text, allocations and instructions, where they are counted\n"
                     "  cold FILE NAME SIDE   the first call in a process; FILE is what 'record' wrote\n"
                     "  time RUNS [NAME]...   times of both sides in turn, of these or of everything\n"
                     "  growth FACTOR [KIND]   the report about a machine that has so many times as much\n"
                     "  names              what is measured\n";

void complain(const QString &message)
{
    QTextStream(stderr) << "vkbench: " << message << '\n';
}

ExitCode check(bool withOpenGL)
{
    QStringList problems = baselineProblems(makeSubjects(recordSections(withOpenGL), withOpenGL));
    problems += platformProblems();
    for (const QString &problem : problems)
        complain(problem);
    if (!problems.isEmpty())
        return Failed;
    QTextStream(stdout) << "every baseline makes the calls of the library\n";
    return Done;
}

ExitCode cold(const QStringList &arguments, bool withOpenGL)
{
    const Recordings recordings = readRecordings(arguments.at(1));
    if (recordings.empty()) {
        complain(QStringLiteral("cannot read '%1'").arg(arguments.at(1)));
        return Failed;
    }
    measureCold(makeSubjects(recordings, withOpenGL), arguments.at(2).toLatin1(), arguments.at(3).toLatin1());
    return Done;
}

std::vector<Subject> chosen(std::vector<Subject> subjects, const QStringList &names)
{
    if (names.isEmpty())
        return subjects;
    std::vector<Subject> result;
    for (Subject &subject : subjects) {
        if (names.contains(QString::fromLatin1(subject.name)))
            result.push_back(std::move(subject));
    }
    return result;
}

ExitCode run(const QStringList &arguments, bool withOpenGL)
{
    const QString command = arguments.value(0);
    const auto is = [&](const char *name, int count) { return command == QLatin1String(name) && arguments.size() == count; };
    const auto subjects = [&] { return makeSubjects(recordSections(withOpenGL), withOpenGL); };
    if (is("check", 1))
        return check(withOpenGL);
    if (is("record", 2))
        return writeRecordings(arguments.at(1), recordSections(withOpenGL)) ? Done : Failed;
    if (is("cold", 4))
        return cold(arguments, withOpenGL);
    if (is("growth", 2) || is("growth", 3))
        return measurePlatformGrowth(arguments.at(1).toUInt(), arguments.value(2)) ? Done : Failed;
    if (is("warm", 1))
        measureWarm(subjects());
    else if (command == QLatin1String("time") && arguments.value(1).toInt() > 0)
        measureTime(chosen(subjects(), arguments.mid(2)), arguments.at(1).toInt());
    else if (is("names", 1))
        for (const Subject &subject : subjects())
            QTextStream(stdout) << subject.name << '\n';
    else
        return WrongUsage;
    return Done;
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    const bool withOpenGL = arguments.removeAll(QStringLiteral("--opengl")) > 0;
    const ExitCode exitCode = run(arguments, withOpenGL);
    if (exitCode == WrongUsage)
        QTextStream(stderr) << usage;
    return exitCode;
}
