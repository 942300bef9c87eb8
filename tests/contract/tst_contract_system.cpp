// Version, processors, memory, metrics and registry quota.

#include "answering_windows.h"
#include "rows.h"

#include <algorithm>
#include <cstring>

namespace {

/// A record that is poisoned except for its size member.
template <typename Record>
struct Poisoned
{
    explicit Poisoned(DWORD size) : buffer(sizeof(Record)) { std::memcpy(buffer.bytes(), &size, sizeof size); }

    Record *operator->() { return reinterpret_cast<Record *>(buffer.bytes()); }
    template <typename Other>
    Other *as()
    {
        return reinterpret_cast<Other *>(buffer.bytes());
    }

    PoisonedBuffer buffer;
};

template <typename Char>
bool isTerminated(const Char (&text)[128])
{
    return std::find(std::begin(text), std::end(text), Char(0)) != std::end(text);
}

void shortVersionRecord()
{
    const AnsweringWindows windows;
    Poisoned<OSVERSIONINFOEXA> narrow(sizeof(OSVERSIONINFOA));
    QVERIFY(GetVersionExA(narrow.as<OSVERSIONINFOA>()));
    QCOMPARE(narrow->dwOSVersionInfoSize, DWORD(148));
    QCOMPARE(narrow->dwPlatformId, DWORD(VER_PLATFORM_WIN32_NT));
    QVERIFY(isTerminated(narrow->szCSDVersion));
    QVERIFY2(narrow.buffer.isUntouchedFrom(148), "members that only the long record has");

    Poisoned<OSVERSIONINFOEXW> wide(sizeof(OSVERSIONINFOW));
    QVERIFY(GetVersionExW(wide.as<OSVERSIONINFOW>()));
    QCOMPARE(wide->dwOSVersionInfoSize, DWORD(276));
    QVERIFY(isTerminated(wide->szCSDVersion));
    QVERIFY2(wide.buffer.isUntouchedFrom(276), "members that only the long record has");
}

void longVersionRecord()
{
    const AnsweringWindows windows;
    Poisoned<OSVERSIONINFOEXA> narrow(sizeof(OSVERSIONINFOEXA));
    QVERIFY(GetVersionExA(narrow.as<OSVERSIONINFOA>()));
    QCOMPARE(narrow->dwOSVersionInfoSize, DWORD(156));
    QVERIFY(narrow->dwMajorVersion >= 4 && narrow->dwMajorVersion <= 10);
    QVERIFY(narrow->wProductType >= 1 && narrow->wProductType <= 3);
    QVERIFY(narrow->wServicePackMajor != 0xcccc && narrow->wServicePackMinor != 0xcccc);
    QVERIFY(narrow->wSuiteMask != 0xcccc);
    QVERIFY(narrow.buffer.isUntouchedFrom(156));

    Poisoned<OSVERSIONINFOEXW> wide(sizeof(OSVERSIONINFOEXW));
    QVERIFY(GetVersionExW(wide.as<OSVERSIONINFOW>()));
    QVERIFY(wide.buffer.isUntouchedFrom(284));
}

void bothFormsReturnTheSameVersion()
{
    const AnsweringWindows windows;
    OSVERSIONINFOEXA narrow = {};
    narrow.dwOSVersionInfoSize = sizeof narrow;
    OSVERSIONINFOEXW wide = {};
    wide.dwOSVersionInfoSize = sizeof wide;
    QVERIFY(GetVersionExA(reinterpret_cast<OSVERSIONINFOA *>(&narrow)));
    QVERIFY(GetVersionExW(reinterpret_cast<OSVERSIONINFOW *>(&wide)));
    QCOMPARE(narrow.dwMajorVersion, wide.dwMajorVersion);
    QCOMPARE(narrow.dwMinorVersion, wide.dwMinorVersion);
    QCOMPARE(narrow.dwBuildNumber, wide.dwBuildNumber);
    QCOMPARE(narrow.dwPlatformId, wide.dwPlatformId);
    QCOMPARE(QString::fromLatin1(narrow.szCSDVersion), QString::fromWCharArray(wide.szCSDVersion));
    QCOMPARE(narrow.wServicePackMajor, wide.wServicePackMajor);
    QCOMPARE(narrow.wSuiteMask, wide.wSuiteMask);
    QCOMPARE(narrow.wProductType, wide.wProductType);
}

void versionRecordOfTheWrongSize()
{
    const auto row = [](const QString &name, DWORD size) {
        addTestRow(name, [=] {
            const AnsweringWindows windows;
            Poisoned<OSVERSIONINFOEXA> record(size);
            SetLastError(poison);
            QVERIFY(!GetVersionExA(record.as<OSVERSIONINFOA>()));
            QCOMPARE(GetLastError(), DWORD(ERROR_INSUFFICIENT_BUFFER));
            QCOMPARE(record->dwOSVersionInfoSize, size);
            QVERIFY(record.buffer.isUntouchedFrom(sizeof size));
        });
    };
    row("none", DWORD(0));
    row("one byte less than the short record", DWORD(147));
    row("between the two records", DWORD(150));
    row("one byte more than the long record", DWORD(157));
}

void systemInfo()
{
    const AnsweringWindows windows;
    Poisoned<SYSTEM_INFO> record(poison);
    GetSystemInfo(record.as<SYSTEM_INFO>());
    QCOMPARE(record->wProcessorArchitecture, WORD(PROCESSOR_ARCHITECTURE_AMD64));
    QCOMPARE(record->dwPageSize, DWORD(4096));
    QCOMPARE(record->dwAllocationGranularity, DWORD(65536));
    QCOMPARE(record->lpMinimumApplicationAddress, LPVOID(0x10000));
    QVERIFY(record->lpMaximumApplicationAddress > record->lpMinimumApplicationAddress);
    QVERIFY(record->dwNumberOfProcessors >= 1 && record->dwNumberOfProcessors != 0xcccccccc);
    QVERIFY(record->dwActiveProcessorMask & 1);
    QVERIFY(record.buffer.isUntouchedFrom(sizeof(SYSTEM_INFO)));
}

void memoryStatus()
{
    const AnsweringWindows windows;
    Poisoned<MEMORYSTATUSEX> record(sizeof(MEMORYSTATUSEX));
    QVERIFY(GlobalMemoryStatusEx(record.as<MEMORYSTATUSEX>()));
    QCOMPARE(record->dwLength, DWORD(64));
    QVERIFY(record->dwMemoryLoad <= 100);
    QVERIFY(record->ullTotalPhys > 0 && record->ullAvailPhys <= record->ullTotalPhys);
    QVERIFY(record->ullTotalPageFile > 0 && record->ullAvailPageFile <= record->ullTotalPageFile);
    QVERIFY(record->ullTotalVirtual > 0 && record->ullAvailVirtual <= record->ullTotalVirtual);
    QCOMPARE(record->ullAvailExtendedVirtual, DWORDLONG(0));
    QVERIFY(record.buffer.isUntouchedFrom(sizeof(MEMORYSTATUSEX)));
}

void memoryRecordOfTheWrongSize()
{
    const auto row = [](const QString &name, DWORD size) {
        addTestRow(name, [=] {
            const AnsweringWindows windows;
            Poisoned<MEMORYSTATUSEX> record(size);
            SetLastError(poison);
            QVERIFY(!GlobalMemoryStatusEx(record.as<MEMORYSTATUSEX>()));
            QCOMPARE(GetLastError(), DWORD(ERROR_INVALID_PARAMETER));
            QVERIFY(record.buffer.isUntouchedFrom(sizeof size));
        });
    };
    row("none", DWORD(0));
    row("too small", DWORD(63));
    row("too large", DWORD(65));
}

void unknownMetricIsZero()
{
    const AnsweringWindows windows;
    QCOMPARE(GetSystemMetrics(9999), 0);
    QCOMPARE(GetSystemMetrics(SM_SERVERR2), 0);
}

void registryQuota()
{
    const AnsweringWindows windows;
    DWORD allowed = poison;
    DWORD used = poison;
    QVERIFY(GetSystemRegistryQuota(&allowed, &used));
    QVERIFY(allowed != poison && used != poison);
    QVERIFY(used <= allowed);
}

void addTests()
{
    addTestRow("shortVersionRecord", shortVersionRecord);
    addTestRow("longVersionRecord", longVersionRecord);
    addTestRow("bothFormsReturnTheSameVersion", bothFormsReturnTheSameVersion);
    addTestRows("versionRecordOfTheWrongSize", versionRecordOfTheWrongSize);
    addTestRow("systemInfo", systemInfo);
    addTestRow("memoryStatus", memoryStatus);
    addTestRows("memoryRecordOfTheWrongSize", memoryRecordOfTheWrongSize);
    addTestRow("unknownMetricIsZero", unknownMetricIsZero);
    addTestRow("registryQuota", registryQuota);
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addTests));
