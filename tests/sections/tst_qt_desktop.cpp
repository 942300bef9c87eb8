// qtDesktop(), with described screens and with real ones.

#include "section_process.h"
#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"

#ifdef Q_OS_WIN
#  include "windows_monitors.h"
#  include <QtGui/QGuiApplication>
#else
#  include "described_screens.h"
#  include "x_server.h"
#endif

using namespace velkor::SystemInfo;

class QtDesktopTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
#ifdef Q_OS_WIN
    void sameAsWindows();
#else
    void head_data();
    void head();
    void screens_data();
    void screens();
    void primaryScreen_data();
    void primaryScreen();
    void screensOfAnXServer();
#endif
};

#ifdef Q_OS_WIN

namespace {

QString sizeLine(const char *label, const RECT &rectangle)
{
    return QString::fromLatin1(label)
        + QStringLiteral(" width: %1, height: %2\n")
              .arg(rectangle.right - rectangle.left, 5)
              .arg(rectangle.bottom - rectangle.top, 5);
}

} // namespace

void QtDesktopTest::sameAsWindows()
{
    const std::vector<qt_environment::Monitor> monitors = qt_environment::monitors();
    QVERIFY(!monitors.empty());
    RECT allWorkAreas = monitors.front().workArea;
    QString siblings; // all monitors are virtual siblings
    for (std::size_t i = 0; i < monitors.size(); ++i) {
        UnionRect(&allWorkAreas, &allWorkAreas, &monitors[i].workArea);
        siblings += QStringLiteral("#%1 ").arg(i + 1);
    }
    QString expected = QStringLiteral("QScreen (Desktop)\n"
                                      "Desktop file name: viewer\n"
                                      "Number of screens:  %1\n"
                                      "Primary screen:     %2\n")
                           .arg(GetSystemMetrics(SM_CMONITORS))
                           .arg(monitors.front().device);
    for (std::size_t i = 0; i < monitors.size(); ++i) {
        QCOMPARE(monitors[i].isPrimary, i == 0);
        expected += QStringLiteral("Screen #%1:%2\n").arg(i + 1).arg(i == 0 ? " (primary screen)" : "")
            + sizeLine("  screen Geometry         ", monitors[i].area)
            + sizeLine("  available Geometry      ", monitors[i].workArea)
            + sizeLine("  available virt. Geometry", allWorkAreas)
            + "  virtual siblings: " + siblings + '\n';
    }
    QGuiApplication::setDesktopFileName(QStringLiteral("viewer"));
    COMPARE_TEXT(qtDesktop(), expected);
}

#else

namespace {

QString desktopText(const QByteArray &screens, const QStringList &desktopFileName)
{
    return qt_environment::sectionText(QStringLiteral("qtDesktop"), qt_environment::environmentWithScreens(screens),
                                       desktopFileName);
}

} // namespace

void QtDesktopTest::head_data()
{
    QTest::addColumn<QByteArray>("screens");
    QTest::addColumn<QStringList>("desktopFileName");
    QTest::addColumn<QString>("expected");

    QTest::newRow("no screen: an empty name and no block")
        << QByteArray("[]") << QStringList()
        << "QScreen (Desktop)\n"
           "Desktop file name: \n"
           "Number of screens:  0\n"
           "Primary screen:     \n";
    QTest::newRow("a desktop file")
        << QByteArray("[]") << QStringList({"org.example.viewer"})
        << "QScreen (Desktop)\n"
           "Desktop file name: org.example.viewer\n"
           "Number of screens:  0\n"
           "Primary screen:     \n";
    QTest::newRow("placeholders are not replaced")
        << QByteArray(R"([{"name": "%1 %2"}])") << QStringList({"%1"})
        << "QScreen (Desktop)\n"
           "Desktop file name: %1\n"
           "Number of screens:  1\n"
           "Primary screen:     %1 %2\n"
           "Screen #1: (primary screen)\n"
           "  screen Geometry          width:  1000, height:  1000\n"
           "  available Geometry       width:  1000, height:  1000\n"
           "  available virt. Geometry width:     0, height:     0\n"
           "  virtual siblings: -\n";
}

