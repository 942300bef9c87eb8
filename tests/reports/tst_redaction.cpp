// What redaction promises for every report: reports of this project, damaged ones, and texts that are none.
// tst_planted.cpp looks for what must go in many more reports.

#include "document_texts.h"
#include "planted_reports.h"
#include "redaction_rules.h"
#include "test_main.h"

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

using namespace velkor::Reports;

class RedactionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothing();
    void nothingToReplace_data();
    void nothingToReplace();
    void reports_data();
    void reports();
    void workstation();
    void sameNameHasSameAlias();
    void sameNameInSeveralReports();
    void aliasesWithKey();
    void aliasesWithoutKey();
    void encodings_data();
    void encodings();
    void environment();
    void aliasThatWasThereBefore();
    void redactedReportsCompare();
};

namespace {

RedactionOptions withKey(const QByteArray &key = QByteArrayLiteral("0123456789abcdef0123456789abcdef"))
{
    RedactionOptions options;
    options.key = key;
    return options;
}

QByteArray redactedText(const QByteArray &text, const RedactionOptions &options = {})
{
    return redact({read(text)}, options).documents.front().text();
}

QByteArray workstationText() { return contentsOf(QStringLiteral(REPORTS_DATA_DIR "/workstation.txt")); }

/// A short report of somebody. Names are UTF-8.
QByteArray reportOf(const QByteArray &user, const QByteArray &host)
{
    return "############ Windows specific section ###########\nComputer name\n"
           "NetBios name:                 "
        + host + "\nPhysical NetBios name:        " + host + "\nUser name:                    " + user + '\n'
        + separatorLine()
        + "\nWindows system directories\nSystem directory:      C:\\Windows\nSpecial Folders: \nCSIDL_PERSONAL    "
          "C:\\Users\\"
        + user + "\\Documents\n" + separatorLine() + "\nLoaded modules/DLLs:\nC:\\Users\\" + user
        + "\\AppData\\tool.dll\nC:\\Windows\\System32\\kernel32.dll\n" + separatorLine() + '\n';
}

/// The value of the line that starts with \a label.
QByteArray valueAfter(const QByteArray &text, const QByteArray &label)
{
    const int begin = text.indexOf(label);
    return begin < 0 ? QByteArray()
                     : text.mid(begin + label.size(), text.indexOf('\n', begin) - begin - label.size()).trimmed();
}

} // namespace

void RedactionTest::nothing()
{
    QVERIFY(redact({}).documents.empty());
    QVERIFY(redact({}).aliases.empty());
    const Redaction empty = redact({Document(), read({})});
    QCOMPARE(empty.documents.size(), std::size_t(2));
    for (const Document &document : empty.documents)
        QCOMPARE(document.bytes(), QByteArray());
    QVERIFY(empty.aliases.empty());
    QCOMPARE(empty.environmentValues, 0);
}

void RedactionTest::nothingToReplace_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty lines") << QByteArray("\n\n\r\n\r\n\n");
    QTest::newRow("no report") << QByteArray("The quick brown fox jumps over the lazy dog.\n");
    QTest::newRow("headings") << halfHeading(Half::Windows) + '\n' + separatorLine() + '\n' + halfHeading(Half::Qt)
            + '\n';
    QTest::newRow("memory") << "Memory Information:\nMemoryLoad:            15%\n" + separatorLine() + '\n';
    QTest::newRow("names without values")
        << "Computer name\nNetBios name:                 \nUser name:                    \n" + separatorLine() + '\n';
    QTest::newRow("versions like addresses") << QByteArray(
        "   Provider Name:      Microsoft\n   Driver Version:     10.18.10.4252\nSystemBiosVersion:     5.0.0.12\n");
    QTest::newRow("addresses that every machine has") << QByteArray(
        "127.0.0.1 , 255.0.0.0 , \n::1 , ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff , \nGateway: 0.0.0.0, 0.0.0.0\n");
    QTest::newRow("folders that every machine has") << QByteArray(
        "C:\\Users\\Public\\Documents\nC:\\Windows\\System32\\ntdll.dll\nC:\\Program Files (x86)\\Common Files\n");
    QTest::newRow("NUL bytes") << QByteArray("\0\0a\0", 4);
    QTest::newRow("no UTF-8") << QByteArray("\xff\xfe\xfd\x80\xc3\n\xed\xa0\x80");
    QTest::newRow("odd UTF-16") << QByteArray("\xff\xfe"
                                              "a\0b\0c",
                                              7);
}

