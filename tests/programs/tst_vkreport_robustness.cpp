// Reports of vkreport if calls of Windows hang, crash, end the process or are slow.
//
// The expected text is the complete report without the missing sections. The texts of the Windows half come from the
// section table in this process.

#include "described_windows.h"
#include "report_runs.h"
#include "test_main.h"
#include "texts.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <memory>
#include <netinet/in.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

class VkReportRobustnessTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void completeReport_data();
    void completeReport();
    void inProcess();
    void inProcessHasNoProtection();
    void troubles_data();
    void troubles();
    void openGLTroubles_data();
    void openGLTroubles();
    void troubleThatPasses();
    void troubleFileElsewhere();
    void everyCallCrashes();
    void everyCallHangs();
    void hungSectionsTakeAThirdOfTheRest();

    void timeLimits_data();
    void timeLimits();
    void wrongTimeLimits_data();
    void wrongTimeLimits();
    void noTimeLimitWaits();
    void nothingCouldBeHad();
    void nothingCouldBeHadLeavesNoFile();

    void sections_data();
    void sections();
    void facts_data();
    void facts();
    void listsStartNoChild_data();
    void listsStartNoChild();

    void incompleteFile();
    void incompleteFileOfSomebodyElse();
    void json_data();
    void json();
    void jsonOfACompleteReport();
    void incompleteReportIsReadBack();
    void otherFormats_data();
    void otherFormats();
    void redaction();

    void killedParent_data();
    void killedParent();
    void interrupted_data();
    void interrupted();
    void startedByAThreadThatEnds_data();
    void startedByAThreadThatEnds();
    void lowPriority_data();
    void lowPriority();
    void progressOnATerminal_data();
    void progressOnATerminal();
    void progressForPrograms_data();
    void progressForPrograms();
    void progressWithoutReader();

    void streams_data();
    void streams();
    void inputClosed();
    void deviceThatIsFull();
    void ignoredSignals_data();
    void ignoredSignals();
    void largeSections_data();
    void largeSections();
    void unrulyDriver_data();
    void unrulyDriver();

    void withoutDisplay_data();
    void withoutDisplay();
    void openGLVersionWithoutDisplay();
    void displayThatDoesNotAnswer();
    void platformThatCannotStart();
    void machineIsNotDescribed_data();
    void machineIsNotDescribed();
    void environmentIsThatOfTheCaller_data();
    void environmentIsThatOfTheCaller();

private:
    /// A time in seconds that vkreport prints.
    struct TimeRange
    {
        double least;
        double most;
    };

    /// Checks a run in which the whole report and then each of the sections \a missing does not end, with the time of
    /// each.
    void checkTimes(const ProgramStart &start, double timeLimit, const QByteArrayList &missing,
                    const QVector<TimeRange> &expected);
    QString file(const char *name) const { return m_folder->filePath(QString::fromLatin1(name)); }
    QStringList filesInFolder() const;

    std::unique_ptr<CompleteReport> m_complete;           // without OpenGL
    std::unique_ptr<CompleteReport> m_completeWithOpenGL; // with the platform "minimal"
    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

/// In a run that must not reach its time limit.
constexpr double enough = 60;
/// The promise: a run ends at most this much after its time limit.
constexpr double grace = 2;
/// The time limit of most runs with calls that hang. The whole report gets 3.6 s, and a section at most 0.8 s. On a machine
/// with other work the other sections need the rest.
constexpr double limit = 6;
/// If several sections hang, the limit leaves time for the others.
constexpr double longLimit = 10;

const QByteArray qtHeading = "###### System informations retrieved using Qt #######\n";
const QByteArray noDisplay = "vkreport: no display: Qt's platform \"minimal\" is used; "
                             "screens and OpenGL are not those of this machine";

const QByteArray disks = "GetLogicalDrives";
const QByteArray user = "GetUserNameW";

const QString noOpenGL = QStringLiteral("--no-opengl");

QStringList limited(const QStringList &arguments, double seconds = limit)
{
    return arguments + QStringList {QStringLiteral("--time-limit"), QString::number(seconds)};
}

/// The lines of the file of troubles that apply \a kind to each of \a calls.
QByteArray troubleAt(const QByteArray &kind, const QByteArrayList &calls)
{
    QByteArray lines;
    for (const QByteArray &call : calls)
        lines += kind + '\t' + call + '\n';
    return lines;
}

QByteArray contentOf(const QString &path)
{
    QFile content(path);
    return content.open(QIODevice::ReadOnly) ? content.readAll() : QByteArray();
}

bool writeFile(const QString &path, const QByteArray &content)
{
    QFile out(path);
    return out.open(QIODevice::WriteOnly) && out.write(content) == content.size();
}

QString listText(const QList<pid_t> &processes)
{
    QStringList texts;
    for (const pid_t pid : processes)
        texts += QString::number(pid) + QLatin1Char(' ')
            + QString::fromLocal8Bit(contentOf(QStringLiteral("/proc/%1/cmdline").arg(pid)).replace('\0', ' '));
    return texts.join(QLatin1String(", "));
}

QByteArray machineKey(const char *path)
{
    return QByteArray("RegOpenKeyExA\tHKEY_LOCAL_MACHINE\\") + path;
}

QByteArray lines(const QByteArrayList &list)
{
    return list.isEmpty() ? QByteArray() : list.join('\n') + '\n';
}

/// The contents of FILE.incomplete.txt for the messages \a errors.
QByteArray incompleteText(const QByteArray &errors)
{
    QByteArray lines = '\n' + errors;
    return lines.replace("\nvkreport: ", "\n").replace(0, 1, "This report is incomplete.\n");
}

int differingLines(const QByteArray &one, const QByteArray &other)
{
    const QByteArrayList a = one.split('\n'), b = other.split('\n');
    int count = qAbs(a.size() - b.size());
    for (int i = 0; i < qMin(a.size(), b.size()); ++i)
        count += a.at(i) != b.at(i);
    return count;
}

} // namespace

// What must hold after every run that ended.
#define CHECK_END(end, most)                                                                                       \
  do {                                                                                                             \
    QVERIFY2((end).ended, "still running");                                                                        \
    QVERIFY2((end).seconds <= (most), qPrintable(QStringLiteral("ended after %1 s").arg((end).seconds)));          \
    QVERIFY2((end).processes.isEmpty(), qPrintable(QStringLiteral("left: ") + listText((end).processes)));         \
    QVERIFY2((end).files.isEmpty(), qPrintable(QStringLiteral("left: ") + (end).files.join(QLatin1String(", ")))); \
  } while (false)

// Exit code, standard output and lines of standard error, times left out.
#define CHECK_RESULT(end, code, text, messages)                                                               \
  do {                                                                                                        \
    COMPARE_TEXT(QString::fromUtf8(lines(messageLines((end).errors))), QString::fromUtf8(lines(messages)));   \
    QCOMPARE((end).signal, 0);                                                                                \
    QCOMPARE((end).exitCode, (code));                                                                         \
    COMPARE_TEXT(QString::fromUtf8(withoutVolatile((end).output)), QString::fromUtf8(withoutVolatile(text))); \
  } while (false)

// The reference texts are made in one process, without the time limit and the children that this test is about.
void VkReportRobustnessTest::initTestCase()
{
    const ProgramEnd end = runToItsEnd(reportStart({noOpenGL, "--in-process"}), enough);
    CHECK_END(end, enough);
    QCOMPARE(end.exitCode, 0);
    m_complete = std::make_unique<CompleteReport>(end.output);
    QCOMPARE(m_complete->problem(), QByteArray());
    const ProgramEnd minimal = runToItsEnd(reportStart({"--in-process"}, "", ReportEnvironment("minimal")), enough);
    QCOMPARE(minimal.exitCode, 0);
    m_completeWithOpenGL = std::make_unique<CompleteReport>(minimal.output);
    QCOMPARE(m_completeWithOpenGL->problem(), QByteArray());
    QCOMPARE(m_completeWithOpenGL->names().size(), m_complete->names().size() + 1);
}

void VkReportRobustnessTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

void VkReportRobustnessTest::cleanup()
{
    const QList<pid_t> left = waitForTheEndOf(processesWithVariable(ReportEnvironment::mark()), 2);
    QVERIFY2(left.isEmpty(), qPrintable(listText(left)));
    const QStringList files = QDir(ReportEnvironment::temporaryFolder())
                                  .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    QVERIFY2(files.isEmpty(), qPrintable(files.join(QLatin1String(", "))));
}

QStringList VkReportRobustnessTest::filesInFolder() const
{
    return QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

void VkReportRobustnessTest::completeReport_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("trouble");
    QTest::newRow("no trouble") << QStringList() << QByteArray("");
    QTest::newRow("no file of troubles") << QStringList() << QByteArray();
    QTest::newRow("no limit") << QStringList({"--time-limit", "0"}) << QByteArray("");
    QTest::newRow("low priority") << QStringList("--low-priority") << QByteArray("");
    QTest::newRow("a call that sleeps and ends in time") << QStringList() << troubleAt("sleep=700", {disks});
    QTest::newRow("a call of the Qt half that sleeps and ends in time")
        << QStringList() << troubleAt("sleep=20", {"GetAdaptersInfo"});
    QTest::newRow("a call that sleeps, without a limit")
        << QStringList({"--time-limit", "0"}) << troubleAt("sleep=700", {disks});
    QTest::newRow("troubles of calls that are not made")
        << QStringList() << troubleAt("crash", {"NoSuchCall", "GetLogicalDrives\tQ:\\", "GetComputerNameExW\t*\t99"});
}

void VkReportRobustnessTest::completeReport()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, trouble);
    const ProgramEnd end = runToItsEnd(reportStart(QStringList(noOpenGL) + arguments, trouble), enough);
    CHECK_END(end, enough);
    CHECK_RESULT(end, 0, m_complete->without({}), QByteArrayList());
}

