// _localtime32_s() and asctime_s() of the C run-time library.

#include "answering_windows.h"
#include "rows.h"
#include "run_time_form.h"

#include <cerrno>
#include <time.h>

namespace {

struct tm someTime()
{
    struct tm time = {}; // Sunday, 4 January 1970, 05:06:07
    time.tm_wday = 0;
    time.tm_mday = 4;
    time.tm_year = 70;
    time.tm_hour = 5;
    time.tm_min = 6;
    time.tm_sec = 7;
    return time;
}

const int struct_tm_fields = 9;

QVector<int> fields(const struct tm &time)
{
    return {time.tm_sec, time.tm_min, time.tm_hour, time.tm_mday, time.tm_mon, time.tm_year, time.tm_wday,
            time.tm_yday, time.tm_isdst};
}

void negativeTime()
{
    const auto row = [](const QString &name, qint32 seconds) {
        addTestRow(name, [=] {
            const AnsweringWindows windows;
            const __time32_t time = seconds;
            struct tm local = someTime();
            QCOMPARE(int(_localtime32_s(&local, &time)), EINVAL);
            QCOMPARE(fields(local), QVector<int>(struct_tm_fields, -1));
        });
    };
    row("one second before 1970", qint32(-1));
    row("the smallest time", std::numeric_limits<qint32>::min());
}

void offsetOfLocalTimeIsInMinutes()
{
    const AnsweringWindows windows;
    const __time32_t time = 1701337145; // 30 November 2023, 09:39:05 UTC
    struct tm local = {};
    QCOMPARE(int(_localtime32_s(&local, &time)), 0);
    QCOMPARE(local.tm_sec, 5);
    QCOMPARE(local.tm_year, 123);
    QVERIFY(local.tm_mday == 29 || local.tm_mday == 30 || local.tm_mon == 11);
    QVERIFY(local.tm_yday >= 332 && local.tm_yday <= 334);
}

void text()
{
    const auto row = [](const QString &name, const QVector<int> &time, const QByteArray &expected) {
        addTestRow(name, [=] {
            const AnsweringWindows windows;
            struct tm record = {};
            record.tm_year = time.at(0);
            record.tm_mon = time.at(1);
            record.tm_mday = time.at(2);
            record.tm_wday = time.at(3);
            record.tm_hour = time.at(4);
            record.tm_min = time.at(5);
            record.tm_sec = time.at(6);
            PoisonedBuffer exact(26);
            QCOMPARE(int(asctime_s(exact.narrow(), 26, &record)), 0);
            QCOMPARE(QByteArray(exact.narrow()), expected);
            QVERIFY(exact.isUntouchedFrom(26));
            PoisonedBuffer large(64);
            QCOMPARE(int(asctime_s(large.narrow(), 64, &record)), 0);
            QCOMPARE(QByteArray(large.narrow()), expected);
            QVERIFY(large.isUntouchedFrom(26));
        });
    };
    row("the first two-digit day", QVector<int> {70, 0, 10, 6, 0, 0, 0}, QByteArray("Sat Jan 10 00:00:00 1970\n"));
    row("the last second of 32-bit time", QVector<int> {138, 0, 19, 2, 3, 14, 7}, QByteArray("Tue Jan 19 03:14:07 2038\n"));
    row("the end of a year", QVector<int> {99, 11, 31, 5, 23, 59, 59}, QByteArray("Fri Dec 31 23:59:59 1999\n"));
    row("a leap day", QVector<int> {100, 1, 29, 2, 12, 30, 0}, QByteArray("Tue Feb 29 12:30:00 2000\n"));
}

void oneDigitDay()
{
    const AnsweringWindows windows;
    const struct tm time = someTime();
    PoisonedBuffer buffer(32);
    QCOMPARE(int(asctime_s(buffer.narrow(), 26, &time)), 0);
    const QByteArray text(buffer.narrow());
#ifdef SIMULATED_WINDOWS
    QCOMPARE(text, QByteArray("Sun Jan  4 05:06:07 1970\n"));
#else
    // The Universal C run-time library pads with a blank, msvcrt with a zero.
    QCOMPARE(text, QByteArray(dayHasZero() ? "Sun Jan 04 05:06:07 1970\n" : "Sun Jan  4 05:06:07 1970\n"));
#endif
}

// The Universal C run-time library and the simulated Windows end the process instead: tst_simulated_time.
#if !defined(SIMULATED_WINDOWS) && !defined(_UCRT)
#  define RETURNS_ERRORS
#endif

#ifdef RETURNS_ERRORS
void textTooLong()
{
    const auto row = [](const QString &name, int capacity, const QString &written) {
        addTestRow(name, [=] {
            const AnsweringWindows windows;
            const struct tm time = someTime();
            PoisonedBuffer buffer(32);
            QCOMPARE(int(asctime_s(buffer.narrow(), std::size_t(capacity), &time)), EINVAL);
            QCOMPARE(buffer.written(), written);
        });
    };
    row("no room for the terminator: an empty text", 25, "00");
    row("a buffer of one byte: an empty text", 1, "00");
    row("a buffer of 0 bytes: nothing is written", 0, QString());
}

void invalidTime()
{
    const auto row = [](const QString &name, int month, int weekday) {
        addTestRow(name, [=] {
            const AnsweringWindows windows;
            struct tm time = someTime();
            time.tm_mon = month;
            time.tm_wday = weekday;
            PoisonedBuffer buffer(32);
            QCOMPARE(int(asctime_s(buffer.narrow(), 32, &time)), EINVAL);
            QCOMPARE(buffer.written(), QStringLiteral("00"));
        });
    };
    row("a 13th month", 12, 0);
    row("a month before January", -1, 0);
    row("an eighth day of the week", 0, 7);
    row("a day before Sunday", 0, -1);
}
#endif

void addTests()
{
    addTestRows("negativeTime", negativeTime);
    addTestRow("offsetOfLocalTimeIsInMinutes", offsetOfLocalTimeIsInMinutes);
    addTestRows("text", text);
    addTestRow("oneDigitDay", oneDigitDay);
#ifdef RETURNS_ERRORS
    addTestRows("textTooLong", textTooLong);
    addTestRows("invalidTime", invalidTime);
#endif
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addTests));
