// biosInfoFromRegistry()

#include "section_rows.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const SectionRows rows(biosInfoFromRegistry, "BIOS information from Registry\n");

const char path[] = "HKEY_LOCAL_MACHINE\\Hardware\\Description\\System";

QByteArray allValues()
{
    return listValue("SystemBiosVersion", {"A", "B", "C"}) + textValue("SystemBIOSDate", "07/19/21")
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
    rows.text(name, QByteArray("[") + path + "]\n" + values, lines);
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
    addRow("data of zero bytes: the label and a line break", hexValue("SystemBiosVersion", REG_MULTI_SZ, ""),
           "SystemBiosVersion:     \n");
    addRow("an empty string inside cuts the list short", listValue("SystemBiosVersion", {"A", "", "C"}),
           "SystemBiosVersion:     A\n");
    addRow("a list without its last terminators", hexValue("SystemBiosVersion", REG_MULTI_SZ, utf16Data(QString("A") + QChar() + "B")),
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

// Quirk: one buffer for all values, never cleared.
void bufferRows()
{
    addRow("a date without terminator ends where the list before it does",
           listValue("SystemBiosVersion", {"A", "B", "C"}) + binaryValue("SystemBIOSDate", "07"),
           systemVersion + "SystemBIOSDate:        07B\n");
    addRow("a list without terminator goes on in the date before it",
           textValue("SystemBIOSDate", "07/19/21") + binaryValue("VideoBiosVersion", "X"),
           systemDate + "VideoBiosVersion:      X7/19/21\n");
    addRow("a list of zero bytes does not look at the buffer",
           textValue("SystemBIOSDate", "07/19/21") + hexValue("VideoBiosVersion", REG_MULTI_SZ, ""),
           systemDate + "VideoBiosVersion:      \n");
    addRow("a date of zero bytes shows the text before it",
           listValue("VideoBiosVersion", {"V1", "V2"}) + hexValue("VideoBIOSDate", REG_SZ, ""),
           videoVersion + "VideoBIOSDate:         V1\n");
    addRow("a value too long for the buffer leaves it as it was",
           textValue("SystemBIOSDate", "07/19/21") + binaryValue("VideoBiosVersion", QByteArray(2049, 'x'))
               + binaryValue("VideoBIOSDate", "04"),
           systemDate + "VideoBIOSDate:         04/19/21\n");
}

void addRows()
{
    rows.valuesOfKey(path, allValues(),
                     {"SystemBiosVersion 2048", "SystemBIOSDate 2048", "VideoBiosVersion 2048", "VideoBIOSDate 2048"},
                     {systemVersion, systemDate, videoVersion, videoDate},
                     {"the version cannot be read", "the date cannot be read", "the video version cannot be read",
                      "the video date cannot be read"});
    rows.workstation("bios_info.txt");
    listRows();
    valueRows();
    sizeRows();
    bufferRows();
    if (windowsIsSimulated) // elsewhere the system's own ANSI code page decides
        addRow("a character of the ANSI code page", textValue("SystemBIOSDate", QString("M") + QChar(0xe4) + "rz"),
               QString("SystemBIOSDate:        M") + QChar(0xfffd) + "rz\n");
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
