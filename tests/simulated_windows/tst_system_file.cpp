// readSystemFile(): every member, missing members, numbers and errors. writeSystemFile(): rare
// members.

#include "system_file.h"
#include "test_main.h"

#include <QtTest/QtTest>
#include <limits>

using namespace machine;

class SystemFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyObject_data();
    void emptyObject();
    void failures_data();
    void failures();
    void version();
    void versionIsTruncatedToItsFields();
    void productInfo_data();
    void productInfo();
    void systemInfo();
    void memory();
    void quota();
    void numbers_data();
    void numbers();
    void numbersAreTruncatedToTheirFields_data();
    void numbersAreTruncatedToTheirFields();
    void metrics();
    void computerNames();
    void texts_data();
    void texts();
    void duplicateMembers();
    void drives();
    void environment();
    void environmentOfAVariableNamedError();
    void expansionFailures();
    void specialFolders();
    void modules();
    void winSxS_data();
    void winSxS();
    void libraries();
    void adapters();
    void emptyAdapter();
    void timeZone_data();
    void timeZone();
    void ansiCodePage_data();
    void ansiCodePage();
    void unknownMembersAreIgnored_data();
    void unknownMembersAreIgnored();
    void wrongTypes_data();
    void wrongTypes();
    void syntaxErrors_data();
    void syntaxErrors();
    void failureOfAllComputerNamesIsWritten();
    void leaseTimesAreWritten_data();
    void leaseTimesAreWritten();
    void deniedKeys_data();
    void deniedKeys();
    void deniedKeysOfARegistry();
};

namespace {

Machine readMachine(const QByteArray &json)
{
    Machine machine;
    QString error;
    int line = -1;
    if (!readSystemFile(json, machine, error, line))
        QTest::qFail(qPrintable(QStringLiteral("line %1: %2").arg(line).arg(error)), __FILE__, __LINE__);
    return machine;
}

SystemAnswers read(const QByteArray &json)
{
    return readMachine(json).system;
}

/// The paths of the denied keys below \a key.
QStringList deniedBelow(const RegistryKey &key, const QString &path)
{
    QStringList names;
    if (key.isDenied())
        names += path;
    for (std::size_t i = 0; i < key.subKeyCount(); ++i)
        names += deniedBelow(*key.subKeyAt(i), path + QLatin1Char('\\') + key.subKeyAt(i)->name());
    return names;
}

QStringList deniedIn(const Machine &machine)
{
    QStringList names;
    for (const auto &root : machine.registry.roots())
        names += deniedBelow(*root, root->name());
    return names;
}

SystemAnswers readMember(const QByteArray &name, const QByteArray &value)
{
    return read("{\"" + name + "\": " + value + '}');
}

/// Whether the call \a name has an answer, and the error if it fails.
struct State
{
    bool given;
    quint32 error;
};

template <typename T>
State stateOf(const Answer<T> &answer)
{
    return {bool(answer), answer.error};
}

State state(const SystemAnswers &answers, const QByteArray &name)
{
    const QHash<QByteArray, State> states {
        {"GetVersionEx", stateOf(answers.GetVersionEx)},
        {"GetProductInfo", stateOf(answers.GetProductInfo.value_or(Answer<ProductInfoRecord>()))},
        {"GlobalMemoryStatusEx", stateOf(answers.GlobalMemoryStatusEx)},
        {"GetUserName", stateOf(answers.GetUserName)},
        {"GetSystemRegistryQuota", stateOf(answers.GetSystemRegistryQuota)},
        {"GetLogicalDrives", stateOf(answers.GetLogicalDrives)},
        {"GetSystemWindowsDirectory", stateOf(answers.GetSystemWindowsDirectory)},
        {"GetSystemWow64Directory", stateOf(answers.GetSystemWow64Directory)},
        {"EnumProcessModules", stateOf(answers.EnumProcessModules)},
        {"GetAdaptersInfo", stateOf(answers.GetAdaptersInfo)},
        {"GetComputerNameEx", {!answers.GetComputerNameEx.isEmpty(), answers.GetComputerNameEx.error}},
    };
    return states.value(name);
}

const QList<QByteArray> calls {
    "GetVersionEx", "GetProductInfo", "GlobalMemoryStatusEx", "GetUserName", "GetSystemRegistryQuota",
    "GetLogicalDrives", "GetSystemWindowsDirectory", "GetSystemWow64Directory", "EnumProcessModules",
    "GetAdaptersInfo", "GetComputerNameEx"};

QString addresses(const std::vector<AddressRecord> &list)
{
    QStringList result;
    for (const AddressRecord &entry : list)
        result += entry.address + QLatin1Char('/') + entry.mask;
    return result.join(QLatin1Char(' '));
}

} // namespace

void SystemFileTest::emptyObject_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("json");
    for (const QByteArray &name : calls) {
        QTest::addRow("%s absent", name.constData()) << name << QByteArray("{}");
        QTest::addRow("%s null", name.constData()) << name << "{\"" + name + "\": null}";
    }
}

void SystemFileTest::emptyObject()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, json);
    const SystemAnswers answers = read(json);
    QVERIFY(!state(answers, name).given);
    QCOMPARE(state(answers, name).error, quint32(0));
    QVERIFY(!answers.GetProductInfo);
}

void SystemFileTest::failures_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("value");
    for (const QByteArray &name : calls) {
        QTest::addRow("%s", name.constData()) << name << QByteArray("{\"error\": 1234}");
        QTest::addRow("%s, in hexadecimal", name.constData()) << name << QByteArray("{\"error\": \"0x4d2\"}");
    }
}

