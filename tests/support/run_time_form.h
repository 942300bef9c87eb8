// asctime_s() pads a one-digit day with a blank or a zero, depending on the C run-time library.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <time.h>

/// True for msvcrt, which pads with a zero. The Universal C run-time library pads with a blank.
inline bool dayHasZero()
{
    struct tm time = {};
    time.tm_mday = 4;
    time.tm_year = 70;
    char text[26] = {};
    return asctime_s(text, sizeof text, &time) == 0 && QByteArray(text).startsWith("Sun Jan 04");
}

/// Converts a text of the Universal C run-time library's asctime_s() to the form of the
/// library in use.
inline QString inFormOfRunTime(QString text)
{
    constexpr int dayPosition = 8; // after "Sun Jan "
    if (text.size() > dayPosition && text.at(dayPosition) == QLatin1Char(' ') && dayHasZero())
        text[dayPosition] = QLatin1Char('0');
    return text;
}
