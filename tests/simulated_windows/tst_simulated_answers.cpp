// Results of the calls if a member of system.json is a value, an error, or absent.

#include "calls.h"
#include "described_windows.h"
#include "rows.h"
#include "simulated_windows.h"
#include "unterminated_texts.h"
#include "wide_text.h"

#include <QtTest/QtTest>
#include <cstring>
#include <iphlpapi.h>
#include <memory>
#include <shlobj.h>

namespace {

QByteArray member(const char *name, const QByteArray &value)
{
    return QByteArray("{\"") + name + "\": " + value + '}';
}

FailingCall callNamed(const QByteArray &name)
{
    for (const FailingCall &call : failingCalls()) {
        if (call.name == name)
            return call;
    }
    qFatal("no call %s", name.constData());
}

void errorsOfTheDescription()
{
    const auto row = [](const QString &name, const QByteArray &call, const QByteArray &system, DWORD error) {
        addTestRow(name, [=] {
            const DescribedWindows windows(QByteArray(), system);
            PoisonedBuffer buffer(512);
            SetLastError(poison);
            QCOMPARE(callNamed(call).make(buffer), qint64(0));
            QCOMPARE(GetLastError(), error);
            QVERIFY(buffer.isUntouchedFrom(4));
        });
    };
    const auto rows = [&](const QByteArray &call, const char *name) {
        row(call + " with an error", call, member(name, "{\"error\": 1234}"), 1234);
        row(call + " null", call, member(name, "null"), 0);
        row(call + " absent", call, "{}", 0);
    };
    rows("GetVersionExA", "GetVersionEx");
    rows("GetVersionExW", "GetVersionEx");
    rows("GlobalMemoryStatusEx", "GlobalMemoryStatusEx");
    rows("GetComputerNameExW", "GetComputerNameEx");
    rows("GetUserNameW", "GetUserName");
    rows("GetSystemRegistryQuota", "GetSystemRegistryQuota");
    rows("GetLogicalDrives", "GetLogicalDrives");
    rows("GetSystemWindowsDirectoryW", "GetSystemWindowsDirectory");
    rows("GetSystemWow64DirectoryW", "GetSystemWow64Directory");
    rows("EnumProcessModules", "EnumProcessModules");
    row("a computer name with an error", "GetComputerNameExW", member("GetComputerNameEx", "{\"0\": {\"error\": 87}}"), 87);
    row("an absent computer name", "GetComputerNameExW", member("GetComputerNameEx", "{\"1\": \"A\"}"), 0);
    row("a folder with an error", "SHGetSpecialFolderPathW", member("SHGetSpecialFolderPath", "{\"5\": {\"error\": 2}}"), 2);
    row("an absent folder", "SHGetSpecialFolderPathW", member("SHGetSpecialFolderPath", "{\"2\": \"A\"}"), 0);
    row("a volume with an error", "GetVolumeInformationW",
        member("drives", "{\"C:\\\\\": {\"GetVolumeInformation\": {\"error\": 21}}}"), 21);
    row("one volume absent", "GetVolumeInformationW", member("drives", "{\"C:\\\\\": {}}"), 0);
    row("the free space of a drive with an error", "GetDiskFreeSpaceExW",
        member("drives", "{\"C:\\\\\": {\"GetDiskFreeSpaceEx\": {\"error\": 21}}}"), 21);
    row("a library that is absent", "LoadLibraryW", "{}", ERROR_MOD_NOT_FOUND);
    row("a library that is null", "LoadLibraryW", member("libraries", "{\"dnssd.dll\": null}"), ERROR_MOD_NOT_FOUND);
    row("no product information: not exported", "GetProcAddress", "{}", ERROR_PROC_NOT_FOUND);
    row("product information with an error", "GetProductInfo", member("GetProductInfo", "{\"error\": 1234}"), 1234);
}

void version()
{
    const auto row = [](const QString &name, const QByteArray &servicePack, const QByteArray &narrow, const QString &wide) {
        addTestRow(name, [=] {
            const DescribedWindows windows(QByteArray(), member("GetVersionEx", "{\"dwMajorVersion\": 5, \"wProductType\": 3, \"szCSDVersion\": \"" + servicePack + "\"}"));
            OSVERSIONINFOEXA shortText = {};
            shortText.dwOSVersionInfoSize = sizeof shortText;
            QVERIFY(GetVersionExA(reinterpret_cast<LPOSVERSIONINFOA>(&shortText)));
            QCOMPARE(QByteArray(shortText.szCSDVersion), narrow);
            OSVERSIONINFOEXW wideText = {};
            wideText.dwOSVersionInfoSize = sizeof wideText;
            QVERIFY(GetVersionExW(reinterpret_cast<LPOSVERSIONINFOW>(&wideText)));
            QCOMPARE(QString::fromWCharArray(wideText.szCSDVersion), wide);
            QCOMPARE(wideText.dwMajorVersion, DWORD(5));
            QCOMPARE(int(wideText.wProductType), 3);
        });
    };
    row("none", QByteArray(), QByteArray(), QString());
    row("a text", QByteArray("Service Pack 1"), QByteArray("Service Pack 1"), QStringLiteral("Service Pack 1"));
    row("a text in the ANSI code page", QByteArray("\u00e4\u0416"), QByteArray("\xe4?"), QStringLiteral("\u00e4\u0416"));
    row("a text as long as the field", QByteArray(127, 'x'), QByteArray(127, 'x'), QString(127, QLatin1Char('x')));
    row("a text longer than the field is truncated", QByteArray(300, 'x'), QByteArray(127, 'x'), QString(127, QLatin1Char('x')));
}

void productInfo()
{
    const auto row = [](const QString &name, const QByteArray &system, const QString &written) {
        addTestRow(name, [=] {
            const DescribedWindows windows(QByteArray(), system);
            PoisonedBuffer buffer(16);
            QCOMPARE(callNamed("GetProductInfo").make(buffer), qint64(written.isEmpty() ? FALSE : TRUE));
            QCOMPARE(buffer.written(), written);
        });
    };
    row("a type", member("GetProductInfo", "{\"dwReturnedProductType\": 48}"), QStringLiteral("30000000"));
    row("no type: 0", member("GetProductInfo", "{}"), QStringLiteral("00000000"));
    row("an error: the type is unchanged", member("GetProductInfo", "{\"error\": 87}"), QString());
}

void processors()
{
    const DescribedWindows windows(QByteArray(), member("GetSystemInfo", R"({
        "wProcessorArchitecture": 9, "lpMaximumApplicationAddress": "0x7ffffffeffff",
        "dwActiveProcessorMask": "0xffffffffffffffff", "wProcessorRevision": 40457})"));
    SYSTEM_INFO information;
    std::memset(&information, 0xcc, sizeof information);
    GetSystemInfo(&information);
    QCOMPARE(information.wProcessorArchitecture, WORD(PROCESSOR_ARCHITECTURE_AMD64));
    QCOMPARE(int(information.wReserved), 0);
    QCOMPARE(reinterpret_cast<quintptr>(information.lpMaximumApplicationAddress), quintptr(0x7ffffffeffff));
    QCOMPARE(information.dwActiveProcessorMask, ~DWORD_PTR(0));
    QCOMPARE(int(information.wProcessorRevision), 40457);
    QCOMPARE(information.dwPageSize, DWORD(0));

    simulated::installNothing();
    GetSystemInfo(&information);
    QCOMPARE(int(information.wProcessorArchitecture), 0);
    QCOMPARE(information.lpMaximumApplicationAddress, LPVOID(nullptr));
}

void metrics()
{
    const DescribedWindows windows(QByteArray(), member("GetSystemMetrics", "{\"89\": 7, \"0\": -1}"));
    QCOMPARE(GetSystemMetrics(SM_SERVERR2), 7);
    QCOMPARE(GetSystemMetrics(0), -1);
    QCOMPARE(GetSystemMetrics(1), 0);
}

void computerNames()
{
    const DescribedWindows windows(QByteArray(), member("GetComputerNameEx", "{\"0\": \"PC\", \"7\": \"pc.example\", \"2\": \"\"}"));
    const auto name = [](int format) {
        WCHAR buffer[32] = {'u', 0};
        DWORD size = 32;
        const BOOL given = GetComputerNameExW(COMPUTER_NAME_FORMAT(format), buffer, &size);
        return QStringLiteral("%1 %2 %3").arg(given).arg(size).arg(QString::fromWCharArray(buffer));
    };
    QCOMPARE(name(0), QStringLiteral("1 2 PC"));
    QCOMPARE(name(7), QStringLiteral("1 10 pc.example"));
    QCOMPARE(name(2), QStringLiteral("1 0 "));
    QCOMPARE(name(1), QStringLiteral("0 32 u"));
}

void drives()
{
    const auto row = [](const QString &name, const QByteArray &drive, const QString &expected) {
        addTestRow(name, [=] {
            const DescribedWindows windows(QByteArray(), member("drives", "{\"C:\\\\\": " + drive + '}'));
            WCHAR name[8];
            WCHAR fileSystem[8];
            ULARGE_INTEGER free;
            ULARGE_INTEGER total;
            QString actual = QString::number(GetDriveTypeW(L"C:\\"));
            actual += GetVolumeInformationW(L"C:\\", name, 8, nullptr, nullptr, nullptr, fileSystem, 8)
                ? QStringLiteral(", %1 %2").arg(QString::fromWCharArray(name), QString::fromWCharArray(fileSystem))
                : QStringLiteral(", -");
            actual += GetDiskFreeSpaceExW(L"C:\\", &free, &total, nullptr)
                ? QStringLiteral(", %1 %2").arg(free.QuadPart).arg(total.QuadPart)
                : QStringLiteral(", -");
            QCOMPARE(actual, expected);
        });
    };
    row("full", QByteArray(R"({"GetDriveType": 3, "GetVolumeInformation": {"volumeName": "V", "fileSystemName": "NTFS"},
                          "GetDiskFreeSpaceEx": {"freeBytesAvailableToCaller": "0xffffffffffffffff", "totalNumberOfBytes": 2}})"),
        QStringLiteral("3, V NTFS, 18446744073709551615 2"));
    row("a drive without members", QByteArray("{}"), QStringLiteral("0, -, -"));
    row("a drive that is not described", QByteArray("null"), QStringLiteral("0, -, -"));
    row("empty names", QByteArray("{\"GetVolumeInformation\": {}}"), QStringLiteral("0,  , -"));
    row("a name as long as the buffer: with its terminator it does not fit", QByteArray("{\"GetVolumeInformation\": {\"volumeName\": \"12345678\"}}"), QStringLiteral("0, -, -"));
    row("a name that fits exactly", QByteArray("{\"GetVolumeInformation\": {\"volumeName\": \"1234567\"}}"), QStringLiteral("0, 1234567 , -"));
}

