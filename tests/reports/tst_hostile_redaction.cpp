// Texts that were written to make redaction slow, to fill the memory, or to blank the report.

#include "document_texts.h"
#include "redaction_rules.h"
#include "test_main.h"

#include <QtCore/QSet>
#include <random>

using namespace velkor::Reports;

class HostileRedactionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void manyAddresses();
    void manyUserFolders();
    void manyVariables();
    void names_data();
    void names();
    void longName();
    void longLines_data();
    void longLines();
    void slowPatterns();
    void manyEntries();
    void bytesThatAreNoText();
    void changedBytes();
};

namespace {

// Sanitizers make everything several times slower and larger.
#if defined(__SANITIZE_ADDRESS__)
constexpr int share = 10;
#else
constexpr int share = 1;
#endif

QByteArray workstationText()
{
    return contentsOf(QStringLiteral(REPORTS_DATA_DIR "/workstation.txt"));
}

/// The report of a machine whose user and folders have that name.
QByteArray reportOfUser(const QByteArray &name) { return workstationText().replace("J\xc3\xb6rn", name); }

/// Redacts the text twice and checks what holds for every text. Returns the redacted text.
QByteArray checked(const QByteArray &text, const RedactionOptions &options = {})
{
    const Document document = read(text);
    const Redaction redaction = redact({document}, options);
    const Document &redacted = redaction.documents.front();
    if (!haveSameLineBreaks(document, redacted))
        qWarning("the number of lines changed");
    else if (redact({redacted}, options).documents.front().bytes() != redacted.bytes())
        qWarning("redacting again changed the text");
    else if (!flawOfReplacements(document, redaction).isEmpty())
        qWarning("the places that were replaced: %s", qPrintable(flawOfReplacements(document, redaction)));
    else
        return redacted.bytes();
    return {};
}

/// How many lines of the same number differ.
int changedLines(const QByteArray &before, const QByteArray &after)
{
    const QList<QByteArray> left = before.split('\n');
    const QList<QByteArray> right = after.split('\n');
    int changed = std::abs(left.size() - right.size());
    for (int i = 0; i < left.size() && i < right.size(); ++i)
        changed += left[i] != right[i] ? 1 : 0;
    return changed;
}

} // namespace

void HostileRedactionTest::manyAddresses()
{
    constexpr int count = 250000 / share;
    QByteArray text;
    text.reserve(60 * count);
    for (unsigned i = 0; i < count; ++i) {
        text += "http://11." + QByteArray::number(i >> 16 & 255) + '.' + QByteArray::number(i >> 8 & 255) + '.'
            + QByteArray::number(i & 255) + "/ http://[2001:db8:" + QByteArray::number(i >> 16, 16)
            + "::" + QByteArray::number(i & 0xffff, 16) + "]/\n";
    }
    const Redaction redaction = redact({read(text)});
    const QByteArray redacted = redaction.documents.front().bytes();
    QCOMPARE(redaction.aliases.size(), std::size_t(2 * count));
    QCOMPARE(redacted.count('\n'), count);
    QVERIFY(redacted.startsWith("http://ip-1/ http://[ip-2]/\nhttp://ip-3/ http://[ip-4]/\n"));
    const QByteArray last = QByteArray::number(2 * count);
    QVERIFY(redacted.endsWith("http://ip-" + QByteArray::number(2 * count - 1) + "/ http://[ip-" + last + "]/\n"));
    QVERIFY(redact({redaction.documents.front()}).documents.front().bytes() == redacted);
}

void HostileRedactionTest::manyUserFolders()
{
    constexpr int count = 100000 / share;
    QByteArray text = "############ Windows specific section ###########\nLoaded modules/DLLs:\n";
    for (int i = 0; i < count; ++i)
        text += "C:\\Users\\lindmoor" + QByteArray::number(i) + "x\\tool.dll\n";
    text += separatorLine() + '\n';
    const Redaction redaction = redact({read(text)});
    const QList<QByteArray> lines = redaction.documents.front().bytes().split('\n');
    QSet<QByteArray> different;
    for (const QByteArray &line : lines) {
        if (line.startsWith("C:"))
            different += line;
    }
    QCOMPARE(different.size(), count);
    QVERIFY(!redaction.documents.front().bytes().contains("lindmoor"));
    QCOMPARE(redaction.aliases.size(), std::size_t(count));
    QVERIFY(redact(redaction.documents).documents.front().bytes() == redaction.documents.front().bytes());
}

