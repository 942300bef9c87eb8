#include "program_output.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>
#include <QtCore/QTextStream>
#include <cstdio>

#ifdef Q_OS_WIN
#  include <fcntl.h>
#  include <io.h>
#endif

namespace {

bool replaceFile(const QByteArray &bytes, const QString &fileName, QString &error)
{
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
#ifdef Q_OS_WIN
    _setmode(_fileno(stdout), _O_BINARY); // do not convert line feeds
#endif
    return std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), stdout) == std::size_t(bytes.size())
        && std::fflush(stdout) == 0;
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

bool isDevice(const QString &fileName)
{
    const QFileInfo existing(fileName);
    return existing.exists() && !existing.isFile() && !existing.isDir();
}

void tell(const QString &lines)
{
    QTextStream(stderr) << lines;
}

void complain(const QString &message)
{
    QTextStream(stderr) << QCoreApplication::applicationName() << ": " << message << '\n';
}