void drivesAreCaseInsensitive()
{
    const DescribedWindows windows(QByteArray(), member("drives", "{\"c:\\\\\": {\"GetDriveType\": 3}}"));
    QCOMPARE(GetDriveTypeW(L"C:\\"), UINT(DRIVE_FIXED));
    QCOMPARE(GetDriveTypeW(L"c:\\"), UINT(DRIVE_FIXED));
    QCOMPARE(GetDriveTypeW(L"C:"), UINT(DRIVE_UNKNOWN));
}

void logicalDrives()
{
    const auto row = [](const QString &name, const QByteArray &system, DWORD mask, DWORD error) {
        addTestRow(name, [=] {
            const DescribedWindows windows(QByteArray(), system);
            SetLastError(poison);
            QCOMPARE(GetLogicalDrives(), mask);
            QCOMPARE(GetLastError(), error);
        });
    };
    row("some", member("GetLogicalDrives", "5"), DWORD(5), poison);
    row("all bits", member("GetLogicalDrives", "\"0xffffffff\""), ~DWORD(0), poison);
    row("none", member("GetLogicalDrives", "0"), DWORD(0), DWORD(0));
    row("absent", QByteArray("{}"), DWORD(0), DWORD(0));
    row("an error", member("GetLogicalDrives", "{\"error\": 5}"), DWORD(0), DWORD(5));
}