void RedactionTest::nothingToReplace()
{
    QFETCH(QByteArray, text);
    for (const RedactionOptions &options : {RedactionOptions(), withKey()}) {
        const Redaction redaction = redact({read(text)}, options);
        QCOMPARE(redaction.documents.front().bytes(), text);
        QVERIFY(redaction.aliases.empty());
        QVERIFY(redaction.replacements.front().empty());
        QCOMPARE(redaction.environmentValues, 0);
    }
}

void RedactionTest::reports_data()
{
    QTest::addColumn<QString>("file");
    const auto addFolder = [](const QString &folder) {
        for (QDirIterator files(folder, {QStringLiteral("*.txt")}, QDir::Files, QDirIterator::Subdirectories);
             files.hasNext();) {
            const QString file = files.next();
            QTest::newRow(qPrintable(file.mid(folder.size() + 1))) << file;
        }
    };
    QTest::newRow("example") << QStringLiteral(PROJECT_DIR "/docs/example-report.txt");
    addFolder(QStringLiteral(REPORTS_DATA_DIR));
    addFolder(QStringLiteral(PROJECT_DIR "/tests/golden"));
    addFolder(QStringLiteral(PROJECT_DIR "/tests/reports/pairs"));
    addFolder(QStringLiteral(DAMAGED_DIR));
}

void RedactionTest::reports()
{
    QFETCH(QString, file);
    const Document document = read(contentsOf(file));
#if defined(__SANITIZE_ADDRESS__) // which makes the test ten times slower
    const std::vector<RedactionOptions> allOptions {withKey()};
#else
    const std::vector<RedactionOptions> allOptions {RedactionOptions(), withKey()};
#endif
    for (const RedactionOptions &options : allOptions) {
        const Redaction redaction = redact({document}, options);
        const Document &redacted = redaction.documents.front();
        // An owner's name of several lines that are those of a section: no such lines are left of it.
        const bool imitatesSection = file.endsWith(QLatin1String("value-section-then-rest.txt"));
        QCOMPARE(redacted.text().count('\n'), document.text().count('\n'));
        if (!imitatesSection)
            QCOMPARE(flawOfRedaction(document, redacted), QString());
        QCOMPARE(flawOfPlaces(redacted), QString());
        QCOMPARE(flawOfAliases(redaction, !options.key.isEmpty()), QString());
        QCOMPARE(flawOfReplacements(document, redaction), QString());
        QVERIFY(redactedText(redacted.bytes(), options) == redacted.text());
        QVERIFY(redact({redacted}, options).aliases.empty());
        QString error;
        const std::optional<Document> again = fromJson(toJson(redacted, redaction), &error);
        QVERIFY2(again && again->bytes() == redacted.bytes(), qPrintable(error));
    }
}

// Read line by line: what identifies this machine, and which lines have it.
void RedactionTest::workstation()
{
    const QByteArray text = workstationText();
    const QByteArray redacted = redactedText(text);
    const QList<QByteArray> needles
        = {"j\xc3\xb6rn", "lindmoor", "birkental", "00330-50000-00000-aaoem", "messdaten", "b\xc3\xbcro",
           "192.0.2.", "2001:db8:", "8c1f:5e2a:77b0:1d34", "00:00:5e:00:53:", "sprache=de"};
    const QList<QByteArray> free = {// not certain, or a word that many machines have
                                    "C:\\ fixed drive", "   Driver Description: Kyocera ECOSYS P3155dn KX",
                                    "   Kyocera ECOSYS P3155dn KX",
                                    "   Microsoft Print to PDF", "  =C:=",
                                    "  VK_MESSORDNER="};
    const QList<QByteArray> before = text.split('\n');
    const QList<QByteArray> after = redacted.split('\n');
    QCOMPARE(after.size(), before.size());
    int changed = 0;
    for (int i = 0; i < before.size(); ++i) {
        const QByteArray line = QString::fromUtf8(before[i]).toLower().toUtf8();
        const QByteArray newLine = QString::fromUtf8(after[i]).toLower().toUtf8();
        const auto isIn = [&](const QByteArray &where) {
            return std::any_of(needles.begin(), needles.end(),
                               [&](const QByteArray &needle) { return where.contains(needle); });
        };
        QVERIFY2(!isIn(newLine), after[i].constData());
        const bool isFree = std::any_of(free.begin(), free.end(),
                                        [&](const QByteArray &start) { return before[i].startsWith(start); });
        if (!isIn(line) && !isFree)
            QVERIFY2(after[i] == before[i], (before[i] + " became " + after[i]).constData());
        changed += after[i] != before[i] ? 1 : 0;
    }
    QVERIFY(changed >= 46);
}

