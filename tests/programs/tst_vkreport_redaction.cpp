// vkreport --redact: what it writes, its files and its messages.

#include "private_access.h"
#include "run_program.h"
#include "test_main.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <algorithm>
#include <memory>
#include <vector>

class VkReportRedactionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void nothingStays_data();
    void nothingStays();
    void otherFactsStay();
    void numberedAliases();
    void keyedAliases();
    void again_data();
    void again();
    void sections();
    void summaryOnStandardError();
    void json_data();
    void json();
    void inputAsJson();
    void noReport();
    void madeReports_data();
    void madeReports();
    void keyIsMade();
    void keyIsRead_data();
    void keyIsRead();
    void programsStartedTogetherHaveOneKey();
    void mapIsWritten();
    void mapReplacesAFile();
    void mapAfterTheReport();
    void hide_data();
    void hide();
    void keep();
    void hideBeforeKeep();
    void wrongWordLists_data();
    void wrongWordLists();
    void wrongUsage_data();
    void wrongUsage();
    void filesThatWouldBeOverwritten_data();
    void filesThatWouldBeOverwritten();
    void redactedReportsCompare();
#ifdef SIMULATED_WINDOWS
    void keyThatOthersCanRead_data();
    void keyThatOthersCanRead();
    void keyInAPipe();
    void mapIntoAPipe();
    void terminalShowsNoEscape();
#endif

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromLatin1(name)); }
    QString file(const char *name, const QByteArray &content) const;
    /// A file that only its owner can read and change.
    QString keyFile(const char *name, const QByteArray &content) const;
    /// Redacts machines/workstation's report, into which a secret is planted.
    ProgramRun redact(const QStringList &arguments = {}) const;
    QStringList files() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_report;
};

namespace {

QByteArray contentOf(const QString &fileName)
{
    QFile content(fileName);
    return content.open(QIODevice::ReadOnly) ? content.readAll() : QByteArray();
}

const QByteArray secret("Sommer-2023-geheim");

const QByteArray &workstation()
{
    static const QByteArray text = contentOf(QStringLiteral(REPORTS_DATA_DIR "/workstation.txt"))
                                       .replace("SanDisk Ultra USB Device", "SanDisk Ultra #9 Device")
                                       .replace("  VK_MESSORDNER=\n", "  VK_MESSORDNER=\n  VK_KENNWORT=" + secret + "\n");
    return text;
}

/// What the report of the workstation reveals. The registered owner's name has a replacement character.
const std::vector<QByteArray> &identities()
{
    static const std::vector<QByteArray> all {
        "J\xc3\xb6rn", "J\\u00f6rn", "Lindmoor", "Birkental", "00330-50000-00000-AAOEM", "00:00:5E:00:53:1A", "00:00:5E:00:53:2B",
        "8c1f:5e2a:77b0:1d34", "2001:db8:20::4d7", "192.0.2.", "ECOSYS P3155dn", "MESSDATEN", "B\xc3\xbcro", secret};
    return all;
}

/// The identities in any case of letters, one a line; empty if there are none.
QByteArray identitiesIn(const QByteArray &bytes)
{
    const QString text = QString::fromUtf8(bytes);
    QByteArray found;
    for (const QByteArray &identity : identities()) {
        if (text.contains(QString::fromUtf8(identity), Qt::CaseInsensitive))
            found += identity + '\n';
    }
    return found;
}

ProgramRun vkreport(const QStringList &arguments)
{
    return runProgram(QStringLiteral(VKREPORT), arguments);
}

/// Standard error with line feeds, which a Windows program writes as carriage return and line feed.
QByteArray errorsOf(const ProgramRun &run)
{
    return QByteArray(run.errors).replace("\r\n", "\n");
}

/// The value after a label at the beginning of a line.
QString valueOf(const QByteArray &text, const char *label)
{
    const QRegularExpression line(QStringLiteral("^%1 *(.*)$").arg(QLatin1String(label)), QRegularExpression::MultilineOption);
    return line.match(QString::fromUtf8(text)).captured(1);
}

QByteArray utf16(const QByteArray &text, bool bigEndian)
{
    QByteArray bytes;
    const QString decoded = QChar(0xfeff) + QString::fromUtf8(text);
    for (const QChar unit : decoded) {
        bytes += char(bigEndian ? unit.row() : unit.cell());
        bytes += char(bigEndian ? unit.cell() : unit.row());
    }
    return bytes;
}

} // namespace

void VkReportRedactionTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_report = file("report.txt", workstation());
    QVERIFY(workstation().contains(secret));
}

QString VkReportRedactionTest::file(const char *name, const QByteArray &content) const
{
    QFile out(path(name));
    return out.open(QIODevice::WriteOnly) && out.write(content) == content.size() ? path(name) : QString();
}

QString VkReportRedactionTest::keyFile(const char *name, const QByteArray &content) const
{
    const QString key = file(name, content);
    return QFile::setPermissions(key, QFileDevice::ReadOwner | QFileDevice::WriteOwner) ? key : QString();
}

ProgramRun VkReportRedactionTest::redact(const QStringList &arguments) const
{
    return vkreport(QStringList({"--input", m_report, "--redact"}) + arguments);
}

QStringList VkReportRedactionTest::files() const
{
    return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}

void VkReportRedactionTest::nothingStays_data()
{
    QTest::addColumn<QStringList>("arguments");
    for (const char *format : {"text", "json", "markdown", "html"}) {
        QTest::newRow(format) << QStringList({"--format", format});
        QTest::newRow(qPrintable(QStringLiteral("summary as %1").arg(QLatin1String(format))))
            << QStringList({"--format", format, "--summary"});
    }
    QTest::newRow("shortened text") << QStringList({"--max-length", "30000"});
    QTest::newRow("shortened markdown") << QStringList({"--format", "markdown", "--max-length", "30000"});
    QTest::newRow("a section without the user's name") << QStringList({"--section", "qtDesktopServices"});
    QTest::newRow("a section as JSON") << QStringList({"--section", "qtSystemEnvironment", "--format", "json"});
}

void VkReportRedactionTest::nothingStays()
{
    QFETCH(QStringList, arguments);
    for (const QStringList &key : {QStringList(), QStringList({"--alias-key", path("key")})}) {
        const ProgramRun run = redact(arguments + key);
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.output.size() > 200);
        QCOMPARE(identitiesIn(run.output), QByteArray());
        QCOMPARE(identitiesIn(run.errors), QByteArray());
    }
}

// The lines that hold none of the identities, but for the environment, stay as they are.
void VkReportRedactionTest::otherFactsStay()
{
    const QByteArray text = redact().output;
    const QByteArrayList lines = workstation().split('\n');
    const QByteArrayList redacted = text.split('\n');
    QCOMPARE(redacted.size(), lines.size());
    const int environment = lines.indexOf("System environemnt (QProcess::systemEnvironment()):");
    QVERIFY(environment > 1000);
    int same = 0;
    for (int i = 0; i < environment; ++i)
        same += lines[i] == redacted[i] ? 1 : 0;
    const auto isRevealing = [](const QByteArray &line) { return !identitiesIn(line).isEmpty(); };
    const int revealing = int(std::count_if(lines.begin(), lines.begin() + environment, isRevealing));
    QVERIFY(revealing > 25);
    QVERIFY2(same > (environment - revealing) * 98 / 100, qPrintable(QString::number(environment - same)));
    for (const char *line : {"TotalPhys:             17055318016 Byte = 15.8 GByte", "   Microsoft Print to PDF",
                             "EditionID:              Professional", "  windir=C:\\Windows", "  NUMBER_OF_PROCESSORS=8"})
        QVERIFY2(redacted.contains(line), line);
}

void VkReportRedactionTest::numberedAliases()
{
    const QByteArray text = redact().output;
    const QString user = valueOf(text, "User name:");
    QVERIFY2(QRegularExpression(QStringLiteral("^user-[1-9][0-9]*$")).match(user).hasMatch(), qPrintable(user));
    QCOMPARE(valueOf(text, "Home:"), QStringLiteral("C:/Users/") + user);
    QCOMPARE(valueOf(text, "  USERNAME=").trimmed(), user);
    QCOMPARE(valueOf(text, "NetBios name:"), valueOf(text, "Physical NetBios name:"));
    QVERIFY(valueOf(text, "NetBios name:").startsWith(QStringLiteral("host-"), Qt::CaseInsensitive));
    QVERIFY(valueOf(text, "Local host name:").startsWith(QStringLiteral("host-")));
    QVERIFY(valueOf(text, "RegisteredOrganization:").startsWith(QStringLiteral("org-")));
    QVERIFY(valueOf(text, "ProductId:").startsWith(QStringLiteral("product-")));
    QVERIFY(valueOf(text, "Gateway 1:") != valueOf(text, "Gateway 2:"));
    QCOMPARE(redact().output, text);
}