void longDirectory()
{
    const DescribedWindows windows(QByteArray(), member("GetSystemWindowsDirectory", '"' + QByteArray(1024, 'x') + '"'));
    PoisonedBuffer buffer(2048);
    QCOMPARE(GetSystemWindowsDirectoryW(buffer.wide(), 1024), UINT(1025));
    QVERIFY(buffer.isUntouched());
    PoisonedBuffer larger(2050);
    QCOMPARE(GetSystemWindowsDirectoryW(larger.wide(), 1025), UINT(1024));
    QVERIFY(larger.isUntouchedFrom(2050));
}

void expansionFailures()
{
    const auto row = [](const QString &name, const QByteArray &index, const QString &source) {
        addTestRow(name, [=] {
            const DescribedWindows windows(QByteArray(), member("ExpandEnvironmentStrings", "{\"" + index + "\": {\"error\": 8}}"));
            const QStringList all {QStringLiteral("OS: %OS%"), QStringLiteral("PATH: %PATH%"), QStringLiteral("HOMEPATH: %HOMEPATH%"),
                                   QStringLiteral("TEMP: %TEMP%"), QStringLiteral("CPU: %PROCESSOR_IDENTIFIER%"), QStringLiteral("%A%")};
            for (const QString &text : all) {
                PoisonedBuffer buffer(128);
                SetLastError(poison);
                const bool fails = text == source;
                QCOMPARE(ExpandEnvironmentStringsW(wide(text), buffer.wide(), 64), DWORD(fails ? 0 : text.size() + 1));
                QCOMPARE(GetLastError(), fails ? DWORD(8) : poison);
                QCOMPARE(buffer.isUntouched(), fails);
            }
        });
    };
    row("the first", QByteArray("0"), QStringLiteral("OS: %OS%"));
    row("the second", QByteArray("1"), QStringLiteral("PATH: %PATH%"));
    row("the third", QByteArray("2"), QStringLiteral("HOMEPATH: %HOMEPATH%"));
    row("the fourth", QByteArray("3"), QStringLiteral("TEMP: %TEMP%"));
    row("the fifth", QByteArray("4"), QStringLiteral("CPU: %PROCESSOR_IDENTIFIER%"));
}

