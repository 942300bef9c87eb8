// qtSystemEnvironment()

#include "section_process.h"
#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"

using namespace velkor::SystemInfo;

class QtSystemEnvironmentTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
#ifndef Q_OS_WIN
    void wholeEnvironment_data();
    void wholeEnvironment();
#endif
    void ownEnvironment();
    void entries_data();
    void entries();
};

namespace {

const char heading[] = "System environemnt (QProcess::systemEnvironment()):\n";

} // namespace

#ifndef Q_OS_WIN

void QtSystemEnvironmentTest::wholeEnvironment_data()
{
    QTest::addColumn<QStringList>("environment");
    QTest::addColumn<QString>("expected");
    QTest::newRow("an empty environment: only the heading")
        << QStringList()
        << "System environemnt (QProcess::systemEnvironment()):\n";
    QTest::newRow("one entry")
        << QStringList({"NAME=value"})
        << "System environemnt (QProcess::systemEnvironment()):\n"
           "  NAME=value\n";
    QTest::newRow("entries in the order of the environment")
        << QStringList({"B=1", "a=2", "A=3"})
        << "System environemnt (QProcess::systemEnvironment()):\n"
           "  B=1\n"
           "  a=2\n"
           "  A=3\n";
    QTest::newRow("placeholders of several entries are not replaced")
        << QStringList({"B=%1", "%2=%3"})
        << "System environemnt (QProcess::systemEnvironment()):\n"
           "  B=%1\n"
           "  %2=%3\n";
    QTest::newRow("a line feed is not removed")
        << QStringList({"A=1\n2", "B=3"})
        << "System environemnt (QProcess::systemEnvironment()):\n"
           "  A=1\n"
           "2\n"
           "  B=3\n";
}

void QtSystemEnvironmentTest::wholeEnvironment()
{
    QFETCH(QStringList, environment);
    QFETCH(QString, expected);
    COMPARE_TEXT(qt_environment::sectionText(QStringLiteral("qtSystemEnvironment"), environment), expected);
}

#endif

// The test adds an entry and removes it again.
void QtSystemEnvironmentTest::ownEnvironment()
{
    const QString line = QString::fromUtf8("  VK_TEST_ENTRY=gr\xc3\xbc\xc3\x9f\x65\n");
    QVERIFY(!qtSystemEnvironment().contains(line));
    qputenv("VK_TEST_ENTRY", QString::fromUtf8("gr\xc3\xbc\xc3\x9f\x65").toLocal8Bit());
    const QString text = qtSystemEnvironment();
    qunsetenv("VK_TEST_ENTRY");
    QVERIFY2(text.startsWith(QLatin1String(heading)), qPrintable(text));
    QVERIFY2(text.contains(QLatin1Char('\n') + line), qPrintable(text));
    QVERIFY(!qtSystemEnvironment().contains(line));
}

void QtSystemEnvironmentTest::entries_data()
{
    QTest::addColumn<QString>("entry");
    QTest::newRow("a value") << "VK_TEST=value";
    QTest::newRow("placeholders are not replaced") << "VK_TEST=%1 %2 %99 %L1";
    QTest::newRow("a placeholder in the name") << "VK_TEST_%1=value";
    QTest::newRow("equals signs in the value") << "VK_TEST==a=b=";
    QTest::newRow("blanks are not removed") << "VK_TEST=  a b  ";
#ifndef Q_OS_WIN // Windows has no variables without a value
    QTest::newRow("no value") << "VK_TEST=";
#endif
}

void QtSystemEnvironmentTest::entries()
{
    QFETCH(QString, entry);
    const QString text = qt_environment::sectionText(QStringLiteral("qtSystemEnvironment"), {entry});
    QVERIFY2(text.startsWith(QLatin1String(heading)), qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("\n  ") + entry + QLatin1Char('\n')), qPrintable(text));
}

TEST_WITH_CORE_APPLICATION(QtSystemEnvironmentTest);
#include "tst_qt_system_environment.moc"