void VkReportRedactionTest::keyedAliases()
{
    const QByteArray numbered = redact().output;
    const QStringList withKey {"--alias-key", keyFile("key", "0123456789abcdef")};
    const QStringList withOtherKey {"--alias-key", keyFile("other-key", "0123456789abcdeg")};
    const QByteArray text = redact(withKey).output;
    const QString user = valueOf(text, "User name:");
    QVERIFY2(QRegularExpression(QStringLiteral("^user-[0-9]{12}$")).match(user).hasMatch(), qPrintable(user));
    QVERIFY(text != numbered);
    QCOMPARE(redact(withKey).output, text);
    const QString otherUser = valueOf(redact(withOtherKey).output, "User name:");
    QVERIFY(otherUser.startsWith(QStringLiteral("user-")) && otherUser != user);
    // In another report, after other names.
    QByteArray other = workstation();
    other.replace("Birkental-PC07", "Zeder-PC1").replace("BIRKENTAL-PC07", "ZEDER-PC1").replace("192.0.2.57", "198.51.100.4");
    const ProgramRun run = vkreport(QStringList({"--input", file("other.txt", other), "--redact"}) + withKey);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(valueOf(run.output, "User name:"), user);
    QCOMPARE(valueOf(run.output, "Gateway 1:"), valueOf(text, "Gateway 1:"));
    QVERIFY(valueOf(run.output, "Local host name:") != valueOf(text, "Local host name:"));
}

void VkReportRedactionTest::again_data()
{
    QTest::addColumn<bool>("hasKey");
    QTest::newRow("numbered") << false;
    QTest::newRow("with a key") << true;
}

void VkReportRedactionTest::again()
{
    QFETCH(bool, hasKey);
    const QStringList key = hasKey ? QStringList({"--alias-key", path("key")}) : QStringList();
    const QByteArray text = redact(key).output;
    QVERIFY(text != workstation());
    const ProgramRun run = vkreport(QStringList({"--input", file("redacted.txt", text), "--redact"}) + key);
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, text);
}

// The aliases of a section are those of the whole report.
void VkReportRedactionTest::sections()
{
    const QByteArray whole = redact().output;
    const ProgramRun run = redact({"--section", "qtDesktopServices", "--section", "wordSize"});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.startsWith("This is a 64bit application.\nQDesktopServices\nHomeLocation\n"));
    QVERIFY(whole.contains(run.output.mid(run.output.indexOf("QDesktopServices"))));
    const ProgramRun missing = vkreport({"--input", file("part.txt", "This is a 64bit application.\n"), "--redact", "--section",
                                         "qtLocale", "--alias-key", path("key")});
    QCOMPARE(missing.exitCode, 1);
    QCOMPARE(missing.output, QByteArray());
    QCOMPARE(errorsOf(missing), QByteArray("vkreport: the report does not have this section\n"));
    QVERIFY(!QFileInfo::exists(path("key")));
}

void VkReportRedactionTest::summaryOnStandardError()
{
    const ProgramRun run = redact();
    const QByteArray firstLine = errorsOf(run).split('\n').constFirst();
    QVERIFY2(firstLine.contains("not anonymous"), run.errors);
    QVERIFY2(run.errors.contains("user") && run.errors.contains("host"), run.errors);
    QVERIFY(!run.output.contains("not anonymous"));
    QCOMPARE(redact({"--format", "json", "--output", path("out.json")}).errors, run.errors);
}

void VkReportRedactionTest::json_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("otherMember");
    QTest::newRow("the report") << QStringList() << "layout";
    QTest::newRow("a section") << QStringList({"--section", "qtLocale"}) << "layout";
    QTest::newRow("the summary") << QStringList("--summary") << "summary";
}

