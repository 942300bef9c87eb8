// The window makes a report with vkreport.

#include "making/incomplete_member.h"
#include "making/making_bar.h"
#include "making/report_process.h"
#include "output/output_report.h"
#include "test_main.h"
#include "vkReports.h"
#include "window/main_window.h"
#include "window/report_page.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QAction>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <memory>
#ifdef SIMULATED_WINDOWS
#  include "running_program.h"
#endif

class ReportProcessTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void completeReport();
    void programIsMissing();
    void cancelBeforeTheStart();
#ifdef SIMULATED_WINDOWS
    void missingSections_data();
    void missingSections();
    void windowSavesWhatIsMissing();
    void everythingHangs();
    void otherPrograms_data();
    void otherPrograms();
    void floods();
    void cancel();
    void cancelEndsChildrenThatWait();
    void destroyedWhileRunning();
    void startedAgain();
    void bar();
    void barIsCancelled_data();
    void barIsCancelled();
    void barWithoutLimit();

private:
    void setTrouble(const QByteArray &lines);
    QString program(const QByteArray &script);
    QList<pid_t> processes() const { return processesWithVariable("VKVIEWER_TEST=" + m_mark); }
#endif

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QByteArray m_mark;
};

namespace {

constexpr int longTime = 60000;  // milliseconds
constexpr int shortTime = 10000; // for what takes less than a second

/// What a process said.
struct Listener
{
    explicit Listener(ReportProcess &process)
        : finished(&process, &ReportProcess::finished), failed(&process, &ReportProcess::failed), progressed(&process, &ReportProcess::progressed)
    {
    }

    bool wait(int milliseconds = longTime)
    {
        return QTest::qWaitFor([this] { return finished.count() + failed.count() > 0; }, milliseconds);
    }
    QByteArray report() const { return finished.value(0).value(0).toByteArray(); }
    velkor::Reports::Document document() const { return velkor::Reports::fromJson(report()).value_or(velkor::Reports::Document()); }
    QStringList missing() const { return finished.value(0).value(1).toStringList(); }
    QString message() const { return failed.value(0).value(0).toString(); }

    QSignalSpy finished;
    QSignalSpy failed;
    QSignalSpy progressed;
};

} // namespace

void ReportProcessTest::initTestCase()
{
    m_mark = QByteArray::number(QCoreApplication::applicationPid());
    qputenv("VKVIEWER_TEST", m_mark);
    qputenv("VKSYSTEMINFO_MACHINE", MACHINES_DIR "/workstation");
}

void ReportProcessTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    qunsetenv("VKSYSTEMINFO_TROUBLE");
}

void ReportProcessTest::cleanup()
{
#ifdef SIMULATED_WINDOWS
    QVERIFY(waitForTheEndOf(processes(), 3).isEmpty());
#endif
    QTest::qWait(20); // milliseconds: objects of processes that were ended are deleted
}

void ReportProcessTest::completeReport()
{
    ReportProcess process;
    Listener listener(process);
    QVERIFY(!process.isRunning());
    process.start(true);
    QVERIFY(process.isRunning());
    QVERIFY(listener.wait());
    QVERIFY(!process.isRunning());
    QVERIFY2(listener.failed.isEmpty(), qPrintable(listener.message()));
    QCOMPARE(listener.missing(), QStringList());
    QVERIFY(incompleteMember(listener.report()).isEmpty());
    const velkor::Reports::Document document = listener.document();
    QVERIFY(document.findSection("memoryInfo") >= 0);
    QVERIFY(document.findSection("qtSystemEnvironment") >= 0);
    QVERIFY(document.findSection("GetOpenGLInfo") < 0);
    QVERIFY(!listener.progressed.isEmpty());
    const QVariantList last = listener.progressed.constLast();
    QCOMPARE(last[2].toDouble(), 60.0);
}

void ReportProcessTest::programIsMissing()
{
    ReportProcess process;
    process.setProgram(m_folder->filePath(QStringLiteral("vkreport")));
    Listener listener(process);
    process.start(true);
    QVERIFY(listener.failed.isEmpty()); // not while start() runs
    QVERIFY(listener.wait(shortTime));
    QVERIFY(listener.message().contains(QStringLiteral("vkreport")));
    QVERIFY(listener.message().contains(QStringLiteral("could not be started")));
    QVERIFY(!process.isRunning());
}

