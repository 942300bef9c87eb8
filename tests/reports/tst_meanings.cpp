// The meanings of sections, items and facts.

#include "labels.h"
#include "meanings.h"
#include "test_main.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <algorithm>

using namespace velkor::Reports;

class MeaningsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tableHasTheRowsOfTheCatalogue();
    void texts_data();
    void texts();
    void someMeanings_data();
    void someMeanings();
    void sharedKeysHaveOwnMeanings();
    void sectionsOfOneFunctionDiffer();
    void otherRowsHaveNone();
};

namespace {

constexpr int longestMeaning = 300;

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

QString name(const char *section, const char *item, const char *key)
{
    return QStringList({text(section), text(item), text(key)}).join(QLatin1Char('/'));
}

QString name(const FactRow &row)
{
    return name(row.section, row.item, *row.key ? row.key : row.line);
}

template <typename Row, typename IsWanted>
QString meaningOfFirst(const std::vector<Row> &rows, IsWanted isWanted)
{
    const auto found = std::find_if(rows.begin(), rows.end(), isWanted);
    return found == rows.end() ? QString() : found->meaning();
}

QString meaningOfFact(const QString &wanted)
{
    return meaningOfFirst(factRows(), [&wanted](const FactRow &row) { return name(row) == wanted; });
}

QString meaningOfSection(const QString &wanted)
{
    return meaningOfFirst(sectionRows(), [&wanted](const SectionRow &row) { return text(row.name) == wanted; });
}

/// Its words in lower case.
QString bare(const QString &meaning)
{
    static const QRegularExpression others(QStringLiteral("[^a-z0-9]+"));
    return meaning.toLower().replace(others, QStringLiteral(" ")).trimmed();
}

} // namespace

void MeaningsTest::tableHasTheRowsOfTheCatalogue()
{
    QStringList expected;
    QSet<QString> known;
    for (const FactRow &row : factRows()) {
        if (!known.contains(name(row)))
            expected << name(row);
        known.insert(name(row));
    }
    QStringList actual;
    for (const Meaning &meaning : factMeanings())
        actual << name(meaning.section, meaning.item, meaning.name);
    QCOMPARE(actual, expected);
}

void MeaningsTest::texts_data()
{
    QTest::addColumn<QString>("meaning");
    QTest::addColumn<QString>("label");
    for (const FactRow &row : factRows()) {
        const QString label = *row.key ? factLabel(row) : row.label();
        QTest::addRow("fact %s, %s", qPrintable(name(row)), row.line) << row.meaning() << label;
    }
    for (const ItemRow &row : itemRows())
        QTest::addRow("item %s/%s", row.section, row.kind) << row.meaning() << words(text(row.kind));
    for (const SectionRow &row : sectionRows())
        QTest::addRow("section %s", row.name) << row.meaning() << text(row.heading);
}

void MeaningsTest::texts()
{
    QFETCH(QString, meaning);
    QFETCH(QString, label);
    QVERIFY(!meaning.isEmpty());
    QVERIFY2(meaning.size() <= longestMeaning, qPrintable(QString::number(meaning.size())));
    QCOMPARE(meaning, meaning.simplified());
    QVERIFY2(meaning.endsWith(QLatin1Char('.')), qPrintable(meaning));
    // HTML, Markdown, tables of Markdown, and entities
    static const QRegularExpression markup(QStringLiteral("[<>&`*|]|\\]\\(|^#"));
    QVERIFY2(!meaning.contains(markup), qPrintable(meaning));
    for (const QChar letter : meaning)
        QVERIFY2(letter.isPrint() && letter != QChar::ReplacementCharacter, qPrintable(meaning));
    QVERIFY2(bare(meaning) != bare(label), qPrintable(label));
    QVERIFY2(bare(meaning).count(QLatin1Char(' ')) >= 3, qPrintable(meaning));
}

void MeaningsTest::someMeanings_data()
{
    QTest::addColumn<QString>("meaning");
    QTest::addColumn<QString>("part");
    QTest::newRow("a fact") << meaningOfFact(QStringLiteral("memoryInfo//totalPhys")) << QStringLiteral("physical memory");
    QTest::newRow("a fact of an item") << meaningOfFact(QStringLiteral("diskInformation/drive/free")) << QStringLiteral("GetDiskFreeSpaceEx");
    QTest::newRow("a fixed line") << meaningOfFact(QStringLiteral("qtPrinterInfo//    <None>")) << QStringLiteral("no printer");
    QTest::newRow("a failure") << meaningOfFact(QStringLiteral("windowsVersion//getVersionExFailed")) << QStringLiteral("GetVersionEx failed");
    QTest::newRow("an item") << meaningOfFirst(itemRows(), [](const ItemRow &row) { return text(row.kind) == QLatin1String("gateway"); })
                             << QStringLiteral("other networks");
    QTest::newRow("a section") << meaningOfSection(QStringLiteral("memoryInfo")) << QStringLiteral("GlobalMemoryStatusEx");
    QTest::newRow("a section with an argument") << meaningOfSection(QStringLiteral("diskDevicesFromRegistry:USBSTOR")) << QStringLiteral("USB drives");
}

void MeaningsTest::someMeanings()
{
    QFETCH(QString, meaning);
    QFETCH(QString, part);
    QVERIFY2(meaning.contains(part), qPrintable(meaning));
}

// The same key means other things in other sections and items.
void MeaningsTest::sharedKeysHaveOwnMeanings()
{
    const QStringList names = {QStringLiteral("windowsVersion//name"), QStringLiteral("videoInfoFromRegistry/configuration/name"),
                               QStringLiteral("driverInfoFromRegistry/deviceClass/name"), QStringLiteral("qtPrinterInfo/printer/name"),
                               QStringLiteral("qtNetworkInterfaces/interface/name")};
    QSet<QString> meanings;
    for (const QString &name : names)
        meanings.insert(meaningOfFact(name));
    QCOMPARE(meanings.size(), names.size());
}

void MeaningsTest::sectionsOfOneFunctionDiffer()
{
    QSet<QString> meanings;
    for (const SectionRow &row : sectionRows())
        meanings.insert(row.meaning());
    QCOMPARE(meanings.size(), int(sectionRows().size()));
}

void MeaningsTest::otherRowsHaveNone()
{
    FactRow fact = factRows().front();
    fact.key = "no such key";
    QCOMPARE(fact.meaning(), QString());
    ItemRow item = itemRows().front();
    item.section = "memoryInfo";
    QCOMPARE(item.meaning(), QString());
    SectionRow section = sectionRows().front();
    section.name = "no such section";
    QCOMPARE(section.meaning(), QString());
}

TEST_WITHOUT_APPLICATION(MeaningsTest);
#include "tst_meanings.moc"
