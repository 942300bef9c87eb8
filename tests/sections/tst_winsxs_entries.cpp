// winSxSDirectoryEntries(): texts and calls.

#include "described_windows.h"
#include "section_calls.h"
#include "test_main.h"
#include "texts.h"
#include "win/windows_sections.h"

#ifdef SIMULATED_WINDOWS
#  include "windows_files.h"
#  include <QtCore/QLocale>
#endif
#include <QtCore/QDir>

#ifndef SIMULATED_WINDOWS
#  include "throw_away_windows.h"
#endif

using namespace velkor::SystemInfo::WinSysInfo;

class WinSxSEntriesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
#ifdef SIMULATED_WINDOWS
    void initTestCase();
    void names_data();
    void names();
    void filesAreNotListed();
    void orderOfNames_data();
    void orderOfNames();
    void directories_data();
    void directories();
    void calls();
    void failingCall();
#else
    void sameAsWindows();
    void addedFolders();
#endif
};

namespace {

const char title[] = "WinSxS directory entries\n";

} // namespace

#ifdef SIMULATED_WINDOWS

namespace {

machine::Machine machineOf(const QString &windowsDirectory, const QStringList &names)
{
    machine::Machine machine;
    machine.system.GetSystemWindowsDirectory.value = windowsDirectory;
    machine.system.folders[windowsDirectory + "\\WinSxS"].directories = names;
    return machine;
}

const char assembly[] = "x86_microsoft.vc90.crt_1fc8b3b9a1e18e3b_9.0.21022.8";

} // namespace

// In German an order by locale differs from that by code units.
void WinSxSEntriesTest::initTestCase()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
}

void WinSxSEntriesTest::names_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("shown");
    QTest::newRow("an empty folder: the heading alone") << QStringList() << QStringList();
    QTest::newRow("no matching assembly: the heading alone")
        << QStringList {"x86_microsoft.windows.gdiplus", "Manifests"} << QStringList();
    QTest::newRow("the bare names") << QStringList {assembly} << QStringList {assembly};
    QTest::newRow("nothing before and behind: the filter's own text") << QStringList {"Microsoft.VCCRT"}
                                                                      << QStringList {"Microsoft.VCCRT"};
    QTest::newRow("the filter is without regard to case")
        << QStringList {"A_MICROSOFT.VC80.CRT_1", "a_microsoft.vc80.crt_2", "a_Microsoft.VC80.CRT_3"}
        << QStringList {"A_MICROSOFT.VC80.CRT_1", "a_Microsoft.VC80.CRT_3", "a_microsoft.vc80.crt_2"};
    QTest::newRow("the parts in their order only")
        << QStringList {"crt_microsoft.vc80", "microsoft.vc80.mfc", "microsoft_vc80.crt", "vc80.crt", "microsoft.v80.crt"}
        << QStringList();
    QTest::newRow("sorted by name, capitals first")
        << QStringList {"b_microsoft.vc90.crt", "a_microsoft.vc90.crt", "C_microsoft.vc90.crt", "a_microsoft.vc100.crt"}
        << QStringList {"C_microsoft.vc90.crt", "a_microsoft.vc100.crt", "a_microsoft.vc90.crt", "b_microsoft.vc90.crt"};
    QTest::newRow("others between are left out")
        << QStringList {"a_microsoft.vc90.crt", "b_microsoft.vc90.mfc", "c_microsoft.vc90.crt"}
        << QStringList {"a_microsoft.vc90.crt", "c_microsoft.vc90.crt"};
    QTest::newRow("placeholders stay") << QStringList {"%1_microsoft.vc90.crt_%2"}
                                       << QStringList {"%1_microsoft.vc90.crt_%2"};
    QTest::newRow("a name that starts with a dot") << QStringList {".microsoft.vc90.crt"}
                                                   << QStringList {".microsoft.vc90.crt"};
}

void WinSxSEntriesTest::names()
{
    QFETCH(QStringList, names);
    QFETCH(QStringList, shown);
    const DescribedWindows windows(machineOf("C:\\Windows", names));
    COMPARE_TEXT(winSxSDirectoryEntries(), title + shown.join('\n') + (shown.isEmpty() ? "" : "\n"));
}

void WinSxSEntriesTest::filesAreNotListed()
{
    machine::Machine machine = machineOf("C:\\Windows", {"b_microsoft.vc90.crt", "d_microsoft.vc90.crt"});
    machine.system.folders["C:\\Windows\\WinSxS"].files
        = QStringList {"a_microsoft.vc90.crt", "Microsoft.VCCRT", "c_microsoft.vc90.crt.manifest"};
    const DescribedWindows windows(machine);
    COMPARE_TEXT(winSxSDirectoryEntries(), title + QString("b_microsoft.vc90.crt\nd_microsoft.vc90.crt\n"));
}

void WinSxSEntriesTest::orderOfNames_data()
{
    QTest::addColumn<QStringList>("starts"); // of the names, in the order that is expected
    const auto text = [](const char16_t *units) { return QString::fromUtf16(units); };
    QTest::newRow("capitals before small letters") << QStringList {"A", "B", "Z", "a", "b", "z"};
    QTest::newRow("letters with marks behind all without") << QStringList {"Z", "a", "z", text(u"\u00c9"), text(u"\u00e4")};
    QTest::newRow("code units, not characters") << QStringList {"a", text(u"\U0001f600"), text(u"\uff21")};
    QTest::newRow("digits, not numbers") << QStringList {"10", "1", "20", "2", "3"}; // "_" follows the names' starts
    QTest::newRow("signs count, between digits, capitals and small letters")
        << QStringList {" ", "-", ".", "0", "A", "_", "a", "~"};
    QTest::newRow("a letter in both sizes, and what follows it") << QStringList {"Aa", "Ab", "aA", "aB", "aa", "ab"};
}

