// _localtime32_s() in the described time zone, and the text of asctime_s().

#include "described_windows.h"
#include "forked_child.h"
#include "poisoned_buffer.h"
#include "rows.h"
#include "simulated_windows.h"

#include <QtTest/QtTest>
#include <cerrno>
#include <limits>
#include <time.h>

namespace {

QByteArray textOf(qint32 seconds)
{
    const __time32_t time = seconds;
    struct tm local = {};
    char text[26] = {};
    if (_localtime32_s(&local, &time) != 0 || asctime_s(text, sizeof text, &local) != 0)
        return "failed";
    return text;
}

void localTime()
{
    const auto row = [](const char *name, qint32 seconds, int timeZone, const QByteArray &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows(QByteArray(), "{\"timeZone\": " + QByteArray::number(timeZone) + '}');
            QCOMPARE(textOf(seconds), expected);
        });
    };
    row("the first second", 0, 0, "Thu Jan  1 00:00:00 1970\n");
    row("the first Sunday", 259200, 0, "Sun Jan  4 00:00:00 1970\n");
    row("an hour east of UTC", 1701337145, -60, "Thu Nov 30 10:39:05 2023\n");
    row("five hours west of UTC", 1701337145, 300, "Thu Nov 30 04:39:05 2023\n");
    row("five and a half hours east of UTC", 1701337145, -330, "Thu Nov 30 15:09:05 2023\n");
    row("no daylight saving time", 1688200000, -60, "Sat Jul  1 09:26:40 2023\n");
    row("the first second, west of UTC", 0, 300, "Wed Dec 31 19:00:00 1969\n");
    row("the last second", std::numeric_limits<qint32>::max(), 0, "Tue Jan 19 03:14:07 2038\n");
    row("the last second, east of UTC", std::numeric_limits<qint32>::max(), -840, "Tue Jan 19 17:14:07 2038\n");
}

void timeZoneOfTheProcessIsIgnored()
{
    qputenv("TZ", "America/New_York");
    tzset();
    const DescribedWindows windows(QByteArray(), "{}");
    QCOMPARE(textOf(1701337145), QByteArray("Thu Nov 30 09:39:05 2023\n"));
}

void negativeTimeFails()
{
    const auto row = [](const QString &name, qint32 seconds, int timeZone) {
        addTestRow(name, [=] {
            const DescribedWindows windows(QByteArray(), "{\"timeZone\": " + QByteArray::number(timeZone) + '}');
            const __time32_t time = seconds;
            struct tm local = {};
            QCOMPARE(_localtime32_s(&local, &time), EINVAL);
            QCOMPARE(simulated::journal().back().result, qint64(EINVAL));
            QCOMPARE(simulated::journal().back().value, QString::number(seconds));
        });
    };
    row("one second before 1970", -1, 0);
    row("one second before 1970, east of UTC", -1, -60);
    row("the smallest time", std::numeric_limits<qint32>::min(), 0);
}

void timeZoneBeyondAnyYear()
{
    const auto row = [](const char *name, const QByteArray &timeZone) {
        addTestRow(name, [=] {
            const DescribedWindows windows(QByteArray(), "{\"timeZone\": " + timeZone + '}');
            const __time32_t time = 1701337145;
            struct tm local = {};
            QCOMPARE(_localtime32_s(&local, &time), EINVAL);
            QCOMPARE(local.tm_year, -1);
            QCOMPARE(local.tm_isdst, -1);
        });
    };
    row("the largest: before the year 1900", "2147483647");
    row("190 years back: before the year 1900", "100000000");
}

void invalidParameterEndsTheProcess()
{
    const auto row = [](const char *name, int tm::*field, int value, const QByteArray &end) {
        addTestRow(name, [=] {
            const DescribedWindows windows {QByteArray()};
            QCOMPARE(endOf([=] {
                         struct tm time = {};
                         time.tm_mday = 1;
                         time.*field = value;
                         char text[26];
                         asctime_s(text, sizeof text, &time);
                     }),
                     end);
        });
    };
    const QByteArray aborted("signal 6");
    row("a valid time", &tm::tm_mon, 11, "exit code 0");
    row("a 13th month", &tm::tm_mon, 12, aborted);
    row("a month before January", &tm::tm_mon, -1, aborted);
    row("an eighth day of the week", &tm::tm_wday, 7, aborted);
    row("a day before Sunday", &tm::tm_wday, -1, aborted);
    row("no day of the month", &tm::tm_mday, 0, aborted);
    row("a year before 1900", &tm::tm_year, -1, aborted);
    row("second 60", &tm::tm_sec, 60, aborted);

    const auto sizeRow = [](const char *name, std::size_t size, const QByteArray &end) {
        addTestRow(name, [=] {
            const DescribedWindows windows {QByteArray()};
            QCOMPARE(endOf([=] {
                         struct tm time = {};
                         time.tm_mday = 1;
                         char text[32];
                         asctime_s(text, size, &time);
                     }),
                     end);
        });
    };
    sizeRow("a buffer of 26 bytes", 26, "exit code 0");
    sizeRow("no room for the terminator", 25, aborted);
    sizeRow("a buffer of 0 bytes", 0, aborted);
}

void addTests()
{
    addTestRows("localTime", localTime);
    addTestRow("timeZoneOfTheProcessIsIgnored", timeZoneOfTheProcessIsIgnored);
    addTestRows("negativeTimeFails", negativeTimeFails);
    addTestRows("timeZoneBeyondAnyYear", timeZoneBeyondAnyYear);
    addTestRows("invalidParameterEndsTheProcess", invalidParameterEndsTheProcess);
}

} // namespace

TEST_WITHOUT_APPLICATION(RowTest(addTests));
