// qtScreens(), with described screens and with real ones.

#include "section_process.h"
#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"

#ifdef Q_OS_WIN
#  include "windows_monitors.h"
#  include <cmath>
#  include <cstdio>
#else
#  include "described_screens.h"
#  include "x_server.h"
#endif

using namespace velkor::SystemInfo;

class QtScreensTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
#ifdef Q_OS_WIN
    void sameAsWindows();
#else
    void text_data();
    void text();
    void lines_data();
    void lines();
    void screensOfAnXServer();
#endif
};

#ifdef Q_OS_WIN

namespace {

/// The C library's "%g": at most six digits.
QString number(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%g", value);
    return QString::fromLatin1(text);
}

QString block(const qt_environment::Monitor &monitor, int position)
{
    const double wide = monitor.millimetresWide;
    const double high = monitor.millimetresHigh;
    const double diagonal = std::hypot(wide, high);
    const QString direction = monitor.width >= monitor.height ? "2" : "1"; // landscape, portrait
    return "#" + number(position)
        + "\n  Name: " + monitor.device
        + "\n  Manufacturer: "
          "\n  Physical DPI x: "
        + number(monitor.width / wide * 25.4) + "  y: " + number(monitor.height / high * 25.4)
        + "\n  Logical  DPI x: " + number(monitor.dotsPerInchX) + "  y: " + number(monitor.dotsPerInchY)
        + "\n  devicePixelRatio: 1"
          "\n  RefreshRate: "
        + number(monitor.refreshRate > 1 ? monitor.refreshRate : 60) + " Hz"
                                                                       "\n  PhysicalSize (width x height): "
        + number(wide) + "mm x " + number(high) + "mm  " + number(wide / 25.4)
        + "inch x " + number(high / 25.4) + "inch"
                                            "\n                diagonal: "
        + number(diagonal) + "mm " + number(diagonal / 25.4) + "inch"
                                                               "\n  Size (width x height): "
        + number(monitor.width) + " x " + number(monitor.height)
        + "\n  Color depth: " + number(monitor.bitsPerPixel)
        + "\n  Orientation: " + direction
        + "\n  Native Orientation: 0"
          "\n  Primary Orientation: "
        + direction + "\n";
}

} // namespace

void QtScreensTest::sameAsWindows()
{
    const std::vector<qt_environment::Monitor> monitors = qt_environment::monitors();
    QVERIFY(!monitors.empty());
    for (const qt_environment::Monitor &monitor : monitors) {
        if (!monitor.isPrimary && monitor.modeWidth == 0)
            continue; // the monitor has no mode to compare with
        QCOMPARE(monitor.width, monitor.modeWidth);
        QCOMPARE(monitor.height, monitor.modeHeight);
    }
    QString expected = "QScreen (hardware)\n";
    int position = 0;
    for (const qt_environment::Monitor &monitor : monitors)
        expected += block(monitor, ++position);
    COMPARE_TEXT(qtScreens(), expected);
}

#else

namespace {

QString screensText(const QByteArray &screens)
{
    return qt_environment::sectionText(QStringLiteral("qtScreens"), qt_environment::environmentWithScreens(screens));
}

} // namespace