void SystemFileTest::failures()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, value);
    const SystemAnswers answers = readMember(name, value);
    QVERIFY(!state(answers, name).given);
    QCOMPARE(state(answers, name).error, quint32(1234));
}

void SystemFileTest::version()
{
    const SystemAnswers answers = readMember("GetVersionEx", R"({
        "dwMajorVersion": 6, "dwMinorVersion": 3, "dwBuildNumber": 9600, "dwPlatformId": 2,
        "szCSDVersion": "Service Pack \u00e4", "wServicePackMajor": 4, "wServicePackMinor": 5,
        "wSuiteMask": 256, "wProductType": 3})");
    const VersionRecord &record = *answers.GetVersionEx;
    QCOMPARE(record.dwMajorVersion, 6u);
    QCOMPARE(record.dwMinorVersion, 3u);
    QCOMPARE(record.dwBuildNumber, 9600u);
    QCOMPARE(record.dwPlatformId, 2u);
    QCOMPARE(record.szCSDVersion, QStringLiteral("Service Pack \u00e4"));
    QCOMPARE(int(record.wServicePackMajor), 4);
    QCOMPARE(int(record.wServicePackMinor), 5);
    QCOMPARE(int(record.wSuiteMask), 256);
    QCOMPARE(int(record.wProductType), 3);

    const SystemAnswers sparse = readMember("GetVersionEx", "{}");
    QVERIFY2(bool(sparse.GetVersionEx), "a record without fields has zeros");
    QCOMPARE(sparse.GetVersionEx->dwMajorVersion, 0u);
    QCOMPARE(sparse.GetVersionEx->szCSDVersion, QString());
}

void SystemFileTest::versionIsTruncatedToItsFields()
{
    const SystemAnswers answers = readMember("GetVersionEx", R"({
        "dwMajorVersion": 4294967302, "wServicePackMajor": 65537, "wSuiteMask": "0x1ff00", "wProductType": 257})");
    QCOMPARE(answers.GetVersionEx->dwMajorVersion, 6u);
    QCOMPARE(int(answers.GetVersionEx->wServicePackMajor), 1);
    QCOMPARE(int(answers.GetVersionEx->wSuiteMask), 0xff00);
    QCOMPARE(int(answers.GetVersionEx->wProductType), 1);
}

void SystemFileTest::productInfo_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<bool>("exported");
    QTest::addColumn<bool>("given");
    QTest::addColumn<quint32>("type");
    QTest::newRow("absent: not exported") << QByteArray("{}") << false << false << 0u;
    QTest::newRow("null: not exported") << QByteArray("{\"GetProductInfo\": null}") << false << false << 0u;
    QTest::newRow("an error: exported, fails")
        << QByteArray("{\"GetProductInfo\": {\"error\": 5}}") << true << false << 0u;
    QTest::newRow("a type")
        << QByteArray("{\"GetProductInfo\": {\"dwReturnedProductType\": 48}}") << true << true << 48u;
    QTest::newRow("no type: 0") << QByteArray("{\"GetProductInfo\": {}}") << true << true << 0u;
    QTest::newRow("a type of 32 bits") << QByteArray("{\"GetProductInfo\": {\"dwReturnedProductType\": \"0xabcdabcd\"}}")
                                       << true << true << 0xabcdabcdu;
}

void SystemFileTest::productInfo()
{
    QFETCH(QByteArray, json);
    const SystemAnswers answers = read(json);
    QTEST(answers.GetProductInfo.has_value(), "exported");
    const auto product = answers.GetProductInfo.value_or(Answer<ProductInfoRecord>());
    QTEST(bool(product), "given");
    QTEST(product.value.value_or(ProductInfoRecord()).dwReturnedProductType, "type");
}

void SystemFileTest::systemInfo()
{
    const SystemInfoRecord record = readMember("GetSystemInfo", R"({
        "wProcessorArchitecture": 9, "dwPageSize": 4096, "lpMinimumApplicationAddress": "0x10000",
        "lpMaximumApplicationAddress": "0x7ffffffeffff", "dwActiveProcessorMask": "0xffffffffffffffff",
        "dwNumberOfProcessors": 64, "dwProcessorType": 8664, "dwAllocationGranularity": 65536,
        "wProcessorLevel": 6, "wProcessorRevision": 40457})")
                                        .GetSystemInfo;
    QCOMPARE(int(record.wProcessorArchitecture), 9);
    QCOMPARE(record.dwPageSize, 4096u);
    QCOMPARE(record.lpMinimumApplicationAddress, quint64(0x10000));
    QCOMPARE(record.lpMaximumApplicationAddress, quint64(0x7ffffffeffff));
    QCOMPARE(record.dwActiveProcessorMask, ~quint64(0));
    QCOMPARE(record.dwNumberOfProcessors, 64u);
    QCOMPARE(record.dwProcessorType, 8664u);
    QCOMPARE(record.dwAllocationGranularity, 65536u);
    QCOMPARE(int(record.wProcessorLevel), 6);
    QCOMPARE(int(record.wProcessorRevision), 40457);

    for (const char *nothing : {"{}", "{\"GetSystemInfo\": null}", "{\"GetSystemInfo\": {\"error\": 5}}"}) {
        QCOMPARE(read(nothing).GetSystemInfo.dwPageSize, 0u);
        QCOMPARE(int(read(nothing).GetSystemInfo.wProcessorArchitecture), 0);
    }
}

