// Texts of strangers in each form. The expected texts follow from CommonMark, GitHub's tables,
// HTML and the rules of spreadsheets.

#include "neutral_text.h"
#include "test_main.h"

#include <QtCore/QUrl>

using namespace velkor::Reports;

class NeutralTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void terminal_data();
    void terminal();
    void html_data();
    void html();
    void codeSpan_data();
    void codeSpan();
    void codeBlock_data();
    void codeBlock();
    void table_data();
    void table();
    void everyUnit();
};

namespace {

QString u(const char16_t *text)
{
    return QString::fromUtf16(text);
}

void row(const char *name, const QString &text, const QString &expected)
{
    QTest::newRow(name) << text << expected;
}

void columns()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
}

} // namespace

void NeutralTextTest::terminal_data()
{
    columns();
    row("nothing", QString(), QString());
    row("letters of several scripts stay", u(u"Größe 日本 \U0001f600 عربي"), u(u"Größe 日本 \U0001f600 عربي"));
    row("a line feed stays", u(u"a\nb"), u(u"a\nb"));
    row("a backslash stays", u(u"C:\\x1b"), u(u"C:\\x1b"));
    row("escape", u(u"\x1b[31m"), u(u"\\x1b[31m"));
    row("a link of OSC 8", u(u"\x1b]8;;http://a\x1b\\b\x1b]8;;\x07"), u(u"\\x1b]8;;http://a\\x1b\\b\\x1b]8;;\\x07"));
    row("CSI as one character", u(u"\u009b31m"), u(u"\\x9b31m"));
    row("carriage return, tab, form feed, backspace", u(u"\r\t\f\b"), u(u"\\x0d\\x09\\x0c\\x08"));
    row("delete and the ends of C1", u(u"\x7f\u0080\u009f"), u(u"\\x7f\\x80\\x9f"));
    row("a null", QString(QChar(0)), u(u"\\x00"));
    row("a no-break space stays", u(u"\u00a0"), u(u"\u00a0"));
    row("overrides and isolates", u(u"\u202e\u202a\u2066\u2069\u200f\u200e\u061c"),
        u(u"\\u202e\\u202a\\u2066\\u2069\\u200f\\u200e\\u061c"));
    row("characters without a width", u(u"ad\u200bmin\ufeff\u00ad\u2060"), u(u"ad\\u200bmin\\ufeff\\xad\\u2060"));
    row("tags, and a character after them", u(u"\U000e0069\U000e007f\U000e0100"), u(u"\\udb40\\udc69\\udb40\\udc7f\U000e0100"));
    row("noncharacters", u(u"a\ufffe\uffff\ufffd"), u(u"a\\ufffe\\uffff\ufffd"));
    row("neighbours of those stay", u(u"\u200d\u2010\u2030\u2070"), u(u"\u200d\u2010\u2030\u2070"));
    row("separators of lines and paragraphs", u(u"\u2028\u2029"), u(u"\\u2028\\u2029"));
    row("a high surrogate alone", QString(QChar(0xd83d)) + QLatin1Char('a'), u(u"\\ud83da"));
    row("a low surrogate alone", QLatin1Char('a') + QString(QChar(0xde00)), u(u"a\\ude00"));
    row("two high surrogates and a low one", QString(QChar(0xd83d)) + u(u"\U0001f600"), u(u"\\ud83d\U0001f600"));
}

void NeutralTextTest::terminal()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(terminalText(text), expected);
}

void NeutralTextTest::html_data()
{
    columns();
    row("nothing", QString(), QString());
    row("markup", u(u"<b title=\"x\" id='y'>&amp;</b>"),
        u(u"&lt;b title=&quot;x&quot; id=&#39;y&#39;&gt;&amp;amp;&lt;/b&gt;"));
    row("a line feed stays", u(u"a\nb"), u(u"a\nb"));
    row("a carriage return and escape", u(u"\r\x1b"), u(u"\\x0d\\x1b"));
    row("an override", u(u"\u202e<"), u(u"\\u202e&lt;"));
}

void NeutralTextTest::html()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(htmlText(text), expected);
}

