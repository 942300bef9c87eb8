// vkreport: prints the report, which a child of it makes; also reads reports.

#include "child/child_main.h"
#include "conversion.h"
#include "in_process.h"
#include "making/report_maker.h"

#include <QtCore/QCoreApplication>

namespace {

bool isChild(int argc, char **argv)
{
    return argc > 1 && qstrcmp(argv[1], childArgument) == 0;
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