void ReportProcessTest::cancelBeforeTheStart()
{
    ReportProcess process;
    Listener listener(process);
    process.cancel();
    QVERIFY(listener.failed.isEmpty());
}

#ifdef SIMULATED_WINDOWS

void ReportProcessTest::setTrouble(const QByteArray &lines)
{
    const QString name = m_folder->filePath(QStringLiteral("trouble"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(lines) == lines.size());
    qputenv("VKSYSTEMINFO_TROUBLE", QFile::encodeName(name));
}

/// A program that stands for vkreport.
QString ReportProcessTest::program(const QByteArray &script)
{
    const QString name = m_folder->filePath(QStringLiteral("program"));
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write("#!/bin/sh\n" + script) < 0)
        return {};
    file.close();
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return name;
}

void ReportProcessTest::missingSections_data()
{
    QTest::addColumn<QByteArray>("trouble");
    QTest::addColumn<double>("limit");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("crash") << QByteArray("crash\tGetLogicalDrives\n") << 60.0 << QStringLiteral("Disk information is missing: it crashed after");
    QTest::newRow("hang") << QByteArray("hang\tGetLogicalDrives\n") << 4.0 << QStringLiteral("Disk information is missing: it did not end within");
    QTest::newRow("exit") << QByteArray("exit=7\tGetLogicalDrives\n") << 60.0 << QStringLiteral("Disk information is missing: it ended the process after");
}

void ReportProcessTest::missingSections()
{
    QFETCH(QByteArray, trouble);
    QFETCH(double, limit);
    QFETCH(QString, sentence);
    setTrouble(trouble);
    ReportProcess process;
    process.setTimeLimit(limit);
    Listener listener(process);
    process.start(true);
    QVERIFY(listener.wait());
    QVERIFY2(listener.failed.isEmpty(), qPrintable(listener.message()));
    QCOMPARE(listener.missing().size(), 1);
    QVERIFY2(listener.missing().constFirst().startsWith(sentence), qPrintable(listener.missing().constFirst()));
    const velkor::Reports::Document document = listener.document();
    QVERIFY(document.findSection("diskInformation") < 0);
    QVERIFY(document.findSection("memoryInfo") >= 0);
}

/// In JSON, as vkreport itself does: also after personal data were hidden.
void ReportProcessTest::windowSavesWhatIsMissing()
{
    setTrouble("exit=7\tGetLogicalDrives\n");
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder->path());
    MainWindow window;
    window.actionNamed("newReportWithoutOpenGL")->trigger();
    QVERIFY(QTest::qWaitFor([&] { return window.reportPage() != nullptr; }, longTime));
    for (const bool isRedacted : {false, true}) {
        window.reportPage()->setRedacted(isRedacted);
        QVERIFY(QTest::qWaitFor([&] { return window.reportPage()->output().has_value(); }, longTime));
        const QByteArray json = outputBytes(*window.reportPage()->output(), OutputFormat::Json);
        const QJsonObject saved = QJsonDocument::fromJson(json).object();
        QCOMPARE(saved.contains(QStringLiteral("redaction")), isRedacted);
        const QJsonObject incomplete = saved[QStringLiteral("incomplete")].toObject();
        QCOMPARE(incomplete.keys(), QStringList({"attempts", "missing", "timeLimit"}));
        QCOMPARE(incomplete[QStringLiteral("timeLimit")].toDouble(), 60.0);
        QVERIFY(!incomplete[QStringLiteral("attempts")].toArray().isEmpty());
        const QJsonArray missing = incomplete[QStringLiteral("missing")].toArray();
        QCOMPARE(missing.size(), 1);
        const QJsonObject part = missing[0].toObject();
        QCOMPARE(part[QStringLiteral("section")].toString(), QStringLiteral("diskInformation"));
        QCOMPARE(part[QStringLiteral("reason")].toString(), QStringLiteral("exit"));
        QCOMPARE(part[QStringLiteral("code")].toString(), QStringLiteral("7"));
        QVERIFY(part[QStringLiteral("seconds")].isDouble());
        QVERIFY(velkor::Reports::fromJson(json).has_value());
    }
}

