// installedApplicationsFromRegistry() and installedVisualBasicApplications(): texts and calls.

#include "described_windows.h"
#include "registry_values.h"
#include "section_calls.h"
#include "test_main.h"
#include "texts.h"
#include "win/windows_sections.h"

#include <windows.h>

using namespace velkor::SystemInfo::WinSysInfo;

class InstalledApplicationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void recognisedNames_data();
    void recognisedNames();
    void productValues_data();
    void productValues();
    void associations_data();
    void associations();
    void walk_data();
    void walk();
    void userTools_data();
    void userTools();
    void deniedKeys_data();
    void deniedKeys();
    void deniedUserTools_data();
    void deniedUserTools();
#ifdef SIMULATED_WINDOWS
    void walkOfASimulatedMachine_data();
    void walkOfASimulatedMachine();
    void callsOfAFullMachine();
    void callsForTheUser();
    void failingCalls_data();
    void failingCalls();
    void failingCallsForTheUser_data();
    void failingCallsForTheUser();
    void anyFailingCall();
#endif
};

namespace {

const char title[] = ">>> Info about installed Velkor applications from registry:\n\n";
const char userTitle[] = ">>> Info about installed Velkor Visual Basic applications from registry:\n\n";

/// A product of the machine; its values may follow.
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

/// Every extension and every project type that any application has.
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

/// The values of a product, each as the registry editor exports it.
const char allValues[] = R"("AdvertiseFlags"=dword:00000184
"Assignment"=dword:00000001
"DeploymentFlags"=dword:00000003
"InstanceType"=dword:00000000
"Language"=dword:00000407
"PackageCode"="8F2A0C"
"Version"=dword:0a02012c
)";

const char allValueLines[] = "Version: 10.2.300 (raw value 0xa02012c)\n"
                             "AdvertiseFlags: 0x184\n"
                             "Assignment: 0x1\n"
                             "DeploymentFlags: 0x3\n"
                             "InstanceType: 0x0\n"
                             "Language: 0x407\n"
                             "PackageCode: 8F2A0C\n";

} // namespace

void InstalledApplicationsTest::recognisedNames_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QStringList>("extensions");
    QTest::addColumn<QString>("projectType"); // empty: the product is not shown
    const auto shown = [](const char *what, const char *name, const QStringList &extensions, const char *type) {
        QTest::newRow(what) << QByteArray(name) << extensions << QString::fromLatin1(type);
    };
    const auto hidden = [&](const char *what, const char *name) { shown(what, name, {}, ""); };

    const QStringList plain {".lmdl", ".lmdl2"};
    const QStringList withProject {".lmdl", ".lmdl2", ".vkpj"};
    shown("row 1: Linemodel 9", "Linemodel 9", plain, "Linemodel");
    shown("row 1: Linemodel alone", "Linemodel", plain, "Linemodel");
    shown("row 1: V10", "Linemodel V10", withProject, "Linemodel since V10");
    shown("row 1: V10 with more behind", "Linemodel V10.4 x64", withProject, "Linemodel since V10");
    shown("row 1: V11.2", "Linemodel V11.2", withProject, "Linemodel since V10");
    shown("row 1: V11 before the name", "V11 Linemodel", withProject, "Linemodel since V10");
    shown("row 1: no blank between", "LinemodelV10", withProject, "Linemodel since V10");
    shown("row 1: V100 contains V10", "Linemodel V100", withProject, "Linemodel since V10");
    shown("row 1: V12 is neither", "Linemodel V12", plain, "Linemodel");
    shown("row 1: V1 is neither", "Linemodel V1", plain, "Linemodel");
    shown("row 1: v10 in lower case is neither", "Linemodel v10", plain, "Linemodel");
    shown("row 1: anywhere in the name", "My Linemodels", plain, "Linemodel");
    shown("row 1 goes before row 2", "Q9 Linemodel", plain, "Linemodel");
    shown("row 1 goes before row 5", "Q9 V3 with Linemodel V10", withProject, "Linemodel since V10");
    shown("row 1: a placeholder in the name", "Linemodel %1 %2 %99 %L1", plain, "Linemodel");
    hidden("row 1: linemodel in lower case", "linemodel V10");
    hidden("row 1: LineModel", "LineModel");
    hidden("row 1: V10 alone", "V10");

    shown("row 2: Q9", "Q9", {".wvp"}, "Q9 Project");
    hidden("row 2: q9 in lower case", "q9");
    hidden("row 2: a blank behind", "Q9 ");
    hidden("row 2: a blank before", " Q9");
    hidden("row 2: only its start", "Q");
    hidden("row 2: with a version of no row", "Q9 V1");

    shown("row 3: the beta, with the project type of V2", "Q9 Beta", {".q9p", ".q90", ".vkpj"}, "Q9 V2 Project");
    hidden("row 3: beta in lower case", "Q9 beta");
    hidden("row 3: more behind", "Q9 Beta 2");

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
    hidden("row 6: more behind", "Q900");
    hidden("row 6: a version", "Q90 V3");

    hidden("an empty name", "");
    hidden("another maker's", "Paint Shop");
    hidden("a tool of the user section", "Device Flasher");
}

