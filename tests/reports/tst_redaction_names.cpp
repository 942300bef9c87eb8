// The letters of names, the search for many names, their spellings, and which names are of the same thing.

#include "redaction/identities.h"
#include "redaction/name_search.h"
#include "redaction/spellings.h"
#include "test_main.h"

#include <algorithm>

using namespace velkor::Reports;

Q_DECLARE_METATYPE(velkor::Reports::AliasKind)
Q_DECLARE_METATYPE(velkor::Reports::Boundaries)
Q_DECLARE_METATYPE(velkor::Reports::Identities::Rank)

class RedactionNamesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void equalLetters_data();
    void equalLetters();
    void differentLetters_data();
    void differentLetters();
    void foldedText_data();
    void foldedText();
    void foldedStrings();
    void symbols_data();
    void symbols();
    void everyByteIsRead_data();
    void everyByteIsRead();
    void letterOfTwoSymbols();
    void skipTo();
    void ascii();
    void search_data();
    void search();
    void searchOfNothing();
    void searchAgain();
    void firstOfEqualSpellings();
    void longestMatch_data();
    void longestMatch();
    void longNames_data();
    void longNames();
    void longOwnWords_data();
    void longOwnWords();
    void spellings_data();
    void spellings();
    void ordinaryNames_data();
    void ordinaryNames();
    void variants_data();
    void variants();
    void wordsAsOneText_data();
    void wordsAsOneText();
    void wordsOfNames_data();
    void wordsOfNames();
    void shortNames_data();
    void shortNames();
    void shortNamesOf_data();
    void shortNamesOf();
    void united_data();
    void united();
    void unitedInAnyOrder();
    void nameOfLowestRank();
    void searchedAndUnsearched();
    void bytes();
    void noIdentities();
    void unitedAreFound();
};

namespace {

std::string_view viewOf(const QByteArray &text) { return {text.constData(), std::size_t(text.size())}; }

QString asString(const std::u16string &symbols) { return QString::fromStdU16String(symbols); }

QString utf8(const char *text) { return QString::fromUtf8(text); }

char letterOf(SymbolClass kind)
{
    switch (kind) {
    case SymbolClass::Lower:
        return 'l';
    case SymbolClass::Upper:
        return 'U';
    case SymbolClass::Digit:
        return '9';
    case SymbolClass::Ideograph:
        return 'I';
    case SymbolClass::Other:
        break;
    }
    return '-';
}

/// Each symbol as the letter of its class, with the offsets of its bytes.
QByteArray describedSymbols(const QByteArray &text)
{
    QByteArrayList list;
    SymbolReader reader(viewOf(text));
    Symbol symbol;
    while (reader.next(symbol))
        list.append(letterOf(symbol.kind) + QByteArray::number(symbol.begin) + '-' + QByteArray::number(symbol.end));
    return list.join(' ');
}

QByteArray describedPlaces(const QByteArray &text, const std::vector<NamePlace> &places)
{
    QByteArrayList list;
    for (const NamePlace &place : places)
        list.append(QByteArray::number(place.begin) + ':' + text.mid(place.begin, place.end - place.begin));
    return list.join('|');
}

QByteArray found(NameSearch &search, const QByteArray &text)
{
    std::vector<NamePlace> places;
    search.find(viewOf(text), places);
    return describedPlaces(text, places);
}

QByteArray foundName(const std::u16string &symbols, Boundaries boundaries, const QByteArray &text)
{
    NameSearch search;
    search.add(symbols, 0, boundaries);
    search.build();
    return found(search, text);
}

QByteArray foundSpellings(AliasKind kind, const QString &name, const QByteArray &text)
{
    NameSearch search;
    for (const Spelling &spelling : spellingsOf(kind, name, true))
        search.add(spelling.symbols, 0, spelling.boundaries);
    search.build();
    return found(search, text);
}

const char *const jorn = "J\xC3\xB6rn";

} // namespace

void RedactionNamesTest::equalLetters_data()
{
    QTest::addColumn<QByteArray>("one");
    QTest::addColumn<QByteArray>("other");
    const auto row
        = [](const char *name, const QByteArray &one, const QByteArray &other) { QTest::newRow(name) << one << other; };
    row("case of ASCII", "JORN", "jorn");
    row("case of Latin-1", "\xC3\x96", "\xC3\xB6");
    row("case of Greek", "\xCE\xA9", "\xCF\x89");
    row("case of Cyrillic", "\xD0\x96", "\xD0\xB6");
    row("accent", "\xC3\xB6", "o");
    row("accents of one letter", "\xC3\xA9", "\xC3\xA8");
    row("two accents (Vietnamese)", "\xE1\xBA\xBF", "e");
    row("combining mark", "o\xCC\x88", "\xC3\xB6");
    row("two combining marks", "o\xCC\x88\xCC\x81", "o");
    row("dotted capital i", "\xC4\xB0", "i");
    row("dotless small i", "\xC4\xB1", "i");
    row("dotless small and dotted capital i", "\xC4\xB1", "\xC4\xB0");
    row("capital I and dotless i", "I", "\xC4\xB1");
    row("capitals of sharp s", "STRASSE",
        "Stra\xC3\237e");
    row("capital sharp s", "STRA\xE1\xBA\236E", "stra\xC3\237e");
    row("percent code of ASCII", "%4Aorn", "jorn");
    row("small digits of a percent code", "%4aorn", "jorn");
    row("percent code at the end", "jor%6E", "jorn");
    row("percent codes of a letter of two bytes", "J%C3%B6rn", jorn);
    row("percent codes of a letter of three bytes", "%E5%B1%B1", "\xE5\xB1\xB1");
    row("percent code of a combining mark", "o%CC%88", "o");
    row("percent code of Latin-1", "J%F6rn", jorn);
    row("byte of Latin-1", "J\xF6rn", jorn);
    row("capital of Latin-1", "\xD6", "o");
    row("Latin-1 at the end", "Ren\xE9", "rene");
    row("Latin-1 before a letter of UTF-8", "\xF6\xC3\xB6", "oo");
    row("two blanks", "a  b", "a b");
    row("tabulator", "a\tb", "a b");
    row("no-break space", "a\xC2\240b", "a b");
    row("ideographic space", "a\xE3\x80\200b", "a b");
    row("percent code of a blank", "a%20b", "a b");
    row("blanks of all kinds", "a %20\t\xC2\xA0 b", "a b");
}

