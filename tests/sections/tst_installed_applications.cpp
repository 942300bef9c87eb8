// installedApplicationsFromRegistry() and installedVisualBasicApplications()

#include "section_rows.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const SectionRows rows(installedApplicationsFromRegistry,
                       ">>> Info about installed Velkor applications from registry:\n\n");
const SectionRows userRows(installedVisualBasicApplications,
                           ">>> Info about installed Velkor Visual Basic applications from registry:\n\n");

/// The key and the name of a product of the machine.
QByteArray product(const QByteArray &name, const QByteArray &key = "A1")
{
    return "[HKEY_CLASSES_ROOT\\Installer\\Products\\" + key + "]\n\"ProductName\"=\"" + name + "\"\n";
}

QByteArray userProduct(const QByteArray &name, const QByteArray &key = "A1")
{
    return "[HKEY_CURRENT_USER\\Software\\Microsoft\\Installer\\Products\\" + key + "]\n\"ProductName\"=\"" + name
        + "\"\n";
}

QByteArray classDefault(const QByteArray &path, const QByteArray &text)
{
    return "[HKEY_CLASSES_ROOT\\" + path + "]\n@=\"" + text + "\"\n";
}

/// The extensions and project types of all applications.
QByteArray allAssociations()
{
    QByteArray registry;
    for (const char *extension : {".lmdl", ".lmdl2", ".vkpj", ".wvp", ".q9p", ".q90"})
        registry += classDefault(extension, "some class");
    for (const char *type :
         {"Linemodel since V10", "Linemodel", "Q9 Project", "Q9 V2 Project", "Q9 V3 Project", "Q90 Project"})
        registry += classDefault(QByteArray(type) + "\\shell\\open\\command", "open.exe");
    return registry;
}

/// All values of a product except its name, as lines of registry.reg.
const char allValues[] = R"("AdvertiseFlags"=dword:00000184
"Assignment"=dword:00000001
"DeploymentFlags"=dword:00000003
"InstanceType"=dword:00000000
"Language"=dword:00000407
"PackageCode"="8F2A0C"
"Version"=dword:0a02012c
)";
const QStringList allValueLines = {"Version: 10.2.300 (raw value 0xa02012c)\n",
                                   "AdvertiseFlags: 0x184\n",
                                   "Assignment: 0x1\n",
                                   "DeploymentFlags: 0x3\n",
                                   "InstanceType: 0x0\n",
                                   "Language: 0x407\n",
                                   "PackageCode: 8F2A0C\n"};

/// The block of the product \a name.
QString block(const QString &name, const QString &lines = QString())
{
    return "ProductName: " + name + '\n' + lines + '\n';
}

QString extensionLine(const QString &extension, const QString &type)
{
    return "File extension '" + extension + "' registered with application project type '" + type + "'\n";
}

