// windowsVersionFromRegistry(): texts and calls.

#include "described_windows.h"
#include "registry_values.h"
#include "test_main.h"
#include "texts.h"
#include "win/windows_sections.h"

#ifdef SIMULATED_WINDOWS
#  include "journal_lines.h"
#  include <windows.h>
#endif

using namespace velkor::SystemInfo::WinSysInfo;

class WindowsVersionRegistryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void text_data();
    void text();
#ifdef SIMULATED_WINDOWS
    void workstation();
    void callsOfAFullMachine();
    void callsWithoutTheKey();
    void keysOfTheReportWithThe64BitView();
    void failingCalls_data();
    void failingCalls();
#endif
};

namespace {

const QString title = "Windows version information from Registry\n";

struct Value
{
    const char *name;
    const char *label;
    const char *text;
};

// In the order of the lines. All values start in column 25.
const Value values[] = {
    {"ProductId", "ProductId:              ", "00330-50000"},
    {"EditionID", "EditionID:              ", "Professional"},
    {"ReleaseId", "ReleaseId:              ", "2009"},
    {"DisplayVersion", "DisplayVersion:         ", "22H2"},
    {"PathName", "PathName:               ", "C:\\Windows"},
    {"ProductName", "ProductName:            ", "Windows 10 Pro"},
    {"RegisteredOwner", "RegisteredOwner:        ", "A. Example"},
    {"RegisteredOrganization", "RegisteredOrganization: ", "Example Inc."},
    {"CSDVersion", "CSDVersion:             ", "Service Pack 1"},
    {"CSDBuildNumber", "CSDBuildNumber:         ", "1130"},
};

QByteArray key()
{
    return machineKey("Software\\Microsoft\\Windows NT\\CurrentVersion");
}

QString line(const Value &value)
{
    return QString(value.label) + value.text + "\n";
}

/// Every value, the last of the report first.
QByteArray fullKey()
{
    QByteArray registry;
    for (const Value &value : values)
        registry.prepend(textValue(value.name, value.text));
    return key() + registry;
}

QStringList allLines()
{
    QStringList lines;
    for (const Value &value : values)
        lines += line(value);
    return lines;
}

void addRow(const char *name, const QByteArray &registryValues, const QString &lines)
{
    QTest::newRow(name) << key() + registryValues << title + lines;
}

void singleValueRows()
{
    for (const Value &value : values) {
        QTest::addRow("%s alone", value.name) << key() + textValue(value.name, value.text) << title + line(value);
        QTest::addRow("%s empty: its label and blanks", value.name)
            << key() + textValue(value.name, "") << title + value.label + "\n";
    }
}

void textRows()
{
    addRow("other values of the key are not shown", textValue("BuildLab", "19041.vb_release") + numberValue("UBR", 3803),
           "");
    addRow("placeholders stay",
           textValue("ProductId", "%1") + textValue("EditionID", "%2 %99") + textValue("ProductName", "%L1 %1"),
           "ProductId:              %1\nEditionID:              %2 %99\nProductName:            %L1 %1\n");
    addRow("a number: its bytes up to the first zero", numberValue("CSDBuildNumber", 0x00333231),
           "CSDBuildNumber:         123\n");
    addRow("a number of four bytes that are no zero stands in an empty buffer", numberValue("ProductId", 0x34333231),
           "ProductId:              1234\n");
    addRow("a number 0 is an empty text", numberValue("ReleaseId", 0), "ReleaseId:              \n");
    addRow("variables are not expanded", hexValue("PathName", 2, utf16Data(QString("%SystemRoot%") + QChar())),
           "PathName:               %SystemRoot%\n");
    addRow("the first string of a list", listValue("ProductName", {"one", "two"}), "ProductName:            one\n");
    addRow("UTF-8 bytes become their character", binaryValue("RegisteredOwner", "J\xc3\xb6rn"),
           QString("RegisteredOwner:        J") + QChar(0xf6) + "rn\n");
    addRow("a byte of the ANSI code page becomes U+FFFD", binaryValue("RegisteredOwner", "J\xf6rn"),
           QString("RegisteredOwner:        J") + QChar(0xfffd) + "rn\n");
    addRow("names without regard to case", textValue("PRODUCTNAME", "Windows"), "ProductName:            Windows\n");
}

// One buffer for all values, never cleared.
void bufferRows()
{
    addRow("a text without terminator goes on in the one before it",
           textValue("ProductId", "00330-50000") + binaryValue("EditionID", "Pro"),
           "ProductId:              00330-50000\nEditionID:              Pro30-50000\n");
    addRow("a number of four bytes that are no zero goes on in the one before it",
           textValue("ProductId", "00330-50000") + numberValue("CSDBuildNumber", 0x34333231),
           "ProductId:              00330-50000\nCSDBuildNumber:         12340-50000\n");
    addRow("a text of zero bytes shows the one before it",
           textValue("RegisteredOwner", "A. Example") + hexValue("RegisteredOrganization", 1, ""),
           "RegisteredOwner:        A. Example\nRegisteredOrganization: A. Example\n");
    addRow("an empty text ends the buffer for the next one",
           textValue("ProductId", "00330-50000") + textValue("EditionID", "") + hexValue("ReleaseId", 1, ""),
           "ProductId:              00330-50000\nEditionID:              \nReleaseId:              \n");
    addRow("REG_SZ without terminator gets one",
           textValue("ProductId", "00330-50000") + hexValue("EditionID", 1, utf16Data("Pro")),
           "ProductId:              00330-50000\nEditionID:              Pro\n");
}

void sizeRows()
{
    addRow("a text of 2048 bytes without terminator is shown whole", binaryValue("CSDVersion", QByteArray(2048, 'x')),
           "CSDVersion:             " + QString(2048, 'x') + "\n");
    addRow("2047 characters and the terminator fit", textValue("CSDVersion", QString(2047, 'x')),
           "CSDVersion:             " + QString(2047, 'x') + "\n");
    addRow("2048 characters and the terminator do not: no line, the next value is tried",
           textValue("CSDVersion", QString(2048, 'x')) + textValue("CSDBuildNumber", "1130"),
           "CSDBuildNumber:         1130\n");
}

} // namespace