void RedactionNamesTest::equalLetters()
{
    QFETCH(QByteArray, one);
    QFETCH(QByteArray, other);
    QCOMPARE(asString(folded(viewOf(one))), asString(folded(viewOf(other))));
    QVERIFY(!folded(viewOf(one)).empty());
}

void RedactionNamesTest::differentLetters_data()
{
    QTest::addColumn<QByteArray>("one");
    QTest::addColumn<QByteArray>("other");
    const auto row
        = [](const char *name, const QByteArray &one, const QByteArray &other) { QTest::newRow(name) << one << other; };
    row("letters", "a", "b");
    row("letter and digit", "o", "0");
    row("l and i", "l", "i");
    row("alphabets", "a", "\xD0\xB0");
    row("blank and nothing", "a b", "ab");
    row("blank and line end", "a b", "a\nb");
    row("blanks around a line end", "a b", "a \n b");
    row("blank and carriage return", "a b", "a\r\nb");
    row("hyphen and blank", "a-b", "a b");
    row("NUL and nothing", QByteArray("a\0b", 3), "ab");
    row("NUL and the end", QByteArray("a\0b", 3), "a");
    row("supplementary letters", "\xF0\x9F\x98\x80", "\xF0\x9F\x98\x81");
    row("ideographs", "\xE5\xB1\xB1", "\xE7\x94\xB0");
    row("percent of a percent code", "%256A", "j");
}

void RedactionNamesTest::differentLetters()
{
    QFETCH(QByteArray, one);
    QFETCH(QByteArray, other);
    QVERIFY(folded(viewOf(one)) != folded(viewOf(other)));
}

void RedactionNamesTest::foldedText_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &text, const char *expected) {
        QTest::newRow(name) << text << utf8(expected);
    };
    row("nothing", "", "");
    row("one symbol", "J", "j");
    row("name", "J\xC3\xB6rn Lindmoor", "jorn lindmoor");
    row("digits and punctuation", "a_b-C.1@2", "a_b-c.1@2");
    row("percent sign alone", "%", "%");
    row("percent sign and one digit", "%4", "%4");
    row("percent sign and no hexadecimal digit", "%4g", "%4g");
    row("percent sign and no digits", "100%zz", "100%zz");
    row("percent sign before a percent code", "%%4A", "%j");
    row("only a combining mark", "\xCC\x88", "");
    row("combining mark first", "\xCC\210a", "a");
    row("combining mark last", "a\xCC\x88", "a");
}

void RedactionNamesTest::foldedText()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, expected);
    QCOMPARE(asString(folded(viewOf(text))), expected);
}

void RedactionNamesTest::foldedStrings()
{
    QCOMPARE(asString(folded(QString())), QString());
    const QString names[] = {utf8("J\xC3\xB6rn Lindmoor"), utf8("\xC4\xB0lker"), utf8("\xE5\xB1\xB1\xE7\x94\xB0"),
                             utf8("\xF0\x9F\x98\x80x")};
    for (const QString &name : names)
        QCOMPARE(asString(folded(name)), asString(folded(viewOf(name.toUtf8()))));
}

void RedactionNamesTest::symbols_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char *name, const QByteArray &text, const QByteArray &expected) {
        QTest::newRow(name) << text << expected;
    };
    row("nothing", "", "");
    row("small letter", "a", "l0-1");
    row("capital letter", "A", "U0-1");
    row("digit", "7", "90-1");
    row("punctuation", "-", "-0-1");
    row("underscore", "_", "-0-1");
    row("NUL", QByteArray("\0", 1), "-0-1");
    row("capital letter of two bytes", "a\xC3\x96z", "l0-1 U1-3 l3-4");
    row("dotted capital i", "\xC4\xB0", "U0-2");
    row("dotless small i", "\xC4\xB1", "l0-2");
    row("Cyrillic", "\xD0\x96\xD0\xB6", "U0-2 l2-4");
    row("Arabic, without cases", "\xD8\xB9", "l0-2");
    row("Hebrew, without cases", "\xD7\xA9", "l0-2");
    row("Chinese", "\xE5\xB1\xB1", "I0-3");
    row("Hiragana", "\xE3\x81\x82", "I0-3");
    row("Katakana", "\xE3\x82\xA2", "I0-3");
    row("percent code", "x%4Ay", "l0-1 U1-4 l4-5");
    row("percent codes of one letter", "%C3%B6y", "l0-6 l6-7");
    row("no percent code", "%4", "-0-1 91-2");
    row("byte of Latin-1", "J\xF6rn", "U0-1 l1-2 l2-3 l3-4");
    row("capital of Latin-1", "\xD6", "U0-1");
    row("blank", "a b", "l0-1 -1-2 l2-3");
}

void RedactionNamesTest::symbols()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    QCOMPARE(describedSymbols(text), expected);
}

void RedactionNamesTest::everyByteIsRead_data()
{
    QTest::addColumn<QByteArray>("text");
    for (int byte = 0x80; byte < 0x100; ++byte) {
        const char c = char(byte);
        QTest::addRow("byte %02x alone", unsigned(byte)) << QByteArray(1, c);
        QTest::addRow("byte %02x before a letter", unsigned(byte)) << c + QByteArray("z");
    }
    QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80z");
    QTest::newRow("too long") << QByteArray("\xC0\xAFz");
    QTest::newRow("beyond Unicode") << QByteArray("\xF4\x90\x80\x80z");
    QTest::newRow("three of four bytes") << QByteArray("\xF0\x9F\x98z");
    QTest::newRow("three of four bytes at the end") << QByteArray("\xF0\x9F\x98");
    QTest::newRow("half of a percent-coded letter") << QByteArray("%C3z");
    QTest::newRow("half of a percent-coded letter at the end") << QByteArray("%C3");
    QTest::newRow("letter half coded") << QByteArray("%C3\xB6z");
    QTest::newRow("percent sign at the end") << QByteArray("z%");
}