void ReportProcessTest::everythingHangs()
{
    setTrouble("hang\t*\n");
    ReportProcess process;
    process.setTimeLimit(3);
    Listener listener(process);
    process.start(true);
    QVERIFY(listener.wait());
    QStringList sentences = listener.missing();
    QVERIFY(sentences.size() > 10);
    QCOMPARE(sentences.removeDuplicates(), 0);
}

void ReportProcessTest::otherPrograms_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QByteArray>("report"); // null: it fails
    QTest::addColumn<QStringList>("texts"); // what is missing, or the message
    const auto row = [](const char *name, const QByteArray &script, const QByteArray &report, const QStringList &texts) {
        QTest::newRow(name) << script << report << texts;
    };
    row("complete", "printf 'a\\r\\n\\302\\240b'", "a\r\n\xc2\xa0"
                                                   "b",
        {});
    row("nothing at all", "exit 0", QByteArray(), {QStringLiteral("No report could be made.")});
    row("nothing could be made", "echo 'vkreport: no memory' >&2; exit 1", QByteArray(),
        {QStringLiteral("No report could be made.\nno memory")});
    row("an older version", "echo \"vkreport: Unknown option 'progress'.\" >&2; exit 2", QByteArray(),
        {QStringLiteral("No report could be made.\nUnknown option 'progress'.")});
    row("a report and failure", "echo report; exit 1", QByteArray(), {QStringLiteral("No report could be made.")});
    row("a crash", "echo report; kill -SEGV $$", QByteArray(), {QStringLiteral("vkreport crashed. No report could be made.")});
    row("incomplete without a reason", "echo report; exit 3", "report\n", {QStringLiteral("Parts of the report are missing.")});
    row("standard input is empty", "cat; echo report", "report\n", {});
    row("the arguments", "echo \"$@\"", "--progress --time-limit 60 --format json\n", {});
}

void ReportProcessTest::otherPrograms()
{
    QFETCH(QByteArray, script);
    QFETCH(QByteArray, report);
    QFETCH(QStringList, texts);
    ReportProcess process;
    process.setProgram(program(script));
    Listener listener(process);
    process.start(false);
    QVERIFY(listener.wait());
    QCOMPARE(listener.finished.count(), report.isNull() ? 0 : 1);
    QCOMPARE(listener.report(), report.isNull() ? QByteArray() : report);
    QCOMPARE(report.isNull() ? QStringList(listener.message()) : listener.missing(), texts);
}

// A driver that writes without end delays nothing.
void ReportProcessTest::floods()
{
    ReportProcess process;
    process.setProgram(program("yes 'vkreport: progress: allInfos 1.0 60' | head -n 200000 >&2; echo report; exit 3"));
    Listener listener(process);
    process.start(true);
    QVERIFY(listener.wait());
    QCOMPARE(listener.report(), QByteArray("report\n"));
}

void ReportProcessTest::cancel()
{
    setTrouble("hang\tGetLogicalDrives\n");
    ReportProcess process;
    Listener listener(process);
    process.start(true);
    QVERIFY(QTest::qWaitFor([this] { return processes().size() == 2; }, shortTime)); // vkreport and its child
    QVERIFY(QTest::qWaitFor([&] { return !listener.progressed.isEmpty() && listener.progressed.constLast()[0] == QStringLiteral("The report without OpenGL"); },
                            shortTime));
    const QList<pid_t> running = processes();
    QElapsedTimer time;
    time.start();
    process.cancel();
    QVERIFY(time.elapsed() < 1000);
    QVERIFY(!process.isRunning());
    QCOMPARE(listener.failed.count(), 1);
    QCOMPARE(listener.message(), QString());
    QVERIFY(waitForTheEndOf(running, 2).isEmpty());
    QTest::qWait(100); // nothing comes later
    QCOMPARE(listener.failed.count() + listener.finished.count(), 1);
}