void nameRows()
{
    const auto shown = [](const char *what, const char *name, const QStringList &extensions, const char *type) {
        QString lines;
        for (const QString &extension : extensions)
            lines += extensionLine(extension, "some class");
        rows.text(what, product(name) + allAssociations(), block(name, lines + "Open command for '" + type + "':\nopen.exe\n"));
    };
    const auto hidden = [](const char *what, const char *name) { rows.text(what, product(name) + allAssociations(), ""); };

    const QStringList plain {".lmdl", ".lmdl2"};
    const QStringList withProject {".lmdl", ".lmdl2", ".vkpj"};
    shown("row 1: Linemodel 9", "Linemodel 9", plain, "Linemodel");
    shown("row 1: only Linemodel", "Linemodel", plain, "Linemodel");
    shown("row 1: V10", "Linemodel V10", withProject, "Linemodel since V10");
    shown("row 1: V10 and more text", "Linemodel V10.4 x64", withProject, "Linemodel since V10");
    shown("row 1: V11.2", "Linemodel V11.2", withProject, "Linemodel since V10");
    shown("row 1: V11 before the name", "V11 Linemodel", withProject, "Linemodel since V10");
    shown("row 1: no blank between", "LinemodelV10", withProject, "Linemodel since V10");
    shown("row 1: V100 contains V10", "Linemodel V100", withProject, "Linemodel since V10");
    shown("row 1: V12 is neither V10 nor V11", "Linemodel V12", plain, "Linemodel");
    shown("row 1: V1 is neither V10 nor V11", "Linemodel V1", plain, "Linemodel");
    shown("row 1: v10 in lower case is not V10", "Linemodel v10", plain, "Linemodel");
    shown("row 1: anywhere in the name", "My Linemodels", plain, "Linemodel");
    shown("row 1 precedes row 2", "Q9 Linemodel", plain, "Linemodel");
    shown("row 1 precedes row 5", "Q9 V3 with Linemodel V10", withProject, "Linemodel since V10");
    shown("row 1: a placeholder in the name", "Linemodel %1 %2 %99 %L1", plain, "Linemodel");
    hidden("row 1: linemodel in lower case", "linemodel V10");
    hidden("row 1: LineModel", "LineModel");
    hidden("row 1: only V10", "V10");

    shown("row 2: Q9", "Q9", {".wvp"}, "Q9 Project");
    hidden("row 2: q9 in lower case", "q9");
    hidden("row 2: a trailing blank", "Q9 ");
    hidden("row 2: a leading blank", " Q9");
    hidden("row 2: only the start of the name", "Q");
    hidden("row 2: with a version that no row has", "Q9 V1");

    shown("row 3: the beta has the project type of V2", "Q9 Beta", {".q9p", ".q90", ".vkpj"}, "Q9 V2 Project");
    hidden("row 3: beta in lower case", "Q9 beta");
    hidden("row 3: more text", "Q9 Beta 2");

    shown("row 4: Q9 V2", "Q9 V2", {".q9p", ".q90"}, "Q9 V2 Project");
    hidden("row 4: Q9 V2.1", "Q9 V2.1");
    hidden("row 4: v2 in lower case", "Q9 v2");

    shown("row 5: Q9 V3", "Q9 V3", {".q9p", ".q90", ".vkpj"}, "Q9 V3 Project");
    shown("row 5: Q9 V3.1", "Q9 V3.1", {".q9p", ".q90", ".vkpj"}, "Q9 V3 Project");
    shown("row 5: Q9 V30", "Q9 V30", {".q9p", ".q90", ".vkpj"}, "Q9 V3 Project");
    shown("row 5: a placeholder in the name", "Q9 V3 %1", {".q9p", ".q90", ".vkpj"}, "Q9 V3 Project");
    hidden("row 5: v3 in lower case", "Q9 v3.1");
    hidden("row 5: not at the start", "My Q9 V3");
    hidden("row 5: two blanks", "Q9  V3");

    shown("row 6: Q90", "Q90", {".q90"}, "Q90 Project");
    hidden("row 6: q90 in lower case", "q90");
    hidden("row 6: more text", "Q900");
    hidden("row 6: a version", "Q90 V3");

    hidden("an empty name", "");
    hidden("a product of another manufacturer", "Paint Shop");
    hidden("a tool of the section about the user", "Device Flasher");
}

/// Adds a row for each of the two sections.
void addValues(const QString &name, const QByteArray &values, const QString &lines)
{
    rows.text(name, product("Q9") + values, block("Q9", lines));
    userRows.text("of the user: " + name, userProduct("Device Flasher") + values, block("Device Flasher", lines));
}

