// The application object and the thread that each public function needs: the texts without an
// application object, and the cases in which Qt ends the process.
#include "run_program.h"
#include "test_main.h"

#include <QtTest/QtTest>

class tst_HostRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void works_data();
    void works();
    void listsNoScreenWithoutGuiApplication_data();
    void listsNoScreenWithoutGuiApplication();
    void endsTheProcess_data();
    void endsTheProcess();
};

void tst_HostRules::works_data()
{
    QTest::addColumn<QString>("application");
    QTest::addColumn<QString>("thread");
    QTest::addColumn<QString>("function");
    QTest::addColumn<QByteArray>("contained");

    const auto add = [](const char *application, const char *thread, const char *function, const char *contained) {
        QTest::addRow("%s, application %s, thread %s", function, application, thread)
            << application << thread << function << QByteArray(contained);
    };
    const struct
    {
        const char *function;
        const char *contained;
    } forAnybody[] = {
        {"separator", "----\n"},
        {"libVersion", "1.3.12"},
        {"libVersionString", "1.3.12"},
        {"platformName", "Windows"},
        {"qtGlobal", "Qt Global\n"},
        {"qtLocale", "QLocale\n"},
        {"qtDateTime", "ActiveBias: "},
        {"qtHostInfo", "Local host name:   "},
        {"qtSystemEnvironment", "System environemnt (QProcess::systemEnvironment()):\n"},
        {"checkStandardBonjour", " "},
        {"checkVelkorBonjour", " "},
    };
    for (const auto &row : forAnybody) {
        add("none", "other", row.function, row.contained);
        add("widgets", "main", row.function, row.contained);
    }
    const struct
    {
        const char *function;
        const char *contained;
    } forCore[] = {
        {"qtCoreApplication", "Application FilePath: "},
        {"qtDesktopServices", "Fonts [displayName]        "},
    };
    for (const auto &row : forCore) {
        add("core", "main", row.function, row.contained);
    }
    const struct
    {
        const char *function;
        const char *contained;
    } forGui[] = {
        {"qtAccessibility", "QAccessible::isActive() = "},
        {"qtPrinterInfo", "Available printers:\n"},
        {"qtScreens", "#1\n  Name: "},
        {"qtDesktop", "Screen #1: (primary screen)\n"},
        {"GetOpenGLVersion", "OpenGL "},
        {"GetOpenGLVersionCached", "OpenGL "},
        {"allInfosWithoutOpenGL", "QScreen (hardware)\n#1\n"},
    };
    for (const auto &row : forGui) {
        add("gui", "main", row.function, row.contained);
    }
    add("widgets", "main", "allInfos", "glGetString(GL_VERSION)  = ");
}

void tst_HostRules::works()
{
    QFETCH(QString, application);
    QFETCH(QString, thread);
    QFETCH(QString, function);
    QFETCH(QByteArray, contained);
    const ProgramRun run = runProgram(HOST_CHILD, {application, thread, function});
    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.output.contains(contained), run.output.constData());
}

void tst_HostRules::listsNoScreenWithoutGuiApplication_data()
{
    QTest::addColumn<QString>("application");
    QTest::addColumn<QString>("function");
    QTest::addColumn<QByteArray>("expected");

    for (const char *application : {"none", "core"}) {
        QTest::addRow("qtScreens, application %s", application)
            << application << "qtScreens" << QByteArray("QScreen (hardware)\n");
        QTest::addRow("qtDesktop, application %s", application)
            << application << "qtDesktop"
            << QByteArray("QScreen (Desktop)\nDesktop file name: \nNumber of screens:  0\nPrimary screen:     \n");
    }
}

void tst_HostRules::listsNoScreenWithoutGuiApplication()
{
    QFETCH(QString, application);
    QFETCH(QString, function);
    QFETCH(QByteArray, expected);
    const ProgramRun run = runProgram(HOST_CHILD, {application, "main", function});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, expected);
}

void tst_HostRules::endsTheProcess_data()
{
    QTest::addColumn<QString>("application");
    QTest::addColumn<QString>("function");

    for (const char *application : {"none", "core"}) {
        for (const char *function : {"allInfos", "GetOpenGLVersion", "GetOpenGLVersionCached"})
            QTest::addRow("%s, application %s", function, application) << application << function;
    }
    QTest::newRow("allInfos, application gui") << "gui"
                                               << "allInfos"; // "Must construct a QApplication before a QWidget"
}

void tst_HostRules::endsTheProcess()
{
#ifdef Q_OS_WIN
    QSKIP("Windows Error Reporting may keep a crashed process running");
#endif
    QFETCH(QString, application);
    QFETCH(QString, function);
    const ProgramRun run = runProgram(HOST_CHILD, {application, "main", function});
    QVERIFY(run.exitCode != 0);
    QCOMPARE(run.output, QByteArray());
}

TEST_WITHOUT_APPLICATION(tst_HostRules);
#include "tst_host_rules.moc"
