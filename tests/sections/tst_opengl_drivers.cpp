// The driver list of the OpenGL section, and the whole section where there is no OpenGL.

#include "described_windows.h"
#include "registry_values.h"
#include "test_main.h"
#include "texts.h"
#include "vkSystemInfo.h"

#include <QtCore/QLocale>
#include <QtOpenGL/QGLFormat>
#include <QtWidgets/QApplication>

#ifdef SIMULATED_WINDOWS
#  include "overlays.h"
#  include "simulated_windows.h"
#  include "version_flags.h"
#  include <windows.h>
#endif

using namespace velkor::SystemInfo;

class OpenGLDriversTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void text_data();
    void text();
    void deniedKeys_data();
    void deniedKeys();
    void textIsAppended();
    void sectionWithoutOpenGL_data();
    void sectionWithoutOpenGL();
#ifdef SIMULATED_WINDOWS
    void cleanup();
    void otherAlphabets_data();
    void otherAlphabets();
    void calls();
    void failingCalls_data();
    void failingCalls();
    void flagsLine_data();
    void flagsLine();
    void overlaysLine_data();
    void overlaysLine();
    void localeOfTheHostHasNoEffect();
    void sectionAlwaysProbes();
#endif
};

namespace {

const QString heading = QStringLiteral("#### Info about the OpenGL driver DLL's from registry ###\n");
const char path[] = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\OpenGLDrivers";

const char twoDriversText[] = "A   x.dll\n"
                              "B   y.dll\n";

QByteArray driversKey()
{
    return QByteArray("[") + path + "]\n";
}

/// A driver and its values, each a line.
QByteArray driver(const QByteArray &name, const QByteArray &values)
{
    return QByteArray("[") + path + '\\' + name + "]\n" + values + '\n';
}

QByteArray twoDrivers()
{
    return driver("A", "\"dll\"=\"x\"") + driver("B", "\"dll\"=\"y\"");
}

/// So many letters "a" as REG_SZ without a terminator.
QByteArray unterminated(int letters)
{
    return "\"dll\"=hex(1):" + QByteArray("61,00,").repeated(letters - 1) + "61,00";
}

/// What GetOpenGLDriverInfo() writes into an empty text.
QString driverInfo()
{
    QString info;
    ScanOpenGLInfo(nullptr).GetOpenGLDriverInfo(info);
    return info;
}

QString section()
{
    QString info = QStringLiteral("what was there before");
    ScanOpenGLInfo(nullptr).GetOpenGLInfo(info);
    return info;
}

QString sectionStart(const QString &flagsAndName, const char *overlays = "0")
{
    return QStringLiteral("#### QGLFormat #### \n"
                          "hasOpenGL         0\n"
                          "hasOpenGLOverlays ")
        + overlays
        + QStringLiteral("\nopenGLVersionFlags ") + flagsAndName + "\n" + heading;
}

} // namespace