void valueRows()
{
    addValues("all values: lines in the table's order", allValues, allValueLines.join(QString()));
    addValues("no values: the name and an empty line", "", "");
    addValues("only a version", "\"Version\"=dword:0a02012c\n", "Version: 10.2.300 (raw value 0xa02012c)\n");
    addValues("a version of 0", "\"Version\"=dword:0\n", "Version: 0.0.0 (raw value 0x0)\n");
    addValues("the highest version", "\"Version\"=dword:ffffffff\n", "Version: 255.255.65535 (raw value 0xffffffff)\n");
    addValues("a version of three bytes: the low bytes", hexValue("Version", REG_DWORD, "\x2c\x01\x02"),
              "Version: 0.2.300 (raw value 0x2012c)\n");
    addValues("a version of 0 bytes: 0", hexValue("Version", REG_DWORD, ""), "Version: 0.0.0 (raw value 0x0)\n");
    addValues("a version of five bytes: no line", hexValue("Version", REG_BINARY, "\x01\x02\x03\x04\x05"), "");
    addValues("the type of a version is not checked", hexValue("Version", REG_BINARY, "\x2c\x01\x02\x0a"),
              "Version: 10.2.300 (raw value 0xa02012c)\n");
    addValues("a version of type REG_SZ: its bytes are the number", "\"Version\"=\"1\"\n", "Version: 0.0.49 (raw value 0x31)\n");
    addValues("a version of type REG_SZ with more than four bytes: no line", "\"Version\"=\"10.2\"\n", "");
    addValues("only advertise flags", "\"AdvertiseFlags\"=dword:184\n", "AdvertiseFlags: 0x184\n");
    addValues("only assignment", "\"Assignment\"=dword:ab\n", "Assignment: 0xab\n");
    addValues("only deployment flags", "\"DeploymentFlags\"=dword:0000000f\n", "DeploymentFlags: 0xf\n");
    addValues("only instance type", "\"InstanceType\"=dword:ffffffff\n", "InstanceType: 0xffffffff\n");
    addValues("only language", "\"Language\"=dword:409\n", "Language: 0x409\n");
    addValues("a number of eight bytes: no line", hexValue("Language", 11, QByteArray(8, '\x01')), "");
    addValues("a short number keeps no bytes of the previous number",
              "\"DeploymentFlags\"=dword:ffffffff\n" + hexValue("InstanceType", REG_DWORD, "\x07"),
              "DeploymentFlags: 0xffffffff\nInstanceType: 0x7\n");
    addValues("only package code", "\"PackageCode\"=\"8F2A0C\"\n", "PackageCode: 8F2A0C\n");
    addValues("an empty package code", "\"PackageCode\"=\"\"\n", "PackageCode: \n");
    addValues("a package code of 0 bytes does not show the name", hexValue("PackageCode", REG_SZ, ""), "PackageCode: \n");
    addValues("a package code with placeholders", "\"PackageCode\"=\"%1%2%99%L1\"\n", "PackageCode: %1%2%99%L1\n");
    addValues("a package code ends at its first null", hexValue("PackageCode", REG_BINARY, QByteArray("ab\0cd", 5)),
              "PackageCode: ab\n");
    addValues("a package code without a terminator", hexValue("PackageCode", REG_SZ, utf16Data("abc")), "PackageCode: abc\n");
    addValues("a package code of 2047 characters fits", textValue("PackageCode", QString(2047, 'x')),
              "PackageCode: " + QString(2047, 'x') + '\n');
    addValues("a package code of 2048 bytes without a terminator is shown whole",
              hexValue("PackageCode", REG_BINARY, QByteArray(2048, 'x')), "PackageCode: " + QString(2048, 'x') + '\n');
    addValues("a package code of 2049 bytes: no line", textValue("PackageCode", QString(2048, 'x')), "");
    addValues("other values print nothing", "\"Publisher\"=\"x\"\n\"version2\"=dword:1\n", "");
    addValues("value names are case-insensitive", "\"LANGUAGE\"=dword:409\n", "Language: 0x409\n");
}

void associationRows()
{
    const auto row = [](const char *name, const QByteArray &classes, const QString &lines) {
        rows.text(name, product("Q9 V2") + classes, block("Q9 V2", lines));
    };
    const QByteArray command("Q9 V2 Project\\shell\\open\\command");
    row("nothing is registered: one empty line", "", "");
    row("an extension with its class", classDefault(".q9p", "Q9 V2 Project"),
        "File extension '.q9p' registered with application project type 'Q9 V2 Project'\n");
    row("both extensions, in the order of the table", classDefault(".q90", "b") + classDefault(".q9p", "a"),
        "File extension '.q9p' registered with application project type 'a'\n"
        "File extension '.q90' registered with application project type 'b'\n");
    row("an extension whose default value is empty", classDefault(".q9p", ""), "");
    row("an extension without a default value", "[HKEY_CLASSES_ROOT\\.q9p]\n\"Content Type\"=\"x\"\n", "");
    row("an extension of another application", classDefault(".vkpj", "x"), "");
    row("placeholders in a class are not replaced", classDefault(".q9p", "%1 %2"),
        "File extension '.q9p' registered with application project type '%1 %2'\n");
    row("an open command on a line of its own", classDefault(command, "\\\"C:\\\\Q9\\\\q9.exe\\\" \\\"%1\\\""),
        "Open command for 'Q9 V2 Project':\n\"C:\\Q9\\q9.exe\" \"%1\"\n");
    row("an empty open command", classDefault(command, ""), "");
    row("an open command without a default value", "[HKEY_CLASSES_ROOT\\" + command + "]\n", "");
    row("the open command of another project type", classDefault("Q9 Project\\shell\\open\\command", "x"), "");
    row("the open command of the extension's class is not read",
        classDefault(".q9p", "Other") + classDefault("Other\\shell\\open\\command", "x"),
        "File extension '.q9p' registered with application project type 'Other'\n");
    row("extensions before the open command", classDefault(command, "run") + classDefault(".q90", "c"),
        "File extension '.q90' registered with application project type 'c'\nOpen command for 'Q9 V2 Project':\nrun\n");
}

