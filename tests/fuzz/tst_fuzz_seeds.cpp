// The seeds of the fuzzer describe the machines of machines/.

#include "described_windows.h"
#include "hostile_machine.h"
#include "seeds.h"
#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"
#include "win/adapter_details.h"
#include "win/windows_sections.h"

#include <QtCore/QFile>
#include <QtTest/QtTest>

using namespace velkor::SystemInfo;

namespace {

/// All texts that the fuzz target for the report requests.
QString wholeText(const machine::Machine &machine)
{
    const DescribedWindows windows(machine);
    QString text = WinSysInfo::allWinInfos();
    ScanOpenGLInfo(nullptr).GetOpenGLDriverInfo(text);
    for (quint32 index = 0; index < 32; ++index)
        text += WinSysInfo::adapterDetails(index);
    return text;
}

} // namespace

class TestFuzzSeeds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void seedsGiveTheSameReport_data();
    void seedsGiveTheSameReport();
    void bytesDecodeToFaultsAndChanges();
    void bytesDenyAKey();
    void committedInputsMeanWhatTheyAreNamed();
};

void TestFuzzSeeds::seedsGiveTheSameReport_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"workstation", "wine"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestFuzzSeeds::seedsGiveTheSameReport()
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

void TestFuzzSeeds::bytesDecodeToFaultsAndChanges()
{
    // Fail every RegCloseKey with ERROR_ACCESS_DENIED; Change before call 7 with one byte of steps;
    // RunTwice.
    const HostileMachine hostile = hostileMachine(QByteArray::fromHex("09010105"
                                                                      "0a07010b"
                                                                      "0b"));
    QCOMPARE(int(hostile.faults.size()), 1);
    QCOMPARE(hostile.faults.front().call, QByteArray("RegCloseKey"));
    QVERIFY(hostile.faults.front().every);
    QCOMPARE(hostile.faults.front().error, 5u);
    QCOMPARE(int(hostile.changes.size()), 1);
    QCOMPARE(int(hostile.changes.front().beforeCall), 7);
    QCOMPARE(hostile.changes.front().steps, QByteArray("\x0b"));
    QVERIFY(hostile.runTwice);
}

void TestFuzzSeeds::bytesDenyAKey()
{
    // EnterSubKey "A", DenyKey, Leave. Numbers between Count and DenyKey are taken modulo Count.
    const HostileMachine hostile = hostileMachine(QByteArray::fromHex("010001"
                                                                      "41"
                                                                      "ff"
                                                                      "02"));
    const auto root = hostile.machine.registry.root(machine::RegistryRoot::LocalMachine);
    QVERIFY(!root->isDenied());
    QVERIFY(root->findSubKey(QStringLiteral("A"))->isDenied());
    const HostileMachine other = hostileMachine(QByteArray::fromHex("010001"
                                                                    "41"
                                                                    "fe"));
    QVERIFY(!other.machine.registry.root(machine::RegistryRoot::LocalMachine)->findSubKey(QStringLiteral("A"))->isDenied());
}

// The inputs name keys and values by their numbers, which change with the section table.
void TestFuzzSeeds::committedInputsMeanWhatTheyAreNamed()
{
    QFile file(QStringLiteral(CORPUS_DIR "/report/hand-memory-size-of-nine-bytes"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const HostileMachine hostile = hostileMachine(file.readAll());
    const auto root = hostile.machine.registry.root(machine::RegistryRoot::LocalMachine);
    const auto key = machine::findKey(root, QStringLiteral("SYSTEM\\CurrentControlSet\\Control\\Video\\0\\0"));
    QVERIFY(key);
    const machine::RegistryValue *value = key->findValue(QStringLiteral("HardwareInformation.qwMemorySize"));
    QVERIFY(value);
    QCOMPARE(value->data.size(), 9);
}

TEST_WITHOUT_APPLICATION(TestFuzzSeeds);
#include "tst_fuzz_seeds.moc"
