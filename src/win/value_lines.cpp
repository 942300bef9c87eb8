#include "win/value_lines.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

void appendTextLine(QString &text, HKEY key, const Value &value, TextBuffer &buffer)
{
    if (buffer.query(key, value.name))
        appendLine(text, value.format, buffer.text());
}

void appendSignedLine(QString &text, HKEY key, const Value &value, NumberBuffer &number)
{
    if (number.query(key, value.name))
        appendLine(text, value.format, QString::number(qint32(number.value())));
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