void HostileRedactionTest::manyVariables()
{
    constexpr int count = 20000;
    QByteArray text = halfHeading(Half::Qt) + "\nSystem environemnt (QProcess::systemEnvironment()):\n";
    for (int i = 0; i < count; ++i)
        text += "  QUELLWERK_" + QByteArray::number(i) + "=meadow" + QByteArray(i % 100, 'x') + '\n';
    text += separatorLine() + '\n';
    const QByteArray redacted = checked(text);
    QVERIFY(!redacted.isEmpty());
    QVERIFY(!redacted.contains("meadow"));
    QCOMPARE(redact({read(text)}).environmentValues, count);
}

void HostileRedactionTest::names_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char *name : {".*", "(a+)+$", "[", "]", "\\", "\\\\", "^", "$", "|", "?", "*", "***", "a|b", "[a-z]*",
                             "(?=.)", "%", "%1", "%%", "%20", "%00", "%n", "{0}", "<b>", "&amp;", "\"", "'", "/",
                             "//", ":", "@", "~", "~1", "-", "--", "_", ".", "..", "...", "=", "1", "0", "a", "A",
                             "i", "x", "e", "C", "C:", "PC", "Users", "Windows", "Microsoft", "Intel", "Driver",
                             "Version", "user", "user-", "host", "length", "n", "\xc4\xb1", "\xc4\xb0", "\xc3\x9f",
                             "\xef\xbb\xbf", "\xe2\x80\xae", "\xcc\x88", "\xff", "\xed\xa0\x80", "--------", "____"})
        QTest::newRow(qPrintable(QString::fromUtf8(name))) << QByteArray(name);
    QTest::newRow("blank") << QByteArray(" ");
    QTest::newRow("blanks") << QByteArray("     ");
    QTest::newRow("tab") << QByteArray("\t");
    QTest::newRow("no-break space") << QByteArray("\xc2\xa0");
    QTest::newRow("NUL") << QByteArray("\0", 1);
    QTest::newRow("control characters") << QByteArray("\x01\x1b[31m\x7f");
    QTest::newRow("separator line") << separatorLine();
}

// Whatever somebody is called, the report keeps its lines, and nearly all of them stay as they are. The 22 lines
// with the name and 24 with other identities change, and 6 can change: two printers and the driver of one, the label
// of a drive and two variables.
void HostileRedactionTest::names()
{
    QFETCH(QByteArray, name);
    const QByteArray text = reportOfUser(name);
    const QByteArray redacted = checked(text);
    QVERIFY(!redacted.isEmpty());
    const int changed = changedLines(text, redacted);
    QVERIFY2(changed <= 52, QByteArray::number(changed));
}

void HostileRedactionTest::longName()
{
    for (const QByteArray &part :
         {QByteArray("x"), QByteArray("Lindmoor"), QByteArray("a b "), QByteArray("~1"), QByteArray("\xc4\xb0")}) {
        const QByteArray name = part.repeated(100000 / part.size());
        const QByteArray redacted = checked(reportOfUser(name));
        QVERIFY(!redacted.isEmpty());
        if (!part.contains('~'))
            QVERIFY(!redacted.contains(part.repeated(2000)));
    }
}

