// winSxSDirectoryEntries()

#include "section_rows.h"
#include "wide_text.h"
#include "win/windows_sections.h"

#ifdef SIMULATED_WINDOWS
#  include "windows_files.h"
#  include <QtCore/QLocale>
#else
#  include "throw_away_windows.h"
#  include <QtCore/QDir>
#endif

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const char heading[] = "WinSxS directory entries\n";
const SectionRows rows(winSxSDirectoryEntries, heading);

#ifdef SIMULATED_WINDOWS

Described machineOf(const QStringList &names)
{
    machine::Machine machine;
    machine.system.GetSystemWindowsDirectory.value = "C:\\Windows";
    machine.system.folders["C:\\Windows\\WinSxS"].directories = names;
    return machine;
}

void nameRows()
{
    const auto row = [](const char *name, const QStringList &names, const QStringList &shown) {
        rows.text(name, machineOf(names), shown.join('\n') + (shown.isEmpty() ? "" : "\n"));
    };
    const QString assembly = "x86_microsoft.vc90.crt_1fc8b3b9a1e18e3b_9.0.21022.8";
    row("an empty folder: only the heading", {}, {});
    row("no matching assembly: only the heading", {"x86_microsoft.windows.gdiplus", "Manifests"}, {});
    row("names without the folder", {assembly}, {assembly});
    row("a name that is only the text of the filter", {"Microsoft.VCCRT"}, {"Microsoft.VCCRT"});
    row("the filter is case-insensitive",
        {"A_MICROSOFT.VC80.CRT_1", "a_microsoft.vc80.crt_2", "a_Microsoft.VC80.CRT_3"},
        {"A_MICROSOFT.VC80.CRT_1", "a_Microsoft.VC80.CRT_3", "a_microsoft.vc80.crt_2"});
    row("the parts of the filter in another order do not match",
        {"crt_microsoft.vc80", "microsoft.vc80.mfc", "microsoft_vc80.crt", "vc80.crt", "microsoft.v80.crt"}, {});
    row("sorted by name, capitals first",
        {"b_microsoft.vc90.crt", "a_microsoft.vc90.crt", "C_microsoft.vc90.crt", "a_microsoft.vc100.crt"},
        {"C_microsoft.vc90.crt", "a_microsoft.vc100.crt", "a_microsoft.vc90.crt", "b_microsoft.vc90.crt"});
    row("other folders are omitted", {"a_microsoft.vc90.crt", "b_microsoft.vc90.mfc", "c_microsoft.vc90.crt"},
        {"a_microsoft.vc90.crt", "c_microsoft.vc90.crt"});
    row("placeholders are not replaced", {"%1_microsoft.vc90.crt_%2"}, {"%1_microsoft.vc90.crt_%2"});
    row("a name that starts with a dot", {".microsoft.vc90.crt"}, {".microsoft.vc90.crt"});
    Described withFiles = machineOf({"b_microsoft.vc90.crt", "d_microsoft.vc90.crt"});
    withFiles.machine.system.folders["C:\\Windows\\WinSxS"].files
        = QStringList {"a_microsoft.vc90.crt", "Microsoft.VCCRT", "c_microsoft.vc90.crt.manifest"};
    rows.text("files are not listed", withFiles, "b_microsoft.vc90.crt\nd_microsoft.vc90.crt\n");
}

void orderRows()
{
    // The starts of the names, in the expected order.
    const auto row = [](const QString &name, const QStringList &starts) {
        QStringList names;
        QStringList reversed;
        for (const QString &start : starts) {
            names += start + "_microsoft.vc90.crt";
            reversed.prepend(names.last());
        }
        rows.text(name, machineOf(names), names.join('\n') + '\n');
        rows.text(name + ", described in reverse", machineOf(reversed), names.join('\n') + '\n');
    };
    const auto text = [](const char16_t *units) { return QString::fromUtf16(units); };
    row("capitals before small letters", {"A", "B", "Z", "a", "b", "z"});
    row("letters with diacritics after all others", {"Z", "a", "z", text(u"\u00c9"), text(u"\u00e4")});
    row("code units, not characters", {"a", text(u"\U0001f600"), text(u"\uff21")});
    row("digits are compared as characters, not as numbers", {"10", "1", "20", "2", "3"}); // "_" follows the names' starts
    row("punctuation is not ignored and sorts by code unit", {" ", "-", ".", "0", "A", "_", "a", "~"});
    row("capital and small forms of a letter are different letters", {"Aa", "Ab", "aA", "aB", "aa", "ab"});
}