void walkRows()
{
    const QByteArray products("[HKEY_CLASSES_ROOT\\Installer\\Products]\n");
    rows.text("no products key: the heading and an empty line", "", "");
    rows.text("no product", products, "");
    rows.text("no matching product", product("Paint Shop") + product("q9", "A2"), "");
    rows.text("in the order of their keys", product("Q90", "B2") + product("Q9", "B1"),
              "ProductName: Q9\n\nProductName: Q90\n\n");
    rows.text("two products with the same name", product("Q9", "B2") + product("Q9", "B1"), "ProductName: Q9\n\nProductName: Q9\n\n");
    rows.text("other products between them have no lines",
              product("Q9", "B1") + product("Other", "B2") + product("Q90", "B3"), "ProductName: Q9\n\nProductName: Q90\n\n");
    rows.text("a product without a name is skipped",
              "[HKEY_CLASSES_ROOT\\Installer\\Products\\A0]\n\"Version\"=dword:1\n" + product("Q9"), "ProductName: Q9\n\n");
    rows.text("a product whose name does not fit the buffer is skipped",
              "[HKEY_CLASSES_ROOT\\Installer\\Products\\A0]\n"
                  + textValue("ProductName", "Linemodel" + QString(2040, 'x')) + product("Q9"),
              "ProductName: Q9\n\n");
    rows.text("a name without a terminator",
              "[HKEY_CLASSES_ROOT\\Installer\\Products\\A0]\n" + hexValue("ProductName", REG_SZ, utf16Data("Q9")),
              "ProductName: Q9\n\n");
    rows.text("a name ends at its first null",
              "[HKEY_CLASSES_ROOT\\Installer\\Products\\A0]\n" + hexValue("ProductName", REG_BINARY, QByteArray("Q9\0x", 4)),
              "ProductName: Q9\n\n");
    rows.text("a REG_DWORD whose bytes spell a name",
              "[HKEY_CLASSES_ROOT\\Installer\\Products\\A0]\n\"ProductName\"=dword:00003951\n", "ProductName: Q9\n\n");
    rows.text("products of the user are not listed", userProduct("Q9"), "");
    rows.text("keys below a product are not read",
              product("Q9") + "[HKEY_CLASSES_ROOT\\Installer\\Products\\A1\\SourceList]\n\"ProductName\"=\"Q90\"\n",
              "ProductName: Q9\n\n");
}

void deniedRows()
{
    const auto row = [](const QString &name, const QByteArrayList &denied, const QString &blocks) {
        rows.text("denied: " + name,
                  {product("Q9", "A1") + product("Q90", "A2") + product("Linemodel", "A3") + classDefault(".q90", "c")
                       + classDefault("Q90 Project\\shell\\open\\command", "run"),
                   deniedBelow("HKEY_CLASSES_ROOT", denied)},
                  blocks);
    };
    const QString first("ProductName: Q9\n\n");
    const QString middle("ProductName: Q90\nFile extension '.q90' registered with application project type 'c'\n"
                         "Open command for 'Q90 Project':\nrun\n\n");
    const QString last("ProductName: Linemodel\n\n");
    row("the first product", {"Installer\\Products\\A1"}, middle + last);
    row("a product in the middle", {"Installer\\Products\\A2"}, first + last);
    row("the last product", {"Installer\\Products\\A3"}, first + middle);
    row("all products", {"Installer\\Products\\A1", "Installer\\Products\\A2", "Installer\\Products\\A3"}, "");
    row("the key of all products", {"Installer\\Products"}, "");
    row("an extension: no line", {".q90"},
        first + "ProductName: Q90\nOpen command for 'Q90 Project':\nrun\n\n" + last);
    row("an open command: no line", {"Q90 Project\\shell\\open\\command"},
        first + "ProductName: Q90\nFile extension '.q90' registered with application project type 'c'\n\n" + last);
    row("a project type: no open command", {"Q90 Project"},
        first + "ProductName: Q90\nFile extension '.q90' registered with application project type 'c'\n\n" + last);
    const auto userRow = [](const QString &name, const QByteArray &denied, const QString &blocks) {
        userRows.text("denied to the user: " + name,
                      {userProduct("Device Flasher", "B1") + userProduct("M4-M8-vkUpdate", "B2")
                           + userProduct("T-BOX-vkUpdate", "B3"),
                       deniedBelow("HKEY_CURRENT_USER\\Software\\Microsoft\\Installer\\Products", {denied})},
                      blocks);
    };
    userRow("the first product", "B1", block("M4-M8-vkUpdate") + block("T-BOX-vkUpdate"));
    userRow("a product in the middle", "B2", block("Device Flasher") + block("T-BOX-vkUpdate"));
    userRow("the last product", "B3", block("Device Flasher") + block("M4-M8-vkUpdate"));
    userRow("the key of all products", "", "");
}