/// The symbols are in order, and the letter behind the damaged bytes is read.
void RedactionNamesTest::everyByteIsRead()
{
    QFETCH(QByteArray, text);
    SymbolReader reader(viewOf(text));
    Symbol symbol;
    Symbol last;
    int at = 0;
    int lastBegin = 0;
    while (reader.next(symbol)) {
        last = symbol;
        QVERIFY(symbol.begin >= at || (symbol.begin == lastBegin && symbol.end == at)); // or the second one of a letter
        lastBegin = symbol.begin;
        QVERIFY(symbol.end > symbol.begin);
        QVERIFY(symbol.end <= text.size());
        at = symbol.end;
    }
    QCOMPARE(int(reader.position()), text.size());
    if (text.endsWith('z')) {
        QCOMPARE(int(last.code), int(u'z'));
        QCOMPARE(last.begin, text.size() - 1);
    }
}

void RedactionNamesTest::letterOfTwoSymbols()
{
    const QByteArray text = "a\xC3\237e";
    SymbolReader reader(viewOf(text));
    Symbol symbol;
    QVERIFY(reader.next(symbol));
    QVERIFY(!reader.isInLetter());
    QVERIFY(reader.next(symbol));
    QCOMPARE(int(symbol.code), int(u's'));
    QCOMPARE(symbol.begin, 1);
    QCOMPARE(symbol.end, 3);
    QVERIFY(reader.isInLetter());
    QVERIFY(reader.next(symbol));
    QCOMPARE(int(symbol.code), int(u's'));
    QCOMPARE(symbol.begin, 1);
    QCOMPARE(symbol.end, 3);
    QVERIFY(!reader.isInLetter());
    QVERIFY(reader.next(symbol));
    QCOMPARE(int(symbol.code), int(u'e'));
    QVERIFY(!reader.next(symbol));
    QVERIFY(!reader.next(symbol));
}

void RedactionNamesTest::skipTo()
{
    const QByteArray text = "ab cd";
    SymbolReader reader(viewOf(text));
    Symbol symbol;
    QCOMPARE(int(reader.position()), 0);
    QVERIFY(reader.next(symbol));
    QCOMPARE(int(reader.position()), 1);
    reader.skipTo(4);
    QCOMPARE(int(reader.position()), 4);
    QVERIFY(reader.next(symbol));
    QCOMPARE(int(symbol.code), int(u'd'));
    reader.skipTo(2);
    QVERIFY(reader.next(symbol));
    QCOMPARE(int(symbol.code), int(u' '));
    reader.skipTo(2);
    QVERIFY(reader.next(symbol)); // the blank before it is forgotten
    QCOMPARE(int(symbol.code), int(u' '));
    reader.skipTo(5);
    QVERIFY(!reader.next(symbol));
}

void RedactionNamesTest::ascii()
{
    for (char c = 'a'; c <= 'z'; ++c) {
        const char capital = char(c - 'a' + 'A');
        QCOMPARE(int(foldedAscii(c).code), int(c));
        QCOMPARE(int(foldedAscii(capital).code), int(c));
        QCOMPARE(letterOf(foldedAscii(c).kind), 'l');
        QCOMPARE(letterOf(foldedAscii(capital).kind), 'U');
    }
    for (char c = '0'; c <= '9'; ++c) {
        QCOMPARE(int(foldedAscii(c).code), int(c));
        QCOMPARE(letterOf(foldedAscii(c).kind), '9');
    }
    for (const char c : QByteArray(" !/:@[`{~_-.\\\x7F")) {
        QCOMPARE(int(foldedAscii(c).code), int(c));
        QCOMPARE(letterOf(foldedAscii(c).kind), '-');
    }
    QVERIFY(isWordSymbol(SymbolClass::Lower));
    QVERIFY(isWordSymbol(SymbolClass::Upper));
    QVERIFY(isWordSymbol(SymbolClass::Digit));
    QVERIFY(isWordSymbol(SymbolClass::Ideograph));
    QVERIFY(!isWordSymbol(SymbolClass::Other));
}

