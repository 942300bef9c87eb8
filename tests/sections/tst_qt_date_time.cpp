// qtDateTime(): text, and that its two times and its bias agree.

#include "section_process.h"
#include "texts.h"
#include "vkSystemInfo.h"

#include <QtCore/QDateTime>
#include <QtCore/QRegularExpression>

#ifdef Q_OS_WIN
#  include <time.h>
#  include <windows.h>
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
    void digitsOfTheLocale();
#endif
};

namespace {

/// What the section says; not valid when it is not in the section's format.
struct Times
{
    explicit Times(const QString &text);

    bool areValid() const { return local.isValid() && utc.isValid(); }

    QDateTime local; // as if it were UTC
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

// A name of a zone such as Unix has in TZ is no zone to the C library of Windows.
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

// In TZ, what is west of Greenwich is positive.
void QtDateTimeTest::zones_data()
{
    QTest::addColumn<QString>("zone");
    QTest::addColumn<int>("secondsFromLocalToUtc");
    QTest::addColumn<QString>("bias");

    QTest::newRow("UTC") << "UTC0" << 0 << "0";
    QTest::newRow("UTC-5 without daylight saving time") << "EST5" << 5 * 3600 << "300";
    QTest::newRow("UTC+1") << "CET-1" << -3600 << "-60";
    QTest::newRow("half an hour, east") << "IST-5:30" << -19800 << "-330";
    QTest::newRow("half an hour, west") << "NST3:30" << 12600 << "210";
    QTest::newRow("the day differs, east") << "AAA-14" << -50400 << "-840";
    QTest::newRow("the day differs, west") << "AAA12" << 43200 << "720";
    QTest::newRow("daylight saving time counts") << "EST5EDT4,0/0,J365/25" << 4 * 3600 << "240";
    QTest::newRow("parts of a minute are cut off, west") << "AAA5:00:59" << 18059 << "300";
    QTest::newRow("parts of a minute are cut off, east") << "AAA-5:00:59" << -18059 << "-300";
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

// Qt reads the variable; the C library need not know the locale.
void QtDateTimeTest::digitsOfTheLocale()
{
    const QString text = qt_environment::sectionText(
        QStringLiteral("qtDateTime"), {QStringLiteral("TZ=IST-5:30"), QStringLiteral("LC_ALL=ar_EG.UTF-8")});
    constexpr ushort arabicIndicZero = 0x0660;
    QString european = text;
    int arabicIndicDigits = 0;
    for (QChar &character : european) {
        if (character.unicode() < arabicIndicZero || character.unicode() > arabicIndicZero + 9)
            continue;
        character = QChar(character.unicode() - arabicIndicZero + '0');
        ++arabicIndicDigits;
    }
    QCOMPARE(arabicIndicDigits, 2 * 14); // every digit of both times
    QVERIFY2(Times(european).areValid(), qPrintable(text));
    QVERIFY2(text.endsWith(QLatin1String("\nActiveBias: -330 min\n")), qPrintable(text));
}

#endif

QTEST_GUILESS_MAIN(QtDateTimeTest)
#include "tst_qt_date_time.moc"
