// Lines of the form "label, value", built from a table of values.
#pragma once

#include "report/text.h"
#include "win/registry_key.h"
#include "win/registry_reads.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// A value and the format of its line.
template <typename Char>
struct ValueFormat
{
    const Char *name;
    const char *format;
};

using Value = ValueFormat<char>;        ///< queried by RegQueryValueExA
using WideValue = ValueFormat<wchar_t>; ///< queried by RegQueryValueExW

/// Appends the line of an 8-bit text value, read into \a buffer; nothing if the query fails.
void appendTextLine(QString &text, HKEY key, const Value &value, TextBuffer &buffer);

/// Appends the lines of all values of a table, read into one buffer.
template <std::size_t count>
void appendTextLines(QString &text, HKEY key, const Value (&values)[count], TextBuffer &buffer)
{
    for (const Value &value : values)
        appendTextLine(text, key, value, buffer);
}

/// Appends the line of a number, read into \a number, as signed decimal.
void appendSignedLine(QString &text, HKEY key, const Value &value, NumberBuffer &number);

/// Appends the lines of all numbers of a table, read into one buffer.
template <std::size_t count>
void appendSignedLines(QString &text, HKEY key, const Value (&values)[count], NumberBuffer &number)
{
    for (const Value &value : values)
        appendSignedLine(text, key, value, number);
}

/// Appends the line of a number, read into \a number: %1 in decimal, %2 in hexadecimal.
template <typename Char>
void appendNumberLine(QString &text, HKEY key, const ValueFormat<Char> &value, NumberBuffer &number)
{
    if (number.query(key, value.name))
        appendLine(text, QString::fromLatin1(value.format).arg(number.value()).arg(number.value(), 0, 16));
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