void VkReportRedactionTest::json()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, otherMember);
    const QStringList all = arguments + QStringList({"--format", "json"});
    const QJsonObject object = QJsonDocument::fromJson(redact(all).output).object();
    QVERIFY(object.value(QStringLiteral("redaction")).isObject());
    QVERIFY(!object.value(QStringLiteral("redaction")).toObject().isEmpty());
    QVERIFY(object.contains(otherMember));
    const QJsonObject plain = QJsonDocument::fromJson(vkreport(QStringList({"--input", m_report}) + all).output).object();
    QVERIFY(plain.contains(otherMember) && !plain.contains(QStringLiteral("redaction")));
}

// JSON goes in and out. Its text is that of the redacted text.
void VkReportRedactionTest::inputAsJson()
{
    const QByteArray text = redact().output;
    const QString plain = file("plain.json", vkreport({"--input", m_report, "--format", "json"}).output);
    QCOMPARE(vkreport({"--input", plain, "--redact"}).output, text);
    const ProgramRun run = vkreport({"--input", file("redacted.json", redact({"--format", "json"}).output)});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, text);
}

void VkReportRedactionTest::noReport()
{
    const ProgramRun run = vkreport({"--input", file("mail.txt", "Hello, see 192.0.2.57.\n"), "--redact"});
    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.output.startsWith("Hello, see ip-"), run.output);
    const char *warning = "vkreport: warning: this is no report, so nothing says which names are in it\n";
    QVERIFY2(errorsOf(run).startsWith(warning), run.errors);
    QVERIFY(!redact().errors.contains("warning: this is no report"));
}

void VkReportRedactionTest::madeReports_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("start");
    QTest::newRow("whole") << QStringList() << QByteArray("############ Windows specific section");
    QTest::newRow("a section that is exported") << QStringList({"--section", "qtSystemEnvironment"})
                                                << QByteArray("System environemnt");
    QTest::newRow("markdown") << QStringList({"--format", "markdown"}) << QByteArray("# System report\n");
}

// The name of the user is in another section than the environment.
void VkReportRedactionTest::madeReports()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, start);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VKSYSTEMINFO_MACHINE"), QStringLiteral(MACHINES_DIR "/workstation")); // not on Windows
    const QByteArray made = runProgram(QStringLiteral(VKREPORT), {"--no-opengl"}, environment).output;
    const QString user = valueOf(made, "User name:");
    QVERIFY(!user.isEmpty());
    environment.insert(QStringLiteral("VK_KENNWORT"), QString::fromLatin1(secret));
    environment.insert(QStringLiteral("VK_MESSORDNER"), QStringLiteral("D:\\Users\\%1\\Messungen").arg(user));
    const QStringList plain = QStringList("--no-opengl") + arguments;
    const QByteArray before = runProgram(QStringLiteral(VKREPORT), plain, environment).output;
    QVERIFY(before.contains(secret));
    const ProgramRun run = runProgram(QStringLiteral(VKREPORT), plain + QStringList("--redact"), environment);
    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.output.startsWith(start), run.output.left(300));
    QVERIFY(run.output.contains("VK_KENNWORT"));
    QVERIFY(!run.output.contains(secret));
    QVERIFY(!run.output.contains("Users\\" + user.toUtf8()));
}

void VkReportRedactionTest::keyIsMade()
{
    QCOMPARE(redact({"--alias-key", path("key")}).exitCode, 0);
    const QByteArray key = contentOf(path("key"));
    const QString text = QString::fromLatin1(key).trimmed();
    QVERIFY2(QRegularExpression(QStringLiteral("^[0-9a-f]{64}$")).match(text).hasMatch(), key);
    QCOMPARE(whoElseHasRights(path("key")), QString());
    QCOMPARE(files(), QStringList({"key", "report.txt"}));
    QCOMPARE(redact({"--alias-key", path("key")}).exitCode, 0);
    QCOMPARE(contentOf(path("key")), key);
    QCOMPARE(redact({"--alias-key", path("other")}).exitCode, 0);
    QVERIFY(contentOf(path("other")) != key);
}