void unterminatedTexts()
{
    const DescribedWindows windows(QByteArray(), R"({"GetUserName": "anna", "environment": {"A": "b"}})");
    for (const bool terminated : {false, true}) {
        const auto unterminated = terminated ? nullptr : std::make_unique<simulated::UnterminatedTexts>();
        PoisonedBuffer name(64);
        DWORD size = 32;
        QVERIFY(GetUserNameW(name.wide(), &size));
        QCOMPARE(size, DWORD(terminated ? 5 : 4));
        QVERIFY(name.isUntouchedFrom(2 * int(size)));
        QCOMPARE(QString::fromWCharArray(name.wide(), 4), QStringLiteral("anna"));
        PoisonedBuffer line(64);
        QCOMPARE(ExpandEnvironmentStringsW(wide(QStringLiteral("x%A%")), line.wide(), 32), DWORD(terminated ? 3 : 2));
        QVERIFY(line.isUntouchedFrom(terminated ? 6 : 4));
        QCOMPARE(QString::fromWCharArray(line.wide(), 2), QStringLiteral("xb"));
    }
}

void specialFolders()
{
    const DescribedWindows windows(QByteArray(), member("SHGetSpecialFolderPath", "{\"2\": \"C:\\\\P\", \"5\": \"" + QByteArray(300, 'x') + "\"}"));
    PoisonedBuffer programs(2 * MAX_PATH);
    QVERIFY(SHGetSpecialFolderPathW(nullptr, programs.wide(), CSIDL_PROGRAMS, FALSE));
    QCOMPARE(programs.wideText(), QStringLiteral("C:\\P"));
    QVERIFY(programs.isUntouchedFrom(2 * 5));
    PoisonedBuffer longPath(2 * MAX_PATH);
    QVERIFY(SHGetSpecialFolderPathW(nullptr, longPath.wide(), CSIDL_PERSONAL, FALSE));
    QCOMPARE(longPath.wideText(), QString(259, QLatin1Char('x'))); // MAX_PATH without the terminator
    QVERIFY(longPath.isUntouchedFrom(2 * MAX_PATH));
}

void errorMode()
{
    QCOMPARE(SetErrorMode(1), UINT(0));
    QCOMPARE(SetErrorMode(0x8003), UINT(1));
    QCOMPARE(SetErrorMode(0), UINT(0x8003));
}

void addTests()
{
    addTestRows("errorsOfTheDescription", errorsOfTheDescription);
    addTestRows("version", version);
    addTestRows("productInfo", productInfo);
    addTestRow("processors", processors);
    addTestRow("metrics", metrics);
    addTestRow("computerNames", computerNames);
    addTestRows("drives", drives);
    addTestRow("drivesAreCaseInsensitive", drivesAreCaseInsensitive);
    addTestRows("logicalDrives", logicalDrives);
    addTestRow("longDirectory", longDirectory);
    addTestRows("expansionFailures", expansionFailures);
    addTestRow("unterminatedTexts", unterminatedTexts);
    addTestRow("specialFolders", specialFolders);
    addTestRow("errorMode", errorMode);
}

} // namespace

TEST_WITHOUT_APPLICATION(RowTest(addTests));
