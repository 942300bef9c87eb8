// systemInformationFromRegistry(): texts and calls.

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

class SystemInformationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void text_data();
    void text();
    void workstation();
#ifdef SIMULATED_WINDOWS
    void ansiText();
    void callsOfAFullMachine();
    void callsWithoutTheKey();
    void failingCalls_data();
    void failingCalls();
#endif
};

namespace {

const QString title = "SystemInformation from Registry\n";

QByteArray key()
{
    return machineKey("SYSTEM\\CurrentControlSet\\Control\\SystemInformation");
}

QByteArray fullKey()
{
    return key() + numberValue("InformationSource", 1) + textValue("SystemProductName", "Example 500")
        + textValue("SystemManufacturer", "Example Inc.") + textValue("BIOSVersion", "V5.0")
        + textValue("BIOSReleaseDate", "07/19/2021");
}

const QStringList allLines = {
    "BIOSReleaseDate:     07/19/2021\n",
    "BIOSVersion:         V5.0\n",
    "SystemManufacturer:  Example Inc.\n",
    "SystemProductName:   Example 500\n",
    "InformationSource:   1 \n",
};

void addRow(const char *name, const QByteArray &values, const QString &lines)
{
    QTest::newRow(name) << key() + values << title + lines;
}

void singleValueRows()
{
    addRow("the BIOS date alone", textValue("BIOSReleaseDate", "07/19/2021"), "BIOSReleaseDate:     07/19/2021\n");
    addRow("the BIOS version alone", textValue("BIOSVersion", "V5.0"), "BIOSVersion:         V5.0\n");
    addRow("the maker alone", textValue("SystemManufacturer", "Example Inc."), "SystemManufacturer:  Example Inc.\n");
    addRow("the product alone", textValue("SystemProductName", "Example 500"), "SystemProductName:   Example 500\n");
    addRow("the source alone", numberValue("InformationSource", 1), "InformationSource:   1 \n");
    addRow("an empty text: its label and blanks", textValue("BIOSVersion", ""), "BIOSVersion:         \n");
}

void numberRows()
{
    const auto row = [](const char *name, quint32 number, const char *shown) {
        addRow(name, numberValue("InformationSource", number), QString("InformationSource:   ") + shown + " \n");
    };
    row("source 0", 0, "0");
    row("the source is signed", 0xffffffc4, "-60");
    row("largest source", 0x7fffffff, "2147483647");
    row("smallest source", 0x80000000, "-2147483648");
    addRow("a source of two bytes", binaryValue("InformationSource", "\x02\x01"), "InformationSource:   258 \n");
    addRow("a source of eight bytes has no line", binaryValue("InformationSource", QByteArray(8, '\0')), "");
    addRow("a source stored as text: its bytes", textValue("InformationSource", "1"), "InformationSource:   49 \n");
}

void textRows()
{
    addRow("placeholders stay",
           textValue("BIOSReleaseDate", "%1") + textValue("BIOSVersion", "%2") + textValue("SystemManufacturer", "%99")
               + textValue("SystemProductName", "%L1 %1"),
           "BIOSReleaseDate:     %1\nBIOSVersion:         %2\nSystemManufacturer:  %99\nSystemProductName:   %L1 %1\n");
    addRow("a byte of the ANSI code page becomes U+FFFD", binaryValue("SystemManufacturer", "B\xfcro"),
           QString("SystemManufacturer:  B") + QChar(0xfffd) + "ro\n");
    addRow("a line break in a text stays", textValue("SystemProductName", "one\ntwo"), "SystemProductName:   one\ntwo\n");
    addRow("a text of 2048 bytes without terminator is shown whole",
           binaryValue("BIOSVersion", QByteArray(2048, 'x')), "BIOSVersion:         " + QString(2048, 'x') + "\n");
    addRow("a text of 2049 bytes has no line, the next value is tried",
           binaryValue("BIOSVersion", QByteArray(2049, 'x')) + textValue("SystemManufacturer", "Example Inc."),
           "SystemManufacturer:  Example Inc.\n");
}

// One buffer for the texts, never cleared.
void bufferRows()
{
    addRow("a text without terminator goes on in the one before it",
           textValue("BIOSReleaseDate", "07/19/2021") + binaryValue("BIOSVersion", "V5"),
           "BIOSReleaseDate:     07/19/2021\nBIOSVersion:         V5/19/2021\n");
    addRow("a text of zero bytes shows the one before it",
           textValue("SystemManufacturer", "Example Inc.") + binaryValue("SystemProductName", ""),
           "SystemManufacturer:  Example Inc.\nSystemProductName:   Example Inc.\n");
    addRow("a value that is missing leaves the buffer as it was",
           textValue("BIOSReleaseDate", "07/19/2021") + binaryValue("SystemProductName", "P"),
           "BIOSReleaseDate:     07/19/2021\nSystemProductName:   P7/19/2021\n");
    addRow("REG_SZ without terminator gets one",
           textValue("BIOSReleaseDate", "07/19/2021") + hexValue("BIOSVersion", 1, utf16Data("V5")),
           "BIOSReleaseDate:     07/19/2021\nBIOSVersion:         V5\n");
    addRow("the source has a variable of its own",
           textValue("SystemProductName", "Example 500") + binaryValue("InformationSource", ""),
           "SystemProductName:   Example 500\nInformationSource:   0 \n");
}

} // namespace

