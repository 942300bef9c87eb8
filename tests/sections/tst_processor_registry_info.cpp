// processorRegistryInfo()

#include "section_rows.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const SectionRows rows(processorRegistryInfo, "Central Processor information from Registry\n");

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
    rows.text(name, processorKey(0) + values, processorLine(0) + lines);
}

void singleValueRows()
{
    addRow("only the name", textValue("ProcessorNameString", "Example CPU @ 2.593GHz"), nameLine);
    addRow("only the vendor", textValue("VendorIdentifier", "GenuineExample"), vendorLine);
    addRow("only the identifier", textValue("Identifier", "Family 6 Model 158"), identifierLine);
    addRow("only the MMX identifier", textValue("MMXIdentifier", "MMX"), mmxLine);
    addRow("only the frequency", numberValue("~MHZ", 2593), frequencyLine);
    addRow("only the features", numberValue("FeatureSet", 0xbfebfbff), featureLine);
    addRow("value names are case-insensitive", numberValue("~MHz", 2593) + textValue("PROCESSORNAMESTRING", "x"),
           "ProcessorNameString:  x\n" + frequencyLine);
    addRow("an empty text: only the label", textValue("VendorIdentifier", ""), "VendorIdentifier:     \n");
}

void frequencyRows()
{
    const auto row = [](const char *name, quint32 number, const char *line) {
        addRow(name, numberValue("~MHZ", number), line);
    };
    row("0 MHz", 0, "MHZ:                  0 MHz\n");
    row("999 MHz: no GHz", 999, "MHZ:                  999 MHz\n");
    row("1000 MHz: GHz with three decimal digits", 1000, "MHZ:                  1000 MHz = 1.000 GHz\n");
    row("1005 MHz: decimal digits padded with zeros", 1005, "MHZ:                  1005 MHz = 1.005 GHz\n");
    row("1050 MHz", 1050, "MHZ:                  1050 MHz = 1.050 GHz\n");
    row("3400 MHz", 3400, "MHZ:                  3400 MHz = 3.400 GHz\n");
    row("12345 MHz", 12345, "MHZ:                  12345 MHz = 12.345 GHz\n");
    row("the frequency is unsigned", 4294967295, "MHZ:                  4294967295 MHz = 4294967.295 GHz\n");
}

void numberRows()
{
    addRow("features 0", numberValue("FeatureSet", 0), "FeatureSet:           0x0\n");
    addRow("features are not padded", numberValue("FeatureSet", 0xabc), "FeatureSet:           0xabc\n");
    addRow("numbers of two bytes", binaryValue("~MHZ", "\xb8\x0b") + binaryValue("FeatureSet", "\x05\x01"),
           "MHZ:                  3000 MHz = 3.000 GHz\nFeatureSet:           0x105\n");
    addRow("a number of 0 bytes is 0", numberValue("~MHZ", 2593) + binaryValue("FeatureSet", ""),
           frequencyLine + "FeatureSet:           0x0\n");
    addRow("numbers of eight bytes have no line",
           binaryValue("~MHZ", QByteArray(8, '\1')) + binaryValue("FeatureSet", QByteArray(8, '\1')), "");
    addRow("a number of type REG_SZ: its bytes are the number", textValue("FeatureSet", "abc"), "FeatureSet:           0x636261\n");
    addRow("a number of type REG_SZ with more than four bytes has no line", textValue("~MHZ", "3400"), "");
}

void textRows()
{
    addRow("placeholders are not replaced",
           textValue("ProcessorNameString", "%1") + textValue("VendorIdentifier", "%2 %99")
               + textValue("Identifier", "%L1 %1") + textValue("MMXIdentifier", "%%1%"),
           "ProcessorNameString:  %1\nVendorIdentifier:     %2 %99\nIdentifier:           %L1 %1\n"
           "MMXIdentifier:        %%1%\n");
    addRow("a text ends at its first null", binaryValue("Identifier", QByteArray("x86\0Family", 10)),
           "Identifier:           x86\n");
    addRow("each text is read into a zeroed buffer",
           textValue("ProcessorNameString", "ABCDEFGH") + binaryValue("VendorIdentifier", "XY")
               + hexValue("Identifier", REG_SZ, ""),
           "ProcessorNameString:  ABCDEFGH\nVendorIdentifier:     XY\nIdentifier:           \n");
    addRow("a REG_DWORD: its bytes are the text", numberValue("Identifier", 0x34333231),
           "Identifier:           1234\n");
    addRow("variables are not expanded", hexValue("Identifier", REG_EXPAND_SZ, utf16Data(QString("%OS%") + QChar())),
           "Identifier:           %OS%\n");
    addRow("text is decoded as UTF-8", binaryValue("Identifier", "\xc2\xae"),
           QString("Identifier:           ") + QChar(0xae) + "\n");
    addRow("a byte that is not UTF-8 becomes U+FFFD", binaryValue("Identifier", "\xae!"),
           QString("Identifier:           ") + QChar(0xfffd) + "!\n");
    addRow("blanks are not removed", textValue("ProcessorNameString", "  Example  CPU  "), "ProcessorNameString:    Example  CPU  \n");
}