void QtDesktopTest::head()
{
    QFETCH(QByteArray, screens);
    QFETCH(QStringList, desktopFileName);
    QFETCH(QString, expected);
    COMPARE_TEXT(desktopText(screens, desktopFileName), expected);
}

void QtDesktopTest::screens_data()
{
    QTest::addColumn<QByteArray>("screens");
    QTest::addColumn<QString>("expected"); // after the line of the desktop file

    QTest::newRow("an 800 x 600 screen with a panel")
        << QByteArray(R"([{"name": "DP-1", "geometry": [0, 0, 800, 600], "available": [0, 30, 800, 570], "siblings": [0]}])")
        << "Number of screens:  1\n"
           "Primary screen:     DP-1\n"
           "Screen #1: (primary screen)\n"
           "  screen Geometry          width:   800, height:   600\n"
           "  available Geometry       width:   800, height:   570\n"
           "  available virt. Geometry width:   800, height:   570\n"
           "  virtual siblings: #1 \n";
    QTest::newRow("no siblings, so no virtual geometry: a hyphen")
        << QByteArray(R"([{"geometry": [0, 0, 1920, 1080]}])")
        << "Number of screens:  1\n"
           "Primary screen:     \n"
           "Screen #1: (primary screen)\n"
           "  screen Geometry          width:  1920, height:  1080\n"
           "  available Geometry       width:  1920, height:  1080\n"
           "  available virt. Geometry width:     0, height:     0\n"
           "  virtual siblings: -\n";
    QTest::newRow("two screens side by side")
        << QByteArray(R"([{"name": "L", "geometry": [0, 0, 800, 600], "siblings": [0, 1]},
                          {"name": "R", "geometry": [800, 0, 1024, 768], "available": [800, 0, 1024, 700],
                           "siblings": [0, 1]}])")
        << "Number of screens:  2\n"
           "Primary screen:     L\n"
           "Screen #1: (primary screen)\n"
           "  screen Geometry          width:   800, height:   600\n"
           "  available Geometry       width:   800, height:   600\n"
           "  available virt. Geometry width:  1824, height:   700\n"
           "  virtual siblings: #1 #2 \n"
           "Screen #2:\n"
           "  screen Geometry          width:  1024, height:   768\n"
           "  available Geometry       width:  1024, height:   700\n"
           "  available virt. Geometry width:  1824, height:   700\n"
           "  virtual siblings: #1 #2 \n";
    QTest::newRow("siblings in the order of the platform")
        << QByteArray(R"([{"geometry": [0, 0, 100, 50], "siblings": [2, 0]},
                          {"geometry": [100, 0, 100, 50], "siblings": [1]},
                          {"geometry": [200, 0, 100, 50], "siblings": [0, 2]}])")
        << "Number of screens:  3\n"
           "Primary screen:     \n"
           "Screen #1: (primary screen)\n"
           "  screen Geometry          width:   100, height:    50\n"
           "  available Geometry       width:   100, height:    50\n"
           "  available virt. Geometry width:   300, height:    50\n"
           "  virtual siblings: #3 #1 \n"
           "Screen #2:\n"
           "  screen Geometry          width:   100, height:    50\n"
           "  available Geometry       width:   100, height:    50\n"
           "  available virt. Geometry width:   100, height:    50\n"
           "  virtual siblings: #2 \n"
           "Screen #3:\n"
           "  screen Geometry          width:   100, height:    50\n"
           "  available Geometry       width:   100, height:    50\n"
           "  available virt. Geometry width:   300, height:    50\n"
           "  virtual siblings: #1 #3 \n";
    QTest::newRow("a primary screen that is connected last is listed first")
        << QByteArray(R"([{"name": "early", "geometry": [0, 0, 800, 600], "siblings": [0]},
                          {"name": "primary", "geometry": [0, 0, 1024, 768], "siblings": [1], "primary": true}])")
        << "Number of screens:  2\n"
           "Primary screen:     primary\n"
           "Screen #1: (primary screen)\n"
           "  screen Geometry          width:  1024, height:   768\n"
           "  available Geometry       width:  1024, height:   768\n"
           "  available virt. Geometry width:  1024, height:   768\n"
           "  virtual siblings: #1 \n"
           "Screen #2:\n"
           "  screen Geometry          width:   800, height:   600\n"
           "  available Geometry       width:   800, height:   600\n"
           "  available virt. Geometry width:   800, height:   600\n"
           "  virtual siblings: #2 \n";
    QTest::newRow("another screen with the name of the primary screen is not marked")
        << QByteArray(R"([{"name": "same", "geometry": [0, 0, 800, 600], "siblings": [0]},
                          {"name": "same", "geometry": [0, 0, 800, 600], "siblings": [1]}])")
        << "Number of screens:  2\n"
           "Primary screen:     same\n"
           "Screen #1: (primary screen)\n"
           "  screen Geometry          width:   800, height:   600\n"
           "  available Geometry       width:   800, height:   600\n"
           "  available virt. Geometry width:   800, height:   600\n"
           "  virtual siblings: #1 \n"
           "Screen #2:\n"
           "  screen Geometry          width:   800, height:   600\n"
           "  available Geometry       width:   800, height:   600\n"
           "  available virt. Geometry width:   800, height:   600\n"
           "  virtual siblings: #2 \n";
    QTest::newRow("a sibling that is not in the list is omitted")
        << QByteArray(R"([{"name": "in", "geometry": [0, 0, 800, 600], "siblings": [1, 0]},
                          {"name": "out", "geometry": [800, 0, 800, 600], "listed": false}])")
        << "Number of screens:  1\n"
           "Primary screen:     in\n"
           "Screen #1: (primary screen)\n"
           "  screen Geometry          width:   800, height:   600\n"
           "  available Geometry       width:   800, height:   600\n"
           "  available virt. Geometry width:  1600, height:   600\n"
           "  virtual siblings: #1 \n";
    QTest::newRow("no sibling is in the list: neither numbers nor a hyphen")
        << QByteArray(R"([{"name": "in", "geometry": [0, 0, 800, 600], "siblings": [1]},
                          {"name": "out", "geometry": [800, 0, 800, 600], "listed": false}])")
        << "Number of screens:  1\n"
           "Primary screen:     in\n"
           "Screen #1: (primary screen)\n"
           "  screen Geometry          width:   800, height:   600\n"
           "  available Geometry       width:   800, height:   600\n"
           "  available virt. Geometry width:   800, height:   600\n"
           "  virtual siblings: \n";
    QTest::newRow("five digits fill the field")
        << QByteArray(R"([{"geometry": [0, 0, 12345, 54321], "siblings": [0]}])")
        << "Number of screens:  1\n"
           "Primary screen:     \n"
           "Screen #1: (primary screen)\n"
           "  screen Geometry          width: 12345, height: 54321\n"
           "  available Geometry       width: 12345, height: 54321\n"
           "  available virt. Geometry width: 12345, height: 54321\n"
           "  virtual siblings: #1 \n";
    QTest::newRow("six digits are not truncated")
        << QByteArray(R"([{"geometry": [0, 0, 123456, 1], "available": [0, 0, 1234567, 7], "siblings": [0]}])")
        << "Number of screens:  1\n"
           "Primary screen:     \n"
           "Screen #1: (primary screen)\n"
           "  screen Geometry          width: 123456, height:     1\n"
           "  available Geometry       width: 1234567, height:     7\n"
           "  available virt. Geometry width: 1234567, height:     7\n"
           "  virtual siblings: #1 \n";
    QTest::newRow("no size: zeros")
        << QByteArray(R"([{"geometry": [0, 0, 0, 0], "siblings": [0]}])")
        << "Number of screens:  1\n"
           "Primary screen:     \n"
           "Screen #1: (primary screen)\n"
           "  screen Geometry          width:     0, height:     0\n"
           "  available Geometry       width:     0, height:     0\n"
           "  available virt. Geometry width:     0, height:     0\n"
           "  virtual siblings: #1 \n";
}