void VkReportRedactionTest::keyIsRead_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("isKey");
    QTest::newRow("16 bytes") << QByteArray(16, 'k') << true;
    QTest::newRow("15 bytes") << QByteArray(15, 'k') << false;
    QTest::newRow("15 bytes and white space") << QByteArray(15, 'k') + " \r\n\t" << false;
    QTest::newRow("any bytes") << QByteArray("\x00\xff\n\x01 0123456789abc", 18) << true;
    QTest::newRow("4096 bytes") << QByteArray(4096, 'k') << true;
    QTest::newRow("4096 bytes and a line end") << QByteArray(4096, 'k') + "\r\n"
                                               << true;
    QTest::newRow("4097 bytes") << QByteArray(4097, 'k') << false;
    QTest::newRow("a large file") << QByteArray(16, 'k') + QByteArray(100000, '\n') << false;
    QTest::newRow("nothing") << QByteArray() << false;
    QTest::newRow("white space") << QByteArray(64, '\n') << false;
}

void VkReportRedactionTest::keyIsRead()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, isKey);
    const QString name = keyFile("key", content);
    const ProgramRun run = redact({"--alias-key", name, "--alias-map", path("map")});
    QCOMPARE(contentOf(name), content);
    QCOMPARE(run.exitCode, isKey ? 0 : 1);
    QCOMPARE(QFileInfo::exists(path("map")), isKey);
    if (isKey) {
        QCOMPARE(redact({"--alias-key", keyFile("key-with-spaces", content + " \t\r\n")}).output, run.output);
        return;
    }
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(errorsOf(run), "vkreport: '" + name.toUtf8() + "' holds no key: a key has 16 to 4096 bytes\n");
}

void VkReportRedactionTest::programsStartedTogetherHaveOneKey()
{
    constexpr int count = 6;
    std::vector<std::unique_ptr<QProcess>> programs;
    for (int i = 0; i < count; ++i) {
        programs.push_back(std::make_unique<QProcess>());
        programs.back()->start(QStringLiteral(VKREPORT), {"--input", m_report, "--redact", "--alias-key", path("key")});
    }
    QByteArrayList texts;
    for (const auto &program : programs) {
        QVERIFY(program->waitForFinished(120000));
        QCOMPARE(program->exitCode(), 0);
        texts += program->readAllStandardOutput();
    }
    QCOMPARE(texts.count(redact({"--alias-key", path("key")}).output), count);
    QCOMPARE(files(), QStringList({"key", "report.txt"}));
}

void VkReportRedactionTest::mapIsWritten()
{
    const ProgramRun run = redact({"--alias-map", path("map.json")});
    QCOMPARE(run.exitCode, 0);
    const QByteArray map = contentOf(path("map.json"));
    QVERIFY(QJsonDocument::fromJson(map).isObject());
    QVERIFY2(map.contains("J\xc3\xb6rn") && map.contains('"' + valueOf(run.output, "User name:").toUtf8() + '"'), map);
    QVERIFY2(map.contains("192.0.2.57"), map);
    QVERIFY(!map.contains(secret));
    QCOMPARE(whoElseHasRights(path("map.json")), QString());
    QCOMPARE(files(), QStringList({"map.json", "report.txt"}));
}

// The file before it was readable for others.
void VkReportRedactionTest::mapReplacesAFile()
{
    const QString map = file("map.json", "old");
    QVERIFY(shareWithOthers(map) && !whoElseHasRights(map).isEmpty());
    QCOMPARE(redact({"--alias-map", map}).exitCode, 0);
    QVERIFY(QJsonDocument::fromJson(contentOf(map)).isObject());
    QCOMPARE(whoElseHasRights(map), QString());
    QCOMPARE(files(), QStringList({"map.json", "report.txt"}));
}

void VkReportRedactionTest::mapAfterTheReport()
{
    const ProgramRun noReport = redact({"--alias-map", path("map.json"), "--output", path("no/folder")});
    QCOMPARE(noReport.exitCode, 1);
    QVERIFY2(errorsOf(noReport).startsWith("vkreport: cannot write '"), noReport.errors);
    QCOMPARE(errorsOf(noReport).count('\n'), 1);
    QCOMPARE(files(), QStringList("report.txt"));
    const ProgramRun noMap = redact({"--alias-map", path("no/map.json"), "--output", path("out.txt")});
    QCOMPARE(noMap.exitCode, 1);
    QVERIFY2(errorsOf(noMap).contains("\nvkreport: cannot write '"), noMap.errors);
    QCOMPARE(contentOf(path("out.txt")), redact().output);
    QCOMPARE(files(), QStringList({"out.txt", "report.txt"}));
}

