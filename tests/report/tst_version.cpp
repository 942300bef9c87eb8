// libVersion(), libVersionString() and separator().

#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"

using namespace velkor::SystemInfo;

class VersionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbersComeInReverse();
    void textHasNoPadding();
    void separatorIs72HyphensAndALineFeed();
};

void VersionTest::numbersComeInReverse()
{
    int first = -1;
    int second = -1;
    int third = -1;
    libVersion(first, second, third);
    QCOMPARE(first, 12);
    QCOMPARE(second, 3);
    QCOMPARE(third, 1);
}

void VersionTest::textHasNoPadding()
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