void QtDesktopTest::screens()
{
    QFETCH(QByteArray, screens);
    QFETCH(QString, expected);
    COMPARE_TEXT(desktopText(screens, {QStringLiteral("viewer")}),
                 QStringLiteral("QScreen (Desktop)\n"
                                "Desktop file name: viewer\n")
                     + expected);
}

void QtDesktopTest::primaryScreen_data()
{
    QTest::addColumn<QString>("primary"); // PRIMARY_SCREEN, see primary_screen.cpp
    QTest::addColumn<QString>("expected");
    const QString first("Screen #1:%1\n"
                        "  screen Geometry          width:   800, height:   600\n"
                        "  available Geometry       width:   800, height:   600\n"
                        "  available virt. Geometry width:   800, height:   600\n"
                        "  virtual siblings: #1 \n");
    const QString second("Screen #2:%1\n"
                         "  screen Geometry          width:  1024, height:   768\n"
                         "  available Geometry       width:  1024, height:   768\n"
                         "  available virt. Geometry width:  1024, height:   768\n"
                         "  virtual siblings: #2 \n");
    const QString mark(" (primary screen)");
    QTest::newRow("two screens, none of them primary: an empty name and no mark")
        << "none"
        << "Primary screen:     \n" + first.arg("") + second.arg("");
    QTest::newRow("the first screen") << "0"
                                      << "Primary screen:     A\n" + first.arg(mark) + second.arg("");
    QTest::newRow("the second screen") << "1"
                                       << "Primary screen:     B\n" + first.arg("") + second.arg(mark);
}

