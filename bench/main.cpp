// vkbench: measures what a report costs, and writes figures. scripts/bench runs it and
// prints its figures as tables.

#include "commands.h"

#include <QtWidgets/QApplication>
#include <cstdio>

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    const bool withOpenGL = arguments.removeAll(QStringLiteral("--opengl")) > 0;
    bench::ExitCode exitCode = bench::WrongUsage;
    for (const bench::Command &command : bench::commands()) {
        if (arguments.value(0) == QLatin1String(command.name))
            exitCode = command.run(arguments.mid(1), withOpenGL);
    }
    if (exitCode == bench::WrongUsage) {
        std::fputs("usage: vkbench [--opengl] COMMAND\n", stderr);
        for (const bench::Command &command : bench::commands())
            std::fprintf(stderr, "  %s %s\n", command.name, command.usage);
    }
    return exitCode;
}
