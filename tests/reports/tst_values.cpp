// What the texts of values mean. The expected numbers and dates are derived by hand.

#include "test_main.h"
#include "values.h"

using namespace velkor::Reports;

class ValuesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void integers_data();
    void integers();
    void byteCounts_data();
    void byteCounts();
    void reals_data();
    void reals();
    void dates_data();
    void dates();
};

void ValuesTest::integers_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("number"); // "none" if there is none
    const auto row = [](const char *text, const char *number) { QTest::newRow(text) << QByteArray(text) << QString::fromLatin1(number); };
    row("0", "0");
    row("8", "8");
    row("  42", "42");
    row("\xc2\xa0"
        "42",
        "42");
    row("45%", "45");
    row("40457 = 0x9e09", "40457");
    row("3600 MHz = 3.600 GHz", "3600");
    row("-60 min (offset to UTC)", "-60");
    row("0x3d1b3fff", "1025196031");
    row("0x00007ffffffeffff", "140737488289791");
    row("0xFF", "none"); // the format writes lower case
    row("9223372036854775807", "9223372036854775807");
    row("9223372036854775808", "none");
    row("-9223372036854775808", "-9223372036854775808");
    row("-9223372036854775809", "none");
    row("18446744073709551615", "none");
    row("18446744073709551616", "none");
    row("99999999999999999999999999", "none");
    row("0x8000000000000000", "none");
    row("-0x10", "0"); // hexadecimal numbers have no sign: only the digit before x counts
    row("-", "none");
    row("0x", "none");
    row("", "none");
    row("   ", "none");
    row("abc", "none");
    row("+5", "none");
}

void ValuesTest::integers()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, number);
    const std::optional<qint64> value = integerOf(text);
    QCOMPARE(value ? QString::number(*value) : QStringLiteral("none"), number);
}

void ValuesTest::byteCounts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("count");
    const auto row = [](const char *text, const char *count) { QTest::newRow(text) << QByteArray(text) << QString::fromLatin1(count); };
    row("4096", "4096");
    row("0 Byte", "0");
    row("1023 Byte", "1023");
    row("17055318016 Byte = 15.8 GByte", "17055318016");
    row("18446744073709551615 Byte", "18446744073709551615");
    // The digit after the point is (rest * 10) / 1024, so .5 begins at 512, .6 at 615 and .9 at 922.
    row("1.0 KByte", "1024");
    row("1.5 KByte", "1536");
    row("1023.9 KByte", "1048474"); // 1023 * 1024 + 922
    row("1.0 MByte", "1048576");
    row("300.4 MByte", "314992640"); // 300 * 1048576 + 410 * 1024
    row("1.4 GByte", "1503657984");  // 2^30 + 410 * 1048576
    row("1.5 GByte", "1610612736");
    row("70.6 GByte", "75806801920");         // 70 * 2^30 + 615 * 1048576
    row("131071.9 GByte", "140737381400576"); // 131071 * 2^30 + 922 * 1048576
    row("1.5", "none");
    row("1.5 ", "none");
    row("1. GByte", "none");
    row("1.10 GByte", "none"); // the format writes one digit
    row("1.5 TByte", "none");
    row("1.5GByte", "none");
    row("99999999999999999.0 GByte", "none");
    row("GByte", "none");
    row("", "none");
}

void ValuesTest::byteCounts()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, count);
    const std::optional<quint64> value = bytesOf(text);
    QCOMPARE(value ? QString::number(*value) : QStringLiteral("none"), count);
}

void ValuesTest::reals_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("number"); // -1 if there is none
    QTest::newRow("integer") << QByteArray("96") << 96.0;
    QTest::newRow("fraction") << QByteArray("95.9161") << 95.9161;
    QTest::newRow("unit") << QByteArray("60.02 Hz") << 60.02;
    QTest::newRow("exponent") << QByteArray("1.5e+06") << 1500000.0;
    QTest::newRow("spaces") << QByteArray("  2 ") << 2.0;
    QTest::newRow("infinite") << QByteArray("inf") << -1.0;
    QTest::newRow("not a number") << QByteArray("nan") << -1.0;
    QTest::newRow("comma") << QByteArray("1,5") << -1.0;
    QTest::newRow("text") << QByteArray("fast") << -1.0;
    QTest::newRow("empty") << QByteArray() << -1.0;
}

void ValuesTest::reals()
{
    QFETCH(QByteArray, text);
    QFETCH(double, number);
    QCOMPARE(realOf(text).value_or(-1.0), number);
}

void ValuesTest::dates_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("iso");
    const auto row = [](const QString &text, const char *iso) { QTest::newRow(qPrintable(text)) << text << QString::fromLatin1(iso); };
    row(QStringLiteral("07/19/2021"), "2021-07-19");
    row(QStringLiteral("07/19/21"), "2021-07-19");
    row(QStringLiteral("12/31/69"), "2069-12-31");
    row(QStringLiteral("01/01/70"), "1970-01-01");
    row(QStringLiteral("6-21-2006"), "2006-06-21");
    row(QStringLiteral("10-28-2021"), "2021-10-28");
    row(QStringLiteral("21-6-2006"), ""); // no month 21
    row(QStringLiteral("2-30-2021"), "");
    row(QStringLiteral("05.12.2023 09:41:07"), "2023-12-05T09:41:07");
    row(QStringLiteral("05.12.2023"), "");
    row(QStringLiteral("05.12.2023 24:00:00"), "");
    row(QStringLiteral("Tue Dec 05 09:41:07 2023"), "2023-12-05T09:41:07");
    row(QStringLiteral("Tue Jan  9 07:58:03 2024"), "2024-01-09T07:58:03"); // a space in the place of the zero
    row(QStringLiteral("Tue Xyz 05 09:41:07 2023"), "");
    row(QStringLiteral("Tue Dec 05 09:41:07"), "");
    row(QStringLiteral("  6-1-2021 "), "2021-06-01");
    row(QStringLiteral("0x7fffffffffffffff"), ""); // a lease without an end
    row(QStringLiteral("1-2-3-4"), "");
    row(QStringLiteral("1/2/12345"), "");
    row(QStringLiteral("0-0-0"), "");
    row(QString(), "");
    // 21.11.2026 13:17:53 in Arabic-Indic digits, U+0660 is zero
    QString native;
    const QString plain = QStringLiteral("21.11.2026 13:17:53");
    for (const QChar character : plain)
        native += character.isDigit() ? QChar(0x660 + character.digitValue()) : character;
    QTest::newRow("Arabic-Indic digits") << native << QStringLiteral("2026-11-21T13:17:53");
}

void ValuesTest::dates()
{
    QFETCH(QString, text);
    QFETCH(QString, iso);
    QCOMPARE(isoDateOf(text), iso);
}

TEST_WITHOUT_APPLICATION(ValuesTest);
#include "tst_values.moc"
