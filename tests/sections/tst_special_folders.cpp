// specialFolders(): texts and calls.

#include "described_windows.h"
#include "section_calls.h"
#include "test_main.h"
#include "texts.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo::WinSysInfo;

class SpecialFoldersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
#ifdef SIMULATED_WINDOWS
    void text_data();
    void text();
    void calls();
    void failingCalls_data();
    void failingCalls();
#else
    void foldersOfThisSystem();
#endif
};

namespace {

const char title[] = "Special Folders: \n";

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

} // namespace

#ifdef SIMULATED_WINDOWS

namespace {

const char fullSystem[] = R"({"SHGetSpecialFolderPath": {
    "2": "C:\\Users\\anna\\Programs", "5": "C:\\Users\\anna\\Documents", "26": "C:\\Users\\anna\\Roaming",
    "28": "C:\\Users\\anna\\Local", "38": "C:\\Program Files", "40": "C:\\Users\\anna"}})";

const QString personal("C:\\Users\\anna\\Documents");
const QString programs("C:\\Users\\anna\\Programs");
const QString programFiles("C:\\Program Files");
const QString localData("C:\\Users\\anna\\Local");
const QString roamingData("C:\\Users\\anna\\Roaming");

} // namespace

void SpecialFoldersTest::text_data()
{
    QTest::addColumn<QByteArray>("system");
    QTest::addColumn<QStringList>("folders");
    const auto row = [](const char *what, const QByteArray &folders, const QStringList &expected) {
        QTest::newRow(what) << "{\"SHGetSpecialFolderPath\": {" + folders + "}}" << expected;
    };
    QTest::newRow("all, in the order of the table")
        << QByteArray(fullSystem) << QStringList {personal, programs, programFiles, localData, roamingData};
    QTest::newRow("none: nothing behind the names") << QByteArray("{}") << QStringList {"", "", "", "", ""};
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

void SpecialFoldersTest::text()
{
    QFETCH(QByteArray, system);
    QFETCH(QStringList, folders);
    const DescribedWindows windows("", system);
    COMPARE_TEXT(specialFolders(), title + lines(folders));
}

// In this order, without an owner window; 0: a folder that is missing is never created.
void SpecialFoldersTest::calls()
{
    const DescribedWindows windows("", fullSystem);
    specialFolders();
    QStringList folders;
    for (const simulated::Call &call : simulated::journal()) {
        if (call.name == "SHGetSpecialFolderPathW")
            folders += QStringLiteral("%1 %2").arg(call.value).arg(call.access) + call.given.join(' ');
    }
    QCOMPARE(folders, QStringList({"5 0", "2 0", "38 0", "28 0", "26 0"}));
}

void SpecialFoldersTest::failingCalls_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QStringList>("folders");
    QTest::newRow("the first: nothing behind its name")
        << 0 << QStringList {"", programs, programFiles, localData, roamingData};
    QTest::newRow("the second repeats the first")
        << 1 << QStringList {personal, personal, programFiles, localData, roamingData};
    QTest::newRow("the third repeats the second")
        << 2 << QStringList {personal, programs, programs, localData, roamingData};
    QTest::newRow("the fourth repeats the third")
        << 3 << QStringList {personal, programs, programFiles, programFiles, roamingData};
    QTest::newRow("the fifth repeats the fourth")
        << 4 << QStringList {personal, programs, programFiles, localData, localData};
}

void SpecialFoldersTest::failingCalls()
{
    QFETCH(int, number);
    QFETCH(QStringList, folders);
    const machine::Machine machine = DescribedWindows::parse("", fullSystem);
    COMPARE_TEXT(textWithFailingCall(machine, "SHGetSpecialFolderPathW", number, specialFolders), title + lines(folders));
}

#else

void SpecialFoldersTest::foldersOfThisSystem()
{
    const QStringList labelled = specialFolders().split('\n');
    QCOMPARE(labelled.size(), 7);
    QStringList folders;
    for (const QString &line : labelled.mid(1, 5))
        folders += line.section("    ", 1);
    // What the environment tells of the same folders.
    QCOMPARE(folders.at(2), qEnvironmentVariable("ProgramFiles"));
    QCOMPARE(folders.at(3), qEnvironmentVariable("LOCALAPPDATA"));
    QCOMPARE(folders.at(4), qEnvironmentVariable("APPDATA"));
    QVERIFY(!folders.at(0).isEmpty());
    QVERIFY(!folders.at(1).isEmpty());
    COMPARE_TEXT(specialFolders(), title + lines(folders));
}

#endif

TEST_WITH_CORE_APPLICATION(SpecialFoldersTest);
#include "tst_special_folders.moc"
