// Lines of the form "label, value" that a section reads from one key by a table.
#pragma once

#include "win/registry_key.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

/// A value and the line it makes, with %1 for its text.
struct TextValue
{
    const char *name;
    const char *format;
};

/// The line of a 8-bit text value of \a key, read into \a buffer; empty when the
/// value cannot be read.
QString textLine(HKEY key, const TextValue &value, TextBuffer &buffer);

/// The lines of all values of a table, one after the other through one buffer.
template <std::size_t count>
QString textLines(HKEY key, const TextValue (&values)[count], TextBuffer &buffer)
{
    QString text;
    for (const TextValue &value : values)
        text += textLine(key, value, buffer);
    return text;
}

/// The line of a number of \a key as signed decimal, read into \a number.
QString signedLine(HKEY key, const TextValue &value, NumberBuffer &number);

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