void RedactionTest::sameNameHasSameAlias()
{
    const QByteArray text = redactedText(reportOf("Lindmoor", "BIRKENTAL-PC"));
    QCOMPARE(valueAfter(text, "User name:"), QByteArray("user-1"));
    QCOMPARE(valueAfter(text, "CSIDL_PERSONAL"), QByteArray("C:\\Users\\user-1\\Documents"));
    QVERIFY(text.contains("\nC:\\Users\\user-1\\AppData\\tool.dll\n"));
    QCOMPARE(valueAfter(text, "NetBios name:"), QByteArray("host-1"));
    QCOMPARE(valueAfter(text, "Physical NetBios name:"), QByteArray("host-1"));
    QVERIFY(text.contains("\nC:\\Windows\\System32\\kernel32.dll\n"));
}

void RedactionTest::sameNameInSeveralReports()
{
    const Redaction redaction
        = redact({read(reportOf("Lindmoor", "BIRKENTAL-PC")), read(reportOf("Quergart", "BIRKENTAL-PC")),
                  read(reportOf("lindmoor", "Erlenhof-NB"))});
    QStringList names;
    for (const Document &document : redaction.documents)
        names += QString::fromUtf8(valueAfter(document.text(), "User name:") + ' '
                                   + valueAfter(document.text(), "NetBios name:"));
    QCOMPARE(names[0].section(QLatin1Char(' '), 0, 0), names[2].section(QLatin1Char(' '), 0, 0));
    QCOMPARE(names[0].section(QLatin1Char(' '), 1), names[1].section(QLatin1Char(' '), 1));
    QVERIFY(names[0].section(QLatin1Char(' '), 0, 0) != names[1].section(QLatin1Char(' '), 0, 0));
    QVERIFY(names[0].section(QLatin1Char(' '), 1) != names[2].section(QLatin1Char(' '), 1));
    QCOMPARE(flawOfAliases(redaction, false), QString());
}

void RedactionTest::aliasesWithKey()
{
    const QByteArray text = redactedText(reportOf("Lindmoor", "BIRKENTAL-PC"), withKey());
    const QByteArray user = valueAfter(text, "User name:");
    const QByteArray host = valueAfter(text, "NetBios name:");
    QVERIFY(QRegularExpression(QStringLiteral("\\Auser-[0-9]{12}\\z")).match(QString::fromUtf8(user)).hasMatch());
    QVERIFY(QRegularExpression(QStringLiteral("\\Ahost-[0-9]{12}\\z")).match(QString::fromUtf8(host)).hasMatch());
    const QByteArray other
        = redactedText(reportOf("Quergart", "erlenhof") + reportOf("LINDMOOR", "birkental-pc"), withKey());
    QVERIFY(other.contains("C:\\Users\\" + user + "\\Documents"));
    QVERIFY(other.contains("Physical NetBios name:        " + host + '\n'));
    QVERIFY(!redactedText(reportOf("Lindmoor", "BIRKENTAL-PC"), withKey("another")).contains(user));
    // The kinds have aliases of their own, even if the names are equal.
    const QByteArray equal = redactedText(reportOf("Lindmoor", "Quergart"), withKey());
    const QByteArray turned = redactedText(reportOf("Quergart", "Lindmoor"), withKey());
    QVERIFY(valueAfter(equal, "User name:").mid(5) != valueAfter(turned, "NetBios name:").mid(5));
}

void RedactionTest::aliasesWithoutKey()
{
    const Redaction redaction = redact({read(reportOf("Lindmoor", "BIRKENTAL-PC"))});
    QCOMPARE(redaction.aliases.size(), std::size_t(2));
    for (const Alias &alias : redaction.aliases) {
        const bool isUser = alias.kind == AliasKind::User;
        QCOMPARE(alias.text, isUser ? QStringLiteral("user-1") : QStringLiteral("host-1"));
        QCOMPARE(alias.count, isUser ? 3 : 2);
        QVERIFY(alias.reasons.testFlag(Reason::Fact));
        QCOMPARE(alias.spellings, QStringList(isUser ? QStringLiteral("Lindmoor") : QStringLiteral("BIRKENTAL-PC")));
    }
    QCOMPARE(redaction.environmentValues, 0);
}

