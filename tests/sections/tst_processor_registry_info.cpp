// processorRegistryInfo(): texts and calls.

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

class ProcessorRegistryInfoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void text_data();
    void text();
    void numberOfProcessors_data();
    void numberOfProcessors();
    void workstation();
#ifdef SIMULATED_WINDOWS
    void ansiText();
    void callsOfAFullMachine();
    void callsOf257Processors();
    void callsWithoutAProcessor();
    void failingCalls_data();
    void failingCalls();
#endif
};

namespace {

const QString title = "Central Processor information from Registry\n";

QByteArray processorKey(int index)
{
    return machineKey("Hardware\\Description\\System\\CentralProcessor\\" + QByteArray::number(index));
}

QString processorLine(int index)
{
    return "Processor #" + QString::number(index) + "\n";
}

QByteArray fullKey(int index)
{
    return processorKey(index) + textValue("ProcessorNameString", "Example CPU @ 2.593GHz")
        + textValue("VendorIdentifier", "GenuineExample") + textValue("Identifier", "Family 6 Model 158")
        + textValue("MMXIdentifier", "MMX") + numberValue("~MHZ", 2593) + numberValue("FeatureSet", 0xbfebfbff);
}

const QString nameLine = "ProcessorNameString:  Example CPU @ 2.593GHz\n";
const QString vendorLine = "VendorIdentifier:     GenuineExample\n";
const QString identifierLine = "Identifier:           Family 6 Model 158\n";
const QString mmxLine = "MMXIdentifier:        MMX\n";
const QString frequencyLine = "MHZ:                  2593 MHz = 2.593 GHz\n";
const QString featureLine = "FeatureSet:           0xbfebfbff\n";

QString fullBlock(int index)
{
    return processorLine(index) + nameLine + vendorLine + identifierLine + mmxLine + frequencyLine + featureLine;
}

/// One processor with these values.
void addRow(const char *name, const QByteArray &values, const QString &lines)
{
    QTest::newRow(name) << processorKey(0) + values << title + processorLine(0) + lines;
}

void singleValueRows()
{
    addRow("the name alone", textValue("ProcessorNameString", "Example CPU @ 2.593GHz"), nameLine);
    addRow("the vendor alone", textValue("VendorIdentifier", "GenuineExample"), vendorLine);
    addRow("the identifier alone", textValue("Identifier", "Family 6 Model 158"), identifierLine);
    addRow("the MMX identifier alone", textValue("MMXIdentifier", "MMX"), mmxLine);
    addRow("the frequency alone", numberValue("~MHZ", 2593), frequencyLine);
    addRow("the features alone", numberValue("FeatureSet", 0xbfebfbff), featureLine);
    addRow("names without regard to case", numberValue("~MHz", 2593) + textValue("PROCESSORNAMESTRING", "x"),
           "ProcessorNameString:  x\n" + frequencyLine);
    addRow("an empty text: its label and blanks", textValue("VendorIdentifier", ""), "VendorIdentifier:     \n");
}

void frequencyRows()
{
    const auto row = [](const char *name, quint32 number, const char *line) {
        addRow(name, numberValue("~MHZ", number), line);
    };
    row("0 MHz", 0, "MHZ:                  0 MHz\n");
    row("999 MHz: no GHz", 999, "MHZ:                  999 MHz\n");
    row("1000 MHz: GHz with three digits", 1000, "MHZ:                  1000 MHz = 1.000 GHz\n");
    row("1005 MHz: digits filled with zeros", 1005, "MHZ:                  1005 MHz = 1.005 GHz\n");
    row("1050 MHz", 1050, "MHZ:                  1050 MHz = 1.050 GHz\n");
    row("3400 MHz", 3400, "MHZ:                  3400 MHz = 3.400 GHz\n");
    row("12345 MHz", 12345, "MHZ:                  12345 MHz = 12.345 GHz\n");
    row("the frequency is unsigned", 4294967295, "MHZ:                  4294967295 MHz = 4294967.295 GHz\n");
}

void numberRows()
{
    addRow("features 0", numberValue("FeatureSet", 0), "FeatureSet:           0x0\n");
    addRow("features without filling", numberValue("FeatureSet", 0xabc), "FeatureSet:           0xabc\n");
    addRow("numbers of two bytes", binaryValue("~MHZ", "\xb8\x0b") + binaryValue("FeatureSet", "\x05\x01"),
           "MHZ:                  3000 MHz = 3.000 GHz\nFeatureSet:           0x105\n");
    addRow("a number of no bytes is 0", numberValue("~MHZ", 2593) + binaryValue("FeatureSet", ""),
           frequencyLine + "FeatureSet:           0x0\n");
    addRow("numbers of eight bytes have no line",
           binaryValue("~MHZ", QByteArray(8, '\1')) + binaryValue("FeatureSet", QByteArray(8, '\1')), "");
    addRow("a number stored as text: its bytes", textValue("FeatureSet", "abc"), "FeatureSet:           0x636261\n");
    addRow("a number as a text that is too long has no line", textValue("~MHZ", "3400"), "");
}

void textRows()
{
    addRow("placeholders stay",
           textValue("ProcessorNameString", "%1") + textValue("VendorIdentifier", "%2 %99")
               + textValue("Identifier", "%L1 %1") + textValue("MMXIdentifier", "%%1%"),
           "ProcessorNameString:  %1\nVendorIdentifier:     %2 %99\nIdentifier:           %L1 %1\n"
           "MMXIdentifier:        %%1%\n");
    addRow("a text ends at its first null", binaryValue("Identifier", QByteArray("x86\0Family", 10)),
           "Identifier:           x86\n");
    addRow("every text starts from an empty buffer",
           textValue("ProcessorNameString", "ABCDEFGH") + binaryValue("VendorIdentifier", "XY")
               + hexValue("Identifier", 1, ""),
           "ProcessorNameString:  ABCDEFGH\nVendorIdentifier:     XY\nIdentifier:           \n");
    addRow("a text stored as a number: its bytes", numberValue("Identifier", 0x34333231),
           "Identifier:           1234\n");
    addRow("variables are not expanded", hexValue("Identifier", 2, utf16Data(QString("%OS%") + QChar())),
           "Identifier:           %OS%\n");
    addRow("UTF-8 bytes become their character", binaryValue("Identifier", "\xc2\xae"),
           QString("Identifier:           ") + QChar(0xae) + "\n");
    addRow("a byte of the ANSI code page becomes U+FFFD", binaryValue("Identifier", "\xae!"),
           QString("Identifier:           ") + QChar(0xfffd) + "!\n");
    addRow("blanks stay", textValue("ProcessorNameString", "  Example  CPU  "), "ProcessorNameString:    Example  CPU  \n");
}

void sizeRows()
{
    const QString longest(2048, 'x');
    addRow("a text of 2048 bytes without terminator is shown whole", binaryValue("Identifier", longest.toLatin1()),
           "Identifier:           " + longest + "\n");
    addRow("2047 characters and the terminator fit", textValue("Identifier", QString(2047, 'x')),
           "Identifier:           " + QString(2047, 'x') + "\n");
    addRow("2048 characters and the terminator do not: no line, the next value is tried",
           textValue("Identifier", longest) + textValue("MMXIdentifier", "MMX"), mmxLine);
}

QByteArray emptyKeys(int count)
{
    QByteArray registry;
    for (int i = 0; i < count; ++i)
        registry += processorKey(i);
    return registry;
}

QString emptyBlocks(int count)
{
    QString text;
    for (int i = 0; i < count; ++i)
        text += processorLine(i);
    return text;
}

} // namespace

