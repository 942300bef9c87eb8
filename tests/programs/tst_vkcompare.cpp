// The command line of vkcompare, and its output in each form.

#include "run_program.h"
#include "test_main.h"
#include "texts.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>

class VkCompareTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void exitCodes_data();
    void exitCodes();
    void wrongUsage_data();
    void wrongUsage();
    void warnings_data();
    void warnings();
    void text();
    void allOfThem();
    void oneSection();
    void json();
    void markdown();
    void html();
    void severalReports();
    void standardInput();
    void jsonInput();
    void outputFile();
    void hostileValues_data();
    void hostileValues();
    void needsNoDisplay();
    void examplesOfTheDocumentation_data();
    void examplesOfTheDocumentation();

private:
    QString path(const char *name) const { return m_folder.filePath(QString::fromUtf8(name)); }
    void write(const char *name, const QByteArray &contents);
    ProgramRun vkcompare(const QStringList &arguments) const;

    QTemporaryDir m_folder;
};

namespace {

QString pairFile(const char *name)
{
    const QFileInfo file(QStringLiteral(PAIRS_DIR "/") + QLatin1String(name));
    return file.absoluteFilePath(); // with a drive on Windows: the program runs in another folder
}

QByteArray section(const QByteArray &text)
{
    return text + QByteArray(72, '-') + '\n';
}

QByteArray oem(const QByteArray &manufacturer, const QByteArray &model)
{
    return section("OEM Information from Registry\nManufacturer:     " + manufacturer + "\nModel:     " + model + '\n');
}

QByteArray variables(const QByteArray &lines)
{
    return section("System environemnt (QProcess::systemEnvironment()):\n" + lines);
}

QByteArray withoutWarnings(const QByteArray &errors)
{
    QByteArray result;
    for (const QByteArray &line : errors.split('\n')) {
        if (!line.isEmpty() && !line.startsWith("vkcompare: warning: "))
            result += line + '\n';
    }
    return result;
}

} // namespace

void VkCompareTest::write(const char *name, const QByteArray &contents)
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(contents), qint64(contents.size()));
}

ProgramRun VkCompareTest::vkcompare(const QStringList &arguments) const
{
    ProgramRun run = runProgram(QStringLiteral(VKCOMPARE), arguments, QProcessEnvironment::systemEnvironment(), m_folder.path());
    run.errors.replace("\r\n", "\n"); // standard error is a text stream on Windows
    return run;
}

void VkCompareTest::initTestCase()
{
    QVERIFY(m_folder.isValid());
    write("old.txt", oem("Example", "Desk 1") + variables("  A=1\n  B=2\n"));
    write("new.txt", oem("Example", "Desk 2") + variables("  A=1\n  C=3\n"));
    write("other.txt", oem("Example", "Desk 1") + variables("  A=1\n"));
    write("none.txt", "This is a letter.\n");
    write("broken.json", "{\"schemaVersion\": 1, ");
}

void VkCompareTest::exitCodes_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("the same file") << QStringList({"old.txt", "old.txt"}) << 0;
    QTest::newRow("differences") << QStringList({"old.txt", "new.txt"}) << 1;
    QTest::newRow("a minute apart") << QStringList({pairFile("minute-apart/OLD.txt"), pairFile("minute-apart/NEW.txt")}) << 0;
    QTest::newRow("a minute apart, all values")
        << QStringList({"--all", pairFile("minute-apart/OLD.txt"), pairFile("minute-apart/NEW.txt")}) << 0;
    QTest::newRow("a section without differences") << QStringList({"--section", "oemInfoFromRegistry", "old.txt", "other.txt"}) << 0;
    QTest::newRow("a section that no report has") << QStringList({"--section", "memoryInfo", "old.txt", "new.txt"}) << 2;
    QTest::newRow("three, of which one differs") << QStringList({"old.txt", "old.txt", "new.txt"}) << 1;
    QTest::newRow("three equal ones") << QStringList({"old.txt", "old.txt", "old.txt"}) << 0;
    QTest::newRow("a missing file") << QStringList({"old.txt", "missing.txt"}) << 2;
    QTest::newRow("a folder") << QStringList({"old.txt", "."}) << 2;
    QTest::newRow("no report") << QStringList({"none.txt", "old.txt"}) << 2;
    QTest::newRow("broken JSON") << QStringList({"broken.json", "old.txt"}) << 2;
}

