// oemInfoFromRegistry(): texts and calls.

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

class OemInfoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void text_data();
    void text();
#ifdef SIMULATED_WINDOWS
    void version_data();
    void version();
    void workstation();
    void ansiText();
    void callsOfAFullMachine();
    void callsWithoutTheKey();
    void callsOfAnOldWindows();
    void theKeyStaysOpen();
    void failingCalls_data();
    void failingCalls();
#endif
};

namespace {

const QString title = "OEM Information from Registry\n";

// The first that has the key; a real Windows that runs these tests is not older.
const QByteArray windows6 = R"({"GetVersionEx": {"dwMajorVersion": 6}})";

QByteArray key()
{
    return machineKey("SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\OEMInformation");
}

QByteArray fullKey()
{
    return key() + textValue("Model", "Example 500") + textValue("Manufacturer", "Example Inc.");
}

const QString maker = "Manufacturer:     Example Inc.\n";
const QString model = "Model:     Example 500\n";

void addRow(const char *name, const QByteArray &values, const QString &lines)
{
    QTest::newRow(name) << key() + values << title + lines;
}

void valueRows()
{
    addRow("the maker alone", textValue("Manufacturer", "Example Inc."), maker);
    addRow("the maker is missing: the model stands", textValue("Model", "Example 500"), model);
    addRow("empty texts: their labels and blanks", textValue("Manufacturer", "") + textValue("Model", ""),
           "Manufacturer:     \nModel:     \n");
    addRow("other values of the key are not shown",
           textValue("Logo", "logo.bmp") + textValue("SupportURL", "https://example.test")
               + textValue("Model", "Example 500"),
           model);
    addRow("placeholders stay", textValue("Manufacturer", "%1 %2") + textValue("Model", "%99 %L1"),
           "Manufacturer:     %1 %2\nModel:     %99 %L1\n");
    addRow("a number: its bytes", numberValue("Model", 0x00333231), "Model:     123\n");
    addRow("UTF-8 bytes become their character", binaryValue("Manufacturer", "B\xc3\xbcro"),
           QString("Manufacturer:     B") + QChar(0xfc) + "ro\n");
    addRow("a byte of the ANSI code page becomes U+FFFD", binaryValue("Manufacturer", "B\xfcro"),
           QString("Manufacturer:     B") + QChar(0xfffd) + "ro\n");
}

void bufferRows()
{
    addRow("a model without terminator goes on in the maker",
           textValue("Manufacturer", "Example Inc.") + binaryValue("Model", "AB"), maker + "Model:     ABample Inc.\n");
    addRow("a model of zero bytes shows the maker",
           textValue("Manufacturer", "Example Inc.") + hexValue("Model", 1, ""), maker + "Model:     Example Inc.\n");
    addRow("a maker without terminator stands in an empty buffer", binaryValue("Manufacturer", "AB"),
           "Manufacturer:     AB\n");
    addRow("a maker of 2048 bytes without terminator is shown whole",
           binaryValue("Manufacturer", QByteArray(2048, 'x')), "Manufacturer:     " + QString(2048, 'x') + "\n");
    addRow("a maker of 2049 bytes has no line, the model is tried",
           binaryValue("Manufacturer", QByteArray(2049, 'x')) + textValue("Model", "Example 500"), model);
    addRow("a maker of 2049 bytes leaves the buffer empty",
           binaryValue("Manufacturer", QByteArray(2049, 'x')) + binaryValue("Model", "AB"), "Model:     AB\n");
}

} // namespace

void OemInfoTest::text_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no key: the title alone") << QByteArray() << title;
    QTest::newRow("an empty key: the title alone") << key() << title;
    QTest::newRow("everything, in the order of the report") << fullKey() << title + maker + model;
    valueRows();
    bufferRows();
}

void OemInfoTest::text()
{
    QFETCH(QByteArray, registry);
    QFETCH(QString, expected);
    const DescribedWindows windows(registry, windows6);
    COMPARE_TEXT(oemInfoFromRegistry(), expected);
}

#ifdef SIMULATED_WINDOWS

namespace {

const QString keyPath = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\OEMInformation";
const QString openLine = "RegOpenKeyExA " + keyPath + " 0x20119";

} // namespace

