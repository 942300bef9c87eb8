// _localtime32_s() in the described time zone, and the text of asctime_s().

#include "described_windows.h"
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

void addTests()
{
    addTestRows("localTime", localTime);
    addTestRow("timeZoneOfTheProcessIsIgnored", timeZoneOfTheProcessIsIgnored);
    addTestRows("negativeTimeFails", negativeTimeFails);
}

} // namespace

TEST_WITHOUT_APPLICATION(RowTest(addTests));