void userToolRows()
{
    const auto row = [](const QString &name, const QByteArray &registry, const QString &blocks) {
        userRows.text("of the user: " + name, registry, blocks);
    };
    row("no products key: the heading and an empty line", "", "");
    row("no product", "[HKEY_CURRENT_USER\\Software\\Microsoft\\Installer\\Products]\n", "");
    row("the update tool of M4 and M8", userProduct("M4-M8-vkUpdate"), "ProductName: M4-M8-vkUpdate\n\n");
    row("the flasher", userProduct("Device Flasher"), "ProductName: Device Flasher\n\n");
    row("the update tool of T-BOX", userProduct("T-BOX-vkUpdate"), "ProductName: T-BOX-vkUpdate\n\n");
    row("all three, in the order of their keys",
        userProduct("T-BOX-vkUpdate", "B3") + userProduct("Device Flasher", "B1") + userProduct("M4-M8-vkUpdate", "B2"),
        "ProductName: Device Flasher\n\nProductName: M4-M8-vkUpdate\n\nProductName: T-BOX-vkUpdate\n\n");
    row("all values", userProduct("T-BOX-vkUpdate") + allValues,
        block("T-BOX-vkUpdate", allValueLines.join(QString())));
    row("names in another case are not listed", userProduct("m4-m8-vkupdate") + userProduct("DEVICE FLASHER", "A2"), "");
    row("longer names are not listed", userProduct("Device Flasher 2") + userProduct("T-BOX-vkUpdate ", "A2"), "");
    row("shorter names are not listed", userProduct("M4-M8") + userProduct("Device", "A2"), "");
    row("applications of the other section are not listed", userProduct("Linemodel V10") + userProduct("Q9", "A2"), "");
    row("no extension or open command is looked up", userProduct("Device Flasher") + allAssociations(),
        "ProductName: Device Flasher\n\n");
    row("a product without a name is skipped",
        "[HKEY_CURRENT_USER\\Software\\Microsoft\\Installer\\Products\\A0]\n" + userProduct("Device Flasher"),
        "ProductName: Device Flasher\n\n");
    row("products of the machine are not listed", product("Device Flasher"), "");
}

// A real Windows has its own ANSI code page.
void codePageRows()
{
    rows.text("a key whose name is outside the code page cannot be opened and is skipped",
              product("Q9", "\xc3\xa9") + product("Q90", "\xc3\xbf") + product("Linemodel"), block("Linemodel"));
    rows.text("a non-ASCII name is recognised by its bytes", product("Linemodel f\xc3\xbcr alle"),
              block(QString::fromUtf8("Linemodel f\xef\xbf\xbdr alle")));
}

/// The calls for the key of a product. Quirk: the name of a product that is shown is
/// queried twice.
QString productCalls(const QString &key, bool shown, const QString &more = QString())
{
    QStringList queries {"ProductName 2048"};
    if (shown)
        queries += {"ProductName 2048", "Version 4", "AdvertiseFlags 4", "Assignment 4", "DeploymentFlags 4",
                    "InstanceType 4", "Language 4", "PackageCode 2048"};
    QString calls = keyCalls(key, queries);
    return calls.insert(calls.lastIndexOf("RegCloseKey"), more);
}

/// The calls that enumerate the two keys \a first and \a second below \a key.
QString walkCalls(const QString &key, const QString &first, const QString &second)
{
    const auto enumeration = [&](int index) { return QString("RegEnumKeyExA %1 \"%2\" 2048\n").arg(key).arg(index); };
    return openCall(key) + enumeration(0) + first + enumeration(1) + second + enumeration(2) + "RegCloseKey " + key + '\n';
}

