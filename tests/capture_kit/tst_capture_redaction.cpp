// The redaction of machine descriptions: what is replaced, what stays, and that the description still gives the
// Windows half of the redacted report.

#include "capture_comparison.h"
#include "capture_redaction.h"
#include "described_windows.h"
#include "registry_file.h"
#include "system_file.h"
#include "test_main.h"
#include "win/windows_sections.h"

#include <QtCore/QFile>
#include <QtCore/QtEndian>

Q_DECLARE_METATYPE(velkor::Reports::RedactionOptions)

using namespace velkor;

class CaptureRedactionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void replayIsTheRedactedReport_data();
    void replayIsTheRedactedReport();
    void unusualMachines_data();
    void unusualMachines();
    void noIdentityIsLeft();
    void sameAliasInAllFiles();
    void values_data();
    void values();
    void names();
    void namesThatTheReportOpensStay();
    void addressInBinaryData();
    void longNamesStayLong();
    void notes();
    void hostileDescriptions();
};

namespace {

QByteArray contentOf(const QString &name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(name));
    return file.readAll();
}

Reports::Document workstationReport()
{
    return Reports::read(contentOf(QStringLiteral(REPORTS_DATA_DIR "/workstation.txt")));
}

QByteArray windowsHalf(const QByteArray &report)
{
    const int end = report.indexOf(Reports::halfHeading(Reports::Half::Qt));
    return report.left(end);
}

QByteArray replayed(const machine::Machine &machine)
{
    const DescribedWindows windows(machine);
    return SystemInfo::WinSysInfo::allWinInfos().toUtf8();
}

/// What vkcapture writes and vkreplay reads.
machine::Machine writtenAndRead(const machine::Machine &machine)
{
    machine::Machine result;
    QString error;
    int line = 0;
    const bool isRead = machine::readRegistryFile(machine::writeRegistryFile(machine.registry), result.registry, error, line)
        && machine::readSystemFile(machine::writeSystemFile(machine), result, error, line);
    if (!isRead)
        qFatal("line %d: %s", line, qPrintable(error));
    return result;
}

QStringList linesOf(const QByteArray &text)
{
    return QString::fromUtf8(text).split(QLatin1Char('\n'));
}

void compareTexts(const QByteArray &actual, const QByteArray &expected)
{
    const QStringList actualLines = linesOf(actual);
    const QStringList expectedLines = linesOf(expected);
    for (int i = 0; i < std::min(actualLines.size(), expectedLines.size()); ++i)
        QCOMPARE(actualLines.at(i), expectedLines.at(i));
    QCOMPARE(actualLines.size(), expectedLines.size());
}

QByteArray utf16(const QString &text)
{
    QByteArray bytes;
    for (const QChar unit : text) {
        bytes += char(unit.cell());
        bytes += char(unit.row());
    }
    return bytes;
}

/// A report that says nothing, and a description of a user "Jörn Lindmoor".
RedactedCapture redactedWith(machine::Machine machine)
{
    machine.system.GetUserName.value = QString::fromUtf8("Jörn Lindmoor");
    return redactCapture(machine, Reports::read(Reports::halfHeading(Reports::Half::Windows) + '\n'), {}, {});
}

const machine::RegistryValue &onlyValue(const machine::Machine &machine, const QString &path)
{
    const auto key = machine::findKey(machine.registry.root(machine::RegistryRoot::LocalMachine), path);
    if (!key || key->values().size() != 1)
        qFatal("the key '%s' has not one value", qPrintable(path));
    return key->values().front();
}

void collectData(const machine::RegistryKey &key, QByteArray &data)
{
    for (const machine::RegistryValue &value : key.values())
        data += value.data + '\n';
    for (std::size_t i = 0; i < key.subKeyCount(); ++i)
        collectData(*key.subKeyAt(i), data);
}

/// Every form in which the files can hold a text, in lower case.
QVector<QString> formsOf(const RedactedCapture &capture)
{
    QByteArray data;
    for (const auto &root : capture.machine.registry.roots())
        collectData(*root, data);
    const QByteArray registry = machine::writeRegistryFile(capture.machine.registry);
    return {QString::fromUtf8(capture.report.bytes()).toLower(),
            QString::fromUtf8(machine::writeSystemFile(capture.machine)).toLower(),
            QString(reinterpret_cast<const QChar *>(registry.constData()), registry.size() / 2).toLower(),
            QString::fromLatin1(data.constData(), data.size()).toLower(),
            QString::fromUtf8(data.constData(), data.size()).toLower(),
            QString(reinterpret_cast<const QChar *>(data.constData()), data.size() / 2).toLower(),
            QString(reinterpret_cast<const QChar *>(data.constData() + 1), (data.size() - 1) / 2).toLower()};
}