void VkCompareTest::exitCodes()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    const ProgramRun run = vkcompare(arguments);
    QCOMPARE(run.exitCode, exitCode);
    QCOMPARE(run.output.isEmpty(), exitCode == 2);
    QCOMPARE(withoutWarnings(run.errors).count('\n'), exitCode == 2 ? 1 : 0);
}

void VkCompareTest::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("no report") << QStringList() << QByteArray("at least two reports are required");
    QTest::newRow("one report") << QStringList("old.txt") << QByteArray("at least two reports are required");
    QTest::newRow("an unknown option") << QStringList({"--al", "old.txt", "new.txt"}) << QByteArray("Unknown option 'al'.");
    QTest::newRow("an unknown format") << QStringList({"--format", "xml", "old.txt", "new.txt"}) << QByteArray("unknown format 'xml'");
    QTest::newRow("standard input twice") << QStringList({"-", "-"}) << QByteArray("standard input can be read only once");
    QTest::newRow("a typo in the name of a section")
        << QStringList({"--section", "memoryInof", "old.txt", "new.txt"}) << QByteArray("the nearest name is 'memoryInfo'");
    QTest::newRow("a typo in a heading")
        << QStringList({"--section", "Disk informaton", "old.txt", "new.txt"}) << QByteArray("the nearest name is 'diskInformation'");
    QTest::newRow("no section at all")
        << QStringList({"--section", "xyzzyplugh", "old.txt", "new.txt"}) << QByteArray("there is no section 'xyzzyplugh'\n");
}

void VkCompareTest::wrongUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    const ProgramRun run = vkcompare(arguments);
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.startsWith("vkcompare: ") && run.errors.contains(message), run.errors);
    QCOMPARE(run.errors.count('\n'), 1);
}

