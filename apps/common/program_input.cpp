#include "program_input.h"

#include <QtCore/QFile>
#include <algorithm>

#ifdef Q_OS_WIN
#  include <fcntl.h>
#  include <io.h>
#  include <windows.h>
#else
#  include <unistd.h>
#endif

namespace {

// More memory than that is not used: standard input may have no end.
constexpr int largestInput = 512 * 1024 * 1024;

#ifdef Q_OS_WIN
int descriptorOf(std::FILE *stream)
{
    return _fileno(stream);
}

/// Consoles before Windows 10 do not know escape sequences; later ones must be asked.
bool acceptsEscapeSequences()
{
    constexpr DWORD virtualTerminal = 0x0004; // ENABLE_VIRTUAL_TERMINAL_PROCESSING
    const HANDLE console = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD mode = 0;
    return GetConsoleMode(console, &mode) && SetConsoleMode(console, mode | virtualTerminal);
}
#else
int descriptorOf(std::FILE *stream)
{
    return fileno(stream);
}

bool acceptsEscapeSequences()
{
    return qgetenv("TERM") != "dumb";
}
#endif

bool openInput(QFile &file, const QString &fileName)
{
    if (fileName != QLatin1String("-"))
        return file.open(QIODevice::ReadOnly);
#ifdef Q_OS_WIN
    _setmode(descriptorOf(stdin), _O_BINARY); // do not convert line ends
#endif
    return file.open(descriptorOf(stdin), QIODevice::ReadOnly);
}

} // namespace

QByteArray readUpTo(QFile &file, int size)
{
    constexpr qint64 piece = qint64(1024) * 1024;
    QByteArray bytes;
    while (bytes.size() < size) {
        const QByteArray next = file.read(std::min<qint64>(piece, size - bytes.size()));
        if (next.isEmpty())
            break;
        bytes += next;
    }
    return bytes;
}

bool readInput(const QString &fileName, QByteArray &bytes, QString &error)
{
    QFile file(fileName);
    const bool isOpen = openInput(file, fileName);
    if (isOpen)
        bytes = readUpTo(file, largestInput + 1);
    const bool isRead = isOpen && file.error() == QFileDevice::NoError;
    if (isRead && bytes.size() <= largestInput)
        return true;
    const QString name = fileName == QLatin1String("-") ? QStringLiteral("standard input") : QStringLiteral("'%1'").arg(fileName);
    const QString reason = isRead ? QStringLiteral("it is larger than 512 MByte") : file.errorString();
    error = QStringLiteral("cannot read %1: %2").arg(name, reason);
    return false;
}

bool isTerminal(std::FILE *stream)
{
#ifdef Q_OS_WIN
    DWORD mode = 0; // _isatty() also accepts the null device
    return GetConsoleMode(reinterpret_cast<HANDLE>(_get_osfhandle(descriptorOf(stream))), &mode) != 0;
#else
    return isatty(descriptorOf(stream)) != 0;
#endif
}

bool canShowColours()
{
    return isTerminal(stdout) && qEnvironmentVariableIsEmpty("NO_COLOR") && acceptsEscapeSequences();
}