constexpr quint32 text = 1;
constexpr quint32 expandable = 2;
constexpr quint32 binary = 3;
constexpr quint32 number = 4;
constexpr quint32 longNumber = 11;
constexpr quint32 multiText = 7;
constexpr quint32 unknownType = 0x12345;

const QString null = QString(QChar(QChar::Null));

} // namespace

void CaptureRedactionTest::replayIsTheRedactedReport_data()
{
    QTest::addColumn<Reports::RedactionOptions>("options");
    Reports::RedactionOptions options;
    QTest::newRow("numbers") << options;
    options.hide = QStringList {QStringLiteral("Realtek"), QStringLiteral("Radeon")};
    QTest::newRow("words of the user") << options;
}

void CaptureRedactionTest::replayIsTheRedactedReport()
{
    QFETCH(Reports::RedactionOptions, options);
    const Reports::Document report = workstationReport();
    const machine::Machine machine = DescribedWindows::load(QStringLiteral("workstation"));
    compareTexts(replayed(machine), windowsHalf(report.bytes()));
    const RedactedCapture redacted = redactCapture(machine, report, {}, options);
    QVERIFY(redacted.report.bytes() != report.bytes());
    compareTexts(replayed(writtenAndRead(redacted.machine)), windowsHalf(redacted.report.bytes()));
}

