// diskDevicesFromRegistry()

#include "section_rows.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const SectionRows rows([] { return diskDevicesFromRegistry("USBSTOR"); },
                       ">>> Info about 'USBSTOR' disk devices from registry:\n");

/// A key below that of the enumerator; its values may follow.
QByteArray usbKey(const QByteArray &path = QByteArray())
{
    return machineKey("SYSTEM\\CurrentControlSet\\Enum\\USBSTOR" + path);
}

QByteArray allValues()
{
    return textValue("Service", "disk") + listValue("HardwareID", {"USBSTOR\\DiskAcme", "GenDisk"})
        + textValue("LocationInformation", "Bus 0") + textValue("FriendlyName", "Acme Stick USB Device")
        + textValue("DeviceDesc", "Disk drive") + textValue("Class", "DiskDrive");
}

const QStringList allLines = {"   Class:               DiskDrive\n",
                              "   Device Description:  Disk drive\n",
                              "   Friendly Name:       Acme Stick USB Device\n",
                              "   LocationInformation: Bus 0\n",
                              "   Hardware ID:         USBSTOR\\DiskAcme\n",
                              "   Service:             disk\n"};

void enumeratorRows()
{
    const auto row = [](const QString &name, const QString &enumerator, const QString &lines) {
        const SectionRows rowsOfEnumerator([=] { return diskDevicesFromRegistry(enumerator); },
                                           ">>> Info about '" + enumerator + "' disk devices from registry:\n");
        rowsOfEnumerator.text(name, usbKey("\\Stick"), lines);
    };
    for (const char *name : {"FDC", "IDE", "SCSI"})
        row(name + QString(" is missing: one heading without a listing"), name, "");
    row("an enumerator with a device", "USBSTOR", "Stick\n\n");
    row("a placeholder in the enumerator's name is not replaced", "%1", "");
}

void walkRows()
{
    rows.text("no enumerator: only the heading", "", "");
    rows.text("no device: only the heading", usbKey(), "");
    rows.text("a device without instances: its name and one empty line", usbKey("\\Disk&Ven_Acme"), "Disk&Ven_Acme\n\n");
    rows.text("a device with one instance: two empty lines after its values", usbKey("\\Stick\\0001") + allValues(),
              "Stick\n" + allLines.join(QString()) + "\n\n");
    rows.text("an instance without values: an empty line for it and one for the device", usbKey("\\Stick\\0001"),
              "Stick\n\n\n");
    rows.text("two instances, in the order of their names, which are not shown",
              usbKey("\\Stick\\0002") + textValue("Service", "second") + usbKey("\\Stick\\0001")
                  + textValue("Service", "first"),
              "Stick\n   Service:             first\n\n   Service:             second\n\n\n");
    rows.text("two devices, in the order of their names",
              usbKey("\\Stick B\\1") + textValue("Service", "b") + usbKey("\\Stick A\\1") + textValue("Service", "a"),
              "Stick A\n   Service:             a\n\n\nStick B\n   Service:             b\n\n\n");
    rows.text("a device without instances before one with",
              usbKey("\\A") + usbKey("\\B\\1") + textValue("Class", "c"), "A\n\nB\n   Class:               c\n\n\n");
    rows.text("values of the device itself and of keys below an instance are not read",
              usbKey("\\Stick") + allValues() + usbKey("\\Stick\\1\\Device Parameters") + allValues(), "Stick\n\n\n");
    rows.text("a placeholder in a name is not replaced", usbKey("\\%1 %2\\1"), "%1 %2\n\n\n");
}

void valueRows()
{
    const auto row = [](const char *name, const QByteArray &values, const QString &lines) {
        rows.text(name, usbKey("\\Stick\\Instance") + values, "Stick\n" + lines + "\n\n");
    };
    row("all, in the order of the table", allValues(), allLines.join(QString()));
    row("only the class", textValue("Class", "CDROM"), "   Class:               CDROM\n");
    row("only the description", textValue("DeviceDesc", "@disk.inf,%disk%;Disk"),
        "   Device Description:  @disk.inf,%disk%;Disk\n");
    row("only the friendly name", textValue("FriendlyName", "Acme"), "   Friendly Name:       Acme\n");
    row("only the location", textValue("LocationInformation", "Bus 1"), "   LocationInformation: Bus 1\n");
    row("only the hardware ID", textValue("HardwareID", "id"), "   Hardware ID:         id\n");
    row("only the service", textValue("Service", "cdrom"), "   Service:             cdrom\n");
    row("the first of two hardware IDs", listValue("HardwareID", {"first", "second"}), "   Hardware ID:         first\n");
    row("the first hardware ID is empty", listValue("HardwareID", {"", "second"}),
        "   Hardware ID:         \n");
    row("other values have no line", textValue("Mfg", "Acme") + textValue("ClassGUID", "{}"), "");
    row("an empty text", textValue("Class", ""), "   Class:               \n");
    row("a REG_DWORD: its bytes are the text", numberValue("Class", 0x00434241), "   Class:               ABC\n");
    row("a placeholder is not replaced", textValue("FriendlyName", "%1 %2 %99 %L1"), "   Friendly Name:       %1 %2 %99 %L1\n");
    row("text is decoded as UTF-8", binaryValue("Class", QByteArray("\xc3\xa9\0", 3)),
        QString("   Class:               ") + QChar(0xe9) + '\n');
    row("a text without a terminator", hexValue("Class", REG_SZ, utf16Data("abc")), "   Class:               abc\n");
    row("unterminated data is followed by the rest of the previous value",
        textValue("Class", "DiskDrive") + binaryValue("DeviceDesc", "XY"),
        "   Class:               DiskDrive\n   Device Description:  XYskDrive\n");
    row("an unterminated first value is followed by the rest of the instance's name", binaryValue("Class", "XY"),
        "   Class:               XYstance\n");
    row("data of 0 bytes shows the previous value", textValue("Class", "DiskDrive") + hexValue("Service", REG_SZ, ""),
        "   Class:               DiskDrive\n   Service:             DiskDrive\n");
    row("2048 bytes without a terminator are shown whole", binaryValue("Class", QByteArray(2048, 'x')),
        "   Class:               " + QString(2048, 'x') + '\n');
    row("2049 bytes have no line, and the next value is read",
        binaryValue("Class", QByteArray(2049, 'x')) + textValue("Service", "disk"), "   Service:             disk\n");
}