void QtScreensTest::text_data()
{
    QTest::addColumn<QByteArray>("screens");
    QTest::addColumn<QString>("expected");

    QTest::newRow("no screen: only the heading") << QByteArray("[]") << "QScreen (hardware)\n";
    QTest::newRow("a 600 mm x 340 mm screen")
        << QByteArray(R"([{"name": "DP-1", "manufacturer": "Example Displays", "millimetres": [600, 340],
                           "geometry": [0, 0, 1920, 1080], "logicalDpi": [96, 120], "pixelRatio": 1.5,
                           "refreshRate": 59.95, "depth": 30, "orientation": 8, "nativeOrientation": 2}])")
        << "QScreen (hardware)\n"
           "#1\n"
           "  Name: DP-1\n"
           "  Manufacturer: Example Displays\n"
           "  Physical DPI x: 81.28  y: 80.6824\n"
           "  Logical  DPI x: 96  y: 120\n"
           "  devicePixelRatio: 1.5\n"
           "  RefreshRate: 59.95 Hz\n"
           "  PhysicalSize (width x height): 600mm x 340mm  23.622inch x 13.3858inch\n"
           "                diagonal: 689.638mm 27.1511inch\n"
           "  Size (width x height): 1920 x 1080\n"
           "  Color depth: 30\n"
           "  Orientation: 8\n"
           "  Native Orientation: 2\n"
           "  Primary Orientation: 2\n";
    QTest::newRow("two screens, numbered from 1")
        << QByteArray(R"([{"name": "A", "millimetres": [254, 127], "geometry": [0, 0, 1000, 500]},
                          {"name": "B", "millimetres": [300, 400], "geometry": [1000, 0, 600, 800]}])")
        << "QScreen (hardware)\n"
           "#1\n"
           "  Name: A\n"
           "  Manufacturer: \n"
           "  Physical DPI x: 100  y: 100\n"
           "  Logical  DPI x: 96  y: 96\n"
           "  devicePixelRatio: 1\n"
           "  RefreshRate: 60 Hz\n"
           "  PhysicalSize (width x height): 254mm x 127mm  10inch x 5inch\n"
           "                diagonal: 283.981mm 11.1803inch\n"
           "  Size (width x height): 1000 x 500\n"
           "  Color depth: 32\n"
           "  Orientation: 2\n"
           "  Native Orientation: 0\n"
           "  Primary Orientation: 2\n"
           "#2\n"
           "  Name: B\n"
           "  Manufacturer: \n"
           "  Physical DPI x: 50.8  y: 50.8\n"
           "  Logical  DPI x: 96  y: 96\n"
           "  devicePixelRatio: 1\n"
           "  RefreshRate: 60 Hz\n"
           "  PhysicalSize (width x height): 300mm x 400mm  11.811inch x 15.748inch\n"
           "                diagonal: 500mm 19.685inch\n"
           "  Size (width x height): 600 x 800\n"
           "  Color depth: 32\n"
           "  Orientation: 1\n"
           "  Native Orientation: 0\n"
           "  Primary Orientation: 1\n";
}

void QtScreensTest::text()
{
    QFETCH(QByteArray, screens);
    QFETCH(QString, expected);
    COMPARE_TEXT(screensText(screens), expected);
}

// By default a screen has 1000 x 1000 pixels and 254 mm x 254 mm.
void QtScreensTest::lines_data()
{
    QTest::addColumn<QByteArray>("screen");
    QTest::addColumn<QString>("expected");

    QTest::newRow("an empty name") << QByteArray(R"({"name": ""})") << "  Name: \n  Manufacturer: \n";
    QTest::newRow("placeholders are not replaced")
        << QByteArray(R"({"name": "%1 %2", "manufacturer": "%L1"})") << "  Name: %1 %2\n  Manufacturer: %L1\n";
    QTest::newRow("no physical size: zeros, and the density is infinite")
        << QByteArray(R"({"millimetres": [0, 0]})")
        << "  Physical DPI x: inf  y: inf\n"
           "  Logical  DPI x: 96  y: 96\n"
           "  devicePixelRatio: 1\n"
           "  RefreshRate: 60 Hz\n"
           "  PhysicalSize (width x height): 0mm x 0mm  0inch x 0inch\n"
           "                diagonal: 0mm 0inch\n";
    QTest::newRow("no height")
        << QByteArray(R"({"millimetres": [25.4, 0]})")
        << "  PhysicalSize (width x height): 25.4mm x 0mm  1inch x 0inch\n"
           "                diagonal: 25.4mm 1inch\n";
    QTest::newRow("a fraction has six digits")
        << QByteArray(R"({"millimetres": [123.45678, 0.0001]})")
        << "  PhysicalSize (width x height): 123.457mm x 0.0001mm  4.8605inch x 3.93701e-06inch\n"
           "                diagonal: 123.457mm 4.8605inch\n";
    QTest::newRow("numbers of seven digits have an exponent")
        << QByteArray(R"({"millimetres": [2540000, 0]})")
        << "  PhysicalSize (width x height): 2.54e+06mm x 0mm  100000inch x 0inch\n"
           "                diagonal: 2.54e+06mm 100000inch\n";
    QTest::newRow("horizontal and vertical densities differ")
        << QByteArray(R"({"millimetres": [127, 254], "logicalDpi": [96.5, 144.123456]})")
        << "  Physical DPI x: 200  y: 100\n"
           "  Logical  DPI x: 96.5  y: 144.123\n";
    QTest::newRow("a pixel ratio") << QByteArray(R"({"pixelRatio": 2})") << "  devicePixelRatio: 2\n";
    QTest::newRow("a refresh rate") << QByteArray(R"({"refreshRate": 143.85617})") << "  RefreshRate: 143.856 Hz\n";
    QTest::newRow("no size") << QByteArray(R"({"geometry": [0, 0, 0, 0]})") << "  Size (width x height): 0 x 0\n";
    QTest::newRow("a large size is not padded")
        << QByteArray(R"({"geometry": [0, 0, 123456, 7]})") << "  Size (width x height): 123456 x 7\n";
    QTest::newRow("a color depth") << QByteArray(R"({"depth": 8})") << "  Color depth: 8\n";
    for (const int orientation : {1, 2, 4, 8}) {
        QTest::addRow("orientation %d", orientation)
            << QStringLiteral(R"({"orientation": %1, "nativeOrientation": %1})").arg(orientation).toLatin1()
            << QStringLiteral("  Orientation: %1\n  Native Orientation: %1\n  Primary Orientation: 2\n").arg(orientation);
    }
    QTest::newRow("an unknown native orientation")
        << QByteArray(R"({"nativeOrientation": 0})") << "  Native Orientation: 0\n";
    QTest::newRow("the primary orientation of a portrait screen")
        << QByteArray(R"({"geometry": [0, 0, 800, 801], "orientation": 2})")
        << "  Orientation: 2\n  Native Orientation: 0\n  Primary Orientation: 1\n";
}