void CaptureRedactionTest::unusualMachines_data()
{
    QTest::addColumn<QByteArray>("registry");
    QTest::addColumn<QByteArray>("system");
    const auto row = [](const char *name, const QByteArray &registry, const QByteArray &system) {
        QTest::newRow(name) << registry << system;
    };
    const QByteArray version = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion]\n";
    const QByteArray usbstor = "[HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Enum\\USBSTOR";
    row("a Russian machine", version + "\"RegisteredOwner\"=\"Иван Петров\"\n\"RegisteredOrganization\"=\"Завод Петров\"\n",
        R"({"ansiCodePage": 1251, "GetUserName": "Петров"})");
    row("a Russian name on a western machine", version + "\"RegisteredOwner\"=\"Иван Петров\"\n", R"({"GetUserName": "Петров"})");
    row("a Japanese machine", version + "\"RegisteredOwner\"=\"山田太郎\"\n", R"({"ansiCodePage": 932, "GetUserName": "山田太郎"})");
    row("a machine with UTF-8", version + "\"RegisteredOwner\"=\"Jörn 山田 Иван\"\n", R"({"ansiCodePage": 65001, "GetUserName": "Jörn"})");
    row("best-fit letters", version + "\"RegisteredOwner\"=\"Łukasz Wiśniewski\"\n", R"({"GetUserName": "Łukasz"})");
    row("a name inside of a text", usbstor + "\\Disk&Ven_A\\0]\n\"FriendlyName\"=\"Łukasz’ größter Stick\"\n\"DeviceDesc\"=\"Grüße von Łukasz Wiśniewski\"\n",
        R"({"GetUserName": "Łukasz Wiśniewski"})");
    row("owner in binary data", version + "\"RegisteredOwner\"=hex:4a,f6,72,6e,20,4c,69,6e,64,6d,6f,6f,72\n", R"({"GetUserName": "Jörn Lindmoor"})");
    row("owner in binary UTF-8", version + "\"RegisteredOwner\"=hex:4a,c3,b6,72,6e,20,4c,69,6e,64,6d,6f,6f,72,00\n", R"({"GetUserName": "Jörn Lindmoor"})");
    row("owner without a terminator", version + "\"RegisteredOwner\"=hex(1):4c,00,69,00,6e,00,64,00,6d,00,6f,00,6f,00,72,00\n", "{}");
    row("owner with an odd number of bytes", version + "\"RegisteredOwner\"=hex(1):4c,00,69,00,6e,00,64,00,6d,00,6f,00,6f,00,72,00,41\n", "{}");
    row("several owners", version + "\"RegisteredOwner\"=hex(7):4c,00,69,00,6e,00,64,00,00,00,6d,00,6f,00,6f,00,72,00,00,00,00,00\n", "{}");
    row("a line break in a value", version + "\"RegisteredOwner\"=hex(1):4c,00,69,00,6e,00,64,00,0a,00,6d,00,6f,00,6f,00,72,00,00,00\n", "{}");
    row("names in names of devices", usbstor + "\\Disk&Ven_Lindmoor&Prod_X]\n" + usbstor + "\\Disk&Ven_Lindmoor&Prod_X\\4C530001240822116472&0]\n\"Service\"=\"disk\"\n" + usbstor + "\\Disk&Ven_Lindmoor&Prod_X\\4C530001240822116473&0]\n\"Service\"=\"disc\"\n",
        R"({"GetUserName": "Lindmoor"})");
    row("a name in the name of a port", "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\n\"\\\\Device\\\\Lindmoor0\"=\"COM1 of Lindmoor\"\n", R"({"GetUserName": "Lindmoor"})");
    row("folders of a user", "", R"({"GetUserName": "Lindmoor", "GetSystemWindowsDirectory": "C:\\Users\\Lindmoor\\Win",
        "WinSxS": ["amd64_lindmoor_1", "x86_other"], "SHGetSpecialFolderPath": {"5": "\\\\server7\\share\\Lindmoor\\Documents"},
        "environment": {"PATH": "C:\\Tools\\Lindmoor;D:\\x", "HOMEPATH": "\\Users\\Lindmoor", "TEMP": "C:\\Users\\LINDMO~1\\Temp"},
        "EnumProcessModules": ["C:\\Users\\Lindmoor\\a.exe", null, "\\\\server7\\share\\b.dll"]})");
    row("a domain", "", R"({"GetUserName": "Lindmoor", "GetComputerNameEx": {"0": "KELLER7", "2": "birken.example", "3": "k.birken.example", "5": "keller7"}})");
    row("labels of drives", "", R"({"GetUserName": "Lindmoor", "GetLogicalDrives": 12, "drives": {
        "C:\\": {"GetDriveType": 3, "GetVolumeInformation": {"volumeName": "Lindmoors Platte", "fileSystemName": "NTFS"}},
        "D:\\": {"GetDriveType": 3, "GetVolumeInformation": {"volumeName": "Projekt Birke", "fileSystemName": "Lindmoor"}}}})");
    row("a product that names its owner", "[HKEY_CLASSES_ROOT\\Installer\\Products\\0123]\n\"ProductName\"=\"Q9 V3 for Lindmoor\"\n"
                                          "[HKEY_CLASSES_ROOT\\.q9p]\n@=\"Lindmoor.Project\"\n[HKEY_CLASSES_ROOT\\Q9 V3 Project\\shell\\open\\command]\n@=\"C:\\\\Users\\\\Lindmoor\\\\q9.exe %1\"\n",
        R"({"GetUserName": "Lindmoor"})");
    row("a number as owner", version + "\"RegisteredOwner\"=dword:646e694c\n\"RegisteredOrganization\"=\"Lindmoor\"\n", R"({"GetUserName": "Lindmoor"})");
    row("a long number", version + "\"RegisteredOwner\"=hex(b):4c,69,6e,64,6d,6f,6f,72\n\"RegisteredOrganization\"=\"Birken\"\n", R"({"GetUserName": "Lindmoor"})");
    row("driver classes", "[HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Class\\{4d36e972-e325-11ce-bfc1-08002be10318}]\n\"Class\"=\"Net\"\n"
                          "[HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Class\\{4d36e972-e325-11ce-bfc1-08002be10318}\\0001]\n"
                          "\"DriverDesc\"=\"Łukasz’ Adapter\"\n\"ProviderName\"=hex:4c,00,69,00,6e,00,64,00,6d,00,6f,00,6f,00,72,00\n",
        R"({"GetUserName": "Łukasz Lindmoor"})");
}

// What the sections read in an unusual form is shown in an unusual form, too.
void CaptureRedactionTest::unusualMachines()
{
    QFETCH(QByteArray, registry);
    QFETCH(QByteArray, system);
    const machine::Machine machine = DescribedWindows::parse(registry, system);
    const Reports::Document report = Reports::read(replayed(machine));
    CaptureNotes notes;
    notes.isRedacted = true;
    const RedactedCapture redacted = redactCapture(machine, report, {}, {});
    QVERIFY(redacted.report.bytes() != report.bytes());
    const CaptureComparison comparison = compareCapture(redacted.report, replayed(writtenAndRead(redacted.machine)), notes);
    QVERIFY2(comparison.count(Verdict::Failed) == 0, captureComparisonText(comparison).constData());
    for (const QString &form : formsOf(redacted)) {
        for (const char *name : {"jörn", "lindmoor", "łukasz", "wiśniewski", "петров", "山田", "birken", "4c53000124"})
            QVERIFY2(!form.contains(QString::fromUtf8(name)), name);
    }
}