void VkReportRobustnessTest::inProcess()
{
    const ProgramEnd end = runToItsEnd(reportStart({noOpenGL, "--in-process"}, troubleAt("sleep=100", {disks})), enough);
    CHECK_END(end, enough);
    CHECK_RESULT(end, 0, m_complete->without({}), QByteArrayList());
    const ProgramEnd minimal = runToItsEnd(reportStart({}, "", ReportEnvironment("minimal")), enough);
    CHECK_END(minimal, enough);
    CHECK_RESULT(minimal, 0, m_completeWithOpenGL->without({}), QByteArrayList());
}

// Nobody could make a report after the process is gone.
void VkReportRobustnessTest::inProcessHasNoProtection()
{
    const ProgramStart start = reportStart({noOpenGL, "--in-process"}, troubleAt("exit=7", {disks}));
    const ProgramEnd end = runToItsEnd(start, enough);
    QVERIFY(end.ended);
    QCOMPARE(end.exitCode, 7);
    QCOMPARE(end.output, QByteArray());
}

void VkReportRobustnessTest::troubles_data()
{
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<QByteArrayList>("calls");
    QTest::addColumn<QByteArrayList>("missing");
    QTest::addColumn<QByteArray>("reason");

    const QByteArray enumKey = "SYSTEM\\CurrentControlSet\\Enum\\";
    const struct
    {
        const char *name;
        QByteArrayList calls;
        QByteArrayList missing;
    } places[] = {
        {"the first section", {"GetVersionExW"}, {"windowsVersion"}},
        {"the whole first group",
         {"GetVersionExW", machineKey("Software\\Microsoft\\Windows NT\\CurrentVersion")},
         {"windowsVersion", "windowsVersionFromRegistry"}},
        {"a section without a separator", {"GetComputerNameExW\t*\t3"}, {"computerNames"}},
        {"the section without a heading", {user}, {"userName"}},
        {"the whole group with it", {"GetComputerNameExW", user}, {"computerNames", "userName"}},
        {"the middle", {disks}, {"diskInformation"}},
        {"a call in the middle of a section", {"GetVolumeInformationW\tE:\\"}, {"diskInformation"}},
        {"the last call of a section", {"SetErrorMode\t*\t0"}, {"diskInformation"}},
        {"a section in the middle of a group", {machineKey(enumKey + "IDE")}, {"diskDevicesFromRegistry:IDE"}},
        {"the end of a group", {machineKey(enumKey + "USBSTOR")}, {"diskDevicesFromRegistry:USBSTOR"}},
        {"a group of four",
         {machineKey(enumKey + "FDC"), machineKey(enumKey + "IDE"), machineKey(enumKey + "SCSI"),
          machineKey(enumKey + "USBSTOR")},
         {"diskDevicesFromRegistry:FDC", "diskDevicesFromRegistry:IDE", "diskDevicesFromRegistry:SCSI",
          "diskDevicesFromRegistry:USBSTOR"}},
        {"a DNS-SD library that does not load", {"LoadLibraryW\tdnssd.dll"}, {"checkStandardBonjour"}},
        {"a DNS-SD library that does not answer",
         {"DNSServiceGetProperty"},
         {"checkStandardBonjour", "checkVelkorBonjour"}},
        {"a call of two sections", {"GetVersionExA"}, {"windowsVersion", "oemInfoFromRegistry"}},
        {"a call of three sections",
         {"GetSystemWindowsDirectoryW"},
         {"winSxSDirectoryEntries", "windowsSystemDirectories", "refCountSharedDll"}},
        {"the last section of the Windows half", {"EnumProcessModules"}, {"loadedModules"}},
        {"the Qt half", {"GetAdaptersInfo"}, {"qtNetworkInterfaces"}},
        {"both halves", {"EnumProcessModules", "GetAdaptersInfo"}, {"loadedModules", "qtNetworkInterfaces"}},
    };
    const struct
    {
        const char *kind;
        QByteArray reason;
    } kinds[] = {
        {"hang", didNotEnd},
        {"crash", crashed},
        {"abort", aborted},
        {"exit=7", exited(7)},
    };
    for (const auto &place : places) {
        for (const auto &kind : kinds)
            QTest::addRow("%s: %s", kind.kind, place.name)
                << QByteArray(kind.kind) << place.calls << place.missing << kind.reason;
    }
    const QByteArrayList one {"diskInformation"};
    QTest::newRow("exit=0 is not the end of a report") << QByteArray("exit=0") << QByteArrayList {disks} << one << exited(0);
    QTest::newRow("exit=3") << QByteArray("exit=3") << QByteArrayList {disks} << one << exited(3);
    QTest::newRow("exit=255") << QByteArray("exit=255") << QByteArrayList {disks} << one << exited(255);
    QTest::newRow("a call that sleeps too long") << QByteArray("sleep=60000") << QByteArrayList {disks} << one << didNotEnd;
    QTest::newRow("a section with many slow calls")
        << QByteArray("sleep=300") << QByteArrayList {"GetModuleFileNameExW"} << QByteArrayList {"loadedModules"} << didNotEnd;
}

void VkReportRobustnessTest::troubles()
{
    QFETCH(QByteArray, kind);
    QFETCH(QByteArrayList, calls);
    QFETCH(QByteArrayList, missing);
    QFETCH(QByteArray, reason);
    const bool slow = reason == didNotEnd;
    const double seconds = slow ? limitForHangs(missing.size(), 1.5) : enough;
    const ProgramStart start = reportStart(limited({noOpenGL}, seconds), troubleAt(kind, calls));
    const ProgramEnd end = runToItsEnd(start, seconds + grace + 10);
    CHECK_END(end, seconds + grace);
    CHECK_RESULT(end, 3, m_complete->without(missing),
                 QByteArrayList {wholeReport(reason)} + missingLines(missing, reason));
    QVector<double> times;
    messageLines(end.errors, &times);
    QCOMPARE(times.size(), missing.size() + 1);
    if (slow)
        QVERIFY2(times.takeFirst() > 0.6 * seconds - 0.1, end.errors);
    for (const double time : qAsConst(times))
        QVERIFY2(time <= end.seconds + 0.1, end.errors);
}

void VkReportRobustnessTest::openGLTroubles_data()
{
    QTest::addColumn<QByteArray>("trouble");
    QTest::addColumn<QByteArrayList>("missing");
    QTest::addColumn<QByteArrayList>("messages");
    const QByteArrayList openGL {"GetOpenGLInfo"};
    const QByteArray section = "RegEnumKeyA"; // no other section calls it
    QTest::newRow("crash") << troubleAt("crash", {section}) << openGL
                           << QByteArrayList {wholeReport(crashed)} + missingLines(openGL, crashed);
    QTest::newRow("abort") << troubleAt("abort", {section}) << openGL
                           << QByteArrayList {wholeReport(aborted)} + missingLines(openGL, aborted);
    QTest::newRow("exit=7") << troubleAt("exit=7", {section}) << openGL
                            << QByteArrayList {wholeReport(exited(7))} + missingLines(openGL, exited(7));
    QTest::newRow("hang") << troubleAt("hang", {section}) << openGL
                          << QByteArrayList {wholeReport(didNotEnd)} + missingLines(openGL, didNotEnd);
    QTest::newRow("in a registry call with a key")
        << troubleAt("crash", {machineKey("SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\OpenGLDrivers\\RemoteGL")})
        << openGL << QByteArrayList {wholeReport(crashed)} + missingLines(openGL, crashed);
    const QByteArrayList both {"diskInformation", "GetOpenGLInfo"};
    const QByteArrayList attempts {wholeReport(crashed), reportWithoutOpenGL(crashed)};
    QTest::newRow("crash, and another section crashes")
        << troubleAt("crash", {section, disks}) << both << attempts + missingLines(both, crashed);
    QTest::newRow("crash of another section alone")
        << troubleAt("crash", {disks}) << both.mid(0, 1) << attempts + missingLines(both.mid(0, 1), crashed);
    QTest::newRow("crash, and another section hangs")
        << troubleAt("crash", {section}) + troubleAt("hang", {disks}) << both
        << QByteArrayList({wholeReport(didNotEnd), reportWithoutOpenGL(didNotEnd)})
            + missingLines(both.mid(0, 1), didNotEnd) + missingLines(openGL, crashed);
}

void VkReportRobustnessTest::openGLTroubles()
{
    QFETCH(QByteArray, trouble);
    QFETCH(QByteArrayList, missing);
    QFETCH(QByteArrayList, messages);
    const bool slow = trouble.contains("hang");
    const double seconds = slow ? limit : enough;
    const ProgramEnd end = runToItsEnd(reportStart(limited({}, seconds), trouble, ReportEnvironment("minimal")),
                                       seconds + grace + 10);
    CHECK_END(end, seconds + grace);
    CHECK_RESULT(end, 3, m_completeWithOpenGL->without(missing), messages);
}

// The call hangs until the first attempt is over. The next attempt gets every section.
void VkReportRobustnessTest::troubleThatPasses()
{
    const QString output = file("report.txt");
    RunningProgram program(reportStart(limited({noOpenGL, "--output", output}, longLimit), troubleAt("hang", {disks})));
    const QList<pid_t> children = program.waitForSleepingChildren(5);
    QVERIFY(!children.isEmpty());
    QVERIFY(QFile::remove(program.folder() + QLatin1String("/trouble")));
    const ProgramEnd end = program.wait(longLimit + grace + 10);
    CHECK_END(end, longLimit + grace);
    CHECK_RESULT(end, 0, QByteArray(), QByteArrayList {wholeReport(didNotEnd)});
    COMPARE_TEXT(QString::fromUtf8(withoutVolatile(contentOf(output))),
                 QString::fromUtf8(withoutVolatile(m_complete->without({}))));
    QCOMPARE(filesInFolder(), QStringList("report.txt"));
}

