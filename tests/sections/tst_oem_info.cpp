// oemInfoFromRegistry()

#include "section_rows.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const SectionRows rows(oemInfoFromRegistry, "OEM Information from Registry\n");

// The first Windows that has the key; a real one that runs these tests is not older.
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
const QString keyPath = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\OEMInformation";
// Quirk: the key is never closed.
const QString stillOpen = windowsIsSimulated ? "still open: " + keyPath : QString();

void addRow(const char *name, const QByteArray &values, const QString &lines)
{
    rows.text(name, {key() + values, windows6}, lines + stillOpen);
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
           textValue("Manufacturer", "Example Inc.") + hexValue("Model", REG_SZ, ""), maker + "Model:     Example Inc.\n");
    addRow("a maker without terminator stands in an empty buffer", binaryValue("Manufacturer", "AB"),
           "Manufacturer:     AB\n");
    addRow("a maker of 2048 bytes without terminator is shown whole",
           binaryValue("Manufacturer", QByteArray(2048, 'x')), "Manufacturer:     " + QString(2048, 'x') + "\n");
    addRow("a maker of 2049 bytes has no line, the model is tried",
           binaryValue("Manufacturer", QByteArray(2049, 'x')) + textValue("Model", "Example 500"), model);
    addRow("a maker of 2049 bytes leaves the buffer empty",
           binaryValue("Manufacturer", QByteArray(2049, 'x')) + binaryValue("Model", "AB"), "Model:     AB\n");
}

void versionRows()
{
    const auto row = [](const char *name, const char *version, const QString &lines) {
        rows.text(name, {fullKey(), QByteArray("{\"GetVersionEx\": ") + version + "}"}, lines);
    };
    row("no version: the only failure text", "null", "GetVersionExA(&osver) failed!\n");
    row("the version fails with an error", R"({"error": 5})", "GetVersionExA(&osver) failed!\n");
    row("major version 0: the title alone", "{}", "");
    row("major version 4: the title alone", R"({"dwMajorVersion": 4, "dwMinorVersion": 90})", "");
    row("major version 5: the title alone", R"({"dwMajorVersion": 5, "dwMinorVersion": 2})", "");
    row("major version 6", R"({"dwMajorVersion": 6})", maker + model + stillOpen);
    row("major version 10", R"({"dwMajorVersion": 10})", maker + model + stillOpen);
    row("the major version is unsigned", R"({"dwMajorVersion": "0x80000000"})", maker + model + stillOpen);
}

void callRows()
{
    const Described full {fullKey(), windows6};
    const REGSAM access = KEY_READ | KEY_WOW64_64KEY;
    const QString version = "GetVersionExA 148\n";
    QString calls = keyCalls(keyPath, {"Manufacturer 2048", "Model 2048"}, access);
    calls.truncate(calls.indexOf("RegCloseKey"));
    rows.calls("calls of a full machine", full, version + calls + stillOpen);
    rows.calls("calls without the key", {"", windows6}, version + openCall(keyPath, access));
    rows.calls("calls of an old Windows", {fullKey(), R"({"GetVersionEx": {"dwMajorVersion": 5}})"}, version);
    rows.failure("the version is not told", full, "GetVersionExA", 0, "GetVersionExA(&osver) failed!\n");
    rows.failure("the key does not open", full, "RegOpenKeyExA", 0, "");
    rows.failure("the maker cannot be read", full, "RegQueryValueExA", 0, model + stillOpen);
    rows.failure("the model cannot be read", full, "RegQueryValueExA", 1, maker + stillOpen);
    const SectionRows twice([] { return oemInfoFromRegistry() + oemInfoFromRegistry(); }, "");
    twice.calls("every time another key stays open", full, version + calls + version + calls + stillOpen + '\n' + stillOpen);
}

void addRows()
{
    rows.text("no key: the title alone", {"", windows6}, "");
    addRow("an empty key: the title alone", "", "");
    rows.text("everything, in the order of the report", {fullKey(), windows6}, maker + model + stillOpen);
    valueRows();
    bufferRows();
    if (!windowsIsSimulated)
        return;
    versionRows();
    callRows();
    // elsewhere the system's own ANSI code page decides
    addRow("a character of the ANSI code page", textValue("Manufacturer", QString("B") + QChar(0xfc) + "ro"),
           QString("Manufacturer:     B") + QChar(0xfffd) + "ro\n");
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