void OemInfoTest::version_data()
{
    QTest::addColumn<QByteArray>("system");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *version, const QString &lines) {
        QTest::newRow(name) << QByteArray("{\"GetVersionEx\": ") + version + "}" << title + lines;
    };
    row("no version: the only failure text", "null", "GetVersionExA(&osver) failed!\n");
    row("the version fails with an error", R"({"error": 5})", "GetVersionExA(&osver) failed!\n");
    row("major version 0: the title alone", "{}", "");
    row("major version 4: the title alone", R"({"dwMajorVersion": 4, "dwMinorVersion": 90})", "");
    row("major version 5: the title alone", R"({"dwMajorVersion": 5, "dwMinorVersion": 2})", "");
    row("major version 6", R"({"dwMajorVersion": 6})", maker + model);
    row("major version 10", R"({"dwMajorVersion": 10})", maker + model);
    row("the major version is unsigned", R"({"dwMajorVersion": "0x80000000"})", maker + model);
}

void OemInfoTest::version()
{
    QFETCH(QByteArray, system);
    QFETCH(QString, expected);
    const DescribedWindows windows(fullKey(), system);
    COMPARE_TEXT(oemInfoFromRegistry(), expected);
}

void OemInfoTest::workstation()
{
    const DescribedWindows windows(DescribedWindows::load("workstation"));
    COMPARE_TEXT(oemInfoFromRegistry(), title + "Manufacturer:     Fujitsu\nModel:     ESPRIMO P757\n");
}

// What a text becomes on its way depends on the machine's ANSI code page.
void OemInfoTest::ansiText()
{
    const DescribedWindows windows(key() + textValue("Manufacturer", QString("B") + QChar(0xfc) + "ro"), windows6);
    COMPARE_TEXT(oemInfoFromRegistry(), title + "Manufacturer:     B" + QChar(0xfffd) + "ro\n");
}

void OemInfoTest::callsOfAFullMachine()
{
    const DescribedWindows windows(fullKey(), windows6);
    oemInfoFromRegistry();
    QCOMPARE(journalLines(),
             QStringList(
                 {"GetVersionExA 148", openLine, "RegQueryValueExA Manufacturer 2048", "RegQueryValueExA Model 2048"}));
    QCOMPARE(simulated::handleMisuses(), QStringList());
}

void OemInfoTest::callsWithoutTheKey()
{
    const DescribedWindows windows("", windows6);
    oemInfoFromRegistry();
    QCOMPARE(journalLines(), QStringList({"GetVersionExA 148", openLine}));
    QCOMPARE(simulated::openHandles(), QStringList());
}

void OemInfoTest::callsOfAnOldWindows()
{
    const DescribedWindows windows(fullKey(), R"({"GetVersionEx": {"dwMajorVersion": 5}})");
    oemInfoFromRegistry();
    QCOMPARE(journalLines(), QStringList("GetVersionExA 148"));
    QCOMPARE(simulated::openHandles(), QStringList());
}

void OemInfoTest::theKeyStaysOpen()
{
    const DescribedWindows windows(fullKey(), windows6);
    oemInfoFromRegistry();
    QCOMPARE(simulated::openHandles(), QStringList(keyPath));
    oemInfoFromRegistry();
    QCOMPARE(simulated::openHandles(), QStringList({keyPath, keyPath}));
}

void OemInfoTest::failingCalls_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QStringList>("open");
    QTest::newRow("the version is not told")
        << QByteArray("GetVersionExA") << 0 << title + "GetVersionExA(&osver) failed!\n"
        << QStringList();
    QTest::newRow("the key does not open") << QByteArray("RegOpenKeyExA") << 0 << title << QStringList();
    QTest::newRow("the maker cannot be read")
        << QByteArray("RegQueryValueExA") << 0 << title + model << QStringList(keyPath);
    QTest::newRow("the model cannot be read")
        << QByteArray("RegQueryValueExA") << 1 << title + maker << QStringList(keyPath);
}

void OemInfoTest::failingCalls()
{
    QFETCH(QByteArray, call);
    QFETCH(int, number);
    QFETCH(QString, expected);
    QFETCH(QStringList, open);
    const DescribedWindows windows(fullKey(), windows6);
    const simulated::Fault fault = simulated::Fault::nthCall(call, std::size_t(number), ERROR_ACCESS_DENIED);
    COMPARE_TEXT(oemInfoFromRegistry(), expected);
    QCOMPARE(fault.hits(), std::size_t(1));
    QCOMPARE(simulated::openHandles(), open);
}

#endif

TEST_WITH_CORE_APPLICATION(OemInfoTest);
#include "tst_oem_info.moc"