void VkReportRobustnessTest::troubleFileElsewhere()
{
    QVERIFY(writeFile(file("troubles"), "# a comment\n\ncrash\tGetUserNameW\nsleep=1\t*\n"));
    const QByteArray path = QFile::encodeName(file("troubles"));
    const ProgramEnd end = runToItsEnd(
        reportStart({noOpenGL}, QByteArray(), ReportEnvironment().with("VKSYSTEMINFO_TROUBLE", path)), enough);
    CHECK_END(end, enough);
    QCOMPARE(end.exitCode, 3);
    QCOMPARE(messageLines(end.errors), QByteArrayList {wholeReport(crashed)} + missingLines({"userName"}, crashed));
}

// wordSize is the only section of the Windows half that calls nothing.
void VkReportRobustnessTest::everyCallCrashes()
{
    const ProgramEnd end = runToItsEnd(reportStart({noOpenGL}, "crash\t*\n"), enough + grace);
    CHECK_END(end, enough + grace);
    QByteArrayList missing;
    for (const velkor::SystemInfo::Section &section : velkor::SystemInfo::SectionTable()) {
        if ((section.part == velkor::SystemInfo::Part::Windows && qstrcmp(section.name, "wordSize") != 0)
            || qstrcmp(section.name, "qtNetworkInterfaces") == 0)
            missing += section.name;
    }
    CHECK_RESULT(end, 3, m_complete->without(missing),
                 QByteArrayList {wholeReport(crashed)} + missingLines(missing, crashed));
}

// The time is over before every section was tried. The sections that were not tried are the last ones.
void VkReportRobustnessTest::everyCallHangs()
{
    const ProgramEnd end = runToItsEnd(reportStart(limited({noOpenGL}), "hang\t*\n"), limit + grace + 10);
    CHECK_END(end, limit + grace);
    QCOMPARE(end.exitCode, 3);
    const QByteArrayList messages = messageLines(end.errors);
    QCOMPARE(messages.value(0), wholeReport(didNotEnd));
    QByteArrayList missing, expected {wholeReport(didNotEnd)};
    const QByteArrayList names = m_complete->names();
    int next = 0;
    for (; next < names.size() && !messages.contains("vkreport: missing: " + names.at(next) + ": " + notTried); ++next) {
        if (names.at(next) == "wordSize")
            continue;
        missing += names.at(next);
        expected += missingLines({names.at(next)}, didNotEnd);
    }
    QVERIFY2(missing.size() >= 3 && next < names.size() - 12, end.errors); // some were tried, and the Qt half was not
    missing += names.mid(next);
    expected += missingLines(names.mid(next), notTried);
    CHECK_RESULT(end, 3, m_complete->without(missing), expected);
}

// A machine with other work delays a run and never shortens it: one run in time shows that the times are right.
void VkReportRobustnessTest::checkTimes(const ProgramStart &start, double timeLimit, const QByteArrayList &missing,
                                        const QVector<TimeRange> &expected)
{
    for (int attempt = 0; attempt < 5; ++attempt) {
        const ProgramEnd end = runToItsEnd(start, timeLimit + grace + 10);
        CHECK_END(end, timeLimit + grace);
        QVERIFY2(end.seconds >= expected.at(0).least, qPrintable(QString::number(end.seconds)));
        CHECK_RESULT(end, 3, m_complete->without(missing),
                     QByteArrayList {wholeReport(didNotEnd)} + missingLines(missing, didNotEnd));
        QVector<double> times;
        messageLines(end.errors, &times);
        QCOMPARE(times.size(), expected.size());
        QVERIFY2(times.at(0) >= expected.at(0).least, end.errors); // no attempt ends early
        const auto isIn = [](double time, const TimeRange &range) { return time >= range.least && time <= range.most; };
        if (std::equal(times.begin(), times.end(), expected.begin(), isIn))
            return;
        qWarning("attempt %d: %s", attempt, end.errors.constData());
    }
    QFAIL("the times are wrong in each of five runs");
}

void VkReportRobustnessTest::hungSectionsTakeAThirdOfTheRest()
{
    // 4 s remain for the sections. Starting the children takes part of the time.
    const QByteArrayList missing {"windowsVersion", "userName", "oemInfoFromRegistry"};
    const ProgramStart start = reportStart(limited({noOpenGL}, longLimit), troubleAt("hang", {"GetVersionExA", user}));
    checkTimes(start, longLimit, missing, {{5.9, 6.15}, {0.9, 1.45}, {0.5, 1.0}, {0.3, 0.7}});
}

void VkReportRobustnessTest::timeLimits_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<double>("seconds");
    QTest::newRow("an integer") << "6" << 6.0;
    QTest::newRow("a fraction") << "5.5" << 5.5;
    QTest::newRow("a zero before it") << "06.0" << 6.0;
}

void VkReportRobustnessTest::timeLimits()
{
    QFETCH(QString, value);
    QFETCH(double, seconds);
    const ProgramStart start = reportStart({noOpenGL, "--time-limit", value}, troubleAt("hang", {disks}));
    checkTimes(start, seconds, {"diskInformation"},
               {{0.6 * seconds - 0.1, 0.6 * seconds + 0.15}, {0.05 * seconds, 0.4 * seconds / 3 + 0.15}});
}

void VkReportRobustnessTest::wrongTimeLimits_data()
{
    QTest::addColumn<QString>("value");
    for (const char *value : {"-1", "-0.5", "", " ", "x", "10s", "1,5", "1.5.0", "nan", "inf", "-inf", "1e999", "0x10",
                              "--no-opengl"})
        QTest::newRow(value) << QString::fromLatin1(value);
}

void VkReportRobustnessTest::wrongTimeLimits()
{
    QFETCH(QString, value);
    const ProgramEnd end = runToItsEnd(reportStart({QStringLiteral("--time-limit=") + value, noOpenGL}), enough);
    CHECK_END(end, enough);
    QCOMPARE(end.exitCode, 2);
    QCOMPARE(end.output, QByteArray());
    QVERIFY2(end.errors.startsWith("vkreport: ") && end.errors.count('\n') == 1, end.errors);
    QVERIFY2(end.errors.contains("--time-limit"), end.errors);
}

// A hang is waited for, a crash is survived.
void VkReportRobustnessTest::noTimeLimitWaits()
{
    const QStringList arguments {noOpenGL, "--time-limit", "0"};
    RunningProgram program(reportStart(arguments, troubleAt("hang", {disks})));
    QVERIFY(program.isRunningAfter(4));
    const QList<pid_t> children = program.waitForSleepingChildren(3);
    QVERIFY(!children.isEmpty());
    QCOMPARE(::kill(program.pid(), SIGTERM), 0);
    const ProgramEnd end = program.wait(enough);
    QCOMPARE(end.signal, SIGTERM);
    QCOMPARE(end.output, QByteArray());
    QVERIFY(waitForTheEndOf(children, 2).isEmpty());

    const ProgramEnd crash = runToItsEnd(reportStart(arguments, troubleAt("crash", {disks})), enough);
    CHECK_END(crash, enough);
    CHECK_RESULT(crash, 3, m_complete->without({"diskInformation"}),
                 QByteArrayList {wholeReport(crashed)} + missingLines({"diskInformation"}, crashed));
}

// No process can start in a millisecond.
void VkReportRobustnessTest::nothingCouldBeHad()
{
    const ProgramEnd end = runToItsEnd(reportStart({noOpenGL, "--time-limit", "0.001"}), enough);
    CHECK_END(end, 0.001 + grace);
    QCOMPARE(end.exitCode, 1);
    QCOMPARE(end.output, QByteArray());
    const QByteArrayList messages = messageLines(end.errors);
    QCOMPARE(messages.value(0), wholeReport(didNotEnd));
    for (const QByteArray &message : messages)
        QVERIFY2(message.startsWith("vkreport: "), message);
}

void VkReportRobustnessTest::nothingCouldBeHadLeavesNoFile()
{
    for (const char *format : {"text", "json", "markdown", "html"}) {
        const ProgramEnd end = runToItsEnd(
            reportStart({noOpenGL, "--time-limit", "0.001", "--format", format, "--output", file("report")}), enough);
        CHECK_END(end, 0.001 + grace);
        QCOMPARE(end.exitCode, 1);
        QCOMPARE(end.output, QByteArray());
        QCOMPARE(filesInFolder(), QStringList());
    }
}

void VkReportRobustnessTest::sections_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QByteArray>("trouble");
    QTest::addColumn<QByteArrayList>("printed");
    QTest::addColumn<QByteArrayList>("missing");
    QTest::addColumn<QByteArray>("reason");

    const auto row = [](const char *name, const QStringList &names, const QByteArray &trouble, const QByteArrayList &printed,
                        const QByteArrayList &missing, const QByteArray &reason) {
        QTest::newRow(name) << names << trouble << printed << missing << reason;
    };
    row("one of the Windows half", {"memoryInfo"}, "", {"memoryInfo"}, {}, {});
    row("one with an argument", {"diskDevicesFromRegistry:IDE"}, "", {"diskDevicesFromRegistry:IDE"}, {}, {});
    row("the one without a heading", {"userName"}, "", {"userName"}, {}, {});
    row("one of the Qt half that is not exported", {"qtNetworkInterfaces"}, "", {"qtNetworkInterfaces"}, {}, {});
    row("of both halves: others crash", {"memoryInfo", "qtLocale"}, troubleAt("crash", {disks, user, "GetAdaptersInfo"}),
        {"memoryInfo", "qtLocale"}, {}, {});
    row("exported sections call nothing", {"qtLocale", "qtGlobal"}, "crash\t*\n", {"qtLocale", "qtGlobal"}, {}, {});
    row("everything crashes", {"diskInformation"}, troubleAt("crash", {disks}), {}, {"diskInformation"}, crashed);
    row("everything hangs", {"diskInformation"}, troubleAt("hang", {disks}), {}, {"diskInformation"}, didNotEnd);
    row("everything ends the process", {"userName"}, troubleAt("exit=9", {user}), {}, {"userName"}, exited(9));
    row("the heading crashes", {"disk information"}, troubleAt("crash", {disks}), {}, {"diskInformation"}, crashed);
    row("not exported, in the Qt half", {"qtNetworkInterfaces"}, troubleAt("crash", {"GetAdaptersInfo"}), {},
        {"qtNetworkInterfaces"}, crashed);
    row("the second hangs", {"memoryInfo", "diskInformation"}, troubleAt("hang", {disks}), {"memoryInfo"},
        {"diskInformation"}, didNotEnd);
    row("the first crashes", {"userName", "diskInformation"}, troubleAt("crash", {user}), {"diskInformation"}, {"userName"},
        crashed);
    row("the one in the middle aborts", {"wordSize", "diskInformation", "loadedModules"}, troubleAt("abort", {disks}),
        {"wordSize", "loadedModules"}, {"diskInformation"}, aborted);
    row("of both halves", {"wordSize", "diskInformation", "qtLocale"}, troubleAt("crash", {disks}),
        {"wordSize", "qtLocale"}, {"diskInformation"}, crashed);
    row("two of three", {"userName", "memoryInfo", "diskInformation"}, troubleAt("crash", {user, disks}), {"memoryInfo"},
        {"userName", "diskInformation"}, crashed);
}

