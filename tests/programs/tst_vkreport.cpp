// The command line of vkreport.

#include "report/section_table.h"
#include "run_program.h"
#include "test_main.h"
#include "texts.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>

class VkReportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wholeReportWithoutOpenGL();
    void versionAndHelp_data();
    void versionAndHelp();
    void listedSectionsCanBePrinted();
    void sectionsInTheRequestedOrder();
    void wrongUsage_data();
    void wrongUsage();
    void outputFile();
    void outputFileThatCannotBeWritten();
    void bonjour();
    void timingsOfTheReport();
    void timingsOfSections();
#ifdef SIMULATED_WINDOWS
    void platformNameOfADescribedMachine();
    void bonjourOfADescribedMachine();
    void machineThatCannotBeRead();
    void openGLVersionWithoutOpenGL();
#endif
};

namespace {

ProgramRun vkreport(const QStringList &arguments, const QString &machine = QString())
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("VKSYSTEMINFO_MACHINE"));
    if (!machine.isEmpty())
        environment.insert(QStringLiteral("VKSYSTEMINFO_MACHINE"), machine);
    return runProgram(QStringLiteral(VKREPORT), arguments, environment);
}

/// The names of the exported sections in the order of the report, one on each line. vkreport uses
/// only the public header, so it has its own list.
QByteArray sectionNames()
{
    QFile exports(QStringLiteral(EXPORTS_FILE));
    if (!exports.open(QIODevice::ReadOnly))
        return QByteArray();
    const QByteArray exported = exports.readAll();
    QByteArray names;
    for (const velkor::SystemInfo::Section &section : velkor::SystemInfo::SectionTable()) {
        if (section.part == velkor::SystemInfo::Part::Qt && exported.contains(QByteArray("::") + section.name + '('))
            names += QByteArray(section.name) + '\n';
    }
    return names;
}

/// A line of --timings, for example "     1.234 ms   12.3 %  qtLocale".
struct Timing
{
    double milliseconds;
    double share;
    QString name;
};

/// The lines of \a errors that are timings.
QList<Timing> timingLines(const QByteArray &errors)
{
    const QRegularExpression form(QStringLiteral("^ *([0-9]+\\.[0-9]{3}) ms  (?: *([0-9]+\\.[0-9]) %| {7})  (.+)$"));
    QList<Timing> timings;
    for (const QString &line : QString::fromUtf8(errors).remove(QLatin1Char('\r')).split(QLatin1Char('\n'))) {
        const QRegularExpressionMatch match = form.match(line);
        if (match.hasMatch())
            timings += {match.captured(1).toDouble(), match.captured(2).toDouble(), match.captured(3)};
    }
    return timings;
}

QStringList namesOf(const QList<Timing> &timings)
{
    QStringList names;
    for (const Timing &timing : timings)
        names += timing.name;
    return names;
}

} // namespace

void VkReportTest::wholeReportWithoutOpenGL()
{
    const ProgramRun run = vkreport({"--no-opengl"});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.startsWith("############ Windows specific section ###########\n"));
    QVERIFY(run.output.endsWith("------------------------------------------------------------------------\n"));
    QVERIFY(!run.output.contains('\r'));
    QVERIFY(!run.output.contains("#### QGLFormat #### "));
}

void VkReportTest::versionAndHelp_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QByteArray>("start");
    QTest::newRow("version") << "--version" << QByteArray("vkreport 1.3.12\n");
    QTest::newRow("help") << "--help" << QByteArray("Usage: ");
}

void VkReportTest::versionAndHelp()
{
    QFETCH(QString, option);
    QFETCH(QByteArray, start);
    const ProgramRun run = vkreport({option});
    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.output.startsWith(start), run.output);
}

void VkReportTest::listedSectionsCanBePrinted()
{
    const ProgramRun list = vkreport({"--list-sections"});
    QCOMPARE(list.exitCode, 0);
    COMPARE_TEXT(QString::fromUtf8(list.output), QString::fromUtf8(sectionNames()));
    for (const QByteArray &name : list.output.trimmed().split('\n')) {
        const ProgramRun run = vkreport({"--section", QString::fromUtf8(name)});
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.output.endsWith('\n'), name);
    }
}

void VkReportTest::sectionsInTheRequestedOrder()
{
    const ProgramRun run = vkreport({"--section", "qtHostInfo", "--section", "qtGlobal"});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.startsWith("QHostInfo\n"));
    QVERIFY(run.output.contains("\nQt Global\n"));
}

void VkReportTest::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("an unknown section: the message lists the names")
        << QStringList({"--section", "qtLocal"})
        << QByteArray("vkreport: there is no section 'qtLocal'. The sections are: "
                      + sectionNames().trimmed().replace("\n", ", ") + "\n");
    QTest::newRow("an unknown option") << QStringList({"--colour"}) << QByteArray("vkreport: Unknown option 'colour'.\n");
    QTest::newRow("an option without its value")
        << QStringList({"--output"}) << QByteArray("vkreport: Missing value after '--output'.\n");
    QTest::newRow("timings without a section")
        << QStringList({"--timings", "--platform-name"})
        << QByteArray("vkreport: --timings requires the whole report or --section\n");
    QTest::newRow("a positional argument") << QStringList({"report.txt"})
                                           << QByteArray("vkreport: unexpected argument 'report.txt'\n");
}

