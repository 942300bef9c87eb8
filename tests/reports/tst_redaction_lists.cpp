// Words and patterns to hide and to keep.

#include "document_texts.h"
#include "redaction_rules.h"
#include "test_main.h"
#include "vkReports.h"

using namespace velkor::Reports;

class RedactionListsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void errors_data();
    void errors();
    void wrongEntriesAreIgnored();
    void hide_data();
    void hide();
    void hiddenWordsHaveAliases();
    void hiddenPartsOfFacts();
    void keep_data();
    void keep();
    void hideHasPrecedence();
    void redactedAgain();
};

namespace {

QString text(const char *utf8) { return QString::fromUtf8(utf8); }

RedactionOptions lists(const QStringList &hide, const QStringList &keep = {})
{
    RedactionOptions options;
    options.hide = hide;
    options.keep = keep;
    return options;
}

QByteArray redactedText(const QByteArray &utf8, const RedactionOptions &options)
{
    return redact({read(utf8)}, options).documents.front().bytes();
}

QByteArray workstationText() { return contentsOf(QStringLiteral(REPORTS_DATA_DIR "/workstation.txt")); }

} // namespace

void RedactionListsTest::errors_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<bool>("isRight");
    QTest::newRow("word") << text("Eisvogel") << true;
    QTest::newRow("several words") << text("Projekt Eisvogel 7") << true;
    QTest::newRow("pattern") << text("*-eis?[0-9]*") << true;
    QTest::newRow("characters of expressions") << text("a.b+c(d)$^|{}") << true;
    QTest::newRow("256 characters") << QString(256, QLatin1Char('x')) << true;
    QTest::newRow("257 characters") << QString(257, QLatin1Char('x')) << false;
    QTest::newRow("line feed") << text("a\nb") << false;
    QTest::newRow("carriage return") << text("a\rb") << false;
    QTest::newRow("nothing") << QString() << false;
}

void RedactionListsTest::errors()
{
    QFETCH(QString, entry);
    QFETCH(bool, isRight);
    const QString error = redactionEntryError(entry);
    QVERIFY2(error.isEmpty() == isRight, qPrintable(error));
}

void RedactionListsTest::wrongEntriesAreIgnored()
{
    const QByteArray line = QByteArray(300, 'x') + "\nab\n";
    const QStringList wrong = {QString(257, QLatin1Char('x')), text("a\nb"), QString()};
    QCOMPARE(redactedText(line, lists(wrong)), line);
    QCOMPARE(redactedText(line, lists({}, wrong)), line);
    QVERIFY(redactedText(line, lists(wrong + QStringList(text("ab")))) != line);
}

void RedactionListsTest::hide_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char *name, const char *entry, const char *line, const char *expected) {
        QTest::newRow(name) << text(entry) << QByteArray(line) << QByteArray(expected);
    };
    row("word", "Eisvogel", "The plan Eisvogel is late.\n", "The plan word-1 is late.\n");
    row("other cases", "eisVOGEL", "Eisvogel, EISVOGEL\n", "word-1, word-1\n");
    row("umlauts in other cases", "G\xc3\xbcnther", "G\xc3\x9cNTHER\n", "word-1\n");
    row("Turkish i", "\xc4\xb0lkay", "\xc4\xb1LKAY ilkay Ilkay\n", "word-1 word-1 word-1\n");
    row("several words", "plan Eisvogel", "The plan Eisvogel is late.\n", "The word-1 is late.\n");
    row("characters of expressions", "a.b+(c", "a.b+(c axb+(c\n", "word-1 axb+(c\n");
    row("in a path", "Eisvogel", "D:\\Work\\Eisvogel\\a.dll\n", "D:\\Work\\word-1\\a.dll\n");
    row("pattern with any number of characters", "eis*", "eisvogel noteis eis\n", "word-1 noteis word-2\n");
    row("pattern with one character", "eis?", "eis eisv eisvo\n", "eis word-1 eisvo\n");
    row("pattern with one of several characters", "eis[vw]", "eisv EISW eisx\n", "word-1 word-2 eisx\n");
    row("pattern with a range", "eis[0-9]", "eis7 eisx\n", "word-1 eisx\n");
    row("special characters as a text", "[[]eis 3]", "x[Eis 3]x eis 3\n", "xword-1x eis 3\n");
    row("special characters in a pattern", "eis[*]?", "eis*7 eis77 eis*77\n", "word-1 eis77 eis*77\n");
    row("pattern of a whole word", "?is", "eis meis eise\n", "word-1 meis eise\n");
    row("another word", "Eisvogel", "Falke\n", "Falke\n");
}

