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

/// Appends the line of a 8-bit text value of \a key, read into \a buffer; nothing when
/// the value cannot be read.
void appendTextLine(QString &text, HKEY key, const TextValue &value, TextBuffer &buffer);

/// Appends the lines of all values of a table, one after the other through one buffer.
template <std::size_t count>
void appendTextLines(QString &text, HKEY key, const TextValue (&values)[count], TextBuffer &buffer)
{
    for (const TextValue &value : values)
        appendTextLine(text, key, value, buffer);
}

/// Appends the line of a number of \a key as signed decimal, read into \a number.
void appendSignedLine(QString &text, HKEY key, const TextValue &value, NumberBuffer &number);

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