void WinSxSEntriesTest::orderOfNames()
{
    QFETCH(QStringList, starts);
    QStringList names;
    for (const QString &start : starts)
        names += start + "_microsoft.vc90.crt";
    QStringList reversed;
    for (const QString &name : names)
        reversed.prepend(name);
    for (const QStringList &listed : {names, reversed}) {
        const DescribedWindows windows(machineOf("C:\\Windows", listed));
        COMPARE_TEXT(winSxSDirectoryEntries(), title + names.join('\n') + '\n');
    }
}

void WinSxSEntriesTest::directories_data()
{
    QTest::addColumn<QByteArray>("system");
    QTest::addColumn<QString>("lines");
    const QByteArray listing(R"("WinSxS": ["microsoft.vc90.crt"])");
    QTest::newRow("nothing known: the heading alone") << QByteArray("{}") << QString();
    QTest::newRow("no Windows directory: the heading alone") << "{" + listing + "}" << QString();
    QTest::newRow("an empty Windows directory: the heading alone")
        << R"({"GetSystemWindowsDirectory": "", )" + listing + "}" << QString();
    QTest::newRow("no WinSxS folder: its path with forward slashes, without a line end")
        << QByteArray(R"({"GetSystemWindowsDirectory": "C:\\Windows"})")
        << "Directory 'C:/Windows/WinSxS' does not exist.";
    QTest::newRow("a Windows directory further down")
        << QByteArray(R"({"GetSystemWindowsDirectory": "D:\\Systems\\Win 7"})")
        << "Directory 'D:/Systems/Win 7/WinSxS' does not exist.";
    QTest::newRow("a Windows directory on a share: its path with two slashes")
        << QByteArray(R"({"GetSystemWindowsDirectory": "\\\\srv\\share\\Windows"})")
        << "Directory '//srv/share/Windows/WinSxS' does not exist.";
    QTest::newRow("a folder that is there, on a share")
        << R"({"GetSystemWindowsDirectory": "\\\\srv\\share\\Windows", )" + listing + "}"
        << "microsoft.vc90.crt\n";
    QTest::newRow("a Windows directory with a placeholder")
        << QByteArray(R"({"GetSystemWindowsDirectory": "C:\\%1"})") << "Directory 'C:/%1/WinSxS' does not exist.";
    QTest::newRow("a folder that is there, on another drive")
        << R"({"GetSystemWindowsDirectory": "D:\\Win", )" + listing + "}"
        << "microsoft.vc90.crt\n";
    QTest::newRow("a Windows directory that is too long: both lines")
        << R"({"GetSystemWindowsDirectory": ")" + QByteArray(1024, 'w') + R"(", )" + listing + "}"
        << "buffer for sysDir too small, need 1025\nDirectory '/WinSxS' does not exist.";
    QTest::newRow("a Windows directory of 1023 units fits")
        << R"({"GetSystemWindowsDirectory": "C:\\)" + QByteArray(1020, 'w') + R"(", )" + listing + "}"
        << "microsoft.vc90.crt\n";
}

void WinSxSEntriesTest::directories()
{
    QFETCH(QByteArray, system);
    QFETCH(QString, lines);
    const DescribedWindows windows("", system);
    COMPARE_TEXT(winSxSDirectoryEntries(), title + lines);
}

void WinSxSEntriesTest::calls()
{
    const DescribedWindows windows(machineOf("C:\\Windows", {assembly}));
    winSxSDirectoryEntries();
    COMPARE_TEXT(journalText(), QStringLiteral("GetSystemWindowsDirectoryW 1024\n"));
}

void WinSxSEntriesTest::failingCall()
{
    COMPARE_TEXT(textWithFailingCall(machineOf("C:\\Windows", {assembly}), "GetSystemWindowsDirectoryW", 0,
                                     winSxSDirectoryEntries),
                 QString(title));
}

#else

namespace {

/// The folders of run-time libraries as Windows finds them.
QStringList runTimeFolders()
{
    const QString pattern = qEnvironmentVariable("SystemRoot") + "\\WinSxS\\*";
    QStringList names;
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW(reinterpret_cast<const wchar_t *>(pattern.utf16()), &found);
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

} // namespace

void WinSxSEntriesTest::sameAsWindows()
{
    QStringList lines = winSxSDirectoryEntries().split('\n');
    QCOMPARE(lines.takeFirst() + '\n', QString(title));
    QCOMPARE(lines.takeLast(), QString());
    QStringList folders = runTimeFolders();
    lines.sort();
    folders.sort();
    QCOMPARE(lines, folders);
}

void WinSxSEntriesTest::addedFolders()
{
    if (!isThrowAwayWindows())
        QSKIP("adds folders to Windows' own, which is for a Wine prefix of this project's own only");
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

#endif

TEST_WITH_CORE_APPLICATION(WinSxSEntriesTest);
#include "tst_winsxs_entries.moc"