void SystemInformationTest::text_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no key: the title alone") << QByteArray() << title;
    QTest::newRow("an empty key: the title alone") << key() << title;
    QTest::newRow("everything, in the order of the report") << fullKey() << title + allLines.join(QString());
    singleValueRows();
    numberRows();
    textRows();
    bufferRows();
}

void SystemInformationTest::text()
{
    QFETCH(QByteArray, registry);
    QFETCH(QString, expected);
    const DescribedWindows windows(registry);
    COMPARE_TEXT(systemInformationFromRegistry(), expected);
}

void SystemInformationTest::workstation()
{
    const DescribedWindows windows(DescribedWindows::load("workstation"));
    COMPARE_TEXT(systemInformationFromRegistry(), title + "BIOSReleaseDate:     07/19/2021\n"
                                                          "BIOSVersion:         V5.0.0.12 R1.31.0 for D3601-A1x\n"
                                                          "SystemManufacturer:  FUJITSU\n"
                                                          "SystemProductName:   ESPRIMO P757\n"
                                                          "InformationSource:   1 \n");
}

#ifdef SIMULATED_WINDOWS

namespace {

const QString openLine
    = "RegOpenKeyExA HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\SystemInformation 0x20019";

} // namespace

// What a text becomes on its way depends on the machine's ANSI code page.
void SystemInformationTest::ansiText()
{
    const DescribedWindows windows(key() + textValue("SystemManufacturer", QString("B") + QChar(0xfc) + "ro"));
    COMPARE_TEXT(systemInformationFromRegistry(), title + "SystemManufacturer:  B" + QChar(0xfffd) + "ro\n");
}

void SystemInformationTest::callsOfAFullMachine()
{
    const DescribedWindows windows(fullKey());
    systemInformationFromRegistry();
    QCOMPARE(journalLines(),
             QStringList({openLine, "RegQueryValueExA BIOSReleaseDate 2048", "RegQueryValueExA BIOSVersion 2048",
                          "RegQueryValueExA SystemManufacturer 2048", "RegQueryValueExA SystemProductName 2048",
                          "RegQueryValueExA InformationSource 4", "RegCloseKey"}));
    QCOMPARE(simulated::openHandles(), QStringList());
    QCOMPARE(simulated::handleMisuses(), QStringList());
}

void SystemInformationTest::callsWithoutTheKey()
{
    const DescribedWindows windows("");
    systemInformationFromRegistry();
    QCOMPARE(journalLines(), QStringList(openLine));
}

void SystemInformationTest::failingCalls_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the key does not open") << QByteArray("RegOpenKeyExA") << 0 << title;
    for (int i = 0; i < allLines.size(); ++i) {
        QStringList lines = allLines;
        lines.removeAt(i);
        QTest::addRow("query %d fails: its line alone is missing", i)
            << QByteArray("RegQueryValueExA") << i << title + lines.join(QString());
    }
    QTest::newRow("the key does not close: nothing shows")
        << QByteArray("RegCloseKey") << 0 << title + allLines.join(QString());
}

void SystemInformationTest::failingCalls()
{
    QFETCH(QByteArray, call);
    QFETCH(int, number);
    QFETCH(QString, expected);
    const DescribedWindows windows(fullKey());
    const simulated::Fault fault = simulated::Fault::nthCall(call, std::size_t(number), ERROR_ACCESS_DENIED);
    COMPARE_TEXT(systemInformationFromRegistry(), expected);
    QCOMPARE(fault.hits(), std::size_t(1));
    QCOMPARE(simulated::openHandles(), QStringList());
}

#endif

TEST_WITH_CORE_APPLICATION(SystemInformationTest);
#include "tst_system_information.moc"
