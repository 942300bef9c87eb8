// vkreport as a reader and converter of reports.

#include "run_program.h"
#include "test_main.h"
#include "texts.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <memory>
#include <utility>
#include <vector>

class VkReportInputTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void textIsTheSameBytes_data();
    void textIsTheSameBytes();
    void standardInput();
    void needsNoDisplay();
    void formats_data();
    void formats();
    void jsonIsRead_data();
    void jsonIsRead();
    void sections_data();
    void sections();
    void summary();
    void maxLength();
    void listFacts();
    void madeReports_data();
    void madeReports();
    void wrongUsage_data();
    void wrongUsage();
    void failures_data();
    void failures();
    void everyOptionIsDocumented();
#ifdef SIMULATED_WINDOWS
    void terminalShowsNoEscape_data();
    void terminalShowsNoEscape();
    void progressOnATerminal();
    void outputToAPipeDoesNotReplaceIt();
#endif

private:
    QString file(const char *name, const QByteArray &content);

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

QByteArray contentOf(const QString &fileName)
{
    QFile content(fileName);
    return content.open(QIODevice::ReadOnly) ? content.readAll() : QByteArray();
}

const QByteArray &workstation()
{
    static const QByteArray text = contentOf(QStringLiteral(REPORTS_DATA_DIR "/workstation.txt"));
    return text;
}

ProgramRun vkreport(const QStringList &arguments)
{
    return runProgram(QStringLiteral(VKREPORT), arguments);
}

ProgramRun vkreportWithInput(const QStringList &arguments, const QByteArray &input)
{
    QProcess process;
    process.start(QStringLiteral(VKREPORT), arguments);
    process.write(input);
    process.closeWriteChannel();
    ProgramRun run;
    if (process.waitForFinished(120000) && process.exitStatus() == QProcess::NormalExit)
        run.exitCode = process.exitCode();
    run.output = process.readAllStandardOutput();
    run.errors = process.readAllStandardError();
    return run;
}

QByteArray utf16(const QByteArray &text)
{
    const QString decoded = QChar(0xfeff) + QString::fromUtf8(text);
    return QByteArray(reinterpret_cast<const char *>(decoded.utf16()), decoded.size() * 2);
}

} // namespace

void VkReportInputTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

QString VkReportInputTest::file(const char *name, const QByteArray &content)
{
    const QString path = m_folder->filePath(QString::fromLatin1(name));
    QFile out(path);
    if (!out.open(QIODevice::WriteOnly) || out.write(content) != content.size())
        return QString();
    return path;
}

void VkReportInputTest::textIsTheSameBytes_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("a report") << workstation();
    QTest::newRow("carriage returns") << QByteArray(workstation()).replace("\n", "\r\n");
    QTest::newRow("UTF-16") << utf16(workstation());
    QTest::newRow("no report") << QByteArray("Hello\x1b[31m\xff\n");
    QTest::newRow("begins like JSON") << QByteArray("{ is a bracket\n");
    QTest::newRow("nulls") << QByteArray(1000, '\0');
    QTest::newRow("nothing") << QByteArray();
}

void VkReportInputTest::textIsTheSameBytes()
{
    QFETCH(QByteArray, text);
    const QString input = file("report", text);
    const QString output = m_folder->filePath(QStringLiteral("output"));
    const ProgramRun run = vkreport({"--input", input});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, text);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(vkreport({"-i", input, "--format", "text", "--output", output}).exitCode, 0);
    QCOMPARE(contentOf(output), text);
}

void VkReportInputTest::standardInput()
{
    const ProgramRun run = vkreportWithInput({"--input", "-"}, workstation());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, workstation());
}

void VkReportInputTest::needsNoDisplay()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("no-such-platform"));
    for (const QStringList &arguments : {QStringList({"--input", file("report", workstation()), "--summary"}), QStringList("--list-facts")})
        QCOMPARE(runProgram(QStringLiteral(VKREPORT), arguments, environment).exitCode, 0);
}

