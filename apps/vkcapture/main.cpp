// vkcapture: describes the Windows it runs on in files, so that the Windows half of its
// report can be rendered elsewhere.

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

const QCommandLineOption force(QStringLiteral("force"), QStringLiteral("Write over the files of an older description."));
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
    complain(QStringLiteral("asking Windows"));
    machine::Machine machine;
    machine.system = captureSystem(complain);
    complain(QStringLiteral("reading the registry"));
    machine.registry = captureRegistry(complain);
    if (!folder.mkpath(QStringLiteral("."))) {
        complain(QStringLiteral("cannot make the folder '%1'").arg(QDir::toNativeSeparators(folder.path())));
        return Failed;
    }
    if (!write(folder, fileNames[0], writeRegistryFile(machine.registry))
        || !write(folder, fileNames[1], writeSystemFile(machine)))
        return Failed;
    complain(QStringLiteral("described in '%1'").arg(QDir::toNativeSeparators(folder.path())));
    return Done;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vkcapture"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Describes this machine in a folder: the registry values that the report reads, and\n"
        "the answers of the Windows calls that it makes. Holds the user's and the machine's\n"
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
        complain(QStringLiteral("one folder is wanted; see --help"));
        return WrongUsage;
    }
    const QDir folder(parser.positionalArguments().constFirst());
    for (const char *name : fileNames) {
        if (folder.exists(QString::fromLatin1(name)) && !parser.isSet(force)) {
            complain(QStringLiteral("there is a description in '%1' already; --force writes over it")
                         .arg(QDir::toNativeSeparators(folder.path())));
            return Failed;
        }
    }
    return capture(folder);
}
