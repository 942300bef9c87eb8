// diskDevicesFromRegistry(): texts and calls.

#include "described_windows.h"
#include "registry_values.h"
#include "section_calls.h"
#include "test_main.h"
#include "texts.h"
#include "win/windows_sections.h"

#include <windows.h>

using namespace velkor::SystemInfo::WinSysInfo;

class DiskDevicesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void headings_data();
    void headings();
    void text_data();
    void text();
    void values_data();
    void values();
    void deniedKeys_data();
    void deniedKeys();
#ifdef SIMULATED_WINDOWS
    void devicesThatCannotBeOpened();
    void calls();
    void failingCalls_data();
    void failingCalls();
    void anyFailingCall();
#endif
};

namespace {

const char title[] = ">>> Info about 'USBSTOR' disk devices from registry:\n";

/// A key below that of the enumerator; its values may follow.
QByteArray usbKey(const QByteArray &path = QByteArray())
{
    return machineKey("SYSTEM\\CurrentControlSet\\Enum\\USBSTOR" + path);
}

QString usbDevices()
{
    return diskDevicesFromRegistry(QStringLiteral("USBSTOR"));
}

QByteArray allValues()
{
    return textValue("Service", "disk") + listValue("HardwareID", {"USBSTOR\\DiskAcme", "GenDisk"})
        + textValue("LocationInformation", "Bus 0") + textValue("FriendlyName", "Acme Stick USB Device")
        + textValue("DeviceDesc", "Disk drive") + textValue("Class", "DiskDrive");
}

const char allLines[] = "   Class:               DiskDrive\n"
                        "   Device Description:  Disk drive\n"
                        "   Friendly Name:       Acme Stick USB Device\n"
                        "   LocationInformation: Bus 0\n"
                        "   Hardware ID:         USBSTOR\\DiskAcme\n"
                        "   Service:             disk\n";

} // namespace

void DiskDevicesTest::headings_data()
{
    QTest::addColumn<QString>("enumerator");
    QTest::addColumn<QString>("expected");
    for (const char *name : {"FDC", "IDE", "SCSI"}) {
        QTest::newRow((QByteArray(name) + " is missing: one heading without a listing").constData())
            << QString(name) << ">>> Info about '" + QString(name) + "' disk devices from registry:\n";
    }
    QTest::newRow("an enumerator with a device")
        << "USBSTOR"
        << ">>> Info about 'USBSTOR' disk devices from registry:\nStick\n\n";
    QTest::newRow("a placeholder in the enumerator's name stays")
        << "%1"
        << ">>> Info about '%1' disk devices from registry:\n";
}

void DiskDevicesTest::headings()
{
    QFETCH(QString, enumerator);
    QFETCH(QString, expected);
    const DescribedWindows windows(usbKey("\\Stick"));
    COMPARE_TEXT(diskDevicesFromRegistry(enumerator), expected);
}

void DiskDevicesTest::text_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QString>("lines");
    const auto row = [](const char *what, const QByteArray &registry, const QString &lines) {
        QTest::newRow(what) << registry << lines;
    };
    row("no enumerator: the heading alone", "", "");
    row("no device: the heading alone", usbKey(), "");
    row("a device without instances: its name and one empty line", usbKey("\\Disk&Ven_Acme"), "Disk&Ven_Acme\n\n");
    row("a stick with one instance: two empty lines behind its values", usbKey("\\Stick\\0001") + allValues(),
        QStringLiteral("Stick\n") + allLines + "\n\n");
    row("an instance without values: an empty line for it and one for the device", usbKey("\\Stick\\0001"),
        "Stick\n\n\n");
    row("two instances, in the order of their names, which are not shown",
        usbKey("\\Stick\\0002") + textValue("Service", "second") + usbKey("\\Stick\\0001")
            + textValue("Service", "first"),
        "Stick\n   Service:             first\n\n   Service:             second\n\n\n");
    row("two devices, in the order of their names",
        usbKey("\\Stick B\\1") + textValue("Service", "b") + usbKey("\\Stick A\\1") + textValue("Service", "a"),
        "Stick A\n   Service:             a\n\n\nStick B\n   Service:             b\n\n\n");
    row("a device without instances before one with",
        usbKey("\\A") + usbKey("\\B\\1") + textValue("Class", "c"), "A\n\nB\n   Class:               c\n\n\n");
    row("values of the device itself and of keys below an instance are not read",
        usbKey("\\Stick") + allValues() + usbKey("\\Stick\\1\\Device Parameters") + allValues(), "Stick\n\n\n");
    row("a placeholder in a name stays", usbKey("\\%1 %2\\1"), "%1 %2\n\n\n");
}

void DiskDevicesTest::text()
{
    QFETCH(QByteArray, registry);
    QFETCH(QString, lines);
    const DescribedWindows windows(registry);
    COMPARE_TEXT(usbDevices(), title + lines);
}

