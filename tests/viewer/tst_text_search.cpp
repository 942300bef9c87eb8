// What a search finds, and that its hits need little memory.

#include "test_main.h"
#include "text/text_search.h"
#include "text/utf8_character.h"

class TextSearchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hits_data();
    void hits();
    void hitsAgreeWithAPlainSearch();
    void largeTextIsSearchedInSlices();
    void newSearchEndsTheOneBefore();
    void hostileTextTakesNoLonger();
    void nothingIsFoundInNothing();
};

namespace {

using Ranges = std::vector<TextRange>;

Ranges allHits(const TextHits &hits)
{
    Ranges found;
    for (auto hit = hits.firstFrom(0); hit; hit = hits.firstFrom(hit->begin + 1))
        found.push_back(*hit);
    return found;
}

QByteArray described(const Ranges &ranges)
{
    QByteArray text;
    for (const TextRange range : ranges)
        text += QByteArray::number(range.begin) + '-' + QByteArray::number(range.end) + ' ';
    return text.trimmed();
}

} // namespace

void TextSearchTest::hits_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<bool>("matchCase");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char *name, const QByteArray &text, const QString &wanted, bool matchCase, const char *expected) {
        QTest::newRow(name) << text << wanted << matchCase << QByteArray(expected);
    };
    row("none", "Windows", QStringLiteral("Linux"), false, "");
    row("nothing wanted", "Windows", QString(), false, "");
    row("several", "one two one", QStringLiteral("one"), true, "0-3 8-11");
    row("whole text", "one", QStringLiteral("one"), true, "0-3");
    row("longer than the text", "one", QStringLiteral("ones"), true, "");
    row("no overlap", "aaaa", QStringLiteral("aa"), true, "0-2 2-4");
    row("begins inside a false start", "aaab", QStringLiteral("aab"), true, "1-4");
    row("false start inside", "abcabcabd", QStringLiteral("abcabd"), true, "3-9");
    row("other case", "Hit hIT HIT", QStringLiteral("hit"), false, "0-3 4-7 8-11");
    row("same case only", "Hit hIT hit", QStringLiteral("hit"), true, "8-11");
    row("wanted in capitals", "hit", QStringLiteral("HIT"), false, "0-3");
    row("letters of two bytes", "\xC3\x84\xC3\xA4", QStringLiteral("\u00E4"), false, "0-2 2-4");
    row("Greek sigmas are one letter", "\xCF\x83\xCF\x82\xCE\xA3", QStringLiteral("\u03C3"), false, "0-2 2-4 4-6");
    row("Kelvin sign has three bytes", "k \xE2\x84\xAA", QStringLiteral("K"), false, "0-1 2-5");
    row("simple folding keeps sharp s", "stra\xC3\x9F"
                                        "e strasse",
        QStringLiteral("strasse"), false, "8-15");
    row("beyond U+FFFF", "\xF0\x90\x90\x80\xF0\x90\x90\xA8", QStringLiteral("\U00010400"), false, "0-4 4-8");
    row("no-break space is a space", "a b a\xC2\xA0"
                                     "b",
        QStringLiteral("a b"), true, "0-3 4-8");
    row("space for a no-break space", "a b", QStringLiteral("a\u00A0b"), true, "0-3");
    row("across a line end", "one\ntwo", QStringLiteral("e\nt"), true, "2-5");
    row("never inside a character", "\xC3\xA9", QStringLiteral("\u00A9"), true, "");
    row("wrong bytes", "a\xFF\x80z", QStringLiteral("\uFFFD"), true, "1-2 2-3");
    row("after wrong bytes", "\xE2\x82one", QStringLiteral("one"), true, "2-5");
    row("null", QByteArray("a\0b", 3), QStringLiteral("b"), true, "2-3");
}

void TextSearchTest::hits()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, wanted);
    QFETCH(bool, matchCase);
    QFETCH(QByteArray, expected);
    TextSearch search;
    search.start(TextLines(text), wanted, matchCase);
    QVERIFY(search.isFinished());
    const Ranges found = allHits(*search.hits());
    QCOMPARE(described(found), expected);
    QCOMPARE(search.hits()->count(), int(found.size()));
}