void VkReportRedactionTest::hide_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QByteArray>("hidden");
    QTest::addColumn<QByteArray>("shown");
    const QByteArray disk("Intenso Rainbow"), other("SanDisk");
    QTest::newRow("a word") << QByteArray("Intenso\n") << QByteArray("Intenso") << other;
    QTest::newRow("another case of letters") << QByteArray("inTENSO") << QByteArray("Intenso") << other;
    QTest::newRow("two words") << QByteArray("Intenso\nSanDisk\n") << other << QByteArray("GenuineIntel");
    QTest::newRow("a mark") << QByteArray("\xef\xbb\xbfIntenso\n") << disk << other;
    QTest::newRow("carriage returns") << QByteArray("Intenso\r\n\r\n") << disk << other;
    QTest::newRow("UTF-16, little-endian") << utf16("Intenso\r\n", false) << disk << other;
    QTest::newRow("UTF-16, big-endian") << utf16("Intenso\n", true) << disk << other;
    QTest::newRow("white space around it") << QByteArray(" \t Intenso  \n") << disk << other;
    QTest::newRow("a comment and an empty line") << QByteArray("#SanDisk\n\n  # SanDisk\nIntenso") << disk << other;
    const QByteArray umlaut("Pers\xc3\xb6nlicher");
    QTest::newRow("a letter that is not ASCII") << QByteArray(umlaut + "\nDokumente") << umlaut << other;
    QTest::newRow("a pattern") << QByteArray("Intens?") << disk << other;
    QTest::newRow("a number sign") << QByteArray("\\#9 Device") << QByteArray("#9 Device") << other;
    QTest::newRow("an empty list") << QByteArray() << QByteArray("Lindmoor") << disk;
}

void VkReportRedactionTest::hide()
{
    QFETCH(QByteArray, list);
    QFETCH(QByteArray, hidden);
    QFETCH(QByteArray, shown);
    QVERIFY(workstation().contains(hidden) && workstation().contains(shown));
    const ProgramRun run = redact({"--hide", file("hide.txt", list)});
    QVERIFY2(run.exitCode == 0, run.errors);
    QVERIFY(!run.output.contains(hidden));
    QVERIFY(run.output.contains(shown));
    QVERIFY(!run.errors.contains(hidden));
}

void VkReportRedactionTest::keep()
{
    const QStringList words {"--keep", file("keep.txt", "MESSDATEN\n"), "--keep", file("more.txt", "192.0.2.57\n")};
    const ProgramRun run = redact(words);
    QVERIFY2(run.exitCode == 0, run.errors);
    QVERIFY(run.output.contains("FAT32  MESSDATEN  Free"));
    QVERIFY(run.output.contains("\n192.0.2.57 , "));
    QCOMPARE(identitiesIn(QByteArray(run.output).replace("MESSDATEN", "").replace("192.0.2.57", "")), QByteArray());
}

void VkReportRedactionTest::hideBeforeKeep()
{
    const QString list = file("list.txt", "Intenso\n");
    const ProgramRun run = redact({"--keep", list, "--hide", list});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(!run.output.contains("Intenso"));
    QVERIFY(run.output.contains("word-"));
}

void VkReportRedactionTest::wrongWordLists_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QByteArray>("place");
    QByteArray many;
    for (int i = 0; i <= 10000; ++i)
        many += "word" + QByteArray::number(i) + '\n';
    QTest::newRow("no such file") << QByteArray() << QByteArray();
    QTest::newRow("too long") << QByteArray("good\n# comment\n") + QByteArray(257, 'x') + '\n'
                              << QByteArray("line 3: ");
    QTest::newRow("another encoding") << QByteArray("J\xf6rn\n") << QByteArray("line 1: the line is neither UTF-8 nor UTF-16");
    QTest::newRow("too many") << many << QByteArray("line 10001: there are more than 10000 entries");
}

