#include "options.h"

#include "neutral_text.h"
#include "part_names.h"
#include "redaction_files.h"
#include "section_names.h"

#include <QtCore/QCommandLineParser>
#include <algorithm>

using namespace velkor;

namespace {

const QCommandLineOption noOpenGL(QStringLiteral("no-opengl"),
                                  QStringLiteral("Leave out the OpenGL section; create no OpenGL context."));
const QCommandLineOption section(QStringLiteral("section"),
                                 QStringLiteral("Print this section only. Can be given several times. A section of the Windows "
                                                "half is taken from the whole report; with --input its heading will do."),
                                 QStringLiteral("NAME"));
const QCommandLineOption listSections(QStringLiteral("list-sections"),
                                      QStringLiteral("Print the names of the sections."));
const QCommandLineOption listFacts(QStringLiteral("list-facts"),
                                   QStringLiteral("Print what a report can contain; as text or JSON."));
const QCommandLineOption input(QStringList {QStringLiteral("i"), QStringLiteral("input")},
                               QStringLiteral("Read a report, as text or JSON, instead of making one; - is standard input."),
                               QStringLiteral("FILE"));
const QCommandLineOption format(QStringLiteral("format"),
                                QStringLiteral("Write text (the default), json, markdown or html."),
                                QStringLiteral("FORMAT"));
const QCommandLineOption summary(QStringLiteral("summary"), QStringLiteral("Print only the facts that support asks for first."));
const QCommandLineOption maxLength(QStringLiteral("max-length"),
                                   QStringLiteral("Leave out the least important facts of text or Markdown until it has at most N "
                                                  "characters. Issue trackers accept 65536."),
                                   QStringLiteral("N"));
const QCommandLineOption redact(QStringLiteral("redact"),
                                QStringLiteral("Replace names, addresses, serial numbers and secrets by aliases such as user-1, "
                                               "and print to standard error what was replaced. The result is not anonymous."));
const QCommandLineOption aliasKey(QStringLiteral("alias-key"),
                                  QStringLiteral("With --redact: make the aliases with the key in this file, so that they are "
                                                 "the same in all reports. A missing file is made."),
                                  QStringLiteral("FILE"));
const QCommandLineOption aliasMap(QStringLiteral("alias-map"),
                                  QStringLiteral("With --redact: write what each alias stands for to this file, which only you "
                                                 "can read. Do not send it."),
                                  QStringLiteral("FILE"));
const QCommandLineOption hide(QStringLiteral("hide"),
                              QStringLiteral("With --redact: also replace the words of this file, one a line. * ? [...] make "
                                             "patterns of words. Can be given several times."),
                              QStringLiteral("FILE"));
const QCommandLineOption keep(QStringLiteral("keep"),
                              QStringLiteral("With --redact: do not replace the words of this file, which is like that of --hide."),
                              QStringLiteral("FILE"));
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
const QCommandLineOption timeLimit(QStringLiteral("time-limit"),
                                   QStringLiteral("Return after this time with what could be had; the default is 60, 0 is no limit."),
                                   QStringLiteral("SECONDS"));
const QCommandLineOption inProcess(QStringLiteral("in-process"),
                                   QStringLiteral("Make the report in this process, without protection from crashes and hangs."));
const QCommandLineOption lowPriority(QStringLiteral("low-priority"),
                                     QStringLiteral("Make the report with low priority."));
const QCommandLineOption progress(QStringLiteral("progress"),
                                  QStringLiteral("For programs: print lines to standard error that say what is done and for how "
                                                 "many seconds."));

constexpr double longestTimeLimit = 1e6; // seconds

struct FormatName
{
    const char *name;
    Format format;
};

constexpr FormatName formatNames[] = {
    {"text", Format::Text},
    {"json", Format::Json},
    {"markdown", Format::Markdown},
    {"html", Format::Html},
};

/// Options of which the first makes no sense with one of the others.
struct Contradiction
{
    const QCommandLineOption *option;
    std::vector<const QCommandLineOption *> others;
};

const std::vector<Contradiction> &contradictions()
{
    static const std::vector<Contradiction> all = {
        {&input, {&noOpenGL, &listSections, &listFacts, &platformName, &openGLVersion, &bonjour, &timings, &timeLimit, &inProcess, &lowPriority, &progress}},
        {&inProcess, {&timeLimit, &lowPriority, &progress}},
        {&listFacts, {&listSections, &platformName, &openGLVersion, &bonjour, &timings, &summary, &maxLength, &noOpenGL, &progress}},
        {&summary, {&section, &listSections, &platformName, &openGLVersion, &bonjour, &timings}},
        {&maxLength, {&listSections, &platformName, &openGLVersion, &bonjour, &timings}},
        {&format, {&listSections, &platformName, &openGLVersion, &bonjour, &timings}},
        {&redact, {&listSections, &listFacts, &platformName, &openGLVersion, &bonjour, &timings}},
    };
    return all;
}

QString nameOf(const QCommandLineOption &option)
{
    return QLatin1String("--") + option.names().constLast();
}

void describe(QCommandLineParser &parser)
{
    parser.setApplicationDescription(QStringLiteral(
        "Prints a system information report, or reads one and converts it.\n\n"
        "The report is made in a child process. If a driver crashes or a server does not answer, the\n"
        "rest of the report is written, and the exit code is 3.\n"
        "The OpenGL section creates an OpenGL context, which needs a display; on Linux this is an X\n"
        "server, such as the one of xvfb-run. Without a display Qt's platform \"minimal\" is used.\n"
        "On Linux the environment variable VKSYSTEMINFO_MACHINE names the folder that describes\n"
        "the machine to report."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({noOpenGL, section, listSections, listFacts, input, format, summary, maxLength, redact, aliasKey,
                       aliasMap, hide, keep, output, platformName, openGLVersion, bonjour, timings, timeLimit, inProcess, lowPriority, progress});
}

/// Whether the library exports all these sections, so that they can be called one by one.
bool areExported(const QStringList &names)
{
    const QStringList exported = exportedSectionNames();
    return std::all_of(names.cbegin(), names.cend(), [&exported](const QString &name) { return exported.contains(name); });
}

/// The functions below return a message for the user if something is wrong, else an empty text.

QString contradictionIn(const QCommandLineParser &parser)
{
    for (const Contradiction &contradiction : contradictions()) {
        for (const QCommandLineOption *other : contradiction.others) {
            if (parser.isSet(*contradiction.option) && parser.isSet(*other))
                return QStringLiteral("%1 and %2 cannot be used together").arg(nameOf(*contradiction.option), nameOf(*other));
        }
    }
    return {};
}

QString readFormat(const QCommandLineParser &parser, Options &options)
{
    if (!parser.isSet(format))
        return {};
    const QString name = parser.value(format);
    const auto *found = std::find_if(std::begin(formatNames), std::end(formatNames), [&name](const FormatName &known) {
        return name == QLatin1String(known.name);
    });
    if (found == std::end(formatNames))
        return QStringLiteral("there is no format '%1'. The formats are: text, json, markdown, html").arg(name);
    options.format = found->format;
    if (options.listFacts && options.format != Format::Text && options.format != Format::Json)
        return QStringLiteral("--list-facts writes text or json");
    return {};
}

QString readMaxLength(const QCommandLineParser &parser, Options &options)
{
    if (!parser.isSet(maxLength))
        return {};
    bool isNumber = false;
    options.write.maxLength = parser.value(maxLength).toInt(&isNumber);
    if (!isNumber || options.write.maxLength <= 0)
        return QStringLiteral("--max-length requires a number greater than 0, not '%1'").arg(parser.value(maxLength));
    if (options.format != Format::Text && options.format != Format::Markdown)
        return QStringLiteral("--max-length shortens text and markdown only");
    return {};
}

QString readTimeLimit(const QCommandLineParser &parser, Options &options)
{
    if (!parser.isSet(timeLimit))
        return {};
    bool isNumber = false;
    options.timeLimit = parser.value(timeLimit).toDouble(&isNumber);
    if (!isNumber || !(options.timeLimit >= 0 && options.timeLimit <= longestTimeLimit))
        return QStringLiteral("--time-limit requires a number of seconds from 0 to 1000000, not '%1'").arg(parser.value(timeLimit));
    return {};
}

/// Null if the option was not given.
QString fileName(const QCommandLineParser &parser, const QCommandLineOption &option)
{
    return parser.isSet(option) ? QLatin1String("") + parser.value(option) : QString();
}

QString readRedaction(const QCommandLineParser &parser, Options &options)
{
    options.redact = parser.isSet(redact);
    for (const QCommandLineOption *option : {&aliasKey, &aliasMap, &hide, &keep}) {
        if (parser.isSet(*option) && !options.redact)
            return QStringLiteral("%1 requires --redact").arg(nameOf(*option));
    }
    options.redaction = {fileName(parser, aliasKey), fileName(parser, aliasMap), parser.values(hide), parser.values(keep)};
    return problemWithFiles(options);
}

/// The sections that the library exports are called one by one, in the order of the command line. If one
/// is not exported, all are taken from the whole report.
QString readSections(const QCommandLineParser &parser, Options &options)
{
    options.sections = parser.values(section);
    QString error;
    options.write.sections = Reports::resolveSections(options.sections, error);
    if (areExported(options.sections) || error.isEmpty())
        return {};
    if (!options.input.isNull() || options.listFacts)
        return error;
    const auto isUnknown = [](const QString &name) { return Reports::resolveSection(name).empty(); };
    const auto unknown = std::find_if(options.sections.cbegin(), options.sections.cend(), isUnknown);
    return QStringLiteral("there is no section '%1'. The sections are: %2").arg(*unknown, exportedSectionNames().join(QStringLiteral(", ")));
}

QString readOptions(const QCommandLineParser &parser, Options &options)
{
    if (!parser.positionalArguments().isEmpty())
        return QStringLiteral("unexpected argument '%1'").arg(parser.positionalArguments().constFirst());
    options.noOpenGL = parser.isSet(noOpenGL);
    options.listSections = parser.isSet(listSections);
    options.listFacts = parser.isSet(listFacts);
    options.platformName = parser.isSet(platformName);
    options.openGLVersion = parser.isSet(openGLVersion);
    options.bonjour = parser.isSet(bonjour);
    options.timings = parser.isSet(timings);
    options.inProcess = parser.isSet(inProcess);
    options.lowPriority = parser.isSet(lowPriority);
    options.progress = parser.isSet(progress);
    options.write.onlySummary = parser.isSet(summary);
    options.input = fileName(parser, input);
    options.output = fileName(parser, output);
    if (options.output == QLatin1String("/dev/stdout")) // may be a file, which must not be replaced
        options.output = QString();
    for (const auto read : {readSections, readFormat, readMaxLength, readRedaction, readTimeLimit}) {
        QString error = read(parser, options);
        if (!error.isEmpty())
            return error;
    }
    if (options.timings && !areExported(options.sections))
        return QStringLiteral("--timings measures the sections of --list-sections only");
    if (options.timings && options.asksForParts() && options.sections.isEmpty())
        return QStringLiteral("--timings requires the whole report or --section");
    return contradictionIn(parser);
}

} // namespace

bool Options::needsDocument() const
{
    return !input.isNull() || !areExported(sections) || format != Format::Text || write.onlySummary || write.maxLength > 0 || redact;
}

std::optional<ExitCode> parseOptions(Options &options)
{
    QCommandLineParser parser;
    describe(parser);
    if (!parser.parse(QCoreApplication::arguments())) {
        complain(Reports::terminalText(parser.errorText()));
        return WrongUsage;
    }
    if (parser.isSet(QStringLiteral("help")))
        return writeToStandardOutput(parser.helpText()) ? Done : Failed;
    if (parser.isSet(QStringLiteral("version")))
        return writeToStandardOutput(QStringLiteral("vkreport %1\n").arg(QCoreApplication::applicationVersion())) ? Done : Failed;
    const QString error = readOptions(parser, options);
    if (error.isEmpty())
        return std::nullopt;
    complain(Reports::terminalText(error));
    return WrongUsage;
}
