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
    addRow("the first string is empty: the label and a line end", listValue("SystemBiosVersion", {"", "A"}),
           "SystemBiosVersion:     \n");
    addRow("the first string of the video BIOS is empty", listValue("VideoBiosVersion", {"", "A"}),
           "VideoBiosVersion:      \n");
    addRow("no string", listValue("SystemBiosVersion", {}), "SystemBiosVersion:     \n");
    addRow("data of 0 bytes: the label and a line end", hexValue("SystemBiosVersion", REG_MULTI_SZ, ""),
           "SystemBiosVersion:     \n");
    addRow("an empty string inside ends the list", listValue("SystemBiosVersion", {"A", "", "C"}),
           "SystemBiosVersion:     A\n");
    addRow("a list without its last two terminators", hexValue("SystemBiosVersion", REG_MULTI_SZ, utf16Data(QString("A") + QChar() + "B")),
           "SystemBiosVersion:     A\n                       B\n");
    addRow("a list of type REG_BINARY without a terminator", binaryValue("SystemBiosVersion", QByteArray("A\0B", 3)),
           "SystemBiosVersion:     A\n                       B\n");
    addRow("a list of type REG_SZ", textValue("SystemBiosVersion", "AMI 1.0"),
           "SystemBiosVersion:     AMI 1.0\n");
    addRow("a list of type REG_DWORD: its bytes are the text", numberValue("SystemBiosVersion", 0x00420041),
           "SystemBiosVersion:     A\n                       B\n");
}

void valueRows()
{
    addRow("only the date of the system BIOS", textValue("SystemBIOSDate", "07/19/21"), systemDate);
    addRow("only the date of the video BIOS", textValue("VideoBIOSDate", "04/01/20"), videoDate);
    addRow("an empty date: only the label", textValue("SystemBIOSDate", ""), "SystemBIOSDate:        \n");
    addRow("a date of type REG_DWORD: its bytes are the text", numberValue("SystemBIOSDate", 0x00333231),
           "SystemBIOSDate:        123\n");
    addRow("a date ends at its first null", binaryValue("SystemBIOSDate", QByteArray("07\0/19", 6)),
           "SystemBIOSDate:        07\n");
    addRow("placeholders in texts are not replaced",
           listValue("SystemBiosVersion", {"%1 %2", "%99", "%L1"}) + textValue("SystemBIOSDate", "%1 %2 %99 %L1"),
           "SystemBiosVersion:     %1 %2\n                       %99\n                       %L1\n"
           "SystemBIOSDate:        %1 %2 %99 %L1\n");
    addRow("text is decoded as UTF-8", binaryValue("SystemBIOSDate", "\xc3\xa9"),
           QString("SystemBIOSDate:        ") + QChar(0xe9) + '\n');
    addRow("a byte that is not UTF-8 becomes U+FFFD", binaryValue("SystemBIOSDate", "\xe9!"),
           QString("SystemBIOSDate:        ") + QChar(0xfffd) + "!\n");
    addRow("strings of a list are decoded as UTF-8", binaryValue("SystemBiosVersion", QByteArray("\xc3\xa9\0\xe9!", 5)),
           QString("SystemBiosVersion:     ") + QChar(0xe9) + "\n                       " + QChar(0xfffd) + "!\n");
    addRow("value names are case-insensitive", textValue("SYSTEMBIOSDATE", "07/19/21"), systemDate);
}

void sizeRows()
{
    const QByteArray longest(2048, 'x');
    addRow("a text of 2048 bytes without a terminator is shown whole", binaryValue("SystemBIOSDate", longest),
           "SystemBIOSDate:        " + QString(longest) + '\n');
    addRow("a list of 2048 bytes without a terminator is shown whole", binaryValue("SystemBiosVersion", longest),
           "SystemBiosVersion:     " + QString(longest) + '\n');
    addRow("2047 characters and the terminator fit", textValue("SystemBIOSDate", QString(2047, 'x')),
           "SystemBIOSDate:        " + QString(2047, 'x') + '\n');
    addRow("2048 characters and the terminator do not fit: no line, the next value is read",
           textValue("SystemBIOSDate", QString(2048, 'x')) + textValue("VideoBIOSDate", "04/01/20"), videoDate);
    addRow("a list of 2049 bytes has no line",
           binaryValue("SystemBiosVersion", longest + 'x') + textValue("VideoBIOSDate", "04/01/20"), videoDate);
}

// Quirk: all values share one buffer, which is never cleared.
void bufferRows()
{
    addRow("an unterminated date is followed by the rest of the previous list",
           listValue("SystemBiosVersion", {"A", "B", "C"}) + binaryValue("SystemBIOSDate", "07"),
           systemVersion + "SystemBIOSDate:        07B\n");
    addRow("an unterminated list is followed by the rest of the previous date",
           textValue("SystemBIOSDate", "07/19/21") + binaryValue("VideoBiosVersion", "X"),
           systemDate + "VideoBiosVersion:      X7/19/21\n");
    addRow("a list of 0 bytes does not show the buffer",
           textValue("SystemBIOSDate", "07/19/21") + hexValue("VideoBiosVersion", REG_MULTI_SZ, ""),
           systemDate + "VideoBiosVersion:      \n");
    addRow("a date of 0 bytes shows the previous text",
           listValue("VideoBiosVersion", {"V1", "V2"}) + hexValue("VideoBIOSDate", REG_SZ, ""),
           videoVersion + "VideoBIOSDate:         V1\n");
    addRow("a value that does not fit leaves the buffer unchanged",
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
    if (windowsIsSimulated) // a real Windows has its own ANSI code page
        addRow("a non-ASCII character, which Windows converts to the ANSI code page, becomes U+FFFD", textValue("SystemBIOSDate", QString("M") + QChar(0xe4) + "rz"),
               QString("SystemBIOSDate:        M") + QChar(0xfffd) + "rz\n");
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