void OpenGLDriversTest::text_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QString>("expected");

    QTest::newRow("no key: the heading alone") << QByteArray() << QString();
    QTest::newRow("a key without drivers: the heading alone") << driversKey() << QString();
    QTest::newRow("values of the key itself are no drivers") << driversKey() + "\"dll\"=\"x\"\n"
                                                             << QString();
    QTest::newRow("two drivers: no empty line behind them") << twoDrivers() << twoDriversText;
    QTest::newRow("drivers in the order of their names")
        << driver("b", "\"dll\"=\"y\"") + driver("C", "\"dll\"=\"z\"") + driver("A", "\"dll\"=\"x\"")
        << "A   x.dll\nb   y.dll\nC   z.dll\n";

    QTest::newRow("no library: the name and three blanks") << driver("A", "") << "A   \n";
    QTest::newRow("the driver's default value is not its library") << driver("A", "@=\"x\"") << "A   \n";
    QTest::newRow("a driver below a driver is none")
        << driver("A", "") + driver("A\\B", "\"dll\"=\"y\"") << "A   \n";
    QTest::newRow("one without library between two with one")
        << driver("A", "\"dll\"=\"x\"") + driver("B", "\"Version\"=dword:00000002") + driver("C", "\"dll\"=\"z\"")
        << "A   x.dll\nB   \nC   z.dll\n";
    QTest::newRow("other values do not count")
        << driver("A", "\"DriverVersion\"=dword:00000001\n\"dll\"=\"x\"\n\"Flags\"=dword:00000003") << "A   x.dll\n";
    QTest::newRow("the value's name in other letters") << driver("A", "\"DLL\"=\"x\"") << "A   x.dll\n";

    QTest::newRow("a library with its extension: another is added")
        << driver("A", "\"dll\"=\"x.dll\"") << "A   x.dll.dll\n";
    QTest::newRow("an empty library: the extension") << driver("A", "\"dll\"=\"\"") << "A   .dll\n";
    QTest::newRow("a library of no bytes: nothing of the one before")
        << driver("A", "\"dll\"=\"long\"") + driver("B", "\"dll\"=hex(1):") << "A   long.dll\nB   .dll\n";
    QTest::newRow("an unterminated library: nothing of the one before")
        << driver("A", "\"dll\"=\"long\"") + driver("B", "\"dll\"=hex(1):79,00") << "A   long.dll\nB   y.dll\n";
    QTest::newRow("several strings: the first") << driver("A", "\"dll\"=hex(7):78,00,00,00,79,00,00,00,00,00") << "A   x.dll\n";
    QTest::newRow("the value's type is not looked at") << driver("A", "\"dll\"=dword:00007978") << "A   xy.dll\n";
    QTest::newRow("2047 characters and a terminator fill the buffer")
        << driver("A", "\"dll\"=\"" + QByteArray(2047, 'a') + '"') << "A   " + QString(2047, 'a') + ".dll\n";
    QTest::newRow("2048 bytes without a terminator are all text")
        << driver("A", unterminated(2048)) << "A   " + QString(2048, 'a') + ".dll\n";
    QTest::newRow("2048 characters and a terminator: too long, no library")
        << driver("A", "\"dll\"=\"" + QByteArray(2048, 'a') + '"') << "A   \n";

    QTest::newRow("names that are placeholders stay as they are")
        << driver("%1", "\"dll\"=\"%2\"") + driver("%2 %1", "\"dll\"=\"%1\"") << "%1   %2.dll\n%2 %1   %1.dll\n";
    QTest::newRow("blanks of names stay") << driver("  A  ", "\"dll\"=\" x \"") << "  A      x .dll\n";
}

void OpenGLDriversTest::text()
{
    QFETCH(QByteArray, registry);
    QFETCH(QString, expected);
    const DescribedWindows windows(registry);
    COMPARE_TEXT(driverInfo(), heading + expected);
}

void OpenGLDriversTest::deniedKeys_data()
{
    QTest::addColumn<QByteArrayList>("denied"); // below the key of all drivers
    QTest::addColumn<QString>("expected");
    QTest::newRow("the first driver: its name and three blanks") << QByteArrayList {"A"} << "A   \nB   y.dll\nC   z.dll\n";
    QTest::newRow("a driver in the middle") << QByteArrayList {"B"} << "A   x.dll\nB   \nC   z.dll\n";
    QTest::newRow("the last driver") << QByteArrayList {"C"} << "A   x.dll\nB   y.dll\nC   \n";
    QTest::newRow("the key of all drivers: the heading alone") << QByteArrayList {""} << QString();
}

void OpenGLDriversTest::deniedKeys()
{
    QFETCH(QByteArrayList, denied);
    QFETCH(QString, expected);
    const DescribedWindows windows(twoDrivers() + driver("C", "\"dll\"=\"z\""), deniedBelow(path, denied));
    COMPARE_TEXT(driverInfo(), heading + expected);
}

void OpenGLDriversTest::textIsAppended()
{
    ScanOpenGLInfo scan(nullptr);
    QString info = QStringLiteral("before\n");
    {
        const DescribedWindows windows(twoDrivers());
        QCOMPARE(scan.GetOpenGLDriverInfo(info), QStringLiteral("\n"));
        COMPARE_TEXT(info, "before\n" + heading + twoDriversText);
    }
    const DescribedWindows nothing(QByteArray {});
    info = QStringLiteral("before\n");
    QCOMPARE(scan.GetOpenGLDriverInfo(info), QString());
    COMPARE_TEXT(info, "before\n" + heading);
}

void OpenGLDriversTest::sectionWithoutOpenGL_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no drivers") << QByteArray() << QString();
    QTest::newRow("two drivers: the section ends behind them") << twoDrivers() << twoDriversText;
}

