// timeZoneInfoFromRegistry()

#include "section_rows.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const SectionRows rows(timeZoneInfoFromRegistry, "Time Zone information from Registry\n");

const char path[] = "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\TimeZoneInformation";

QByteArray allValues()
{
    return textValue("StandardName", "Winter") + textValue("DaylightName", "Summer") + numberValue("StandardBias", 0)
        + numberValue("DaylightBias", 0xffffffc4) + numberValue("Bias", 0xffffffc4)
        + numberValue("ActiveTimeBias", 0xffffff88);
}

const QStringList allLines = {
    "ActiveTimeBias: -120 min (offset to UTC)\n",
    "Bias:           -60 min (offset to UTC)\n",
    "DaylightBias:   -60 min (additional offset if daylight saving is active)\n",
    "StandardBias:   0 min (additional offset if no daylight saving is active)\n",
    "DaylightName:   Summer\n",
    "StandardName:   Winter\n",
};

void addRow(const char *name, const QByteArray &values, const QString &lines)
{
    rows.text(name, QByteArray("[") + path + "]\n" + values, lines);
}

QString biasLine(const char *shown)
{
    return QString("Bias:           ") + shown + " min (offset to UTC)\n";
}

void singleValueRows()
{
    addRow("only the active bias", numberValue("ActiveTimeBias", 300), "ActiveTimeBias: 300 min (offset to UTC)\n");
    addRow("only the bias", numberValue("Bias", 300), biasLine("300"));
    addRow("only the daylight bias", numberValue("DaylightBias", 300),
           "DaylightBias:   300 min (additional offset if daylight saving is active)\n");
    addRow("only the standard bias", numberValue("StandardBias", 300),
           "StandardBias:   300 min (additional offset if no daylight saving is active)\n");
    addRow("only the daylight name", textValue("DaylightName", "Summer"), "DaylightName:   Summer\n");
    addRow("only the standard name", textValue("StandardName", "Winter"), "StandardName:   Winter\n");
}

void biasRows()
{
    addRow("0xFFFFFFC4 is -60", numberValue("Bias", 0xffffffc4), biasLine("-60"));
    addRow("0xFFFFFFFF is -1", numberValue("Bias", 0xffffffff), biasLine("-1"));
    addRow("largest bias", numberValue("Bias", 0x7fffffff), biasLine("2147483647"));
    addRow("smallest bias", numberValue("Bias", 0x80000000), biasLine("-2147483648"));
    addRow("every bias is signed",
           numberValue("ActiveTimeBias", 0xfffffffe) + numberValue("DaylightBias", 0xfffffffd)
               + numberValue("StandardBias", 0xfffffffc),
           "ActiveTimeBias: -2 min (offset to UTC)\n"
           "DaylightBias:   -3 min (additional offset if daylight saving is active)\n"
           "StandardBias:   -4 min (additional offset if no daylight saving is active)\n");
    addRow("a bias of eight bytes has no line", binaryValue("Bias", QByteArray(8, '\0')), "");
    addRow("a bias of five bytes has no line", binaryValue("Bias", QByteArray(5, '\0')), "");
    addRow("the type of a bias of four bytes is not checked", binaryValue("Bias", "\xc4\xff\xff\xff"), biasLine("-60"));
    addRow("a bias of type REG_SZ: its bytes are the number", textValue("Bias", "60"), biasLine("12342"));
}

// Quirk: the numbers share one variable, which is never cleared.
void numberBufferRows()
{
    addRow("a bias of one byte keeps the other bytes of the previous one",
           numberValue("ActiveTimeBias", 0xffffffc4) + binaryValue("Bias", "\x01"),
           "ActiveTimeBias: -60 min (offset to UTC)\n" + biasLine("-255"));
    addRow("a bias of 0 bytes is the previous one",
           numberValue("ActiveTimeBias", 0xffffffc4) + binaryValue("DaylightBias", ""),
           "ActiveTimeBias: -60 min (offset to UTC)\n"
           "DaylightBias:   -60 min (additional offset if daylight saving is active)\n");
    addRow("only a bias of two bytes", binaryValue("Bias", "\x2c\x01"), biasLine("300"));
    addRow("a bias that does not fit leaves the variable unchanged",
           numberValue("ActiveTimeBias", 60) + binaryValue("Bias", QByteArray(8, '\x7f')) + binaryValue("StandardBias", ""),
           "ActiveTimeBias: 60 min (offset to UTC)\n"
           "StandardBias:   60 min (additional offset if no daylight saving is active)\n");
}

void nameRows()
{
    addRow("names as stored, resource strings are not resolved",
           textValue("DaylightName", "@tzres.dll,-321") + textValue("StandardName", "@tzres.dll,-322"),
           "DaylightName:   @tzres.dll,-321\nStandardName:   @tzres.dll,-322\n");
    addRow("empty names: only the labels", textValue("DaylightName", "") + textValue("StandardName", ""),
           "DaylightName:   \nStandardName:   \n");
    addRow("placeholders are not replaced", textValue("DaylightName", "%1 %2") + textValue("StandardName", "%99 %L1"),
           "DaylightName:   %1 %2\nStandardName:   %99 %L1\n");
    addRow("a byte that is not UTF-8 becomes U+FFFD", binaryValue("DaylightName", "\xe9t\xe9!"),
           QString("DaylightName:   ") + QChar(0xfffd) + "t" + QChar(0xfffd) + "!\n");
    addRow("an unterminated name is followed by the rest of the previous one",
           textValue("DaylightName", "Summer") + binaryValue("StandardName", "Wi"),
           "DaylightName:   Summer\nStandardName:   Wimmer\n");
    addRow("a name of 0 bytes shows the previous one",
           textValue("DaylightName", "Summer") + hexValue("StandardName", REG_SZ, ""),
           "DaylightName:   Summer\nStandardName:   Summer\n");
    addRow("a name of 2048 bytes without a terminator is shown whole",
           binaryValue("StandardName", QByteArray(2048, 'x')), "StandardName:   " + QString(2048, 'x') + "\n");
    addRow("a name of 2049 bytes has no line, the next value is read",
           binaryValue("DaylightName", QByteArray(2049, 'x')) + textValue("StandardName", "Winter"),
           "StandardName:   Winter\n");
}

void addRows()
{
    rows.valuesOfKey(path, allValues(),
                     {"ActiveTimeBias 4", "Bias 4", "DaylightBias 4", "StandardBias 4", "DaylightName 2048",
                      "StandardName 2048"},
                     allLines);
    rows.workstation("time_zone_info.txt");
    singleValueRows();
    biasRows();
    numberBufferRows();
    nameRows();
    if (windowsIsSimulated) // a real Windows has its own ANSI code page
        addRow("a non-ASCII character, which Windows converts to the ANSI code page, becomes U+FFFD", textValue("StandardName", QString("Mitteleurop") + QChar(0xe4) + "ische Zeit"),
               QString("StandardName:   Mitteleurop") + QChar(0xfffd) + "ische Zeit\n");
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