void VkReportInputTest::formats_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<QByteArray>("fact");
    QTest::newRow("text") << "text" << QByteArray("############ Windows") << QByteArray("TotalPhys:             17055318016");
    QTest::newRow("json") << "json" << QByteArray("{") << QByteArray("17055318016");
    QTest::newRow("markdown") << "markdown" << QByteArray("# System report\n") << QByteArray("| TotalPhys | `17055318016 Byte");
    QTest::newRow("html") << "html" << QByteArray("<!DOCTYPE html>\n") << QByteArray("<td>17055318016 Byte");
}

void VkReportInputTest::formats()
{
    QFETCH(QString, format);
    QFETCH(QByteArray, start);
    QFETCH(QByteArray, fact);
    const ProgramRun run = vkreport({"--input", file("report", workstation()), "--format", format});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.startsWith(start));
    QVERIFY(run.output.contains(fact));
    QVERIFY(!run.output.contains('\r'));
    QCOMPARE(run.errors, QByteArray());
}

void VkReportInputTest::jsonIsRead_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<bool>("asUtf16");
    QTest::newRow("as it was written") << QByteArray() << false;
    QTest::newRow("with a mark") << QByteArray("\xef\xbb\xbf") << false;
    QTest::newRow("after empty lines") << QByteArray("\n \n") << false;
    QTest::newRow("UTF-16") << QByteArray() << true;
}

void VkReportInputTest::jsonIsRead()
{
    QFETCH(QByteArray, before);
    QFETCH(bool, asUtf16);
    const QByteArray json = vkreport({"--input", file("report", workstation()), "--format", "json"}).output;
    const ProgramRun run = vkreport({"--input", file("json", before + (asUtf16 ? utf16(json) : json))});
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, workstation());
}

void VkReportInputTest::sections_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QByteArray>("text");
    const QByteArray locale = "QLocale\nCountry:          Germany\nLanguage:         German\nMeasuring System: MetricSystem\n";
    const QByteArray word = "This is a 64bit application.\n";
    QTest::newRow("a name of the Qt half") << QStringList("qtLocale") << locale;
    QTest::newRow("a name of the Windows half") << QStringList("wordSize") << word;
    QTest::newRow("a heading in other letters") << QStringList("qLOCALE") << locale;
    QTest::newRow("two, in the order of the report") << QStringList({"qtLocale", "wordSize"}) << word + locale;
    QTest::newRow("with an argument") << QStringList("portsFromRegistry:PARALLEL PORTS")
                                      << QByteArray(">> Info about 'PARALLEL PORTS' ports from registry:\n");
}

void VkReportInputTest::sections()
{
    QFETCH(QStringList, names);
    QFETCH(QByteArray, text);
    QStringList arguments {"--input", file("report", workstation())};
    for (const QString &name : names)
        arguments << QStringLiteral("--section") << name;
    const ProgramRun run = vkreport(arguments);
    QCOMPARE(run.errors, QByteArray());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, text);
    QCOMPARE(vkreport(arguments + QStringList({"--format", "json"})).exitCode, 0);
}

void VkReportInputTest::summary()
{
    const QString input = file("report", workstation());
    const ProgramRun text = vkreport({"--input", input, "--summary"});
    QCOMPARE(text.exitCode, 0);
    QVERIFY2(text.output.contains("\nMemory:             15.8 GByte, free: 8.5 GByte\n"), text.output);
    QVERIFY(text.output.count('\n') <= 20);
    QVERIFY(vkreport({"--input", input, "--summary", "--format", "markdown"}).output.contains("| Locale | `German, Germany` |"));
    const QByteArray html = vkreport({"--input", input, "--summary", "--format", "html"}).output;
    QVERIFY(html.contains("<td>German, Germany</td>") && !html.contains("Contents"));
    const QByteArray json = vkreport({"--input", input, "--summary", "--format", "json"}).output;
    const QJsonArray lines = QJsonDocument::fromJson(json).object().value(QStringLiteral("summary")).toArray();
    QCOMPARE(lines.size(), text.output.count('\n'));
    QCOMPARE(lines.at(0).toObject().value(QStringLiteral("value")).toString(),
             QStringLiteral("Windows 10 Professional Edition, 64-bit"));
}

