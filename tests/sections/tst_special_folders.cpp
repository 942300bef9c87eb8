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
    rows.text("no folder: only the names", "", lines({"", "", "", "", ""}));
    row("Quirk: only the first folder: all lines repeat it", R"("5": "a")", {"a", "a", "a", "a", "a"});
    row("Quirk: only the third folder: the two lines after it repeat it", R"("38": "c")", {"", "", "c", "c", "c"});
    row("only the last folder", R"("26": "e")", {"", "", "", "", "e"});
    row("Quirk: every second folder: a missing one repeats the previous one", R"("5": "a", "38": "c", "26": "e")", {"a", "a", "c", "c", "e"});
    row("Quirk: a folder that fails with an error repeats the previous one", R"("5": "a", "2": {"error": 2}, "38": "c")",
        {"a", "a", "c", "c", "c"});
    row("a shorter folder does not show the end of the previous one", R"("5": "long", "2": "b", "38": "", "28": "d")",
        {"long", "b", "", "d", "d"});
    row("placeholders are not replaced", R"("5": "%1 %2 %99 %L1")",
        {"%1 %2 %99 %L1", "%1 %2 %99 %L1", "%1 %2 %99 %L1", "%1 %2 %99 %L1", "%1 %2 %99 %L1"});
    row("characters outside the code page", R"("5": "a", "26": "\u4e00")", {"a", "a", "a", "a", QString(QChar(0x4e00))});
    row("259 characters", "\"5\": \"" + QByteArray(259, 'f') + "\", \"2\": \"b\"",
        {QString(259, 'f'), "b", "b", "b", "b"});
}

void callRows()
{
    const Described full {"", fullSystem};
    // No owner window, and FALSE for fCreate.
    rows.calls("calls", full,
               "SHGetSpecialFolderPathW \"5\"\n"
               "SHGetSpecialFolderPathW \"2\"\n"
               "SHGetSpecialFolderPathW \"38\"\n"
               "SHGetSpecialFolderPathW \"28\"\n"
               "SHGetSpecialFolderPathW \"26\"\n");
    const auto row = [&](const char *name, int number, const QStringList &folders) {
        rows.failure(name, full, "SHGetSpecialFolderPathW", number, lines(folders));
    };
    row("the first call fails: only its name", 0, {"", programs, programFiles, localData, roamingData});
    row("the second call fails: the first folder again", 1, {personal, personal, programFiles, localData, roamingData});
    row("the third call fails: the second folder again", 2, {personal, programs, programs, localData, roamingData});
    row("the fourth call fails: the third folder again", 3, {personal, programs, programFiles, programFiles, roamingData});
    row("the fifth call fails: the fourth folder again", 4, {personal, programs, programFiles, localData, localData});
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
