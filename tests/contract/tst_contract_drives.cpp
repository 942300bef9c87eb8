// Error mode, drives, volumes and free space.

#include "answering_windows.h"
#include "rows.h"

namespace {

const WCHAR systemDrive[] = L"C:\\";
const WCHAR missingDrive[] = L"B:\\";

struct Volume
{
    Volume(const WCHAR *root, DWORD nameSize, DWORD fileSystemSize) : name(2 * nameSize), fileSystem(2 * fileSystemSize)
    {
        result = GetVolumeInformationW(root, name.wide(), nameSize, nullptr, nullptr, nullptr, fileSystem.wide(),
                                       fileSystemSize);
    }

    PoisonedBuffer name;
    PoisonedBuffer fileSystem;
    BOOL result;
};

void errorModeReturnsThePreviousOne()
{
    const AnsweringWindows windows;
    const UINT before = SetErrorMode(SEM_FAILCRITICALERRORS);
    QCOMPARE(SetErrorMode(0), UINT(SEM_FAILCRITICALERRORS));
    QCOMPARE(SetErrorMode(before), UINT(0));
    QCOMPARE(SetErrorMode(before), before);
}

void logicalDrives()
{
    const AnsweringWindows windows;
    const DWORD mask = GetLogicalDrives();
    QVERIFY2(mask & 1 << 2, "drive C: exists");
    QVERIFY2(!(mask & 1 << 1), "drive B: does not exist");
    QVERIFY2(mask >> 26 == 0, "no bit above that of Z: is set");
    for (int i = 0; i < 26; ++i) {
        if (!(mask & 1 << i))
            continue;
        const WCHAR root[] = {WCHAR('A' + i), ':', '\\', 0};
        const UINT type = GetDriveTypeW(root);
        QVERIFY2(type >= DRIVE_REMOVABLE && type <= DRIVE_RAMDISK, qPrintable(QString::fromWCharArray(root)));
    }
    QCOMPARE(GetDriveTypeW(systemDrive), UINT(DRIVE_FIXED));
    QCOMPARE(GetDriveTypeW(L"c:\\"), UINT(DRIVE_FIXED));
    QVERIFY(GetDriveTypeW(missingDrive) <= DRIVE_NO_ROOT_DIR);
}

void volumeInformation()
{
    const AnsweringWindows windows;
    Volume volume(systemDrive, MAX_PATH, MAX_PATH);
    QVERIFY(volume.result);
    QCOMPARE(volume.fileSystem.wideText(), QStringLiteral("NTFS"));
    QVERIFY(!volume.name.isUntouched());
    QVERIFY(volume.name.isUntouchedFrom(2 * MAX_PATH) && volume.fileSystem.isUntouchedFrom(2 * MAX_PATH));
}

void volumeNamesThatExactlyFit()
{
    const AnsweringWindows windows;
    const QString name = Volume(systemDrive, MAX_PATH, MAX_PATH).name.wideText();
    Volume volume(systemDrive, DWORD(name.size()) + 1, 5);
    QVERIFY(volume.result);
    QCOMPARE(volume.name.wideText(), name);
    QCOMPARE(volume.fileSystem.wideText(), QStringLiteral("NTFS"));
    QVERIFY(volume.name.isUntouchedFrom(2 * (name.size() + 1)) && volume.fileSystem.isUntouchedFrom(2 * 5));
}

void volumeNamesThatDoNotFit()
{
    const auto row = [](const QString &name, DWORD capacity) {
        addTestRow(name, [=] {
            const AnsweringWindows windows;
            Volume volume(systemDrive, MAX_PATH, capacity);
            QVERIFY(!volume.result);
            QVERIFY(volume.fileSystem.isUntouchedFrom(2 * int(capacity)));
        });
    };
    row("no room for the terminator", DWORD(4));
    row("a buffer of one unit", DWORD(1));
}

void missingVolumeLeavesTheBuffers()
{
    const AnsweringWindows windows;
    Volume volume(missingDrive, MAX_PATH, MAX_PATH);
    QVERIFY(!volume.result);
    QVERIFY(volume.name.isUntouched() && volume.fileSystem.isUntouched());
}

void freeSpace()
{
    const AnsweringWindows windows;
    ULARGE_INTEGER free;
    ULARGE_INTEGER total;
    free.QuadPart = total.QuadPart = poison;
    QVERIFY(GetDiskFreeSpaceExW(systemDrive, &free, &total, nullptr));
    QVERIFY(total.QuadPart > poison);
    QVERIFY(free.QuadPart != poison && free.QuadPart <= total.QuadPart);
}

void missingDriveLeavesTheNumbers()
{
    const AnsweringWindows windows;
    ULARGE_INTEGER free;
    ULARGE_INTEGER total;
    free.QuadPart = total.QuadPart = poison;
    QVERIFY(!GetDiskFreeSpaceExW(missingDrive, &free, &total, nullptr));
    QCOMPARE(free.QuadPart, ULONGLONG(poison));
    QCOMPARE(total.QuadPart, ULONGLONG(poison));
}

void addTests()
{
    addTestRow("errorModeReturnsThePreviousOne", errorModeReturnsThePreviousOne);
    addTestRow("logicalDrives", logicalDrives);
    addTestRow("volumeInformation", volumeInformation);
    addTestRow("volumeNamesThatExactlyFit", volumeNamesThatExactlyFit);
    addTestRows("volumeNamesThatDoNotFit", volumeNamesThatDoNotFit);
    addTestRow("missingVolumeLeavesTheBuffers", missingVolumeLeavesTheBuffers);
    addTestRow("freeSpace", freeSpace);
    addTestRow("missingDriveLeavesTheNumbers", missingDriveLeavesTheNumbers);
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addTests));