void VkReportInputTest::maxLength()
{
    const QString input = file("report", workstation());
    for (const char *format : {"text", "markdown"}) {
        const ProgramRun run = vkreport({"--input", input, "--format", format, "--max-length", "5000"});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(QString::fromUtf8(run.output).size() <= 5000);
        QVERIFY(run.output.contains("Shortened to at most 5000 characters."));
    }
}

void VkReportInputTest::listFacts()
{
    const ProgramRun text = vkreport({"--list-facts"});
    QCOMPARE(text.exitCode, 0);
    QVERIFY(text.output.startsWith("section  "));
    QVERIFY(text.output.contains(" totalPhys "));
    const QByteArray json = vkreport({"--list-facts", "--format", "json", "--section", "memoryInfo"}).output;
    const QJsonArray facts = QJsonDocument::fromJson(json).object().value(QStringLiteral("facts")).toArray();
    QCOMPARE(facts.size(), 7);
    QCOMPARE(facts.at(1).toObject().value(QStringLiteral("unit")).toString(), QStringLiteral("Byte"));
}

void VkReportInputTest::madeReports_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("markdown") << QStringList({"--format", "markdown"}) << QByteArray("# System report\n");
    QTest::newRow("html") << QStringList({"--format", "html"}) << QByteArray("<!DOCTYPE html>\n");
    QTest::newRow("summary") << QStringList("--summary") << QByteArray("vkreport");
    QTest::newRow("a section of the Windows half") << QStringList({"--section", "memoryInfo"}) << QByteArray("Memory Information:\n");
    QTest::newRow("its heading") << QStringList({"--section", "memory information"}) << QByteArray("Memory Information:\n");
    QTest::newRow("a section as JSON") << QStringList({"--section", "qtLocale", "--format", "json"}) << QByteArray("\"country\"");
    QTest::newRow("a limit") << QStringList({"--max-length", "3000"}) << QByteArray("[Shortened to at most 3000 characters.");
}

void VkReportInputTest::madeReports()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, text);
    const ProgramRun run = vkreport(QStringList("--no-opengl") + arguments);
    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.output.contains(text), run.output.left(500));
}

void VkReportInputTest::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    const QStringList read {"--input", "report.txt"};
    QTest::newRow("an unknown format") << QStringList({"--format", "xml"})
                                       << QByteArray("there is no format 'xml'. The formats are: text, json, markdown, html");
    QTest::newRow("a mistyped section") << read + QStringList({"--section", "memoryInof"})
                                        << QByteArray("there is no section 'memoryInof'; the nearest name is 'memoryInfo'");
    QTest::newRow("no length") << read + QStringList({"--max-length", "0"})
                               << QByteArray("--max-length requires a number greater than 0, not '0'");
    QTest::newRow("a length that is no number") << read + QStringList({"--max-length", "64k"})
                                                << QByteArray("--max-length requires a number greater than 0, not '64k'");
    for (const char *format : {"json", "html"})
        QTest::newRow(qPrintable(QStringLiteral("a length for %1").arg(QLatin1String(format))))
            << read + QStringList({"--max-length", "9", "--format", format})
            << QByteArray("--max-length shortens text and markdown only");
    for (const char *option : {"no-opengl", "list-sections", "list-facts", "platform-name", "opengl-version", "bonjour", "timings", "progress"})
        QTest::newRow(qPrintable(QStringLiteral("--input with --%1").arg(QLatin1String(option))))
            << read + QStringList(QStringLiteral("--%1").arg(QLatin1String(option)))
            << QByteArray("--input and --") + option + " cannot be used together";
    QTest::newRow("the summary of a section") << read + QStringList({"--summary", "--section", "qtLocale"})
                                              << QByteArray("--summary and --section cannot be used together");
    QTest::newRow("a format for other facts") << QStringList({"--bonjour", "--format", "json"})
                                              << QByteArray("--format and --bonjour cannot be used together");
    QTest::newRow("a limit for other facts") << QStringList({"--bonjour", "--max-length", "9"})
                                             << QByteArray("--max-length and --bonjour cannot be used together");
    QTest::newRow("facts as HTML") << QStringList({"--list-facts", "--format", "html"}) << QByteArray("--list-facts writes text or json");
    QTest::newRow("facts and a summary") << QStringList({"--list-facts", "--summary"})
                                         << QByteArray("--list-facts and --summary cannot be used together");
    QTest::newRow("timings of the Windows half") << QStringList({"--timings", "--section", "memoryInfo"})
                                                 << QByteArray("--timings measures the sections of --list-sections only");
    QTest::newRow("an escape in a name") << read + QStringList({"--format", "\x1b[31m"})
                                         << QByteArray("there is no format '\\x1b[31m'. The formats are: text, json, markdown, html");
}