void RedactionNamesTest::search_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<Boundaries>("boundaries");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char *title, const QByteArray &name, Boundaries boundaries, const QByteArray &text,
                        const QByteArray &expected) { QTest::newRow(title) << name << boundaries << text << expected; };
    const Boundaries inside = Boundaries::Substring;
    row("nothing", "jorn", inside, "", "");
    row("the whole text", "jorn", inside, "jorn", "0:jorn");
    row("less than the name", "jorn", inside, "jor", "");
    row("at the beginning", "jorn", inside, "jornx", "0:jorn");
    row("at the end", "jorn", inside, "xjorn", "1:jorn");
    row("beside itself", "jorn", inside, "jornjorn", "0:jorn|4:jorn");
    row("after its own beginning", "jorn", inside, "jojorn", "2:jorn");
    row("after its first letter twice", "aab", inside, "aaab", "1:aab");
    row("one symbol", "x", inside, "axb", "1:x");
    row("one symbol, the whole text", "x", inside, "x", "0:x");
    row("letters of UTF-8", "jorn", inside, "xJ\xC3\x96RNy", "1:J\xC3\x96RN");
    row("bytes of Latin-1", "jorn", inside, "xJ\xF6rny", "1:J\xF6rn");
    row("Latin-1 first", "orn", inside, "\xF6rn", "0:\xF6rn");
    row("percent codes", "jorn", inside, "xJ%C3%B6rny", "1:J%C3%B6rn");
    row("percent code first", "jorn", inside, "x%4Aorny", "1:%4Aorn");
    row("percent code last", "jorn", inside, "jor%6E", "0:jor%6E");
    row("combining mark", "jorn", inside, "Jo\xCC\x88rn", "0:Jo\xCC\x88rn");
    row("dotless i first", "ilker", inside, "\xC4\xB1lker", "0:\xC4\xB1lker");
    row("dotted i first", "ilker", inside, "\xC4\xB0LKER", "0:\xC4\xB0LKER");
    row("sharp s", "strasse", inside,
        "Stra\xC3\237e",
        "0:Stra\xC3\237e");
    row("sharp s last", "weiss", inside, "xWei\xC3\x9F", "1:Wei\xC3\x9F");
    row("several blanks", "jorn lindmoor", inside, "jorn \t lindmoor", "0:jorn \t lindmoor");
    row("no blank", "jorn lindmoor", inside, "jornlindmoor", "");
    row("line end", "jorn lindmoor", inside, "jorn\nlindmoor", "");
    row("NUL inside", "jorn", inside, QByteArray("jo\0rn", 5), "");
    row("NUL around", "jorn", inside, QByteArray("\0jorn\0", 6), "1:jorn");
    row("byte that is no letter around", "jorn", inside, "\xFFjorn\xFF", "1:jorn");
    row("supplementary letter", "a\xF0\x9F\x98\x80", inside, "xa\xF0\x9F\x98\x80y", "1:a\xF0\x9F\x98\x80");
    row("another supplementary letter", "a\xF0\x9F\x98\x80", inside, "xa\xF0\x9F\x98\x81y", "");
    row("inside an ordinary word", "indow", inside, "Windows", "1:indow");

    const Boundaries anywhere = Boundaries::Anywhere;
    row("anywhere: alone", "lindmoor", anywhere, "lindmoor", "0:lindmoor");
    row("anywhere: inside a word", "lindmoor", anywhere, "xlindmoory", "1:lindmoor");
    row("anywhere: between digits", "lindmoor", anywhere, "1lindmoor2", "1:lindmoor");
    row("anywhere: inside an ordinary word", "indow", anywhere, "Windows", "");
    row("anywhere: inside an ordinary word in a sentence", "indow", anywhere, "of Windows, too", "");

    const Boundaries word = Boundaries::Word;
    row("word: alone", "jorn", word, "jorn", "0:jorn");
    row("word: before a letter", "jorn", word, "jornx", "");
    row("word: after a letter", "jorn", word, "xjorn", "");
    row("word: before an accented letter", "jorn", word, "jorn\xC3\xA9", "");
    row("word: after a letter of Latin-1", "jorn", word, "\xE9jorn", "");
    row("word: before a capital", "jorn", word, "jornLind", "0:jorn");
    row("word: capital after a small letter", "jorn", word, "myJorn", "2:Jorn");
    row("word: capitals", "jorn", word, "JORNS", "");
    row("word: before a digit", "jorn", word, "jorn2", "0:jorn");
    row("word: after a digit", "jorn", word, "2jorn", "1:jorn");
    row("word: before an underscore", "jorn", word, "jorn_x", "0:jorn");
    row("word: after a point", "jorn", word, "a.jorn", "2:jorn");
    row("word: between NUL", "jorn", word, QByteArray("\0jorn\0", 6), "1:jorn");
    row("word: second of two", "jorn", word, "xjorn jorn", "6:jorn");

    const Boundaries whole = Boundaries::Whole;
    row("whole: alone", "jorn", whole, "jorn", "0:jorn");
    row("whole: in a sentence", "jorn", whole, "is Jorn, too", "3:Jorn");
    row("whole: before a digit", "jorn", whole, "jorn2", "");
    row("whole: after a digit", "jorn", whole, "2jorn", "");
    row("whole: before a capital", "jorn", whole, "jornLind", "");
    row("whole: after a small letter", "jorn", whole, "myJorn", "");
    row("whole: between underscores", "jorn", whole, "_jorn_", "1:jorn");
    row("whole: between hyphens", "jorn", whole, "a-jorn-b", "2:jorn");
    row("whole: one symbol", "x", whole, "a x b", "2:x");
    row("whole: before an accented letter", "jorn", whole, "jorn\xC3\xA9", "");

    const Boundaries component = Boundaries::Component;
    row("component: between backslashes", "jorn", component, "C:\\jorn\\a", "3:jorn");
    row("component: between slashes", "jorn", component, "/a/jorn/b", "3:jorn");
    row("component: last", "jorn", component, "C:\\a\\jorn", "5:jorn");
    row("component: part before a blank", "jorn", component, "C:\\jorn x\\a", "");
    row("component: part after a blank", "jorn", component, "C:\\x jorn\\a", "");
    row("component: part before a hyphen", "jorn", component, "C:\\jorn-x\\a", "");
    row("component: part after a hyphen", "jorn", component, "C:\\x-jorn\\a", "");
    row("component: part before a letter", "jorn", component, "C:\\jornx\\a", "");
    row("component: part after a letter", "jorn", component, "C:\\xjorn\\a", "");
    row("component: in a sentence", "jorn", component, "is jorn there", "");
}

void RedactionNamesTest::search()
{
    QFETCH(QByteArray, name);
    QFETCH(Boundaries, boundaries);
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    QCOMPARE(foundName(folded(viewOf(name)), boundaries, text), expected);
}

void RedactionNamesTest::searchOfNothing()
{
    NameSearch search;
    QVERIFY(search.isEmpty());
    search.build();
    QVERIFY(search.isEmpty());
    QCOMPARE(found(search, "jorn"), QByteArray());
    NameSearch another;
    another.add(u"jorn", 3, Boundaries::Whole);
    another.build();
    QVERIFY(!another.isEmpty());
}

/// What was read before changes nothing, and earlier places are removed.
void RedactionNamesTest::searchAgain()
{
    NameSearch search;
    search.add(u"jorn", 3, Boundaries::Word);
    search.build();
    std::vector<NamePlace> places;
    search.find("a jorn", places);
    QCOMPARE(int(places.size()), 1);
    QCOMPARE(places.front().name, 3);
    search.find("jo", places);
    QVERIFY(places.empty());
    search.find("rn", places);
    QVERIFY(places.empty());
    search.find("jorn", places);
    QCOMPARE(describedPlaces("jorn", places), QByteArray("0:jorn"));
    search.find("", places);
    QVERIFY(places.empty());
}

void RedactionNamesTest::firstOfEqualSpellings()
{
    NameSearch search;
    search.add(u"jorn", 5, Boundaries::Whole);
    search.add(u"jorn", 1, Boundaries::Substring);
    search.build();
    std::vector<NamePlace> places;
    search.find("xjorn jorn", places);
    QCOMPARE(describedPlaces("xjorn jorn", places), QByteArray("6:jorn"));
    QCOMPARE(places.front().name, 5);
}

void RedactionNamesTest::longestMatch_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char *name, const char *names, const QByteArray &text, const QByteArray &expected) {
        QTest::newRow(name) << utf8(names).split(QLatin1Char(',')) << text << expected;
    };
    row("beginning of a longer one", "lind,lindmoor", "xlindmoory", "1:lindmoor");
    row("end of a longer one", "moor,lindmoor", "xlindmoory", "1:lindmoor");
    row("middle of a longer one", "dmo,lindmoor", "xlindmoory", "1:lindmoor");
    row("longer one first", "lindmoor,lind", "xlindmoory", "1:lindmoor");
    row("longer one breaks off", "lind,lindmoor", "lindmoo", "0:lind");
    row("longer one breaks off after a shorter one", "bc,abcd", "abce", "1:bc");
    row("shorter one of two that break off", "c,bcd,abcde", "abcd", "1:bcd");
    row("overlap in part", "abc,cde", "xabcdey", "1:abcde");
    row("three that overlap", "abc,cde,efg", "xabcdefgy", "1:abcdefg");
    row("side by side", "abc,def", "abcdef", "0:abc|3:def");
    row("in the order of the text", "abc,def", "def abc", "0:def|4:abc");
    row("overlap with itself", "aba", "xababay", "1:ababa");
}

