// System directories, the environment and special folders: how long, how much room.

#include "answering_windows.h"
#include "test_main.h"

#include <QtCore/QDir>
#include <shlobj.h>

class ContractDirectoriesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void directory_data();
    void directory();
    void directoryTooLong_data();
    void directoryTooLong();
    void expansion_data();
    void expansion();
    void expansionTooLong();
    void specialFolder_data();
    void specialFolder();
    void unknownFolderLeavesTheBuffer();
    void characterIntoText();
    void pathInQtsForm_data();
    void pathInQtsForm();
};

namespace {

using Directory = UINT(WINAPI *)(LPWSTR, UINT);

TextAnswer directoryInto(Directory call, DWORD room)
{
    return textAnswer(room, [&](WCHAR *buffer, DWORD *size) { return call(buffer, *size); });
}

TextAnswer expandedInto(const QString &source, DWORD room)
{
    return textAnswer(
        room, [&](WCHAR *buffer, DWORD *size) { return ExpandEnvironmentStringsW(wide(source), buffer, *size); });
}

} // namespace

Q_DECLARE_METATYPE(Directory)

void ContractDirectoriesTest::directory_data()
{
    QTest::addColumn<Directory>("call");
    QTest::newRow("Windows") << Directory(GetSystemWindowsDirectoryW);
    QTest::newRow("Wow64") << Directory(GetSystemWow64DirectoryW);
}

void ContractDirectoriesTest::directory()
{
    QFETCH(Directory, call);
    const AnsweringWindows windows;
    const TextAnswer roomy = directoryInto(call, 1024);
    QVERIFY(roomy.text.startsWith(QLatin1String("C:\\Windows"), Qt::CaseInsensitive));
    QCOMPARE(roomy.result, DWORD(roomy.text.size())); // without its terminator
    QVERIFY(roomy.withinRoom);

    const TextAnswer exact = directoryInto(call, roomy.result + 1);
    QCOMPARE(exact.text, roomy.text);
    QCOMPARE(exact.result, roomy.result);
    QVERIFY(exact.withinRoom);
}

void ContractDirectoriesTest::directoryTooLong_data()
{
    directory_data();
}

void ContractDirectoriesTest::directoryTooLong()
{
    QFETCH(Directory, call);
    const AnsweringWindows windows;
    const DWORD length = directoryInto(call, 1024).result;
    for (const DWORD room : {length, DWORD(1), DWORD(0)}) {
        const TextAnswer answer = directoryInto(call, room);
        QCOMPARE(answer.result, length + 1); // with its terminator
        QVERIFY(answer.untouched);
    }
}

void ContractDirectoriesTest::expansion_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *source, const char *expected) {
        QTest::newRow(name) << QString::fromUtf8(source) << QString::fromUtf8(expected);
    };
    row("no variable", "plain", "plain");
    row("empty", "", "");
    row("a variable", "%VKT_A%", "first");
    row("a variable inside a text", "<%VKT_A%>", "<first>");
    row("two variables", "%VKT_A%%VKT_B%", "first%VKT_A%");
    row("a value is not expanded itself", "%VKT_B%", "%VKT_A%");
    row("names of either case", "%vkt_a%", "first");
    row("characters of every kind", "%VKT_C%", "\u00e4\u0416");
    row("a variable that is not set stays", "%VKT_NONE%", "%VKT_NONE%");
    row("text behind a variable that is not set", "%VKT_NONE% and %VKT_A%", "%VKT_NONE% and first");
    row("a percent sign ends a variable that is not set and begins no other", "%VKT_NONE%VKT_A%", "%VKT_NONE%VKT_A%");
    row("a percent sign alone stays", "100%", "100%");
    row("a percent sign behind a variable", "%VKT_A% 100%", "first 100%");
    row("two percent signs stay", "%%", "%%");
}

