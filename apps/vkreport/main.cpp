// vkreport: an example host of the library, which prints the report.

#include "program_output.h"
#include "sections.h"
#include "timings.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QTextStream>
#include <QtWidgets/QApplication>
#include <optional>
#include <vkSystemInfo.h>

using namespace velkor;

namespace {

const QCommandLineOption noOpenGL(QStringLiteral("no-opengl"),
                                  QStringLiteral("Leave out the OpenGL section; create no OpenGL context."));
const QCommandLineOption section(QStringLiteral("section"),
                                 QStringLiteral("Print this section only. Can be given several times."),
                                 QStringLiteral("NAME"));
const QCommandLineOption listSections(QStringLiteral("list-sections"),
                                      QStringLiteral("Print the names of the sections."));
const QCommandLineOption output(QStringList {QStringLiteral("o"), QStringLiteral("output")},
                                QStringLiteral("Write to this file instead of standard output."),
                                QStringLiteral("FILE"));
const QCommandLineOption platformName(QStringLiteral("platform-name"),
                                      QStringLiteral("Print the name of the Windows release."));
const QCommandLineOption openGLVersion(QStringLiteral("opengl-version"),
                                       QStringLiteral("Print the supported OpenGL version."));
const QCommandLineOption bonjour(QStringLiteral("bonjour"),
                                 QStringLiteral("Print which DNS-SD client libraries are installed."));
const QCommandLineOption timings(QStringLiteral("timings"),
                                 QStringLiteral("Run the report or the given sections again and print to standard error how "
                                                "long each part takes."));

QString openGLVersionLine()
{
    const SystemInfo::COpenGLVersionInfo info = SystemInfo::ScanOpenGLInfo::GetOpenGLVersion();
    return QStringLiteral("%1 (flags 0x%2)\n").arg(info.strVersion).arg(info.nVersionFlags, 0, 16);
}

QString bonjourLine(const char *library, bool (*check)(int &, QString &))
{
    int errorCode = 0;
    QString version;
    const QString name = QString::fromLatin1(library);
    if (!check(errorCode, version))
        return QStringLiteral("%1: not installed\n").arg(name);
    if (errorCode != 0)
        return QStringLiteral("%1: installed, its service does not answer (error %2)\n").arg(name).arg(errorCode);
    return QStringLiteral("%1: installed, version %2\n").arg(name, version.isEmpty() ? QStringLiteral("unknown") : version);
}

QString bonjourLines()
{
    return bonjourLine("dnssd.dll", SystemInfo::WinSysInfo::checkStandardBonjour)
        + bonjourLine("vkdnssd.dll", SystemInfo::WinSysInfo::checkVelkorBonjour);
}

bool asksForParts(const QCommandLineParser &parser)
{
    return parser.isSet(listSections) || parser.isSet(platformName) || parser.isSet(openGLVersion)
        || parser.isSet(bonjour) || parser.isSet(section);
}

/// The text that the options request.
QString requestedText(const QCommandLineParser &parser)
{
    if (!asksForParts(parser))
        return SystemInfo::allInfos(parser.isSet(noOpenGL));
    QString text;
    if (parser.isSet(listSections))
        text += sectionNames().join(QLatin1Char('\n')) + QLatin1Char('\n');
    if (parser.isSet(platformName))
        text += SystemInfo::platformName() + QLatin1Char('\n');
    if (parser.isSet(openGLVersion))
        text += openGLVersionLine();
    if (parser.isSet(bonjour))
        text += bonjourLines();
    const QStringList names = parser.values(section);
    for (const QString &name : names)
        text += findSection(name)->text();
    return text;
}

ExitCode write(const QCommandLineParser &parser, const QString &text)
{
    if (!parser.isSet(output)) {
        if (writeToStandardOutput(text))
            return Done;
        complain(QStringLiteral("cannot write to standard output"));
        return Failed;
    }
    QString error;
    if (writeToFile(text, parser.value(output), error))
        return Done;
    complain(error);
    return Failed;
}

ExitCode writeWithTimings(const QCommandLineParser &parser)
{
    QString text;
    const double firstCall = milliseconds([&] { text = requestedText(parser); });
    const ExitCode exitCode = write(parser, text); // before the measurements: they take as long as the report
    QTextStream(stderr) << (asksForParts(parser) ? sectionTimings(parser.values(section))
                                                 : reportTimings(parser.isSet(noOpenGL), firstCall));
    return exitCode;
}

void describe(QCommandLineParser &parser)
{
    parser.setApplicationDescription(QStringLiteral(
        "Prints a system information report.\n\n"
        "The OpenGL section creates an OpenGL context. Without --no-opengl the program needs a\n"
        "display with OpenGL; on Linux this is an X server, such as the one of xvfb-run.\n"
        "On Linux the environment variable VKSYSTEMINFO_MACHINE names the folder that describes\n"
        "the machine to report."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({noOpenGL, section, listSections, output, platformName, openGLVersion, bonjour, timings});
}

/// Handles the options that need no display. Returns the exit code if the program can end.
std::optional<ExitCode> parse(QCommandLineParser &parser)
{
    if (!parser.parse(QCoreApplication::arguments())) {
        complain(parser.errorText());
        return WrongUsage;
    }
    if (parser.isSet(QStringLiteral("help")))
        return writeToStandardOutput(parser.helpText()) ? Done : Failed;
    if (parser.isSet(QStringLiteral("version")))
        return writeToStandardOutput(QStringLiteral("vkreport %1\n").arg(SystemInfo::libVersionString())) ? Done : Failed;
    if (!parser.positionalArguments().isEmpty()) {
        complain(QStringLiteral("unexpected argument '%1'").arg(parser.positionalArguments().constFirst()));
        return WrongUsage;
    }
    const QStringList names = parser.values(section);
    for (const QString &name : names) {
        if (!findSection(name)) {
            complain(QStringLiteral("there is no section '%1'. The sections are: %2")
                         .arg(name, sectionNames().join(QStringLiteral(", "))));
            return WrongUsage;
        }
    }
    if (parser.isSet(timings) && asksForParts(parser) && names.isEmpty()) {
        complain(QStringLiteral("--timings requires the whole report or --section"));
        return WrongUsage;
    }
    return std::nullopt;
}

std::optional<ExitCode> parseWithoutDisplay(QCommandLineParser &parser, int &argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vkreport"));
    QCoreApplication::setApplicationVersion(SystemInfo::libVersionString());
    return parse(parser);
}

} // namespace

int main(int argc, char *argv[])
{
    QCommandLineParser parser;
    describe(parser);
    if (const auto exitCode = parseWithoutDisplay(parser, argc, argv))
        return *exitCode;
    const QApplication application(argc, argv);
    return parser.isSet(timings) ? writeWithTimings(parser) : write(parser, requestedText(parser));
}