// The names that the README of the machine calls invented.
void CaptureRedactionTest::noIdentityIsLeft()
{
    const RedactedCapture redacted = redactCapture(DescribedWindows::load(QStringLiteral("workstation")), workstationReport(), {}, {});
    const QVector<QString> forms = formsOf(redacted);
    for (const char *name : {"jörn", "lindmoor", "birkental", "messdaten", "büro", "00330-50000-00000-aaoem"}) {
        for (int i = 0; i < forms.size(); ++i)
            QVERIFY2(!forms.at(i).contains(QString::fromUtf8(name)), qPrintable(QStringLiteral("%1 in form %2").arg(QString::fromUtf8(name)).arg(i)));
    }
    QVERIFY(forms.at(2).contains(QStringLiteral("esprimo"))); // the model of the computer is no identity
}

void CaptureRedactionTest::sameAliasInAllFiles()
{
    Reports::RedactionOptions options;
    options.key = "a key of sixteen bytes or more";
    const machine::Machine machine = DescribedWindows::load(QStringLiteral("workstation"));
    const RedactedCapture redacted = redactCapture(machine, workstationReport(), {}, options);
    const QByteArray label("User name:                    ");
    const int begin = redacted.report.bytes().indexOf(label) + label.size();
    const QString alias = QString::fromUtf8(redacted.report.bytes().mid(begin, redacted.report.bytes().indexOf('\n', begin) - begin));
    QVERIFY(alias.startsWith(QLatin1String("user-")));
    QCOMPARE(*redacted.machine.system.GetUserName, alias);
    QCOMPARE(redacted.machine.system.environment.value(QStringLiteral("HOMEPATH")), QStringLiteral("\\Users\\") + alias);
    QCOMPARE(*redacted.machine.system.SHGetSpecialFolderPath.value(5), QStringLiteral("C:\\Users\\%1\\Documents").arg(alias));
    QVERIFY(redacted.redaction.documents.size() == 1);
}

void CaptureRedactionTest::values_data()
{
    QTest::addColumn<quint32>("type");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QByteArray>("expected");
    const QString before = QString::fromUtf8("Gerät von Jörn Lindmoor");
    const QString after = QString::fromUtf8("Gerät von user-1");
    QTest::newRow("terminated text") << text << utf16(before + null) << utf16(after + null);
    QTest::newRow("text without a terminator") << text << utf16(before) << utf16(after);
    QTest::newRow("text with two terminators") << text << utf16(before + null + null) << utf16(after + null + null);
    QTest::newRow("odd number of bytes") << text << utf16(before) + 'x' << utf16(after) + 'x';
    QTest::newRow("text behind the terminator") << text << utf16("x" + null + before) << utf16("x" + null + after);
    QTest::newRow("no text") << text << QByteArray() << QByteArray();
    QTest::newRow("one byte") << text << QByteArray("x") << QByteArray("x");
    QTest::newRow("only a terminator") << text << utf16(null) << utf16(null);
    QTest::newRow("text with variables") << expandable << utf16("%SystemRoot%\\" + before + null) << utf16("%SystemRoot%\\" + after + null);
    QTest::newRow("several texts") << multiText << utf16("a" + null + before + null + "b" + null + null)
                                   << utf16("a" + null + after + null + "b" + null + null);
    QTest::newRow("UTF-16 in binary data") << binary << utf16(before + null) << utf16(after + null);
    QTest::newRow("UTF-16 at an odd offset") << binary << "\x01" + utf16(before + null) << "\x01" + utf16(after + null);
    QTest::newRow("UTF-8 in binary data") << binary << "\x01\x02" + before.toUtf8() + "\x03"
                                          << "\x01\x02" + after.toUtf8() + "\x03";
    QTest::newRow("ANSI in binary data") << binary << before.toLatin1() + '\0' << after.toLatin1() + '\0';
    QTest::newRow("binary data without text") << binary << QByteArray::fromHex("00ff10203f80d800") << QByteArray::fromHex("00ff10203f80d800");
    QTest::newRow("number") << number << QByteArray("Lind") << QByteArray("Lind");
    QTest::newRow("long number") << longNumber << QByteArray("Lindmoor") << QByteArray("user-1");
    QTest::newRow("number of another size") << number << QByteArray("by Lindmoor") << QByteArray("by user-1");
    QTest::newRow("unknown type") << unknownType << QByteArray("by Lindmoor") << QByteArray("by user-1");
    QTest::newRow("lone surrogate") << text << utf16(QString(QChar(0xd800)) + before) << utf16(QString(QChar(0xd800)) + after);
    QTest::newRow("byte-order mark") << text << utf16(QString(QChar(0xfeff)) + before) << utf16(QString(QChar(0xfeff)) + after);
    // It has no line in the report, and must not get one.
    const QString longText = QStringLiteral("Lindmoor ").repeated(200);
    QTest::newRow("text that is too long for the report")
        << text << utf16(longText) << utf16(QStringLiteral("user-1 ").repeated(200)) + QByteArray(2 * 200 * 2, '\0');
}