void ContractDirectoriesTest::expansion()
{
    QFETCH(QString, source);
    QFETCH(QString, expected);
    AnsweringWindows windows;
    windows.setVariable(QStringLiteral("VKT_A"), QStringLiteral("first"));
    windows.setVariable(QStringLiteral("VKT_B"), QStringLiteral("%VKT_A%"));
    windows.setVariable(QStringLiteral("VKT_C"), QStringLiteral("\u00e4\u0416"));
    const TextAnswer roomy = expandedInto(source, 128);
    QCOMPARE(roomy.text, expected);
    QCOMPARE(roomy.result, DWORD(expected.size() + 1)); // with its terminator
    QVERIFY(roomy.withinRoom);

    const TextAnswer exact = expandedInto(source, roomy.result);
    QCOMPARE(exact.text, expected);
    QCOMPARE(exact.result, roomy.result);
    QVERIFY(exact.withinRoom);
}

void ContractDirectoriesTest::expansionTooLong()
{
    AnsweringWindows windows;
    windows.setVariable(QStringLiteral("VKT_A"), QStringLiteral("first"));
    const QString source = QStringLiteral("<%VKT_A%>");
    for (const DWORD room : {7u, 3u, 0u}) {
        PoisonedBuffer buffer(2 * room);
        QCOMPARE(ExpandEnvironmentStringsW(wide(source), buffer.wide(), DWORD(room)), DWORD(8));
        QVERIFY(buffer.isUntouchedFrom(2 * int(room)));
    }
}

void ContractDirectoriesTest::specialFolder_data()
{
    QTest::addColumn<int>("folder");
    QTest::newRow("programs in the start menu") << CSIDL_PROGRAMS;
    QTest::newRow("documents") << CSIDL_PERSONAL;
    QTest::newRow("application data") << CSIDL_APPDATA;
    QTest::newRow("local application data") << CSIDL_LOCAL_APPDATA;
    QTest::newRow("programs") << CSIDL_PROGRAM_FILES;
}

void ContractDirectoriesTest::specialFolder()
{
    QFETCH(int, folder);
    const AnsweringWindows windows;
    PoisonedBuffer buffer(2 * MAX_PATH);
    QVERIFY(SHGetSpecialFolderPathW(nullptr, buffer.wide(), folder, FALSE));
    const QString path = buffer.wideText();
    QVERIFY2(path.startsWith(QLatin1String("C:\\")), qPrintable(path));
    QVERIFY(!path.endsWith(QLatin1Char('\\')));
    QVERIFY(buffer.isUntouchedFrom(2 * MAX_PATH));
}

void ContractDirectoriesTest::unknownFolderLeavesTheBuffer()
{
    const AnsweringWindows windows;
    PoisonedBuffer buffer(2 * MAX_PATH);
    QVERIFY(!SHGetSpecialFolderPathW(nullptr, buffer.wide(), 0x7f, FALSE));
    WINE_DEVIATES("empties the text");
    QVERIFY(buffer.isUntouched());
}

void ContractDirectoriesTest::characterIntoText()
{
    const AnsweringWindows windows;
    PoisonedBuffer buffer(16);
    QCOMPARE(wsprintfW(buffer.wide(), L"%c:\\", 'Z'), 3);
    QCOMPARE(buffer.written(), QStringLiteral("5a003a005c000000"));
}

void ContractDirectoriesTest::pathInQtsForm_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *path, const char *expected) {
        QTest::newRow(name) << QString::fromLatin1(path) << QString::fromLatin1(expected);
    };
    row("on a drive", "C:\\Windows\\WinSxS", "C:/Windows/WinSxS");
    row("with a doubled backslash", "C:\\\\WinSxS", "C:/WinSxS");
    row("on a share: two slashes", "\\\\srv\\share\\Windows\\WinSxS", "//srv/share/Windows/WinSxS");
    row("on a share, with a doubled backslash", "\\\\srv\\share\\\\WinSxS", "//srv/share/WinSxS");
}

// Not a call of Windows: what Qt makes of a path that one of them gives.
void ContractDirectoriesTest::pathInQtsForm()
{
    QFETCH(QString, path);
    QFETCH(QString, expected);
    const AnsweringWindows windows;
    GetLogicalDrives(); // Windows is asked before files are
    QCOMPARE(QDir(path).absolutePath(), expected);
}

TEST_WITH_CORE_APPLICATION(ContractDirectoriesTest);
#include "tst_contract_directories.moc"
