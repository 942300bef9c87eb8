#include "options.h"

#include "neutral_text.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>

namespace {

const QCommandLineOption force(QStringLiteral("force"), QStringLiteral("Overwrite an existing description."));
const QCommandLineOption withReport(QStringLiteral("with-report"),
                                    QStringLiteral("Also write the report that the vkreport beside this program makes."));
const QCommandLineOption redact(QStringLiteral("redact"),
                                QStringLiteral("With --with-report: replace names, addresses, serial numbers and secrets in all files by "
                                               "aliases such as user-1, and print to standard error what was replaced. The result is not "
                                               "anonymous."));
const QCommandLineOption aliasKey(QStringLiteral("alias-key"),
                                  QStringLiteral("With --redact: make the aliases with the key in this file, so that they are the same in "
                                                 "all captures and reports. A missing file is made."),
                                  QStringLiteral("FILE"));
const QCommandLineOption hide(QStringLiteral("hide"),
                              QStringLiteral("With --redact: also replace the words of this file, one a line. * ? [...] make patterns of "
                                             "words. Can be given several times."),
                              QStringLiteral("FILE"));
const QCommandLineOption keep(QStringLiteral("keep"),
                              QStringLiteral("With --redact: do not replace the words of this file, which is like that of --hide."),
                              QStringLiteral("FILE"));

void describe(QCommandLineParser &parser)
{
    parser.setApplicationDescription(QStringLiteral(
        "Writes a description of this machine to a folder: the registry values that the report\n"
        "reads, and the results of its Windows calls. The description contains user and computer\n"
        "names, installed software and network addresses. With --with-report the folder also gets\n"
        "the report, which contains all environment variables."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({force, withReport, redact, aliasKey, hide, keep});
    parser.addPositionalArgument(QStringLiteral("MACHINE"),
                                 QStringLiteral("The folder to write (registry.reg, system.json; with --with-report also report.txt and "
                                                "capture.json)."));
}

/// A message for the user if something is wrong, else an empty text.
QString readOptions(const QCommandLineParser &parser, Options &options)
{
    if (parser.positionalArguments().size() != 1 || parser.positionalArguments().constFirst().isEmpty())
        return QStringLiteral("exactly one folder is required; see --help");
    options.folder = parser.positionalArguments().constFirst();
    options.force = parser.isSet(force);
    options.withReport = parser.isSet(withReport);
    options.redact = parser.isSet(redact);
    if (options.redact && !options.withReport)
        return QStringLiteral("--redact requires --with-report");
    for (const QCommandLineOption *option : {&aliasKey, &hide, &keep}) {
        if (parser.isSet(*option) && !options.redact)
            return QStringLiteral("--%1 requires --redact").arg(option->names().constFirst());
    }
    if (parser.isSet(aliasKey))
        options.redaction.aliasKey = QLatin1String("") + parser.value(aliasKey);
    options.redaction.hide = parser.values(hide);
    options.redaction.keep = parser.values(keep);
    const std::vector<NamedFile> files = filesRead(options.redaction);
    QString problem = wrongName(files);
    for (const char *name : {"registry.reg", "system.json", "report.txt", "capture.json"}) {
        if (problem.isEmpty())
            problem = overwritten({name, QDir(options.folder).filePath(QLatin1String(name))}, files);
    }
    return problem;
}

} // namespace

std::optional<ExitCode> parseOptions(Options &options)
{
    QCommandLineParser parser;
    describe(parser);
    if (!parser.parse(QCoreApplication::arguments())) {
        complain(velkor::Reports::terminalText(parser.errorText()));
        return WrongUsage;
    }
    if (parser.isSet(QStringLiteral("help")))
        return writeToStandardOutput(parser.helpText()) ? Done : Failed;
    if (parser.isSet(QStringLiteral("version")))
        return writeToStandardOutput(QStringLiteral("vkcapture %1\n").arg(QCoreApplication::applicationVersion())) ? Done : Failed;
    const QString problem = readOptions(parser, options);
    if (problem.isEmpty())
        return std::nullopt;
    complain(velkor::Reports::terminalText(problem));
    return WrongUsage;
}