void VkReportRedactionTest::wrongWordLists()
{
    QFETCH(QByteArray, list);
    QFETCH(QByteArray, place);
    const QString name = place.isEmpty() ? path("missing") : file("list", list);
    for (const char *option : {"--hide", "--keep"}) {
        const QStringList written {"--alias-key", path("key"), "--alias-map", path("map"), "--output", path("out")};
        const ProgramRun run = redact(QStringList({option, name}) + written);
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(run.output, QByteArray());
        const QByteArray message = place.isEmpty() ? "cannot read '" + name.toUtf8() : '\'' + name.toUtf8() + "', " + place;
        QVERIFY2(errorsOf(run).startsWith("vkreport: " + message), run.errors);
        QCOMPARE(errorsOf(run).count('\n'), 1);
        QVERIFY(!QFileInfo::exists(path("key")) && !QFileInfo::exists(path("map")) && !QFileInfo::exists(path("out")));
    }
}

void VkReportRedactionTest::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    for (const char *option : {"--alias-key", "--alias-map", "--hide", "--keep"}) {
        QTest::newRow(qPrintable(QStringLiteral("%1 alone").arg(QLatin1String(option))))
            << QStringList({option, "file"}) << QByteArray(option) + " requires --redact";
        for (const char *name : {"", "-"})
            QTest::newRow(qPrintable(QStringLiteral("%1 '%2'").arg(QLatin1String(option), QLatin1String(name))))
                << QStringList({"--redact", option, name})
                << QByteArray(option) + " requires the name of a file, not '" + name + '\'';
    }
    for (const char *option : {"list-sections", "list-facts", "platform-name", "opengl-version", "bonjour", "timings"})
        QTest::newRow(option) << QStringList({"--redact", QStringLiteral("--%1").arg(QLatin1String(option))})
                              << QByteArray("--redact and --") + option + " cannot be used together";
}

void VkReportRedactionTest::wrongUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    const ProgramRun run = vkreport(arguments);
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(errorsOf(run), "vkreport: " + message + '\n');
}

void VkReportRedactionTest::filesThatWouldBeOverwritten_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("otherOption");
    QTest::addColumn<bool>("exists");
    for (const bool exists : {true, false}) {
        const QByteArray which(exists ? "existing file of " : "new file of ");
        const auto row = [which, exists](const QByteArray &option, const QByteArray &otherOption) {
            QTest::newRow(which + option + " and " + otherOption)
                << QString::fromLatin1(option) << QString::fromLatin1(otherOption) << exists;
        };
        row("--alias-key", "--output");
        row("--alias-key", "--alias-map");
        row("--output", "--alias-map");
        row("--hide", "--output");
        row("--keep", "--alias-map");
    }
}

void VkReportRedactionTest::filesThatWouldBeOverwritten()
{
    QFETCH(QString, option);
    QFETCH(QString, otherOption);
    QFETCH(bool, exists);
    const QByteArray content("0123456789abcdef\n");
    const QString name = exists ? file("same", content) : path("same");
    const QString otherName = m_folder->path() + QStringLiteral("/./same");
    const ProgramRun run = redact({option, name, otherOption, otherName});
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(errorsOf(run), QStringLiteral("vkreport: %1 and %2 name the same file\n").arg(option, otherOption).toUtf8());
    QCOMPARE(QFileInfo::exists(name), exists);
    QVERIFY(!exists || contentOf(name) == content);
    const ProgramRun input = redact({"--alias-map", m_report});
    QCOMPARE(input.exitCode, 2);
    QCOMPARE(errorsOf(input), QByteArray("vkreport: --input and --alias-map name the same file\n"));
    QCOMPARE(contentOf(m_report), workstation());
}

// Reports that are redacted with one key differ in what differed before.
void VkReportRedactionTest::redactedReportsCompare()
{
    QByteArray changed = workstation();
    changed.replace("Birkental Anlagenbau GmbH", "Zeder Stahlbau AG");
    changed.replace("ReleaseId:              2009", "ReleaseId:              2010");
    const QString key = path("key");
    const QString oldFile = path("old"), sameFile = path("same"), newFile = path("new");
    QCOMPARE(redact({"--alias-key", key, "--output", oldFile}).exitCode, 0);
    QCOMPARE(redact({"--alias-key", key, "--output", sameFile, "--format", "json"}).exitCode, 0);
    QCOMPARE(vkreport({"--input", file("changed", changed), "--redact", "--alias-key", key, "--output", newFile}).exitCode, 0);
    const ProgramRun same = runProgram(QStringLiteral(VKCOMPARE), {oldFile, sameFile});
    QVERIFY2(same.exitCode == 0, same.output);
    const ProgramRun different = runProgram(QStringLiteral(VKCOMPARE), {oldFile, newFile});
    QCOMPARE(different.exitCode, 1);
    QVERIFY2(different.output.contains("2009 -> 2010") && different.output.contains("\n2 differences."), different.output);
    const QRegularExpression organisation(QStringLiteral("org-[0-9]{12} -> org-[0-9]{12}"));
    QVERIFY2(organisation.match(QString::fromUtf8(different.output)).hasMatch(), different.output);
    QCOMPARE(identitiesIn(different.output), QByteArray());
}

