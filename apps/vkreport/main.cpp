// vkreport: an example host of the library, which prints the report; also reads reports.

#include "conversion.h"
#include "making.h"
#include "timings.h"

#include <QtCore/QTextStream>
#include <QtWidgets/QApplication>
#include <vkSystemInfo.h>

using namespace velkor;

namespace {

ExitCode write(const Options &options, const QString &text)
{
    return options.needsDocument() ? convertText(options, text) : writeText(options, text.toUtf8());
}

ExitCode writeWithTimings(const Options &options)
{
    QString text;
    const double firstCall = milliseconds([&] { text = requestedText(options); });
    const ExitCode exitCode = write(options, text); // before the measurements: they take as long as the report
    QTextStream(stderr) << (options.asksForParts() ? sectionTimings(options.sections) : reportTimings(options.noOpenGL, firstCall));
    return exitCode;
}

/// Handles the options that need no display. Returns the exit code if the program can end.
std::optional<ExitCode> runWithoutDisplay(Options &options, int &argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vkreport"));
    QCoreApplication::setApplicationVersion(SystemInfo::libVersionString());
    if (const auto exitCode = parseOptions(options))
        return exitCode;
    if (options.listFacts)
        return writeFactList(options);
    if (!options.input.isNull())
        return convertInput(options);
    return std::nullopt;
}

} // namespace

int main(int argc, char *argv[])
{
    Options options;
    if (const auto exitCode = runWithoutDisplay(options, argc, argv))
        return *exitCode;
    const QApplication application(argc, argv);
    return options.timings ? writeWithTimings(options) : write(options, requestedText(options));
}
