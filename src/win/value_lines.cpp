#include "win/value_lines.h"

#include "report/text.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

void appendTextLine(QString &text, HKEY key, const TextValue &value, TextBuffer &buffer)
{
    if (buffer.query(key, value.name))
        appendLine(text, value.format, buffer.text());
}

void appendSignedLine(QString &text, HKEY key, const TextValue &value, NumberBuffer &number)
{
    if (number.query(key, value.name))
        appendLine(text, value.format, QString::number(qint32(number.value())));
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
