// The seeds of the fuzzer are the described machines.

#include "described_windows.h"
#include "hostile_machine.h"
#include "qt/qt_network_interfaces.h"
#include "seeds.h"
#include "texts.h"
#include "vkSystemInfo.h"
#include "win/windows_sections.h"

#include <QtCore/QDir>
#include <QtTest/QtTest>

using namespace velkor::SystemInfo;

namespace {

/// Everything that the fuzzer asks of a machine.
QString wholeText(const machine::Machine &machine)
{
    const DescribedWindows windows(machine);
    QString text = WinSysInfo::allWinInfos();
    ScanOpenGLInfo(nullptr).GetOpenGLDriverInfo(text);
    for (quint32 index = 0; index < 32; ++index)
        text += adapterDetails(index);
    return text;
}

} // namespace

class TestFuzzSeeds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void seedsMakeTheSameReport_data() { addMachines(); }
    void seedsMakeTheSameReport();
    void committedSeedsAreThoseOfTheMachine_data() { addMachines(); }
    void committedSeedsAreThoseOfTheMachine();
    void anyBytesAreAMachine();

private:
    static void addMachines()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"workstation", "wine"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
};

void TestFuzzSeeds::seedsMakeTheSameReport()
{
    QFETCH(QString, name);
    const machine::Machine machine = DescribedWindows::load(name);
    HostileMachine fromSeeds;
    const QMap<QString, QByteArray> seeds = seedsOf(machine);
    for (const QByteArray &steps : seeds)
        takeSteps(steps, fromSeeds);
    QVERIFY(fromSeeds.faults.empty());
    QVERIFY(fromSeeds.changes.empty());
    COMPARE_TEXT(wholeText(fromSeeds.machine), wholeText(machine));
}

void TestFuzzSeeds::committedSeedsAreThoseOfTheMachine()
{
    QFETCH(QString, name);
    const QMap<QString, QByteArray> seeds = seedsOf(DescribedWindows::load(name));
    const QDir folder(QStringLiteral(CORPUS_DIR "/report"));
    QStringList expected;
    for (const QString &seed : seeds.keys())
        expected += name + QLatin1Char('-') + seed;
    QCOMPARE(folder.entryList({name + QStringLiteral("-*")}, QDir::Files, QDir::Name), expected);
    for (auto it = seeds.begin(); it != seeds.end(); ++it) {
        QFile file(folder.filePath(name + QLatin1Char('-') + it.key()));
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.errorString()));
        QVERIFY2(file.readAll() == it.value(), qPrintable(file.fileName() + QStringLiteral(" is to be made again by make_seeds")));
    }
}

void TestFuzzSeeds::anyBytesAreAMachine()
{
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second)
            hostileMachine(QByteArray(1, char(first)) + char(second));
    }
    const HostileMachine hostile = hostileMachine(QByteArray::fromHex("0902010005") + QByteArray::fromHex("0b"));
    QCOMPARE(int(hostile.faults.size()), 1);
    QCOMPARE(hostile.faults.front().call, QByteArray("RegCloseKey"));
    QCOMPARE(hostile.faults.front().error, 5u);
    QVERIFY(hostile.runTwice);
}

QTEST_APPLESS_MAIN(TestFuzzSeeds)
#include "tst_fuzz_seeds.moc"
