// portsFromRegistry()

#include "section_rows.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const SectionRows rows([] { return portsFromRegistry("SERIALCOMM"); }, ">> Info about 'SERIALCOMM' ports from registry:\n");

QByteArray serialMap()
{
    return machineKey("HARDWARE\\DEVICEMAP\\SERIALCOMM");
}

void mapRows()
{
    const auto row = [](const char *name, const char *map, const char *text) {
        const SectionRows rowsOfMap([=] { return portsFromRegistry(map); }, "");
        rowsOfMap.text(name, serialMap() + textValue("A", "COM1"), text);
    };
    row("no parallel ports: only the heading", "PARALLEL PORTS", ">> Info about 'PARALLEL PORTS' ports from registry:\n");
    row("serial ports: the heading, the listing and an empty line", "SERIALCOMM",
        ">> Info about 'SERIALCOMM' ports from registry:\nA   COM1\n\n");
    row("the map is case-insensitive, the heading shows its name as requested", "SerialComm",
        ">> Info about 'SerialComm' ports from registry:\nA   COM1\n\n");
    row("a placeholder in the map's name is not replaced", "%1", ">> Info about '%1' ports from registry:\n");
}

void valueRows()
{
    const auto row = [](const char *name, const QByteArray &values, const QString &lines) {
        rows.text(name, serialMap() + values, lines);
    };
    rows.text("no map: only the heading", "", "");
    row("an empty map: an empty line", "", "\n");
    row("two values",
        "\"\\\\Device\\\\Serial0\"=\"COM1\"\n\"\\\\Device\\\\Serial1\"=\"COM2\"\n",
        "\\Device\\Serial0   COM1\n\\Device\\Serial1   COM2\n\n");
    row("the default value has no name", "@=\"COM9\"\n", "   COM9\n\n");
    row("an empty text", textValue("A", ""), "A   \n\n");
    row("keys below the map are not listed",
        textValue("A", "COM1") + machineKey("HARDWARE\\DEVICEMAP\\SERIALCOMM\\More") + textValue("B", "COM2"),
        "A   COM1\n\n");
    row("a REG_DWORD: its bytes are the text", numberValue("A", 0x00434241), "A   ABC\n\n");
    row("a REG_MULTI_SZ: the first string", listValue("A", {"COM1", "COM2"}), "A   COM1\n\n");
    row("data ends at its first null", binaryValue("A", QByteArray("CO\0M1", 5)), "A   CO\n\n");
    row("a text without a terminator", hexValue("A", REG_SZ, utf16Data("COM1")), "A   COM1\n\n");
    row("unterminated data is followed by the rest of the previous data",
        textValue("A", "COM17") + binaryValue("B", "XY"), "A   COM17\nB   XYM17\n\n");
    row("data of 0 bytes shows the previous data", textValue("A", "COM17") + hexValue("B", REG_SZ, ""),
        "A   COM17\nB   COM17\n\n");
    row("text is decoded as UTF-8", binaryValue("A", "\xc3\xa9"), QString("A   ") + QChar(0xe9) + "\n\n");
    row("a placeholder in the data is not replaced", textValue("A", "%1 %2 %99"), "A   %1 %2 %99\n\n");
    row("Quirk: a second placeholder in the name is replaced with the data too", textValue("A%2", "COM1"), "ACOM1   COM1\n\n");
    row("Quirk: a first placeholder in the name is replaced with the data", textValue("A%1", "COM1"), "ACOM1   %2\n\n");
    row("Quirk: a localised placeholder in the name is replaced with the data", textValue("A%L1", "COM1"), "ACOM1   %2\n\n");
    row("a higher placeholder in the name is not replaced", textValue("A%99", "COM1"), "A%99   COM1\n\n");
    row("data of 2048 bytes without a terminator is shown whole", binaryValue("A", QByteArray(2048, 'x')),
        "A   " + QString(2048, 'x') + "\n\n");
    row("data of 2049 bytes ends the listing",
        textValue("A", "COM1") + binaryValue("B", QByteArray(2049, 'x')) + textValue("C", "COM3"), "A   COM1\n\n");
    row("a name of 2047 characters fits", textValue(QByteArray(2047, 'n'), "COM1"), QString(2047, 'n') + "   COM1\n\n");
    row("a name of 2048 characters ends the listing",
        textValue("A", "COM1") + textValue(QByteArray(2048, 'n'), "COM2") + textValue("z", "COM3"), "A   COM1\n\n");
}

void callRows()
{
    const Described two = serialMap() + textValue("A", "COM1") + textValue("B", "COM2");
    rows.calls("calls", two, R"(RegOpenKeyExA HKEY_LOCAL_MACHINE\HARDWARE\DEVICEMAP\SERIALCOMM 0x20019
RegEnumValueA HKEY_LOCAL_MACHINE\HARDWARE\DEVICEMAP\SERIALCOMM "0" 2048
RegEnumValueA HKEY_LOCAL_MACHINE\HARDWARE\DEVICEMAP\SERIALCOMM "1" 2048
RegEnumValueA HKEY_LOCAL_MACHINE\HARDWARE\DEVICEMAP\SERIALCOMM "2" 2048
RegCloseKey HKEY_LOCAL_MACHINE\HARDWARE\DEVICEMAP\SERIALCOMM
)");
    rows.failure("the map cannot be opened: only the heading", two, "RegOpenKeyExA", 0, "");
    rows.failure("the first value cannot be read: an empty line", two, "RegEnumValueA", 0, "\n");
    rows.failure("the second value cannot be read: the listing ends", two, "RegEnumValueA", 1, "A   COM1\n\n");
    rows.failure("the map cannot be closed: the text is unchanged", two, "RegCloseKey", 0, "A   COM1\nB   COM2\n\n");
    rows.anyFailure("each call fails in turn", two);
}

void addRows()
{
    mapRows();
    valueRows();
    callRows();
    if (windowsIsSimulated)
        rows.text("values in the order of the description", serialMap() + textValue("Z", "COM1") + textValue("A", "COM2"),
                  "Z   COM1\nA   COM2\n\n");
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
