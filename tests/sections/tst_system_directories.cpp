// windowsSystemDirectories()

#include "section_rows.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const char heading[] = "Windows system directories\n";
const SectionRows rows(windowsSystemDirectories, heading);

/// A null QString: the call fails.
machine::Machine machineOf(const QString &windowsDirectory, const QString &wow64Directory)
{
    machine::Machine machine;
    if (!windowsDirectory.isNull())
        machine.system.GetSystemWindowsDirectory.value = windowsDirectory;
    if (!wow64Directory.isNull())
        machine.system.GetSystemWow64Directory.value = wow64Directory;
    return machine;
}

const QString windowsDirectory("C:\\Windows");
const QString wow64Directory("C:\\Windows\\SysWOW64");
const QString windowsLine("System directory:      C:\\Windows\n");
const QString wow64Line("System Wow64 directory:  C:\\Windows\\SysWOW64\n");

void textRows()
{
    const auto row = [](const char *name, const QString &windows, const QString &wow64, const QString &lines) {
        rows.text(name, machineOf(windows, wow64), lines);
    };
    const QString longest(1023, 'w');
    const QString tooLong(1024, 'w');
    row("both", windowsDirectory, wow64Directory, windowsLine + wow64Line);
    row("a 32-bit Windows: the Wow64 line is missing", windowsDirectory, QString(), windowsLine);
    row("no Windows directory: its line is missing", QString(), wow64Directory, wow64Line);
    row("neither directory: only the heading", QString(), QString(), "");
    row("empty paths have no lines", "", "", "");
    row("1023 units fit", longest, longest,
        "System directory:      " + longest + "\nSystem Wow64 directory:  " + longest + '\n');
    row("a Windows directory that is too long: the extra line, then the empty buffer", tooLong, wow64Directory,
        "buffer for sysDir too small, need 1025\nSystem directory:      \n" + wow64Line);
    row("a Wow64 directory that is too long: the extra line, then the previous content of the buffer", windowsDirectory, tooLong,
        windowsLine + "buffer for wow64Dir too small, need 1025\nSystem Wow64 directory:  C:\\Windows\n");
    row("both too long", tooLong, QString(40000, 'x'),
        "buffer for sysDir too small, need 1025\nSystem directory:      \n"
        "buffer for wow64Dir too small, need 40001\nSystem Wow64 directory:  \n");
    row("no Windows directory and a Wow64 directory that is too long", QString(), tooLong,
        "buffer for wow64Dir too small, need 1025\nSystem Wow64 directory:  \n");
    row("the longest Windows directory and a Wow64 directory that is too long", longest, tooLong,
        "System directory:      " + longest + "\nbuffer for wow64Dir too small, need 1025\nSystem Wow64 directory:  "
            + longest + '\n');
    row("a shorter Wow64 directory does not show the end of the Windows directory", wow64Directory, windowsDirectory,
        "System directory:      C:\\Windows\\SysWOW64\nSystem Wow64 directory:  C:\\Windows\n");
    row("placeholders are not replaced", "%1 %2", "%99 %L1", "System directory:      %1 %2\nSystem Wow64 directory:  %99 %L1\n");
    row("characters outside the code page", QString(QChar(0x4e00)), QChar(0xfeff) + QString("x"),
        QString("System directory:      ") + QChar(0x4e00) + "\nSystem Wow64 directory:  " + QChar(0xfeff) + "x\n");
}

void callRows()
{
    const Described both = machineOf(windowsDirectory, wow64Directory);
    rows.calls("calls", both, "GetSystemWindowsDirectoryW 1024\nGetSystemWow64DirectoryW 1024\n");
    rows.failure("GetSystemWindowsDirectory() fails", both, "GetSystemWindowsDirectoryW", 0, wow64Line);
    rows.failure("GetSystemWow64Directory() fails", both, "GetSystemWow64DirectoryW", 0, windowsLine);
}

void directoriesOfThisSystem()
{
    const QString systemRoot = qEnvironmentVariable("SystemRoot");
    QVERIFY(!systemRoot.isEmpty());
    const QString expected = heading + QStringLiteral("System directory:      ") + systemRoot
        + "\nSystem Wow64 directory:  " + systemRoot + "\\syswow64\n";
    COMPARE_TEXT(windowsSystemDirectories().toLower(), expected.toLower());
}
void addRows()
{
    if (!windowsIsSimulated)
        return addTestRow("directories of this system", directoriesOfThisSystem);
    textRows();
    callRows();
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
