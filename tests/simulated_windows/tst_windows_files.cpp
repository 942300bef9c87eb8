// QDir lists folders of the described machine.

#include "described_windows.h"
#include "simulated_windows.h"
#include "test_main.h"
#include "windows_files.h"

#include <QtCore/QDir>
#include <QtTest/QtTest>

class WindowsFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void folder_data();
    void folder();
    void names_data();
    void names();
    void filtersForFilesAndDirectories();
    void anyFolder();
    void otherPathsAreRealFiles();
    void foldersChangeWithTheMachine();
};

namespace {

QByteArray system(const QByteArray &windowsDirectory, const QByteArray &names)
{
    return "{\"GetSystemWindowsDirectory\": " + windowsDirectory + ", \"WinSxS\": " + names + '}';
}

QDir winSxS(const QString &windowsDirectory = QStringLiteral("C:\\Windows"))
{
    simulated::knowsMachine(); // like every simulated call, installs the file engine
    return QDir(windowsDirectory + QStringLiteral("\\WinSxS"));
}

} // namespace

void WindowsFilesTest::folder_data()
{
    QTest::addColumn<QByteArray>("description");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<bool>("exists");
    const QByteArray windows("\"C:\\\\Windows\"");
    const QString path = QStringLiteral("C:\\Windows\\WinSxS");
    QTest::newRow("an existing folder") << system(windows, "[]") << path << true;
    QTest::newRow("paths are case-insensitive") << system(windows, "[]") << QStringLiteral("c:\\WINDOWS\\winsxs") << true;
    QTest::newRow("the description in another case")
        << system("\"c:\\\\WINDOWS\"", "[]") << path << true;
    QTest::newRow("a directory that ends with a backslash")
        << system("\"C:\\\\Windows\\\\\"", "[]") << QStringLiteral("C:\\Windows\\\\WinSxS") << true;
    const QByteArray share("\"\\\\\\\\srv\\\\share\\\\Windows\"");
    const QString sharePath = QStringLiteral("\\\\srv\\share\\Windows\\WinSxS");
    QTest::newRow("on a share") << system(share, "[]") << sharePath << true;
    QTest::newRow("on a share, not in the description") << system(share, "null") << sharePath << false;
    QTest::newRow("a share itself, with a backslash at the end") << system("\"\\\\\\\\srv\\\\share\\\\\"", "null")
                                                                 << QStringLiteral("\\\\srv\\share\\\\WinSxS") << false;
    QTest::newRow("not in the description")
        << QByteArray("{\"GetSystemWindowsDirectory\": \"C:\\\\Windows\"}") << path << false;
    QTest::newRow("null") << system(windows, "null") << path << false;
    QTest::newRow("below another directory") << system(windows, "[]") << QStringLiteral("D:\\Windows\\WinSxS") << false;
    QTest::newRow("no Windows directory") << system("null", "[]") << path << false;
    QTest::newRow("a longer name") << system(windows, "[]") << QStringLiteral("C:\\Windows\\WinSxS2") << false;
}

void WindowsFilesTest::folder()
{
    QFETCH(QByteArray, description);
    QFETCH(QString, asked);
    QFETCH(bool, exists);
    const DescribedWindows windows(QByteArray(), description);
    simulated::knowsMachine();
    const QDir directory(asked);
    QCOMPARE(directory.exists(), exists);
    QString expected = asked; // with single forward slashes, as on Windows
    expected.replace(QLatin1Char('\\'), QLatin1Char('/'));
    for (int i = expected.indexOf(QLatin1String("//"), 1); i > 0; i = expected.indexOf(QLatin1String("//"), 1))
        expected.remove(i, 1); // except the two of a share
    QCOMPARE(directory.absolutePath(), expected);
    if (!exists)
        QCOMPARE(directory.entryList(), QStringList());
}

