#include "program_input.h"

#include <QtCore/QFile>

#ifdef Q_OS_WIN
#  include <fcntl.h>
#  include <io.h>
#  include <windows.h>
#else
#  include <unistd.h>
#endif

namespace {

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

bool readInput(const QString &fileName, QByteArray &bytes, QString &error)
{
    QFile file(fileName);
    const bool isOpen = openInput(file, fileName);
    if (isOpen)
        bytes = file.readAll();
    if (isOpen && file.error() == QFileDevice::NoError)
        return true;
    const QString name = fileName == QLatin1String("-") ? QStringLiteral("standard input") : QStringLiteral("'%1'").arg(fileName);
    error = QStringLiteral("cannot read %1: %2").arg(name, file.errorString());
    return false;
}

bool isTerminal(std::FILE *stream)
{
#ifdef Q_OS_WIN
    return _isatty(descriptorOf(stream)) != 0;
#else
    return isatty(descriptorOf(stream)) != 0;
#endif
}

bool canShowColours()
{
    return isTerminal(stdout) && qEnvironmentVariableIsEmpty("NO_COLOR") && acceptsEscapeSequences();
}
