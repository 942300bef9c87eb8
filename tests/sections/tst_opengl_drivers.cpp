// GetOpenGLDriverInfo(), and GetOpenGLInfo() without OpenGL.

#include "described_windows.h"
#include "registry_values.h"
#include "rows.h"
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

namespace {

const QString heading = QStringLiteral("#### Info about the OpenGL driver DLL's from registry ###\n");
const char path[] = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\OpenGLDrivers";

const char twoDriversText[] = "A   x.dll\n"
                              "B   y.dll\n";

QByteArray driversKey()
{
    return QByteArray("[") + path + "]\n";
}

/// The key of a driver and its values.
QByteArray driver(const QByteArray &name, const QByteArray &values)
{
    return QByteArray("[") + path + '\\' + name + "]\n" + values + '\n';
}

QByteArray twoDrivers()
{
    return driver("A", "\"dll\"=\"x\"") + driver("B", "\"dll\"=\"y\"");
}

/// A REG_SZ of \a letters letters "a" without a terminator.
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
    QString info = QStringLiteral("previous text");
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

void text()
{
    const auto row = [](const QString &name, const QByteArray &registry, const QString &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows(registry);
            COMPARE_TEXT(driverInfo(), heading + expected);
        });
    };

    row("no key: only the heading", QByteArray(), QString());
    row("a key without drivers: only the heading", driversKey(), QString());
    row("values of the key itself are no drivers", driversKey() + "\"dll\"=\"x\"\n", QString());
    row("two drivers: no empty line after them", twoDrivers(), twoDriversText);
    row("drivers in the order of their names", driver("b", "\"dll\"=\"y\"") + driver("C", "\"dll\"=\"z\"") + driver("A", "\"dll\"=\"x\""), "A   x.dll\nb   y.dll\nC   z.dll\n");

    row("no library: only the name and three blanks", driver("A", ""), "A   \n");
    row("the driver's default value is not its library", driver("A", "@=\"x\""), "A   \n");
    row("a driver below a driver is none", driver("A", "") + driver("A\\B", "\"dll\"=\"y\""), "A   \n");
    row("a driver without a library between two others", driver("A", "\"dll\"=\"x\"") + driver("B", "\"Version\"=dword:00000002") + driver("C", "\"dll\"=\"z\""), "A   x.dll\nB   \nC   z.dll\n");
    row("other values are not shown", driver("A", "\"DriverVersion\"=dword:00000001\n\"dll\"=\"x\"\n\"Flags\"=dword:00000003"), "A   x.dll\n");
    row("the name of the value is case-insensitive", driver("A", "\"DLL\"=\"x\""), "A   x.dll\n");

    row("Quirk: the extension is added to a library that has one", driver("A", "\"dll\"=\"x.dll\""), "A   x.dll.dll\n");
    row("an empty library: only the extension", driver("A", "\"dll\"=\"\""), "A   .dll\n");
    row("a library of 0 bytes does not show the previous one", driver("A", "\"dll\"=\"long\"") + driver("B", "\"dll\"=hex(1):"), "A   long.dll\nB   .dll\n");
    row("an unterminated library does not show the end of the previous one", driver("A", "\"dll\"=\"long\"") + driver("B", "\"dll\"=hex(1):79,00"), "A   long.dll\nB   y.dll\n");
    row("a REG_MULTI_SZ: the first string", driver("A", "\"dll\"=hex(7):78,00,00,00,79,00,00,00,00,00"), "A   x.dll\n");
    row("the type of the value is not checked", driver("A", "\"dll\"=dword:00007978"), "A   xy.dll\n");
    row("2047 characters and a terminator fill the buffer", driver("A", "\"dll\"=\"" + QByteArray(2047, 'a') + '"'), "A   " + QString(2047, 'a') + ".dll\n");
    row("2048 bytes without a terminator are all text", driver("A", unterminated(2048)), "A   " + QString(2048, 'a') + ".dll\n");
    row("2048 characters and a terminator: too long, no library", driver("A", "\"dll\"=\"" + QByteArray(2048, 'a') + '"'), "A   \n");

    row("placeholders in names are not replaced", driver("%1", "\"dll\"=\"%2\"") + driver("%2 %1", "\"dll\"=\"%1\""), "%1   %2.dll\n%2 %1   %1.dll\n");
    row("blanks in names are not removed", driver("  A  ", "\"dll\"=\" x \""), "  A      x .dll\n");
}

