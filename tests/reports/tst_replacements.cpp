// The places that redaction says it replaced.

#include "document_texts.h"
#include "redaction/replacements.h"
#include "redaction_rules.h"
#include "test_main.h"

using namespace velkor::Reports;

class ReplacementsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void placesOfAReport();
    void nameOfSeveralLines();
    void severalReports();
    void severalRounds();
    void composed_data();
    void composed();
};

Q_DECLARE_METATYPE(Replacements)

namespace {

QByteArray originalOf(const Document &document, const Replacement &place)
{
    return document.text().mid(place.originalBegin, place.originalEnd - place.originalBegin);
}

QByteArray redactedOf(const Redaction &redaction, const Replacement &place)
{
    return redaction.documents.front().text().mid(place.begin, place.end - place.begin);
}

/// The alias is the number of the row.
Replacement at(int begin, int end, int originalBegin, int originalEnd, int alias = 0)
{
    Replacement replacement;
    replacement.alias = alias;
    replacement.begin = begin;
    replacement.end = end;
    replacement.originalBegin = originalBegin;
    replacement.originalEnd = originalEnd;
    return replacement;
}

QString textOf(const Replacements &replacements)
{
    QStringList texts;
    for (const Replacement &place : replacements)
        texts += QStringLiteral("%1: %2-%3 of %4-%5").arg(place.alias).arg(place.begin).arg(place.end).arg(place.originalBegin).arg(place.originalEnd);
    return texts.join(QLatin1String(", "));
}

} // namespace

void ReplacementsTest::placesOfAReport()
{
    const Document document = read("User name:                    Lindmoor\n" + separatorLine()
                                   + "\nSystem environemnt (QProcess::systemEnvironment()):\n  QUELLWERK_MODE=meadow\n  HOME=/home/lindmoor\n");
    const Redaction redaction = redact({document});
    QCOMPARE(redaction.replacements.size(), std::size_t(1));
    const std::vector<Replacement> &places = redaction.replacements.front();
    QCOMPARE(places.size(), std::size_t(3));
    QCOMPARE(originalOf(document, places[0]), QByteArray("Lindmoor"));
    QCOMPARE(redactedOf(redaction, places[0]), QByteArray("user-1"));
    QCOMPARE(places[0].alias, 0);
    QCOMPARE(originalOf(document, places[1]), QByteArray("meadow"));
    QCOMPARE(redactedOf(redaction, places[1]), QByteArray("length-6"));
    QCOMPARE(places[1].alias, -1);
    QCOMPARE(originalOf(document, places[2]), QByteArray("lindmoor"));
    QCOMPARE(redactedOf(redaction, places[2]), QByteArray("user-1"));
    QCOMPARE(places[2].alias, 0);
}

// The words of a name in a value of two lines that a mail quoted. The quote stays.
void ReplacementsTest::nameOfSeveralLines()
{
    const Document document = read("> User name:                    Lindmoor\n> Quergart\n> " + separatorLine() + '\n');
    const Redaction redaction = redact({document});
    QCOMPARE(flawOfReplacements(document, redaction), QString());
    QVERIFY(!redaction.replacements.front().empty());
    QVERIFY(!redaction.documents.front().text().contains("Lindmoor"));
}

void ReplacementsTest::severalReports()
{
    const std::vector<Document> documents {read("User name:                    Lindmoor\n"), read("MemoryLoad:            15%\n"),
                                           read("NetBios name:                 BIRKENTAL\nUser name:                    Lindmoor\n")};
    const Redaction redaction = redact(documents);
    QCOMPARE(redaction.replacements.size(), documents.size());
    for (std::size_t i = 0; i < documents.size(); ++i)
        QCOMPARE(flawOfReplacements(documents[i], redaction, i), QString());
    QCOMPARE(redaction.replacements[0].size(), std::size_t(1));
    QVERIFY(redaction.replacements[1].empty());
    QCOMPARE(redaction.replacements[2].size(), std::size_t(2));
}