#ifdef SIMULATED_WINDOWS

void VkReportRedactionTest::keyThatOthersCanRead_data()
{
    QTest::addColumn<int>("permission");
    QTest::newRow("the group can read it") << int(QFileDevice::ReadGroup);
    QTest::newRow("the group can change it") << int(QFileDevice::WriteGroup);
    QTest::newRow("others can read it") << int(QFileDevice::ReadOther);
    QTest::newRow("others can change it") << int(QFileDevice::WriteOther);
}

void VkReportRedactionTest::keyThatOthersCanRead()
{
    QFETCH(int, permission);
    const QString key = keyFile("key", QByteArray(64, 'k'));
    const QFileDevice::Permissions owner = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
    QVERIFY(QFile::setPermissions(key, owner | QFileDevice::Permission(permission)));
    const ProgramRun run = redact({"--alias-key", key});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.errors, "vkreport: cannot read '" + key.toUtf8() + "': others than its owner can read or change it; take these "
                                                                    "rights away with chmod 600\n");
    QVERIFY(QFile::setPermissions(key, owner));
    QCOMPARE(redact({"--alias-key", key}).exitCode, 0);
}

// Such as the key that another program prints.
void VkReportRedactionTest::keyInAPipe()
{
    const QByteArray text = redact({"--alias-key", keyFile("key", "0123456789abcdef")}).output;
    const QString command = QStringLiteral("'%1' --input '%2' --redact --alias-key <(echo 0123456789abcdef)")
                                .arg(QStringLiteral(VKREPORT), m_report);
    const ProgramRun run = runProgram(QStringLiteral("bash"), {"-c", command});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, text);
}

void VkReportRedactionTest::mapIntoAPipe()
{
    const QString pipe = path("pipe");
    QCOMPARE(runProgram(QStringLiteral("mkfifo"), {pipe}).exitCode, 0);
    QProcess reader;
    reader.start(QStringLiteral("cat"), {pipe});
    QVERIFY(reader.waitForStarted());
    QCOMPARE(redact({"--alias-map", pipe}).exitCode, 0);
    QVERIFY(reader.waitForFinished());
    QVERIFY(reader.readAllStandardOutput().contains("J\xc3\xb6rn"));
    QVERIFY(QFileInfo::exists(pipe) && !QFileInfo(pipe).isFile());
}

// script(1) gives the program a terminal, on which its own line ends are the only control characters.
void VkReportRedactionTest::terminalShowsNoEscape()
{
    QByteArray text = workstation();
    text.replace("User name:                    J\xc3\xb6rn", "User name:                    \x1b]0;title\x07name\xc2\x9b!");
    const QString command = QStringLiteral("'%1' --input '%2' --redact").arg(QStringLiteral(VKREPORT), file("hostile", text));
    const ProgramRun run = runProgram(QStringLiteral("script"), {"-qec", command, "/dev/null"});
    QCOMPARE(run.exitCode, 0);
    const QString shown = QString::fromUtf8(QByteArray(run.output).replace("\r\n", "\n"));
    QVERIFY(shown.contains(QStringLiteral("not anonymous")) && shown.contains(QStringLiteral("GL_EXTENSIONS")));
    for (const QChar next : shown) {
        const QString code = QString::number(next.unicode(), 16);
        QVERIFY2(next == QLatin1Char('\n') || next.category() != QChar::Other_Control, qPrintable(code));
    }
}

#endif

TEST_WITH_CORE_APPLICATION(VkReportRedactionTest);
#include "tst_vkreport_redaction.moc"