void CaptureRedactionTest::values()
{
    QFETCH(quint32, type);
    QFETCH(QByteArray, data);
    QFETCH(QByteArray, expected);
    machine::Machine machine;
    const QString path = QStringLiteral("SOFTWARE\\Somebody");
    machine::createKey(machine.registry.root(machine::RegistryRoot::LocalMachine), path)->setValue({QStringLiteral("v"), type, data});
    const RedactedCapture redacted = redactedWith(machine);
    const machine::RegistryValue &value = onlyValue(redacted.machine, path);
    QCOMPARE(value.type, type);
    QCOMPARE(value.data.toHex(), expected.toHex());
}

void CaptureRedactionTest::names()
{
    machine::Machine machine;
    const auto &root = machine.registry.root(machine::RegistryRoot::CurrentUser);
    const auto key = machine::createKey(root, QString::fromUtf8("Software\\Lindmoor\\Ordner von Jörn Lindmoor"));
    for (const char *name : {"z", "Lindmoor", "LINDMOOR 2", "a"})
        key->setValue({QString::fromUtf8(name), number, QByteArray(4, '\1')});
    machine::createKey(root, QStringLiteral("Software\\joern lindmoor"))->setDenied(true);
    const RedactedCapture redacted = redactedWith(machine);
    const auto &newRoot = redacted.machine.registry.root(machine::RegistryRoot::CurrentUser);
    const auto newKey = machine::findKey(newRoot, QStringLiteral("Software\\user-1-2\\Ordner von user-1"));
    QVERIFY(newKey);
    QStringList names;
    for (const machine::RegistryValue &value : newKey->values())
        names += value.name;
    QCOMPARE(names, QStringList({"z", "user-1", "user-1 2", "a"}));
    const auto denied = machine::findKey(newRoot, QStringLiteral("Software\\user-1"));
    QVERIFY(denied && denied->isDenied());
}

// A name that is the same as that of a key of Windows.
void CaptureRedactionTest::namesThatTheReportOpensStay()
{
    machine::Machine machine = DescribedWindows::parse(
        "[HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\SystemInformation]\r\n"
        "\"SystemProductName\"=\"EditionFour of CurrentControlSet\"\r\n",
        "{}");
    machine.system.GetComputerNameEx[3].value = QStringLiteral("CurrentControlSet");
    const RedactedCapture redacted = redactedWith(machine);
    const QByteArray replay = replayed(redacted.machine);
    QVERIFY2(replay.contains("SystemProductName:   EditionFour of host-1\n"), replay.constData());
}

void CaptureRedactionTest::addressInBinaryData()
{
    machine::Machine machine;
    const auto key = machine::createKey(machine.registry.root(machine::RegistryRoot::LocalMachine), QStringLiteral("SOFTWARE\\a"));
    key->setValue({QStringLiteral("text"), text, utf16(QStringLiteral("00:1A:7D:77:9F:3C"))});
    key->setValue({QStringLiteral("bytes"), binary, QByteArray::fromHex("ff001a7d779f3cff")});
    key->setValue({QStringLiteral("others"), binary, QByteArray::fromHex("ff001a7d779f3dff")});
    const RedactedCapture redacted = redactedWith(machine);
    const auto newKey = machine::findKey(redacted.machine.registry.root(machine::RegistryRoot::LocalMachine), QStringLiteral("SOFTWARE\\a"));
    QCOMPARE(newKey->findValue(QStringLiteral("text"))->data, utf16(QStringLiteral("mac-1")));
    QCOMPARE(newKey->findValue(QStringLiteral("bytes"))->data, QByteArray::fromHex("ff000000000000ff"));
    QCOMPARE(newKey->findValue(QStringLiteral("others"))->data, QByteArray::fromHex("ff001a7d779f3dff"));
}