// Lists of words make several rounds.
void ReplacementsTest::severalRounds()
{
    const Document document = read(contentsOf(QStringLiteral(REPORTS_DATA_DIR "/workstation.txt")));
    RedactionOptions options;
    options.hide = QStringList {QStringLiteral("Fujitsu"), QStringLiteral("*-?"), QStringLiteral("user*"), QStringLiteral("[a-z]*-[0-9]*")};
    options.keep = QStringList {QStringLiteral("Microsoft"), QStringLiteral("J\u00f6rn")};
    const Redaction redaction = redact({document}, options);
    QCOMPARE(flawOfReplacements(document, redaction), QString());
    QVERIFY(redaction.replacements.front().size() > 46);
}

void ReplacementsTest::composed_data()
{
    QTest::addColumn<Replacements>("first");
    QTest::addColumn<Replacements>("second");
    QTest::addColumn<Replacements>("both");
    // Texts: 8 bytes become 6 at 10 in the first round.
    const Replacements six {at(10, 16, 10, 18, 1)};
    QTest::newRow("nothing") << Replacements() << Replacements() << Replacements();
    QTest::newRow("only the first") << six << Replacements() << six;
    QTest::newRow("only the second") << Replacements() << six << six;
    QTest::newRow("before") << six << Replacements {at(0, 2, 0, 7, 2)} << Replacements {at(0, 2, 0, 7, 2), at(5, 11, 10, 18, 1)};
    QTest::newRow("directly before") << six << Replacements {at(5, 7, 5, 10, 2)} << Replacements {at(5, 7, 5, 10, 2), at(7, 13, 10, 18, 1)};
    QTest::newRow("after") << six << Replacements {at(20, 29, 20, 24, 2)} << Replacements {at(10, 16, 10, 18, 1), at(20, 29, 22, 26, 2)};
    QTest::newRow("directly after") << six << Replacements {at(16, 20, 16, 17, 2)} << Replacements {at(10, 16, 10, 18, 1), at(16, 20, 18, 19, 2)};
    QTest::newRow("the same place") << six << Replacements {at(10, 14, 10, 16, 2)} << Replacements {at(10, 14, 10, 18, 2)};
    QTest::newRow("around it") << six << Replacements {at(8, 12, 8, 20, 2)} << Replacements {at(8, 12, 8, 22, 2)};
    QTest::newRow("its beginning") << six << Replacements {at(8, 11, 8, 12, 2)} << Replacements {at(8, 15, 8, 18, 2)};
    QTest::newRow("its end") << six << Replacements {at(14, 20, 14, 18, 2)} << Replacements {at(10, 20, 10, 20, 2)};
    QTest::newRow("inside it") << six << Replacements {at(12, 20, 12, 14, 2)} << Replacements {at(10, 22, 10, 18, 2)};
    QTest::newRow("its beginning and its end")
        << six << Replacements {at(8, 11, 8, 12, 2), at(13, 19, 14, 18, 3)} << Replacements {at(8, 19, 8, 20, 3)};
    QTest::newRow("two of the first") << Replacements {at(10, 16, 10, 18, 1), at(20, 26, 22, 25, 2)} << Replacements {at(12, 15, 12, 22, 3)}
                                      << Replacements {at(10, 19, 10, 25, 3)};
    QTest::newRow("what follows") << Replacements {at(10, 16, 10, 18, 1), at(30, 36, 32, 33, 2)} << Replacements {at(10, 11, 10, 16, 3), at(41, 43, 46, 48, 4)}
                                  << Replacements {at(10, 11, 10, 18, 3), at(25, 31, 32, 33, 2), at(41, 43, 43, 45, 4)};
    QTest::newRow("an empty place") << Replacements {at(10, 16, 10, 18, 1), at(20, 20, 22, 25, 1)} << Replacements {at(20, 23, 20, 21, 2)}
                                    << Replacements {at(10, 16, 10, 18, 1), at(20, 20, 22, 25, 1), at(20, 23, 25, 26, 2)};
}

void ReplacementsTest::composed()
{
    QFETCH(Replacements, first);
    QFETCH(Replacements, second);
    QFETCH(Replacements, both);
    QCOMPARE(textOf(velkor::Reports::composed(first, second)), textOf(both));
}

TEST_WITHOUT_APPLICATION(ReplacementsTest);
#include "tst_replacements.moc"