void VkReportTest::wrongUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    const ProgramRun run = vkreport(arguments);
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(QByteArray(run.errors).replace("\r\n", "\n"), message);
}

void VkReportTest::outputFile()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("r\u00e9port.txt"));
    const ProgramRun run = vkreport({"--section", "qtGlobal", "--output", path});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, QByteArray());
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    QVERIFY(text.startsWith("Qt Global\n"));
    QVERIFY(!text.contains('\r'));
}

void VkReportTest::outputFileThatCannotBeWritten()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("missing/report.txt"));
    const ProgramRun run = vkreport({"--section", "qtGlobal", "--output", path});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.contains("vkreport: cannot write '"), run.errors);
    QVERIFY(QDir(folder.path()).isEmpty()); // no partial file
}

void VkReportTest::bonjour()
{
    const ProgramRun run = vkreport({"--bonjour"});
    QCOMPARE(run.exitCode, 0);
    COMPARE_TEXT(QString::fromUtf8(run.output), QStringLiteral("dnssd.dll: not installed\nvkdnssd.dll: not installed\n"));
}

// The parts add up to the whole, and the timings do not change standard output.
void VkReportTest::timingsOfTheReport()
{
    const ProgramRun run = vkreport({"--no-opengl", "--timings"});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.startsWith("############ Windows specific section ###########\n"));
    QVERIFY(!run.output.contains("qtDateTime"));
    const int lines = vkreport({"--no-opengl"}).output.count('\n');
    QCOMPARE(run.output.count('\n'), lines);

    const QList<Timing> timings = timingLines(run.errors);
    QStringList names = QString::fromUtf8(sectionNames()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const char *name : {"Qt half, of which:", "Windows half and network interfaces", "second report, of which:",
                             "first report of this process, which was printed"})
        names.prepend(QString::fromLatin1(name));
    QCOMPARE(namesOf(timings), names);
    QVERIFY(timings.at(0).milliseconds > 0);
    QVERIFY(timings.at(1).milliseconds > 0);
    QCOMPARE(timings.at(1).share, 100.0);
    double sections = 0;
    for (const Timing &timing : timings.mid(4))
        sections += timing.milliseconds;
    QVERIFY2(qAbs(timings.at(3).milliseconds - sections) < 0.001 * names.size(), run.errors); // they are rounded
    const double rest = qMax(timings.at(1).milliseconds - timings.at(3).milliseconds, 0.0);
    QVERIFY2(qAbs(timings.at(2).milliseconds - rest) < 0.002, run.errors);
}

void VkReportTest::timingsOfSections()
{
    const ProgramRun run = vkreport({"--timings", "--section", "qtHostInfo", "--section", "qtGlobal"});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, vkreport({"--section", "qtHostInfo", "--section", "qtGlobal"}).output);
    const QList<Timing> timings = timingLines(run.errors);
    QCOMPARE(namesOf(timings), QStringList({"qtHostInfo", "qtGlobal"}));
    QVERIFY2(qAbs(timings.at(0).share + timings.at(1).share - 100) < 0.2, run.errors);
}

#ifdef SIMULATED_WINDOWS

void VkReportTest::platformNameOfADescribedMachine()
{
    const ProgramRun run = vkreport({"--platform-name"}, QStringLiteral(MACHINES_DIR "/workstation"));
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, QByteArray("Windows 10 Professional Edition, 64-bit\n"));
}

void VkReportTest::bonjourOfADescribedMachine()
{
    const ProgramRun run = vkreport({"--bonjour"}, QStringLiteral(MACHINES_DIR "/workstation"));
    QCOMPARE(run.exitCode, 0);
    COMPARE_TEXT(QString::fromUtf8(run.output),
                 QStringLiteral("dnssd.dll: installed, version 333.10.0\n"
                                "vkdnssd.dll: installed, its service does not answer (error -65563)\n"));
}

// The report is that of an empty machine, and a message says why.
void VkReportTest::machineThatCannotBeRead()
{
    const ProgramRun run = vkreport({"--platform-name"}, QStringLiteral(MACHINES_DIR "/nowhere"));
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, QByteArray("Windows\n"));
    QVERIFY2(run.errors.contains("/nowhere: no such machine folder"), run.errors);
}

// The platform plugin "minimal" has no OpenGL.
void VkReportTest::openGLVersionWithoutOpenGL()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("minimal"));
    const ProgramRun run = runProgram(QStringLiteral(VKREPORT), {"--opengl-version"}, environment);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, QByteArray("not recognized (flags 0x0)\n"));
}

#endif

TEST_WITH_CORE_APPLICATION(VkReportTest);
#include "tst_vkreport.moc"
