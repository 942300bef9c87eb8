// qtDateTime(): text, and consistency of its two times and its bias.
//
// The digits of dates are those of the system locale, which Qt takes from the environment on Unix.
// The bias has the digits 0 to 9.

#include "section_process.h"
#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"

#include <QtCore/QDateTime>
#include <QtCore/QRegularExpression>

#ifdef Q_OS_WIN
#  include <time.h>
#  include <windows.h>
#else
#  include <QtCore/QLocale>
#  include <ctime>
#  include <dlfcn.h>
#endif

using namespace velkor::SystemInfo;

class QtDateTimeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
#ifdef Q_OS_WIN
    void initTestCase();
#endif
    void timeIsNow();
#ifdef Q_OS_WIN
    void zoneOfWindows();
#else
    void zones_data();
    void zones();
    void bothTimesAreOfOneCall_data();
    void bothTimesAreOfOneCall();
    void digitsOfTheSystem_data();
    void digitsOfTheSystem();
    void defaultLocaleHasNoEffect_data();
    void defaultLocaleHasNoEffect();
#endif
};

#ifndef Q_OS_WIN

namespace clock_of_the_test {

QList<QDateTime> moments; // the results of the next calls; if empty, the real time
int calls = 0;

} // namespace clock_of_the_test

// The linker prefers this definition to that of QtCore.
QDateTime QDateTime::currentDateTime()
{
    using Function = QDateTime (*)();
    static const auto real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "_ZN9QDateTime15currentDateTimeEv"));
    ++clock_of_the_test::calls;
    return clock_of_the_test::moments.isEmpty() ? real() : clock_of_the_test::moments.takeFirst();
}

#endif

namespace {

/// The parsed text of the section; not valid if it does not match the format.
struct Times
{
    explicit Times(const QString &text);

    bool areValid() const { return local.isValid() && utc.isValid(); }

    QDateTime local; // stored as UTC
    QDateTime utc;
    QString bias;
};

QDateTime parseTime(const QString &text)
{
    QDateTime time = QDateTime::fromString(text, QStringLiteral("dd.MM.yyyy hh:mm:ss"));
    time.setTimeSpec(Qt::UTC);
    return time;
}

Times::Times(const QString &text)
{
    static const QRegularExpression format(
        QStringLiteral("\\ALocal Date and Time: ([0-9]{2}[.][0-9]{2}[.][0-9]{4} [0-9]{2}:[0-9]{2}:[0-9]{2})\n"
                       "UTC   Date and Time: ([0-9]{2}[.][0-9]{2}[.][0-9]{4} [0-9]{2}:[0-9]{2}:[0-9]{2})\n"
                       "ActiveBias: (-?[0-9]+) min\n\\z"));
    const QRegularExpressionMatch match = format.match(text);
    if (!match.hasMatch())
        return;
    local = parseTime(match.captured(1));
    utc = parseTime(match.captured(2));
    bias = match.captured(3);
}

QDateTime now()
{
    return QDateTime::fromSecsSinceEpoch(QDateTime::currentSecsSinceEpoch(), Qt::UTC);
}

} // namespace

#ifdef Q_OS_WIN

// The C library of Windows does not know the names of zones that TZ has on Unix.
void QtDateTimeTest::initTestCase()
{
    qunsetenv("TZ");
    _tzset();
}

#endif

void QtDateTimeTest::timeIsNow()
{
    const QDateTime before = now();
    const QString text = qtDateTime();
    const QDateTime after = now();
    const Times times(text);
    QVERIFY2(times.areValid(), qPrintable(text));
    QVERIFY2(before <= times.utc && times.utc <= after, qPrintable(text));
}

#ifdef Q_OS_WIN

void QtDateTimeTest::zoneOfWindows()
{
    TIME_ZONE_INFORMATION zone = {};
    const DWORD season = GetTimeZoneInformation(&zone);
    const LONG bias = zone.Bias + (season == TIME_ZONE_ID_DAYLIGHT ? zone.DaylightBias : zone.StandardBias);
    const QString text = qtDateTime();
    const Times times(text);
    QVERIFY2(times.areValid(), qPrintable(text));
    QCOMPARE(times.bias, QString::number(bias));
    QCOMPARE(times.local.secsTo(times.utc), qint64(bias) * 60);
}

#else

// In TZ, offsets west of Greenwich are positive.
void QtDateTimeTest::zones_data()
{
    QTest::addColumn<QString>("zone");
    QTest::addColumn<int>("secondsFromLocalToUtc");
    QTest::addColumn<QString>("bias");

    QTest::newRow("UTC") << "UTC0" << 0 << "0";
    QTest::newRow("UTC-5 without daylight saving time") << "EST5" << 5 * 3600 << "300";
    QTest::newRow("UTC+1") << "CET-1" << -3600 << "-60";
    QTest::newRow("half an hour east") << "IST-5:30" << -19800 << "-330";
    QTest::newRow("half an hour west") << "NST3:30" << 12600 << "210";
    QTest::newRow("the local day differs, east") << "AAA-14" << -50400 << "-840";
    QTest::newRow("the local day differs, west") << "AAA12" << 43200 << "720";
    QTest::newRow("daylight saving time is included") << "EST5EDT4,0/0,J365/25" << 4 * 3600 << "240";
    QTest::newRow("seconds are truncated, west") << "AAA5:00:59" << 18059 << "300";
    QTest::newRow("seconds are truncated, east") << "AAA-5:00:59" << -18059 << "-300";
    QTest::newRow("the largest offset west") << "AAA24" << 86400 << "1440";
    QTest::newRow("the largest offset east") << "AAA-24" << -86400 << "-1440";
    QTest::newRow("less than a minute, west") << "AAA0:00:59" << 59 << "0";
    QTest::newRow("less than a minute, east") << "AAA-0:00:59" << -59 << "0";
}