void OpenGLDriversTest::sectionWithoutOpenGL()
{
    QFETCH(QByteArray, registry);
    QFETCH(QString, expected);
    QVERIFY(!QGLFormat::hasOpenGL());
    const DescribedWindows windows(registry);
    COMPARE_TEXT(section(), sectionStart("0x0 not recognized") + expected);
    COMPARE_TEXT(section(), sectionStart("0x0 not recognized") + expected);
}

#ifdef SIMULATED_WINDOWS

void OpenGLDriversTest::cleanup()
{
    overlays::pretended.reset();
    version_flags::pretended.reset();
}

void OpenGLDriversTest::otherAlphabets_data()
{
    QTest::addColumn<QByteArray>("system");
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QString>("expected");
    const QByteArray western("{\"ansiCodePage\": 1252}");
    const QByteArray utf8("{\"ansiCodePage\": 65001}");
    QTest::newRow("a name that is no UTF-8 shows so, and its key is not found")
        << western << driver("\xc3\xa9", "\"dll\"=\"x\"") << QString(QChar(0xfffd)) + "   \n";
    QTest::newRow("a library that is no UTF-8 shows so")
        << western << driver("A", "\"dll\"=\"\xc3\xa9\"") << QStringLiteral("A   ") + QChar(0xfffd) + ".dll\n";
    QTest::newRow("a library in UTF-8") << utf8 << driver("A", "\"dll\"=\"\xc3\xa9\"") << QStringLiteral("A   ") + QChar(0xe9) + ".dll\n";
    QTest::newRow("a name in UTF-8 shows, but its key is asked for in Latin-1 and not found")
        << utf8 << driver("\xc3\xa9", "\"dll\"=\"x\"") << QString(QChar(0xe9)) + "   \n";
}

void OpenGLDriversTest::otherAlphabets()
{
    QFETCH(QByteArray, system);
    QFETCH(QByteArray, registry);
    QFETCH(QString, expected);
    const DescribedWindows windows(registry, system);
    COMPARE_TEXT(driverInfo(), heading + expected);
    QCOMPARE(simulated::openHandles(), QStringList());
}

void OpenGLDriversTest::calls()
{
    const DescribedWindows windows(twoDrivers());
    driverInfo();
    QStringList calls;
    for (const simulated::Call &call : simulated::journal()) {
        QString key = call.key;
        calls += QStringLiteral("%1 %2 %3 %4 %5")
                     .arg(QLatin1String(call.name), key.replace(QLatin1String(path), QStringLiteral("*")), call.value)
                     .arg(call.sizeIn)
                     .arg(call.access, 0, 16);
    }
    QCOMPARE(calls,
             QStringList({"RegOpenKeyExA *  0 20019", "RegEnumKeyA * 0 2048 0", "RegOpenKeyExA *\\A  0 20019",
                          "RegQueryValueExA *\\A dll 2048 0", "RegCloseKey *\\A  0 0", "RegEnumKeyA * 1 2048 0",
                          "RegOpenKeyExA *\\B  0 20019", "RegQueryValueExA *\\B dll 2048 0", "RegCloseKey *\\B  0 0",
                          "RegEnumKeyA * 2 2048 0", "RegCloseKey *  0 0"}));
    QCOMPARE(simulated::openHandles(), QStringList());
    QCOMPARE(simulated::handleMisuses(), QStringList());
}

void OpenGLDriversTest::failingCalls_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("number");
    QTest::addColumn<quint32>("error");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("returned");

    const QByteArray open("RegOpenKeyExA");
    const QByteArray enumerate("RegEnumKeyA");
    const QByteArray close("RegCloseKey");
    const quint32 denied = ERROR_ACCESS_DENIED;
    const QString all(twoDriversText);
    const QString end = QStringLiteral("\n");

    QTest::newRow("the key does not open") << open << 0 << denied << "" << QString();
    QTest::newRow("the key opens without a handle") << open << 0 << quint32(ERROR_SUCCESS) << "" << QString();
    QTest::newRow("the first name cannot be read: no drivers") << enumerate << 0 << denied << "" << end;
    QTest::newRow("the second name cannot be read: the list ends there") << enumerate << 1 << denied << "A   x.dll\n"
                                                                         << end;
    QTest::newRow("the second name is too long: the list ends there")
        << enumerate << 1 << quint32(ERROR_MORE_DATA) << "A   x.dll\n"
        << end;
    QTest::newRow("the list ends with another error") << enumerate << 2 << denied << all << end;
    QTest::newRow("the first driver does not open") << open << 1 << denied << "A   \nB   y.dll\n"
                                                    << end;
    QTest::newRow("the second driver does not open") << open << 2 << denied << "A   x.dll\nB   \n"
                                                     << end;
    QTest::newRow("the first driver opens without a handle")
        << open << 1 << quint32(ERROR_SUCCESS) << "A   \nB   y.dll\n"
        << end;
    QTest::newRow("the first library cannot be read")
        << QByteArray("RegQueryValueExA") << 0 << denied << "A   \nB   y.dll\n"
        << end;
    QTest::newRow("the second library cannot be read: not the first one again")
        << QByteArray("RegQueryValueExA") << 1 << denied << "A   x.dll\nB   \n"
        << end;
    QTest::newRow("the first driver does not close: nothing shows") << close << 0 << denied << all << end;
    QTest::newRow("the second driver does not close: nothing shows") << close << 1 << denied << all << end;
    QTest::newRow("the key does not close: nothing shows") << close << 2 << denied << all << end;
}