// A child that does not know yet that it must end with vkreport.
void ReportProcessTest::cancelEndsChildrenThatWait()
{
    ReportProcess process;
    process.setProgram(program("sleep 60 & sleep 60 & wait"));
    process.start(true);
    QVERIFY(QTest::qWaitFor([this] { return processes().size() == 3; }, shortTime));
    const QList<pid_t> running = processes();
    process.cancel();
    QVERIFY(waitForTheEndOf(running, 2).isEmpty());
}

void ReportProcessTest::destroyedWhileRunning()
{
    setTrouble("hang\tGetLogicalDrives\n");
    auto process = std::make_unique<ReportProcess>();
    process->start(true);
    QVERIFY(QTest::qWaitFor([this] { return processes().size() == 2; }, shortTime));
    const QList<pid_t> running = processes();
    process.reset();
    QVERIFY(waitForTheEndOf(running, 2).isEmpty());
}

void ReportProcessTest::startedAgain()
{
    ReportProcess process;
    process.setProgram(program("echo 'vkreport: missing: userName: could not be started' >&2; echo first; exit 3"));
    {
        Listener listener(process);
        process.start(true);
        process.start(true); // while it is running
        QVERIFY(listener.wait());
        QCOMPARE(listener.missing().size(), 1);
        QTest::qWait(100);
        QCOMPARE(listener.finished.count(), 1);
    }
    process.setProgram(program("sleep 60"));
    {
        Listener listener(process);
        process.start(true);
        process.cancel();
        QCOMPARE(listener.failed.count(), 1);
    }
    process.setProgram(program("echo second"));
    Listener listener(process);
    process.start(true);
    QVERIFY(listener.wait());
    QCOMPARE(listener.report(), QByteArray("second\n"));
    QCOMPARE(listener.missing(), QStringList());
}

void ReportProcessTest::bar()
{
    ReportProcess process;
    MakingBar bar(&process);
    QVERIFY(!bar.isVisible());
    process.setProgram(program("echo 'vkreport: progress: diskInformation 12.7 60' >&2; sleep 1; echo report"));
    Listener listener(process);
    process.start(true);
    QVERIFY(bar.isVisible());
    auto *label = bar.findChild<QLabel *>();
    auto *progress = bar.findChild<QProgressBar *>();
    QCOMPARE(label->text(), QStringLiteral("Starting: 0 s of at most 60 s"));
    QVERIFY(QTest::qWaitFor([&] { return !listener.progressed.isEmpty(); }, shortTime));
    QCOMPARE(label->text(), QStringLiteral("Disk information: 12 s of at most 60 s"));
    QCOMPARE(label->textFormat(), Qt::PlainText);
    QCOMPARE(progress->value(), 12);
    QCOMPARE(progress->maximum(), 60);
    QVERIFY(!progress->accessibleName().isEmpty());
    QVERIFY(listener.wait(shortTime));
    QVERIFY(!bar.isVisible());
}

void ReportProcessTest::barIsCancelled_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("mouse") << true;
    QTest::newRow("keyboard") << false;
}

void ReportProcessTest::barIsCancelled()
{
    QFETCH(bool, byMouse);
    setTrouble("hang\tGetLogicalDrives\n");
    ReportProcess process;
    MakingBar bar(&process);
    Listener listener(process);
    process.start(true);
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    auto *button = bar.findChild<QPushButton *>();
    if (byMouse)
        QTest::mouseClick(button, Qt::LeftButton);
    else
        QTest::keyClick(button, Qt::Key_Space);
    QCOMPARE(listener.failed.count(), 1);
    QVERIFY(!bar.isVisible());
}

void ReportProcessTest::barWithoutLimit()
{
    ReportProcess process;
    process.setTimeLimit(0);
    MakingBar bar(&process);
    process.setProgram(program("sleep 60"));
    process.start(true);
    QCOMPARE(bar.findChild<QLabel *>()->text(), QStringLiteral("Starting: 0 s"));
    QCOMPARE(bar.findChild<QProgressBar *>()->maximum(), 0);
    process.cancel();
}

#endif

TEST_WITH_APPLICATION(ReportProcessTest);
#include "tst_report_process.moc"