void VkReportInputTest::wrongUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    const ProgramRun run = vkreport(arguments);
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(QByteArray(run.errors).replace("\r\n", "\n"), "vkreport: " + message + '\n');
}

void VkReportInputTest::failures_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("no such file") << QByteArray() << QStringList() << QByteArray("vkreport: cannot read '");
    QTest::newRow("JSON that is cut") << QByteArray("{\"schemaVersion\": 1,") << QStringList()
                                      << QByteArray("vkreport: cannot read the JSON: ");
    QTest::newRow("a section that is missing") << QByteArray("This is a 64bit application.\n") << QStringList({"--section", "qtLocale"})
                                               << QByteArray("vkreport: the report does not have this section\n");
    QTest::newRow("output that cannot be written") << QByteArray("x") << QStringList({"--output", "/nowhere/at/all"})
                                                   << QByteArray("vkreport: cannot write '");
}

void VkReportInputTest::failures()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    const QString input = content.isEmpty() ? m_folder->filePath(QStringLiteral("missing")) : file("report", content);
    const ProgramRun run = vkreport(QStringList({"--input", input}) + arguments);
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(QByteArray(run.errors).replace("\r\n", "\n").startsWith(message), run.errors);
}

// Manual pages and completions name every option of --help, and nothing else.
void VkReportInputTest::everyOptionIsDocumented()
{
    std::vector<std::pair<const char *, QString>> programs = {{"vkreport", QStringLiteral(VKREPORT)}, {"vkcompare", QStringLiteral(VKCOMPARE)}};
#ifdef SIMULATED_WINDOWS // on Windows a window shows the help
    programs.emplace_back("vkviewer", QStringLiteral(VKVIEWER));
#endif
    for (const auto &program : programs) {
        const QByteArray help = runProgram(program.second, {"--help"}).output;
        const QByteArray man = contentOf(QStringLiteral(PROJECT_DIR "/docs/man/%1.1").arg(QLatin1String(program.first)));
        QByteArray completion = contentOf(QStringLiteral(PROJECT_DIR "/completions/%1").arg(QLatin1String(program.first)));
        completion.replace(" --list-facts 2>", " "); // a call that lists the sections
        const QRegularExpression option(QStringLiteral("^  (?:-\\S+, )*--([a-z-]+)"), QRegularExpression::MultilineOption);
        int count = 0;
        for (QRegularExpressionMatchIterator it = option.globalMatch(QString::fromUtf8(help)); it.hasNext(); ++count) {
            const QByteArray name = it.next().captured(1).toLatin1();
            if (name == "help-all") // Qt's
                continue;
            QVERIFY2(man.contains("Fl -" + name + '\n') || man.contains("Fl -" + name + ' '), name.constData());
            QVERIFY2(completion.contains("--" + name), name.constData());
        }
        QVERIFY(count >= (program.first == QLatin1String("vkviewer") ? 3 : 5));
        const QRegularExpression completed(QStringLiteral("--([a-z][a-z-]+)"));
        for (QRegularExpressionMatchIterator it = completed.globalMatch(QString::fromUtf8(completion)); it.hasNext();) {
            const QByteArray name = it.next().captured(0).toLatin1();
            QVERIFY2(help.contains(name), name.constData());
        }
    }
}