void InstalledApplicationsTest::recognisedNames()
{
    QFETCH(QByteArray, name);
    QFETCH(QStringList, extensions);
    QFETCH(QString, projectType);
    QString expected = QString::fromLatin1(title);
    if (!projectType.isEmpty()) {
        expected += "ProductName: " + QString::fromLatin1(name) + '\n';
        for (const QString &extension : qAsConst(extensions))
            expected += "File extension '" + extension + "' registered with application project type 'some class'\n";
        expected += "Open command for '" + projectType + "':\nopen.exe\n\n";
    }
    const DescribedWindows windows(product(name) + allAssociations());
    COMPARE_TEXT(installedApplicationsFromRegistry(), expected);
}

void InstalledApplicationsTest::productValues_data()
{
    QTest::addColumn<QByteArray>("values");
    QTest::addColumn<QString>("lines"); // behind that of the name
    const auto row = [](const char *what, const QByteArray &values, const QString &lines) {
        QTest::newRow(what) << values << lines;
    };
    row("all values: lines in the table's order", allValues, allValueLines);
    row("none: the name and an empty line", "", "");
    row("a version alone", "\"Version\"=dword:0a02012c\n", "Version: 10.2.300 (raw value 0xa02012c)\n");
    row("a version of 0", "\"Version\"=dword:0\n", "Version: 0.0.0 (raw value 0x0)\n");
    row("the highest version", "\"Version\"=dword:ffffffff\n", "Version: 255.255.65535 (raw value 0xffffffff)\n");
    row("a version of three bytes: the low ones", hexValue("Version", REG_DWORD, "\x2c\x01\x02"),
        "Version: 0.2.300 (raw value 0x2012c)\n");
    row("a version of no bytes: 0", hexValue("Version", REG_DWORD, ""), "Version: 0.0.0 (raw value 0x0)\n");
    row("a version of five bytes: no line", hexValue("Version", REG_BINARY, "\x01\x02\x03\x04\x05"), "");
    row("a version of another type is a number all the same", hexValue("Version", REG_BINARY, "\x2c\x01\x02\x0a"),
        "Version: 10.2.300 (raw value 0xa02012c)\n");
    row("a version that is a text: its bytes", "\"Version\"=\"1\"\n", "Version: 0.0.49 (raw value 0x31)\n");
    row("a version that is a longer text: no line", "\"Version\"=\"10.2\"\n", "");
    row("advertise flags alone", "\"AdvertiseFlags\"=dword:184\n", "AdvertiseFlags: 0x184\n");
    row("assignment alone", "\"Assignment\"=dword:ab\n", "Assignment: 0xab\n");
    row("deployment flags alone", "\"DeploymentFlags\"=dword:0000000f\n", "DeploymentFlags: 0xf\n");
    row("instance type alone", "\"InstanceType\"=dword:ffffffff\n", "InstanceType: 0xffffffff\n");
    row("language alone", "\"Language\"=dword:409\n", "Language: 0x409\n");
    row("a number of eight bytes: no line", hexValue("Language", 11, QByteArray(8, '\x01')), "");
    row("a short number starts from 0, not from the one before",
        "\"DeploymentFlags\"=dword:ffffffff\n" + hexValue("InstanceType", REG_DWORD, "\x07"),
        "DeploymentFlags: 0xffffffff\nInstanceType: 0x7\n");
    row("package code alone", "\"PackageCode\"=\"8F2A0C\"\n", "PackageCode: 8F2A0C\n");
    row("an empty package code", "\"PackageCode\"=\"\"\n", "PackageCode: \n");
    row("a package code of no bytes does not show the name", hexValue("PackageCode", REG_SZ, ""), "PackageCode: \n");
    row("a package code with placeholders", "\"PackageCode\"=\"%1%2%99%L1\"\n", "PackageCode: %1%2%99%L1\n");
    row("a package code up to its first null", hexValue("PackageCode", REG_BINARY, QByteArray("ab\0cd", 5)),
        "PackageCode: ab\n");
    row("a package code without a terminator", hexValue("PackageCode", REG_SZ, utf16Data("abc")), "PackageCode: abc\n");
    row("a package code of 2047 characters fits", textValue("PackageCode", QString(2047, 'x')),
        "PackageCode: " + QString(2047, 'x') + '\n');
    row("a package code of 2048 bytes without a terminator is text as a whole",
        hexValue("PackageCode", REG_BINARY, QByteArray(2048, 'x')), "PackageCode: " + QString(2048, 'x') + '\n');
    row("a package code of 2049 bytes: no line", textValue("PackageCode", QString(2048, 'x')), "");
    row("other values print nothing", "\"Publisher\"=\"x\"\n\"version2\"=dword:1\n", "");
    row("value names without regard to case", "\"LANGUAGE\"=dword:409\n", "Language: 0x409\n");
}

