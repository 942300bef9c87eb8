// portsFromRegistry(): texts and calls.

#include "described_windows.h"
#include "registry_values.h"
#include "section_calls.h"
#include "test_main.h"
#include "texts.h"
#include "win/windows_sections.h"

#include <windows.h>

using namespace velkor::SystemInfo::WinSysInfo;

class PortsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void headings_data();
    void headings();
    void text_data();
    void text();
#ifdef SIMULATED_WINDOWS
    void orderOfTheDescription();
    void calls();
    void failingCalls_data();
    void failingCalls();
    void anyFailingCall();
#endif
};

namespace {

const char title[] = ">> Info about 'SERIALCOMM' ports from registry:\n";

QByteArray serialMap()
{
    return machineKey("HARDWARE\\DEVICEMAP\\SERIALCOMM");
}

QString serialPorts()
{
    return portsFromRegistry(QStringLiteral("SERIALCOMM"));
}

} // namespace

void PortsTest::headings_data()
{
    QTest::addColumn<QString>("map");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no parallel ports: the heading alone")
        << "PARALLEL PORTS"
        << ">> Info about 'PARALLEL PORTS' ports from registry:\n";
    QTest::newRow("serial ports: the heading, the listing and an empty line")
        << "SERIALCOMM"
        << ">> Info about 'SERIALCOMM' ports from registry:\nA   COM1\n\n";
    QTest::newRow("the map without regard to case, the heading as asked")
        << "SerialComm"
        << ">> Info about 'SerialComm' ports from registry:\nA   COM1\n\n";
    QTest::newRow("a placeholder in the map's name stays") << "%1"
                                                           << ">> Info about '%1' ports from registry:\n";
}

void PortsTest::headings()
{
    QFETCH(QString, map);
    QFETCH(QString, expected);
    const DescribedWindows windows(serialMap() + textValue("A", "COM1"));
    COMPARE_TEXT(portsFromRegistry(map), expected);
}

void PortsTest::text_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QString>("lines");
    const auto row = [](const char *what, const QByteArray &values, const QString &lines) {
        QTest::newRow(what) << serialMap() + values << lines;
    };
    QTest::newRow("no map: the heading alone") << QByteArray() << QString();
    row("an empty map: an empty line", "", "\n");
    row("two values",
        "\"\\\\Device\\\\Serial0\"=\"COM1\"\n\"\\\\Device\\\\Serial1\"=\"COM2\"\n",
        "\\Device\\Serial0   COM1\n\\Device\\Serial1   COM2\n\n");
    row("the default value has no name", "@=\"COM9\"\n", "   COM9\n\n");
    row("an empty text", textValue("A", ""), "A   \n\n");
    row("keys below the map are not listed",
        textValue("A", "COM1") + machineKey("HARDWARE\\DEVICEMAP\\SERIALCOMM\\More") + textValue("B", "COM2"),
        "A   COM1\n\n");
    row("any type: a number's bytes", numberValue("A", 0x00434241), "A   ABC\n\n");
    row("any type: a list's first string", listValue("A", {"COM1", "COM2"}), "A   COM1\n\n");
    row("data up to its first null", binaryValue("A", QByteArray("CO\0M1", 5)), "A   CO\n\n");
    row("a text without a terminator", hexValue("A", REG_SZ, utf16Data("COM1")), "A   COM1\n\n");
    row("data without a terminator goes on in the data before it",
        textValue("A", "COM17") + binaryValue("B", "XY"), "A   COM17\nB   XYM17\n\n");
    row("data of no bytes repeats the data before it", textValue("A", "COM17") + hexValue("B", REG_SZ, ""),
        "A   COM17\nB   COM17\n\n");
    row("UTF-8 bytes become their character", binaryValue("A", "\xc3\xa9"), QString("A   ") + QChar(0xe9) + "\n\n");
    row("a placeholder in the data stays", textValue("A", "%1 %2 %99"), "A   %1 %2 %99\n\n");
    row("the second placeholder in the name takes the data too", textValue("A%2", "COM1"), "ACOM1   COM1\n\n");
    row("the first placeholder in the name takes the data instead", textValue("A%1", "COM1"), "ACOM1   %2\n\n");
    row("a localised placeholder in the name takes the data instead", textValue("A%L1", "COM1"), "ACOM1   %2\n\n");
    row("a higher placeholder in the name stays", textValue("A%99", "COM1"), "A%99   COM1\n\n");
    row("data of 2048 bytes without a terminator is text as a whole", binaryValue("A", QByteArray(2048, 'x')),
        "A   " + QString(2048, 'x') + "\n\n");
    row("data of 2049 bytes ends the listing",
        textValue("A", "COM1") + binaryValue("B", QByteArray(2049, 'x')) + textValue("C", "COM3"), "A   COM1\n\n");
    row("a name of 2047 characters fits", textValue(QByteArray(2047, 'n'), "COM1"), QString(2047, 'n') + "   COM1\n\n");
    row("a name of 2048 characters ends the listing",
        textValue("A", "COM1") + textValue(QByteArray(2048, 'n'), "COM2") + textValue("z", "COM3"), "A   COM1\n\n");
}

