// oemInfoFromRegistry()

#include "section_rows.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const SectionRows rows(oemInfoFromRegistry, "OEM Information from Registry\n");

// The first major version that has the key. A real Windows that runs the tests is not older.
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
    addRow("only the manufacturer", textValue("Manufacturer", "Example Inc."), maker);
    addRow("no manufacturer: the model", textValue("Model", "Example 500"), model);
    addRow("empty texts: only the labels", textValue("Manufacturer", "") + textValue("Model", ""),
           "Manufacturer:     \nModel:     \n");
    addRow("other values of the key are not shown",
           textValue("Logo", "logo.bmp") + textValue("SupportURL", "https://example.test")
               + textValue("Model", "Example 500"),
           model);
    addRow("placeholders are not replaced", textValue("Manufacturer", "%1 %2") + textValue("Model", "%99 %L1"),
           "Manufacturer:     %1 %2\nModel:     %99 %L1\n");
    addRow("a REG_DWORD: its bytes are the text", numberValue("Model", 0x00333231), "Model:     123\n");
    addRow("text is decoded as UTF-8", binaryValue("Manufacturer", "B\xc3\xbcro"),
           QString("Manufacturer:     B") + QChar(0xfc) + "ro\n");
    addRow("a byte that is not UTF-8 becomes U+FFFD", binaryValue("Manufacturer", "B\xfcro"),
           QString("Manufacturer:     B") + QChar(0xfffd) + "ro\n");
}

void bufferRows()
{
    addRow("an unterminated model is followed by the rest of the manufacturer",
           textValue("Manufacturer", "Example Inc.") + binaryValue("Model", "AB"), maker + "Model:     ABample Inc.\n");
    addRow("a model of 0 bytes shows the manufacturer",
           textValue("Manufacturer", "Example Inc.") + hexValue("Model", REG_SZ, ""), maker + "Model:     Example Inc.\n");
    addRow("an unterminated manufacturer is read into a zeroed buffer", binaryValue("Manufacturer", "AB"),
           "Manufacturer:     AB\n");
    addRow("a manufacturer of 2048 bytes without a terminator is shown whole",
           binaryValue("Manufacturer", QByteArray(2048, 'x')), "Manufacturer:     " + QString(2048, 'x') + "\n");
    addRow("a manufacturer of 2049 bytes has no line, the model is read",
           binaryValue("Manufacturer", QByteArray(2049, 'x')) + textValue("Model", "Example 500"), model);
    addRow("a manufacturer of 2049 bytes leaves the buffer zeroed",
           binaryValue("Manufacturer", QByteArray(2049, 'x')) + binaryValue("Model", "AB"), "Model:     AB\n");
}

void versionRows()
{
    const auto row = [](const char *name, const char *version, const QString &lines) {
        rows.text(name, {fullKey(), QByteArray("{\"GetVersionEx\": ") + version + "}"}, lines);
    };
    row("GetVersionEx() fails: the failure text", "null", "GetVersionExA(&osver) failed!\n");
    row("GetVersionEx() fails with an error", R"({"error": 5})", "GetVersionExA(&osver) failed!\n");
    row("major version 0: only the heading", "{}", "");
    row("major version 4: only the heading", R"({"dwMajorVersion": 4, "dwMinorVersion": 90})", "");
    row("major version 5: only the heading", R"({"dwMajorVersion": 5, "dwMinorVersion": 2})", "");
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
    rows.failure("calls if GetVersionEx() fails", full, "GetVersionExA", 0, "GetVersionExA(&osver) failed!\n");
    rows.failure("the key cannot be opened", full, "RegOpenKeyExA", 0, "");
    rows.failure("the manufacturer cannot be read", full, "RegQueryValueExA", 0, model + stillOpen);
    rows.failure("the model cannot be read", full, "RegQueryValueExA", 1, maker + stillOpen);
    const SectionRows twice([] { return oemInfoFromRegistry() + oemInfoFromRegistry(); }, "");
    twice.calls("each call of the section leaves another key open", full, version + calls + version + calls + stillOpen + '\n' + stillOpen);
}

void addRows()
{
    rows.text("no key: only the heading", {"", windows6}, "");
    addRow("an empty key: only the heading", "", "");
    rows.text("everything, in the order of the report", {fullKey(), windows6}, maker + model + stillOpen);
    valueRows();
    bufferRows();
    if (!windowsIsSimulated)
        return;
    versionRows();
    callRows();
    // a real Windows has its own ANSI code page
    addRow("a non-ASCII character, which Windows converts to the ANSI code page, becomes U+FFFD", textValue("Manufacturer", QString("B") + QChar(0xfc) + "ro"),
           QString("Manufacturer:     B") + QChar(0xfffd) + "ro\n");
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
