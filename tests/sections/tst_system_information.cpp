// systemInformationFromRegistry()

#include "section_rows.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const SectionRows rows(systemInformationFromRegistry, "SystemInformation from Registry\n");

const char path[] = "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\SystemInformation";

QByteArray allValues()
{
    return numberValue("InformationSource", 1) + textValue("SystemProductName", "Example 500")
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
    rows.text(name, QByteArray("[") + path + "]\n" + values, lines);
}

void singleValueRows()
{
    addRow("only the BIOS date", textValue("BIOSReleaseDate", "07/19/2021"), "BIOSReleaseDate:     07/19/2021\n");
    addRow("only the BIOS version", textValue("BIOSVersion", "V5.0"), "BIOSVersion:         V5.0\n");
    addRow("only the manufacturer", textValue("SystemManufacturer", "Example Inc."), "SystemManufacturer:  Example Inc.\n");
    addRow("only the product", textValue("SystemProductName", "Example 500"), "SystemProductName:   Example 500\n");
    addRow("only the source", numberValue("InformationSource", 1), "InformationSource:   1 \n");
    addRow("an empty text: only the label", textValue("BIOSVersion", ""), "BIOSVersion:         \n");
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
    addRow("a source of type REG_SZ: its bytes are the number", textValue("InformationSource", "1"), "InformationSource:   49 \n");
}

void textRows()
{
    addRow("placeholders are not replaced",
           textValue("BIOSReleaseDate", "%1") + textValue("BIOSVersion", "%2") + textValue("SystemManufacturer", "%99")
               + textValue("SystemProductName", "%L1 %1"),
           "BIOSReleaseDate:     %1\nBIOSVersion:         %2\nSystemManufacturer:  %99\nSystemProductName:   %L1 %1\n");
    addRow("a byte that is not UTF-8 becomes U+FFFD", binaryValue("SystemManufacturer", "B\xfcro"),
           QString("SystemManufacturer:  B") + QChar(0xfffd) + "ro\n");
    addRow("a line break in a text is not removed", textValue("SystemProductName", "one\ntwo"), "SystemProductName:   one\ntwo\n");
    addRow("a text of 2048 bytes without a terminator is shown whole",
           binaryValue("BIOSVersion", QByteArray(2048, 'x')), "BIOSVersion:         " + QString(2048, 'x') + "\n");
    addRow("a text of 2049 bytes has no line, the next value is read",
           binaryValue("BIOSVersion", QByteArray(2049, 'x')) + textValue("SystemManufacturer", "Example Inc."),
           "SystemManufacturer:  Example Inc.\n");
}

// Quirk: the texts share one buffer, which is never cleared.
void bufferRows()
{
    addRow("an unterminated text is followed by the rest of the previous one",
           textValue("BIOSReleaseDate", "07/19/2021") + binaryValue("BIOSVersion", "V5"),
           "BIOSReleaseDate:     07/19/2021\nBIOSVersion:         V5/19/2021\n");
    addRow("a text of 0 bytes shows the previous one",
           textValue("SystemManufacturer", "Example Inc.") + binaryValue("SystemProductName", ""),
           "SystemManufacturer:  Example Inc.\nSystemProductName:   Example Inc.\n");
    addRow("a missing value leaves the buffer unchanged",
           textValue("BIOSReleaseDate", "07/19/2021") + binaryValue("SystemProductName", "P"),
           "BIOSReleaseDate:     07/19/2021\nSystemProductName:   P7/19/2021\n");
    addRow("REG_SZ without a terminator gets one",
           textValue("BIOSReleaseDate", "07/19/2021") + hexValue("BIOSVersion", REG_SZ, utf16Data("V5")),
           "BIOSReleaseDate:     07/19/2021\nBIOSVersion:         V5\n");
    addRow("the source has its own variable",
           textValue("SystemProductName", "Example 500") + binaryValue("InformationSource", ""),
           "SystemProductName:   Example 500\nInformationSource:   0 \n");
}

void addRows()
{
    rows.valuesOfKey(path, allValues(),
                     {"BIOSReleaseDate 2048", "BIOSVersion 2048", "SystemManufacturer 2048", "SystemProductName 2048",
                      "InformationSource 4"},
                     allLines);
    rows.workstation("system_information.txt");
    singleValueRows();
    numberRows();
    textRows();
    bufferRows();
    if (windowsIsSimulated) // a real Windows has its own ANSI code page
        addRow("a non-ASCII character, which Windows converts to the ANSI code page, becomes U+FFFD", textValue("SystemManufacturer", QString("B") + QChar(0xfc) + "ro"),
               QString("SystemManufacturer:  B") + QChar(0xfffd) + "ro\n");
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