void OpenGLDriversTest::failingCalls()
{
    QFETCH(QByteArray, call);
    QFETCH(int, number);
    QFETCH(quint32, error);
    QFETCH(QString, expected);
    const DescribedWindows windows(twoDrivers());
    const auto fault = simulated::Fault::nthCall(call, std::size_t(number), error);
    QString info;
    QTEST(ScanOpenGLInfo(nullptr).GetOpenGLDriverInfo(info), "returned");
    COMPARE_TEXT(info, heading + expected);
    QCOMPARE(fault.hits(), std::size_t(1));
    QCOMPARE(simulated::openHandles(), QStringList());
    QCOMPARE(simulated::handleMisuses(), QStringList());
}

void OpenGLDriversTest::flagsLine_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<QString>("expected");
    QTest::newRow("1.1 to 1.5") << 0x1f << "0x1f OpenGL 1.5";
    QTest::newRow("lower-case digits") << 0xabcde << "0xabcde OpenGL 4.3";
    QTest::newRow("ES") << 0x800 << "0x800 OpenGL ES 2.0";
    QTest::newRow("none") << 0 << "0x0 not recognized";
}

void OpenGLDriversTest::flagsLine()
{
    QFETCH(int, flags);
    QFETCH(QString, expected);
    version_flags::pretended = flags;
    const DescribedWindows windows(QByteArray {});
    COMPARE_TEXT(section(), sectionStart(expected));
}

void OpenGLDriversTest::overlaysLine_data()
{
    QTest::addColumn<bool>("hasOverlays");
    QTest::addColumn<QByteArray>("shown");
    QTest::newRow("none") << false << QByteArray("0");
    QTest::newRow("overlays, although there is no OpenGL: the section ends as early") << true << QByteArray("1");
}

void OpenGLDriversTest::overlaysLine()
{
    QFETCH(bool, hasOverlays);
    QFETCH(QByteArray, shown);
    overlays::pretended = hasOverlays;
    const DescribedWindows windows(twoDrivers());
    COMPARE_TEXT(section(), sectionStart("0x0 not recognized", shown.constData()) + twoDriversText);
}

void OpenGLDriversTest::localeOfTheHostHasNoEffect()
{
    overlays::pretended = true;
    version_flags::pretended = 0x12345;
    const DescribedWindows windows(twoDrivers());
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    const QString text = section();
    QLocale::setDefault(before);
    COMPARE_TEXT(text, sectionStart("0x12345 OpenGL 4.0", "1") + twoDriversText);
}

void OpenGLDriversTest::sectionAlwaysProbes()
{
    const DescribedWindows windows(QByteArray {});
    version_flags::pretended = 0x1;
    ScanOpenGLInfo::GetOpenGLVersionCached();
    const int callsBefore = version_flags::calls;
    version_flags::pretended = 0x2;
    COMPARE_TEXT(section(), sectionStart("0x2 OpenGL 1.2"));
    QCOMPARE(version_flags::calls - callsBefore, 1);
    version_flags::pretended = 0x4;
    COMPARE_TEXT(section(), sectionStart("0x4 OpenGL 1.3"));
    QCOMPARE(version_flags::calls - callsBefore, 2);
}

#endif

TEST_WITH_APPLICATION(OpenGLDriversTest);
#include "tst_opengl_drivers.moc"