void RedactionListsTest::hide()
{
    QFETCH(QString, entry);
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, expected);
    QCOMPARE(redactedText(line, lists({entry})), expected);
}

void RedactionListsTest::hiddenWordsHaveAliases()
{
    const Redaction redaction
        = redact({read("proj-a proj-b PROJ-A\n"), read("Falke proj-b\n")}, lists({text("proj-?"), text("falke")}));
    QCOMPARE(redaction.documents[0].bytes(), QByteArray("word-1 word-2 word-1\n"));
    QCOMPARE(redaction.documents[1].bytes(), QByteArray("word-3 word-2\n"));
    QCOMPARE(redaction.aliases.size(), std::size_t(3));
    for (const Alias &alias : redaction.aliases) {
        QCOMPARE(alias.kind, AliasKind::Word);
        QCOMPARE(alias.reasons, Reasons(Reason::Hidden));
    }
    QCOMPARE(redaction.aliases[0].count, 2);
    QStringList spellings = redaction.aliases[0].spellings;
    spellings.sort();
    QCOMPARE(spellings, QStringList({text("PROJ-A"), text("proj-a")}));
}

// What is hidden in the value of a fact is gone, and the rest of the report stays.
void RedactionListsTest::hiddenPartsOfFacts()
{
    const Document document = read(workstationText());
    const Redaction without = redact({document});
    const Redaction redaction = redact({document}, lists({text("Fujitsu"), text("ESPRIMO*"), text("P3155dn")}));
    const Document &redacted = redaction.documents.front();
    QCOMPARE(flawOfRedaction(document, redacted), QString());
    QVERIFY(workstationText().toLower().contains("fujitsu"));
    QVERIFY(!redacted.text().toLower().contains("fujitsu"));
    QVERIFY(!redacted.text().toLower().contains("esprimo"));
    const QList<QByteArray> lines = redacted.text().split('\n');
    const QList<QByteArray> others = without.documents.front().text().split('\n');
    QCOMPARE(lines.size(), others.size());
    for (int i = 0; i < lines.size(); ++i) {
        const QByteArray line = others[i].toLower();
        if (!line.contains("fujitsu") && !line.contains("esprimo") && !line.contains("p3155dn")
            && !line.contains("printer"))
            QVERIFY2(lines[i] == others[i] || others[i].contains("printer-"), lines[i].constData());
    }
}

void RedactionListsTest::keep_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QByteArray>("kept");
    QTest::newRow("host") << text("birkental-pc07") << QByteArray("NetBios name:                 BIRKENTAL-PC07\n");
    QTest::newRow("pattern for a host") << text("BIRKENTAL-PC??")
                                        << QByteArray("NetBios name:                 BIRKENTAL-PC07\n");
    QTest::newRow("user") << text("j\xc3\xb6rn") << QByteArray("User name:                    J\xc3\xb6rn\n");
    QTest::newRow("label") << text("MESSDATEN")
                           << QByteArray("E:\\ removable media      FAT32  MESSDATEN  Free: 11.7 GByte");
    QTest::newRow("address") << text("192.0.2.57") << QByteArray("192.0.2.57 , 255.255.255.0 , ");
    QTest::newRow("product id") << text("00330-50000-00000-AAOEM")
                                << QByteArray("ProductId:              00330-50000-00000-AAOEM\n");
}

void RedactionListsTest::keep()
{
    QFETCH(QString, entry);
    QFETCH(QByteArray, kept);
    const QByteArray original = workstationText();
    QVERIFY(original.contains(kept));
    QVERIFY(!redactedText(original, {}).contains(kept));
    QVERIFY(redactedText(original, lists({}, {entry})).contains(kept));
}

void RedactionListsTest::hideHasPrecedence()
{
    QCOMPARE(redactedText("Eisvogel\n", lists({text("Eisvogel")}, {text("eisvogel")})), QByteArray("word-1\n"));
    QCOMPARE(redactedText("Eisvogel\n", lists({text("eis*")}, {text("*vogel")})), QByteArray("word-1\n"));
}

void RedactionListsTest::redactedAgain()
{
    const QStringList hide
        = {text("Fujitsu"), text("*-?"), text("user*"), text("word"), text("1"), text("[a-z]*-[0-9]*")};
    for (const QByteArray &key : {QByteArray(), QByteArray("key")}) {
        RedactionOptions options = lists(hide, {text("Microsoft"), text("Intel*")});
        options.key = key;
        const QByteArray once = redactedText(workstationText(), options);
        QCOMPARE(redactedText(once, options), once);
    }
}

TEST_WITHOUT_APPLICATION(RedactionListsTest);
#include "tst_redaction_lists.moc"
