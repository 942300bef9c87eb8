// Copies text between QString and the buffers of callers.
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

/// Copies \a text and a terminator; \a buffer must be large enough.
inline void copyWide(const QString &text, LPWSTR buffer)
{
    for (const QChar unit : text)
        *buffer++ = WCHAR(unit.unicode());
    *buffer = 0;
}

/// Copies \a text and a terminator, truncated to \a size.
inline void copyNarrow(const QByteArray &text, LPSTR field, int size)
{
    const int length = std::min(text.size(), size - 1);
    std::copy_n(text.constData(), length, field);
    field[length] = 0;
}

} // namespace simulated