void QtDateTimeTest::zones()
{
    QFETCH(QString, zone);
    QFETCH(int, secondsFromLocalToUtc);
    QFETCH(QString, bias);
    const QDateTime before = now();
    const QString text = qt_environment::sectionText(QStringLiteral("qtDateTime"), {QStringLiteral("TZ=") + zone});
    const QDateTime after = now();
    const Times times(text);
    QVERIFY2(times.areValid(), qPrintable(text));
    QVERIFY2(before <= times.utc && times.utc <= after, qPrintable(text));
    QCOMPARE(times.local.secsTo(times.utc), qint64(secondsFromLocalToUtc));
    QCOMPARE(times.bias, bias);
}

namespace {

void useZone(const QByteArray &zone)
{
    qputenv("TZ", zone);
    tzset();
}

/// currentDateTime() returns \a first, and other times when it is called again.
void setClock(const QDateTime &first)
{
    clock_of_the_test::moments = {first, first.addDays(400).addSecs(4 * 3600 + 5 * 60 + 6), first.addYears(10)};
    clock_of_the_test::calls = 0;
}

void letClockRun()
{
    clock_of_the_test::moments.clear();
    useZone("UTC0");
}

} // namespace

void QtDateTimeTest::bothTimesAreOfOneCall_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QDateTime>("local"); // in the zone
    QTest::addColumn<QString>("expected");
    QTest::newRow("afternoon, UTC+1")
        << QByteArray("AAA-1") << QDateTime(QDate(2021, 3, 4), QTime(17, 8, 9))
        << "Local Date and Time: 04.03.2021 17:08:09\n"
           "UTC   Date and Time: 04.03.2021 16:08:09\n"
           "ActiveBias: -60 min\n";
    QTest::newRow("the last second of a year, UTC-1")
        << QByteArray("AAA1") << QDateTime(QDate(2021, 12, 31), QTime(23, 59, 59))
        << "Local Date and Time: 31.12.2021 23:59:59\n"
           "UTC   Date and Time: 01.01.2022 00:59:59\n"
           "ActiveBias: 60 min\n";
}

// A second call of currentDateTime() would return another time.
void QtDateTimeTest::bothTimesAreOfOneCall()
{
    QFETCH(QByteArray, zone);
    QFETCH(QDateTime, local);
    QFETCH(QString, expected);
    useZone(zone);
    setClock(QDateTime(local.date(), local.time())); // local time in that zone
    const QString text = qtDateTime();
    const int calls = clock_of_the_test::calls;
    letClockRun();
    COMPARE_TEXT(text, expected);
    QCOMPARE(calls, 1);
}

void QtDateTimeTest::digitsOfTheSystem_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<ushort>("zero");
    QTest::newRow("Egypt") << "ar_EG" << ushort(0x0660);
    QTest::newRow("Iran") << "fa_IR" << ushort(0x06f0);
    QTest::newRow("Morocco: Arabic with European digits") << "ar_MA" << ushort('0');
    QTest::newRow("Germany") << "de_DE" << ushort('0');
}

void QtDateTimeTest::digitsOfTheSystem()
{
    QFETCH(QString, locale);
    QFETCH(ushort, zero);
    const QDateTime before = now();
    const QString text = qt_environment::sectionText(
        QStringLiteral("qtDateTime"), {QStringLiteral("TZ=AAA-11:45"), QStringLiteral("LC_ALL=%1.UTF-8").arg(locale)});
    const QDateTime after = now();
    const int bias = text.indexOf(QLatin1String("ActiveBias: "));
    QVERIFY2(bias > 0, qPrintable(text));
    QString dates = text.left(bias);
    if (zero != '0')
        QVERIFY2(!dates.contains(QRegularExpression(QStringLiteral("[0-9]"))), qPrintable(text));
    for (ushort digit = 0; digit < 10; ++digit)
        dates.replace(QChar(ushort(zero + digit)), QChar(ushort('0' + digit)));
    const Times times(dates + text.mid(bias));
    QVERIFY2(times.areValid(), qPrintable(text));
    QVERIFY2(before <= times.utc && times.utc <= after, qPrintable(text));
    QCOMPARE(times.local.secsTo(times.utc), qint64(-705 * 60));
    QCOMPARE(times.bias, QStringLiteral("-705"));
}

void QtDateTimeTest::defaultLocaleHasNoEffect_data()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("Egypt") << "ar_EG";
    QTest::newRow("Germany") << "de_DE";
}

void QtDateTimeTest::defaultLocaleHasNoEffect()
{
    QFETCH(QString, locale);
    useZone("AAA24");
    setClock(QDateTime(QDate(2021, 3, 4), QTime(17, 8, 9)));
    const QLocale before;
    QLocale::setDefault(QLocale(locale));
    const QString text = qtDateTime();
    QLocale::setDefault(before);
    letClockRun();
    COMPARE_TEXT(text, QStringLiteral("Local Date and Time: 04.03.2021 17:08:09\n"
                                      "UTC   Date and Time: 05.03.2021 17:08:09\n"
                                      "ActiveBias: 1440 min\n"));
}

#endif

TEST_WITH_CORE_APPLICATION(QtDateTimeTest);
#include "tst_qt_date_time.moc"
