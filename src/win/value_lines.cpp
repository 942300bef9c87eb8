#include "win/value_lines.h"

#include "report/text.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

QString textLine(HKEY key, const TextValue &value, TextBuffer &buffer)
{
    if (!buffer.query(key, value.name))
        return QString();
    return QString::fromLatin1(value.format).arg(buffer.text()) + newline;
}

QString signedLine(HKEY key, const TextValue &value, NumberBuffer &number)
{
    if (!number.query(key, value.name))
        return QString();
    return QString::fromLatin1(value.format).arg(qint32(number.value())) + newline;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