void SystemFileTest::memory()
{
    const SystemAnswers answers = readMember("GlobalMemoryStatusEx", R"({
        "dwMemoryLoad": 45, "ullTotalPhys": 1, "ullAvailPhys": 2, "ullTotalPageFile": 3,
        "ullAvailPageFile": 4, "ullTotalVirtual": "0x7ffffffe0000", "ullAvailVirtual": 6})");
    const MemoryRecord &record = *answers.GlobalMemoryStatusEx;
    QCOMPARE(record.dwMemoryLoad, 45u);
    QCOMPARE(record.ullTotalPhys, quint64(1));
    QCOMPARE(record.ullAvailPhys, quint64(2));
    QCOMPARE(record.ullTotalPageFile, quint64(3));
    QCOMPARE(record.ullAvailPageFile, quint64(4));
    QCOMPARE(record.ullTotalVirtual, quint64(0x7ffffffe0000));
    QCOMPARE(record.ullAvailVirtual, quint64(6));
}

void SystemFileTest::quota()
{
    const SystemAnswers answers = readMember("GetSystemRegistryQuota", "{\"allowed\": 4294967295, \"used\": 187432960}");
    QCOMPARE(answers.GetSystemRegistryQuota->allowed, 4294967295u);
    QCOMPARE(answers.GetSystemRegistryQuota->used, 187432960u);
}

void SystemFileTest::numbers_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<quint64>("expected");
    QTest::newRow("zero") << QByteArray("0") << quint64(0);
    QTest::newRow("an integer") << QByteArray("17055318016") << quint64(17055318016);
    QTest::newRow("an integer with an exponent") << QByteArray("1e3") << quint64(1000);
    QTest::newRow("an integer with a fraction of 0") << QByteArray("5.0") << quint64(5);
    QTest::newRow("the smallest integer that a double cannot represent") << QByteArray("9007199254740993") << quint64(9007199254740993);
    QTest::newRow("the largest signed integer") << QByteArray("9223372036854775807") << quint64(9223372036854775807);
    QTest::newRow("a long integer with a fraction of 0: rounded to a double")
        << QByteArray("12345678901234567890.0") << quint64(12345678901234567168u);
    QTest::newRow("negative") << QByteArray("-1") << ~quint64(0);
    QTest::newRow("2^63") << QByteArray("9223372036854775808") << (quint64(1) << 63);
    QTest::newRow("the largest integer") << QByteArray("18446744073709551615") << ~quint64(0);
    QTest::newRow("more than 64 bits: truncated") << QByteArray("36893488147419103239") << quint64(7);
    QTest::newRow("far more than 64 bits: truncated") << QByteArray("1e300") << quint64(0);
    QTest::newRow("a hexadecimal text") << QByteArray("\"0x2a\"") << quint64(42);
    QTest::newRow("a hexadecimal text with capital digits") << QByteArray("\"0XFF\"") << quint64(255);
    QTest::newRow("text beyond 2^53") << QByteArray("\"0x20000000000001\"") << quint64(9007199254740993);
    QTest::newRow("a text with all bits set") << QByteArray("\"0xffffffffffffffff\"") << ~quint64(0);
    QTest::newRow("a text of more than 64 bits: truncated") << QByteArray("\"0x10000000000000005\"") << quint64(5);
    QTest::newRow("a decimal text") << QByteArray("\"010\"") << quint64(10);
    QTest::newRow("a negative text") << QByteArray("\"-0x2\"") << ~quint64(1);
}

void SystemFileTest::numbers()
{
    QFETCH(QByteArray, number);
    QFETCH(quint64, expected);
    const SystemAnswers answers = readMember("GlobalMemoryStatusEx", "{\"ullTotalPhys\": " + number + "}");
    QCOMPARE(answers.GlobalMemoryStatusEx->ullTotalPhys, expected);
}

void SystemFileTest::numbersAreTruncatedToTheirFields_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<quint32>("mask");
    QTest::addColumn<int>("metric");
    QTest::newRow("fits") << QByteArray("33554460") << 33554460u << 33554460;
    QTest::newRow("33 bits") << QByteArray("\"0x100000007\"") << 7u << 7;
    QTest::newRow("32 bits") << QByteArray("\"0xffffffff\"") << 0xffffffffu << -1;
    QTest::newRow("negative") << QByteArray("-5") << 0xfffffffbu << -5;
}

void SystemFileTest::numbersAreTruncatedToTheirFields()
{
    QFETCH(QByteArray, number);
    QFETCH(quint32, mask);
    QFETCH(int, metric);
    QCOMPARE(*readMember("GetLogicalDrives", number).GetLogicalDrives, mask);
    QCOMPARE(readMember("GetSystemMetrics", "{\"89\": " + number + "}").GetSystemMetrics.value(89), metric);
}

void SystemFileTest::metrics()
{
    const SystemAnswers answers = readMember("GetSystemMetrics", "{\"89\": 1, \"0x1000\": 2, \"0\": 3, \"5\": null}");
    QCOMPARE(answers.GetSystemMetrics, (QMap<int, qint32> {{0, 3}, {89, 1}, {4096, 2}}));
    QVERIFY(readMember("GetSystemMetrics", "null").GetSystemMetrics.isEmpty());
}