void VkCompareTest::warnings_data()
{
    QTest::addColumn<QByteArray>("report");
    QTest::addColumn<QByteArray>("warning");
    QFile file(pairFile("full-disk/OLD.txt"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    const int middle = whole.indexOf("Disk information");
    QTest::newRow("whole") << whole << QByteArray();
    QTest::newRow("the end is missing") << whole.left(middle) << QByteArray("the end of the report is missing");
    QTest::newRow("the beginning is missing") << whole.mid(middle) << QByteArray("the beginning of the report is missing");
    QTest::newRow("two reports") << whole + whole << QByteArray("there are several reports");
}

void VkCompareTest::warnings()
{
    QFETCH(QByteArray, report);
    QFETCH(QByteArray, warning);
    write("part.txt", report);
    const ProgramRun run = vkcompare({pairFile("full-disk/OLD.txt"), "part.txt"});
    QCOMPARE(run.exitCode, warning.contains("missing") ? 1 : 0);
    QVERIFY2(warning.isEmpty() ? run.errors.isEmpty() : run.errors.contains("warning: 'part.txt': " + warning), run.errors);
}

void VkCompareTest::text()
{
    const ProgramRun run = vkcompare({"old.txt", "new.txt"});
    COMPARE_TEXT(QString::fromUtf8(run.output), QStringLiteral(R"(--- old.txt
+++ new.txt

OEM Information from Registry (oemInfoFromRegistry)
    Model  Desk 1 -> Desk 2

System environemnt (QProcess::systemEnvironment()) (qtSystemEnvironment)
  - variable B
        value  2
  + variable C
        value  3

3 differences.
)"));
    COMPARE_TEXT(QString::fromUtf8(vkcompare({"old.txt", "old.txt"}).output),
                 QStringLiteral("--- old.txt\n+++ old.txt\n\nNo differences.\n"));
}

void VkCompareTest::allOfThem()
{
    const QStringList files = {pairFile("minute-apart/OLD.txt"), pairFile("minute-apart/NEW.txt")};
    const ProgramRun few = vkcompare(files);
    QVERIFY(few.output.endsWith("\n\nNo differences. 10 values that change every moment differ, too; not shown.\n"));
    QVERIFY(!few.output.contains("PID"));
    const ProgramRun all = vkcompare(files + QStringList("--all"));
    QVERIFY(all.output.contains("    Application PID  7312 -> 10264 (larger, every moment)\n"));
    QVERIFY(all.output.contains("MemoryLoad     45% -> 46% (larger, every moment)\n"));
    QVERIFY(all.output.endsWith("\n\nNo differences. 10 values that change every moment differ, too.\n"));
}

void VkCompareTest::oneSection()
{
    const QByteArray expected = "--- old.txt\n+++ new.txt\n\nOEM Information from Registry (oemInfoFromRegistry)\n"
                                "    Model  Desk 1 -> Desk 2\n\n1 difference.\n";
    for (const char *name : {"oemInfoFromRegistry", "OEM Information from Registry", "oem information from registry"}) {
        const ProgramRun run = vkcompare({"--section", QString::fromLatin1(name), "old.txt", "new.txt"});
        COMPARE_TEXT(QString::fromUtf8(run.output), QString::fromUtf8(expected));
    }
    const ProgramRun both = vkcompare({"--section", "qtSystemEnvironment", "--section", "oemInfoFromRegistry", "old.txt", "new.txt"});
    QVERIFY(both.output.endsWith("\n3 differences.\n"));
}

void VkCompareTest::json()
{
    const ProgramRun run = vkcompare({"--format", "json", "old.txt", "new.txt"});
    QCOMPARE(run.exitCode, 1);
    const QJsonObject object = QJsonDocument::fromJson(run.output).object();
    QCOMPARE(object.value("schemaVersion").toInt(), 1);
    QCOMPARE(object.value("same").toBool(true), false);
    QCOMPARE(object.value("reports").toArray(), QJsonArray({"old.txt", "new.txt"}));
    const QJsonArray changes = object.value("changes").toArray();
    QCOMPARE(changes.size(), 3);
    const QJsonObject model = {{"difference", "changed"}, {"section", "oemInfoFromRegistry"}, {"items", QJsonArray()}, {"key", "model"}, {"old", "Desk 1"}, {"new", "Desk 2"}, {"newer", QJsonValue::Null}, {"everyMoment", false}, {"sameIdentity", false}};
    QCOMPARE(changes.at(0).toObject(), model);
    const QJsonObject variable = changes.at(2).toObject();
    QCOMPARE(variable.value("difference").toString(), QStringLiteral("added"));
    QCOMPARE(variable.value("items").toArray(), QJsonArray({"variable C"}));
    QVERIFY(variable.value("key").isNull());
    QCOMPARE(variable.value("facts").toArray().at(1).toObject(), QJsonObject({{"item", "variable"}, {"key", "value"}, {"value", "3"}}));
}

void VkCompareTest::markdown()
{
    const ProgramRun run = vkcompare({"--format", "markdown", "old.txt", "new.txt"});
    COMPARE_TEXT(QString::fromUtf8(run.output), QStringLiteral(R"(# Comparison of two reports

- Old: `old.txt`
- New: `new.txt`

3 differences.

## OEM Information from Registry (oemInfoFromRegistry)

- Model: `Desk 1` -> `Desk 2`

## System environemnt (QProcess::systemEnvironment()) (qtSystemEnvironment)

- removed: `variable B`
  - value: `2`
- added: `variable C`
  - value: `3`
)"));
}

void VkCompareTest::html()
{
    const ProgramRun run = vkcompare({"--format", "html", "old.txt", "new.txt"});
    QVERIFY(run.output.startsWith("<!DOCTYPE html>\n"));
    QVERIFY(run.output.endsWith("</html>\n"));
    QVERIFY(run.output.contains("<th scope=\"row\">Model</th><td class=\"removed\">Desk 1</td><td class=\"added\">Desk 2</td>"));
    QVERIFY(!run.output.contains("<script"));
    for (const char *element : {"table", "tr", "ol"})
        QCOMPARE(run.output.count(QByteArray("<") + element + ">"), run.output.count(QByteArray("</") + element + ">"));
}

void VkCompareTest::severalReports()
{
    const ProgramRun run = vkcompare({"old.txt", "new.txt", "other.txt"});
    COMPARE_TEXT(QString::fromUtf8(run.output), QStringLiteral(R"([1] old.txt
[2] new.txt
[3] other.txt

OEM Information from Registry (oemInfoFromRegistry)
         [1]     [2]     [3]
  Model  Desk 1  Desk 2  Desk 1

System environemnt (QProcess::systemEnvironment()) (qtSystemEnvironment)
                    [1]  [2]  [3]
variable B
  is in the report  yes  -    -
variable C
  is in the report  -    yes  -

3 differences.
)"));
    const ProgramRun markdown = vkcompare({"--format", "markdown", "old.txt", "new.txt", "other.txt"});
    QVERIFY(markdown.output.contains("\n| Fact | 1 | 2 | 3 |\n| --- | --- | --- | --- |\n| Model | `Desk 1` | `Desk 2` | `Desk 1` |\n"));
    QVERIFY(markdown.output.contains("\n| `variable B` | yes | - | - |\n"));
    const ProgramRun html = vkcompare({"--format", "html", "old.txt", "new.txt", "other.txt"});
    QVERIFY(html.output.contains("<tr><th scope=\"row\">Model</th><td>Desk 1</td><td>Desk 2</td><td>Desk 1</td></tr>"));
    const ProgramRun json = vkcompare({"--format", "json", "old.txt", "new.txt", "other.txt"});
    const QJsonArray rows = QJsonDocument::fromJson(json.output).object().value("rows").toArray();
    QCOMPARE(rows.at(0).toObject().value("values").toArray(), QJsonArray({"Desk 1", "Desk 2", "Desk 1"}));
    QCOMPARE(rows.at(1).toObject().value("values").toArray(), QJsonArray({true, false, false}));
}

void VkCompareTest::standardInput()
{
    QProcess process;
    process.start(QStringLiteral(VKCOMPARE), {path("old.txt"), "-"});
    QVERIFY(process.waitForStarted());
    process.write(oem("Example", "Desk 1") + variables("  A=1\n  B=2\n"));
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    QVERIFY(process.readAllStandardOutput().contains("+++ standard input\n"));
}

void VkCompareTest::jsonInput()
{
    const ProgramRun conversion = runProgram(QStringLiteral(VKREPORT), {"--input", pairFile("full-disk/OLD.txt"), "--format", "json"});
    QCOMPARE(conversion.exitCode, 0);
    write("old.json", conversion.output);
    QCOMPARE(vkcompare({"old.json", pairFile("full-disk/OLD.txt")}).exitCode, 0);
    QVERIFY(vkcompare({"old.json", pairFile("full-disk/NEW.txt")}).output.endsWith("\n6 differences. 10 values that change every moment differ, too; not shown.\n"));
}

void VkCompareTest::outputFile()
{
    const ProgramRun run = vkcompare({"--output", "result.txt", "old.txt", "new.txt"});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.output, QByteArray());
    QFile file(path("result.txt"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), vkcompare({"old.txt", "new.txt"}).output);
    QCOMPARE(vkcompare({"--output", "no/such/folder", "old.txt", "new.txt"}).exitCode, 2);
}

void VkCompareTest::hostileValues_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("expected");
    QTest::addColumn<QByteArray>("forbidden");
    const auto row = [](const char *rowName, const QByteArray &value, const char *format, const char *expected, const char *forbidden) {
        QTest::newRow(rowName) << value << QString::fromLatin1(format) << QByteArray(expected) << QByteArray(forbidden);
    };
    row("an escape sequence in text", "a\x1b[2Jb", "text", "a\\x1b[2Jb", "\x1b");
    row("an escape sequence in JSON", "a\x1b[2Jb", "json", "a\\u001b[2Jb", "\x1b");
    row("an escape sequence in HTML", "a\x1b[2Jb", "html", "a\\x1b[2Jb", "\x1b");
    row("a change of direction in text", "a\xe2\x80\xae"
                                         "b",
        "text", "a\\u202eb", "\xe2\x80\xae");
    row("a change of direction in JSON", "a\xe2\x80\xae"
                                         "b",
        "json", "a\\u202eb", "\xe2\x80\xae");
    row("an element in HTML", "<img src=x onerror=alert(1)>", "html", "&lt;img src=x onerror=alert(1)&gt;", "<img");
    row("a link in Markdown", "[a](http://b.example)", "markdown", "`[a](http://b.example)`", " [a]");
    row("backticks in Markdown", "a`b", "markdown", "``a`b``", " `a`b`");
    row("a quotation mark and a backslash in JSON", "a\"b\\c", "json", "\"a\\\"b\\\\c\"", "\"a\"b");
    row("a formula in HTML", "=1+1", "html", "&#39;=1+1", ">=1+1");
}

void VkCompareTest::hostileValues()
{
    QFETCH(QByteArray, value);
    QFETCH(QString, format);
    QFETCH(QByteArray, expected);
    QFETCH(QByteArray, forbidden);
    // as the value of a fact, in an item that was added, and as the item's name
    write("hostile.txt", oem("Example", value) + variables("  A=1\n  B=2\n  X" + value + "=" + value + "\n"));
    const ProgramRun run = vkcompare({"--format", format, "old.txt", "hostile.txt"});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.output.contains(expected), run.output);
    QVERIFY2(!run.output.contains(forbidden), run.output);
    const ProgramRun table = vkcompare({"--format", format, "old.txt", "hostile.txt", "new.txt"});
    QVERIFY2(table.output.contains(expected), table.output);
    QVERIFY2(!table.output.contains(forbidden), table.output);
    if (format == QLatin1String("json"))
        QVERIFY(!QJsonDocument::fromJson(run.output).isNull() && !QJsonDocument::fromJson(table.output).isNull());
}

void VkCompareTest::needsNoDisplay()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QString::fromLatin1(variable));
    const ProgramRun run = runProgram(QStringLiteral(VKCOMPARE), {"old.txt", "new.txt"}, environment, m_folder.path());
    QCOMPARE(run.exitCode, 1);
}

void VkCompareTest::examplesOfTheDocumentation_data()
{
    QTest::addColumn<QString>("pair");
    for (const char *pair : {"driver-update", "full-disk", "missing-runtime"})
        QTest::newRow(pair) << QString::fromLatin1(pair);
}

/// docs/comparing.md has the output of today's program.
void VkCompareTest::examplesOfTheDocumentation()
{
    QFETCH(QString, pair);
    QFile file(QStringLiteral(DOCS_DIR "/comparing.md"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const ProgramRun run = runProgram(QStringLiteral(VKCOMPARE), {"OLD.txt", "NEW.txt"}, QProcessEnvironment::systemEnvironment(),
                                      QStringLiteral(PAIRS_DIR "/") + pair);
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(file.readAll().contains("\n```text\n" + run.output + "```\n"), run.output);
}

TEST_WITHOUT_APPLICATION(VkCompareTest);

#include "tst_vkcompare.moc"