void WindowsFilesTest::names_data()
{
    QTest::addColumn<QByteArray>("names");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, const char *names, const char *filter, const QStringList &expected) {
        QTest::newRow(name) << QByteArray(names) << QString::fromUtf8(filter) << expected;
    };
    const QString dot = QStringLiteral(".");
    const QString dots = QStringLiteral("..");
    const QString a = QStringLiteral("a");
    row("an empty folder lists itself and its parent", "[]", "*", {dot, dots});
    row("all, by name", "[\"c\", \"a\", \"b\"]", "*", {dot, dots, a, QStringLiteral("b"), QStringLiteral("c")});
    row("names in the order of code units", "[\"b\", \"a\", \"B\", \"A\"]", "*",
        {dot, dots, QStringLiteral("A"), QStringLiteral("B"), a, QStringLiteral("b")});
    row("the filter is case-insensitive", "[\"x_microsoft.vc80.crt_1\", \"x_Microsoft.VC90.CRT_2\", \"x_MICROSOFT\"]",
        "*Microsoft.VC*CRT*", {QStringLiteral("x_Microsoft.VC90.CRT_2"), QStringLiteral("x_microsoft.vc80.crt_1")});
    row("a name that is only the text of the filter", "[\"Microsoft.VCCRT\", \"Microsoft.VCMFC\"]", "*Microsoft.VC*CRT*",
        {QStringLiteral("Microsoft.VCCRT")});
    row("no name matches the filter", "[\"a\"]", "b*", {});
    row("non-ASCII letters", "[\"\u00e4\", \"\u0416\"]", "?", {dot, QStringLiteral("\u00e4"), QStringLiteral("\u0416")});
    row("a name with blanks", "[\"a b\"]", "a*", {QStringLiteral("a b")});
}

void WindowsFilesTest::names()
{
    QFETCH(QByteArray, names);
    QFETCH(QString, filter);
    QFETCH(QStringList, expected);
    const DescribedWindows windows(QByteArray(), system("\"C:\\\\Windows\"", names));
    QCOMPARE(winSxS().entryList({filter}, QDir::Dirs, QDir::Name), expected);
    QCOMPARE(winSxS().entryList({filter}, QDir::Files, QDir::Name), QStringList());
}

void WindowsFilesTest::filtersForFilesAndDirectories()
{
    const DescribedWindows windows(QByteArray(), system("\"C:\\\\Windows\"", "[\"a\", \"c\"]"));
    {
        QStringList &files = simulated::machineInUse().system.folders[QStringLiteral("C:\\Windows\\WinSxS")].files;
        files = QStringList {"b", "d"};
        const QStringList any(QStringLiteral("?"));
        QCOMPARE(winSxS().entryList(any, QDir::Files, QDir::Name), QStringList({"b", "d"}));
        QCOMPARE(winSxS().entryList(any, QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name), QStringList({"a", "c"}));
        QCOMPARE(winSxS().entryList(any, QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot, QDir::Name),
                 QStringList({"a", "b", "c", "d"}));
        files.clear();
    }
    QCOMPARE(winSxS().entryList(QDir::Files), QStringList());
}

void WindowsFilesTest::anyFolder()
{
    machine::Machine machine;
    machine.system.folders[QStringLiteral("D:\\Data")].directories = QStringList {"b", "a"};
    machine.system.folders[QStringLiteral("\\\\srv\\share\\")].directories = QStringList {"c"};
    const DescribedWindows windows(machine);
    simulated::knowsMachine();
    const QDir::Filters directories = QDir::Dirs | QDir::NoDotAndDotDot;
    QCOMPARE(QDir(QStringLiteral("d:\\data")).entryList(directories), QStringList({"a", "b"}));
    QCOMPARE(QDir(QStringLiteral("\\\\srv\\share")).entryList(directories), QStringList({"c"}));
    QVERIFY(QDir(QStringLiteral("D:\\Data\\a")).exists());
    QVERIFY(!QDir(QStringLiteral("D:\\Data\\c")).exists());
    QVERIFY(!QDir(QStringLiteral("D:\\")).exists());
}

void WindowsFilesTest::otherPathsAreRealFiles()
{
    const DescribedWindows windows(QByteArray(), system("\"C:\\\\Windows\"", "[]"));
    simulated::knowsMachine();
    QVERIFY(QDir(QStringLiteral(MACHINES_DIR)).entryList(QDir::Dirs).contains(QStringLiteral("workstation")));
    QVERIFY(!QDir(QStringLiteral("C:\\Windows")).exists());
}

void WindowsFilesTest::foldersChangeWithTheMachine()
{
    {
        const DescribedWindows windows(QByteArray(), system("\"C:\\\\Windows\"", "[\"a\"]"));
        QCOMPARE(winSxS().entryList({QStringLiteral("a")}), QStringList(QStringLiteral("a")));
    }
    const DescribedWindows windows(QByteArray(), system("\"D:\\\\W\"", "[\"b\"]"));
    QVERIFY(!winSxS().exists());
    QCOMPARE(winSxS(QStringLiteral("D:\\W")).entryList({QStringLiteral("b")}), QStringList(QStringLiteral("b")));
    simulated::installNothing();
    QVERIFY(!winSxS(QStringLiteral("D:\\W")).exists());
}

TEST_WITH_CORE_APPLICATION(WindowsFilesTest);
#include "tst_windows_files.moc"