void DiskDevicesTest::values_data()
{
    QTest::addColumn<QByteArray>("values");
    QTest::addColumn<QString>("lines");
    const auto row = [](const char *what, const QByteArray &values, const QString &lines) {
        QTest::newRow(what) << values << lines;
    };
    row("all, in the order of the table", allValues(), allLines);
    row("the class alone", textValue("Class", "CDROM"), "   Class:               CDROM\n");
    row("the description alone", textValue("DeviceDesc", "@disk.inf,%disk%;Disk"),
        "   Device Description:  @disk.inf,%disk%;Disk\n");
    row("the friendly name alone", textValue("FriendlyName", "Acme"), "   Friendly Name:       Acme\n");
    row("the location alone", textValue("LocationInformation", "Bus 1"), "   LocationInformation: Bus 1\n");
    row("the hardware ID alone", textValue("HardwareID", "id"), "   Hardware ID:         id\n");
    row("the service alone", textValue("Service", "cdrom"), "   Service:             cdrom\n");
    row("the first of two hardware IDs", listValue("HardwareID", {"first", "second"}), "   Hardware ID:         first\n");
    row("hardware IDs of which the first is empty", listValue("HardwareID", {"", "second"}),
        "   Hardware ID:         \n");
    row("other values have no line", textValue("Mfg", "Acme") + textValue("ClassGUID", "{}"), "");
    row("an empty text", textValue("Class", ""), "   Class:               \n");
    row("any type: a number's bytes", numberValue("Class", 0x00434241), "   Class:               ABC\n");
    row("a placeholder stays", textValue("FriendlyName", "%1 %2 %99 %L1"), "   Friendly Name:       %1 %2 %99 %L1\n");
    row("UTF-8 bytes become their character", binaryValue("Class", QByteArray("\xc3\xa9\0", 3)),
        QString("   Class:               ") + QChar(0xe9) + '\n');
    row("a text without a terminator", hexValue("Class", REG_SZ, utf16Data("abc")), "   Class:               abc\n");
    row("data without a terminator goes on in the value before it",
        textValue("Class", "DiskDrive") + binaryValue("DeviceDesc", "XY"),
        "   Class:               DiskDrive\n   Device Description:  XYskDrive\n");
    row("the first value without a terminator goes on in the instance's name", binaryValue("Class", "XY"),
        "   Class:               XYstance\n");
    row("data of no bytes repeats the value before it", textValue("Class", "DiskDrive") + hexValue("Service", REG_SZ, ""),
        "   Class:               DiskDrive\n   Service:             DiskDrive\n");
    row("2048 bytes without a terminator are text as a whole", binaryValue("Class", QByteArray(2048, 'x')),
        "   Class:               " + QString(2048, 'x') + '\n');
    row("2049 bytes have no line, and the next value is read",
        binaryValue("Class", QByteArray(2049, 'x')) + textValue("Service", "disk"), "   Service:             disk\n");
}

void DiskDevicesTest::values()
{
    QFETCH(QByteArray, values);
    QFETCH(QString, lines);
    const DescribedWindows windows(usbKey("\\Stick\\Instance") + values);
    COMPARE_TEXT(usbDevices(), title + QStringLiteral("Stick\n") + lines + "\n\n");
}

void DiskDevicesTest::deniedKeys_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QByteArrayList>("denied"); // below the key of the enumerator
    QTest::addColumn<QString>("lines");
    const auto row = [](const char *what, const QByteArray &registry, const QByteArrayList &denied, const QString &lines) {
        QTest::newRow(what) << registry << denied << lines;
    };
    const auto key = [](const QByteArray &path, const char *service) { return usbKey(path) + textValue("Service", service); };
    const auto instance = [](const char *service) { return QString("   Service:             ") + service + "\n\n"; };
    const QByteArray instances = key("\\Stick\\1", "a") + key("\\Stick\\2", "b") + key("\\Stick\\3", "c");
    row("the first instance", instances, {"Stick\\1"}, "Stick\n" + instance("b") + instance("c") + '\n');
    row("an instance in the middle", instances, {"Stick\\2"}, "Stick\n" + instance("a") + instance("c") + '\n');
    row("the last instance", instances, {"Stick\\3"}, "Stick\n" + instance("a") + instance("b") + '\n');
    row("all instances: the name and an empty line", instances, {"Stick\\1", "Stick\\2", "Stick\\3"}, "Stick\n\n");
    const QByteArray devices = key("\\A\\1", "a") + key("\\B\\1", "b") + key("\\C\\1", "c");
    row("the first device: its name without an empty line", devices, {"A"},
        "A\nB\n" + instance("b") + "\nC\n" + instance("c") + '\n');
    row("a device in the middle", devices, {"B"}, "A\n" + instance("a") + "\nB\nC\n" + instance("c") + '\n');
    row("the last device", devices, {"C"}, "A\n" + instance("a") + "\nB\n" + instance("b") + "\nC\n");
    row("the enumerator: the heading alone", devices, {""}, "");
}

void DiskDevicesTest::deniedKeys()
{
    QFETCH(QByteArray, registry);
    QFETCH(QByteArrayList, denied);
    QFETCH(QString, lines);
    const DescribedWindows windows(
        registry, deniedBelow("HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Enum\\USBSTOR", denied));
    COMPARE_TEXT(usbDevices(), title + lines);
}

