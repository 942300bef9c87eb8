// Windows changes between two calls of a section: a key, a value, a drive or an adapter is
// added, removed or enlarged.

#include "described_windows.h"
#include "registry_file.h"
#include "simulated_windows.h"
#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"
#include "win/adapter_details.h"
#include "win/windows_sections.h"

#include <functional>

using namespace velkor::SystemInfo;
using namespace velkor::SystemInfo::WinSysInfo;
using machine::RegistryKey;
using machine::RegistryValue;

using Change = std::function<void(machine::Machine &)>;
Q_DECLARE_METATYPE(Change)
using Section = std::function<QString()>;
Q_DECLARE_METATYPE(Section)

class ChangingWindowsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changeBeforeCall_data();
    void changeBeforeCall();
};

namespace {

/// The key at \a path, which starts with the name of a root; null if it does not exist.
std::shared_ptr<RegistryKey> keyAt(machine::Machine &machine, const QString &path)
{
    for (const auto &root : machine.registry.roots()) {
        if (path.section(QLatin1Char('\\'), 0, 0) == root->name())
            return machine::findKey(root, path.section(QLatin1Char('\\'), 1));
    }
    return {};
}

/// Empties a key, because a section that has opened it keeps it alive.
void clear(RegistryKey &key)
{
    while (!key.values().empty())
        key.removeValue(key.values().front().name);
    while (const auto subKey = key.subKeyAt(0)) {
        clear(*subKey);
        key.removeSubKey(subKey->name());
    }
}

void removeKey(machine::Machine &machine, const QString &path)
{
    if (const auto key = keyAt(machine, path)) {
        clear(*key);
        keyAt(machine, path.section(QLatin1Char('\\'), 0, -2))->removeSubKey(key->name());
    }
}

const QString currentVersion = QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion");
const QString explorer = QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Internet Explorer");
const QString bus = QStringLiteral("HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Enum\\SCSI");
const QString serial = QStringLiteral("HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM");
const QString adapter = QStringLiteral("HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Video\\{A}");
const QString mouseClass = QStringLiteral("HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Class\\{1}");

QByteArray key(const QString &path)
{
    return '[' + path.toLatin1() + "]\n";
}

RegistryValue text(const char *name, const QString &string)
{
    const QString stored = string + QChar();
    return {QString::fromLatin1(name), 1, QByteArray(reinterpret_cast<const char *>(stored.utf16()), 2 * stored.size())};
}

Change setText(const QString &path, const char *name, const QString &string)
{
    return [=](machine::Machine &machine) {
        machine::createKey(keyAt(machine, QStringLiteral("HKEY_LOCAL_MACHINE")), path.section(QLatin1Char('\\'), 1))
            ->setValue(text(name, string));
    };
}

Change removal(const QString &path)
{
    return [=](machine::Machine &machine) { removeKey(machine, path); };
}

Change removal(const QString &path, const char *value)
{
    return [=](machine::Machine &machine) { keyAt(machine, path)->removeValue(QString::fromLatin1(value)); };
}

QString serialPorts()
{
    return portsFromRegistry(QStringLiteral("SERIALCOMM"));
}

QString scsiDevices()
{
    return diskDevicesFromRegistry(QStringLiteral("SCSI"));
}

QString openGLDrivers()
{
    QString info;
    ScanOpenGLInfo(nullptr).GetOpenGLDriverInfo(info);
    return info;
}

QString detailsOfAdapter2()
{
    return adapterDetails(2);
}

machine::AdapterRecord adapterNumber(quint32 index)
{
    machine::AdapterRecord record;
    record.Index = index;
    record.GatewayList = {{QStringLiteral("10.0.0.1"), QStringLiteral("255.0.0.0")}};
    return record;
}

} // namespace

