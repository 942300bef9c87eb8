// vkcapture: writes a description of the machine that it runs on. vkreplay renders the
// Windows half of the report from it.

#include "capture_registry.h"
#include "capture_system.h"
#include "program_output.h"
#include "registry_file.h"
#include "system_file.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QSaveFile>

namespace {

const QCommandLineOption force(QStringLiteral("force"), QStringLiteral("Overwrite an existing description."));
const char *const fileNames[] = {"registry.reg", "system.json"};

bool write(const QDir &folder, const char *name, const QByteArray &contents)
{
    QSaveFile file(folder.filePath(QString::fromLatin1(name)));
    if (file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size() && file.commit())
        return true;
    complain(QStringLiteral("cannot write '%1': %2").arg(QDir::toNativeSeparators(file.fileName()), file.errorString()));
    return false;
}

ExitCode capture(const QDir &folder)
{
    complain(QStringLiteral("calling Windows"));
    machine::Machine machine;
    machine.system = captureSystem(complain);
    complain(QStringLiteral("reading the registry"));
    machine.registry = captureRegistry(complain);
    if (!folder.mkpath(QStringLiteral("."))) {
        complain(QStringLiteral("cannot create the folder '%1'").arg(QDir::toNativeSeparators(folder.path())));
        return Failed;
    }
    if (!write(folder, fileNames[0], writeRegistryFile(machine.registry))
        || !write(folder, fileNames[1], writeSystemFile(machine)))
        return Failed;
    complain(QStringLiteral("wrote the description to '%1'").arg(QDir::toNativeSeparators(folder.path())));
    return Done;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vkcapture"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Writes a description of this machine to a folder: the registry values that the report\n"
        "reads, and the results of its Windows calls. The description contains user and computer\n"
        "names, installed software and network addresses."));
    parser.addHelpOption();
    parser.addOption(force);
    parser.addPositionalArgument(QStringLiteral("MACHINE"), QStringLiteral("The folder to write (registry.reg, system.json)."));
    if (!parser.parse(QCoreApplication::arguments())) {
        complain(parser.errorText());
        return WrongUsage;
    }
    if (parser.isSet(QStringLiteral("help")))
        return writeToStandardOutput(parser.helpText()) ? Done : Failed;
    if (parser.positionalArguments().size() != 1) {
        complain(QStringLiteral("exactly one folder is required; see --help"));
        return WrongUsage;
    }
    const QDir folder(parser.positionalArguments().constFirst());
    for (const char *name : fileNames) {
        if (folder.exists(QString::fromLatin1(name)) && !parser.isSet(force)) {
            complain(QStringLiteral("'%1' already contains a description; --force overwrites it")
                         .arg(QDir::toNativeSeparators(folder.path())));
            return Failed;
        }
    }
    return capture(folder);
}