void deniedRows()
{
    const auto row = [](const char *name, const QByteArray &registry, const QByteArrayList &denied, const QString &lines) {
        rows.text(name, {registry, deniedBelow("HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Enum\\USBSTOR", denied)},
                  lines);
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
    row("the enumerator: only the heading", devices, {""}, "");
}

void callRows()
{
    QString journal = R"(RegOpenKeyExA ... 0x20019
RegEnumKeyExA ... "0" 2048
RegOpenKeyExA ...\Stick 0x20019
RegEnumKeyExA ...\Stick "0" 2048
RegOpenKeyExA ...\Stick\1 0x20019
RegQueryValueExA ...\Stick\1 "Class" 2048
RegQueryValueExA ...\Stick\1 "DeviceDesc" 2048
RegQueryValueExA ...\Stick\1 "FriendlyName" 2048
RegQueryValueExA ...\Stick\1 "LocationInformation" 2048
RegQueryValueExA ...\Stick\1 "HardwareID" 2048
RegQueryValueExA ...\Stick\1 "Service" 2048
RegCloseKey ...\Stick\1
RegEnumKeyExA ...\Stick "1" 2048
RegCloseKey ...\Stick
RegEnumKeyExA ... "1" 2048
RegCloseKey ...
)";
    rows.calls("calls", usbKey("\\Stick\\1") + allValues(),
               journal.replace("...", "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Enum\\USBSTOR"));
}

void failureRows()
{
    // Two devices, of which the first has two instances.
    const Described machine = usbKey("\\A\\1") + allValues() + usbKey("\\A\\2") + textValue("Service", "two") + usbKey("\\B\\1")
        + textValue("Service", "three");
    const auto row = [&](const char *name, const char *call, int number, const QString &lines) {
        rows.failure(name, machine, call, number, lines);
    };
    const QString secondInstance = "   Service:             two\n\n";
    const QString secondDevice = "B\n   Service:             three\n\n\n";
    const QString firstInstance = allLines.join(QString()) + '\n';
    const QString full = "A\n" + firstInstance + secondInstance + '\n' + secondDevice;
    row("the enumerator cannot be opened: only the heading", "RegOpenKeyExA", 0, "");
    row("a device cannot be opened: its name, then the next one", "RegOpenKeyExA", 1, QString("A\n") + secondDevice);
    row("an instance cannot be opened: no line for it", "RegOpenKeyExA", 2,
        QString("A\n") + secondInstance + '\n' + secondDevice);
    row("the enumeration of devices fails at its start", "RegEnumKeyExA", 0, "");
    row("the enumeration of instances fails at its start", "RegEnumKeyExA", 1, QString("A\n\n") + secondDevice);
    row("the enumeration of instances fails after the first", "RegEnumKeyExA", 2,
        "A\n" + firstInstance + '\n' + secondDevice);
    row("the enumeration of devices fails after the first", "RegEnumKeyExA", 4,
        "A\n" + firstInstance + secondInstance + '\n');
    rows.failures(machine, "RegQueryValueExA", 0, allLines,
                  {"no class", "no description", "no friendly name", "no location", "no hardware ID", "no service"}, "A\n",
                  '\n' + secondInstance + '\n' + secondDevice);
    row("an instance cannot be closed: the text is unchanged", "RegCloseKey", 0, full);
    row("a device cannot be closed: the text is unchanged", "RegCloseKey", 2, full);
    rows.anyFailure("each call fails in turn", machine);
}

void addRows()
{
    enumeratorRows();
    walkRows();
    valueRows();
    deniedRows();
    if (windowsIsSimulated)
        rows.text("a device and an instance whose names are outside the code page cannot be opened",
                  usbKey("\\Ger\xc3\xa4t\\1") + textValue("Class", "x") + usbKey("\\Stick\\\xc3\xa4") + textValue("Class", "x"),
                  QString("Ger") + QChar(0xfffd) + "t\nStick\n\n");
    callRows();
    failureRows();
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