void VkReportRobustnessTest::sections()
{
    QFETCH(QStringList, names);
    QFETCH(QByteArray, trouble);
    QFETCH(QByteArrayList, printed);
    QFETCH(QByteArrayList, missing);
    QFETCH(QByteArray, reason);
    QStringList arguments;
    for (const QString &name : names)
        arguments << QStringLiteral("--section") << name;
    const double seconds = reason == didNotEnd ? limit : enough;
    const ProgramEnd end = runToItsEnd(reportStart(limited(arguments, seconds), trouble), seconds + grace + 10);
    CHECK_END(end, seconds + grace);
    QByteArray text;
    for (const QByteArray &name : printed)
        text += m_complete->section(name);
    // sections of the Qt half that the library does not export, and those of both halves, are taken from the whole report
    QByteArrayList messages = missingLines(missing, reason);
    if (names.last().startsWith(QLatin1String("qt")) && names.last() != QLatin1String("qtGlobal") && !trouble.isEmpty())
        messages.prepend(wholeReport(crashed));
    CHECK_RESULT(end, missing.isEmpty() ? 0 : printed.isEmpty() ? 1
                                                                : 3,
                 text, messages);
}

void VkReportRobustnessTest::facts_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("trouble");
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<QByteArrayList>("messages");
    QTest::addColumn<int>("exitCode");

    const QByteArray name = "Windows 10 Professional Edition, 64-bit\n";
    const QByteArray libraries = "dnssd.dll: installed, version 333.10.0\n"
                                 "vkdnssd.dll: installed, its service does not answer (error -65563)\n";
    const QByteArray locale = m_complete->section("qtLocale");
    const QByteArrayList noName {"platformName"}, noLibraries {"bonjour"};
    QTest::newRow("no trouble") << QStringList({"--platform-name", "--bonjour"}) << QByteArray("") << name + libraries
                                << QByteArrayList() << 0;
    QTest::newRow("other calls have trouble") << QStringList({"--platform-name", "--bonjour"})
                                              << troubleAt("crash", {disks, user, "GetAdaptersInfo"}) << name + libraries
                                              << QByteArrayList() << 0;
    const struct
    {
        const char *kind;
        QByteArray reason;
    } kinds[] = {{"hang", didNotEnd}, {"crash", crashed}, {"abort", aborted}, {"exit=5", exited(5)}};
    for (const auto &kind : kinds) {
        QTest::addRow("%s: name of the platform", kind.kind)
            << QStringList("--platform-name") << troubleAt(kind.kind, {"GetVersionExA"}) << QByteArray()
            << missingLines(noName, kind.reason) << 1;
        QTest::addRow("%s: DNS-SD libraries", kind.kind)
            << QStringList("--bonjour") << troubleAt(kind.kind, {"DNSServiceGetProperty"}) << QByteArray()
            << missingLines(noLibraries, kind.reason) << 1;
        QTest::addRow("%s: one of two", kind.kind)
            << QStringList({"--platform-name", "--bonjour"}) << troubleAt(kind.kind, {"GetVersionExA"}) << libraries
            << missingLines(noName, kind.reason) << 3;
        QTest::addRow("%s: the other of two", kind.kind)
            << QStringList({"--platform-name", "--bonjour"}) << troubleAt(kind.kind, {"LoadLibraryW"}) << name
            << missingLines(noLibraries, kind.reason) << 3;
    }
    QTest::newRow("with a section") << QStringList({"--platform-name", "--section", "qtLocale"})
                                    << troubleAt("crash", {"GetVersionExA"}) << locale << missingLines(noName, crashed) << 3;
    QTest::newRow("all of them") << QStringList({"--platform-name", "--bonjour"}) << QByteArray("crash\t*\n") << QByteArray()
                                 << missingLines(noName + noLibraries, crashed) << 1;
}

void VkReportRobustnessTest::facts()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, trouble);
    QFETCH(QByteArray, output);
    QFETCH(QByteArrayList, messages);
    QFETCH(int, exitCode);
    const double seconds = trouble.startsWith("hang") ? limit : enough;
    const ProgramEnd end = runToItsEnd(reportStart(limited(arguments, seconds), trouble), seconds + grace + 10);
    CHECK_END(end, seconds + grace);
    CHECK_RESULT(end, exitCode, output, messages);
}

void VkReportRobustnessTest::listsStartNoChild_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("help") << QStringList("--help");
    QTest::newRow("version") << QStringList("--version");
    QTest::newRow("sections") << QStringList("--list-sections");
    QTest::newRow("facts") << QStringList("--list-facts");
    QTest::newRow("a report that was read") << QStringList({"--input", QStringLiteral(REPORTS_DATA_DIR "/workstation.txt")});
}

// A child would hang at its first call, or end without a display.
void VkReportRobustnessTest::listsStartNoChild()
{
    QFETCH(QStringList, arguments);
    const ReportEnvironment environment = ReportEnvironment("no-such-platform").without("VKSYSTEMINFO_MACHINE");
    for (const ReportEnvironment &tried : {environment, environment.without("QT_QPA_PLATFORM")}) {
        const ProgramEnd end = runToItsEnd(reportStart(arguments, "hang\t*\n", tried), enough);
        CHECK_END(end, enough);
        QCOMPARE(end.errors, QByteArray());
        QCOMPARE(end.exitCode, 0);
        QVERIFY(!end.output.isEmpty());
    }
}

// The file appears with an incomplete report and disappears with a complete one.
void VkReportRobustnessTest::incompleteFile()
{
    const QString report = file("report.txt"), incomplete = report + QLatin1String(".incomplete.txt");
    const QStringList arguments {noOpenGL, "--output", report};
    const ProgramEnd end = runToItsEnd(reportStart(arguments, troubleAt("crash", {disks, user})), enough);
    CHECK_END(end, enough);
    const QByteArrayList missing {"userName", "diskInformation"};
    CHECK_RESULT(end, 3, QByteArray(), QByteArrayList {wholeReport(crashed)} + missingLines(missing, crashed));
    COMPARE_TEXT(QString::fromUtf8(withoutVolatile(contentOf(report))),
                 QString::fromUtf8(withoutVolatile(m_complete->without(missing))));
    QCOMPARE(contentOf(incomplete), incompleteText(end.errors));
    QCOMPARE(filesInFolder(), QStringList({"report.txt", "report.txt.incomplete.txt"}));

    // Another trouble: both files are replaced.
    const ProgramEnd other = runToItsEnd(reportStart(arguments, troubleAt("exit=1", {disks})), enough);
    CHECK_END(other, enough);
    CHECK_RESULT(other, 3, QByteArray(),
                 QByteArrayList {wholeReport(exited(1))} + missingLines({"diskInformation"}, exited(1)));
    QCOMPARE(contentOf(incomplete), incompleteText(other.errors));

    // Another file: this one stays.
    QCOMPARE(runToItsEnd(reportStart({noOpenGL, "--output", file("other.txt")}), enough).exitCode, 0);
    QVERIFY(QFile::exists(incomplete));

    const ProgramEnd complete = runToItsEnd(reportStart(arguments), enough);
    CHECK_END(complete, enough);
    CHECK_RESULT(complete, 0, QByteArray(), QByteArrayList());
    COMPARE_TEXT(QString::fromUtf8(withoutVolatile(contentOf(report))),
                 QString::fromUtf8(withoutVolatile(m_complete->without({}))));
    QCOMPARE(filesInFolder(), QStringList({"other.txt", "report.txt"}));
}

void VkReportRobustnessTest::incompleteFileOfSomebodyElse()
{
    const QString report = file("report.txt"), incomplete = report + QLatin1String(".incomplete.txt");
    for (const QByteArray &content : {QByteArray("My notes.\n"), QByteArray(), QByteArray("\nThis report is incomplete.\n"),
                                      QByteArray("This report is incomplete. I made a note of it.\n")}) {
        QVERIFY(writeFile(incomplete, content));
        QCOMPARE(runToItsEnd(reportStart({noOpenGL, "--output", report}), enough).exitCode, 0);
        QVERIFY2(QFile::exists(incomplete), content);
        QCOMPARE(contentOf(incomplete), content);
    }
}

