#include "private_file.h"

#include "interruption.h"
#include "private_file_system.h"
#include "program_input.h"
#include "program_output.h"

namespace {

FileResult makeFile(const QString &fileName, const QByteArray &bytes, Existing existing, QString &error)
{
    const InterruptionBlocker blocker;
    const QString made = makeFileBeside(fileName, bytes, error);
    if (made.isEmpty())
        return FileResult::Failed;
    const FileResult result = renameFile(made, fileName, existing, error);
    if (result != FileResult::Done)
        QFile::remove(made);
    return result;
}

/// Completes \a error to a message for the user.
FileResult withMessage(FileResult result, const char *work, const QString &fileName, QString &error)
{
    if (result == FileResult::Failed)
        error = QStringLiteral("cannot %1 '%2': %3").arg(QLatin1String(work), fileName, error);
    return result;
}

FileResult read(const QString &fileName, int limit, QByteArray &bytes, QString &error)
{
    QFile file;
    const FileResult result = openPrivateFile(file, fileName, error);
    if (result != FileResult::Done)
        return result;
    bytes = readUpTo(file, limit);
    if (file.error() == QFileDevice::NoError)
        return FileResult::Done;
    error = file.errorString();
    return FileResult::Failed;
}

} // namespace

FileResult readPrivateFile(const QString &fileName, int limit, QByteArray &bytes, QString &error)
{
    return withMessage(read(fileName, limit, bytes, error), "read", fileName, error);
}

FileResult makePrivateFile(const QString &fileName, const QByteArray &bytes, QString &error)
{
    return withMessage(makeFile(fileName, bytes, Existing::Keep, error), "write", fileName, error);
}

bool writePrivateFile(const QString &fileName, const QByteArray &bytes, QString &error)
{
    if (isDevice(fileName))
        return writeToFile(bytes, fileName, error);
    const FileResult result = makeFile(fileName, bytes, Existing::Replace, error);
    return withMessage(result, "write", fileName, error) == FileResult::Done;
}