void SystemFileTest::computerNames()
{
    const SystemAnswers answers
        = readMember("GetComputerNameEx", "{\"0\": \"PC\", \"2\": \"\", \"3\": null, \"4\": {\"error\": 87}}");
    QCOMPARE(*answers.GetComputerNameEx.value(0), QStringLiteral("PC"));
    QVERIFY2(bool(answers.GetComputerNameEx.value(2)), "an empty name is valid");
    QVERIFY(!answers.GetComputerNameEx.value(1));
    QVERIFY(!answers.GetComputerNameEx.value(3));
    QCOMPARE(answers.GetComputerNameEx.value(3).error, 0u);
    QVERIFY(!answers.GetComputerNameEx.value(4));
    QCOMPARE(answers.GetComputerNameEx.value(4).error, 87u);
    QCOMPARE(answers.GetComputerNameEx.error, 0u);
}

void SystemFileTest::texts_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("expected");
    QTest::newRow("empty") << QByteArray("\"\"") << QString();
    QTest::newRow("UTF-8") << QByteArray("\"J\xc3\xb6rn \xf0\x9f\x98\x80\"") << QStringLiteral("J\u00f6rn \U0001f600");
    QTest::newRow("escapes") << QByteArray("\"C:\\\\A\\u0041\\n\"") << QStringLiteral("C:\\AA\n");
    QTest::newRow("many digits") << QByteArray("\"\\\" 12345678901234567890\"") << QStringLiteral("\" 12345678901234567890");
    QTest::newRow("U+FEFF is a character") << QByteArray("\"\xef\xbb\xbf"
                                                         "A\"")
                                           << QStringLiteral("\ufeffA");
    QTest::newRow("U+FEFF as an escape sequence") << QByteArray("\"\\ufeffA\"") << QStringLiteral("\ufeffA");
    QTest::newRow("a lone surrogate") << QByteArray("\"A\\ud800\"") << QString(QStringLiteral("A") + QChar(0xd800));
    QTest::newRow("U+0000 unescaped") << QByteArray("\"A\0B\"", 5)
                                      << QString(QStringLiteral("A") + QChar(0) + QStringLiteral("B"));
    QTest::newRow("U+0000 as an escape sequence") << QByteArray("\"A\\u0000B\"") << QString(QStringLiteral("A") + QChar(0) + QStringLiteral("B"));
}

void SystemFileTest::texts()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, expected);
    QCOMPARE(*readMember("GetUserName", json).GetUserName, expected);
    QCOMPARE(*readMember("GetSystemWindowsDirectory", json).GetSystemWindowsDirectory, expected);
    QCOMPARE(*readMember("GetSystemWow64Directory", json).GetSystemWow64Directory, expected);
}

void SystemFileTest::duplicateMembers()
{
    QCOMPARE(*read(R"({"GetUserName": "A", "GetUserName": "B"})").GetUserName, QStringLiteral("B"));
    const SystemAnswers answers = readMember("environment", R"({"path": "A", "Path": "B", "PATH": "C"})");
    QCOMPARE(answers.environment.value(QStringLiteral("PATH")), QStringLiteral("A")); // of the last name in the order of code units
    const QByteArray value = "{\"ullTotalPhys\": {}, \"ullTotalPhys\": 18446744073709551615}";
    QCOMPARE(readMember("GlobalMemoryStatusEx", value).GlobalMemoryStatusEx->ullTotalPhys, ~quint64(0));
}

void SystemFileTest::drives()
{
    const SystemAnswers answers = readMember("drives", R"({
        "c:\\": {"GetDriveType": 3, "GetVolumeInformation": {"volumeName": "System", "fileSystemName": "NTFS"},
                 "GetDiskFreeSpaceEx": {"freeBytesAvailableToCaller": "0x100000000", "totalNumberOfBytes": 5000000000}},
        "D:\\": {"GetDriveType": 5, "GetVolumeInformation": null, "GetDiskFreeSpaceEx": {"error": 21}},
        "E:\\": {"GetVolumeInformation": {}, "GetDriveType": {"error": 3}},
        "F:\\": {},
        "G:\\": null})");
    QCOMPARE(
        answers.drives.keys(),
        QStringList({QStringLiteral("C:\\"), QStringLiteral("D:\\"), QStringLiteral("E:\\"), QStringLiteral("F:\\")}));
    const DriveRecord c = answers.drives.value(QStringLiteral("C:\\"));
    QCOMPARE(*c.GetDriveType, 3u);
    QCOMPARE(c.GetVolumeInformation->volumeName, QStringLiteral("System"));
    QCOMPARE(c.GetVolumeInformation->fileSystemName, QStringLiteral("NTFS"));
    QCOMPARE(c.GetDiskFreeSpaceEx->freeBytesAvailableToCaller, quint64(1) << 32);
    QCOMPARE(c.GetDiskFreeSpaceEx->totalNumberOfBytes, quint64(5000000000));
    const DriveRecord d = answers.drives.value(QStringLiteral("D:\\"));
    QCOMPARE(*d.GetDriveType, 5u);
    QVERIFY(!d.GetVolumeInformation);
    QVERIFY(!d.GetDiskFreeSpaceEx);
    QCOMPARE(d.GetDiskFreeSpaceEx.error, 21u);
    const DriveRecord e = answers.drives.value(QStringLiteral("E:\\"));
    QVERIFY(!e.GetDriveType);
    QCOMPARE(e.GetDriveType.error, 3u);
    QVERIFY(bool(e.GetVolumeInformation));
    QCOMPARE(e.GetVolumeInformation->volumeName, QString());
    const DriveRecord f = answers.drives.value(QStringLiteral("F:\\"));
    QVERIFY(!f.GetDriveType && !f.GetVolumeInformation && !f.GetDiskFreeSpaceEx);
}

