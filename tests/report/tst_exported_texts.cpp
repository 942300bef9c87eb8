// The texts that the exported functions return stay valid after the library is unloaded: no text
// refers to the static data of a literal.

#include "described_windows.h"
#include "simulated_windows.h"
#include "test_main.h"
#include "version_flags.h"
#include "vkSystemInfo.h"

#include <QtCore/QFile>
#include <QtTest/QtTest>
#include <QtWidgets/QApplication>
#include <algorithm>
#include <dlfcn.h>
#include <windows.h>

using namespace velkor::SystemInfo;

class ExportedTextsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void literalIsDetected();
    void everyExportIsListed();
    void onMachines_data();
    void onMachines();
    void whileACallFails_data();
    void whileACallFails();
    void platformNames_data();
    void platformNames();
    void openGLVersions_data();
    void openGLVersions();
};

namespace {

QString noText()
{
    int patch = 0;
    int minor = 0;
    int major = 0;
    libVersion(patch, minor, major);
    return QString();
}

template <bool (*check)(int &, QString &)>
QString versionFoundBy()
{
    int error = 0;
    QString version;
    check(error, version);
    return version;
}

struct Export
{
    const char *name; // its line in exports.txt
    QString (*text)();
};

constexpr char cached[] = "velkor::SystemInfo::ScanOpenGLInfo::GetOpenGLVersionCached()";
constexpr char report[] = "velkor::SystemInfo::allInfos(bool)";

const Export exports[] = {
    {"velkor::SystemInfo::ScanOpenGLInfo::GetOpenGLVersion()", [] { return ScanOpenGLInfo::GetOpenGLVersion().strVersion; }},
    {cached, [] { return ScanOpenGLInfo::GetOpenGLVersionCached().strVersion; }},
    {"velkor::SystemInfo::WinSysInfo::checkStandardBonjour(int&, QString&)", versionFoundBy<WinSysInfo::checkStandardBonjour>},
    {"velkor::SystemInfo::WinSysInfo::checkVelkorBonjour(int&, QString&)", versionFoundBy<WinSysInfo::checkVelkorBonjour>},
    {report, [] { return allInfos(false); }},
    {"velkor::SystemInfo::libVersion(int&, int&, int&)", noText},
    {"velkor::SystemInfo::libVersionString()", libVersionString},
    {"velkor::SystemInfo::platformName()", platformName},
    {"velkor::SystemInfo::qtAccessibility()", qtAccessibility},
    {"velkor::SystemInfo::qtCoreApplication()", qtCoreApplication},
    {"velkor::SystemInfo::qtDateTime()", qtDateTime},
    {"velkor::SystemInfo::qtDesktop()", qtDesktop},
    {"velkor::SystemInfo::qtDesktopServices()", qtDesktopServices},
    {"velkor::SystemInfo::qtGlobal()", qtGlobal},
    {"velkor::SystemInfo::qtHostInfo()", qtHostInfo},
    {"velkor::SystemInfo::qtLocale()", qtLocale},
    {"velkor::SystemInfo::qtPrinterInfo()", qtPrinterInfo},
    {"velkor::SystemInfo::qtScreens()", qtScreens},
    {"velkor::SystemInfo::qtSystemEnvironment()", qtSystemEnvironment},
    {"velkor::SystemInfo::separator()", separator},
};

const Export &exportNamed(const QByteArray &name)
{
    return *std::find_if(std::begin(exports), std::end(exports), [&](const Export &each) { return name == each.name; });
}

/// The file name of the program or library that \a address is in; empty if there is none.
QByteArray moduleAt(const void *address)
{
    Dl_info info = {};
    return dladdr(address, &info) ? QByteArray(info.dli_fname) : QByteArray();
}

/// moduleAt() for the data of \a text. Empty for Qt's shared data of empty texts.
QByteArray moduleOf(const QString &text)
{
    const QByteArray module = moduleAt(text.constData());
    return text.isEmpty() && module == moduleAt(QString().constData()) ? QByteArray() : module;
}

QByteArray version(int major, int minor)
{
    return QStringLiteral("{\"GetVersionEx\": {\"dwMajorVersion\": %1, \"dwMinorVersion\": %2, \"wProductType\": 1}}")
        .arg(major)
        .arg(minor)
        .toLatin1();
}

} // namespace

// GetOpenGLVersionCached() keeps the result of its first call. Let that call find no OpenGL.
void ExportedTextsTest::initTestCase()
{
    version_flags::pretended = 0;
    QCOMPARE(exportNamed(cached).text(), QStringLiteral("not recognized"));
    version_flags::pretended.reset();
}

