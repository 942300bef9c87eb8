// libVersion(), libVersionString() and separator().

#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"

using namespace velkor::SystemInfo;

class VersionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void libVersionReturnsThePatchFirst();
    void libVersionStoresTheFirstArgumentLast();
    void libVersionStringIsNotPadded();
    void separatorIs72HyphensAndALineFeed();
};

void VersionTest::libVersionReturnsThePatchFirst()
{
    int first = -1;
    int second = -1;
    int third = -1;
    libVersion(first, second, third);
    QCOMPARE(first, 12);
    QCOMPARE(second, 3);
    QCOMPARE(third, 1);
}

// If two arguments are the same variable, it has the value that is stored last.
void VersionTest::libVersionStoresTheFirstArgumentLast()
{
    int one = -1;
    int other = -1;
    libVersion(one, one, one);
    QCOMPARE(one, 12);
    libVersion(one, other, other);
    QCOMPARE(one, 12);
    QCOMPARE(other, 3);
    libVersion(one, other, one);
    QCOMPARE(one, 12);
    QCOMPARE(other, 3);
    libVersion(one, one, other);
    QCOMPARE(one, 12);
    QCOMPARE(other, 1);
}

void VersionTest::libVersionStringIsNotPadded()
{
    QCOMPARE(libVersionString(), QStringLiteral("1.3.12"));
}

void VersionTest::separatorIs72HyphensAndALineFeed()
{
    QCOMPARE(separator(),
             QStringLiteral("------------------------------------------------------------------------\n"));
    QCOMPARE(separator().size(), 73);
}

TEST_WITH_CORE_APPLICATION(VersionTest);
#include "tst_version.moc"
