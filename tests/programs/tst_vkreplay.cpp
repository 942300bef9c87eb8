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
    void compare();
    void comparisonsThatAreNotPossible_data();
    void comparisonsThatAreNotPossible();
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
    QTest::newRow("a section to compare")
        << QStringList({workstation, "--compare", "report.txt", "--section", "memoryInfo"})
        << QByteArray("--compare compares the whole Windows half");
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

void VkReplayTest::compare()
{
    const QString report = QStringLiteral(REPORTS_DATA_DIR "/workstation.txt");
    const ProgramRun same = vkreplay({workstation, "--compare", report});
    QCOMPARE(same.exitCode, 0);
    QVERIFY2(same.output.endsWith(" lines are the same, 0 FAILED, 182 lines of the Qt half and OpenGL are not compared\n"), same.output);
    QCOMPARE(same.output.count('\n'), 1);

    const QTemporaryDir folder;
    QFile file(report);
    QVERIFY(file.open(QIODevice::ReadOnly));
    write(folder.filePath(QStringLiteral("report.txt")), file.readAll().replace("ReleaseId:              2009", "ReleaseId:              2010"));
    const ProgramRun different = vkreplay({workstation, "--compare", folder.filePath(QStringLiteral("report.txt"))});
    QCOMPARE(different.exitCode, 1);
    QVERIFY2(different.output.contains("FAILED  windowsVersionFromRegistry  line 11: report: ReleaseId:              2010\n"
                                       "FAILED  windowsVersionFromRegistry  line 11: replay: ReleaseId:              2009\n"),
             different.output);
}

void VkReplayTest::comparisonsThatAreNotPossible_data()
{
    QTest::addColumn<QByteArray>("report"); // null: none
    QTest::addColumn<QByteArray>("notes");
    QTest::addColumn<QByteArray>("message");
    const QByteArray right = R"({"redacted": false, "missing": []})";
    QTest::newRow("no report") << QByteArray() << right << QByteArray("/report.txt'");
    QTest::newRow("an empty report") << QByteArray("") << right << QByteArray("/report.txt' is no report");
    QTest::newRow("something else") << QByteArray("Dear Sir\n") << right << QByteArray("/report.txt' is no report");
    QTest::newRow("wrong notes") << QByteArray("Memory Information:\n") << QByteArray("{}") << QByteArray("/capture.json: ");
}

void VkReplayTest::comparisonsThatAreNotPossible()
{
    QFETCH(QByteArray, report);
    QFETCH(QByteArray, notes);
    QFETCH(QByteArray, message);
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("report.txt"));
    if (!report.isNull())
        write(name, report);
    write(folder.filePath(QStringLiteral("capture.json")), notes);
    const ProgramRun run = vkreplay({folder.path(), "--compare", name});
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.contains(message), run.errors);
    QCOMPARE(run.errors.count('\n'), 1);

    const ProgramRun missing = vkreplay({folder.filePath(QStringLiteral("nowhere")), "--compare", name});
    QCOMPARE(missing.exitCode, 2);
}

TEST_WITH_CORE_APPLICATION(VkReplayTest);
#include "tst_vkreplay.moc"