// Qt 5 lists the primary screen first, but its documentation does not guarantee that.
void QtDesktopTest::primaryScreen()
{
    QFETCH(QString, primary);
    QFETCH(QString, expected);
    const QByteArray two(R"([{"name": "A", "geometry": [0, 0, 800, 600], "siblings": [0]},
                             {"name": "B", "geometry": [0, 0, 1024, 768], "siblings": [1]}])");
    const QStringList environment = qt_environment::environmentWithScreens(two)
        + QStringList(QStringLiteral("PRIMARY_SCREEN=") + primary);
    COMPARE_TEXT(qt_environment::sectionText(QStringLiteral("qtDesktop"), environment),
                 "QScreen (Desktop)\n"
                 "Desktop file name: \n"
                 "Number of screens:  2\n"
                     + expected);
}

// Without Xinerama, each screen of an X server is its only virtual sibling.
void QtDesktopTest::screensOfAnXServer()
{
    const qt_environment::XServer server({QStringLiteral("800x600x24"), QStringLiteral("1024x768x24")}, 96);
    QVERIFY(!server.display().isEmpty());
    COMPARE_TEXT(qt_environment::sectionText(QStringLiteral("qtDesktop"),
                                             {QStringLiteral("QT_QPA_PLATFORM=xcb"),
                                              QStringLiteral("DISPLAY=") + server.display()}),
                 QStringLiteral("QScreen (Desktop)\n"
                                "Desktop file name: \n"
                                "Number of screens:  2\n"
                                "Primary screen:     screen\n"
                                "Screen #1: (primary screen)\n"
                                "  screen Geometry          width:   800, height:   600\n"
                                "  available Geometry       width:   800, height:   600\n"
                                "  available virt. Geometry width:   800, height:   600\n"
                                "  virtual siblings: #1 \n"
                                "Screen #2:\n"
                                "  screen Geometry          width:  1024, height:   768\n"
                                "  available Geometry       width:  1024, height:   768\n"
                                "  available virt. Geometry width:  1024, height:   768\n"
                                "  virtual siblings: #2 \n"));
}

#endif

TEST_WITH_APPLICATION(QtDesktopTest);
#include "tst_qt_desktop.moc"