void VkReportRobustnessTest::json_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("trouble");
    QTest::addColumn<QByteArray>("platform");
    QTest::addColumn<QByteArray>("incomplete"); // without the member "seconds"
    QTest::newRow("crash, the default limit")
        << QStringList(noOpenGL) << troubleAt("crash", {disks}) << QByteArray("offscreen")
        << QByteArray(R"({"timeLimit": 60, "attempts": [{"attempt": "allInfos", "reason": "crash", "code": "SIGSEGV"}],
                          "missing": [{"section": "diskInformation", "reason": "crash", "code": "SIGSEGV"}]})");
    QTest::newRow("abort, no limit")
        << QStringList({noOpenGL, "--time-limit", "0"}) << troubleAt("abort", {disks, user}) << QByteArray("offscreen")
        << QByteArray(R"({"timeLimit": 0, "attempts": [{"attempt": "allInfos", "reason": "crash", "code": "SIGABRT"}],
                          "missing": [{"section": "userName", "reason": "crash", "code": "SIGABRT"},
                                      {"section": "diskInformation", "reason": "crash", "code": "SIGABRT"}]})");
    QTest::newRow("exit, a limit of 30 s")
        << QStringList({noOpenGL, "--time-limit", "30"}) << troubleAt("exit=7", {"GetAdaptersInfo"}) << QByteArray("offscreen")
        << QByteArray(R"({"timeLimit": 30, "attempts": [{"attempt": "allInfos", "reason": "exit", "code": "7"}],
                          "missing": [{"section": "qtNetworkInterfaces", "reason": "exit", "code": "7"}]})");
    QTest::newRow("hang, a fraction")
        << QStringList({noOpenGL, "--time-limit", "6.5"}) << troubleAt("hang", {disks}) << QByteArray("offscreen")
        << QByteArray(R"({"timeLimit": 6.5, "attempts": [{"attempt": "allInfos", "reason": "timeout"}],
                          "missing": [{"section": "diskInformation", "reason": "timeout"}]})");
    QTest::newRow("with OpenGL")
        << QStringList() << troubleAt("crash", {disks, "RegEnumKeyA"}) << QByteArray("minimal")
        << QByteArray(R"({"timeLimit": 60,
                          "attempts": [{"attempt": "allInfos", "reason": "crash", "code": "SIGSEGV"},
                                       {"attempt": "allInfosWithoutOpenGL", "reason": "crash", "code": "SIGSEGV"}],
                          "missing": [{"section": "diskInformation", "reason": "crash", "code": "SIGSEGV"},
                                      {"section": "GetOpenGLInfo", "reason": "crash", "code": "SIGSEGV"}]})");
}

void VkReportRobustnessTest::json()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, trouble);
    QFETCH(QByteArray, platform);
    QFETCH(QByteArray, incomplete);
    const ProgramEnd end = runToItsEnd(
        reportStart(arguments + QStringList({"--format", "json"}), trouble, ReportEnvironment(platform)), enough);
    CHECK_END(end, enough);
    QCOMPARE(end.exitCode, 3);

    const QJsonObject expected = QJsonDocument::fromJson(incomplete).object();
    QVERIFY(!expected.isEmpty());
    QJsonObject object = QJsonDocument::fromJson(end.output).object().value(QStringLiteral("incomplete")).toObject();
    QVector<double> times;
    messageLines(end.errors, &times);
    QByteArrayList missing;
    int time = 0;
    for (const QString &list : {QStringLiteral("attempts"), QStringLiteral("missing")}) {
        QJsonArray without;
        for (const QJsonValue &value : object.value(list).toArray()) {
            QJsonObject entry = value.toObject();
            const QJsonValue seconds = entry.take(QStringLiteral("seconds"));
            QVERIFY2(seconds.isDouble(), end.output.left(2000));
            QCOMPARE(QByteArray::number(seconds.toDouble(), 'f', 1), QByteArray::number(times.value(time, -1), 'f', 1));
            QCOMPARE(seconds.toDouble(), QString::number(seconds.toDouble(), 'f', 3).toDouble()); // milliseconds
            ++time;
            without.append(entry);
            if (entry.contains(QStringLiteral("section")))
                missing += entry.value(QStringLiteral("section")).toString().toUtf8();
        }
        object.insert(list, without);
    }
    QCOMPARE(time, times.size());
    QCOMPARE(QJsonDocument(object).toJson(), QJsonDocument(expected).toJson());

    // Reading it gives the text of the incomplete report.
    QVERIFY(writeFile(file("report.json"), end.output));
    const ProgramEnd read = runToItsEnd(reportStart({"--input", file("report.json")}), enough);
    CHECK_END(read, enough);
    const CompleteReport &complete = arguments.contains(noOpenGL) ? *m_complete : *m_completeWithOpenGL;
    CHECK_RESULT(read, 0, complete.without(missing), QByteArrayList());
}

void VkReportRobustnessTest::jsonOfACompleteReport()
{
    const ProgramEnd end = runToItsEnd(reportStart({noOpenGL, "--format", "json"}), enough);
    CHECK_END(end, enough);
    QCOMPARE(end.exitCode, 0);
    QCOMPARE(end.errors, QByteArray());
    const QJsonObject object = QJsonDocument::fromJson(end.output).object();
    QVERIFY(!object.isEmpty());
    QVERIFY(!object.contains(QStringLiteral("incomplete")));
}

void VkReportRobustnessTest::incompleteReportIsReadBack()
{
    const ProgramEnd end = runToItsEnd(reportStart({noOpenGL}, troubleAt("crash", {"GetComputerNameExW", user, disks})), enough);
    CHECK_END(end, enough);
    QCOMPARE(end.exitCode, 3);
    const QString report = file("report.txt");
    QVERIFY(writeFile(report, end.output));
    const ProgramEnd same = runToItsEnd(reportStart({"--input", report}), enough);
    QCOMPARE(same.exitCode, 0);
    QCOMPARE(same.errors, QByteArray());
    QCOMPARE(same.output, end.output);
    for (const char *name : {"memoryInfo", "wordSize", "loadedModules", "qtLocale", "environmentVariables"}) {
        const QByteArray expected = m_complete->section(name);
        if (expected.isEmpty())
            continue;
        const ProgramEnd section = runToItsEnd(reportStart({"--input", report, "--section", name}), enough);
        QCOMPARE(section.exitCode, 0);
        QCOMPARE(section.output, expected);
    }
    const ProgramEnd missing = runToItsEnd(reportStart({"--input", report, "--section", "diskInformation"}), enough);
    QCOMPARE(missing.exitCode, 1);
    QCOMPARE(missing.output, QByteArray());
}

void VkReportRobustnessTest::otherFormats_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("markdown") << QStringList({"--format", "markdown"});
    QTest::newRow("html") << QStringList({"--format", "html"});
    QTest::newRow("summary") << QStringList("--summary");
    QTest::newRow("a limit of characters") << QStringList({"--max-length", "5000"});
}

// The same as the conversion of the incomplete text, except for the lines of the time and the process.
void VkReportRobustnessTest::otherFormats()
{
    QFETCH(QStringList, options);
    const QByteArrayList missing {"diskInformation"};
    const QString report = file("report.txt");
    QVERIFY(writeFile(report, m_complete->without(missing)));
    const ProgramEnd expected = runToItsEnd(reportStart(QStringList({"--input", report}) + options), enough);
    QCOMPARE(expected.exitCode, 0);
    const ProgramEnd end = runToItsEnd(reportStart(QStringList(noOpenGL) + options, troubleAt("crash", {disks})), enough);
    CHECK_END(end, enough);
    QCOMPARE(end.exitCode, 3);
    QCOMPARE(messageLines(end.errors), QByteArrayList {wholeReport(crashed)} + missingLines(missing, crashed));
    QVERIFY2(differingLines(end.output, expected.output) <= 4,
             qPrintable(textDifference(QString::fromUtf8(end.output), QString::fromUtf8(expected.output))));
}

void VkReportRobustnessTest::redaction()
{
    const QByteArrayList missing {"userName", "diskInformation"};
    const QString report = file("report.txt");
    QVERIFY(writeFile(report, m_complete->without(missing)));
    const ProgramEnd expected = runToItsEnd(reportStart({"--input", report, "--redact"}), enough);
    QCOMPARE(expected.exitCode, 0);
    QVERIFY(expected.output != m_complete->without(missing));
    const ProgramEnd end = runToItsEnd(reportStart({noOpenGL, "--redact"}, troubleAt("crash", {user, disks})), enough);
    CHECK_END(end, enough);
    QCOMPARE(end.exitCode, 3);
    COMPARE_TEXT(QString::fromUtf8(withoutVolatile(end.output)), QString::fromUtf8(withoutVolatile(expected.output)));
    const QByteArrayList messages = messageLines(end.errors);
    for (const QByteArray &line : QByteArrayList {wholeReport(crashed)} + missingLines(missing, crashed))
        QCOMPARE(messages.count(line), 1);
}

void VkReportRobustnessTest::killedParent_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("calls");
    QTest::addColumn<bool>("afterTheFirstAttempt");
    QTest::newRow("the whole report hangs") << QStringList(noOpenGL) << disks << false;
    QTest::newRow("the section hangs") << QStringList(noOpenGL) << disks << true;
    QTest::newRow("a section alone hangs") << QStringList({"--section", "diskInformation"}) << disks << false;
    QTest::newRow("the name of the platform hangs") << QStringList("--platform-name") << QByteArray("GetVersionExA") << false;
    QTest::newRow("low priority") << QStringList({noOpenGL, "--low-priority"}) << disks << false;
}

void VkReportRobustnessTest::killedParent()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, calls);
    QFETCH(bool, afterTheFirstAttempt);
    const double seconds = afterTheFirstAttempt ? 8 : 30; // the first attempt has 4.8 s, the section 1 s
    RunningProgram program(reportStart(limited(arguments, seconds), troubleAt("hang", {calls})));
    if (afterTheFirstAttempt)
        QVERIFY(program.isRunningAfter(0.6 * seconds));
    const QList<pid_t> children = program.waitForSleepingChildren(10);
    QVERIFY(!children.isEmpty());
    QCOMPARE(::kill(program.pid(), SIGKILL), 0);
    const ProgramEnd end = program.wait(seconds + grace);
    QVERIFY(end.ended);
    QCOMPARE(end.signal, SIGKILL);
    QCOMPARE(end.output, QByteArray());
    const QList<pid_t> left = waitForTheEndOf(children, 2);
    QVERIFY2(left.isEmpty() && end.processes.isEmpty(), qPrintable(listText(left + end.processes)));
    QCOMPARE(end.files, QStringList());
}

