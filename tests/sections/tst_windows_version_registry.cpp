// windowsVersionFromRegistry()

#include "section_rows.h"
#include "win/windows_sections.h"

#ifdef SIMULATED_WINDOWS
#  include "simulated_windows.h"
#endif

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const SectionRows rows(windowsVersionFromRegistry, "Windows version information from Registry\n");

struct Value
{
    const char *name;
    const char *label;
    const char *text;
};

// In the order of the lines.
const Value values[] = {
    {"ProductId", "ProductId:              ", "00330-50000"},
    {"EditionID", "EditionID:              ", "Professional"},
    {"ReleaseId", "ReleaseId:              ", "2009"},
    {"DisplayVersion", "DisplayVersion:         ", "22H2"},
    {"PathName", "PathName:               ", "C:\\Windows"},
    {"ProductName", "ProductName:            ", "Windows 10 Pro"},
    {"RegisteredOwner", "RegisteredOwner:        ", "A. Example"},
    {"RegisteredOrganization", "RegisteredOrganization: ", "Example Inc."},
    {"CSDVersion", "CSDVersion:             ", "Service Pack 1"},
    {"CSDBuildNumber", "CSDBuildNumber:         ", "1130"},
};

const char path[] = "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows NT\\CurrentVersion";

void addRow(const QByteArray &name, const QByteArray &registryValues, const QString &lines)
{
    rows.text(name, QByteArray("[") + path + "]\n" + registryValues, lines);
}

void valueRows()
{
    QByteArray allValues; // in reverse order of the report
    QStringList queries;
    QStringList lines;
    QStringList failureNames;
    for (const Value &value : values) {
        const QString line = QString(value.label) + value.text + "\n";
        addRow(QByteArray("only ") + value.name, textValue(value.name, value.text), line);
        addRow(value.name + QByteArray(" empty: its label and blanks"), textValue(value.name, ""), value.label + QString("\n"));
        allValues.prepend(textValue(value.name, value.text));
        queries += value.name + QString(" 2048");
        lines += line;
        failureNames += value.name + QString(" cannot be read");
    }
    rows.valuesOfKey(path, allValues, queries, lines, failureNames, KEY_READ | KEY_WOW64_64KEY);
}

void textRows()
{
    addRow("other values of the key are not shown", textValue("BuildLab", "19041.vb_release") + numberValue("UBR", 3803),
           "");
    addRow("placeholders are not replaced",
           textValue("ProductId", "%1") + textValue("EditionID", "%2 %99") + textValue("ProductName", "%L1 %1"),
           "ProductId:              %1\nEditionID:              %2 %99\nProductName:            %L1 %1\n");
    addRow("a REG_DWORD: its bytes up to the first zero", numberValue("CSDBuildNumber", 0x00333231),
           "CSDBuildNumber:         123\n");
    addRow("a REG_DWORD of four bytes other than zero is read into a zeroed buffer", numberValue("ProductId", 0x34333231),
           "ProductId:              1234\n");
    addRow("a REG_DWORD of 0 is an empty text", numberValue("ReleaseId", 0), "ReleaseId:              \n");
    addRow("variables are not expanded", hexValue("PathName", REG_EXPAND_SZ, utf16Data(QString("%SystemRoot%") + QChar())),
           "PathName:               %SystemRoot%\n");
    addRow("the first string of a list", listValue("ProductName", {"one", "two"}), "ProductName:            one\n");
    addRow("text is decoded as UTF-8", binaryValue("RegisteredOwner", "J\xc3\xb6rn"),
           QString("RegisteredOwner:        J") + QChar(0xf6) + "rn\n");
    addRow("a byte that is not UTF-8 becomes U+FFFD", binaryValue("RegisteredOwner", "J\xf6rn"),
           QString("RegisteredOwner:        J") + QChar(0xfffd) + "rn\n");
    addRow("value names are case-insensitive", textValue("PRODUCTNAME", "Windows"), "ProductName:            Windows\n");
}

// Quirk: all values share one buffer, which is never cleared.
void bufferRows()
{
    addRow("an unterminated text is followed by the rest of the previous one",
           textValue("ProductId", "00330-50000") + binaryValue("EditionID", "Pro"),
           "ProductId:              00330-50000\nEditionID:              Pro30-50000\n");
    addRow("a REG_DWORD of four bytes other than zero is followed by the rest of the previous text",
           textValue("ProductId", "00330-50000") + numberValue("CSDBuildNumber", 0x34333231),
           "ProductId:              00330-50000\nCSDBuildNumber:         12340-50000\n");
    addRow("a text of 0 bytes shows the previous one",
           textValue("RegisteredOwner", "A. Example") + hexValue("RegisteredOrganization", REG_SZ, ""),
           "RegisteredOwner:        A. Example\nRegisteredOrganization: A. Example\n");
    addRow("a text of 0 bytes after an empty text is empty",
           textValue("ProductId", "00330-50000") + textValue("EditionID", "") + hexValue("ReleaseId", REG_SZ, ""),
           "ProductId:              00330-50000\nEditionID:              \nReleaseId:              \n");
    addRow("REG_SZ without a terminator gets one",
           textValue("ProductId", "00330-50000") + hexValue("EditionID", REG_SZ, utf16Data("Pro")),
           "ProductId:              00330-50000\nEditionID:              Pro\n");
}

void sizeRows()
{
    addRow("a text of 2048 bytes without a terminator is shown whole", binaryValue("CSDVersion", QByteArray(2048, 'x')),
           "CSDVersion:             " + QString(2048, 'x') + "\n");
    addRow("2047 characters and the terminator fit", textValue("CSDVersion", QString(2047, 'x')),
           "CSDVersion:             " + QString(2047, 'x') + "\n");
    addRow("2048 characters and the terminator do not fit: no line, the next value is read",
           textValue("CSDVersion", QString(2048, 'x')) + textValue("CSDBuildNumber", "1130"),
           "CSDBuildNumber:         1130\n");
}

#ifdef SIMULATED_WINDOWS

// The Windows half opens three keys with KEY_WOW64_64KEY and every other one without.
void keysOfThe64BitView()
{
    const DescribedWindows windows(DescribedWindows::load("workstation"));
    allWinInfos();
    QStringList with64BitView;
    int others = 0;
    for (const simulated::Call &call : simulated::journal()) {
        if (!call.name.startsWith("RegOpenKey"))
            continue;
        if (call.access == (KEY_READ | KEY_WOW64_64KEY)) {
            with64BitView += call.key;
        } else {
            QCOMPARE(call.access, DWORD(KEY_READ));
            ++others;
        }
    }
    QCOMPARE(with64BitView,
             QStringList({"HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion",
                          "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows NT\\CurrentVersion",
                          "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\OEMInformation"}));
    QVERIFY(others > 0);
}

#endif

void addRows()
{
    valueRows();
    textRows();
    bufferRows();
    sizeRows();
#ifdef SIMULATED_WINDOWS
    addTestRow("keys of the report with the 64-bit view", keysOfThe64BitView);
#endif
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