void RedactionNamesTest::longestMatch()
{
    QFETCH(QStringList, names);
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    NameSearch search;
    for (int i = 0; i < names.size(); ++i)
        search.add(names[i].toStdU16String(), i, Boundaries::Substring);
    search.build();
    QCOMPARE(found(search, text), expected);
}

void RedactionNamesTest::longNames_data()
{
    QTest::addColumn<int>("length");
    for (const int length : {1, 2, 127, 128, 249, 250, 251, 255, 256, 257, 512, 600})
        QTest::addRow("%d symbols", length) << length;
}

void RedactionNamesTest::longNames()
{
    QFETCH(int, length);
    const QByteArray name = QByteArray("abcdefg hij").repeated(100).left(length - 1) + 'z';
    for (const Boundaries boundaries :
         {Boundaries::Substring, Boundaries::Anywhere, Boundaries::Word, Boundaries::Whole}) {
        const QByteArray text = name.left(length - 1) + "; " + name + ';';
        QCOMPARE(foundName(folded(viewOf(name)), boundaries, text), QByteArray::number(length + 1) + ':' + name);
    }
    const QByteArray blanks = QByteArray(name).replace(" ", QByteArray(300, ' '));
    QCOMPARE(foundName(folded(viewOf(name)), Boundaries::Whole, ';' + blanks), "1:" + blanks);
    const QByteArray coded = "%" + name.left(1).toHex() + name.mid(1);
    QCOMPARE(foundName(folded(viewOf(name)), Boundaries::Whole, ';' + coded), "1:" + coded);
}

void RedactionNamesTest::longOwnWords_data()
{
    QTest::addColumn<int>("length");
    for (const int length : {1, 3, 4, 249, 250, 251, 256}) // 256 is the longest
        QTest::addRow("%d characters", length) << length;
}

void RedactionNamesTest::longOwnWords()
{
    QFETCH(int, length);
    const QByteArray word = QByteArray("eisvogel").repeated(40).left(length - 1) + 'q';
    RedactionOptions options;
    options.hide = QStringList {QString::fromUtf8(word)};
    QVERIFY(redactionEntryError(options.hide.front()).isEmpty());
    QCOMPARE(redact({read("a " + word + " b\n")}, options).documents.front().bytes(), QByteArray("a word-1 b\n"));
}

void RedactionNamesTest::spellings_data()
{
    QTest::addColumn<AliasKind>("kind");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char *title, AliasKind kind, const char *name, const QByteArray &text,
                        const QByteArray &expected) { QTest::newRow(title) << kind << utf8(name) << text << expected; };
    const char *const full = "J\xC3\xB6rn Lindmoor";
    const AliasKind user = AliasKind::User;
    row("the name", user, full, "J\xC3\xB6rn Lindmoor", "0:J\xC3\xB6rn Lindmoor");
    row("capitals", user, full, "J\xC3\x96RN LINDMOOR", "0:J\xC3\x96RN LINDMOOR");
    row("without accents", user, full, "a jorn lindmoor b", "2:jorn lindmoor");
    row("with other accents", user, full, "J\xC3\xB4rn Lindmoor", "0:J\xC3\xB4rn Lindmoor");
    row("transliterated", user, full, "a Joern Lindmoor b", "2:Joern Lindmoor");
    row("percent codes", user, full, "J%C3%B6rn%20Lindmoor", "0:J%C3%B6rn%20Lindmoor");
    row("lost letter", user, full, "a J?rn Lindmoor b", "2:J?rn Lindmoor");
    row("misread letter", user, full, "a J\xC3\x83\xC2\xB6rn Lindmoor b", "2:J\xC3\x83\xC2\xB6rn Lindmoor");
    row("first word", user, full, "a J\xC3\xB6rn b", "2:J\xC3\xB6rn");
    row("first word transliterated", user, full, "a Joern b", "2:Joern");
    row("first word with a lost letter", user, full, "a J?rn b", "2:J?rn");
    row("first word misread", user, full, "a J\xC3\x83\xC2\xB6rn b", "2:J\xC3\x83\xC2\xB6rn");
    row("last word", user, full, "a Lindmoor b", "2:Lindmoor");
    row("joined", user, full, "jornlindmoor", "0:jornlindmoor");
    row("joined with a point", user, full, "jorn.lindmoor", "0:jorn.lindmoor");
    row("initial and last word", user, full, "jlindmoor", "0:jlindmoor");
    row("last word inside a word", user, full, "xlindmoory", "1:lindmoor");
    row("first word inside a word", user, full, "xjorny", "");
    row("three letters", user, "Ada", "a Ada b", "2:Ada");
    row("three letters inside a word", user, "Ada", "xaday", "");
    row("five letters inside a word", user, "Enzio", "xenzioy", "");
    row("six letters inside a word", user, "Enzian", "xenziany", "1:enzian");
    row("six digits", user, "482915", "a 482915 b", "2:482915");
    row("Turkish", user, "Ilkerov", "a \xC4\xB1lkerov b", "2:\xC4\xB1lkerov");
    row("Turkish capitals", user, "\xC4\xB0lkerov", "a ILKEROV b", "2:ILKEROV");
    row("ideographs in a sentence", user, "\xE5\xB1\xB1\xE7\x94\xB0", "\xE5\xB1\xB1\xE7\x94\xB0\xE3\x81\x95",
        "0:\xE5\xB1\xB1\xE7\x94\xB0");
    row("short name of a file", user, "Lindmoorer", "C:\\LINDMO~1\\a", "3:LINDMO~1");
    row("host", AliasKind::Host, "ENZIAN-PC7", "on enzian-pc7.", "3:enzian-pc7");
    row("host with 15 characters of 20", AliasKind::Host, "WORKPLACE-ENZIANBLAU", "on WORKPLACE-ENZIA",
        "3:WORKPLACE-ENZIA");
    row("word of an organisation", AliasKind::Organisation, "Eisvogelwerk GmbH", "an Eisvogelwerk b", "3:Eisvogelwerk");
    row("word of an organisation inside a word", AliasKind::Organisation, "Eisvogelwerk Nordheim", "xeisvogelwerky",
        "");
    row("label of a drive", AliasKind::Label, "Eisvogel", "an Eisvogel b", "3:Eisvogel");
    row("label of a drive inside a word", AliasKind::Label, "Eisvogel", "xeisvogely", "");
    row("folder as a component", AliasKind::Folder, "Eisvogel", "C:\\Eisvogel\\a", "3:Eisvogel");
    row("folder as a word", AliasKind::Folder, "Eisvogel", "an Eisvogel b", "");
    row("folder as a part of a component", AliasKind::Folder, "Eisvogel", "C:\\Eisvogel-2\\a", "");
    row("folder transliterated", AliasKind::Folder, "J\xC3\xB6rgenprojekt", "C:\\Joergenprojekt\\a",
        "3:Joergenprojekt");
    row("folder with a lost letter", AliasKind::Folder, "J\xC3\xB6rgenprojekt", "C:\\J?rgenprojekt\\a",
        "3:J?rgenprojekt");
    row("folder as a short name", AliasKind::Folder, "Eisvogelprojekt", "C:\\EISVOG~1\\a", "3:EISVOG~1");
    row("share as a component", AliasKind::Share, "Eisvogel", "C:\\a\\Eisvogel", "5:Eisvogel");
    row("share as a word", AliasKind::Share, "Eisvogel", "an Eisvogel b", "");
    row("domain", AliasKind::Domain, "eisvogelwerk.example", "at Eisvogelwerk.Example.", "3:Eisvogelwerk.Example");
    row("label of a domain", AliasKind::Domain, "eisvogelwerk.example", "an eisvogelwerk b", "3:eisvogelwerk");
    row("label of a domain inside a word", AliasKind::Domain, "eisvogelwerk.example", "xeisvogelwerky", "");
}