void RedactionTest::encodings_data()
{
    QTest::addColumn<QByteArray>("mark");
    QTest::addColumn<bool>("isBigEndian");
    QTest::newRow("little endian") << QByteArray("\xff\xfe") << false;
    QTest::newRow("big endian") << QByteArray("\xfe\xff") << true;
    QTest::newRow("little endian without a mark") << QByteArray() << false;
}

void RedactionTest::encodings()
{
    QFETCH(QByteArray, mark);
    QFETCH(bool, isBigEndian);
    const auto encoded = [&](const QByteArray &utf8) {
        QByteArray bytes = mark;
        for (const QChar unit : QString::fromUtf8(utf8)) {
            bytes += char(isBigEndian ? unit.row() : unit.cell());
            bytes += char(isBigEndian ? unit.cell() : unit.row());
        }
        return bytes;
    };
    const QByteArray text = reportOf("J\xc3\xb6rn", "BIRKENTAL-PC");
    const QByteArray expected = encoded(redactedText(text));
    for (const QByteArray &tail : {QByteArray(), QByteArray("x")}) {
        const Document document = read(encoded(text) + tail);
        const Redaction redaction = redact({document});
        QCOMPARE(redaction.replacements.front().size(), std::size_t(5));
        QCOMPARE(flawOfReplacements(document, redaction), QString());
        QCOMPARE(redaction.documents.front().encoding(), QByteArray(isBigEndian ? "UTF-16BE" : "UTF-16LE"));
        QCOMPARE(redaction.documents.front().bytes(), expected + tail);
        QCOMPARE(redaction.aliases.size(), std::size_t(2));
    }
}

void RedactionTest::environment()
{
    const QByteArray heading = "System environemnt (QProcess::systemEnvironment()):\n";
    const QByteArray text = halfHeading(Half::Qt) + '\n' + heading
        + "  NUMBER_OF_PROCESSORS=8\n  QUELLWERK_MODE=meadow\n  QUELLWERK_EMPTY=\n  USERNAME=Lindmoor\n"
        + separatorLine() + '\n';
    const Document document = read(text);
    const Redaction redaction = redact({document});
    const QByteArray redacted = redaction.documents.front().text();
    QCOMPARE(flawOfRedaction(document, redaction.documents.front()), QString());
    QVERIFY(redacted.contains("\n  NUMBER_OF_PROCESSORS=8\n"));
    QVERIFY(redacted.contains("\n  QUELLWERK_EMPTY=\n"));
    QVERIFY(redacted.contains("\n  USERNAME=user-1\n"));
    QVERIFY(!redacted.contains("meadow"));
    QVERIFY(valueAfter(redacted, "QUELLWERK_MODE=").contains('6')); // its length
    QCOMPARE(redaction.environmentValues, 1);
}

// A name that looks like an alias stays, and no other name gets it.
void RedactionTest::aliasThatWasThereBefore()
{
    const Redaction redaction
        = redact({read(reportOf("Lindmoor", "host-1")), read(reportOf("user-1", "BIRKENTAL-PC"))});
    const QByteArray first = redaction.documents[0].text();
    const QByteArray second = redaction.documents[1].text();
    QCOMPARE(second.count("user-1"), reportOf("user-1", "BIRKENTAL-PC").count("user-1"));
    QCOMPARE(first.count("host-1"), 2);
    QVERIFY(valueAfter(first, "User name:").startsWith("user-"));
    QVERIFY(valueAfter(first, "User name:") != "user-1");
    QVERIFY(valueAfter(second, "NetBios name:").startsWith("host-"));
    QVERIFY(valueAfter(second, "NetBios name:") != "host-1");
    QCOMPARE(flawOfAliases(redaction, false, true), QString());
}

// What changed between two reports of a machine is seen after redaction, too.
void RedactionTest::redactedReportsCompare()
{
    const QByteArray text = workstationText();
    const Redaction redaction = redact({read(text), read(QByteArray(text).replace("22H2", "23H2"))});
    const Comparison comparison = compare(redaction.documents[0], redaction.documents[1]);
    QCOMPARE(comparison.changes.size(), std::size_t(1));
    QCOMPARE(comparison.changes.front().newValue, QStringLiteral("23H2"));
}

TEST_WITHOUT_APPLICATION(RedactionTest);
#include "tst_redaction.moc"