void SystemFileTest::environment()
{
    const SystemAnswers answers = readMember("environment", "{\"Path\": \"C:\\\\\", \"os\": \"\", \"Gone\": null}");
    QCOMPARE(answers.environment,
             (QMap<QString, QString> {{QStringLiteral("PATH"), QStringLiteral("C:\\")}, {QStringLiteral("OS"), QString()}}));
    QVERIFY(readMember("environment", "null").environment.isEmpty());
}

void SystemFileTest::environmentOfAVariableNamedError()
{
    const SystemAnswers answers = readMember("environment", "{\"error\": \"5\", \"A\": \"b\"}");
    QCOMPARE(answers.environment.value(QStringLiteral("ERROR")), QStringLiteral("5"));
    QCOMPARE(answers.environment.value(QStringLiteral("A")), QStringLiteral("b"));
}

void SystemFileTest::expansionFailures()
{
    const Machine machine = readMachine(R"({"ExpandEnvironmentStrings": {
        "0": {"error": 8}, "4": {"error": 0}, "1": null, "2": {}, "5": {"error": 1}, "0x3": {"error": 7}}})");
    const QMap<QString, quint32> expected {
        {QStringLiteral("OS"), 8}, {QStringLiteral("PROCESSOR_IDENTIFIER"), 0}, {QStringLiteral("TEMP"), 7}};
    QCOMPARE(machine.system.expansionErrors, expected);
    QCOMPARE(read(writeSystemFile(machine)).expansionErrors, expected);
}

void SystemFileTest::specialFolders()
{
    const SystemAnswers answers
        = readMember("SHGetSpecialFolderPath", "{\"2\": \"C:\\\\P\", \"5\": {\"error\": 2}, \"38\": null}");
    QCOMPARE(*answers.SHGetSpecialFolderPath.value(2), QStringLiteral("C:\\P"));
    QVERIFY(!answers.SHGetSpecialFolderPath.value(5));
    QCOMPARE(answers.SHGetSpecialFolderPath.value(5).error, 2u);
    QVERIFY(!answers.SHGetSpecialFolderPath.value(38));
    QVERIFY(!answers.SHGetSpecialFolderPath.value(26));
}

void SystemFileTest::modules()
{
    const SystemAnswers answers = readMember("EnumProcessModules", "[\"C:\\\\a.exe\", null, \"\"]");
    QCOMPARE(answers.EnumProcessModules->size(), std::size_t(3));
    QCOMPARE(*answers.EnumProcessModules->at(0), QStringLiteral("C:\\a.exe"));
    QVERIFY(!answers.EnumProcessModules->at(1));
    QVERIFY2(answers.EnumProcessModules->at(2).has_value(), "an empty name is valid");
    QVERIFY2(bool(readMember("EnumProcessModules", "[]").EnumProcessModules), "an empty list of modules is valid");
}

void SystemFileTest::winSxS_data()
{
    QTest::addColumn<QByteArray>("member");
    QTest::addColumn<bool>("exists");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("absent: no such folder") << QByteArray() << false << QStringList();
    QTest::newRow("null: no such folder") << QByteArray(", \"WinSxS\": null") << false << QStringList();
    QTest::newRow("an error: no such folder") << QByteArray(", \"WinSxS\": {\"error\": 3}") << false << QStringList();
    QTest::newRow("an empty list: an empty folder") << QByteArray(", \"WinSxS\": []") << true << QStringList();
    QTest::newRow("names") << QByteArray(", \"WinSxS\": [\"b\", \"a\"]") << true
                           << QStringList({QStringLiteral("b"), QStringLiteral("a")});
}

void SystemFileTest::winSxS()
{
    QFETCH(QByteArray, member);
    const QString path = QStringLiteral("C:\\W\\WinSxS");
    const Machine machine = readMachine("{\"GetSystemWindowsDirectory\": \"C:\\\\W\"" + member + '}');
    for (const SystemAnswers &answers : {machine.system, read(writeSystemFile(machine))}) {
        QTEST(answers.folders.contains(path), "exists");
        QTEST(answers.folders.value(path).directories, "names");
    }
    QVERIFY2(read("{\"timeZone\": 0" + member + '}').folders.isEmpty(), "no Windows directory: no folder");
}

void SystemFileTest::libraries()
{
    const SystemAnswers answers = readMember("libraries", R"({
        "DNSSD.dll": {"DNSServiceGetProperty": {"error": 0, "DaemonVersion": 3210000}},
        "stopped.dll": {"DNSServiceGetProperty": {"error": -65563}},
        "empty.dll": {}, "null.dll": null, "nothing.dll": {"DNSServiceGetProperty": null}})");
    QCOMPARE(answers.libraries.keys(),
             QStringList({QStringLiteral("dnssd.dll"), QStringLiteral("empty.dll"), QStringLiteral("nothing.dll"),
                          QStringLiteral("stopped.dll")}));
    const auto running = answers.libraries.value(QStringLiteral("dnssd.dll")).DNSServiceGetProperty;
    QVERIFY(running.has_value());
    QCOMPARE(running->error, 0);
    QCOMPARE(running->DaemonVersion, 3210000u);
    const auto stopped = answers.libraries.value(QStringLiteral("stopped.dll")).DNSServiceGetProperty;
    QVERIFY(stopped.has_value());
    QCOMPARE(stopped->error, -65563);
    QVERIFY(!answers.libraries.value(QStringLiteral("empty.dll")).DNSServiceGetProperty);
    QVERIFY(!answers.libraries.value(QStringLiteral("nothing.dll")).DNSServiceGetProperty);
}