void ChangingWindowsTest::changeBeforeCall_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QByteArray>("system");
    QTest::addColumn<Section>("section");
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("number"); // of the call among those of the same name, from 0
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("expected");

    const QByteArray open("RegOpenKeyExA");
    const QByteArray query("RegQueryValueExA");
    const QByteArray enumerate("RegEnumKeyExA");
    const QByteArray nothing("{}");
    const QString scsiHeading = QStringLiteral(">>> Info about 'SCSI' disk devices from registry:\n");
    const QString serialHeading = QStringLiteral(">> Info about 'SERIALCOMM' ports from registry:\n");
    const QString videoHeading = QStringLiteral(">>> Info about video from registry:\n\n");
    const QString explorerHeading = QStringLiteral("Internet Explorer information from Registry\n");

    QTest::newRow("a device is removed before it is opened: only its name")
        << key(bus + "\\Disk\\1") + "\"Class\"=\"c\"\n"
        << nothing << Section(scsiDevices) << open << 1
        << removal(bus + "\\Disk") << scsiHeading + "Disk\n";
    QTest::newRow("an instance is removed before it is opened: no lines, no empty line")
        << key(bus + "\\Disk\\1") + "\"Class\"=\"c\"\n"
        << nothing << Section(scsiDevices) << open << 2
        << removal(bus + "\\Disk\\1") << scsiHeading + "Disk\n\n";
    QTest::newRow("a device is added before the enumerated one, which is listed again")
        << key(bus + "\\Disk") << nothing << Section(scsiDevices) << enumerate << 2
        << Change([](machine::Machine &machine) { keyAt(machine, bus)->createSubKey(QStringLiteral("A")); })
        << scsiHeading + "Disk\n\nDisk\n\n";
    QTest::newRow("an enumerated device is removed: the next one is skipped")
        << key(bus + "\\A") + key(bus + "\\B") + key(bus + "\\C") << nothing << Section(scsiDevices) << enumerate << 2
        << removal(bus + "\\A") << scsiHeading + "A\n\nC\n\n";

    QTest::newRow("a port outgrows its buffer: the list ends there")
        << key(serial) + "\"a\"=\"COM1\"\n\"b\"=\"COM2\"\n\"c\"=\"COM3\"\n"
        << nothing << Section(serialPorts)
        << QByteArray("RegEnumValueA") << 1 << setText(serial, "b", QString(2048, 'x')) << serialHeading + "a   COM1\n\n";
    QTest::newRow("an enumerated port is removed: the next one is skipped")
        << key(serial) + "\"a\"=\"COM1\"\n\"b\"=\"COM2\"\n\"c\"=\"COM3\"\n"
        << nothing << Section(serialPorts)
        << QByteArray("RegEnumValueA") << 1 << removal(serial, "a") << serialHeading + "a   COM1\nc   COM3\n\n";

    QTest::newRow("the last configuration is removed before its second visit: listed once")
        << key(adapter + "\\0000") + "\"Device Description\"=\"x\"\n"
        << nothing << Section(videoInfoFromRegistry) << open << 4
        << removal(adapter + "\\0000") << videoHeading + "0000\n   Device Description: x\n";
    QTest::newRow("a configuration is added at the end: it is listed twice")
        << key(adapter + "\\0000") + "\"Device Description\"=\"x\"\n"
        << nothing << Section(videoInfoFromRegistry)
        << enumerate << 2 << setText(adapter + "\\0001", "DriverDesc", QStringLiteral("y"))
        << videoHeading + "0000\n   Device Description: x\n0001\n   Driver Description: y\n0001\n   Driver Description: y\n";
    QTest::newRow("a driver is removed before it is opened: no empty line for it")
        << key(mouseClass) + "\"Class\"=\"Mouse\"\n" + key(mouseClass + "\\0000") + "\"DriverDesc\"=\"a\"\n"
            + key(mouseClass + "\\0001") + "\"DriverDesc\"=\"b\"\n"
        << nothing << Section(driverInfoFromRegistry) << open << 3 << removal(mouseClass + "\\0001")
        << ">>> Info about drivers from registry:\n\n----------------------------\nMouse:\n"
           "   Driver Description: a\n----------------------------\n";

    QTest::newRow("a value outgrows its buffer: only its line is missing")
        << key(currentVersion) + "\"ProductId\"=\"p\"\n\"EditionID\"=\"e\"\n"
        << nothing
        << Section(windowsVersionFromRegistry) << query << 0 << setText(currentVersion, "ProductId", QString(2048, 'x'))
        << "Windows version information from Registry\nEditionID:              e\n";
    QTest::newRow("a number becomes a text of four bytes, which are read as the number")
        << key("HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\TimeZoneInformation")
            + "\"Bias\"=dword:ffffffc4\n\"DaylightBias\"=dword:00000001\n"
        << nothing << Section(timeZoneInfoFromRegistry) << query << 1
        << setText("HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\TimeZoneInformation", "Bias", QStringLiteral("-60"))
        << "Time Zone information from Registry\nBias:           3159597 min (offset to UTC)\n" // 2d 36 30 00
           "DaylightBias:   1 min (additional offset if daylight saving is active)\n";
    QTest::newRow("the minor version is removed after the major one is read: CurrentVersion is used")
        << key(currentVersion)
            + "\"CurrentMajorVersionNumber\"=dword:0000000a\n\"CurrentMinorVersionNumber\"=dword:00000000\n"
              "\"CurrentVersion\"=\"6.3\"\n\"CurrentBuildNumber\"=\"19045\"\n"
        << QByteArray(R"({"GetVersionEx": {"dwMajorVersion": 6, "dwMinorVersion": 2, "dwBuildNumber": 9200, "wProductType": 1}})")
        << Section([] { return windowsVersion(true); }) << query << 1 << removal(currentVersion, "CurrentMinorVersionNumber")
        << "Windows version: \nVersion (major.minor.build): \nFrom GetVersionEx: 6.2.9200\n"
           "From registry:     6.3.19045\n                   Windows 8.1 , 64-bit\nLast service pack installed: \n";

    QTest::newRow("the browser's version outgrows its buffer: the size for the next query stays that of the buffer")
        << key(explorer) + "\"Version\"=\"9\"\n\"IVer\"=\"102\"\n\"Build\"=\"520\"\n"
        << nothing
        << Section(internetExplorerInfo) << query << 0 << setText(explorer, "Version", QString(4000, 'x'))
        << explorerHeading + "Version:           2.0 (Build 520) Windows 95\n";
    QTest::newRow("the browser's build outgrows the size of IVer: no build")
        << key(explorer) + "\"IVer\"=\"103\"\n\"Build\"=\"115\"\n"
        << nothing << Section(internetExplorerInfo) << query << 2
        << setText(explorer, "Build", QStringLiteral("1155"))
        << explorerHeading + "Version:           3.<could not read build number>\n";
    QTest::newRow("the browser's service version is removed: the version, and no service values")
        << key(explorer) + "\"Version\"=\"9\"\n\"svcVersion\"=\"11\"\n\"W2kVersion\"=\"w\"\n"
        << nothing
        << Section(internetExplorerInfo) << query << 1 << removal(explorer, "svcVersion")
        << explorerHeading + "Version:           9\n";

    QTest::newRow("a product is renamed after it is recognised: listed with its new name")
        << QByteArray("[HKEY_CLASSES_ROOT\\Installer\\Products\\1]\n\"ProductName\"=\"Q9\"\n") << nothing
        << Section(installedApplicationsFromRegistry) << query << 1
        << Change([](machine::Machine &machine) {
               keyAt(machine, QStringLiteral("HKEY_CLASSES_ROOT\\Installer\\Products\\1"))
                   ->setValue(text("ProductName", QStringLiteral("other")));
           })
        << ">>> Info about installed Velkor applications from registry:\n\nProductName: other\n\n";
    QTest::newRow("an OpenGL driver is removed before it is opened: only its name")
        << key(currentVersion + "\\OpenGLDrivers\\A") + "\"dll\"=\"a\"\n"
        << nothing << Section(openGLDrivers) << open << 1
        << removal(currentVersion + "\\OpenGLDrivers\\A")
        << "#### Info about the OpenGL driver DLL's from registry ###\nA   \n";

    const QByteArray drive(R"({"GetLogicalDrives": 16, "drives": {"E:\\": {"GetDriveType": 3,
        "GetVolumeInformation": {"volumeName": "v", "fileSystemName": "f"},
        "GetDiskFreeSpaceEx": {"freeBytesAvailableToCaller": 1, "totalNumberOfBytes": 2}}}})");
    const Change noDrives = [](machine::Machine &machine) { machine.system.drives.clear(); };
    QTest::newRow("a drive is removed before GetDriveType(): only its root")
        << QByteArray() << drive << Section(diskInformation) << QByteArray("GetDriveTypeW") << 0 << noDrives
        << "Disk information: \nE:\\ \n";
    QTest::newRow("a drive is removed after GetDriveType()")
        << QByteArray() << drive << Section(diskInformation) << QByteArray("GetVolumeInformationW") << 0 << noDrives
        << "Disk information: \nE:\\ fixed drive          \n";
    QTest::newRow("a drive is removed after GetVolumeInformation()")
        << QByteArray() << drive << Section(diskInformation) << QByteArray("GetDiskFreeSpaceExW") << 0 << noDrives
        << "Disk information: \nE:\\ fixed drive          f  v  \n";

    const QByteArray oneAdapter(R"({"GetAdaptersInfo": [{"Index": 2, "GatewayList": [["10.0.0.1", "255.0.0.0"]]}]})");
    const QByteArray twoAdapters(R"({"GetAdaptersInfo": [{"Index": 1}, {"Index": 2, "GatewayList": [["10.0.0.1", "255.0.0.0"]]}]})");
    const QByteArray adapters("GetAdaptersInfo");
    const QString details = QStringLiteral("Gateway: 10.0.0.1, 255.0.0.0\nDHCP enabled:  0\nHave WINS: 0\n");
    QTest::newRow("a second adapter is added, which does not fit the buffer for one: no details")
        << QByteArray() << oneAdapter << Section(detailsOfAdapter2) << adapters << 1
        << Change([](machine::Machine &machine) { machine.system.GetAdaptersInfo.value->push_back(adapterNumber(3)); })
        << QString();
    QTest::newRow("a third adapter is added, which does not fit the buffer for two: no details")
        << QByteArray() << twoAdapters << Section(detailsOfAdapter2) << adapters << 1
        << Change([](machine::Machine &machine) { machine.system.GetAdaptersInfo.value->push_back(adapterNumber(3)); })
        << QString();
    QTest::newRow("another adapter is removed: the details of the requested one")
        << QByteArray() << twoAdapters << Section(detailsOfAdapter2) << adapters << 1
        << Change([](machine::Machine &machine) { machine.system.GetAdaptersInfo.value->erase(machine.system.GetAdaptersInfo.value->begin()); })
        << details;
    QTest::newRow("all adapters are removed: no details")
        << QByteArray() << oneAdapter << Section(detailsOfAdapter2) << adapters << 1
        << Change([](machine::Machine &machine) { machine.system.GetAdaptersInfo.value->clear(); }) << QString();

    QTest::newRow("a module is unloaded: its name cannot be read")
        << QByteArray() << QByteArray(R"({"EnumProcessModules": ["a", "b", "c"]})") << Section(loadedModulesText)
        << QByteArray("GetModuleFileNameExW") << 1
        << Change([](machine::Machine &machine) { machine.system.EnumProcessModules.value->resize(2); })
        << "Loaded modules/DLLs:\na\nb\n";
    QTest::newRow("an environment variable outgrows its buffer")
        << QByteArray() << QByteArray(R"({"environment": {"OS": "o", "PATH": "p", "HOMEPATH": "h", "TEMP": "t", "PROCESSOR_IDENTIFIER": "i"}})")
        << Section(someEnvironmentVariables) << QByteArray("ExpandEnvironmentStringsW") << 1
        << Change([](machine::Machine &machine) { machine.system.environment[QStringLiteral("PATH")] = QString(40000, 'x'); })
        << "Some environment variables:\nOS       = o\nExpand env var 1, buffer too small, would need 40012\n"
           "HOMEPATH = h\nTEMP     = t\nPROCESSOR_IDENTIFIER = i\n";
    QTest::newRow("the 32-bit directory outgrows its buffer, which still holds the Windows directory")
        << QByteArray() << QByteArray(R"({"GetSystemWindowsDirectory": "C:\\W", "GetSystemWow64Directory": "C:\\W\\S"})")
        << Section(windowsSystemDirectories) << QByteArray("GetSystemWow64DirectoryW") << 0
        << Change([](machine::Machine &machine) { machine.system.GetSystemWow64Directory.value = QString(1500, 'x'); })
        << "Windows system directories\nSystem directory:      C:\\W\n"
           "buffer for wow64Dir too small, need 1501\nSystem Wow64 directory:  C:\\W\n";
    QTest::newRow("a library loses its function after it is loaded: no version")
        << QByteArray() << QByteArray(R"({"libraries": {"dnssd.dll": {"DNSServiceGetProperty": {"error": 0, "DaemonVersion": 1}}}})")
        << Section(checkStandardBonjourText) << QByteArray("GetProcAddress") << 0
        << Change([](machine::Machine &machine) { machine.system.libraries.clear(); })
        << "Standard Bonjour: installed.\nDNS-SD version: \n";
}

void ChangingWindowsTest::changeBeforeCall()
{
    QFETCH(QByteArray, registry);
    QFETCH(QByteArray, system);
    QFETCH(Section, section);
    QFETCH(QByteArray, call);
    QFETCH(int, number);
    QFETCH(Change, change);
    QFETCH(QString, expected);
    const DescribedWindows windows(registry, system);
    int calls = 0;
    simulated::setBeforeCall([&](std::size_t, const QByteArray &name) {
        if (name == call && calls++ == number)
            change(simulated::machineInUse());
    });
    COMPARE_TEXT(section(), expected);
    QVERIFY2(calls > number, "the section does not make that call");
    QCOMPARE(simulated::openHandles(), QStringList());
    QCOMPARE(simulated::handleMisuses(), QStringList());
    simulated::setBeforeCall(nullptr);
}

TEST_WITH_CORE_APPLICATION(ChangingWindowsTest);
#include "tst_changing_windows.moc"
