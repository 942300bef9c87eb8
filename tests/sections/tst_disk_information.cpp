// diskInformation()

#include "section_rows.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const char heading[] = "Disk information: \n";
const SectionRows rows(diskInformation, heading);

const char fullSystem[] = R"({
    "GetLogicalDrives": 13,
    "drives": {
        "A:\\": {"GetDriveType": 2},
        "C:\\": {
            "GetDriveType": 3,
            "GetVolumeInformation": {"volumeName": "Windows", "fileSystemName": "NTFS"},
            "GetDiskFreeSpaceEx": {"freeBytesAvailableToCaller": 1610612735, "totalNumberOfBytes": 274877906944}
        },
        "D:\\": {
            "GetDriveType": 5,
            "GetVolumeInformation": {"volumeName": "DVD", "fileSystemName": "UDF"},
            "GetDiskFreeSpaceEx": {"freeBytesAvailableToCaller": 0, "totalNumberOfBytes": 1536}
        }
    }
})";

const char driveA[] = "A:\\ removable media      \n";
const char driveC[] = "C:\\ fixed drive          NTFS  Windows  Free: 1.4 GByte Total: 256.0 GByte \n";
const char driveD[] = "D:\\ CD/DVD drive         UDF  DVD  Free: 0 Byte Total: 1.5 KByte \n";

void driveRows()
{
    const auto row = [](const char *name, const QByteArray &system, const QString &lines) {
        rows.text(name, {"", system}, lines);
    };
    row("A, C and D: three lines in the order of letters", fullSystem, QString(driveA) + driveC + driveD);
    row("an empty machine: the failure, without a line end", "{}", "Failed GetLogicalDrives(), error = 0");
    row("the failure shows its error", R"({"GetLogicalDrives": {"error": 5}})", "Failed GetLogicalDrives(), error = 5");
    row("the error is unsigned", R"({"GetLogicalDrives": {"error": 4294967295}})",
        "Failed GetLogicalDrives(), error = 4294967295");
    row("no drive is a failure", R"({"GetLogicalDrives": 0})", "Failed GetLogicalDrives(), error = 0");
    row("bit 0: drive A", R"({"GetLogicalDrives": 1})", "A:\\ \n");
    row("bit 25: drive Z", R"({"GetLogicalDrives": "0x2000000"})", "Z:\\ \n");
    row("bit 26 is not a drive", R"({"GetLogicalDrives": "0x4000000"})", "[:\\ \n");
    row("bit 31 is not a drive", R"({"GetLogicalDrives": "0x80000001"})", "A:\\ \n`:\\ \n");
    row("described drives without a bit are not shown", R"({"GetLogicalDrives": 4, "drives": {"D:\\": {"GetDriveType": 3}}})", "C:\\ \n");
}

void fieldRows()
{
    const auto row = [](const char *name, const QByteArray &drive, const QString &text) {
        rows.text(name, {"", R"({"GetLogicalDrives": 8, "drives": {"D:\\": {)" + drive + "}}}"}, "D:\\ " + text + '\n');
    };
    const QByteArray volume(R"("GetVolumeInformation": {"volumeName": "Data", "fileSystemName": "FAT32"})");
    const QByteArray space(R"("GetDiskFreeSpaceEx": {"freeBytesAvailableToCaller": 1048576, "totalNumberOfBytes": 2097152})");
    row("type 0 has no name", R"("GetDriveType": 0, )" + volume, "FAT32  Data  ");
    row("type 1", R"("GetDriveType": 1)", "no root dir mounted  ");
    row("type 2: a card reader without a card", R"("GetDriveType": 2)", "removable media      ");
    row("type 3", R"("GetDriveType": 3)", "fixed drive          ");
    row("type 4", R"("GetDriveType": 4)", "remote/network drive ");
    row("type 5", R"("GetDriveType": 5)", "CD/DVD drive         ");
    row("type 6", R"("GetDriveType": 6)", "RAM disk drive       ");
    row("type 7 has no name", R"("GetDriveType": 7, )" + volume, "FAT32  Data  ");
    row("the largest type has no name", R"("GetDriveType": 4294967295)", "");
    row("only the volume: the file system precedes the label", volume, "FAT32  Data  ");
    row("only the free space", space, "Free: 1.0 MByte Total: 2.0 MByte ");
    row("type and free space", R"("GetDriveType": 3, )" + space, "fixed drive          Free: 1.0 MByte Total: 2.0 MByte ");
    row("a volume without a label: four blanks", R"("GetVolumeInformation": {"fileSystemName": "NTFS"})", "NTFS    ");
    row("a volume without a file system: two blanks before the label", R"("GetVolumeInformation": {"volumeName": "x"})", "  x  ");
    row("a label with placeholders", R"("GetVolumeInformation": {"volumeName": "%1 %2", "fileSystemName": "%99"})",
        "%99  %1 %2  ");
    row("a label outside the code page", R"("GetVolumeInformation": {"volumeName": "\u4e00", "fileSystemName": "NTFS"})",
        QString("NTFS  ") + QChar(0x4e00) + "  ");
    row("a label of 259 characters fits",
        R"("GetVolumeInformation": {"fileSystemName": "NTFS", "volumeName": ")" + QByteArray(259, 'v') + "\"}",
        "NTFS  " + QString(259, 'v') + "  ");
    row("a label of 260 characters does not fit", R"("GetVolumeInformation": {"volumeName": ")" + QByteArray(260, 'v') + "\"}", "");
    row("sizes of 64 bits",
        R"("GetDiskFreeSpaceEx": {"freeBytesAvailableToCaller": "0xffffffffffffffff", "totalNumberOfBytes": "0x10000000000"})",
        "Free: 17179869183.9 GByte Total: 1024.0 GByte ");
    row("sizes of 0", R"("GetDiskFreeSpaceEx": {"freeBytesAvailableToCaller": 0, "totalNumberOfBytes": 0})",
        "Free: 0 Byte Total: 0 Byte ");
}

