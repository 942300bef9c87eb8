#include "capture_files.h"

#include "interruption.h"

#include <QtCore/QSaveFile>
#include <memory>

namespace {

QString cannotWrite(const QSaveFile &file)
{
    return QStringLiteral("cannot write '%1': %2").arg(QDir::toNativeSeparators(file.fileName()), file.errorString());
}

/// Every file is complete before the first one replaces another.
bool writeInto(const QDir &folder, const std::vector<CapturedFile> &files, QString &error)
{
    std::vector<std::unique_ptr<QSaveFile>> written;
    for (const CapturedFile &file : files) {
        written.push_back(std::make_unique<QSaveFile>(folder.filePath(QString::fromLatin1(file.name))));
        QSaveFile &last = *written.back();
        if (!last.open(QIODevice::WriteOnly) || last.write(file.contents) != file.contents.size() || !last.flush()) {
            error = cannotWrite(last);
            return false;
        }
    }
    for (const auto &file : written) {
        if (!file->commit()) {
            error = cannotWrite(*file);
            return false;
        }
    }
    return true;
}

} // namespace

bool writeFiles(const QDir &folder, const std::vector<CapturedFile> &files, QString &error)
{
    const InterruptionBlocker blocker;
    const bool isNew = !folder.exists();
    if (!folder.mkpath(QStringLiteral("."))) {
        error = QStringLiteral("cannot create the folder '%1'").arg(QDir::toNativeSeparators(folder.path()));
        return false;
    }
    if (writeInto(folder, files, error))
        return true;
    if (isNew)
        folder.rmdir(QStringLiteral("."));
    return false;
}
