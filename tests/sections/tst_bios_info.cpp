// biosInfoFromRegistry(): texts and calls.

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

class BiosInfoTest : public QObject
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

const QString title = "BIOS information from Registry\n";

QByteArray key()
{
    return machineKey("Hardware\\Description\\System");
}

QByteArray fullKey()
{
    return key() + listValue("SystemBiosVersion", {"A", "B", "C"}) + textValue("SystemBIOSDate", "07/19/21")
        + listValue("VideoBiosVersion", {"V1", "V2"}) + textValue("VideoBIOSDate", "04/01/20");
}

const QString systemVersion = "SystemBiosVersion:     A\n"
                              "                       B\n"
                              "                       C\n";
const QString systemDate = "SystemBIOSDate:        07/19/21\n";
const QString videoVersion = "VideoBiosVersion:      V1\n"
                             "                       V2\n";
const QString videoDate = "VideoBIOSDate:         04/01/20\n";

void addRow(const char *name, const QByteArray &values, const QString &lines)
{
    QTest::newRow(name) << key() + values << title + lines;
}

void listRows()
{
    addRow("three strings: continuation lines start with 23 blanks", listValue("SystemBiosVersion", {"A", "B", "C"}),
           systemVersion);
    addRow("three strings of the video BIOS", listValue("VideoBiosVersion", {"A", "B", "C"}),
           "VideoBiosVersion:      A\n                       B\n                       C\n");
    addRow("one string: no continuation line", listValue("SystemBiosVersion", {"A"}), "SystemBiosVersion:     A\n");
    addRow("first string empty: the label and a line break", listValue("SystemBiosVersion", {"", "A"}),
           "SystemBiosVersion:     \n");
    addRow("first string of the video BIOS empty", listValue("VideoBiosVersion", {"", "A"}),
           "VideoBiosVersion:      \n");
    addRow("no string at all", listValue("SystemBiosVersion", {}), "SystemBiosVersion:     \n");
    addRow("data of zero bytes: the label and a line break", hexValue("SystemBiosVersion", 7, ""),
           "SystemBiosVersion:     \n");
    addRow("an empty string inside cuts the list short", listValue("SystemBiosVersion", {"A", "", "C"}),
           "SystemBiosVersion:     A\n");
    addRow("a list without its last terminators", hexValue("SystemBiosVersion", 7, utf16Data(QString("A") + QChar() + "B")),
           "SystemBiosVersion:     A\n                       B\n");
    addRow("a list stored as binary data without terminator", binaryValue("SystemBiosVersion", QByteArray("A\0B", 3)),
           "SystemBiosVersion:     A\n                       B\n");
    addRow("a list stored as a plain text", textValue("SystemBiosVersion", "AMI 1.0"),
           "SystemBiosVersion:     AMI 1.0\n");
    addRow("a list stored as a number: its bytes", numberValue("SystemBiosVersion", 0x00420041),
           "SystemBiosVersion:     A\n                       B\n");
}

void valueRows()
{
    addRow("the system's date alone", textValue("SystemBIOSDate", "07/19/21"), systemDate);
    addRow("the video BIOS's date alone", textValue("VideoBIOSDate", "04/01/20"), videoDate);
    addRow("an empty date: its label and blanks", textValue("SystemBIOSDate", ""), "SystemBIOSDate:        \n");
    addRow("a date stored as a number: its bytes", numberValue("SystemBIOSDate", 0x00333231),
           "SystemBIOSDate:        123\n");
    addRow("a date ends at its first null", binaryValue("SystemBIOSDate", QByteArray("07\0/19", 6)),
           "SystemBIOSDate:        07\n");
    addRow("placeholders in texts stay",
           listValue("SystemBiosVersion", {"%1 %2", "%99", "%L1"}) + textValue("SystemBIOSDate", "%1 %2 %99 %L1"),
           "SystemBiosVersion:     %1 %2\n                       %99\n                       %L1\n"
           "SystemBIOSDate:        %1 %2 %99 %L1\n");
    addRow("UTF-8 bytes become their character", binaryValue("SystemBIOSDate", "\xc3\xa9"),
           QString("SystemBIOSDate:        ") + QChar(0xe9) + '\n');
    addRow("a byte of the ANSI code page becomes U+FFFD", binaryValue("SystemBIOSDate", "\xe9!"),
           QString("SystemBIOSDate:        ") + QChar(0xfffd) + "!\n");
    addRow("strings of a list as UTF-8", binaryValue("SystemBiosVersion", QByteArray("\xc3\xa9\0\xe9!", 5)),
           QString("SystemBiosVersion:     ") + QChar(0xe9) + "\n                       " + QChar(0xfffd) + "!\n");
    addRow("names without regard to case", textValue("SYSTEMBIOSDATE", "07/19/21"), systemDate);
}

void sizeRows()
{
    const QByteArray longest(2048, 'x');
    addRow("a text of 2048 bytes without terminator is shown whole", binaryValue("SystemBIOSDate", longest),
           "SystemBIOSDate:        " + QString(longest) + '\n');
    addRow("a list of 2048 bytes without terminator is shown whole", binaryValue("SystemBiosVersion", longest),
           "SystemBiosVersion:     " + QString(longest) + '\n');
    addRow("2047 characters and the terminator fit", textValue("SystemBIOSDate", QString(2047, 'x')),
           "SystemBIOSDate:        " + QString(2047, 'x') + '\n');
    addRow("2048 characters and the terminator do not: no line, the next value is tried",
           textValue("SystemBIOSDate", QString(2048, 'x')) + textValue("VideoBIOSDate", "04/01/20"), videoDate);
    addRow("a list of 2049 bytes has no line",
           binaryValue("SystemBiosVersion", longest + 'x') + textValue("VideoBIOSDate", "04/01/20"), videoDate);
}

