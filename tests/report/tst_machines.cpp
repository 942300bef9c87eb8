// Every described machine gives the texts that stand in tests/golden for it, section
// by section and as a whole.

#include "described_windows.h"
#include "machine_loader.h"
#include "registry_file.h"
#include "simulated_windows.h"
#include "system_file.h"
#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"
#include "win/windows_sections.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

using namespace velkor::SystemInfo;
using namespace velkor::SystemInfo::WinSysInfo;

class MachinesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyMachineHasTexts();
    void section_data();
    void section();
    void handlesOfAWholeReport_data();
    void handlesOfAWholeReport();
    void writtenAndReadAgain_data();
    void writtenAndReadAgain();
};

namespace {

struct Section
{
    const char *file;
    QString (*text)();
};

// Named after the source files.
const Section sections[] = {
    {"all_win_infos", allWinInfos},
    {"windows_version", [] { return windowsVersion(true); }},
    {"platform_name", platformName},
    {"windows_version_registry", windowsVersionFromRegistry},
    {"internet_explorer_info", internetExplorerInfo},
    {"processor_info", processorInfo},
    {"processor_registry_info", processorRegistryInfo},
    {"memory_info", memoryInfo},
    {"computer_names", computerNames},
    {"oem_info", oemInfoFromRegistry},
    {"system_information", systemInformationFromRegistry},
    {"bios_info", biosInfoFromRegistry},
    {"video_info", videoInfoFromRegistry},
    {"driver_info", driverInfoFromRegistry},
    {"time_zone_info", timeZoneInfoFromRegistry},
    {"installed_applications", installedApplicationsFromRegistry},
    {"installed_visual_basic_applications", installedVisualBasicApplications},
    {"winsxs_entries", winSxSDirectoryEntries},
    {"environment_variables", someEnvironmentVariables},
    {"disk_information", diskInformation},
    {"disk_devices_scsi", [] { return diskDevicesFromRegistry(QStringLiteral("SCSI")); }},
    {"disk_devices_usbstor", [] { return diskDevicesFromRegistry(QStringLiteral("USBSTOR")); }},
    {"ports_serialcomm", [] { return portsFromRegistry(QStringLiteral("SERIALCOMM")); }},
    {"system_directories", windowsSystemDirectories},
    {"special_folders", specialFolders},
};

QStringList machineNames()
{
    return QDir(QStringLiteral(MACHINES_DIR)).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
}

void addMachineRows()
{
    QTest::addColumn<QString>("machine");
    const QStringList machines = machineNames();
    for (const QString &machine : machines)
        QTest::newRow(qPrintable(machine)) << machine;
}

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString &path, const QByteArray &contents)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(contents), qint64(contents.size()));
}

} // namespace

void MachinesTest::everyMachineHasTexts()
{
    QVERIFY(!machineNames().isEmpty());
    QCOMPARE(QDir(QStringLiteral(GOLDEN_DIR)).entryList(QDir::Dirs | QDir::NoDotAndDotDot), machineNames());
}

void MachinesTest::section_data()
{
    QTest::addColumn<QString>("machine");
    QTest::addColumn<int>("index");
    const QStringList machines = machineNames();
    for (const QString &machine : machines) {
        for (int i = 0; i < int(std::size(sections)); ++i)
            QTest::newRow(qPrintable(machine + QLatin1Char(' ') + QLatin1String(sections[i].file))) << machine << i;
    }
}

void MachinesTest::section()
{
    QFETCH(QString, machine);
    QFETCH(int, index);
    QFile golden(QStringLiteral(GOLDEN_DIR "/%1/%2.txt").arg(machine, QLatin1String(sections[index].file)));
    QVERIFY2(golden.open(QIODevice::ReadOnly), qPrintable(golden.fileName()));
    const DescribedWindows windows(DescribedWindows::load(machine));
    COMPARE_TEXT(sections[index].text(), QString::fromUtf8(golden.readAll()));
}

void MachinesTest::handlesOfAWholeReport_data()
{
    addMachineRows();
}

// All keys and libraries are given back, but for the one key that stays open.
void MachinesTest::handlesOfAWholeReport()
{
    QFETCH(QString, machine);
    const DescribedWindows windows(DescribedWindows::load(machine));
    allWinInfos();
    QCOMPARE(simulated::openHandles(),
             QStringList(QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\OEMInformation")));
    QCOMPARE(simulated::handleMisuses(), QStringList());
}

void MachinesTest::writtenAndReadAgain_data()
{
    addMachineRows();
}

// What the writers write means the same to the readers: the whole Windows half stays.
void MachinesTest::writtenAndReadAgain()
{
    QFETCH(QString, machine);
    const machine::Machine described = DescribedWindows::load(machine);
    const QTemporaryDir folder;
    write(folder.filePath(QStringLiteral("registry.reg")), machine::writeRegistryFile(described.registry));
    write(folder.filePath(QStringLiteral("system.json")), machine::writeSystemFile(described));
    QString error;
    const auto again = machine::loadMachine(folder.path(), error);
    QVERIFY2(again, qPrintable(error));
    const DescribedWindows windows(*again);
    const QByteArray golden = contentsOf(QStringLiteral(GOLDEN_DIR "/%1/all_win_infos.txt").arg(machine));
    QVERIFY(!golden.isEmpty());
    COMPARE_TEXT(allWinInfos(), QString::fromUtf8(golden));
}

TEST_WITH_CORE_APPLICATION(MachinesTest);
#include "tst_machines.moc"
