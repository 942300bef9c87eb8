// Compares the text of each section and the Windows half with tests/golden, for every described
// machine.

#include "described_windows.h"
#include "machine_loader.h"
#include "registry_file.h"
#include "report/section_table.h"
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

using TextFunction = QString (*)();
Q_DECLARE_METATYPE(TextFunction)

class MachinesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyMachineHasGoldenTexts();
    void everyGoldenTextIsCompared();
    void section_data();
    void section();
    void openHandlesAfterAReport_data();
    void openHandlesAfterAReport();
    void writtenDescriptionGivesTheSameReport_data();
    void writtenDescriptionGivesTheSameReport();
};

namespace {

struct GoldenText
{
    QString file;
    TextFunction text;
};

QString openGLDrivers()
{
    QString text;
    ScanOpenGLInfo(nullptr).GetOpenGLDriverInfo(text);
    return text;
}

QString goldenFile(const Section &section)
{
    const QString variant = section.variant ? QLatin1Char('_') + QString::fromLatin1(section.variant) : QString();
    return QLatin1String(section.file) + variant + QStringLiteral(".txt");
}

std::vector<GoldenText> goldenTexts()
{
    std::vector<GoldenText> texts = {
        {"all_win_infos.txt", allWinInfos},
        {"platform_name.txt", platformName},
        {"opengl_drivers.txt", openGLDrivers},
    };
    for (const Section &section : SectionTable()) {
        if (section.part == Part::Windows)
            texts.push_back({goldenFile(section), section.text});
    }
    return texts;
}

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

void MachinesTest::everyMachineHasGoldenTexts()
{
    QVERIFY(!machineNames().isEmpty());
    QCOMPARE(QDir(QStringLiteral(GOLDEN_DIR)).entryList(QDir::Dirs | QDir::NoDotAndDotDot), machineNames());
}

void MachinesTest::everyGoldenTextIsCompared()
{
    QStringList files;
    for (const GoldenText &golden : goldenTexts())
        files += golden.file;
    files.sort();
    const QStringList machines = machineNames();
    for (const QString &machine : machines)
        QCOMPARE(QDir(QStringLiteral(GOLDEN_DIR "/") + machine).entryList(QDir::Files, QDir::Name), files);
}

void MachinesTest::section_data()
{
    QTest::addColumn<QString>("machine");
    QTest::addColumn<QString>("file");
    QTest::addColumn<TextFunction>("text");
    const QStringList machines = machineNames();
    for (const QString &machine : machines) {
        for (const GoldenText &golden : goldenTexts())
            QTest::newRow(qPrintable(machine + QLatin1Char(' ') + golden.file)) << machine << golden.file << golden.text;
    }
}

void MachinesTest::section()
{
    QFETCH(QString, machine);
    QFETCH(QString, file);
    QFETCH(TextFunction, text);
    QFile golden(QStringLiteral(GOLDEN_DIR "/%1/%2").arg(machine, file));
    QVERIFY2(golden.open(QIODevice::ReadOnly), qPrintable(golden.fileName()));
    const DescribedWindows windows(DescribedWindows::load(machine));
    COMPARE_TEXT(text(), QString::fromUtf8(golden.readAll()));
}

void MachinesTest::openHandlesAfterAReport_data()
{
    addMachineRows();
}

// Quirk: the OEM section leaves its key open.
void MachinesTest::openHandlesAfterAReport()
{
    QFETCH(QString, machine);
    const DescribedWindows windows(DescribedWindows::load(machine));
    allWinInfos();
    QCOMPARE(simulated::openHandles(),
             QStringList(QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\OEMInformation")));
    QCOMPARE(simulated::handleMisuses(), QStringList());
}

void MachinesTest::writtenDescriptionGivesTheSameReport_data()
{
    addMachineRows();
}

void MachinesTest::writtenDescriptionGivesTheSameReport()
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