void InstalledApplicationsTest::productValues()
{
    QFETCH(QByteArray, values);
    QFETCH(QString, lines);
    {
        const DescribedWindows windows(product("Q9") + values);
        COMPARE_TEXT(installedApplicationsFromRegistry(), title + QStringLiteral("ProductName: Q9\n") + lines + '\n');
    }
    const DescribedWindows windows(userProduct("Device Flasher") + values);
    COMPARE_TEXT(installedVisualBasicApplications(),
                 userTitle + QStringLiteral("ProductName: Device Flasher\n") + lines + '\n');
}

void InstalledApplicationsTest::associations_data()
{
    QTest::addColumn<QByteArray>("classes");
    QTest::addColumn<QString>("lines"); // behind that of the name
    const auto row = [](const char *what, const QByteArray &classes, const QString &lines) {
        QTest::newRow(what) << classes << lines;
    };
    const QByteArray command("Q9 V2 Project\\shell\\open\\command");
    row("nothing registered: a single empty line", "", "");
    row("an extension with its class", classDefault(".q9p", "Q9 V2 Project"),
        "File extension '.q9p' registered with application project type 'Q9 V2 Project'\n");
    row("both extensions, in the order of the table", classDefault(".q90", "b") + classDefault(".q9p", "a"),
        "File extension '.q9p' registered with application project type 'a'\n"
        "File extension '.q90' registered with application project type 'b'\n");
    row("an extension whose default value is empty", classDefault(".q9p", ""), "");
    row("an extension without a default value", "[HKEY_CLASSES_ROOT\\.q9p]\n\"Content Type\"=\"x\"\n", "");
    row("an extension of another application", classDefault(".vkpj", "x"), "");
    row("placeholders in a class stay", classDefault(".q9p", "%1 %2"),
        "File extension '.q9p' registered with application project type '%1 %2'\n");
    row("an open command on a line of its own", classDefault(command, "\\\"C:\\\\Q9\\\\q9.exe\\\" \\\"%1\\\""),
        "Open command for 'Q9 V2 Project':\n\"C:\\Q9\\q9.exe\" \"%1\"\n");
    row("an empty open command", classDefault(command, ""), "");
    row("an open command without a default value", "[HKEY_CLASSES_ROOT\\" + command + "]\n", "");
    row("the open command of another project type", classDefault("Q9 Project\\shell\\open\\command", "x"), "");
    row("the project type of the class is not asked",
        classDefault(".q9p", "Other") + classDefault("Other\\shell\\open\\command", "x"),
        "File extension '.q9p' registered with application project type 'Other'\n");
    row("extensions before the open command", classDefault(command, "run") + classDefault(".q90", "c"),
        "File extension '.q90' registered with application project type 'c'\nOpen command for 'Q9 V2 Project':\nrun\n");
}