void SystemFileTest::adapters()
{
    const SystemAnswers answers = readMember("GetAdaptersInfo", R"([{
        "Index": 17, "AdapterName": "{1}", "Description": "Ethernet", "DhcpEnabled": 1,
        "GatewayList": [["10.0.0.1", "255.0.0.0"], ["10.0.0.2", "255.0.0.0"]],
        "DhcpServer": [["10.0.0.3", "255.255.255.255"]], "HaveWins": 1,
        "PrimaryWinsServer": ["10.0.0.4", "255.0.0.0"], "SecondaryWinsServer": ["10.0.0.5"],
        "LeaseObtained": 1701337145, "LeaseExpires": "0x100000000"}, {"Index": 4294967301, "LeaseObtained": -1}])");
    QCOMPARE(answers.GetAdaptersInfo->size(), std::size_t(2));
    const AdapterRecord &first = answers.GetAdaptersInfo->at(0);
    QCOMPARE(first.Index, 17u);
    QCOMPARE(first.AdapterName, QStringLiteral("{1}"));
    QCOMPARE(first.Description, QStringLiteral("Ethernet"));
    QCOMPARE(first.DhcpEnabled, 1u);
    QCOMPARE(addresses(first.GatewayList), QStringLiteral("10.0.0.1/255.0.0.0 10.0.0.2/255.0.0.0"));
    QCOMPARE(addresses(first.DhcpServer), QStringLiteral("10.0.0.3/255.255.255.255"));
    QCOMPARE(first.HaveWins, 1);
    QCOMPARE(addresses({first.PrimaryWinsServer}), QStringLiteral("10.0.0.4/255.0.0.0"));
    QCOMPARE(addresses({first.SecondaryWinsServer}), QStringLiteral("10.0.0.5/"));
    QCOMPARE(first.LeaseObtained, qint64(1701337145));
    QCOMPARE(first.LeaseExpires, qint64(1) << 32);
    QCOMPARE(answers.GetAdaptersInfo->at(1).Index, 5u);
    QCOMPARE(answers.GetAdaptersInfo->at(1).LeaseObtained, qint64(-1));
}

void SystemFileTest::emptyAdapter()
{
    const SystemAnswers answers = readMember("GetAdaptersInfo", "[{}, {\"GatewayList\": []}]");
    for (const AdapterRecord &adapter : *answers.GetAdaptersInfo) {
        QCOMPARE(addresses(adapter.GatewayList), QStringLiteral("/")); // an entry with empty texts
        QCOMPARE(addresses(adapter.DhcpServer), QStringLiteral("/"));
        QCOMPARE(adapter.AdapterName, QString());
    }
    QVERIFY2(bool(readMember("GetAdaptersInfo", "[]").GetAdaptersInfo), "an empty list of adapters is valid");
}

void SystemFileTest::timeZone_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<int>("minutes");
    QTest::newRow("absent: UTC") << QByteArray("{}") << 0;
    QTest::newRow("null: UTC") << QByteArray("{\"timeZone\": null}") << 0;
    QTest::newRow("east") << QByteArray("{\"timeZone\": -60}") << -60;
    QTest::newRow("west") << QByteArray("{\"timeZone\": 300}") << 300;
}

void SystemFileTest::timeZone()
{
    QFETCH(QByteArray, json);
    QTEST(read(json).timeZone, "minutes");
}

void SystemFileTest::ansiCodePage_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<int>("number");
    QTest::newRow("absent: 1252") << QByteArray("{}") << 1252;
    QTest::newRow("null: 1252") << QByteArray("{\"ansiCodePage\": null}") << 1252;
    for (const int number : {1252, 1250, 1251, 932, 65001})
        QTest::addRow("%d", number) << "{\"ansiCodePage\": " + QByteArray::number(number) + '}' << number;
}

void SystemFileTest::ansiCodePage()
{
    QFETCH(QByteArray, json);
    QTEST(read(json).ansiCodePage.number, "number");
}

void SystemFileTest::unknownMembersAreIgnored_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("of the top level") << QByteArray("{\"GetTickCount\": [1, {}], \"GetUserName\": \"A\"}");
    QTest::newRow("of a record") << QByteArray("{\"GetVersionEx\": {\"note\": \"A\"}, \"GetUserName\": \"A\"}");
    QTest::newRow("of a drive") << QByteArray("{\"drives\": {\"C:\\\\\": {\"note\": []}}, \"GetUserName\": \"A\"}");
    QTest::newRow("of an adapter") << QByteArray("{\"GetAdaptersInfo\": [{\"note\": {}}], \"GetUserName\": \"A\"}");
    QTest::newRow("of a library") << QByteArray("{\"libraries\": {\"a.dll\": {\"note\": 1}}, \"GetUserName\": \"A\"}");
    QTest::newRow("among numbers") << QByteArray(
        "{\"GetSystemMetrics\": {\"note\": \"A\"}, \"GetComputerNameEx\": {\"note\": 5},"
        " \"SHGetSpecialFolderPath\": {\"note\": 5}, \"ExpandEnvironmentStrings\": {\"note\": {\"error\": 1}},"
        " \"GetUserName\": \"A\"}");
    QTest::newRow("a byte-order mark before the file") << QByteArray("\xef\xbb\xbf{\"GetUserName\": \"A\"}");
}

void SystemFileTest::unknownMembersAreIgnored()
{
    QFETCH(QByteArray, json);
    QCOMPARE(read(json).GetUserName.value.value_or(QString()), QStringLiteral("A"));
}