void HostileRedactionTest::longLines_data()
{
    QTest::addColumn<QByteArray>("part");
    for (const char *part : {"a", "1", "f", ":", ".", "-", "\\", "/", "%", "=", "@", "1.", "1.2.3.4.", "::", "fe80::",
                             "00:", "00-", "ff:", "a.b.", "\\\\a", "C:\\Users\\", "C:\\Users\\a\\", "a@b.", "http://",
                             "http://a:b@", "password=", "Bearer ", "eyJ", "eyJ.", "-----BEGIN A KEY-----", "%41",
                             "%", "a~1", "user-", "user-1", "user-1 ", "Server=a;Password=", "AKIA", "ghp_",
                             "\xc4\xb0", "\xcc\x88", "\xff"})
        QTest::newRow(qPrintable(QString::fromUtf8(part))) << QByteArray(part);
}

// Time in proportion to the text: otherwise the test would reach its limit.
void HostileRedactionTest::longLines()
{
    QFETCH(QByteArray, part);
    constexpr int size = 100000 / share;
    const QByteArray line = part.repeated(size / part.size());
    QVERIFY(!checked(line).isEmpty());
    QVERIFY(!checked("User name:                    " + line.left(1000) + '\n' + line + '\n').isEmpty());
    QVERIFY(!checked((part + '\n').repeated(50000 / share / (part.size() + 1))).isEmpty());
}

void HostileRedactionTest::slowPatterns()
{
    const QByteArray text = QByteArray((1 << 20) / share, 'a') + '\n';
    RedactionOptions options;
    options.hide = QStringList {QStringLiteral("*a*a*a*a*b"),
                                QStringLiteral("?*?*?*?*b"),
                                QStringLiteral("*[ab]*[ab]*[ab]*c"),
                                QStringLiteral("[") + QString(200, QLatin1Char('a')),
                                QString(128, QLatin1Char('*')) + QLatin1Char('b'),
                                QStringLiteral("*a").repeated(127) + QLatin1Char('b')};
    QCOMPARE(checked(text, options), text);
    options.keep = options.hide;
    options.hide = QStringList {QStringLiteral("b")};
    QCOMPARE(checked(text, options), text);
}

void HostileRedactionTest::manyEntries()
{
    RedactionOptions options;
    for (int i = 0; i < 2000; ++i) {
        options.hide += QStringLiteral("eisvogel%1").arg(i);
        options.keep += QStringLiteral("falke%1*").arg(i);
    }
    const QByteArray text = reportOfUser("eisvogel1999");
    const QByteArray redacted = checked(text, options);
    QVERIFY(!redacted.isEmpty());
    QVERIFY(!redacted.contains("eisvogel"));
}

// What is no text stays as it is, and so do the lines around it.
void HostileRedactionTest::bytesThatAreNoText()
{
    const QByteArray noise("\xff\xfe\x80\0\xc3\x01\xed\xa0\x80", 9);
    const QByteArray text = "a\n" + noise + '\n' + workstationText() + noise + '\n';
    const QByteArray redacted = checked(text);
    QVERIFY(redacted.startsWith("a\n" + noise + '\n'));
    QVERIFY(redacted.endsWith('\n' + noise + '\n'));
    QVERIFY(!redacted.contains("MESSDATEN"));
    const QByteArray inside = checked("User name:                    Lindmoor\n" + separatorLine()
                                      + "\nC:\\Users\\lind\0moor\\" + noise + "\\a\n");
    QVERIFY(!inside.isEmpty());
}

void HostileRedactionTest::changedBytes()
{
    const QByteArray original = contentsOf(QStringLiteral(PROJECT_DIR "/docs/example-report.txt")).left(20000);
    std::mt19937 random(16); // NOLINT(cert-msc51-cpp): the same changes in each run
    for (int i = 0; i < 40 / share; ++i) {
        QByteArray text = original;
        for (int change = 0; change < 20; ++change) {
            const int at = int(random() % unsigned(text.size()));
            const int length = int(random() % 40);
            if (random() % 2 == 0)
                text.insert(at, text.mid(int(random() % unsigned(text.size())), length));
            else
                text[at] = char(random());
        }
        QVERIFY2(!checked(text).isEmpty(), QByteArray::number(i));
    }
}

TEST_WITHOUT_APPLICATION(HostileRedactionTest);
#include "tst_hostile_redaction.moc"