void callRows()
{
    const Described full {"", fullSystem};
    rows.calls("calls", full, R"(SetErrorMode "1"
GetLogicalDrives
wsprintfW "A:\"
GetDriveTypeW A:\
GetVolumeInformationW A:\ "260" 260
GetDiskFreeSpaceExW A:\
wsprintfW "C:\"
GetDriveTypeW C:\
GetVolumeInformationW C:\ "260" 260
GetDiskFreeSpaceExW C:\
wsprintfW "D:\"
GetDriveTypeW D:\
GetVolumeInformationW D:\ "260" 260
GetDiskFreeSpaceExW D:\
SetErrorMode "0"
)");
    rows.calls("calls without drives", "", "SetErrorMode \"1\"\nGetLogicalDrives\nSetErrorMode \"0\"\n");
    const auto row = [&](const char *name, const char *call, int number, const QString &lines) {
        rows.failure(name, full, call, number, lines);
    };
    row("GetLogicalDrives() fails: only the failure", "GetLogicalDrives", 0, "Failed GetLogicalDrives(), error = 5");
    row("GetDriveType() fails", "GetDriveTypeW", 1,
        QString(driveA) + "C:\\ NTFS  Windows  Free: 1.4 GByte Total: 256.0 GByte \n" + driveD);
    row("GetVolumeInformation() fails", "GetVolumeInformationW", 1,
        QString(driveA) + "C:\\ fixed drive          Free: 1.4 GByte Total: 256.0 GByte \n" + driveD);
    row("GetVolumeInformation() of the last drive fails", "GetVolumeInformationW", 2,
        QString(driveA) + driveC + "D:\\ CD/DVD drive         Free: 0 Byte Total: 1.5 KByte \n");
    row("GetDiskFreeSpaceEx() fails", "GetDiskFreeSpaceExW", 1,
        QString(driveA) + "C:\\ fixed drive          NTFS  Windows  \n" + driveD);
    rows.anyFailure("each call fails in turn", full);
}

void errorModeIsZeroAfterwards()
{
    SetErrorMode(SEM_NOGPFAULTERRORBOX);
    diskInformation();
    QCOMPARE(SetErrorMode(0), 0u); // returns the previous mode
}

void drivesOfThisSystem()
{
    QStringList roots;
    for (const QString &line : diskInformation().mid(QLatin1String(heading).size()).split('\n', Qt::SkipEmptyParts))
        roots += line.left(4);
    QStringList expected;
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        if (GetLogicalDrives() >> (letter - 'A') & 1)
            expected += QString(QChar(letter)) + ":\\ ";
    }
    QCOMPARE(roots, expected);
    QVERIFY(roots.contains("C:\\ "));
    QVERIFY(diskInformation().contains("\nC:\\ fixed drive          "));
}

void addRows()
{
    addTestRow("the error mode is 0 afterwards", errorModeIsZeroAfterwards);
    if (!windowsIsSimulated)
        return addTestRow("drives of this system", drivesOfThisSystem);
    driveRows();
    fieldRows();
    callRows();
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