void InstalledApplicationsTest::associations()
{
    QFETCH(QByteArray, classes);
    QFETCH(QString, lines);
    const DescribedWindows windows(product("Q9 V2") + classes);
    COMPARE_TEXT(installedApplicationsFromRegistry(), title + QStringLiteral("ProductName: Q9 V2\n") + lines + '\n');
}

void InstalledApplicationsTest::walk_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QString>("blocks");
    const auto row = [](const char *what, const QByteArray &registry, const QString &blocks) {
        QTest::newRow(what) << registry << blocks;
    };
    const QByteArray products("[HKEY_CLASSES_ROOT\\Installer\\Products]\n");
    row("no products key: the heading and an empty line", "", "");
    row("no product", products, "");
    row("no matching product", product("Paint Shop") + product("q9", "A2"), "");
    row("in the order of their keys", product("Q90", "B2") + product("Q9", "B1"),
        "ProductName: Q9\n\nProductName: Q90\n\n");
    row("the same product twice", product("Q9", "B2") + product("Q9", "B1"), "ProductName: Q9\n\nProductName: Q9\n\n");
    row("others between print nothing",
        product("Q9", "B1") + product("Other", "B2") + product("Q90", "B3"), "ProductName: Q9\n\nProductName: Q90\n\n");
    row("a product without a name is skipped",
        "[HKEY_CLASSES_ROOT\\Installer\\Products\\A0]\n\"Version\"=dword:1\n" + product("Q9"), "ProductName: Q9\n\n");
    row("a name that is too long for its buffer is none",
        "[HKEY_CLASSES_ROOT\\Installer\\Products\\A0]\n"
            + textValue("ProductName", "Linemodel" + QString(2040, 'x')) + product("Q9"),
        "ProductName: Q9\n\n");
    row("a name without a terminator",
        "[HKEY_CLASSES_ROOT\\Installer\\Products\\A0]\n" + hexValue("ProductName", REG_SZ, utf16Data("Q9")),
        "ProductName: Q9\n\n");
    row("a name ends at its first null",
        "[HKEY_CLASSES_ROOT\\Installer\\Products\\A0]\n" + hexValue("ProductName", REG_BINARY, QByteArray("Q9\0x", 4)),
        "ProductName: Q9\n\n");
    row("a number whose bytes read as a name",
        "[HKEY_CLASSES_ROOT\\Installer\\Products\\A0]\n\"ProductName\"=dword:00003951\n", "ProductName: Q9\n\n");
    row("products of the user are not the machine's", userProduct("Q9"), "");
    row("values and keys below a product",
        product("Q9") + "[HKEY_CLASSES_ROOT\\Installer\\Products\\A1\\SourceList]\n\"ProductName\"=\"Q90\"\n",
        "ProductName: Q9\n\n");
}