void SystemFileTest::wrongTypes_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *json, const char *expected) {
        QTest::newRow(name) << QByteArray(json) << QString::fromLatin1(expected);
    };
    const char number[] = "is not an integer or a text \"0x...\"";
    const auto noNumber = [&](const char *member) {
        return QByteArray("'") + member + "' " + number;
    };
    row("a number instead of a text", R"({"GetUserName": 5})", "'GetUserName' is not a text");
    row("a list instead of a text", R"({"GetSystemWindowsDirectory": []})", "'GetSystemWindowsDirectory' is not a text");
    row("an object instead of a text", R"({"GetSystemWow64Directory": {}})", "'GetSystemWow64Directory' is not a text");
    row("a field that is not a text", R"({"GetVersionEx": {"szCSDVersion": 5}})", "'GetVersionEx.szCSDVersion' is not a text");
    row("a number with a fraction", R"({"GetLogicalDrives": 1.5})", noNumber("GetLogicalDrives").constData());
    row("true instead of a number", R"({"timeZone": true})", noNumber("timeZone").constData());
    row("a text that is not a number", R"({"GetSystemInfo": {"dwPageSize": "big"}})", noNumber("GetSystemInfo.dwPageSize").constData());
    row("a text without digits", R"({"GetSystemInfo": {"dwPageSize": "0x"}})", noNumber("GetSystemInfo.dwPageSize").constData());
    row("an empty text instead of a number", R"({"GetSystemInfo": {"dwPageSize": ""}})", noNumber("GetSystemInfo.dwPageSize").constData());
    row("hexadecimal digits without 0x", R"({"GetSystemInfo": {"dwPageSize": "ff"}})", noNumber("GetSystemInfo.dwPageSize").constData());
    row("a metric that is not a number", R"({"GetSystemMetrics": {"89": []}})", noNumber("GetSystemMetrics.89").constData());
    row("a record that is a number", R"({"GetVersionEx": 5})", "'GetVersionEx' is not an object");
    row("a record that is a list", R"({"GetSystemInfo": []})", "'GetSystemInfo' is not an object");
    row("names that are a list", R"({"GetComputerNameEx": ["A"]})", "'GetComputerNameEx' is not an object");
    row("a name that is a number", R"({"GetComputerNameEx": {"0": 5}})", "'GetComputerNameEx.0' is not a text");
    row("a folder that is a number", R"({"SHGetSpecialFolderPath": {"5": 5}})", "'SHGetSpecialFolderPath.5' is not a text");
    row("a variable that is a number", R"({"environment": {"A": 5}})", "'environment.A' is not a text");
    row("a drive that is a text", R"({"drives": {"C:\\": "NTFS"}})", "'drives.C:\\' is not an object");
    row("a volume that is a text", R"({"drives": {"C:\\": {"GetVolumeInformation": "A"}}})",
        "'drives.C:\\.GetVolumeInformation' is not an object");
    row("modules that are a text", R"({"EnumProcessModules": "a.exe"})", "'EnumProcessModules' is not a list");
    row("a module that is a number", R"({"EnumProcessModules": [5]})", "'EnumProcessModules' is not a text");
    row("folders that are a text", R"({"WinSxS": "a"})", "'WinSxS' is not a list");
    row("a folder name that is a number", R"({"WinSxS": [5]})", "'WinSxS' is not a text");
    row("a library that is a text", R"({"libraries": {"a.dll": "A"}})", "'libraries.a.dll' is not an object");
    row("a function that is a number", R"({"libraries": {"a.dll": {"DNSServiceGetProperty": 0}}})",
        "'libraries.a.dll.DNSServiceGetProperty' is not an object");
    row("adapters that are a record", R"({"GetAdaptersInfo": {}})", "'GetAdaptersInfo' is not a list");
    row("an adapter that is a text", R"({"GetAdaptersInfo": ["A"]})", "'GetAdaptersInfo' is not an object");
    row("gateways that are a text", R"({"GetAdaptersInfo": [{"GatewayList": "10.0.0.1"}]})",
        "'GetAdaptersInfo.GatewayList' is not a list");
    row("a gateway that is a text", R"({"GetAdaptersInfo": [{"GatewayList": ["10.0.0.1"]}]})",
        "'GetAdaptersInfo.GatewayList' is not a list");
    row("an address that is a number", R"({"GetAdaptersInfo": [{"PrimaryWinsServer": [10, ""]}]})",
        "'GetAdaptersInfo.PrimaryWinsServer' is not a text");
    row("another code page", R"({"ansiCodePage": 437})", "'ansiCodePage' is not 1252, 1250, 1251, 932 or 65001");
    row("denied keys that are not a list", R"({"deniedKeys": {"HKEY_LOCAL_MACHINE\\A": 1}})", "'deniedKeys' is not a list");
    row("a denied key that is a number", R"({"deniedKeys": [5]})", "'deniedKeys' is not a text");
    row("a denied key without a root", R"({"deniedKeys": ["HKLM\\A"]})", "'deniedKeys' is not a list of whole key names");
    row("two errors: the message is about the first", R"({"GetUserName": 5, "ansiCodePage": 437})",
        "'ansiCodePage' is not 1252, 1250, 1251, 932 or 65001");
}

void SystemFileTest::wrongTypes()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, expected);
    Machine machine;
    QString error;
    int line = -1;
    QVERIFY(!readSystemFile(json, machine, error, line));
    QCOMPARE(error, expected);
    QCOMPARE(line, 0); // the message names the member
}

