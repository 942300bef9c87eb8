// vkreplay: prints the Windows half of the report of a described machine, or compares it with a report of that machine.

#include "capture_comparison.h"
#include "machine_loader.h"
#include "neutral_text.h"
#include "program_input.h"
#include "program_output.h"
#include "report_input.h"
#include "sections.h"
#include "simulated_windows.h"
#include "win/adapter_details.h"
#include "win/windows_sections.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>

namespace {

const QCommandLineOption section(QStringLiteral("section"),
                                 QStringLiteral("Print this section only. Can be given several times."),
                                 QStringLiteral("NAME"));
const QCommandLineOption listSections(QStringLiteral("list-sections"),
                                      QStringLiteral("Print the names of the sections."));
const QCommandLineOption adapter(QStringLiteral("adapter"),
                                 QStringLiteral("Print the details of the network adapter with this index only."),
                                 QStringLiteral("INDEX"));
const QCommandLineOption compare(QStringLiteral("compare"),
                                 QStringLiteral("Compare the Windows half with this report of the machine. The exit code is 0 if nothing "
                                                "differs that must not, 1 if something does, and 2 if they could not be compared."),
                                 QStringLiteral("REPORT"));

/// Exit codes of a comparison, which are those of vkcompare.
enum ComparisonExitCode {
    Same = 0,
    Different = 1,
    Trouble = 2,
};

/// Returns false, after a message, if an option is wrong.
bool checkOptions(const QCommandLineParser &parser)
{
    const QStringList names = parser.values(section);
    for (const QString &name : names) {
        if (!findSection(name)) {
            complain(QStringLiteral("there is no section '%1'. The sections are: %2")
                         .arg(name, sectionNames().join(QStringLiteral(", "))));
            return false;
        }
    }
    bool isNumber = true;
    if (parser.isSet(adapter))
        parser.value(adapter).toUInt(&isNumber);
    if (!isNumber) {
        complain(QStringLiteral("'%1' is not the index of an adapter").arg(parser.value(adapter)));
        return false;
    }
    if (parser.isSet(compare) && (parser.isSet(section) || parser.isSet(adapter))) {
        complain(QStringLiteral("--compare compares the whole Windows half"));
        return false;
    }
    if (parser.positionalArguments().size() != 1) {
        complain(QStringLiteral("exactly one machine folder is required; see --help"));
        return false;
    }
    return true;
}

QString requestedText(const QCommandLineParser &parser)
{
    if (!parser.isSet(section) && !parser.isSet(adapter))
        return velkor::SystemInfo::WinSysInfo::allWinInfos();
    QString text;
    const QStringList names = parser.values(section);
    for (const QString &name : names)
        text += findSection(name)();
    if (parser.isSet(adapter))
        text += velkor::SystemInfo::WinSysInfo::adapterDetails(parser.value(adapter).toUInt());
    return text;
}

/// What capture.json says, if the folder has one. Nothing, after a message, if it cannot be read.
std::optional<CaptureNotes> notesIn(const QString &folder)
{
    const QString fileName = QDir(folder).filePath(QStringLiteral("capture.json"));
    if (!QFile::exists(fileName))
        return CaptureNotes();
    QByteArray json;
    QString error;
    if (!readInput(fileName, json, error)) {
        complain(velkor::Reports::terminalText(error));
        return std::nullopt;
    }
    auto notes = readCaptureJson(json, error);
    if (!notes)
        complain(velkor::Reports::terminalText(QStringLiteral("%1: %2").arg(fileName, error)));
    return notes;
}

/// The machine is installed already.
int compareReport(const QString &folder, const QString &reportName)
{
    const auto notes = notesIn(folder);
    const auto report = notes ? readReport(reportName) : std::nullopt;
    if (!report)
        return Trouble;
    if (report->states() & velkor::Reports::State::NoReport) {
        complain(velkor::Reports::terminalText(QStringLiteral("'%1' is no report").arg(reportName)));
        return Trouble;
    }
    const QByteArray replay = velkor::SystemInfo::WinSysInfo::allWinInfos().toUtf8();
    const CaptureComparison comparison = compareCapture(*report, replay, *notes);
    if (!writeToStandardOutput(captureComparisonText(comparison))) {
        complain(QStringLiteral("cannot write to standard output"));
        return Trouble;
    }
    return comparison.count(Verdict::Failed) > 0 ? Different : Same;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vkreplay"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Prints the Windows half of the report of a described machine."));
    parser.addHelpOption();
    parser.addOptions({section, listSections, adapter, compare});
    parser.addPositionalArgument(QStringLiteral("MACHINE"),
                                 QStringLiteral("The folder that describes the machine (registry.reg, system.json)."));
    if (!parser.parse(QCoreApplication::arguments())) {
        complain(parser.errorText());
        return WrongUsage;
    }
    if (parser.isSet(QStringLiteral("help")))
        return writeToStandardOutput(parser.helpText()) ? Done : Failed;
    if (parser.isSet(listSections))
        return writeToStandardOutput(sectionNames().join(QLatin1Char('\n')) + QLatin1Char('\n')) ? Done : Failed;
    if (!checkOptions(parser))
        return WrongUsage;

    QString error;
    auto machine = machine::loadMachine(parser.positionalArguments().constFirst(), error);
    if (!machine) {
        complain(error);
        return parser.isSet(compare) ? int(Trouble) : int(Failed);
    }
    simulated::install(std::move(*machine));
    if (parser.isSet(compare))
        return compareReport(parser.positionalArguments().constFirst(), parser.value(compare));
    if (writeToStandardOutput(requestedText(parser)))
        return Done;
    complain(QStringLiteral("cannot write to standard output"));
    return Failed;
}
