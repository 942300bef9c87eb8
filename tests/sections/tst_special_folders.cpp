// specialFolders()

#include "section_rows.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

namespace {

const SectionRows rows(specialFolders, "Special Folders: \n");

/// The five lines with their folders.
QString lines(const QStringList &folders)
{
    const char *const labels[] = {"CSIDL_PERSONAL    ", "CSIDL_PROGRAMS    ", "CSIDL_PROGRAM_FILES    ",
                                  "CSIDL_LOCAL_APPDATA    ", "CSIDL_APPDATA    "};
    QString text;
    for (int i = 0; i < 5; ++i)
        text += labels[i] + folders.at(i) + '\n';
    return text;
}

const char fullSystem[] = R"({"SHGetSpecialFolderPath": {
    "2": "C:\\Users\\anna\\Programs", "5": "C:\\Users\\anna\\Documents", "26": "C:\\Users\\anna\\Roaming",
    "28": "C:\\Users\\anna\\Local", "38": "C:\\Program Files", "40": "C:\\Users\\anna"}})";

const QString personal("C:\\Users\\anna\\Documents");
const QString programs("C:\\Users\\anna\\Programs");
const QString programFiles("C:\\Program Files");
const QString localData("C:\\Users\\anna\\Local");
const QString roamingData("C:\\Users\\anna\\Roaming");

void textRows()
{
    const auto row = [](const char *name, const QByteArray &folders, const QStringList &expected) {
        rows.text(name, {"", "{\"SHGetSpecialFolderPath\": {" + folders + "}}"}, lines(expected));
    };
    rows.text("all, in the order of the table", {"", fullSystem},
              lines({personal, programs, programFiles, localData, roamingData}));
    rows.text("none: nothing behind the names", "", lines({"", "", "", "", ""}));
    row("the first alone: all repeat it", R"("5": "a")", {"a", "a", "a", "a", "a"});
    row("the third alone: the two behind it repeat it", R"("38": "c")", {"", "", "c", "c", "c"});
    row("the last alone", R"("26": "e")", {"", "", "", "", "e"});
    row("each second: a missing one repeats the one before", R"("5": "a", "38": "c", "26": "e")", {"a", "a", "c", "c", "e"});
    row("a folder that fails with an error repeats the one before", R"("5": "a", "2": {"error": 2}, "38": "c")",
        {"a", "a", "c", "c", "c"});
    row("a shorter one shows nothing of the one before", R"("5": "long", "2": "b", "38": "", "28": "d")",
        {"long", "b", "", "d", "d"});
    row("placeholders stay", R"("5": "%1 %2 %99 %L1")",
        {"%1 %2 %99 %L1", "%1 %2 %99 %L1", "%1 %2 %99 %L1", "%1 %2 %99 %L1", "%1 %2 %99 %L1"});
    row("characters beyond the code page", R"("5": "a", "26": "\u4e00")", {"a", "a", "a", "a", QString(QChar(0x4e00))});
    row("259 characters", "\"5\": \"" + QByteArray(259, 'f') + "\", \"2\": \"b\"",
        {QString(259, 'f'), "b", "b", "b", "b"});
}

void callRows()
{
    const Described full {"", fullSystem};
    // No owner window, and no flag: the call never creates a missing folder.
    rows.calls("calls", full,
               "SHGetSpecialFolderPathW \"5\"\n"
               "SHGetSpecialFolderPathW \"2\"\n"
               "SHGetSpecialFolderPathW \"38\"\n"
               "SHGetSpecialFolderPathW \"28\"\n"
               "SHGetSpecialFolderPathW \"26\"\n");
    const auto row = [&](const char *name, int number, const QStringList &folders) {
        rows.failure(name, full, "SHGetSpecialFolderPathW", number, lines(folders));
    };
    row("the first: nothing behind its name", 0, {"", programs, programFiles, localData, roamingData});
    row("the second repeats the first", 1, {personal, personal, programFiles, localData, roamingData});
    row("the third repeats the second", 2, {personal, programs, programs, localData, roamingData});
    row("the fourth repeats the third", 3, {personal, programs, programFiles, programFiles, roamingData});
    row("the fifth repeats the fourth", 4, {personal, programs, programFiles, localData, localData});
}

void foldersOfThisSystem()
{
    const QStringList labelled = specialFolders().split('\n');
    QCOMPARE(labelled.size(), 7);
    QStringList folders;
    for (const QString &line : labelled.mid(1, 5))
        folders += line.section("    ", 1);
    QCOMPARE(folders.at(2), qEnvironmentVariable("ProgramFiles"));
    QCOMPARE(folders.at(3), qEnvironmentVariable("LOCALAPPDATA"));
    QCOMPARE(folders.at(4), qEnvironmentVariable("APPDATA"));
    QVERIFY(!folders.at(0).isEmpty());
    QVERIFY(!folders.at(1).isEmpty());
    COMPARE_TEXT(specialFolders(), "Special Folders: \n" + lines(folders));
}

void addRows()
{
    if (!windowsIsSimulated)
        return addTestRow("folders of this system", foldersOfThisSystem);
    textRows();
    callRows();
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addRows));