void VkReportRobustnessTest::interrupted_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<bool>("group"); // as a terminal does it
    QTest::addColumn<QByteArray>("trouble");
    QTest::newRow("SIGINT") << SIGINT << false << troubleAt("hang", {disks});
    QTest::newRow("Ctrl+C of a terminal") << SIGINT << true << troubleAt("hang", {disks});
    QTest::newRow("SIGTERM") << SIGTERM << false << troubleAt("hang", {disks});
    QTest::newRow("SIGHUP") << SIGHUP << true << troubleAt("hang", {disks});
    QTest::newRow("SIGINT while the report goes on") << SIGINT << true << troubleAt("sleep=1500", {"GetModuleFileNameExW"});
}

void VkReportRobustnessTest::interrupted()
{
    QFETCH(int, signal);
    QFETCH(bool, group);
    QFETCH(QByteArray, trouble);
    RunningProgram program(reportStart(limited({noOpenGL, "--output", file("report.txt")}, 30), trouble));
    const QList<pid_t> children = program.waitForSleepingChildren(10);
    QVERIFY(!children.isEmpty());
    QCOMPARE(::kill(group ? -program.pid() : program.pid(), signal), 0);
    const double before = program.seconds();
    const ProgramEnd end = program.wait(before + 10);
    CHECK_END(end, before + 2);
    QCOMPARE(end.signal, signal);
    QCOMPARE(end.output, QByteArray());
    QVERIFY2(!end.errors.contains("missing"), end.errors);
    QVERIFY(waitForTheEndOf(children, 2).isEmpty());
    QCOMPARE(filesInFolder(), QStringList());
}

void VkReportRobustnessTest::startedByAThreadThatEnds_data()
{
    QTest::addColumn<QByteArray>("trouble");
    QTest::addColumn<QByteArrayList>("missing");
    QTest::addColumn<QByteArrayList>("messages");
    const QByteArrayList one {"diskInformation"};
    QTest::newRow("a slow report") << troubleAt("sleep=700", {disks}) << QByteArrayList() << QByteArrayList();
    QTest::newRow("a crash") << troubleAt("crash", {disks}) << one
                             << QByteArrayList {wholeReport(crashed)} + missingLines(one, crashed);
    QTest::newRow("a hang") << troubleAt("hang", {disks}) << one
                            << QByteArrayList {wholeReport(didNotEnd)} + missingLines(one, didNotEnd);
}

// On Linux the signal of a parent's death is sent when the thread that started the process ends.
void VkReportRobustnessTest::startedByAThreadThatEnds()
{
    QFETCH(QByteArray, trouble);
    QFETCH(QByteArrayList, missing);
    QFETCH(QByteArrayList, messages);
    const double seconds = trouble.startsWith("crash") ? enough : limit;
    std::unique_ptr<RunningProgram> program;
    std::thread([&] { program = std::make_unique<RunningProgram>(reportStart(limited({noOpenGL}, seconds), trouble)); }).join();
    const ProgramEnd end = program->wait(seconds + grace + 10);
    CHECK_END(end, seconds + grace);
    CHECK_RESULT(end, missing.isEmpty() ? 0 : 3, m_complete->without(missing), messages);
}

void VkReportRobustnessTest::lowPriority_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("low");
    QTest::newRow("low") << QStringList({noOpenGL, "--low-priority"}) << true;
    QTest::newRow("normal") << QStringList(noOpenGL) << false;
    QTest::newRow("low, a section") << QStringList({"--section", "diskInformation", "--low-priority"}) << true;
}

void VkReportRobustnessTest::lowPriority()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, low);
    RunningProgram program(reportStart(limited(arguments, 30), troubleAt("hang", {disks})));
    const QList<pid_t> children = program.waitForSleepingChildren(10);
    QVERIFY(!children.isEmpty());
    const int own = ::getpriority(PRIO_PROCESS, 0);
    for (const pid_t child : children) {
        const int policy = ::sched_getscheduler(child);
        const int nice = ::getpriority(PRIO_PROCESS, id_t(child));
        const bool isLow = nice > own || policy == SCHED_IDLE || policy == SCHED_BATCH;
        QVERIFY2(isLow == low || own == 19, qPrintable(QStringLiteral("nice %1, policy %2").arg(nice).arg(policy)));
    }
}

namespace {

/// What a terminal of 100 columns shows after \a bytes. Lines have no trailing blanks.
QByteArrayList shownLines(const QByteArray &bytes)
{
    QByteArrayList shown {QByteArray()};
    int column = 0;
    for (int i = 0; i < bytes.size(); ++i) {
        const char c = bytes.at(i);
        if (c == '\n') {
            shown += QByteArray();
        } else if (c == '\r') {
            column = 0;
        } else if (c == '\b') {
            column = qMax(0, column - 1);
        } else if (c == '\x1b') {
            int end = i + 2; // after "ESC ["
            while (end < bytes.size() && !(bytes.at(end) >= '@' && bytes.at(end) <= '~'))
                ++end;
            const QByteArray sequence = bytes.mid(i + 1, end - i);
            if (sequence == "[K" || sequence == "[0K")
                shown.last().truncate(column);
            else if (sequence == "[2K")
                shown.last() = QByteArray(column, ' ');
            else
                shown.last() += "<escape " + sequence.mid(1) + '>';
            i = end;
        } else {
            QByteArray &line = shown.last();
            line = line.leftJustified(column + 1, ' ');
            line[column++] = c;
        }
    }
    for (QByteArray &line : shown) {
        while (line.endsWith(' '))
            line.chop(1);
    }
    return shown;
}

} // namespace

void VkReportRobustnessTest::progressOnATerminal_data()
{
    QTest::addColumn<QByteArray>("trouble");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QByteArrayList>("messages");
    QTest::newRow("complete") << troubleAt("sleep=1500", {disks}) << 0 << QByteArrayList();
    QTest::newRow("incomplete") << troubleAt("hang", {disks}) << 3
                                << QByteArrayList {wholeReport(didNotEnd)} + missingLines({"diskInformation"}, didNotEnd);
}

// One line that is rewritten, and erased at the end.
void VkReportRobustnessTest::progressOnATerminal()
{
    QFETCH(QByteArray, trouble);
    QFETCH(int, exitCode);
    QFETCH(QByteArrayList, messages);
    ProgramStart start = reportStart(limited({noOpenGL}), trouble, ReportEnvironment().with("TERM", "xterm"));
    start.errors = Stream::Terminal;
    const ProgramEnd end = runToItsEnd(start, limit + grace + 10);
    CHECK_END(end, limit + grace);
    QCOMPARE(end.exitCode, exitCode);
    const QByteArrayList shown = shownLines(end.errors);
    QCOMPARE(messageLines(shown.join('\n')), messages);
    QVERIFY2(!QByteArray(end.errors).replace("\r\n", "").replace("\r", "").trimmed().isEmpty(), "no progress");
    // More was written than what is left.
    QVERIFY2(QByteArray(end.errors).replace("\r\n", "\n").size() > shown.join('\n').size(), end.errors);
}

void VkReportRobustnessTest::progressForPrograms_data()
{
    QTest::addColumn<QByteArray>("trouble");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QByteArrayList>("works"); // in this order, among others
    QTest::addColumn<QByteArrayList>("messages");
    QTest::newRow("complete") << troubleAt("sleep=2500", {disks}) << 0
                              << QByteArrayList {"start", "application", "allInfosWithoutOpenGL"} << QByteArrayList();
    QTest::newRow("incomplete") << troubleAt("hang", {disks}) << 3
                                << QByteArrayList {"start", "application", "allInfosWithoutOpenGL", "diskInformation", "qtHostInfo"}
                                << QByteArrayList {wholeReport(didNotEnd)} + missingLines({"diskInformation"}, didNotEnd);
}

// The lines of the option, and the other messages as without it.
void VkReportRobustnessTest::progressForPrograms()
{
    QFETCH(QByteArray, trouble);
    QFETCH(int, exitCode);
    QFETCH(QByteArrayList, works);
    QFETCH(QByteArrayList, messages);
    const double seconds = exitCode == 0 ? enough : limit;
    const ProgramEnd end = runToItsEnd(reportStart(limited({noOpenGL, "--progress"}, seconds), trouble), seconds + grace + 10);
    CHECK_END(end, seconds + grace);
    QCOMPARE(end.exitCode, exitCode);
    const QRegularExpression form(QStringLiteral("\\Avkreport: progress: (\\S.*) ([0-9]+\\.[0-9]) %1\\z").arg(seconds));
    QByteArrayList other;
    QByteArrayList seenWorks;
    double last = 0;
    for (const QByteArray &line : end.errors.split('\n')) {
        const QRegularExpressionMatch match = form.match(QString::fromUtf8(line));
        if (!match.hasMatch()) {
            other += line;
            continue;
        }
        const double time = match.captured(2).toDouble();
        QVERIFY2(time >= last && time <= last + 1.6, line.constData()); // a line each second, and 0.2 s between two looks
        last = time;
        if (seenWorks.isEmpty() || seenWorks.constLast() != match.captured(1).toUtf8())
            seenWorks += match.captured(1).toUtf8();
    }
    QCOMPARE(messageLines(other.join('\n')).join('\n'), messages.join('\n'));
    QVERIFY2(last >= 2, end.errors);
    int at = -1;
    for (const QByteArray &work : works) {
        const int next = seenWorks.indexOf(work, at + 1);
        QVERIFY2(next > at, work + " is not in order: " + seenWorks.join(' '));
        at = next;
    }
}