void RedactionNamesTest::spellings()
{
    QFETCH(AliasKind, kind);
    QFETCH(QString, name);
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    QCOMPARE(foundSpellings(kind, name, text), expected);
}

void RedactionNamesTest::ordinaryNames_data()
{
    QTest::addColumn<AliasKind>("kind");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isOrdinary");
    const auto row = [](const char *name, bool isOrdinary, AliasKind kind = AliasKind::User) {
        QTest::addRow("%s, %d", *name == '\0' ? "nothing" : name, int(kind)) << kind << utf8(name) << isOrdinary;
    };
    for (const char *const name : {"", " ", "a", "ab", "a1", "-", "_-.", "1", "12", "12345", "Administrator",
                                   "ADMINISTRATOR", "Public", "Win", "QLocale", "Administrator1", "Administrator12"})
        row(name, true);
    row("Windows", true, AliasKind::Label);
    row("", true, AliasKind::Host);
    row("", true, AliasKind::Organisation);
    row("ab", true, AliasKind::Domain);
    row("ab", true, AliasKind::Share);
    for (const char *const name : {"Ada", "123456", "Lindmoor", "a12345", "Enzian"})
        row(name, false);
    row("Eisvogelwerk", false, AliasKind::Label);
    row("Eisvogelwerk", false, AliasKind::Host);
}

void RedactionNamesTest::ordinaryNames()
{
    QFETCH(AliasKind, kind);
    QFETCH(QString, name);
    QFETCH(bool, isOrdinary);
    const QByteArray text = name.toUtf8();
    QCOMPARE(foundSpellings(kind, name, "a " + text + " b").isEmpty(), isOrdinary);
    if (!isOrdinary)
        return;
    QVERIFY(spellingsOf(kind, name, true).empty());
    QVERIFY(spellingsOf(kind, name, false).empty());
}

void RedactionNamesTest::variants_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("variant");
    QTest::newRow("transliterated") << utf8(jorn) << QByteArray("Joern");
    QTest::newRow("lost") << utf8(jorn) << QByteArray("J?rn");
    QTest::newRow("misread") << utf8(jorn) << QByteArray("J\xC3\x83\xC2\xB6rn");
    QTest::newRow("transliterated at the beginning") << utf8("\xC3\x96mer") << QByteArray("oemer");
    QTest::newRow("misread at the end") << utf8("Ren\xC3\xA9") << QByteArray("Ren\xC3\x83\xC2\xA9");
    QTest::newRow("lost at the end") << utf8("Ren\xC3\xA9") << QByteArray("Ren?");
    QTest::newRow("two letters lost") << utf8("\xC3\x96m\xC3\xBCr") << QByteArray("?m?r");
    QTest::newRow("two letters transliterated") << utf8("\xC3\x84m\xC3\xBCr") << QByteArray("aemuer");
}

void RedactionNamesTest::variants()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, variant);
    const std::vector<std::u16string> all = variantsOfName(name);
    QVERIFY(std::find(all.begin(), all.end(), folded(viewOf(variant))) != all.end());
    for (const std::u16string &ascii : variantsOfName(QStringLiteral("Lindmoor")))
        QCOMPARE(asString(ascii), QStringLiteral("lindmoor"));
}

void RedactionNamesTest::wordsAsOneText_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *text, const char *expected) {
        QTest::newRow(name) << utf8(text) << utf8(expected);
    };
    row("nothing", "", "");
    row("one symbol", "J", "j");
    row("two words", "J\xC3\xB6rn Lindmoor", "jorn lindmoor");
    row("point", "jorn.lindmoor", "jorn lindmoor");
    row("underscore", "jorn_lindmoor", "jorn lindmoor");
    row("separators around", " ._jorn  .  lindmoor._ ", "jorn lindmoor");
    row("ideographs", "\xE5\xB1\xB1 \xE7\x94\xB0", "\xE5\xB1\xB1 \xE7\x94\xB0");
}

void RedactionNamesTest::wordsAsOneText()
{
    QFETCH(QString, name);
    QFETCH(QString, expected);
    QCOMPARE(asString(wordsAsOne(name)), expected);
}

