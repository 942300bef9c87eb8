// The order of versions, numbers and dates, and the entries of lists.

#include "test_main.h"
#include "value_comparison.h"

using namespace velkor::Reports;

class ValueComparisonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void versions_data();
    void versions();
    void digits_data();
    void digits();
    void dates_data();
    void dates();
    void entriesThatCameAndWent();
    void largeChanges();
    void listsWhoseOrderMatters();
};

namespace {

constexpr int unknown = 2;

int sign(std::optional<int> result)
{
    return !result ? unknown : *result < 0 ? -1
        : *result > 0                      ? 1
                                           : 0;
}

void columns()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<int>("expected");
}

void row(const char *name, const QString &a, const QString &b, int expected)
{
    QTest::newRow(name) << a << b << expected;
}

} // namespace

void ValueComparisonTest::versions_data()
{
    columns();
    row("equal", "10.0.19045", "10.0.19045", 0);
    row("one number more", "10.0.19045", "10.0.19045.1", -1);
    row("one zero more", "10.0.19045", "10.0.19045.0", 0);
    row("two zeros more and then a number", "10", "10.0.0.1", -1);
    row("as numbers, not as texts", "10.9", "10.10", -1);
    row("the first number decides", "9.99.99", "10.0.0", -1);
    row("zeros before a number", "10.00.019045", "10.0.19045", 0);
    row("numbers of more than 64 bits", "1.99999999999999999999999999", "1.100000000000000000000000000", -1);
    row("equal numbers of more than 64 bits", "1.99999999999999999999999999", "1.099999999999999999999999999", 0);
    row("a text after it", "11.2.1305 (raw value 0xb020519)", "11.2.1312 (raw value 0xb020520)", -1);
    row("the same text after it", "11.2 (a)", "11.02 (a)", 0);
    row("another text after it", "11.2 (a)", "11.2 (b)", unknown);
    row("a text after one of them", "11.2", "11.2 (b)", unknown);
    row("a point at the end", "11.2.", "11.2.", 0);
    row("a point at the end of one", "11.2.", "11.2", unknown);
    row("a letter before it", "V5.0", "V6.0", unknown);
    row("empty", "", "", unknown);
    row("one is empty", "1.0", "", unknown);
    row("digits of another script are no version", QString::fromUtf8("\u0661.0"), QString::fromUtf8("\u0662.0"), unknown);
}

void ValueComparisonTest::versions()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(int, expected);
    QCOMPARE(sign(compareVersions(a, b)), expected);
    QCOMPARE(sign(compareVersions(b, a)), expected == unknown ? unknown : -expected);
}

void ValueComparisonTest::digits_data()
{
    columns();
    row("equal", "17", "17", 0);
    row("more digits", "9", "10", -1);
    row("zeros before it", "0009", "10", -1);
    row("equal but for zeros", "0009", "9", 0);
    row("only zeros", "000", "0", 0);
    row("nothing is zero", "", "0", 0);
    row("the last digit differs", "12345678901234567890123456789", "12345678901234567890123456780", 1);
}

void ValueComparisonTest::digits()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(int, expected);
    QCOMPARE(sign(compareDigits(a, b)), expected);
    QCOMPARE(sign(compareDigits(b, a)), -expected);
}

void ValueComparisonTest::dates_data()
{
    columns();
    row("equal", "2021-07-19", "2021-07-19", 0);
    row("another day", "2021-07-19", "2021-07-20", -1);
    row("another year", "2021-12-31", "2022-01-01", -1);
    row("another time", "2023-12-05T09:41:07", "2023-12-05T09:41:08", -1);
    row("a day and a moment of it", "2023-12-05", "2023-12-05T09:41:08", unknown);
    row("a day and a moment of another one", "2023-12-06", "2023-12-05T09:41:08", 1);
    row("no date", "", "2021-07-19", unknown);
    row("no dates", "", "", unknown);
}

void ValueComparisonTest::dates()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(int, expected);
    QCOMPARE(sign(compareDates(a, b)), expected);
    QCOMPARE(sign(compareDates(b, a)), expected == unknown ? unknown : -expected);
}

void ValueComparisonTest::entriesThatCameAndWent()
{
    QCOMPARE(entriesWithout({"a", "b", "c"}, {"b"}), QStringList({"a", "c"}));
    QCOMPARE(entriesWithout({"a", "a", "a"}, {"a"}), QStringList({"a", "a"}));
    QCOMPARE(entriesWithout({"a"}, {"a", "a"}), QStringList());
    QCOMPARE(entriesWithout({}, {"a"}), QStringList());
    QCOMPARE(entriesWithout({"b", "a"}, {}), QStringList({"b", "a"}));
}

void ValueComparisonTest::largeChanges()
{
    constexpr quint64 gByte = quint64(1) << 30;
    QVERIFY(!isLargeChange(50 * gByte, 100 * gByte, 50 * gByte, 100 * gByte));
    QVERIFY(!isLargeChange(50 * gByte, 100 * gByte, 60 * gByte, 100 * gByte)); // exactly a tenth
    QVERIFY(isLargeChange(50 * gByte, 100 * gByte, 60 * gByte + 1, 100 * gByte));
    QVERIFY(isLargeChange(60 * gByte + 1, 100 * gByte, 50 * gByte, 100 * gByte));
    QVERIFY(isLargeChange(5 * gByte, 100 * gByte, 5 * gByte - 1, 100 * gByte)); // exactly 5 % is not nearly full
    QVERIFY(isLargeChange(5 * gByte - 1, 100 * gByte, 5 * gByte, 100 * gByte));
    QVERIFY(isLargeChange(gByte, 12 * gByte, gByte - 1, 12 * gByte)); // exactly 1 GByte is not nearly full
    QVERIFY(!isLargeChange(gByte - 2, 12 * gByte, gByte - 1, 12 * gByte));
    QVERIFY(!isLargeChange(0, 0, 0, 0));
    const quint64 most = ~quint64(0);
    QVERIFY(isLargeChange(0, most, most, most));
}

void ValueComparisonTest::listsWhoseOrderMatters()
{
    QStringList ordered;
    QStringList sets;
    for (const FactRow &fact : factRows()) {
        if (fact.type == Type::List)
            (orderMatters(fact) ? ordered : sets) += QString::fromUtf8(fact.key);
    }
    QCOMPARE(ordered, QStringList({"systemBiosVersion", "videoBiosVersion", "installedDisplayDrivers", "openGlDriverName", "openGlDriverNameWoW", "libraryPaths"}));
    QCOMPARE(sets, QStringList({"activeProcessors", "virtualSiblings", "glExtensions"}));
}

TEST_WITHOUT_APPLICATION(ValueComparisonTest);

#include "tst_value_comparison.moc"