void SystemFileTest::syntaxErrors_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<int>("line");
    QTest::newRow("an empty file") << QByteArray() << 1;
    QTest::newRow("not an object") << QByteArray("[1]") << 1;
    QTest::newRow("a word") << QByteArray("{\n\n  \"GetUserName\": Jim\n}\n") << 3;
    QTest::newRow("a missing comma") << QByteArray("{\n\"timeZone\": 0\n\"GetUserName\": \"A\"\n}\n") << 3;
    QTest::newRow("a name without quotation marks") << QByteArray("{\n\"timeZone\": 0,\nGetUserName: \"A\"\n}\n") << 3;
    QTest::newRow("a text that does not end") << QByteArray("{\n\"GetUserName\": \"A}") << 2;
    QTest::newRow("an object that does not end") << QByteArray("{\n\"timeZone\": 0") << 2;
    QTest::newRow("characters after the object") << QByteArray("{\n}\nmore") << 3;
    QTest::newRow("a byte that is not UTF-8") << QByteArray("{\n\"GetUserName\": \"A\xff\"\n}\n") << 2;
    QTest::newRow("too deeply nested objects") << "{\n" + QByteArray("{\"a\":").repeated(1000000).mid(1) << 2;
    QTest::newRow("too deeply nested lists") << "{\"a\":\n" + QByteArray(1000000, '[') << 2;
    QTest::newRow("carriage returns") << QByteArray("{\r\n\"timeZone\": zero\r\n}\r\n") << 2;
}

void SystemFileTest::syntaxErrors()
{
    QFETCH(QByteArray, json);
    QFETCH(int, line);
    Machine machine;
    QString error;
    int errorLine = -1;
    QVERIFY(!readSystemFile(json, machine, error, errorLine));
    QVERIFY(!error.isEmpty() && !error.contains(QLatin1Char('\n')));
    QCOMPARE(errorLine, line);
}

void SystemFileTest::failureOfAllComputerNamesIsWritten()
{
    const Machine machine = readMachine("{\"GetComputerNameEx\": {\"error\": 5}}");
    QCOMPARE(machine.system.GetComputerNameEx.error, 5u);
    QCOMPARE(read(writeSystemFile(machine)).GetComputerNameEx.error, 5u);
}

void SystemFileTest::leaseTimesAreWritten_data()
{
    QTest::addColumn<qint64>("time");
    QTest::newRow("the smallest integer") << std::numeric_limits<qint64>::min();
    QTest::newRow("the largest integer") << std::numeric_limits<qint64>::max();
    QTest::newRow("an integer that a double cannot represent") << -(qint64(1) << 53) - 1;
    QTest::newRow("the largest integer that a double represents") << -(qint64(1) << 53) + 1;
    QTest::newRow("before 1970") << qint64(-1);
}

void SystemFileTest::leaseTimesAreWritten()
{
    QFETCH(qint64, time);
    AdapterRecord adapter;
    adapter.LeaseObtained = time;
    Machine machine;
    machine.system.GetAdaptersInfo.value = {adapter};
    const SystemAnswers again = read(writeSystemFile(machine));
    QVERIFY(again.GetAdaptersInfo);
    QCOMPARE(again.GetAdaptersInfo->front().LeaseObtained, time);
}

void SystemFileTest::deniedKeys_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, const char *json, const QStringList &expected) {
        QTest::newRow(name) << QByteArray(json) << expected;
    };
    row("absent", "{}", {});
    row("null", R"({"deniedKeys": null})", {});
    row("none", R"({"deniedKeys": []})", {});
    row("denied keys are created with their parents", R"({"deniedKeys": ["HKEY_LOCAL_MACHINE\\A\\B", "HKEY_CURRENT_USER\\C"]})",
        {QStringLiteral("HKEY_LOCAL_MACHINE\\A\\B"), QStringLiteral("HKEY_CURRENT_USER\\C")});
    row("a root in another case", R"({"deniedKeys": ["hkey_classes_root\\A"]})", {QStringLiteral("HKEY_CLASSES_ROOT\\A")});
    row("a denied key below another", R"({"deniedKeys": ["HKEY_USERS\\A\\B", "HKEY_USERS\\A"]})",
        {QStringLiteral("HKEY_USERS\\A"), QStringLiteral("HKEY_USERS\\A\\B")});
    row("a root", R"({"deniedKeys": ["HKEY_USERS"]})", {QStringLiteral("HKEY_USERS")});
}

void SystemFileTest::deniedKeys()
{
    QFETCH(QByteArray, json);
    QFETCH(QStringList, expected);
    const Machine machine = readMachine(json);
    QCOMPARE(deniedIn(machine), expected);
    QCOMPARE(deniedIn(readMachine(writeSystemFile(machine))), expected);
    QCOMPARE(writeSystemFile(machine).contains("deniedKeys"), !expected.isEmpty());
}

void SystemFileTest::deniedKeysOfARegistry()
{
    Machine machine;
    const auto key = createKey(machine.registry, QStringLiteral("HKEY_LOCAL_MACHINE\\Alpha\\Beta"));
    key->setValue({QStringLiteral("Value"), 3, QByteArray("x")});
    QString error;
    int line = 0;
    QVERIFY(readSystemFile(R"({"deniedKeys": ["HKEY_LOCAL_MACHINE\\ALPHA\\beta"]})", machine, error, line));
    QVERIFY2(key->isDenied(), "an existing key, case-insensitively");
    QVERIFY(key->findValue(QStringLiteral("Value")));
    QCOMPARE(deniedIn(machine), QStringList(QStringLiteral("HKEY_LOCAL_MACHINE\\Alpha\\Beta")));
}

TEST_WITHOUT_APPLICATION(SystemFileTest);
#include "tst_system_file.moc"