void VkReportRobustnessTest::progressWithoutReader()
{
    ProgramStart start = reportStart({noOpenGL, "--progress"});
    start.errors = Stream::WithoutReader;
    const ProgramEnd end = runToItsEnd(start, enough);
    CHECK_END(end, enough);
    QCOMPARE(end.exitCode, 0);
    COMPARE_TEXT(QString::fromUtf8(withoutVolatile(end.output)), QString::fromUtf8(withoutVolatile(m_complete->without({}))));

    // A thread writes the progress. It may write before the first child starts, or after that.
    start = reportStart({"--section", "wordSize", "--progress"});
    start.errors = Stream::WithoutReader;
    for (int i = 0; i < 30; ++i) {
        const ProgramEnd section = runToItsEnd(start, enough);
        CHECK_END(section, enough);
        QCOMPARE(section.signal, 0);
        QCOMPARE(section.output, m_complete->section("wordSize"));
    }
}

void VkReportRobustnessTest::streams_data()
{
    QTest::addColumn<int>("output");
    QTest::addColumn<int>("errors");
    QTest::addColumn<QByteArray>("trouble");
    QTest::addColumn<bool>("toFile");
    QTest::addColumn<int>("exitCode");
    const auto row = [](const char *name, Stream output, Stream errors, const QByteArray &trouble, bool toFile, int code) {
        QTest::newRow(name) << int(output) << int(errors) << trouble << toFile << code;
    };
    const QByteArray crash = troubleAt("crash", {disks});
    row("nobody reads the output", Stream::WithoutReader, Stream::Pipe, "", false, 1);
    row("nobody reads the output of an incomplete report", Stream::WithoutReader, Stream::Pipe, crash, false, 1);
    row("the output is full", Stream::FullDevice, Stream::Pipe, "", false, 1);
    row("the output of an incomplete report is full", Stream::FullDevice, Stream::Pipe, crash, false, 1);
    row("the output is closed", Stream::Closed, Stream::Pipe, "", false, 1);
    row("the output is closed, a file is written", Stream::Closed, Stream::Pipe, "", true, 0);
    row("the output is closed, an incomplete file is written", Stream::Closed, Stream::Pipe, crash, true, 3);
    row("nobody reads the errors", Stream::Pipe, Stream::WithoutReader, crash, false, 3);
    row("the errors are full", Stream::Pipe, Stream::FullDevice, crash, false, 3);
    row("the errors are closed", Stream::Pipe, Stream::Closed, crash, false, 3);
    row("the errors are closed, no trouble", Stream::Pipe, Stream::Closed, "", false, 0);
    row("both are closed, a file is written", Stream::Closed, Stream::Closed, "", true, 0);
    row("both are closed, an incomplete file is written", Stream::Closed, Stream::Closed, crash, true, 3);
}

void VkReportRobustnessTest::streams()
{
    QFETCH(int, output);
    QFETCH(int, errors);
    QFETCH(QByteArray, trouble);
    QFETCH(bool, toFile);
    QFETCH(int, exitCode);
    const QString report = file("report.txt");
    ProgramStart start = reportStart({noOpenGL}, trouble);
    if (toFile)
        start.arguments += {"--output", report};
    start.output = Stream(output);
    start.errors = Stream(errors);
    start.inputClosed = start.output == Stream::Closed && start.errors == Stream::Closed; // nothing is left then
    const ProgramEnd end = runToItsEnd(start, enough);
    CHECK_END(end, enough);
    if (exitCode == 1) { // the report could not be written
        QVERIFY2(end.exitCode == 1 || (end.signal == SIGPIPE && start.output == Stream::WithoutReader),
                 qPrintable(QString::number(end.exitCode)));
        QVERIFY2(end.signal || end.errors.contains("vkreport: cannot write"), end.errors);
        return;
    }
    QCOMPARE(end.exitCode, exitCode);
    const QByteArrayList missing = trouble.isEmpty() ? QByteArrayList() : QByteArrayList {"diskInformation"};
    COMPARE_TEXT(QString::fromUtf8(withoutVolatile(toFile ? contentOf(report) : end.output)),
                 QString::fromUtf8(withoutVolatile(m_complete->without(missing))));
    if (toFile)
        QCOMPARE(filesInFolder().size(), missing.isEmpty() ? 1 : 2);
    if (start.errors == Stream::Pipe && missing.isEmpty())
        QCOMPARE(end.errors, QByteArray());
}

void VkReportRobustnessTest::inputClosed()
{
    ProgramStart start = reportStart({noOpenGL});
    start.inputClosed = true;
    const ProgramEnd end = runToItsEnd(start, enough);
    CHECK_END(end, enough);
    CHECK_RESULT(end, 0, m_complete->without({}), QByteArrayList());
    start.trouble = troubleAt("crash", {disks});
    const ProgramEnd crash = runToItsEnd(start, enough);
    CHECK_END(crash, enough);
    CHECK_RESULT(crash, 3, m_complete->without({"diskInformation"}),
                 QByteArrayList {wholeReport(crashed)} + missingLines({"diskInformation"}, crashed));
}

// A report without trouble only: beside the device no file may appear.
void VkReportRobustnessTest::deviceThatIsFull()
{
    const QString device = QStringLiteral("/dev/full");
    const ProgramEnd end = runToItsEnd(reportStart({noOpenGL, "--output", device}), enough);
    CHECK_END(end, enough);
    QCOMPARE(end.exitCode, 1);
    QCOMPARE(end.output, QByteArray());
    QVERIFY2(end.errors.startsWith("vkreport: cannot write '/dev/full'") && end.errors.count('\n') == 1, end.errors);
    QVERIFY(QFileInfo::exists(device) && !QFileInfo(device).isFile());
    QVERIFY(!QFileInfo::exists(device + QLatin1String(".incomplete.txt")));
}

void VkReportRobustnessTest::ignoredSignals_data()
{
    QTest::addColumn<QByteArray>("trouble");
    QTest::addColumn<QByteArrayList>("missing");
    QTest::addColumn<QByteArrayList>("messages");
    const QByteArrayList one {"diskInformation"};
    QTest::newRow("no trouble") << QByteArray("") << QByteArrayList() << QByteArrayList();
    QTest::newRow("crash") << troubleAt("crash", {disks}) << one
                           << QByteArrayList {wholeReport(crashed)} + missingLines(one, crashed);
    QTest::newRow("hang") << troubleAt("hang", {disks}) << one
                          << QByteArrayList {wholeReport(didNotEnd)} + missingLines(one, didNotEnd);
}

// A program inherits ignored signals from its caller, for example from nohup or a daemon.
void VkReportRobustnessTest::ignoredSignals()
{
    QFETCH(QByteArray, trouble);
    QFETCH(QByteArrayList, missing);
    QFETCH(QByteArrayList, messages);
    const double seconds = trouble.startsWith("hang") ? limit : enough;
    ProgramStart start = reportStart(limited({noOpenGL}, seconds), trouble);
    start.ignoredSignals = {SIGCHLD, SIGPIPE, SIGHUP, SIGTERM, SIGINT};
    const ProgramEnd end = runToItsEnd(start, seconds + grace + 10);
    CHECK_END(end, seconds + grace);
    CHECK_RESULT(end, missing.isEmpty() ? 0 : 3, m_complete->without(missing), messages);
}

void VkReportRobustnessTest::largeSections_data()
{
    QTest::addColumn<QByteArray>("trouble");
    QTest::addColumn<QByteArrayList>("missing");
    QTest::newRow("complete") << QByteArray("") << QByteArrayList();
    QTest::newRow("incomplete") << troubleAt("crash", {disks}) << QByteArrayList {"diskInformation"};
}

// Larger than a pipe, and not only ASCII.
void VkReportRobustnessTest::largeSections()
{
    QFETCH(QByteArray, trouble);
    QFETCH(QByteArrayList, missing);
    ReportEnvironment environment;
    for (const char *name : {"LARGE_1", "LARGE_2", "LARGE_3", "LARGE_4"})
        environment = environment.with(name, QByteArray("Gr\xc3\xb6\xc3\x9f\x65 ").repeated(10000) + name);
    const ProgramEnd reference = runToItsEnd(reportStart({noOpenGL, "--in-process"}, "", environment), enough);
    QCOMPARE(reference.exitCode, 0);
    const CompleteReport complete(reference.output);
    QCOMPARE(complete.problem(), QByteArray());
    QVERIFY(complete.section("qtSystemEnvironment").size() > 300000);
    const ProgramEnd end = runToItsEnd(reportStart({noOpenGL}, trouble, environment), enough);
    CHECK_END(end, enough);
    QCOMPARE(end.exitCode, missing.isEmpty() ? 0 : 3);
    QVERIFY(withoutVolatile(end.output) == withoutVolatile(complete.without(missing))); // too large to print
}

void VkReportRobustnessTest::unrulyDriver_data()
{
    QTest::addColumn<QByteArray>("behaviour");
    QTest::addColumn<QByteArray>("trouble");
    QTest::addColumn<QByteArrayList>("missing");
    const QByteArrayList none, one {"diskInformation"};
    const QByteArray crash = troubleAt("crash", {disks});
    for (const char *behaviour : {"noisy", "never_unloads", "crashes_at_end"}) {
        QTest::addRow("%s", behaviour) << QByteArray(behaviour) << QByteArray("") << none;
        QTest::addRow("%s, incomplete", behaviour) << QByteArray(behaviour) << crash << one;
    }
}

// A driver in a child writes to standard output, or disturbs the end of a child that made its report.
void VkReportRobustnessTest::unrulyDriver()
{
    QFETCH(QByteArray, behaviour);
    QFETCH(QByteArray, trouble);
    QFETCH(QByteArrayList, missing);
    const ReportEnvironment environment = ReportEnvironment().with("LD_PRELOAD", UNRULY_DRIVER).with("UNRULY_DRIVER", behaviour);
    const ProgramEnd end = runToItsEnd(reportStart({noOpenGL}, trouble, environment), enough);
    CHECK_END(end, 10); // nobody waits for the driver, which sleeps for 100 s
    const QByteArray noise = "noise of a driver";
    QByteArrayList messages = messageLines(end.errors);
    QCOMPARE(messages.contains(noise), behaviour == "noisy");
    messages.removeAll(noise);
    QByteArrayList expected;
    if (!missing.isEmpty())
        expected = QByteArrayList {wholeReport(crashed)} + missingLines(missing, crashed);
    QCOMPARE(messages, expected);
    QCOMPARE(end.exitCode, missing.isEmpty() ? 0 : 3);
    QByteArray text = m_complete->without(missing);
    const QByteArray variables = m_complete->section("qtSystemEnvironment");
    text.replace(variables, variables + "  LD_PRELOAD=" UNRULY_DRIVER "\n  UNRULY_DRIVER=" + behaviour + '\n');
    COMPARE_TEXT(QString::fromUtf8(withoutVolatile(end.output)), QString::fromUtf8(withoutVolatile(text)));
}

