// The command line of vkreplay; its output depends only on the described machine.

#include "run_program.h"
#include "test_main.h"
#include "texts.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

class VkReplayTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void outputDoesNotDependOnTheEnvironment_data();
    void outputDoesNotDependOnTheEnvironment();
    void sections_data();
    void sections();
    void listedSectionsCanBePrinted();
    void adapter();
    void wrongUsage_data();
    void wrongUsage();
    void machinesThatCannotBeRead_data();
    void machinesThatCannotBeRead();
};

namespace {

const char workstation[] = MACHINES_DIR "/workstation";

ProgramRun vkreplay(const QStringList &arguments)
{
    return runProgram(QStringLiteral(VKREPLAY), arguments);
}

void write(const QString &path, const QByteArray &contents)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(contents), qint64(contents.size()));
}

} // namespace

void VkReplayTest::outputDoesNotDependOnTheEnvironment_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("value");
    QTest::newRow("unchanged environment") << "VK_UNUSED"
                                           << "1";
    QTest::newRow("a locale without UTF-8") << "LC_ALL"
                                            << "C";
    QTest::newRow("a German locale") << "LC_ALL"
                                     << "de_DE.UTF-8";
    QTest::newRow("a Turkish locale") << "LANG"
                                      << "tr_TR.UTF-8";
    QTest::newRow("a time zone west of Greenwich") << "TZ"
                                                   << "EST5";
    QTest::newRow("a time zone east of Greenwich") << "TZ"
                                                   << "XXX-13";
}

void VkReplayTest::outputDoesNotDependOnTheEnvironment()
{
    QFETCH(QString, variable);
    QFETCH(QString, value);
    QFile golden(QStringLiteral(GOLDEN_DIR "/workstation/all_win_infos.txt"));
    QVERIFY(golden.open(QIODevice::ReadOnly));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(variable, value);
    const QTemporaryDir elsewhere;
    const ProgramRun run = runProgram(QStringLiteral(VKREPLAY), {workstation}, environment, elsewhere.path());
    QCOMPARE(run.exitCode, 0);
    COMPARE_TEXT(QString::fromUtf8(run.output), QString::fromUtf8(golden.readAll()));
}

void VkReplayTest::sections_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("one") << QStringList({"--section", "platformName"})
                         << QByteArray("Windows 10 Professional Edition, 64-bit");
    QTest::newRow("two sections, in the requested order")
        << QStringList({"--section", "oemInfoFromRegistry", "--section", "userName"})
        << QByteArray("OEM Information from Registry\nManufacturer:     Fujitsu\nModel:     ESPRIMO P757\n"
                      "User name:                    J\xc3\xb6rn\n");
    QTest::newRow("a section with an argument") << QStringList({"--section", "portsFromRegistry:PARALLEL PORTS"})
                                                << QByteArray(">> Info about 'PARALLEL PORTS' ports from registry:\n");
}

void VkReplayTest::sections()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, expected);
    const ProgramRun run = vkreplay(QStringList(workstation) + arguments);
    QCOMPARE(run.exitCode, 0);
    COMPARE_TEXT(QString::fromUtf8(run.output), QString::fromUtf8(expected));
    QCOMPARE(run.errors, QByteArray());
}

void VkReplayTest::listedSectionsCanBePrinted()
{
    const ProgramRun list = vkreplay({"--list-sections"});
    QCOMPARE(list.exitCode, 0);
    QVERIFY(list.output.contains("\nbiosInfoFromRegistry\n"));
    for (const QByteArray &name : list.output.trimmed().split('\n'))
        QCOMPARE(vkreplay({workstation, "--section", QString::fromUtf8(name)}).exitCode, 0);
}

void VkReplayTest::adapter()
{
    const ProgramRun run = vkreplay({workstation, "--adapter", "22"});
    QCOMPARE(run.exitCode, 0);
    COMPARE_TEXT(QString::fromUtf8(run.output),
                 QStringLiteral("Gateway: 0.0.0.0, 0.0.0.0\nDHCP enabled:  0\nHave WINS: 0\n"));
    QCOMPARE(vkreplay({workstation, "--adapter", "4711"}).output, QByteArray()); // not an interface index
}

void VkReplayTest::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("no machine") << QStringList() << QByteArray("exactly one machine folder is required");
    QTest::newRow("two machines") << QStringList({workstation, workstation}) << QByteArray("exactly one machine folder is required");
    QTest::newRow("an unknown section: the message lists the names")
        << QStringList({workstation, "--section", "bios"}) << QByteArray("biosInfoFromRegistry, ");
    QTest::newRow("a section without its argument")
        << QStringList({workstation, "--section", "portsFromRegistry"}) << QByteArray("portsFromRegistry:NAME");
    QTest::newRow("an adapter that is not a number")
        << QStringList({workstation, "--adapter", "eth0"}) << QByteArray("'eth0' is not the index of an adapter");
    QTest::newRow("an unknown option") << QStringList({workstation, "--all"}) << QByteArray("Unknown option 'all'.");
}

void VkReplayTest::wrongUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    const ProgramRun run = vkreplay(arguments);
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.startsWith("vkreplay: ") && run.errors.contains(message), run.errors);
    QCOMPARE(run.errors.count('\n'), 1);
}

void VkReplayTest::machinesThatCannotBeRead_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QByteArray>("system");
    QTest::addColumn<QByteArray>("message");
    const QByteArray first = "Windows Registry Editor Version 5.00\n\n";
    QTest::newRow("the message names the line of a JSON error")
        << first << QByteArray("{\n  \"timeZone\": 0,\n  \"GetUserName\" \"x\"\n}\n") << QByteArray("/system.json:3: ");
    QTest::newRow("the message names a member of the wrong type")
        << first << QByteArray("{\"GetVersionEx\": {\"dwMajorVersion\": \"ten\"}}")
        << QByteArray("/system.json: 'GetVersionEx.dwMajorVersion' is not an integer");
    QTest::newRow("the message names a malformed line of the registry")
        << first + "[HKEY_LOCAL_MACHINE\\A]\n\"B\"=\"c\n"
        << QByteArray("{}") << QByteArray("/registry.reg:4: ");
    QTest::newRow("no registry file") << QByteArray("REGEDIT4\n") << QByteArray("{}") << QByteArray("/registry.reg:1: ");
}

void VkReplayTest::machinesThatCannotBeRead()
{
    QFETCH(QByteArray, registry);
    QFETCH(QByteArray, system);
    QFETCH(QByteArray, message);
    const QTemporaryDir folder;
    write(folder.filePath(QStringLiteral("registry.reg")), registry);
    write(folder.filePath(QStringLiteral("system.json")), system);
    const ProgramRun run = vkreplay({folder.path()});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.contains(message), run.errors);
    QCOMPARE(run.errors.count('\n'), 1);

    const ProgramRun missing = vkreplay({folder.filePath(QStringLiteral("nowhere"))});
    QCOMPARE(missing.exitCode, 1);
    QVERIFY2(missing.errors.contains("/nowhere: no such machine folder"), missing.errors);
}

TEST_WITH_CORE_APPLICATION(VkReplayTest);
#include "tst_vkreplay.moc"
