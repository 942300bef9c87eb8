// vkcapture: writes a description of the machine that it runs on, from which vkreplay renders the Windows half of the
// report. Also writes the report, and redacts both.

#include "capture_file.h"
#include "capture_files.h"
#include "capture_redaction.h"
#include "capture_registry.h"
#include "capture_system.h"
#include "neutral_text.h"
#include "options.h"
#include "registry_file.h"
#include "report_program.h"
#include "system_file.h"

#include <QtCore/QCoreApplication>

using namespace velkor;

namespace {

constexpr const char *registryFile = "registry.reg";
constexpr const char *systemFile = "system.json";
constexpr const char *reportFile = "report.txt";
constexpr const char *captureFile = "capture.json";

void complainOf(const QString &error)
{
    complain(Reports::terminalText(error));
}

machine::Machine captureMachine()
{
    complain(QStringLiteral("calling Windows"));
    machine::Machine machine;
    machine.system = captureSystem(complain);
    complain(QStringLiteral("reading the registry"));
    machine.registry = captureRegistry(complain);
    return machine;
}

std::vector<CapturedFile> descriptionFiles(const machine::Machine &machine)
{
    return {{registryFile, writeRegistryFile(machine.registry)}, {systemFile, writeSystemFile(machine)}};
}

QMap<QString, int> countOfAliases(const Reports::Redaction &redaction)
{
    QMap<QString, int> counts;
    for (const Reports::Alias &alias : redaction.aliases)
        ++counts[Reports::aliasKindName(alias.kind)];
    return counts;
}

std::vector<CapturedFile> filesOf(const machine::Machine &machine, const QByteArray &report, const CaptureNotes &notes)
{
    std::vector<CapturedFile> files = descriptionFiles(machine);
    files.push_back({reportFile, report});
    files.push_back({captureFile, captureJson(notes)});
    return files;
}

ExitCode write(const Options &options, const std::vector<CapturedFile> &files)
{
    QString error;
    if (!writeFiles(QDir(options.folder), files, error)) {
        complainOf(error);
        return Failed;
    }
    const QString what = options.withReport ? QStringLiteral("the description and the report") : QStringLiteral("the description");
    complainOf(QStringLiteral("wrote %1 to '%2'").arg(what, QDir::toNativeSeparators(options.folder)));
    if (options.withReport)
        complain(QStringLiteral("read report.txt before you send the files to anybody"));
    return Done;
}

/// The report comes first, and the description right after it, so that little changes between them.
ExitCode captureWithReport(const Options &options)
{
    QString error;
    const auto redactionOptions = readRedactionOptions(options.redaction, error);
    if (!redactionOptions) {
        complainOf(error);
        return Failed;
    }
    complain(QStringLiteral("making the report, which takes up to a minute"));
    const auto made = makeReport(error);
    if (!made) {
        complainOf(error);
        return Failed;
    }
    const machine::Machine machine = captureMachine();
    CaptureNotes notes;
    notes.version = QCoreApplication::applicationVersion();
    notes.exitCode = made->exitCode;
    notes.missing = made->missing;
    if (!options.redact)
        return write(options, filesOf(machine, made->text, notes));
    const RedactedCapture redacted = redactCapture(machine, Reports::read(made->text), made->missing, *redactionOptions);
    notes.isRedacted = true;
    notes.missing = redacted.notes;
    notes.aliases = countOfAliases(redacted.redaction);
    tellWhatWasRedacted(redacted.redaction);
    return write(options, filesOf(redacted.machine, redacted.report.bytes(), notes));
}

/// Whether there is nothing in the folder that must not be overwritten.
bool isFree(const Options &options)
{
    if (options.force)
        return true;
    const QDir folder(options.folder);
    QStringList names {QLatin1String(registryFile), QLatin1String(systemFile)};
    if (options.withReport)
        names += {QLatin1String(reportFile), QLatin1String(captureFile)};
    for (const QString &name : qAsConst(names)) {
        if (folder.exists(name)) {
            complainOf(QStringLiteral("'%1' already contains a description; --force overwrites it")
                           .arg(QDir::toNativeSeparators(options.folder)));
            return false;
        }
    }
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vkcapture"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VKCAPTURE_VERSION));
    Options options;
    if (const auto exitCode = parseOptions(options))
        return *exitCode;
    if (!isFree(options))
        return Failed;
    return options.withReport ? captureWithReport(options) : write(options, descriptionFiles(captureMachine()));
}
