#include "loaded_report.h"

#include "program_input.h"
#include "report_input.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

using namespace velkor;

namespace {

/// Why \a file cannot be opened; empty if nothing is known about it. A pipe is no file: reading it could take forever.
QString whyNoFile(const QFileInfo &file)
{
    if (!file.exists())
        return LoadedReport::tr("There is no file \"%1\".").arg(file.filePath());
    if (file.isDir())
        return LoadedReport::tr("\"%1\" is a folder. Open a file in it.").arg(file.filePath());
    return file.isFile() ? QString() : LoadedReport::tr("\"%1\" is no ordinary file.").arg(file.filePath());
}

} // namespace

bool LoadedReport::isReport() const
{
    return !document.states().testFlag(Reports::State::NoReport);
}

std::optional<LoadedReport> LoadedReport::fromBytes(const QByteArray &bytes, const QString &name, QString &error)
{
    QString reason;
    const auto document = readReportBytes(bytes, reason);
    if (document)
        return LoadedReport {name, QString(), *document};
    error = tr("\"%1\" cannot be read: %2").arg(name, reason);
    return std::nullopt;
}

std::optional<LoadedReport> LoadedReport::fromFile(const QString &fileName, QString &error)
{
    const QFileInfo file(QDir::fromNativeSeparators(fileName));
    error = whyNoFile(file);
    QByteArray bytes;
    if (!error.isEmpty())
        return std::nullopt;
    QString reason;
    if (!readInput(file.filePath(), bytes, reason)) {
        error = tr("The file cannot be opened: %1").arg(reason);
        return std::nullopt;
    }
    auto report = fromBytes(bytes, file.fileName(), error);
    if (report)
        report->path = file.absoluteFilePath();
    return report;
}