void RedactionNamesTest::wordsOfNames_data()
{
    QTest::addColumn<AliasKind>("kind");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *title, AliasKind kind, const char *name, const QStringList &expected) {
        QTest::newRow(title) << kind << utf8(name) << expected;
    };
    row("nothing", AliasKind::User, "", {});
    row("user", AliasKind::User, "J\xC3\xB6rn Lindmoor", {utf8(jorn), utf8("Lindmoor")});
    row("user's initial", AliasKind::User, "J. Lindmoor", {utf8("Lindmoor")});
    row("organisation", AliasKind::Organisation, "Eisvogelwerk Nordheim", {utf8("Eisvogelwerk"), utf8("Nordheim")});
}

void RedactionNamesTest::wordsOfNames()
{
    QFETCH(AliasKind, kind);
    QFETCH(QString, name);
    QFETCH(QStringList, expected);
    QCOMPARE(wordsOf(kind, name), expected);
}

void RedactionNamesTest::shortNames_data()
{
    QTest::addColumn<QString>("component");
    QTest::addColumn<QString>("base");
    const auto row = [](const char *component, const char *base) {
        QTest::newRow(*component == '\0' ? "nothing" : component) << utf8(component) << utf8(base);
    };
    row("lindmo~1", "lindmo");
    row("lindmo~9", "lindmo");
    row("lindm~10", "lindm");
    row("lind~1", "lind");
    row("li1a2b~1", "li");
    row("lif00d~4", "li");
    row("", "");
    row("~", "");
    row("~1", "");
    row("1", "");
    row("lindmoor", "");
    row("lindmo~", "");
    row("lindmo~x", "");
    row("lindmo~1x", "");
    row("lindmoo~1", "");
    row("lindmo~10", "");
    row("lin mo~1", "");
}

/// Without a base: no short name.
void RedactionNamesTest::shortNames()
{
    QFETCH(QString, component);
    QFETCH(QString, base);
    const std::u16string symbols = component.toStdU16String();
    QCOMPARE(isShortName(symbols), !base.isEmpty());
    if (!base.isEmpty())
        QCOMPARE(asString(shortNameBase(symbols)), base);
}

void RedactionNamesTest::shortNamesOf_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("base");
    const auto row = [](const char *title, const char *name, const char *base) {
        QTest::newRow(title) << utf8(name) << utf8(base);
    };
    row("six letters", "Lindmoorer", "lindmo");
    row("checksum", "Lindmoorer", "li");
    row("without blank", "Ab Lindmoor", "ablind");
    row("accent", "J\xC3\xB6rn Lindmoor", "jornli");
    row("before the point", "jorn.lindmoor", "jorn");
    row("plus sign", "a+b lindmoor", "a_blin");
}

void RedactionNamesTest::shortNamesOf()
{
    QFETCH(QString, name);
    QFETCH(QString, base);
    const std::vector<std::u16string> bases = shortNameBases(name);
    QVERIFY(std::find(bases.begin(), bases.end(), base.toStdU16String()) != bases.end());
    QVERIFY(std::find(bases.begin(), bases.end(), u"eisvog") == bases.end());
}

void RedactionNamesTest::united_data()
{
    QTest::addColumn<AliasKind>("kind");
    QTest::addColumn<QString>("one");
    QTest::addColumn<AliasKind>("otherKind");
    QTest::addColumn<QString>("other");
    QTest::addColumn<bool>("isSame");
    const auto row = [](const char *title, AliasKind kind, const char *one, const char *other, bool isSame) {
        QTest::newRow(title) << kind << utf8(one) << kind << utf8(other) << isSame;
    };
    const char *const full = "J\xC3\xB6rn Lindmoor";
    const AliasKind user = AliasKind::User;
    row("case", user, "Lindmoor", "LINDMOOR", true);
    row("accent", user, full, "Jorn Lindmoor", true);
    row("transliterated", user, full, "Joern Lindmoor", true);
    row("first word", user, full, "jorn", true);
    row("last word", user, full, "lindmoor", true);
    row("account with a point", user, full, "jorn.lindmoor", true);
    row("account with a hyphen", user, full, "jorn-lindmoor", true);
    row("account with an underscore", user, full, "jorn_lindmoor", true);
    row("account of one word", user, full, "jornlindmoor", true);
    row("account with an initial", user, full, "jlindmoor", true);
    row("short name of a file", user, "Lindmoorer", "LINDMO~1", true);
    row("short name with a checksum", user, "Lindmoorer", "LI1A2B~1", true);
    row("short name of something else", user, "Lindmoorer", "EISVOG~1", false);
    row("digit behind it", user, "jorn", "jorn2", false);
    row("digits behind both", user, "jorn2", "jorn3", false);
    row("other first word", user, full, "Ada Lindmoor", false);
    row("other last word", user, full, "J\xC3\xB6rn Eisvogel", false);
    row("other user", user, full, "eisvogel", false);
    row("part of a word", user, full, "lind", false);
    row("one letter of it", user, full, "j", false);
    const AliasKind host = AliasKind::Host;
    row("host with 15 characters", host, "WORKPLACE-ENZIANBLAU", "workplace-enzia", true);
    row("host with 15 of 16 characters", host, "WORKPLACE-ENZIAN", "WORKPLACE-ENZIA", true);
    row("host with 14 characters", host, "WORKPLACE-ENZIANBLAU", "WORKPLACE-ENZI", false);
    row("host with 16 characters", host, "WORKPLACE-ENZIANBLAU", "WORKPLACE-ENZIAN", false);
    row("other host", host, "WORKPLACE-7", "WORKPLACE-8", false);
    QTest::newRow("user and host") << user << utf8("Lindmoor") << host << utf8("Lindmoor") << false;
    QTest::newRow("folder and share") << AliasKind::Folder << utf8("Eisvogel") << AliasKind::Share << utf8("Eisvogel")
                                      << false;
}

void RedactionNamesTest::united()
{
    QFETCH(AliasKind, kind);
    QFETCH(QString, one);
    QFETCH(AliasKind, otherKind);
    QFETCH(QString, other);
    QFETCH(bool, isSame);
    for (const bool isReversed : {false, true}) {
        Identities identities;
        const int first = isReversed ? identities.add(otherKind, other, Identities::Found)
                                     : identities.add(kind, one, Identities::Stated);
        const int second = isReversed ? identities.add(kind, one, Identities::Stated)
                                      : identities.add(otherKind, other, Identities::Found);
        identities.unite();
        QCOMPARE(identities.root(first) == identities.root(second), isSame);
        QCOMPARE(identities.canonical(first) == identities.canonical(second) && kind == otherKind, isSame);
    }
}