// One buffer for all values, never cleared.
void bufferRows()
{
    addRow("a date without terminator ends where the list before it does",
           listValue("SystemBiosVersion", {"A", "B", "C"}) + binaryValue("SystemBIOSDate", "07"),
           systemVersion + "SystemBIOSDate:        07B\n");
    addRow("a list without terminator goes on in the date before it",
           textValue("SystemBIOSDate", "07/19/21") + binaryValue("VideoBiosVersion", "X"),
           systemDate + "VideoBiosVersion:      X7/19/21\n");
    addRow("a list of zero bytes does not look at the buffer",
           textValue("SystemBIOSDate", "07/19/21") + hexValue("VideoBiosVersion", 7, ""),
           systemDate + "VideoBiosVersion:      \n");
    addRow("a date of zero bytes shows the text before it",
           listValue("VideoBiosVersion", {"V1", "V2"}) + hexValue("VideoBIOSDate", 1, ""),
           videoVersion + "VideoBIOSDate:         V1\n");
    addRow("a value too long for the buffer leaves it as it was",
           textValue("SystemBIOSDate", "07/19/21") + binaryValue("VideoBiosVersion", QByteArray(2049, 'x'))
               + binaryValue("VideoBIOSDate", "04"),
           systemDate + "VideoBIOSDate:         04/19/21\n");
}

} // namespace

void BiosInfoTest::text_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no key: the title alone") << QByteArray() << title;
    QTest::newRow("an empty key: the title alone") << key() << title;
    QTest::newRow("everything") << fullKey() << title + systemVersion + systemDate + videoVersion + videoDate;
    listRows();
    valueRows();
    sizeRows();
    bufferRows();
}

void BiosInfoTest::text()
{
    QFETCH(QByteArray, registry);
    QFETCH(QString, expected);
    const DescribedWindows windows(registry);
    COMPARE_TEXT(biosInfoFromRegistry(), expected);
}

void BiosInfoTest::workstation()
{
    const DescribedWindows windows(DescribedWindows::load("workstation"));
    COMPARE_TEXT(biosInfoFromRegistry(),
                 title + "SystemBiosVersion:     FUJ    - 1072009\n"
                         "                       V5.0.0.12 R1.31.0 for D3601-A1x\n"
                         "                       FUJITSU // American Megatrends Inc. - 5000C\n"
                         "SystemBIOSDate:        07/19/21\n"
                         "VideoBiosVersion:      Hardware Version 0.0\n"
                         "                       VER015.050.002.001.000000\n");
}

#ifdef SIMULATED_WINDOWS

// What a text becomes on its way depends on the machine's ANSI code page.
void BiosInfoTest::ansiText()
{
    const DescribedWindows windows(key() + textValue("SystemBIOSDate", QString("M") + QChar(0xe4) + "rz"));
    COMPARE_TEXT(biosInfoFromRegistry(), title + "SystemBIOSDate:        M" + QChar(0xfffd) + "rz\n");
}

void BiosInfoTest::callsOfAFullMachine()
{
    const DescribedWindows windows(fullKey());
    biosInfoFromRegistry();
    QCOMPARE(
        journalLines(),
        QStringList({"RegOpenKeyExA HKEY_LOCAL_MACHINE\\Hardware\\Description\\System 0x20019",
                     "RegQueryValueExA SystemBiosVersion 2048", "RegQueryValueExA SystemBIOSDate 2048",
                     "RegQueryValueExA VideoBiosVersion 2048", "RegQueryValueExA VideoBIOSDate 2048", "RegCloseKey"}));
    QCOMPARE(simulated::openHandles(), QStringList());
    QCOMPARE(simulated::handleMisuses(), QStringList());
}

void BiosInfoTest::callsWithoutTheKey()
{
    const DescribedWindows windows("");
    biosInfoFromRegistry();
    QCOMPARE(journalLines(), QStringList("RegOpenKeyExA HKEY_LOCAL_MACHINE\\Hardware\\Description\\System 0x20019"));
}

void BiosInfoTest::failingCalls_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("expected");
    const QByteArray query("RegQueryValueExA");
    QTest::newRow("the key does not open") << QByteArray("RegOpenKeyExA") << 0 << title;
    QTest::newRow("the version cannot be read") << query << 0 << title + systemDate + videoVersion + videoDate;
    QTest::newRow("the date cannot be read") << query << 1 << title + systemVersion + videoVersion + videoDate;
    QTest::newRow("the video version cannot be read") << query << 2 << title + systemVersion + systemDate + videoDate;
    QTest::newRow("the video date cannot be read") << query << 3 << title + systemVersion + systemDate + videoVersion;
    QTest::newRow("the key does not close: nothing shows")
        << QByteArray("RegCloseKey") << 0 << title + systemVersion + systemDate + videoVersion + videoDate;
}

void BiosInfoTest::failingCalls()
{
    QFETCH(QByteArray, call);
    QFETCH(int, number);
    QFETCH(QString, expected);
    const DescribedWindows windows(fullKey());
    const simulated::Fault fault = simulated::Fault::nthCall(call, std::size_t(number), ERROR_ACCESS_DENIED);
    COMPARE_TEXT(biosInfoFromRegistry(), expected);
    QCOMPARE(fault.hits(), std::size_t(1));
    QCOMPARE(simulated::openHandles(), QStringList());
}

#endif

TEST_WITH_CORE_APPLICATION(BiosInfoTest);
#include "tst_bios_info.moc"