void callRows()
{
    const QString classes = "HKEY_CLASSES_ROOT\\";
    const QString products = classes + "Installer\\Products";
    rows.calls("calls of a full machine", product("Q9", "B1") + allValues + product("Other", "B2") + allAssociations(),
               walkCalls(products,
                         productCalls(products + "\\B1", true,
                                      keyCalls(classes + ".wvp", {" 2048"})
                                          + keyCalls(classes + "Q9 Project\\shell\\open\\command", {" 2048"})),
                         productCalls(products + "\\B2", false)));
    const QString userProducts = "HKEY_CURRENT_USER\\Software\\Microsoft\\Installer\\Products";
    userRows.calls("calls for the user", userProduct("Device Flasher") + userProduct("Other", "A2"),
                   walkCalls(userProducts, productCalls(userProducts + "\\A1", true),
                             productCalls(userProducts + "\\A2", false)));
}

const QStringList noValue = {"no version", "no advertise flags", "no assignment", "no deployment flags", "no instance type",
                             "no language", "no package code"};

void failureRows()
{
    const Described full = product("Q9", "B1") + allValues + product("Q90", "B2") + classDefault(".wvp", "Q9 Project")
        + classDefault("Q9 Project\\shell\\open\\command", "q9.exe %1");
    const auto row = [&](const char *name, const char *call, int number, const QString &blocks) {
        rows.failure(name, full, call, number, blocks);
    };
    const QString nameLine = "ProductName: Q9\n";
    const QString values = allValueLines.join(QString());
    const QString extension = extensionLine(".wvp", "Q9 Project");
    const QString command = "Open command for 'Q9 Project':\nq9.exe %1\n";
    const QString first = nameLine + values + extension + command + '\n';
    const QString second = block("Q90");
    row("the products cannot be opened: only the heading", "RegOpenKeyExA", 0, "");
    row("a product cannot be opened: the next one follows", "RegOpenKeyExA", 1, second);
    row("an extension cannot be opened", "RegOpenKeyExA", 2, nameLine + values + command + '\n' + second);
    row("the open command cannot be opened", "RegOpenKeyExA", 3, nameLine + values + extension + '\n' + second);
    row("the enumeration fails at its start", "RegEnumKeyExA", 0, "");
    row("the enumeration fails: later products are not listed", "RegEnumKeyExA", 1, first);
    row("the name cannot be read: the next one follows", "RegQueryValueExA", 0, second);
    row("the name cannot be read again: its line is missing", "RegQueryValueExA", 1,
        values + extension + command + '\n' + second);
    rows.failures(full, "RegQueryValueExA", 2, allValueLines + QStringList {extension, command},
                  noValue + QStringList {"the extension's class cannot be read", "the open command cannot be read"}, nameLine,
                  '\n' + second);
    row("an extension cannot be closed: the text is unchanged", "RegCloseKey", 0, first + second);
    row("the open command cannot be closed: the text is unchanged", "RegCloseKey", 1, first + second);
    row("a product cannot be closed: the text is unchanged", "RegCloseKey", 2, first + second);
    rows.anyFailure("each call fails in turn", full);
}

void userFailureRows()
{
    const Described full = userProduct("Device Flasher", "B1") + allValues + userProduct("T-BOX-vkUpdate", "B2");
    const auto row = [&](const QString &name, const char *call, int number, const QString &blocks) {
        userRows.failure("of the user: " + name, full, call, number, blocks);
    };
    const QString first = block("Device Flasher", allValueLines.join(QString()));
    const QString second = block("T-BOX-vkUpdate");
    row("the products cannot be opened: only the heading", "RegOpenKeyExA", 0, "");
    row("a product cannot be opened: the next one follows", "RegOpenKeyExA", 1, second);
    row("the enumeration fails at its start", "RegEnumKeyExA", 0, "");
    row("the enumeration fails: later products are not listed", "RegEnumKeyExA", 1, first);
    row("the name cannot be read: the next one follows", "RegQueryValueExA", 0, second);
    row("the package code cannot be read", "RegQueryValueExA", 8,
        block("Device Flasher", allValueLines.mid(0, 6).join(QString())) + second);
    row("a product cannot be closed: the text is unchanged", "RegCloseKey", 0, first + second);
    userRows.anyFailure("any call for the user fails", full);
}

void addRows()
{
    nameRows();
    valueRows();
    associationRows();
    walkRows();
    deniedRows();
    userToolRows();
    if (windowsIsSimulated)
        codePageRows();
    callRows();
    failureRows();
    userFailureRows();
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
