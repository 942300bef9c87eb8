// System directories, environment strings and special folders: lengths and buffer sizes.

#include "answering_windows.h"
#include "rows.h"

#include <QtCore/QDir>
#include <shlobj.h>

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

void directory()
{
    const auto row = [](const QString &name, Directory call) {
        addTestRow(name, [=] {
            const AnsweringWindows windows;
            const TextAnswer roomy = directoryInto(call, 1024);
            QVERIFY(roomy.text.startsWith(QLatin1String("C:\\Windows"), Qt::CaseInsensitive));
            QCOMPARE(roomy.result, DWORD(roomy.text.size())); // without its terminator
            QVERIFY(roomy.withinRoom);

            const TextAnswer exact = directoryInto(call, roomy.result + 1);
            QCOMPARE(exact.text, roomy.text);
            QCOMPARE(exact.result, roomy.result);
            QVERIFY(exact.withinRoom);
        });
    };
    row("Windows", Directory(GetSystemWindowsDirectoryW));
    row("Wow64", Directory(GetSystemWow64DirectoryW));
}

void directoryTooLong()
{
    const auto row = [](const QString &name, Directory call) {
        addTestRow(name, [=] {
            const AnsweringWindows windows;
            const DWORD length = directoryInto(call, 1024).result;
            for (const DWORD room : {length, DWORD(1), DWORD(0)}) {
                const TextAnswer answer = directoryInto(call, room);
                QCOMPARE(answer.result, length + 1); // with its terminator
                QVERIFY(answer.untouched);
            }
        });
    };
    row("Windows", Directory(GetSystemWindowsDirectoryW));
    row("Wow64", Directory(GetSystemWow64DirectoryW));
}

void expansion()
{
    const auto row = [](const char *name, const QString &source, const QString &expected) {
        addTestRow(name, [=] {
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
        });
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

void expansionTooLong()
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

void specialFolder()
{
    const auto row = [](const QString &name, int folder) {
        addTestRow(name, [=] {
            const AnsweringWindows windows;
            PoisonedBuffer buffer(2 * MAX_PATH);
            QVERIFY(SHGetSpecialFolderPathW(nullptr, buffer.wide(), folder, FALSE));
            const QString path = buffer.wideText();
            QVERIFY2(path.startsWith(QLatin1String("C:\\")), qPrintable(path));
            QVERIFY(!path.endsWith(QLatin1Char('\\')));
            QVERIFY(buffer.isUntouchedFrom(2 * MAX_PATH));
        });
    };
    row("programs in the start menu", CSIDL_PROGRAMS);
    row("documents", CSIDL_PERSONAL);
    row("application data", CSIDL_APPDATA);
    row("local application data", CSIDL_LOCAL_APPDATA);
    row("programs", CSIDL_PROGRAM_FILES);
}

void unknownFolderLeavesTheBuffer()
{
    const AnsweringWindows windows;
    PoisonedBuffer buffer(2 * MAX_PATH);
    QVERIFY(!SHGetSpecialFolderPathW(nullptr, buffer.wide(), 0x7f, FALSE));
    WINE_DEVIATES("empties the text");
    QVERIFY(buffer.isUntouched());
}

void characterIntoText()
{
    const AnsweringWindows windows;
    PoisonedBuffer buffer(16);
    QCOMPARE(wsprintfW(buffer.wide(), L"%c:\\", 'Z'), 3);
    QCOMPARE(buffer.written(), QStringLiteral("5a003a005c000000"));
}

// Not a call of Windows: how Qt converts a path that Windows returns.
void pathInQtsForm()
{
    const auto row = [](const char *name, const QString &path, const QString &expected) {
        addTestRow(name, [=] {
            const AnsweringWindows windows;
            GetLogicalDrives(); // sections call Windows before they look for files
            QCOMPARE(QDir(path).absolutePath(), expected);
        });
    };
    row("on a drive", "C:\\Windows\\WinSxS", "C:/Windows/WinSxS");
    row("with a doubled backslash", "C:\\\\WinSxS", "C:/WinSxS");
    row("on a share: two slashes", "\\\\srv\\share\\Windows\\WinSxS", "//srv/share/Windows/WinSxS");
    row("on a share, with a doubled backslash", "\\\\srv\\share\\\\WinSxS", "//srv/share/WinSxS");
}

void addTests()
{
    addTestRows("directory", directory);
    addTestRows("directoryTooLong", directoryTooLong);
    addTestRows("expansion", expansion);
    addTestRow("expansionTooLong", expansionTooLong);
    addTestRows("specialFolder", specialFolder);
    addTestRow("unknownFolderLeavesTheBuffer", unknownFolderLeavesTheBuffer);
    addTestRow("characterIntoText", characterIntoText);
    addTestRows("pathInQtsForm", pathInQtsForm);
}

} // namespace

TEST_WITH_CORE_APPLICATION(RowTest(addTests));
