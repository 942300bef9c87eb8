// System directories, environment strings and special folders: lengths and buffer sizes.

#include "answering_windows.h"
#include "rows.h"

#include <QtCore/QDir>
#include <shlobj.h>

namespace {

using Directory = UINT(WINAPI *)(LPWSTR, UINT);

TextAnswer directoryInto(Directory call, DWORD capacity)
{
    return textAnswer(capacity, [&](WCHAR *buffer, DWORD *size) { return call(buffer, *size); });
}

TextAnswer expandedInto(const QString &source, DWORD capacity)
{
    return textAnswer(
        capacity, [&](WCHAR *buffer, DWORD *size) { return ExpandEnvironmentStringsW(wide(source), buffer, *size); });
}

void directory()
{
    const auto row = [](const QString &name, Directory call) {
        addTestRow(name, [=] {
            const AnsweringWindows windows;
            const TextAnswer large = directoryInto(call, 1024);
            QVERIFY(large.text.startsWith(QLatin1String("C:\\Windows"), Qt::CaseInsensitive));
            QCOMPARE(large.result, DWORD(large.text.size())); // without its terminator
            QVERIFY(large.withinBounds);

            const TextAnswer exact = directoryInto(call, large.result + 1);
            QCOMPARE(exact.text, large.text);
            QCOMPARE(exact.result, large.result);
            QVERIFY(exact.withinBounds);
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
            for (const DWORD capacity : {length, DWORD(1), DWORD(0)}) {
                const TextAnswer answer = directoryInto(call, capacity);
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
            const TextAnswer large = expandedInto(source, 128);
            QCOMPARE(large.text, expected);
            QCOMPARE(large.result, DWORD(expected.size() + 1)); // with its terminator
            QVERIFY(large.withinBounds);

            const TextAnswer exact = expandedInto(source, large.result);
            QCOMPARE(exact.text, expected);
            QCOMPARE(exact.result, large.result);
            QVERIFY(exact.withinBounds);
        });
    };
    row("a text without a variable", "plain", "plain");
    row("empty", "", "");
    row("a variable", "%VKT_A%", "first");
    row("a variable inside a text", "<%VKT_A%>", "<first>");
    row("two variables", "%VKT_A%%VKT_B%", "first%VKT_A%");
    row("a value is not expanded itself", "%VKT_B%", "%VKT_A%");
    row("names are case-insensitive", "%vkt_a%", "first");
    row("non-ASCII characters", "%VKT_C%", "\u00e4\u0416");
    row("a variable that is not set is not replaced", "%VKT_NONE%", "%VKT_NONE%");
    row("text after a variable that is not set", "%VKT_NONE% and %VKT_A%", "%VKT_NONE% and first");
    row("the percent sign that ends a variable that is not set does not start another", "%VKT_NONE%VKT_A%", "%VKT_NONE%VKT_A%");
    row("a single percent sign is not replaced", "100%", "100%");
    row("a percent sign after a variable", "%VKT_A% 100%", "first 100%");
    row("two percent signs are not replaced", "%%", "%%");
}

void expansionTooLong()
{
    AnsweringWindows windows;
    windows.setVariable(QStringLiteral("VKT_A"), QStringLiteral("first"));
    const QString source = QStringLiteral("<%VKT_A%>");
    for (const DWORD capacity : {7u, 3u, 0u}) {
        PoisonedBuffer buffer(2 * capacity);
        QCOMPARE(ExpandEnvironmentStringsW(wide(source), buffer.wide(), DWORD(capacity)), DWORD(8));
        QVERIFY(buffer.isUntouchedFrom(2 * int(capacity)));
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

// QDir, not a call of Windows: converts paths that Windows returns.
void pathInQtsForm()
{
    const auto row = [](const char *name, const QString &path, const QString &expected) {
        addTestRow(name, [=] {
            const AnsweringWindows windows;
            GetLogicalDrives(); // the first call installs the file engine; sections call Windows before QDir
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
