// _localtime32_s in the zone of the description, and the text of asctime_s.

#include "described_windows.h"
#include "poisoned_buffer.h"
#include "simulated_windows.h"
#include "test_main.h"

#include <QtTest/QtTest>
#include <cerrno>
#include <limits>
#include <time.h>

class SimulatedTimeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void localTime_data();
    void localTime();
    void isIndependentOfTheProcess();
    void negativeTimeFails_data();
    void negativeTimeFails();
};

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

} // namespace

void SimulatedTimeTest::localTime_data()
{
    QTest::addColumn<qint32>("seconds");
    QTest::addColumn<int>("timeZone");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char *name, qint32 seconds, int timeZone, const char *expected) {
        QTest::newRow(name) << seconds << timeZone << QByteArray(expected);
    };
    row("the beginning", 0, 0, "Thu Jan  1 00:00:00 1970\n");
    row("the first Sunday", 259200, 0, "Sun Jan  4 00:00:00 1970\n");
    row("an hour east", 1701337145, -60, "Thu Nov 30 10:39:05 2023\n");
    row("five hours west", 1701337145, 300, "Thu Nov 30 04:39:05 2023\n");
    row("five and a half hours east", 1701337145, -330, "Thu Nov 30 15:09:05 2023\n");
    row("the same zone in summer", 1688200000, -60, "Sat Jul  1 09:26:40 2023\n");
    row("west of the beginning", 0, 300, "Wed Dec 31 19:00:00 1969\n");
    row("the end", std::numeric_limits<qint32>::max(), 0, "Tue Jan 19 03:14:07 2038\n");
    row("east of the end", std::numeric_limits<qint32>::max(), -840, "Tue Jan 19 17:14:07 2038\n");
}

void SimulatedTimeTest::localTime()
{
    QFETCH(qint32, seconds);
    QFETCH(int, timeZone);
    QFETCH(QByteArray, expected);
    const DescribedWindows windows(QByteArray(), "{\"timeZone\": " + QByteArray::number(timeZone) + '}');
    QCOMPARE(textOf(seconds), expected);
}

void SimulatedTimeTest::isIndependentOfTheProcess()
{
    qputenv("TZ", "America/New_York");
    tzset();
    const DescribedWindows windows(QByteArray(), "{}");
    QCOMPARE(textOf(1701337145), QByteArray("Thu Nov 30 09:39:05 2023\n"));
}

void SimulatedTimeTest::negativeTimeFails_data()
{
    QTest::addColumn<qint32>("seconds");
    QTest::addColumn<int>("timeZone");
    QTest::newRow("one second before the beginning") << -1 << 0;
    QTest::newRow("one second before, east") << -1 << -60;
    QTest::newRow("the smallest") << std::numeric_limits<qint32>::min() << 0;
}

void SimulatedTimeTest::negativeTimeFails()
{
    QFETCH(qint32, seconds);
    QFETCH(int, timeZone);
    const DescribedWindows windows(QByteArray(), "{\"timeZone\": " + QByteArray::number(timeZone) + '}');
    const __time32_t time = seconds;
    struct tm local = {};
    QCOMPARE(_localtime32_s(&local, &time), EINVAL);
    QCOMPARE(simulated::journal().back().result, qint64(EINVAL));
    QCOMPARE(simulated::journal().back().value, QString::number(seconds));
}

TEST_WITHOUT_APPLICATION(SimulatedTimeTest);
#include "tst_simulated_time.moc"