void ExportedTextsTest::literalIsDetected()
{
    const QString literal = QStringLiteral("a literal");
    const QString emptyLiteral = QStringLiteral("");
    QVERIFY(moduleOf(literal).endsWith("test_exported_texts"));
    QVERIFY(moduleOf(emptyLiteral).endsWith("test_exported_texts"));
    QCOMPARE(moduleOf(QString::fromRawData(literal.constData(), 2)), moduleOf(literal));
    QCOMPARE(moduleOf(QString::fromLatin1("a copy")), QByteArray());
    QCOMPARE(moduleOf(QString()), QByteArray());
    QCOMPARE(moduleOf(QString::fromLatin1("")), QByteArray());
}

void ExportedTextsTest::everyExportIsListed()
{
    QFile file(QStringLiteral(EXPORTS_FILE));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QByteArray listed;
    for (const Export &each : exports)
        listed += QByteArray(each.name) + '\n';
    QCOMPARE(listed, file.readAll());
}

void ExportedTextsTest::onMachines_data()
{
    QTest::addColumn<QByteArray>("function");
    for (const Export &each : exports)
        QTest::newRow(each.name) << QByteArray(each.name);
}

void ExportedTextsTest::onMachines()
{
    QFETCH(QByteArray, function);
    for (const QByteArray name : {"workstation", "wine", "no machine"}) {
        const DescribedWindows windows(name == "no machine" ? machine::Machine()
                                                            : DescribedWindows::load(QString::fromLatin1(name)));
        QCOMPARE(name + ": " + moduleOf(exportNamed(function).text()), name + ": ");
    }
}

// Without allInfos(): it makes thousands of calls and consists of the other texts.
void ExportedTextsTest::whileACallFails_data()
{
    QTest::addColumn<QByteArray>("function");
    for (const Export &each : exports) {
        if (each.name != report)
            QTest::newRow(each.name) << QByteArray(each.name);
    }
}

void ExportedTextsTest::whileACallFails()
{
    QFETCH(QByteArray, function);
    std::size_t hits = 1;
    for (std::size_t number = 0; hits > 0; ++number) {
        const DescribedWindows windows(DescribedWindows::load(QStringLiteral("workstation")));
        const simulated::Fault fault = simulated::Fault::nthOfAll(number, ERROR_ACCESS_DENIED);
        const QString text = exportNamed(function).text();
        hits = fault.hits();
        QVERIFY2(moduleOf(text).isEmpty(), qPrintable(QStringLiteral("call %1 fails: ").arg(number) + text));
    }
}

void ExportedTextsTest::platformNames_data()
{
    QTest::addColumn<QByteArray>("system");
    QTest::addColumn<QString>("start");
    const auto row = [](int major, int minor, const char *start) {
        QTest::addRow("%d.%d", major, minor) << version(major, minor) << QString::fromLatin1(start);
    };
    QTest::newRow("no version") << QByteArray("{}") << QStringLiteral("Windows");
    row(3, 1, "Windows unknown major version");
    row(4, 0, "Windows 95 ");
    row(4, 4, "Windows NT Workstation ");
    row(4, 10, "Windows 98 ");
    row(4, 90, "Windows Me ");
    row(4, 1, "Windows unkown minor version for major=4");
    row(5, 0, "Windows 2000 Professional , 64-bit");
    row(5, 1, "Windows XP Professional, 64-bit");
    row(5, 2, "Windows XP Professional x64 Edition , 64-bit");
    row(5, 3, "Windows unknown minor version for major=5, 64-bit");
    row(6, 0, "Windows Vista ");
    row(6, 1, "Windows 7 ");
    row(6, 2, "Windows ");
    row(6, 3, "Windows unknown minor version for major=6");
    row(10, 0, "Windows unknown major version");
}

void ExportedTextsTest::platformNames()
{
    QFETCH(QByteArray, system);
    QFETCH(QString, start);
    const DescribedWindows windows(QByteArray(), system);
    const QString name = platformName();
    QVERIFY2(name.startsWith(start), qPrintable(name));
    QCOMPARE(moduleOf(name), QByteArray());
}

void ExportedTextsTest::openGLVersions_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<QString>("name");
    QTest::newRow("a desktop version") << 0x80000 << "OpenGL 4.3";
    QTest::newRow("a version of OpenGL ES") << 0x100 << "OpenGL ES Common Lite 1.0";
    QTest::newRow("a flag that is not in the table") << 0x100000 << "not recognized";
    QTest::newRow("no flag") << 0 << "not recognized";
}

void ExportedTextsTest::openGLVersions()
{
    QFETCH(int, flags);
    QFETCH(QString, name);
    version_flags::pretended = flags;
    const COpenGLVersionInfo info = ScanOpenGLInfo::GetOpenGLVersion();
    version_flags::pretended.reset();
    QCOMPARE(info.strVersion, name);
    QCOMPARE(moduleOf(info.strVersion), QByteArray());
}

TEST_WITH_APPLICATION(ExportedTextsTest);
#include "tst_exported_texts.moc"
