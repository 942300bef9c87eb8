// The journal of a simulated Windows in a form that rows can state.
#pragma once

#include "simulated_windows.h"

/// A call as its name, what it is asked about, its access mask and its size in, each
/// only where there is one; such as "RegQueryValueExA Bias 4". Queries and closes of
/// a key go without its path.
inline QString journalLine(const simulated::Call &call)
{
    QString line = QString::fromLatin1(call.name);
    const bool usesOpenKey = call.name.startsWith("RegQuery") || call.name == "RegCloseKey";
    if (!call.key.isEmpty() && !usesOpenKey)
        line += QLatin1Char(' ') + call.key;
    if (!call.value.isEmpty())
        line += QLatin1Char(' ') + call.value;
    if (call.access)
        line += QStringLiteral(" 0x") + QString::number(call.access, 16);
    if (call.sizeIn)
        line += QLatin1Char(' ') + QString::number(call.sizeIn);
    return line;
}

inline QStringList journalLines()
{
    QStringList lines;
    for (const simulated::Call &call : simulated::journal())
        lines += journalLine(call);
    return lines;
}