void InstalledApplicationsTest::walk()
{
    QFETCH(QByteArray, registry);
    QFETCH(QString, blocks);
    const DescribedWindows windows(registry);
    COMPARE_TEXT(installedApplicationsFromRegistry(), title + blocks);
}

void InstalledApplicationsTest::deniedKeys_data()
{
    QTest::addColumn<QByteArrayList>("denied"); // below HKEY_CLASSES_ROOT
    QTest::addColumn<QString>("blocks");
    const auto row = [](const char *what, const QByteArrayList &denied, const QString &blocks) {
        QTest::newRow(what) << denied << blocks;
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
    row("a project type: its open command neither", {"Q90 Project"},
        first + "ProductName: Q90\nFile extension '.q90' registered with application project type 'c'\n\n" + last);
}

void InstalledApplicationsTest::deniedKeys()
{
    QFETCH(QByteArrayList, denied);
    QFETCH(QString, blocks);
    const DescribedWindows windows(product("Q9", "A1") + product("Q90", "A2") + product("Linemodel", "A3")
                                       + classDefault(".q90", "c")
                                       + classDefault("Q90 Project\\shell\\open\\command", "run"),
                                   deniedBelow("HKEY_CLASSES_ROOT", denied));
    COMPARE_TEXT(installedApplicationsFromRegistry(), title + blocks);
}

void InstalledApplicationsTest::deniedUserTools_data()
{
    QTest::addColumn<QByteArrayList>("denied"); // below the key of the user's products
    QTest::addColumn<QString>("blocks");
    const QString flasher("ProductName: Device Flasher\n\n");
    const QString m4("ProductName: M4-M8-vkUpdate\n\n");
    const QString tBox("ProductName: T-BOX-vkUpdate\n\n");
    QTest::newRow("the first product") << QByteArrayList {"B1"} << m4 + tBox;
    QTest::newRow("a product in the middle") << QByteArrayList {"B2"} << flasher + tBox;
    QTest::newRow("the last product") << QByteArrayList {"B3"} << flasher + m4;
    QTest::newRow("the key of all products") << QByteArrayList {""} << QString();
}

void InstalledApplicationsTest::deniedUserTools()
{
    QFETCH(QByteArrayList, denied);
    QFETCH(QString, blocks);
    const DescribedWindows windows(
        userProduct("Device Flasher", "B1") + userProduct("M4-M8-vkUpdate", "B2") + userProduct("T-BOX-vkUpdate", "B3"),
        deniedBelow("HKEY_CURRENT_USER\\Software\\Microsoft\\Installer\\Products", denied));
    COMPARE_TEXT(installedVisualBasicApplications(), userTitle + blocks);
}

void InstalledApplicationsTest::userTools_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QString>("blocks");
    const auto row = [](const char *what, const QByteArray &registry, const QString &blocks) {
        QTest::newRow(what) << registry << blocks;
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
        QStringLiteral("ProductName: T-BOX-vkUpdate\n") + allValueLines + '\n');
    row("other case: none", userProduct("m4-m8-vkupdate") + userProduct("DEVICE FLASHER", "A2"), "");
    row("more behind: none", userProduct("Device Flasher 2") + userProduct("T-BOX-vkUpdate ", "A2"), "");
    row("less: none", userProduct("M4-M8") + userProduct("Device", "A2"), "");
    row("applications of the other section: none", userProduct("Linemodel V10") + userProduct("Q9", "A2"), "");
    row("no extension or open command is looked up", userProduct("Device Flasher") + allAssociations(),
        "ProductName: Device Flasher\n\n");
    row("a product without a name is skipped",
        "[HKEY_CURRENT_USER\\Software\\Microsoft\\Installer\\Products\\A0]\n" + userProduct("Device Flasher"),
        "ProductName: Device Flasher\n\n");
    row("products of the machine are not the user's", product("Device Flasher"), "");
}

void InstalledApplicationsTest::userTools()
{
    QFETCH(QByteArray, registry);
    QFETCH(QString, blocks);
    const DescribedWindows windows(registry);
    COMPARE_TEXT(installedVisualBasicApplications(), userTitle + blocks);
}

