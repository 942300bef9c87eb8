#include "program_output.h"

#include "interruption.h"
#include "program_output_system.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

namespace {

bool replaceFile(const QByteArray &bytes, const QString &fileName, QString &error)
{
    const InterruptionBlocker blocker;
    QSaveFile file(fileName);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return true;
    error = file.errorString();
    return false;
}

/// QSaveFile would put a file in the place of a device or a pipe.
bool writeToDevice(const QByteArray &bytes, const QString &fileName, QString &error)
{
    QFile file(fileName);
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(bytes) == bytes.size())
        return true;
    error = file.errorString();
    return false;
}

} // namespace

bool writeToStandardOutput(const QString &text)
{
    return writeToStandardOutput(text.toUtf8());
}

bool writeToStandardOutput(const QByteArray &bytes)
{
    return writeToStream(bytes, stdout);
}

bool writeToFile(const QString &text, const QString &fileName, QString &error)
{
    return writeToFile(text.toUtf8(), fileName, error);
}

bool writeToFile(const QByteArray &bytes, const QString &fileName, QString &error)
{
    if (isDevice(fileName) ? writeToDevice(bytes, fileName, error) : replaceFile(bytes, fileName, error))
        return true;
    error = QStringLiteral("cannot write '%1': %2").arg(fileName, error);
    return false;
}

bool canWriteFile(const QString &fileName, QString &error)
{
    QSaveFile file(fileName);
    if (isDevice(fileName) || file.open(QIODevice::WriteOnly))
        return true; // the destructor removes the temporary file
    error = QStringLiteral("cannot write '%1': %2").arg(fileName, file.errorString());
    return false;
}

bool isDevice(const QString &fileName)
{
    const QFileInfo existing(fileName);
    return existing.exists() && !existing.isFile() && !existing.isDir();
}

void tell(const QString &lines)
{
    writeToStandardError(lines);
}

void complain(const QString &message)
{
    writeToStandardError(QStringLiteral("%1: %2\n").arg(QCoreApplication::applicationName(), message));
}