void deniedKeys()
{
    const auto row = [](const QString &name, const QByteArrayList &denied, const QString &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows(twoDrivers() + driver("C", "\"dll\"=\"z\""), deniedBelow(path, denied));
            COMPARE_TEXT(driverInfo(), heading + expected);
        });
    };
    row("the first driver: its name and three blanks", QByteArrayList {"A"}, "A   \nB   y.dll\nC   z.dll\n");
    row("a driver in the middle", QByteArrayList {"B"}, "A   x.dll\nB   \nC   z.dll\n");
    row("the last driver", QByteArrayList {"C"}, "A   x.dll\nB   y.dll\nC   \n");
    row("the key of all drivers: only the heading", QByteArrayList {""}, QString());
}

void textIsAppended()
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

void sectionWithoutOpenGL()
{
    const auto row = [](const QString &name, const QByteArray &registry, const QString &expected) {
        addTestRow(name, [=] {
            QVERIFY(!QGLFormat::hasOpenGL());
            const DescribedWindows windows(registry);
            COMPARE_TEXT(section(), sectionStart("0x0 not recognized") + expected);
            COMPARE_TEXT(section(), sectionStart("0x0 not recognized") + expected);
        });
    };
    row("no drivers", QByteArray(), QString());
    row("two drivers: the section ends after them", twoDrivers(), twoDriversText);
}

#ifdef SIMULATED_WINDOWS

/// Removes the replaced answers at the end of a row.
class Pretending
{
public:
    Pretending() = default;
    ~Pretending()
    {
        overlays::pretended.reset();
        version_flags::pretended.reset();
    }
    Pretending(const Pretending &) = delete;
    Pretending &operator=(const Pretending &) = delete;
};

void otherAlphabets()
{
    const auto row = [](const QString &name, const QByteArray &system, const QByteArray &registry, const QString &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows(registry, system);
            COMPARE_TEXT(driverInfo(), heading + expected);
            QCOMPARE(simulated::openHandles(), QStringList());
        });
    };
    const QByteArray western("{\"ansiCodePage\": 1252}");
    const QByteArray utf8("{\"ansiCodePage\": 65001}");
    row("a name that is not UTF-8 shows U+FFFD, and its key is not found", western, driver("\xc3\xa9", "\"dll\"=\"x\""), QString(QChar(0xfffd)) + "   \n");
    row("a library that is not UTF-8 shows U+FFFD", western, driver("A", "\"dll\"=\"\xc3\xa9\""), QStringLiteral("A   ") + QChar(0xfffd) + ".dll\n");
    row("a library in UTF-8", utf8, driver("A", "\"dll\"=\"\xc3\xa9\""), QStringLiteral("A   ") + QChar(0xe9) + ".dll\n");
    row("Quirk: a name in UTF-8 is shown, but its key is opened in Latin-1 and not found", utf8, driver("\xc3\xa9", "\"dll\"=\"x\""), QString(QChar(0xe9)) + "   \n");
}

void calls()
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

