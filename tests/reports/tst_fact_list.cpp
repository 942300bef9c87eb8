// The list of facts, and docs/facts.md, which is made from it.

#include "fact_list.h"
#include "test_main.h"
#include "texts.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QSet>

using namespace velkor::Reports;

class FactListTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyKeyOnce();
    void someFacts_data();
    void someFacts();
    void jsonHasTheSameFacts();
    void oneSection();
    void factsMdIsUpToDate();
};

void FactListTest::everyKeyOnce()
{
    QSet<QString> names;
    for (const FactEntry &fact : factList()) {
        const QString name = fact.section + QLatin1Char('/') + fact.item + QLatin1Char('/') + fact.key;
        QVERIFY2(!names.contains(name), qPrintable(name));
        QVERIFY2(!fact.label.trimmed().isEmpty(), qPrintable(name));
        names.insert(name);
    }
    QVERIFY(names.size() > 200);
}

void FactListTest::someFacts_data()
{
    QTest::addColumn<QString>("line");
    for (const char *line : {
             "memoryInfo||totalPhys|TotalPhys|bytes|Byte|rarely|",
             "memoryInfo||availPhys|AvailPhys|bytes|Byte|every moment|",
             "diskInformation|drive|free|free|bytes|Byte|slowly|",
             "diskInformation|drive|label|label|text||rarely|drive label, network drive",
             "driverInfoFromRegistry|deviceClass > driver|driverVersion|Driver Version|version||rarely|",
             "qtSystemEnvironment|variable|value|value|text||rarely|user, path, secret",
             "qtNetworkInterfaces|interface > gateway|ip|ip|text||rarely|address",
             "qtScreens|screen|physicalDpiY|physical dpi y|real number|dpi|rarely|",
         })
        QTest::newRow(line) << QString::fromLatin1(line);
}

void FactListTest::someFacts()
{
    QFETCH(QString, line);
    QStringList lines;
    for (const FactEntry &fact : factList())
        lines << QStringList({fact.section, fact.item, fact.key, fact.label, fact.type, fact.unit, fact.changes,
                              fact.reveals.join(QStringLiteral(", "))})
                     .join(QLatin1Char('|'));
    QCOMPARE(lines.count(line), 1);
}

void FactListTest::jsonHasTheSameFacts()
{
    const std::vector<FactEntry> facts = factList();
    const QJsonArray array = QJsonDocument::fromJson(factListJson(facts)).object().value(QStringLiteral("facts")).toArray();
    QCOMPARE(array.size(), int(facts.size()));
    for (int i = 0; i < array.size(); ++i) {
        const QJsonObject object = array.at(i).toObject();
        QCOMPARE(object.value(QStringLiteral("key")).toString(), facts[std::size_t(i)].key);
        QCOMPARE(object.value(QStringLiteral("reveals")).toArray().size(), facts[std::size_t(i)].reveals.size());
        QCOMPARE(object.value(QStringLiteral("meaning")).toString(), facts[std::size_t(i)].meaning);
    }
    QCOMPARE(factListText(facts).count('\n'), array.size() + 1);
}

void FactListTest::oneSection()
{
    int section = 0;
    while (qstrcmp(sectionRows()[std::size_t(section)].name, "qtLocale") != 0)
        ++section;
    const QByteArray text = factListText(factList({section}));
    QCOMPARE(text.count('\n'), 4);
    QCOMPARE(text.count("qtLocale"), 3);
}

// If the environment variable UPDATE_DOCUMENTS is set, the test writes docs/facts.md and does not
// compare it.
void FactListTest::factsMdIsUpToDate()
{
    QFile document(QStringLiteral(PROJECT_DIR "/docs/facts.md"));
    QVERIFY(document.open(QIODevice::ReadWrite));
    const QByteArray text = document.readAll();
    const QByteArray lastHeadLine = "|---|---|---|---|---|---|---|---|\n";
    const int list = text.indexOf(lastHeadLine) + lastHeadLine.size();
    QVERIFY(list > lastHeadLine.size());
    const QByteArray expected = text.left(list) + factListMarkdown(factList()) + meaningsMarkdown();
    if (qEnvironmentVariableIsSet("UPDATE_DOCUMENTS"))
        QVERIFY(document.resize(0) && document.seek(0) && document.write(expected) == expected.size());
    else
        COMPARE_TEXT(QString::fromUtf8(text), QString::fromUtf8(expected));
}

TEST_WITHOUT_APPLICATION(FactListTest);
#include "tst_fact_list.moc"