/// Positions around the edges of the words and blocks of bits, too.
void TextSearchTest::hitsAgreeWithAPlainSearch()
{
    QByteArray text;
    uint state = 1;
    for (int i = 0; i < 20000; ++i) {
        state = state * 1103515245 + 12345;
        text += (state >> 16) % 3 == 0 ? 'a' : 'b';
    }
    text.replace(4000, 9000, QByteArray(9000, 'c')); // blocks without hits
    const QByteArray wanted = "ab";
    Ranges expected;
    for (int at = text.indexOf(wanted); at >= 0; at = text.indexOf(wanted, at + wanted.size()))
        expected.push_back({at, at + wanted.size()});
    TextSearch search;
    search.start(TextLines(text), QString::fromLatin1(wanted), true);
    QTRY_VERIFY(search.isFinished());
    const TextHits &hits = *search.hits();
    QCOMPARE(described(allHits(hits)), described(expected));
    std::size_t before = 0; // hits that begin before the offset
    for (int offset = 0; offset <= text.size(); ++offset) {
        while (before < expected.size() && expected[before].begin < offset)
            ++before;
        if (hits.countBefore(offset) != int(before))
            QCOMPARE(hits.countBefore(offset), int(before));
        const std::optional<TextRange> next = hits.firstFrom(offset), previous = hits.lastBefore(offset);
        QCOMPARE(next.has_value(), before < expected.size());
        QCOMPARE(previous.has_value(), before > 0);
        QVERIFY(!next || *next == expected[before]);
        QVERIFY(!previous || *previous == expected[before - 1]);
    }
    QVERIFY(hits.isHit(expected[5]));
    QVERIFY(!hits.isHit({expected[5].begin, expected[5].end + 1}));
}

void TextSearchTest::largeTextIsSearchedInSlices()
{
    constexpr int size = 30 * 1000 * 1000;
    TextSearch search;
    QSignalSpy progressed(&search, &TextSearch::progressed);
    search.start(TextLines(QByteArray(size, 'a')), QStringLiteral("a"), false);
    QVERIFY(!search.isFinished());
    const int first = search.hits()->count();
    QVERIFY(first > 0 && first < size);
    QTRY_VERIFY_WITH_TIMEOUT(search.isFinished(), 60000);
    QCOMPARE(search.hits()->count(), size);
    QVERIFY(progressed.count() > 2);
    QCOMPARE(search.hits()->countBefore(size / 2), size / 2);
}

void TextSearchTest::newSearchEndsTheOneBefore()
{
    TextSearch search;
    search.start(TextLines(QByteArray(30 * 1000 * 1000, 'a')), QStringLiteral("a"), false);
    QVERIFY(!search.isFinished());
    search.start(TextLines("abc"), QStringLiteral("c"), false);
    QVERIFY(search.isFinished());
    QTest::qWait(20);
    QCOMPARE(search.hits()->count(), 1);
    search.start(TextLines(QByteArray(30 * 1000 * 1000, 'a')), QStringLiteral("a"), false);
    search.clear();
    QVERIFY(search.isFinished());
    QCOMPARE(search.hits()->count(), 0);
}

/// A search that begins again after each false start would take a thousand times as long, which is hours.
void TextSearchTest::hostileTextTakesNoLonger()
{
    TextSearch search;
    search.start(TextLines(QByteArray(10 * 1000 * 1000, 'a')), QString(999, QLatin1Char('a')) + QLatin1Char('b'), true);
    QTRY_VERIFY_WITH_TIMEOUT(search.isFinished(), 60000);
    QCOMPARE(search.hits()->count(), 0);
}

void TextSearchTest::nothingIsFoundInNothing()
{
    TextSearch search;
    QCOMPARE(search.hits()->count(), 0);
    QVERIFY(!search.hits()->firstFrom(0));
    QVERIFY(!search.hits()->lastBefore(1));
    search.start(TextLines(), QStringLiteral("a"), false);
    QVERIFY(search.isFinished());
    QCOMPARE(search.hits()->count(), 0);
    QCOMPARE(search.hits()->countBefore(5), 0);
}

TEST_WITH_CORE_APPLICATION(TextSearchTest);

#include "tst_text_search.moc"