#ifdef SIMULATED_WINDOWS

void DiskDevicesTest::devicesThatCannotBeOpened()
{
    // A name that is lost on the way: of the device, and of an instance.
    const DescribedWindows windows(usbKey("\\Ger\xc3\xa4t\\1") + textValue("Class", "x") + usbKey("\\Stick\\\xc3\xa4")
                                   + textValue("Class", "x"));
    COMPARE_TEXT(usbDevices(), title + QString("Ger") + QChar(0xfffd) + "t\nStick\n\n");
}

void DiskDevicesTest::calls()
{
    const DescribedWindows windows(usbKey("\\Stick\\1") + allValues());
    usbDevices();
    COMPARE_TEXT(journalText(), R"(RegOpenKeyExA HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR 0x20019
RegEnumKeyExA HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR "0" 2048
RegOpenKeyExA HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR\Stick 0x20019
RegEnumKeyExA HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR\Stick "0" 2048
RegOpenKeyExA HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR\Stick\1 0x20019
RegQueryValueExA HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR\Stick\1 "Class" 2048
RegQueryValueExA HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR\Stick\1 "DeviceDesc" 2048
RegQueryValueExA HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR\Stick\1 "FriendlyName" 2048
RegQueryValueExA HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR\Stick\1 "LocationInformation" 2048
RegQueryValueExA HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR\Stick\1 "HardwareID" 2048
RegQueryValueExA HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR\Stick\1 "Service" 2048
RegCloseKey HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR\Stick\1
RegEnumKeyExA HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR\Stick "1" 2048
RegCloseKey HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR\Stick
RegEnumKeyExA HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR "1" 2048
RegCloseKey HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR
)");
    QCOMPARE(handleProblems(), QString());
}

namespace {

/// Two devices, the first of two instances.
machine::Machine fullMachine()
{
    return DescribedWindows::parse(usbKey("\\A\\1") + allValues() + usbKey("\\A\\2") + textValue("Service", "two")
                                       + usbKey("\\B\\1") + textValue("Service", "three"),
                                   "{}");
}

const char secondInstance[] = "   Service:             two\n\n";
const char secondDevice[] = "B\n   Service:             three\n\n\n";

} // namespace

void DiskDevicesTest::failingCalls_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("lines");
    const auto row = [](const char *what, const char *call, int number, const QString &lines) {
        QTest::newRow(what) << QByteArray(call) << number << lines;
    };
    const QString firstInstance = QString(allLines) + '\n';
    const QString full = "A\n" + firstInstance + secondInstance + '\n' + secondDevice;
    const auto withoutLine = [&](const char *line) { return QString(full).remove(QString(line) + '\n'); };
    row("the enumerator does not open: the heading alone", "RegOpenKeyExA", 0, "");
    row("a device does not open: its name, then the next one", "RegOpenKeyExA", 1, QString("A\n") + secondDevice);
    row("an instance does not open: nothing for it", "RegOpenKeyExA", 2,
        QString("A\n") + secondInstance + '\n' + secondDevice);
    row("the walk over devices fails at its start", "RegEnumKeyExA", 0, "");
    row("the walk over instances fails at its start", "RegEnumKeyExA", 1, QString("A\n\n") + secondDevice);
    row("the walk over instances fails behind the first", "RegEnumKeyExA", 2,
        "A\n" + firstInstance + '\n' + secondDevice);
    row("the walk over devices fails behind the first", "RegEnumKeyExA", 4,
        "A\n" + firstInstance + secondInstance + '\n');
    row("no class", "RegQueryValueExA", 0, withoutLine("   Class:               DiskDrive"));
    row("no description", "RegQueryValueExA", 1, withoutLine("   Device Description:  Disk drive"));
    row("no friendly name", "RegQueryValueExA", 2, withoutLine("   Friendly Name:       Acme Stick USB Device"));
    row("no location", "RegQueryValueExA", 3, withoutLine("   LocationInformation: Bus 0"));
    row("no hardware ID", "RegQueryValueExA", 4, withoutLine("   Hardware ID:         USBSTOR\\DiskAcme"));
    row("no service", "RegQueryValueExA", 5, withoutLine("   Service:             disk"));
    row("an instance does not close: nothing shows", "RegCloseKey", 0, full);
    row("a device does not close: nothing shows", "RegCloseKey", 2, full);
}

void DiskDevicesTest::failingCalls()
{
    QFETCH(QByteArray, call);
    QFETCH(int, number);
    QFETCH(QString, lines);
    COMPARE_TEXT(textWithFailingCall(fullMachine(), call, number, usbDevices), title + lines);
}

void DiskDevicesTest::anyFailingCall()
{
    QCOMPARE(problemOfAnyFailingCall(fullMachine(), title, usbDevices), QString());
}

#endif

TEST_WITH_CORE_APPLICATION(DiskDevicesTest);
#include "tst_disk_devices.moc"
