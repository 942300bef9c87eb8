#include "program_output_system.h"

#include <QtCore/QTextStream>

bool writeToStream(const QByteArray &utf8, std::FILE *stream)
{
    return std::fwrite(utf8.constData(), 1, std::size_t(utf8.size()), stream) == std::size_t(utf8.size())
        && std::fflush(stream) == 0;
}

void writeToStandardError(const QString &text)
{
    QTextStream(stderr) << text;
}