void VkReportRobustnessTest::withoutDisplay_data()
{
    QTest::addColumn<QByteArray>("display");
    QTest::addColumn<bool>("withOpenGL");
    QTest::addColumn<QByteArray>("trouble");
    const QByteArray noTrouble = "", crash = troubleAt("crash", {disks});
    QTest::newRow("no variable") << QByteArray() << true << noTrouble;
    QTest::newRow("no variable, no OpenGL") << QByteArray() << false << noTrouble;
    QTest::newRow("no variable, a crash") << QByteArray() << false << crash;
    QTest::newRow("no such server") << QByteArray(":987") << true << noTrouble;
    QTest::newRow("no such server, no OpenGL") << QByteArray(":987") << false << noTrouble;
    QTest::newRow("no such server, a crash") << QByteArray(":987") << false << crash;
}

// The report is that of the platform "minimal", except for the environment.
void VkReportRobustnessTest::withoutDisplay()
{
    QFETCH(QByteArray, display);
    QFETCH(bool, withOpenGL);
    QFETCH(QByteArray, trouble);
    ReportEnvironment environment("");
    if (!display.isNull())
        environment = environment.with("DISPLAY", display);
    const ProgramEnd end = runToItsEnd(
        reportStart(limited(withOpenGL ? QStringList() : QStringList(noOpenGL), enough), trouble, environment), enough + grace);
    CHECK_END(end, enough + grace);
    QByteArrayList missing;
    QByteArrayList messages {noDisplay};
    if (!trouble.isEmpty()) {
        missing += "diskInformation";
        messages += QByteArrayList {wholeReport(crashed)} + missingLines(missing, crashed);
    }
    QByteArray expected = m_completeWithOpenGL->without(withOpenGL ? missing : missing + QByteArrayList {"GetOpenGLInfo"});
    const QByteArray variables = m_completeWithOpenGL->section("qtSystemEnvironment");
    QVERIFY(expected.contains(variables));
    QByteArray ownVariables = QByteArray(variables).remove(variables.indexOf("  QT_QPA_PLATFORM=minimal\n"), 26);
    if (!display.isNull())
        ownVariables += "  DISPLAY=" + display + '\n';
    expected.replace(variables, ownVariables);
    // The message comes first or between the others.
    const QByteArrayList actual = messageLines(end.errors);
    QCOMPARE(actual.count(noDisplay), 1);
    QCOMPARE(actual.size(), messages.size());
    QCOMPARE(end.exitCode, missing.isEmpty() ? 0 : 3);
    COMPARE_TEXT(QString::fromUtf8(withoutVolatile(end.output)), QString::fromUtf8(withoutVolatile(expected)));
}

void VkReportRobustnessTest::openGLVersionWithoutDisplay()
{
    const ProgramEnd end = runToItsEnd(reportStart({"--opengl-version"}, "", ReportEnvironment("")), enough);
    CHECK_END(end, enough);
    CHECK_RESULT(end, 0, QByteArray("not recognized (flags 0x0)\n"), QByteArrayList {noDisplay});
}

// The application object cannot be created, because the X server accepts the connection and says nothing.
void VkReportRobustnessTest::displayThatDoesNotAnswer()
{
    const int server = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    QVERIFY(server >= 0 && ::bind(server, reinterpret_cast<sockaddr *>(&address), length) == 0);
    QVERIFY(::listen(server, 16) == 0 && ::getsockname(server, reinterpret_cast<sockaddr *>(&address), &length) == 0);
    constexpr int firstPort = 6000;
    const QByteArray display = "127.0.0.1:" + QByteArray::number(ntohs(address.sin_port) - firstPort);
    const ProgramEnd end = runToItsEnd(
        reportStart(limited({noOpenGL}, longLimit), "", ReportEnvironment("").with("DISPLAY", display)), longLimit + grace + 10);
    ::close(server);
    CHECK_END(end, longLimit + grace);
    QCOMPARE(end.exitCode, 0);
    QVERIFY2(!end.errors.contains("missing"), end.errors);
    const int screens = end.output.indexOf("\nQScreen (hardware)\n");
    QVERIFY(screens > 0);
    QVERIFY(end.output.mid(screens + 1).startsWith(m_completeWithOpenGL->section("qtScreens")));
    QVERIFY(end.output.endsWith("  DISPLAY=" + display + '\n' + QByteArray(72, '-') + '\n'));
}

// Qt ends the process while it creates the application object. Later attempts use the platform "minimal".
void VkReportRobustnessTest::platformThatCannotStart()
{
    const ProgramEnd end = runToItsEnd(reportStart({noOpenGL}, "", ReportEnvironment("no-such-platform")), enough);
    CHECK_END(end, enough);
    QCOMPARE(end.exitCode, 0);
    const QByteArrayList messages = messageLines(end.errors);
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages.first().startsWith("vkreport: no display: "), end.errors);
    QByteArray expected = m_completeWithOpenGL->without({"GetOpenGLInfo"});
    expected.replace("  QT_QPA_PLATFORM=minimal\n", "  QT_QPA_PLATFORM=no-such-platform\n");
    COMPARE_TEXT(QString::fromUtf8(withoutVolatile(end.output)), QString::fromUtf8(withoutVolatile(expected)));
}

void VkReportRobustnessTest::machineIsNotDescribed_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("trouble");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("complete") << QStringList(noOpenGL) << QByteArray("") << 0;
    QTest::newRow("many children") << QStringList(noOpenGL) << troubleAt("crash", {"GetVersionExA", user, disks}) << 3;
    QTest::newRow("in one process") << QStringList({noOpenGL, "--in-process"}) << QByteArray("") << 0;
    QTest::newRow("a section") << QStringList({"--section", "memoryInfo"}) << QByteArray("") << 0;
    QTest::newRow("the name of the platform") << QStringList("--platform-name") << QByteArray("") << 0;
}

void VkReportRobustnessTest::machineIsNotDescribed()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, trouble);
    QFETCH(int, exitCode);
    const ReportEnvironment environment = ReportEnvironment().without("VKSYSTEMINFO_MACHINE");
    const ProgramEnd end = runToItsEnd(reportStart(arguments, trouble, environment), enough);
    CHECK_END(end, enough);
    QCOMPARE(end.exitCode, exitCode);
    const QByteArrayList messages = messageLines(end.errors);
    const auto aboutMachine = [](const QByteArray &line) { return line.contains("VKSYSTEMINFO_MACHINE"); };
    QVERIFY2(std::count_if(messages.begin(), messages.end(), aboutMachine) == 1, end.errors);
    const auto isMissing = [](const QByteArray &line) { return line.startsWith("vkreport: missing: "); };
    QCOMPARE(int(std::count_if(messages.begin(), messages.end(), isMissing)), exitCode == 0 ? 0 : 4);
}

void VkReportRobustnessTest::environmentIsThatOfTheCaller_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("platform");
    QTest::addColumn<QByteArray>("trouble");
    QTest::newRow("the library's report") << QStringList(noOpenGL) << QByteArray("offscreen") << QByteArray("");
    QTest::newRow("sections") << QStringList(noOpenGL) << QByteArray("offscreen") << troubleAt("crash", {disks});
    QTest::newRow("no display") << QStringList(noOpenGL) << QByteArray("") << QByteArray("");
    QTest::newRow("no display, sections") << QStringList(noOpenGL) << QByteArray("") << troubleAt("crash", {disks});
    QTest::newRow("low priority") << QStringList({noOpenGL, "--low-priority"}) << QByteArray("offscreen") << QByteArray("");
    const QStringList one {"--section", "qtSystemEnvironment"};
    QTest::newRow("one section") << one << QByteArray("offscreen") << QByteArray("");
    QTest::newRow("one section, no display") << one << QByteArray("") << QByteArray("");
    QTest::newRow("two sections, one not exported")
        << QStringList({"--section", "wordSize"}) + one << QByteArray("offscreen") << QByteArray("");
    QTest::newRow("a crash of the application object")
        << QStringList(noOpenGL) << QByteArray("no-such-platform") << QByteArray("");
}

// vkreport tells its children nothing by the environment, which is a part of the report.
void VkReportRobustnessTest::environmentIsThatOfTheCaller()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, platform);
    QFETCH(QByteArray, trouble);
    const ReportEnvironment environment(platform);
    const ProgramEnd end = runToItsEnd(reportStart(arguments, trouble, environment), enough);
    CHECK_END(end, enough);
    QCOMPARE(end.exitCode, trouble.isEmpty() ? 0 : 3);
    const QByteArray heading = "System environemnt (QProcess::systemEnvironment()):\n";
    const int start = end.output.indexOf(heading);
    QVERIFY(start >= 0);
    const int rule = end.output.indexOf("\n-----", start);
    const int first = start + heading.size();
    QByteArrayList shown = end.output.mid(first, rule < 0 ? -1 : rule - first).split('\n');
    shown.removeAll(QByteArray());
    QByteArrayList expected;
    for (const QByteArray &entry : environment.entries())
        expected += "  " + entry;
    std::sort(shown.begin(), shown.end());
    std::sort(expected.begin(), expected.end());
    QCOMPARE(shown, expected);
}

TEST_WITH_CORE_APPLICATION(VkReportRobustnessTest);
#include "tst_vkreport_robustness.moc"