#ifdef SIMULATED_WINDOWS

void InstalledApplicationsTest::walkOfASimulatedMachine_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QString>("blocks");
    QTest::newRow("a key whose name is lost on the way cannot be opened and is skipped")
        << product("Q9", "\xc3\xa9") + product("Q90", "\xc3\xbf") + product("Linemodel") << "ProductName: Linemodel\n\n";
    QTest::newRow("a name beyond ASCII is recognised by its bytes")
        << product("Linemodel f\xc3\xbcr alle") << QString::fromUtf8("ProductName: Linemodel f\xef\xbf\xbdr alle\n\n");
}

void InstalledApplicationsTest::walkOfASimulatedMachine()
{
    walk();
}

void InstalledApplicationsTest::callsOfAFullMachine()
{
    const DescribedWindows windows(product("Q9", "B1") + allValues + product("Other", "B2") + allAssociations());
    installedApplicationsFromRegistry();
    COMPARE_TEXT(journalText(), R"(RegOpenKeyExA HKEY_CLASSES_ROOT\Installer\Products 0x20019
RegEnumKeyExA HKEY_CLASSES_ROOT\Installer\Products "0" 2048
RegOpenKeyExA HKEY_CLASSES_ROOT\Installer\Products\B1 0x20019
RegQueryValueExA HKEY_CLASSES_ROOT\Installer\Products\B1 "ProductName" 2048
RegQueryValueExA HKEY_CLASSES_ROOT\Installer\Products\B1 "ProductName" 2048
RegQueryValueExA HKEY_CLASSES_ROOT\Installer\Products\B1 "Version" 4
RegQueryValueExA HKEY_CLASSES_ROOT\Installer\Products\B1 "AdvertiseFlags" 4
RegQueryValueExA HKEY_CLASSES_ROOT\Installer\Products\B1 "Assignment" 4
RegQueryValueExA HKEY_CLASSES_ROOT\Installer\Products\B1 "DeploymentFlags" 4
RegQueryValueExA HKEY_CLASSES_ROOT\Installer\Products\B1 "InstanceType" 4
RegQueryValueExA HKEY_CLASSES_ROOT\Installer\Products\B1 "Language" 4
RegQueryValueExA HKEY_CLASSES_ROOT\Installer\Products\B1 "PackageCode" 2048
RegOpenKeyExA HKEY_CLASSES_ROOT\.wvp 0x20019
RegQueryValueExA HKEY_CLASSES_ROOT\.wvp "" 2048
RegCloseKey HKEY_CLASSES_ROOT\.wvp
RegOpenKeyExA HKEY_CLASSES_ROOT\Q9 Project\shell\open\command 0x20019
RegQueryValueExA HKEY_CLASSES_ROOT\Q9 Project\shell\open\command "" 2048
RegCloseKey HKEY_CLASSES_ROOT\Q9 Project\shell\open\command
RegCloseKey HKEY_CLASSES_ROOT\Installer\Products\B1
RegEnumKeyExA HKEY_CLASSES_ROOT\Installer\Products "1" 2048
RegOpenKeyExA HKEY_CLASSES_ROOT\Installer\Products\B2 0x20019
RegQueryValueExA HKEY_CLASSES_ROOT\Installer\Products\B2 "ProductName" 2048
RegCloseKey HKEY_CLASSES_ROOT\Installer\Products\B2
RegEnumKeyExA HKEY_CLASSES_ROOT\Installer\Products "2" 2048
RegCloseKey HKEY_CLASSES_ROOT\Installer\Products
)");
    QCOMPARE(handleProblems(), QString());
}

