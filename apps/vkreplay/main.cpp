// vkreplay: prints the Windows half of the report of a described machine.

#include "machine_loader.h"
#include "program_output.h"
#include "sections.h"
#include "simulated_windows.h"
#include "win/adapter_details.h"
#include "win/windows_sections.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>

namespace {

const QCommandLineOption section(QStringLiteral("section"),
                                 QStringLiteral("Print this section only. Can be given several times."),
                                 QStringLiteral("NAME"));
const QCommandLineOption listSections(QStringLiteral("list-sections"),
                                      QStringLiteral("Print the names of the sections."));
const QCommandLineOption adapter(QStringLiteral("adapter"),
                                 QStringLiteral("Print the details of the network adapter with this index only."),
                                 QStringLiteral("INDEX"));

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

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vkreplay"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Prints the Windows half of the report of a described machine."));
    parser.addHelpOption();
    parser.addOptions({section, listSections, adapter});
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
        return Failed;
    }
    simulated::install(std::move(*machine));
    if (writeToStandardOutput(requestedText(parser)))
        return Done;
    complain(QStringLiteral("cannot write to standard output"));
    return Failed;
}
