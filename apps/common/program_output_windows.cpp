#include "program_output_system.h"

#include "console_text.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace {

/// The console that a stream is connected to, or null.
HANDLE consoleOf(std::FILE *stream)
{
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) ? handle : nullptr;
}

bool writeToConsole(const QString &text, HANDLE console)
{
    const auto *characters = reinterpret_cast<const wchar_t *>(text.utf16());
    for (int position = 0; position < text.size();) {
        DWORD written = 0;
        const auto length = DWORD(consolePieceLength(text, position));
        if (!WriteConsoleW(console, characters + position, length, &written, nullptr) || written == 0)
            return false;
        position += int(written);
    }
    return true;
}

bool writeBytes(const QByteArray &bytes, std::FILE *stream)
{
    _setmode(_fileno(stream), _O_BINARY); // do not convert line feeds
    return std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), stream) == std::size_t(bytes.size())
        && std::fflush(stream) == 0;
}

} // namespace

bool writeToStream(const QByteArray &utf8, std::FILE *stream)
{
    std::fflush(stream); // what others wrote comes first
    const HANDLE console = consoleOf(stream);
    return console ? writeToConsole(QString::fromUtf8(utf8), console) : writeBytes(utf8, stream);
}

void writeToStandardError(const QString &text)
{
    writeToStream(text.toUtf8(), stderr);
}