// The report has no line for a computer name of more than 15 characters.
void CaptureRedactionTest::longNamesStayLong()
{
    machine::Machine machine;
    machine.system.GetComputerNameEx[3].value = QStringLiteral("messplatz-im-keller");
    machine.system.GetComputerNameEx[5].value = QStringLiteral("messplatz");
    const RedactedCapture redacted = redactedWith(machine);
    const QByteArray replay = replayed(redacted.machine);
    QVERIFY(!replay.contains("DNS fully qualified:"));
    QVERIFY(replay.contains("Physical hostname             host-"));
}

void CaptureRedactionTest::notes()
{
    machine::Machine machine;
    machine.system.GetUserName.value = QStringLiteral("Lindmoor");
    const QStringList notes {QStringLiteral("vkreport: missing: userName: Lindmoor crashed"), QString()};
    const RedactedCapture redacted = redactCapture(machine, Reports::read(QByteArray()), notes, {});
    QCOMPARE(redacted.notes, QStringList({"vkreport: missing: userName: user-1 crashed", ""}));
    QCOMPARE(redacted.report.bytes(), QByteArray());
}

void CaptureRedactionTest::hostileDescriptions()
{
    machine::Machine machine;
    const auto &root = machine.registry.root(machine::RegistryRoot::LocalMachine);
    const QString deep = QStringLiteral("Lindmoor\\").repeated(3000) + QStringLiteral("end");
    machine::createKey(root, deep)->setValue({null, text, utf16(QString(QChar(0xdc00)))});
    const auto wide = machine::createKey(root, QStringLiteral("wide"));
    for (int i = 0; i < 3000; ++i)
        wide->createSubKey(QStringLiteral("Lindmoor") + QString(i % 50, QLatin1Char(' ')) + QString::number(i))->setValue({QString(), binary, QByteArray(i, char(i))});
    wide->setValue({QStringLiteral("large"), binary, QByteArray("Lindmoor\0", 9).repeated(200000)});
    wide->setValue({QStringLiteral("large text"), text, utf16(QStringLiteral("Lindmoor").repeated(200000))});
    wide->setValue({QStringLiteral("surrogates"), multiText, QByteArray(100000, char(0xd8))});
    machine.system.environment.insert(QString(QChar(0xd800)), QString(QChar(0xdfff)));
    machine.system.environment.insert(QStringLiteral("LINDMOOR_HOME"), QStringLiteral("secret of Lindmoor"));
    machine.system.drives.insert(QStringLiteral("\\\\KELLERSERVER\\"), {});
    machine.system.GetAdaptersInfo.value.emplace(1);
    const RedactedCapture redacted = redactedWith(machine);
    const auto &newRoot = redacted.machine.registry.root(machine::RegistryRoot::LocalMachine);
    const auto last = machine::findKey(newRoot, QStringLiteral("user-1\\").repeated(3000) + QStringLiteral("end"));
    QVERIFY(last);
    QCOMPARE(last->values().front().data, utf16(QString(QChar(0xdc00))));
    const auto newWide = machine::findKey(newRoot, QStringLiteral("wide"));
    QCOMPARE(newWide->subKeyCount(), std::size_t(3000));
    QVERIFY(newWide->findValue(QStringLiteral("large"))->data == QByteArray("user-1\0", 7).repeated(200000));
    QCOMPARE(newWide->findValue(QStringLiteral("surrogates"))->data, QByteArray(100000, char(0xd8)));
    QVERIFY(!newWide->findValue(QStringLiteral("large text"))->data.contains(utf16(QStringLiteral("Lindmoor"))));
    QCOMPARE(redacted.machine.system.environment.value(QStringLiteral("LINDMOOR_HOME")), QStringLiteral("length-18"));
    QVERIFY(!redacted.machine.system.drives.contains(QStringLiteral("\\\\KELLERSERVER\\")));
}

TEST_WITH_CORE_APPLICATION(CaptureRedactionTest);
#include "tst_capture_redaction.moc"
