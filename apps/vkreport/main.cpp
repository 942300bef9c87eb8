// vkreport: prints the report, which a child of it makes; also reads reports.

#include "child/child_main.h"
#include "conversion.h"
#include "in_process.h"
#include "making/report_maker.h"
#include "neutral_text.h"
#include "own_console.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDate>
#include <QtCore/QDir>
#include <QtCore/QStandardPaths>
#include <QtCore/QSysInfo>

namespace {

bool isChild(int argc, char **argv)
{
    return argc > 1 && qstrcmp(argv[1], childArgument) == 0;
}

/// After a double click. The report goes to a file, because the console closes when the program ends.
ExitCode runInOwnConsole(Options &options)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    options.output = ownReportFileName(folder, QSysInfo::machineHostName(), QDate::currentDate());
    tell(QStringLiteral("Making a report of this computer. It takes up to a minute.\n"));
    const ExitCode exitCode = writeMade(options, makeText(options));
    const QString file = velkor::Reports::terminalText(QDir::toNativeSeparators(options.output));
    if (exitCode == Done || exitCode == Incomplete) {
        tell(QStringLiteral("\nThe report is in the file\n    %1\nIt contains names, addresses and the environment. Read it before you send "
                            "it to anybody.\n")
                 .arg(file));
    }
    tell(QStringLiteral("\nPress any key to close this window.\n"));
    waitForKey();
    return exitCode;
}

/// Handles everything but --in-process, for which it returns nothing: the application object must be another then.
std::optional<ExitCode> run(Options &options, int &argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (const auto exitCode = parseOptions(options))
        return exitCode;
    if (options.listFacts)
        return writeFactList(options);
    if (!options.input.isNull())
        return convertInput(options);
    if (options.inProcess)
        return std::nullopt;
    if (argc == 1 && hasConsoleOfItsOwn())
        return runInOwnConsole(options);
    QString error;
    if (!options.output.isNull() && !canWriteFile(options.output, error)) { // before the report takes its time
        complain(velkor::Reports::terminalText(error));
        return Failed;
    }
    return writeMade(options, makeText(options));
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("vkreport"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VKREPORT_VERSION));
    if (isChild(argc, argv))
        return runChild(argc, argv);
    Options options;
    if (const auto exitCode = run(options, argc, argv))
        return *exitCode;
    return makeInProcess(options, argc, argv);
}