void PortsTest::text()
{
    QFETCH(QByteArray, registry);
    QFETCH(QString, lines);
    const DescribedWindows windows(registry);
    COMPARE_TEXT(serialPorts(), title + lines);
}

#ifdef SIMULATED_WINDOWS

namespace {

machine::Machine fullMachine()
{
    return DescribedWindows::parse(serialMap() + textValue("A", "COM1") + textValue("B", "COM2"), "{}");
}

} // namespace

void PortsTest::orderOfTheDescription()
{
    const DescribedWindows windows(serialMap() + textValue("Z", "COM1") + textValue("A", "COM2"));
    COMPARE_TEXT(serialPorts(), title + QStringLiteral("Z   COM1\nA   COM2\n\n"));
}

void PortsTest::calls()
{
    const DescribedWindows windows(fullMachine());
    serialPorts();
    COMPARE_TEXT(journalText(), R"(RegOpenKeyExA HKEY_LOCAL_MACHINE\HARDWARE\DEVICEMAP\SERIALCOMM 0x20019
RegEnumValueA HKEY_LOCAL_MACHINE\HARDWARE\DEVICEMAP\SERIALCOMM "0" 2048
RegEnumValueA HKEY_LOCAL_MACHINE\HARDWARE\DEVICEMAP\SERIALCOMM "1" 2048
RegEnumValueA HKEY_LOCAL_MACHINE\HARDWARE\DEVICEMAP\SERIALCOMM "2" 2048
RegCloseKey HKEY_LOCAL_MACHINE\HARDWARE\DEVICEMAP\SERIALCOMM
)");
    QCOMPARE(handleProblems(), QString());
}

void PortsTest::failingCalls_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("lines");
    QTest::newRow("the map does not open: the heading alone") << QByteArray("RegOpenKeyExA") << 0 << "";
    QTest::newRow("the first value cannot be read: an empty line") << QByteArray("RegEnumValueA") << 0 << "\n";
    QTest::newRow("the second value cannot be read: the listing ends")
        << QByteArray("RegEnumValueA") << 1 << "A   COM1\n\n";
    QTest::newRow("the map does not close: nothing shows")
        << QByteArray("RegCloseKey") << 0 << "A   COM1\nB   COM2\n\n";
}

void PortsTest::failingCalls()
{
    QFETCH(QByteArray, call);
    QFETCH(int, number);
    QFETCH(QString, lines);
    COMPARE_TEXT(textWithFailingCall(fullMachine(), call, number, serialPorts), title + lines);
}

void PortsTest::anyFailingCall()
{
    QCOMPARE(problemOfAnyFailingCall(fullMachine(), title, serialPorts), QString());
}

#endif

TEST_WITH_CORE_APPLICATION(PortsTest);
#include "tst_ports.moc"