void ProcessorRegistryInfoTest::text_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no key: the title alone") << QByteArray() << title;
    QTest::newRow("no processor: the title alone")
        << machineKey("Hardware\\Description\\System\\CentralProcessor") << title;
    QTest::newRow("a processor without values") << processorKey(0) << title + processorLine(0);
    QTest::newRow("a full processor") << fullKey(0) << title + fullBlock(0);
    QTest::newRow("two full processors") << fullKey(0) + fullKey(1) << title + fullBlock(0) + fullBlock(1);
    QTest::newRow("processor 0 is missing: the title alone") << fullKey(1) + fullKey(2) << title;
    QTest::newRow("a gap ends the section") << fullKey(0) + fullKey(2) << title + fullBlock(0);
    QTest::newRow("numbers are not filled with zeros")
        << machineKey("Hardware\\Description\\System\\CentralProcessor\\00") << title;
    singleValueRows();
    frequencyRows();
    numberRows();
    textRows();
    sizeRows();
}

void ProcessorRegistryInfoTest::text()
{
    QFETCH(QByteArray, registry);
    QFETCH(QString, expected);
    const DescribedWindows windows(registry);
    COMPARE_TEXT(processorRegistryInfo(), expected);
}

void ProcessorRegistryInfoTest::numberOfProcessors_data()
{
    QTest::addColumn<int>("keys");
    QTest::addColumn<int>("blocks");
    QTest::newRow("11: in the order of numbers") << 11 << 11;
    QTest::newRow("255") << 255 << 255;
    QTest::newRow("256: number 255 is the last") << 256 << 256;
    QTest::newRow("257: number 256 is not looked at") << 257 << 256;
}

void ProcessorRegistryInfoTest::numberOfProcessors()
{
    QFETCH(int, keys);
    QFETCH(int, blocks);
    const DescribedWindows windows(emptyKeys(keys));
    COMPARE_TEXT(processorRegistryInfo(), title + emptyBlocks(blocks));
}