void sizeRows()
{
    const QString longest(2048, 'x');
    addRow("a text of 2048 bytes without a terminator is shown whole", binaryValue("Identifier", longest.toLatin1()),
           "Identifier:           " + longest + "\n");
    addRow("2047 characters and the terminator fit", textValue("Identifier", QString(2047, 'x')),
           "Identifier:           " + QString(2047, 'x') + "\n");
    addRow("2048 characters and the terminator do not fit: no line, the next value is read",
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

void processorRows()
{
    rows.text("no key: only the heading", "", "");
    rows.text("no processor: only the heading", machineKey("Hardware\\Description\\System\\CentralProcessor"), "");
    rows.text("a processor without values", processorKey(0), processorLine(0));
    rows.text("a full processor", fullKey(0), fullBlock(0));
    rows.text("two full processors", fullKey(0) + fullKey(1), fullBlock(0) + fullBlock(1));
    rows.text("processor 0 is missing: only the heading", fullKey(1) + fullKey(2), "");
    rows.text("a missing number ends the section", fullKey(0) + fullKey(2), fullBlock(0));
    rows.text("the numbers of the keys are not padded", machineKey("Hardware\\Description\\System\\CentralProcessor\\00"), "");
    rows.text("11 processors are in the order of their numbers", emptyKeys(11), emptyBlocks(11));
    rows.text("255", emptyKeys(255), emptyBlocks(255));
    rows.text("256 processors: number 255 is the last", emptyKeys(256), emptyBlocks(256));
    rows.text("257 processors: number 256 is not read", emptyKeys(257), emptyBlocks(256));
    rows.workstation("processor_registry_info.txt");
}

QString pathOf(int index)
{
    return "HKEY_LOCAL_MACHINE\\Hardware\\Description\\System\\CentralProcessor\\" + QString::number(index);
}

void callRows()
{
    const QStringList queries = {"ProcessorNameString 2048", "VendorIdentifier 2048", "Identifier 2048",
                                 "MMXIdentifier 2048", "~MHZ 4", "FeatureSet 4"};
    const QByteArray two = fullKey(0) + fullKey(1);
    rows.calls("calls of a full machine", two,
               keyCalls(pathOf(0), queries) + keyCalls(pathOf(1), queries) + openCall(pathOf(2)));
    QString callsOf256;
    for (int i = 0; i < 256; ++i)
        callsOf256 += keyCalls(pathOf(i), queries);
    rows.calls("calls of 257 processors", emptyKeys(257), callsOf256);
    rows.calls("calls without a processor", "", openCall(pathOf(0)));
    rows.failure("the first key cannot be opened", two, "RegOpenKeyExA", 0, "");
    rows.failure("the second key cannot be opened", two, "RegOpenKeyExA", 1, fullBlock(0));
    rows.failures(two, "RegQueryValueExA", 0, {nameLine, vendorLine, identifierLine, mmxLine, frequencyLine, featureLine},
                  {"the name cannot be read", "the vendor cannot be read", "the identifier cannot be read",
                   "the MMX identifier cannot be read", "the frequency cannot be read", "the features cannot be read"},
                  processorLine(0), fullBlock(1));
    rows.failure("a key cannot be closed: the text is unchanged", two, "RegCloseKey", 0, fullBlock(0) + fullBlock(1));
}

void addRows()
{
    processorRows();
    singleValueRows();
    frequencyRows();
    numberRows();
    textRows();
    sizeRows();
    callRows();
    if (windowsIsSimulated) // a real Windows has its own ANSI code page
        addRow("a non-ASCII character, which Windows converts to the ANSI code page, becomes U+FFFD",
               textValue("ProcessorNameString", QString("Example") + QChar(0xae) + " CPU"),
               QString("ProcessorNameString:  Example") + QChar(0xfffd) + " CPU\n");
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