void failingCalls()
{
    const auto row = [](const QString &name, const QByteArray &call, int number, quint32 error, const QString &expected,
                        const QString &returned) {
        addTestRow(name, [=] {
            const DescribedWindows windows(twoDrivers());
            const auto fault = simulated::Fault::nthCall(call, std::size_t(number), error);
            QString info;
            QCOMPARE(ScanOpenGLInfo(nullptr).GetOpenGLDriverInfo(info), returned);
            COMPARE_TEXT(info, heading + expected);
            QCOMPARE(fault.hits(), std::size_t(1));
            QCOMPARE(simulated::openHandles(), QStringList());
            QCOMPARE(simulated::handleMisuses(), QStringList());
        });
    };

    const QByteArray open("RegOpenKeyExA");
    const QByteArray enumerate("RegEnumKeyA");
    const QByteArray close("RegCloseKey");
    const quint32 denied = ERROR_ACCESS_DENIED;
    const QString all(twoDriversText);
    const QString end = QStringLiteral("\n");

    row("the key cannot be opened", open, 0, denied, "", QString());
    row("the key opens without a handle", open, 0, quint32(ERROR_SUCCESS), "", QString());
    row("the first name cannot be read: no drivers", enumerate, 0, denied, "", end);
    row("the second name cannot be read: the list ends there", enumerate, 1, denied, "A   x.dll\n", end);
    row("the second name is too long: the list ends there", enumerate, 1, quint32(ERROR_MORE_DATA), "A   x.dll\n", end);
    row("the enumeration ends with another error", enumerate, 2, denied, all, end);
    row("the first driver cannot be opened", open, 1, denied, "A   \nB   y.dll\n", end);
    row("the second driver cannot be opened", open, 2, denied, "A   x.dll\nB   \n", end);
    row("the first driver opens without a handle", open, 1, quint32(ERROR_SUCCESS), "A   \nB   y.dll\n", end);
    row("the first library cannot be read", QByteArray("RegQueryValueExA"), 0, denied, "A   \nB   y.dll\n", end);
    row("the second library cannot be read: the first one is not repeated", QByteArray("RegQueryValueExA"), 1, denied, "A   x.dll\nB   \n", end);
    row("the first driver cannot be closed: the text is unchanged", close, 0, denied, all, end);
    row("the second driver cannot be closed: the text is unchanged", close, 1, denied, all, end);
    row("the key cannot be closed: the text is unchanged", close, 2, denied, all, end);
}

void flagsLine()
{
    const auto row = [](const QString &name, int flags, const QString &expected) {
        addTestRow(name, [=] {
            const Pretending pretending;
            version_flags::pretended = flags;
            const DescribedWindows windows(QByteArray {});
            COMPARE_TEXT(section(), sectionStart(expected));
        });
    };
    row("1.1 to 1.5", 0x1f, "0x1f OpenGL 1.5");
    row("lower-case digits", 0xabcde, "0xabcde OpenGL 4.3");
    row("ES", 0x800, "0x800 OpenGL ES 2.0");
    row("none", 0, "0x0 not recognized");
}

void overlaysLine()
{
    const auto row = [](const QString &name, bool hasOverlays, const QByteArray &shown) {
        addTestRow(name, [=] {
            const Pretending pretending;
            overlays::pretended = hasOverlays;
            const DescribedWindows windows(twoDrivers());
            COMPARE_TEXT(section(), sectionStart("0x0 not recognized", shown.constData()) + twoDriversText);
        });
    };
    row("none", false, QByteArray("0"));
    row("overlays without OpenGL: the section ends there too", true, QByteArray("1"));
}

void hostLocaleHasNoEffect()
{
    const Pretending pretending;
    overlays::pretended = true;
    version_flags::pretended = 0x12345;
    const DescribedWindows windows(twoDrivers());
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    const QString text = section();
    QLocale::setDefault(before);
    COMPARE_TEXT(text, sectionStart("0x12345 OpenGL 4.0", "1") + twoDriversText);
}

void sectionDoesNotUseTheCachedVersion()
{
    const DescribedWindows windows(QByteArray {});
    const Pretending pretending;
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

void addTests()
{
    addTestRows("text", text);
    addTestRows("deniedKeys", deniedKeys);
    addTestRow("textIsAppended", textIsAppended);
    addTestRows("sectionWithoutOpenGL", sectionWithoutOpenGL);
#ifdef SIMULATED_WINDOWS
    addTestRows("otherAlphabets", otherAlphabets);
    addTestRow("calls", calls);
    addTestRows("failingCalls", failingCalls);
    addTestRows("flagsLine", flagsLine);
    addTestRows("overlaysLine", overlaysLine);
    addTestRow("hostLocaleHasNoEffect", hostLocaleHasNoEffect);
    addTestRow("sectionDoesNotUseTheCachedVersion", sectionDoesNotUseTheCachedVersion);
#endif
}

} // namespace

TEST_WITH_APPLICATION(RowTest(addTests));