void directoryRows()
{
    const QByteArray listing(R"("WinSxS": ["microsoft.vc90.crt"])");
    const auto row = [](const char *name, const QByteArray &system, const QString &lines) {
        rows.text(name, {"", '{' + system + '}'}, lines);
    };
    row("an empty machine: only the heading", "", "");
    row("no Windows directory: only the heading", listing, "");
    row("an empty Windows directory: only the heading", R"("GetSystemWindowsDirectory": "", )" + listing, "");
    row("no WinSxS folder: its path with forward slashes, without a line end", R"("GetSystemWindowsDirectory": "C:\\Windows")",
        "Directory 'C:/Windows/WinSxS' does not exist.");
    row("a Windows directory below another folder", R"("GetSystemWindowsDirectory": "D:\\Systems\\Win 7")",
        "Directory 'D:/Systems/Win 7/WinSxS' does not exist.");
    row("a Windows directory on a share: its path with two slashes",
        R"("GetSystemWindowsDirectory": "\\\\srv\\share\\Windows")", "Directory '//srv/share/Windows/WinSxS' does not exist.");
    row("an existing folder on a share", R"("GetSystemWindowsDirectory": "\\\\srv\\share\\Windows", )" + listing,
        "microsoft.vc90.crt\n");
    row("a Windows directory with a placeholder", R"("GetSystemWindowsDirectory": "C:\\%1")",
        "Directory 'C:/%1/WinSxS' does not exist.");
    row("an existing folder on another drive", R"("GetSystemWindowsDirectory": "D:\\Win", )" + listing,
        "microsoft.vc90.crt\n");
    row("a Windows directory that is too long: both lines",
        R"("GetSystemWindowsDirectory": ")" + QByteArray(1024, 'w') + R"(", )" + listing,
        "buffer for sysDir too small, need 1025\nDirectory '/WinSxS' does not exist.");
    row("a Windows directory of 1023 units fits",
        R"("GetSystemWindowsDirectory": "C:\\)" + QByteArray(1020, 'w') + R"(", )" + listing, "microsoft.vc90.crt\n");
}

void addRows()
{
    // The German collation differs from the order of code units.
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    nameRows();
    orderRows();
    directoryRows();
    const Described one = machineOf({"microsoft.vc90.crt"});
    rows.calls("calls", one, "GetSystemWindowsDirectoryW 1024\n");
    rows.failure("GetSystemWindowsDirectory() fails", one, "GetSystemWindowsDirectoryW", 0, "");
}

#else

/// The folders of run-time libraries, found with the calls of Windows.
QStringList runTimeFolders()
{
    const QString pattern = qEnvironmentVariable("SystemRoot") + "\\WinSxS\\*";
    QStringList names;
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW(wide(pattern), &found);
    if (search == INVALID_HANDLE_VALUE)
        return names;
    do {
        const QString name = QString::fromWCharArray(found.cFileName);
        const QString lower = name.toLower();
        const int start = lower.indexOf("microsoft.vc");
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) && start >= 0 && lower.indexOf("crt", start + 12) >= 0)
            names += name;
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return names;
}

void sameAsWindows()
{
    QStringList lines = winSxSDirectoryEntries().split('\n');
    QCOMPARE(lines.takeFirst() + '\n', QString(heading));
    QCOMPARE(lines.takeLast(), QString());
    QStringList folders = runTimeFolders();
    lines.sort();
    folders.sort();
    QCOMPARE(lines, folders);
}

void addedFolders()
{
    if (!isThrowAwayWindows())
        QSKIP("the row adds folders to the Windows directory, which is permitted only in a Wine prefix of this project");
    const QDir folder(qEnvironmentVariable("SystemRoot") + "\\WinSxS");
    const QStringList added {"a test Microsoft.VC00.CRT of ours", "a test Microsoft.VC00.MFC of ours"};
    for (const QString &name : added)
        QVERIFY(folder.mkpath(folder.filePath(name)));
    const QStringList lines = winSxSDirectoryEntries().split('\n');
    const QStringList folders = runTimeFolders();
    for (const QString &name : added)
        folder.rmdir(name);
    QVERIFY(lines.contains(added.at(0)));
    QVERIFY(!lines.contains(added.at(1)));
    QVERIFY(!lines.contains("..") && !lines.contains("."));
    QVERIFY(folders.contains(added.at(0)) && !folders.contains(added.at(1)));
}
void addRows()
{
    addTestRow("same as Windows", sameAsWindows);
    addTestRow("added folders", addedFolders);
}

#endif

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
