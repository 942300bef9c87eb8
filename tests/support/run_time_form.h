// How the run-time library in use writes a day of one digit.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <time.h>

/// The Universal C run-time library puts a blank before a day below 10, msvcrt a zero.
inline bool dayHasZero()
{
    struct tm time = {};
    time.tm_mday = 4;
    time.tm_year = 70;
    char text[26] = {};
    return asctime_s(text, sizeof text, &time) == 0 && QByteArray(text).startsWith("Sun Jan 04");
}

/// Converts a text of the Universal C run-time library's asctime_s to the form of the
/// library in use.
inline QString inFormOfRunTime(QString text)
{
    constexpr int dayPosition = 8; // after "Sun Jan "
    if (text.size() > dayPosition && text.at(dayPosition) == QLatin1Char(' ') && dayHasZero())
        text[dayPosition] = QLatin1Char('0');
    return text;
}