void NeutralTextTest::codeSpan_data()
{
    columns();
    row("nothing", QString(), u(u"` `"));
    row("a word", u(u"a"), u(u"`a`"));
    row("a mention, an issue and a link", u(u"@all #1 [a](b)"), u(u"`@all #1 [a](b)`"));
    row("a backslash at the end", u(u"C:\\"), u(u"`C:\\`"));
    row("a backtick inside", u(u"a`b"), u(u"``a`b``"));
    row("a backtick at the beginning", u(u"`a"), u(u"`` `a ``"));
    row("a backtick at the end", u(u"a`"), u(u"`` a` ``"));
    row("two and three backticks", u(u"a``b```c"), u(u"````a``b```c````"));
    row("eight backticks", QString(8, QLatin1Char('`')),
        QString(9, QLatin1Char('`')) + QLatin1Char(' ') + QString(8, QLatin1Char('`')) + QLatin1Char(' ')
            + QString(9, QLatin1Char('`')));
    row("nine backticks", QString(9, QLatin1Char('`')), QLatin1Char('`') + u(u"\\x60").repeated(9) + QLatin1Char('`'));
    row("spaces at both ends", u(u" a "), u(u"`  a  `"));
    row("only spaces", u(u"  "), u(u"`  `"));
    row("a line feed", u(u"a\n# b"), u(u"`a\\x0a# b`"));
    row("carriage returns", u(u"a\r\nb"), u(u"`a\\x0d\\x0ab`"));
    row("the end of a cell", u(u"a|b\\|c"), u(u"`a\\x7cb\\\\x7cc`"));
}

void NeutralTextTest::codeSpan()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(markdownCode(text), expected);
}

void NeutralTextTest::codeBlock_data()
{
    columns();
    row("nothing", QString(), u(u"```\n\n```\n"));
    row("a line", u(u"a"), u(u"```\na\n```\n"));
    row("two lines with their ends", u(u"a\nb\n"), u(u"```\na\nb\n```\n"));
    row("a fence", u(u"```\n@all"), u(u"````\n```\n@all\n````\n"));
    row("tildes are no fence of ours", u(u"~~~"), u(u"```\n~~~\n```\n"));
    row("a carriage return is an end of a line", u(u"a\r```"), u(u"````\na\\x0d```\n````\n"));
    row("nine backticks", QString(9, QLatin1Char('`')), u(u"```\n") + u(u"\\x60").repeated(9) + u(u"\n```\n"));
}

void NeutralTextTest::codeBlock()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(markdownBlock(text), expected);
}

void NeutralTextTest::table_data()
{
    columns();
    for (const char *text : {"", "a", "a=1", "1", "-1", "+1", "-1.5", "-1,5", "+1e5", "-1E-5", "1-1", "'=1", "3=4", "(=1)"})
        row(qPrintable(QStringLiteral("stays: %1").arg(QLatin1String(text))), QString::fromLatin1(text), QString::fromLatin1(text));
    for (const char16_t *text : {u"=1", u"+a", u"-a", u"@a", u"-", u"+", u"-1-1", u"-1.", u"-.5", u"-1e", u"+1+cmd|' /C calc'!A0",
                                 u" =1", u"\t=1", u"\r=1", u"\n=1", u"\u00a0=1", u"\u200b=1", u"\ufeff=1", u"\tword",
                                 u"\uff1d1", u"\uff0ba", u"\uff0da", u"\uff20a", u"\ufe661", u"\u22121a", u" -1", u"-\u0661"})
        row(qPrintable(QStringLiteral("formula: %1").arg(QString::fromLatin1(QUrl::toPercentEncoding(u(text))))), u(text), QLatin1Char('\'') + u(text));
}

void NeutralTextTest::table()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(tableText(text), expected);
}

// No unit of UTF-16 gets through that ends a line or moves the cursor.
void NeutralTextTest::everyUnit()
{
    for (int unit = 0; unit < 0x10000; ++unit) {
        const QString text = QLatin1Char('a') + QString(QChar(ushort(unit))) + QLatin1Char('b');
        const QString shown = markdownCode(text).mid(1);
        for (const QChar next : shown)
            QVERIFY2(next.isPrint() || next.category() == QChar::Other_Format || next.category() == QChar::Other_NotAssigned
                         || next.category() == QChar::Other_PrivateUse || next.category() == QChar::Separator_Space,
                     qPrintable(QString::number(unit, 16)));
        QCOMPARE(QString::fromUtf8(terminalText(text).toUtf8()), terminalText(text));
    }
}

TEST_WITHOUT_APPLICATION(NeutralTextTest);
#include "tst_neutral_text.moc"