void InstalledApplicationsTest::callsForTheUser()
{
    const DescribedWindows windows(userProduct("Device Flasher") + userProduct("Other", "A2"));
    installedVisualBasicApplications();
    COMPARE_TEXT(journalText(), R"(RegOpenKeyExA HKEY_CURRENT_USER\Software\Microsoft\Installer\Products 0x20019
RegEnumKeyExA HKEY_CURRENT_USER\Software\Microsoft\Installer\Products "0" 2048
RegOpenKeyExA HKEY_CURRENT_USER\Software\Microsoft\Installer\Products\A1 0x20019
RegQueryValueExA HKEY_CURRENT_USER\Software\Microsoft\Installer\Products\A1 "ProductName" 2048
RegQueryValueExA HKEY_CURRENT_USER\Software\Microsoft\Installer\Products\A1 "ProductName" 2048
RegQueryValueExA HKEY_CURRENT_USER\Software\Microsoft\Installer\Products\A1 "Version" 4
RegQueryValueExA HKEY_CURRENT_USER\Software\Microsoft\Installer\Products\A1 "AdvertiseFlags" 4
RegQueryValueExA HKEY_CURRENT_USER\Software\Microsoft\Installer\Products\A1 "Assignment" 4
RegQueryValueExA HKEY_CURRENT_USER\Software\Microsoft\Installer\Products\A1 "DeploymentFlags" 4
RegQueryValueExA HKEY_CURRENT_USER\Software\Microsoft\Installer\Products\A1 "InstanceType" 4
RegQueryValueExA HKEY_CURRENT_USER\Software\Microsoft\Installer\Products\A1 "Language" 4
RegQueryValueExA HKEY_CURRENT_USER\Software\Microsoft\Installer\Products\A1 "PackageCode" 2048
RegCloseKey HKEY_CURRENT_USER\Software\Microsoft\Installer\Products\A1
RegEnumKeyExA HKEY_CURRENT_USER\Software\Microsoft\Installer\Products "1" 2048
RegOpenKeyExA HKEY_CURRENT_USER\Software\Microsoft\Installer\Products\A2 0x20019
RegQueryValueExA HKEY_CURRENT_USER\Software\Microsoft\Installer\Products\A2 "ProductName" 2048
RegCloseKey HKEY_CURRENT_USER\Software\Microsoft\Installer\Products\A2
RegEnumKeyExA HKEY_CURRENT_USER\Software\Microsoft\Installer\Products "2" 2048
RegCloseKey HKEY_CURRENT_USER\Software\Microsoft\Installer\Products
)");
    QCOMPARE(handleProblems(), QString());
}

namespace {

/// Two products; the first with everything.
machine::Machine fullMachine()
{
    const QByteArray associations = classDefault(".wvp", "Q9 Project")
        + classDefault("Q9 Project\\shell\\open\\command", "q9.exe %1");
    return DescribedWindows::parse(product("Q9", "B1") + allValues + product("Q90", "B2") + associations, "{}");
}

machine::Machine fullUser()
{
    return DescribedWindows::parse(
        userProduct("Device Flasher", "B1") + allValues + userProduct("T-BOX-vkUpdate", "B2"), "{}");
}

const char nameLine[] = "ProductName: Q9\n";
const char extensionLine[] = "File extension '.wvp' registered with application project type 'Q9 Project'\n";
const char commandLines[] = "Open command for 'Q9 Project':\nq9.exe %1\n";
const char secondBlock[] = "ProductName: Q90\n\n";

/// The text without one of its parts.
QString without(QString text, const char *part)
{
    return text.remove(QString::fromLatin1(part));
}

} // namespace