void WindowsVersionRegistryTest::text_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no key: the title alone") << QByteArray() << title;
    QTest::newRow("an empty key: the title alone") << key() << title;
    QTest::newRow("everything, in the order of the report") << fullKey() << title + allLines().join(QString());
    singleValueRows();
    textRows();
    bufferRows();
    sizeRows();
}

void WindowsVersionRegistryTest::text()
{
    QFETCH(QByteArray, registry);
    QFETCH(QString, expected);
    const DescribedWindows windows(registry);
    COMPARE_TEXT(windowsVersionFromRegistry(), expected);
}

#ifdef SIMULATED_WINDOWS

namespace {

const QString openLine = "RegOpenKeyExA HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows NT\\CurrentVersion 0x20119";

} // namespace

// The owner's name has a character that the ANSI code page holds and UTF-8 does not.
void WindowsVersionRegistryTest::workstation()
{
    const DescribedWindows windows(DescribedWindows::load("workstation"));
    COMPARE_TEXT(windowsVersionFromRegistry(),
                 title + "ProductId:              00330-50000-00000-AAOEM\n"
                         "EditionID:              Professional\n"
                         "ReleaseId:              2009\n"
                         "DisplayVersion:         22H2\n"
                         "PathName:               C:\\Windows\n"
                         "ProductName:            Windows 10 Pro\n"
                         "RegisteredOwner:        J"
                     + QChar(0xfffd) + "rn Lindmoor\n"
                                       "RegisteredOrganization: Birkental Anlagenbau GmbH\n");
}

void WindowsVersionRegistryTest::callsOfAFullMachine()
{
    const DescribedWindows windows(fullKey());
    windowsVersionFromRegistry();
    QStringList expected(openLine);
    for (const Value &value : values)
        expected += QString("RegQueryValueExA ") + value.name + " 2048";
    expected += "RegCloseKey";
    QCOMPARE(journalLines(), expected);
    QCOMPARE(simulated::openHandles(), QStringList());
    QCOMPARE(simulated::handleMisuses(), QStringList());
}

void WindowsVersionRegistryTest::callsWithoutTheKey()
{
    const DescribedWindows windows("");
    windowsVersionFromRegistry();
    QCOMPARE(journalLines(), QStringList(openLine));
}

// Three keys of the whole Windows half; every other one is opened without the flag.
void WindowsVersionRegistryTest::keysOfTheReportWithThe64BitView()
{
    const DescribedWindows windows(DescribedWindows::load("workstation"));
    allWinInfos();
    QStringList with64BitView;
    int others = 0;
    for (const simulated::Call &call : simulated::journal()) {
        if (!call.name.startsWith("RegOpenKey"))
            continue;
        if (call.access == 0x20119) {
            with64BitView += call.key;
        } else {
            QCOMPARE(call.access, 0x20019u);
            ++others;
        }
    }
    QCOMPARE(with64BitView,
             QStringList({"HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion",
                          "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows NT\\CurrentVersion",
                          "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\OEMInformation"}));
    QVERIFY(others > 0);
}

void WindowsVersionRegistryTest::failingCalls_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the key does not open") << QByteArray("RegOpenKeyExA") << 0 << title;
    int number = 0;
    for (const Value &value : values) {
        QStringList lines = allLines();
        lines.removeAt(number);
        QTest::addRow("%s cannot be read", value.name)
            << QByteArray("RegQueryValueExA") << number << title + lines.join(QString());
        ++number;
    }
    QTest::newRow("the key does not close: nothing shows")
        << QByteArray("RegCloseKey") << 0 << title + allLines().join(QString());
}

void WindowsVersionRegistryTest::failingCalls()
{
    QFETCH(QByteArray, call);
    QFETCH(int, number);
    QFETCH(QString, expected);
    const DescribedWindows windows(fullKey());
    const simulated::Fault fault = simulated::Fault::nthCall(call, std::size_t(number), ERROR_ACCESS_DENIED);
    COMPARE_TEXT(windowsVersionFromRegistry(), expected);
    QCOMPARE(fault.hits(), std::size_t(1));
    QCOMPARE(simulated::openHandles(), QStringList());
}

#endif

TEST_WITH_CORE_APPLICATION(WindowsVersionRegistryTest);
#include "tst_windows_version_registry.moc"
