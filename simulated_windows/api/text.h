// Text between QString and the callers' buffers.
#pragma once

#include "ansi_code_page.h"
#include "simulated_windows.h"

#include <algorithm>
#include <windows.h>

namespace simulated {

inline AnsiCodePage ansi()
{
    return AnsiCodePage(machineInUse().system.ansiCodePage);
}

inline QString fromWide(LPCWSTR text)
{
    QString result;
    for (; text && *text; ++text)
        result += QChar(ushort(*text));
    return result;
}

/// Copies \a text and a terminator; the caller has made sure of the room.
inline void copyWide(const QString &text, LPWSTR buffer)
{
    for (const QChar unit : text)
        *buffer++ = WCHAR(unit.unicode());
    *buffer = 0;
}

/// Copies as much of \a text as a field of \a size holds with a terminator.
inline void copyNarrow(const QByteArray &text, LPSTR field, int size)
{
    const int length = std::min(text.size(), size - 1);
    std::copy_n(text.constData(), length, field);
    field[length] = 0;
}

} // namespace simulated