/// The alias of a name does not depend on what was found first.
void RedactionNamesTest::unitedInAnyOrder()
{
    struct Name
    {
        QString text;
        Identities::Rank rank;
    };
    std::vector<Name> names = {{utf8("J\xC3\xB6rn Lindmoor"), Identities::Stated},
                               {utf8("jlindmoor"), Identities::Found},
                               {utf8("LINDMO~1"), Identities::Found},
                               {utf8("lindmoor"), Identities::UserNameFact}};
    QByteArray canonical;
    std::vector<int> order = {0, 1, 2, 3};
    do {
        Identities identities;
        int fact = -1;
        for (const int index : order) {
            const Name &name = names[std::size_t(index)];
            const int identity = identities.add(AliasKind::User, name.text, name.rank);
            if (name.rank == Identities::UserNameFact)
                fact = identity;
        }
        QCOMPARE(identities.count(), 4);
        identities.unite();
        for (int identity = 0; identity < 4; ++identity) {
            QCOMPARE(identities.root(identity), fact); // the lowest rank
            if (canonical.isEmpty())
                canonical = identities.canonical(identity);
            QCOMPARE(identities.canonical(identity), canonical);
        }
    } while (std::next_permutation(order.begin(), order.end()));
    QVERIFY(!canonical.isEmpty());
}

void RedactionNamesTest::nameOfLowestRank()
{
    Identities identities;
    const int identity = identities.add(AliasKind::User, utf8("J%C3%B6rn"), Identities::Found);
    QCOMPARE(identities.at(identity).name, utf8(jorn));
    QCOMPARE(identities.at(identity).rank, int(Identities::Found));
    QCOMPARE(identities.add(AliasKind::User, utf8("jorn"), Identities::Found), identity);
    QCOMPARE(identities.at(identity).name, utf8(jorn));
    QCOMPARE(identities.add(AliasKind::User, utf8("JORN"), Identities::Stated), identity);
    QCOMPARE(identities.at(identity).name, utf8("JORN"));
    QCOMPARE(identities.at(identity).rank, int(Identities::Stated));
    QCOMPARE(identities.add(AliasKind::User, utf8("Jorn"), Identities::Stated), identity);
    QCOMPARE(identities.add(AliasKind::User, utf8("jORN"), Identities::Found), identity);
    QCOMPARE(identities.at(identity).name, utf8("JORN"));
    QCOMPARE(identities.at(identity).rank, int(Identities::Stated));
    QCOMPARE(identities.count(), 1);
    QCOMPARE(identities.find(AliasKind::User, utf8("j\xC3\xB4rn")), identity);
    QCOMPARE(identities.find(AliasKind::User, utf8("jor")), -1);
    QCOMPARE(identities.find(AliasKind::Host, utf8("jorn")), -1);
    const int host = identities.add(AliasKind::Host, utf8("jorn"), Identities::Found);
    QVERIFY(host != identity);
    QCOMPARE(identities.find(AliasKind::Host, utf8("JORN")), host);
    QCOMPARE(identities.count(), 2);
}

void RedactionNamesTest::searchedAndUnsearched()
{
    Identities identities;
    const int identity = identities.addUnsearched(AliasKind::User, utf8("Lindmoor"));
    QVERIFY(!identities.at(identity).isSearched);
    NameSearch none;
    identities.addTo(none);
    none.build();
    QCOMPARE(found(none, "Lindmoor"), QByteArray());
    const int other = identities.add(AliasKind::User, utf8("Eisvogel"), Identities::Found);
    QCOMPARE(identities.addUnsearched(AliasKind::User, utf8("EISVOGEL")), other);
    QVERIFY(identities.at(other).isSearched);
    QCOMPARE(identities.add(AliasKind::User, utf8("lindmoor"), Identities::Found), identity);
    QVERIFY(identities.at(identity).isSearched);
}

void RedactionNamesTest::bytes()
{
    Identities identities;
    const QByteArray zero("\0\1", 2);
    const QByteArray two("\0\2", 2);
    const int first = identities.addBytes(AliasKind::Ip, zero, utf8("one"));
    const int second = identities.addBytes(AliasKind::Ip, two, utf8("two"));
    QVERIFY(first != second);
    QCOMPARE(identities.addBytes(AliasKind::Ip, zero, utf8("another spelling")), first);
    QCOMPARE(identities.at(first).name, utf8("one"));
    QCOMPARE(identities.findBytes(AliasKind::Ip, zero), first);
    QCOMPARE(identities.findBytes(AliasKind::Ip, two), second);
    QCOMPARE(identities.findBytes(AliasKind::Ip, QByteArray("\0", 1)), -1);
    QCOMPARE(identities.findBytes(AliasKind::Mac, zero), -1);
    // Case matters in secrets.
    const int secret = identities.addBytes(AliasKind::Secret, "Geheim", utf8("Geheim"));
    QVERIFY(identities.addBytes(AliasKind::Secret, "geheim", utf8("geheim")) != secret);
    const int high = identities.addBytes(AliasKind::Secret, "\xF6", utf8("x"));
    QVERIFY(identities.addBytes(AliasKind::Secret, "o", utf8("o")) != high);
    identities.unite();
    QCOMPARE(identities.root(first), first);
    QCOMPARE(identities.root(second), second);
    QVERIFY(identities.canonical(first) != identities.canonical(second));
}

void RedactionNamesTest::noIdentities()
{
    Identities identities;
    identities.unite();
    QCOMPARE(identities.count(), 0);
    QCOMPARE(identities.find(AliasKind::User, QString()), -1);
    NameSearch search;
    identities.addTo(search);
    QVERIFY(search.isEmpty());
}

void RedactionNamesTest::unitedAreFound()
{
    Identities identities;
    const int user = identities.add(AliasKind::User, utf8("J\xC3\xB6rn Lindmoor"), Identities::Stated);
    const int host = identities.add(AliasKind::Host, utf8("ENZIAN-PC7"), Identities::Stated);
    identities.unite();
    NameSearch search;
    identities.addTo(search);
    search.build();
    std::vector<NamePlace> places;
    search.find("jlindmoor on enzian-pc7", places);
    QCOMPARE(int(places.size()), 2);
    QCOMPARE(identities.root(places[0].name), user);
    QCOMPARE(identities.root(places[1].name), host);
}

TEST_WITHOUT_APPLICATION(RedactionNamesTest);
#include "tst_redaction_names.moc"