void QtScreensTest::lines()
{
    QFETCH(QByteArray, screen);
    QFETCH(QString, expected);
    const QString text = screensText('[' + screen + ']');
    QVERIFY2(text.startsWith(QStringLiteral("QScreen (hardware)\n#1\n  Name: ")), qPrintable(text));
    QVERIFY2(text.contains(QLatin1Char('\n') + expected), qPrintable(text));
}

// At 254 dots per inch a millimetre has ten pixels.
void QtScreensTest::screensOfAnXServer()
{
    const qt_environment::XServer server({QStringLiteral("800x600x24"), QStringLiteral("1000x500x16")}, 254);
    QVERIFY(!server.display().isEmpty());
    COMPARE_TEXT(qt_environment::sectionText(QStringLiteral("qtScreens"),
                                             {QStringLiteral("QT_QPA_PLATFORM=xcb"),
                                              QStringLiteral("DISPLAY=") + server.display()}),
                 QStringLiteral("QScreen (hardware)\n"
                                "#1\n"
                                "  Name: screen\n"
                                "  Manufacturer: \n"
                                "  Physical DPI x: 254  y: 254\n"
                                "  Logical  DPI x: 254  y: 254\n"
                                "  devicePixelRatio: 1\n"
                                "  RefreshRate: 60 Hz\n"
                                "  PhysicalSize (width x height): 80mm x 60mm  3.14961inch x 2.3622inch\n"
                                "                diagonal: 100mm 3.93701inch\n"
                                "  Size (width x height): 800 x 600\n"
                                "  Color depth: 24\n"
                                "  Orientation: 2\n"
                                "  Native Orientation: 0\n"
                                "  Primary Orientation: 2\n"
                                "#2\n"
                                "  Name: screen\n"
                                "  Manufacturer: \n"
                                "  Physical DPI x: 254  y: 254\n"
                                "  Logical  DPI x: 254  y: 254\n"
                                "  devicePixelRatio: 1\n"
                                "  RefreshRate: 60 Hz\n"
                                "  PhysicalSize (width x height): 100mm x 50mm  3.93701inch x 1.9685inch\n"
                                "                diagonal: 111.803mm 4.40171inch\n"
                                "  Size (width x height): 1000 x 500\n"
                                "  Color depth: 16\n"
                                "  Orientation: 2\n"
                                "  Native Orientation: 0\n"
                                "  Primary Orientation: 2\n"));
}

#endif

TEST_WITH_APPLICATION(QtScreensTest);
#include "tst_qt_screens.moc"