#ifdef SIMULATED_WINDOWS

void VkReportInputTest::terminalShowsNoEscape_data()
{
    QTest::addColumn<QStringList>("arguments");
    for (const char *format : {"text", "json", "markdown", "html"})
        QTest::newRow(format) << QStringList({"--format", format});
    QTest::newRow("summary") << QStringList("--summary");
    QTest::newRow("section") << QStringList({"--section", "wordSize", "--section", "windowsVersion"});
    QTest::newRow("limit") << QStringList({"--max-length", "2000"});
}

// script(1) gives the program a terminal. Its own line ends are the only control characters.
void VkReportInputTest::terminalShowsNoEscape()
{
    QFETCH(QStringList, arguments);
    const QByteArray hostile = "\x1b]0;title\x07\x1b[2J\xc2\x9b"
                               "31m\xe2\x80\xae\x08\x9b"
        + QByteArray(1, '\0');
    QByteArray text = hostile + '\n' + workstation() + hostile;
    text.replace("From registry:     ", "From registry:     " + hostile);
    const QString input = file("report", text);
    const QString command = QStringLiteral("'%1' --input '%2' '%3'")
                                .arg(QStringLiteral(VKREPORT), input, arguments.join(QStringLiteral("' '")));
    const ProgramRun run = runProgram(QStringLiteral("script"), {"-qec", command, "/dev/null"});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.size() > 50);
    const QString shown = QString::fromUtf8(QByteArray(run.output).replace("\r\n", "\n"));
    for (const QChar next : shown)
        QVERIFY2(next == QLatin1Char('\n') || (next.category() != QChar::Other_Control && next.unicode() != 0x202e),
                 qPrintable(QString::number(next.unicode(), 16)));
    QVERIFY(!arguments.contains(QStringLiteral("text")) || shown.contains(QStringLiteral("GL_EXTENSIONS")));
    QVERIFY(arguments.contains(QStringLiteral("json")) || shown.contains(QStringLiteral("\\x1b]0;title\\x07")));
    const ProgramRun piped = vkreport({"--input", input});
    QCOMPARE(piped.output, text);
}

void VkReportInputTest::progressOnATerminal()
{
    const QString input = file("report", QByteArray("A line that is no report.\n").repeated(450000));
    const QString command = QStringLiteral("'%1' --input '%2' >/dev/null").arg(QStringLiteral(VKREPORT), input);
    const ProgramRun run = runProgram(QStringLiteral("script"), {"-qec", command, "/dev/null"});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(QByteArray(run.output).replace("\r\n", "\n"), QByteArray("vkreport: reading (11 MByte)\n"
                                                                      "vkreport: finding facts (11 MByte)\n"
                                                                      "vkreport: writing (11 MByte)\n"));
    QCOMPARE(vkreport({"--input", input}).errors, QByteArray());
}

// The same holds for devices such as the null device. A test must not risk to replace one.
void VkReportInputTest::outputToAPipeDoesNotReplaceIt()
{
    const QString pipe = m_folder->filePath(QStringLiteral("pipe"));
    QCOMPARE(runProgram(QStringLiteral("mkfifo"), {pipe}).exitCode, 0);
    QProcess reader;
    reader.start(QStringLiteral("cat"), {pipe});
    QVERIFY(reader.waitForStarted());
    const ProgramRun run = vkreport({"--input", file("report", workstation()), "--output", pipe});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(reader.waitForFinished());
    QCOMPARE(reader.readAllStandardOutput(), workstation());
    QVERIFY(QFileInfo::exists(pipe) && !QFileInfo(pipe).isFile());
}

#endif

TEST_WITH_CORE_APPLICATION(VkReportInputTest);
#include "tst_vkreport_input.moc"