void ProcessorRegistryInfoTest::workstation()
{
    const DescribedWindows windows(DescribedWindows::load("workstation"));
    QString expected = title;
    for (int i = 0; i < 8; ++i) {
        expected += processorLine(i)
            + "ProcessorNameString:  Intel(R) Core(TM) i7-7700 CPU @ 3.60GHz\n"
              "VendorIdentifier:     GenuineIntel\n"
              "Identifier:           Intel64 Family 6 Model 158 Stepping 9\n"
              "MHZ:                  3600 MHz = 3.600 GHz\n"
              "FeatureSet:           0x3d1b3fff\n";
    }
    COMPARE_TEXT(processorRegistryInfo(), expected);
}

#ifdef SIMULATED_WINDOWS

namespace {

const QString parentPath = "HKEY_LOCAL_MACHINE\\Hardware\\Description\\System\\CentralProcessor\\";

QString openLine(int index)
{
    return "RegOpenKeyExA " + parentPath + QString::number(index) + " 0x20019";
}

const QStringList linesOfOneProcessor = {
    "RegQueryValueExA ProcessorNameString 2048", "RegQueryValueExA VendorIdentifier 2048",
    "RegQueryValueExA Identifier 2048", "RegQueryValueExA MMXIdentifier 2048",
    "RegQueryValueExA ~MHZ 4", "RegQueryValueExA FeatureSet 4",
    "RegCloseKey"};

} // namespace

// What a text becomes on its way depends on the machine's ANSI code page.
void ProcessorRegistryInfoTest::ansiText()
{
    const DescribedWindows windows(processorKey(0)
                                   + textValue("ProcessorNameString", QString("Example") + QChar(0xae) + " CPU"));
    COMPARE_TEXT(processorRegistryInfo(),
                 title + processorLine(0) + "ProcessorNameString:  Example" + QChar(0xfffd) + " CPU\n");
}

void ProcessorRegistryInfoTest::callsOfAFullMachine()
{
    const DescribedWindows windows(fullKey(0) + fullKey(1));
    processorRegistryInfo();
    QCOMPARE(journalLines(),
             QStringList(openLine(0)) + linesOfOneProcessor + QStringList(openLine(1)) + linesOfOneProcessor
                 + QStringList(openLine(2)));
    QCOMPARE(simulated::openHandles(), QStringList());
    QCOMPARE(simulated::handleMisuses(), QStringList());
}

void ProcessorRegistryInfoTest::callsOf257Processors()
{
    const DescribedWindows windows(emptyKeys(257));
    processorRegistryInfo();
    const QStringList opened = journalLines().filter("RegOpenKeyExA");
    QCOMPARE(opened.size(), 256);
    QCOMPARE(opened.last(), openLine(255));
    QCOMPARE(simulated::openHandles(), QStringList());
}

void ProcessorRegistryInfoTest::callsWithoutAProcessor()
{
    const DescribedWindows windows("");
    processorRegistryInfo();
    QCOMPARE(journalLines(), QStringList(openLine(0)));
}

void ProcessorRegistryInfoTest::failingCalls_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("expected");
    const QString all = title + fullBlock(0) + fullBlock(1);
    QTest::newRow("the first key does not open") << QByteArray("RegOpenKeyExA") << 0 << title;
    QTest::newRow("the second key does not open") << QByteArray("RegOpenKeyExA") << 1 << title + fullBlock(0);
    const QStringList lines = {nameLine, vendorLine, identifierLine, mmxLine, frequencyLine, featureLine};
    const char *const names[] = {"the name", "the vendor", "the identifier", "the MMX identifier", "the frequency",
                                 "the features"};
    for (int i = 0; i < lines.size(); ++i) {
        QString block = fullBlock(0);
        block.remove(lines.at(i));
        QTest::addRow("%s cannot be read", names[i]) << QByteArray("RegQueryValueExA") << i << title + block + fullBlock(1);
    }
    QTest::newRow("a key does not close: nothing shows") << QByteArray("RegCloseKey") << 0 << all;
}

void ProcessorRegistryInfoTest::failingCalls()
{
    QFETCH(QByteArray, call);
    QFETCH(int, number);
    QFETCH(QString, expected);
    const DescribedWindows windows(fullKey(0) + fullKey(1));
    const simulated::Fault fault = simulated::Fault::nthCall(call, std::size_t(number), ERROR_ACCESS_DENIED);
    COMPARE_TEXT(processorRegistryInfo(), expected);
    QCOMPARE(fault.hits(), std::size_t(1));
    QCOMPARE(simulated::openHandles(), QStringList());
}

#endif

TEST_WITH_CORE_APPLICATION(ProcessorRegistryInfoTest);
#include "tst_processor_registry_info.moc"