void InstalledApplicationsTest::failingCalls_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("expected");
    const QString full = QString(title) + nameLine + allValueLines + extensionLine + commandLines + '\n' + secondBlock;
    const auto row = [](const char *what, const char *call, int number, const QString &expected) {
        QTest::newRow(what) << QByteArray(call) << number << expected;
    };
    row("the products do not open: the heading alone", "RegOpenKeyExA", 0, title);
    row("a product does not open: the next one follows", "RegOpenKeyExA", 1, QString(title) + secondBlock);
    row("an extension does not open", "RegOpenKeyExA", 2, without(full, extensionLine));
    row("the open command does not open", "RegOpenKeyExA", 3, without(full, commandLines));
    row("the walk fails at its start", "RegEnumKeyExA", 0, title);
    row("the walk fails: products behind are not shown", "RegEnumKeyExA", 1, without(full, secondBlock));
    row("the name cannot be read: the next one follows", "RegQueryValueExA", 0, QString(title) + secondBlock);
    row("the name cannot be read again: its line is missing", "RegQueryValueExA", 1, without(full, nameLine));
    row("no version", "RegQueryValueExA", 2, without(full, "Version: 10.2.300 (raw value 0xa02012c)\n"));
    row("no advertise flags", "RegQueryValueExA", 3, without(full, "AdvertiseFlags: 0x184\n"));
    row("no assignment", "RegQueryValueExA", 4, without(full, "Assignment: 0x1\n"));
    row("no deployment flags", "RegQueryValueExA", 5, without(full, "DeploymentFlags: 0x3\n"));
    row("no instance type", "RegQueryValueExA", 6, without(full, "InstanceType: 0x0\n"));
    row("no language", "RegQueryValueExA", 7, without(full, "Language: 0x407\n"));
    row("no package code", "RegQueryValueExA", 8, without(full, "PackageCode: 8F2A0C\n"));
    row("the extension's class cannot be read", "RegQueryValueExA", 9, without(full, extensionLine));
    row("the open command cannot be read", "RegQueryValueExA", 10, without(full, commandLines));
    row("an extension does not close: nothing shows", "RegCloseKey", 0, full);
    row("the open command does not close: nothing shows", "RegCloseKey", 1, full);
    row("a product does not close: nothing shows", "RegCloseKey", 2, full);
}

void InstalledApplicationsTest::failingCalls()
{
    QFETCH(QByteArray, call);
    QFETCH(int, number);
    QFETCH(QString, expected);
    COMPARE_TEXT(textWithFailingCall(fullMachine(), call, number, installedApplicationsFromRegistry), expected);
}

void InstalledApplicationsTest::failingCallsForTheUser_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("expected");
    const QString first = QStringLiteral("ProductName: Device Flasher\n") + allValueLines + '\n';
    const QString second("ProductName: T-BOX-vkUpdate\n\n");
    const auto row = [](const char *what, const char *call, int number, const QString &expected) {
        QTest::newRow(what) << QByteArray(call) << number << expected;
    };
    row("the products do not open: the heading alone", "RegOpenKeyExA", 0, userTitle);
    row("a product does not open: the next one follows", "RegOpenKeyExA", 1, userTitle + second);
    row("the walk fails at its start", "RegEnumKeyExA", 0, userTitle);
    row("the walk fails: products behind are not shown", "RegEnumKeyExA", 1, userTitle + first);
    row("the name cannot be read: the next one follows", "RegQueryValueExA", 0, userTitle + second);
    row("the package code cannot be read", "RegQueryValueExA", 8,
        userTitle + without(first, "PackageCode: 8F2A0C\n") + second);
    row("a product does not close: nothing shows", "RegCloseKey", 0, userTitle + first + second);
}

void InstalledApplicationsTest::failingCallsForTheUser()
{
    QFETCH(QByteArray, call);
    QFETCH(int, number);
    QFETCH(QString, expected);
    COMPARE_TEXT(textWithFailingCall(fullUser(), call, number, installedVisualBasicApplications), expected);
}

void InstalledApplicationsTest::anyFailingCall()
{
    QCOMPARE(problemOfAnyFailingCall(fullMachine(), title, installedApplicationsFromRegistry), QString());
    QCOMPARE(problemOfAnyFailingCall(fullUser(), userTitle, installedVisualBasicApplications), QString());
}

#endif

TEST_WITH_CORE_APPLICATION(InstalledApplicationsTest);
#include "tst_installed_applications.moc"
