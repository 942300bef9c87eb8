// The reader and the JSON form on reports of generated machines: the described machines with parts
// missing, parts of the fuzzer's inputs, and bytes changed. GENERATED_REPORTS is their number.

#include "document_texts.h"
#include "installed_machine.h"
#include "machine_loader.h"
#include "seeds.h"
#include "test_main.h"

#include <QtCore/QDir>
#include <random>

using namespace velkor::Reports;

class GeneratedReportsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void reports();

private:
    QByteArray generated(std::mt19937 &random) const;

    std::vector<QList<QByteArray>> m_machines; ///< steps by topic
    std::vector<QByteArray> m_learned;
    QByteArray m_qtHalf;
};

void GeneratedReportsTest::initTestCase()
{
    for (const char *name : {"workstation", "wine"}) {
        QString error;
        const std::optional<machine::Machine> loaded = machine::loadMachine(QStringLiteral(MACHINES_DIR "/") + QLatin1String(name), error);
        QVERIFY2(loaded, qPrintable(error));
        m_machines.push_back(seedsOf(*loaded).values());
    }
    const QDir learned(QStringLiteral(LEARNED_INPUTS_DIR));
    const QStringList names = learned.entryList(QDir::Files, QDir::Name);
    for (const QString &name : names)
        m_learned.push_back(contentsOf(learned.filePath(name)));
    QVERIFY(!m_learned.empty());
    const QByteArray report = contentsOf(QStringLiteral(REPORTS_DATA_DIR "/workstation.txt"));
    m_qtHalf = report.mid(report.indexOf(halfHeading(Half::Qt)));
    QVERIFY(m_qtHalf.size() > 1000);
}

QByteArray GeneratedReportsTest::generated(std::mt19937 &random) const
{
    QByteArray steps;
    const QList<QByteArray> &machine = m_machines[random() % m_machines.size()];
    for (const QByteArray &topic : machine) {
        if (random() % 8 != 0)
            steps += topic;
    }
    for (unsigned count = random() % 4; count > 0; --count) {
        const QByteArray &input = m_learned[random() % m_learned.size()];
        steps.insert(int(random() % unsigned(steps.size() + 1)), input.left(int(random() % 400)));
    }
    for (unsigned count = random() % 6; count > 0 && !steps.isEmpty(); --count)
        steps[int(random() % unsigned(steps.size()))] = char(random());
    return steps;
}

void GeneratedReportsTest::reports()
{
    bool given = false;
    const int wanted = qEnvironmentVariableIntValue("GENERATED_REPORTS", &given);
    const int count = given ? wanted : 60;
    std::mt19937 random(20231205);
    qint64 lines = 0;
    qint64 others = 0;
    double largest = 0;
    for (int i = 0; i < count; ++i) {
        const QByteArray text = windowsHalfOf(generated(random)).toUtf8() + m_qtHalf;
        const Document document = read(text);
        QVERIFY2(document.bytes() == text, qPrintable(QStringLiteral("report %1").arg(i)));
        const QString flaw = flawOfPlaces(document);
        QVERIFY2(flaw.isEmpty(), qPrintable(QStringLiteral("report %1: %2").arg(i).arg(flaw)));
        const QByteArray json = toJson(document);
        QString error;
        const std::optional<Document> again = fromJson(json, &error);
        QVERIFY2(again && again->bytes() == text, qPrintable(QStringLiteral("report %1: %2").arg(i).arg(error)));
        QVERIFY(compare(document, *again).same());
        lines += text.count('\n');
        const int unknown = otherLines(document);
        others += unknown;
        largest = std::max(largest, double(json.size()) / text.size());
        if (unknown > 0 && qEnvironmentVariableIsSet("KEEP_REPORTS"))
            qInfo("report %d: %d lines of %d", i, unknown, text.count('\n'));
    }
    qInfo("%d reports, %lld lines, of which no rule knows %lld; JSON at most %.2f times the text", count, lines, others, largest);
    QVERIFY(others * 1000 < lines);
    QVERIFY(largest <= 3);
}

TEST_WITHOUT_APPLICATION(GeneratedReportsTest);
#include "tst_generated_reports.moc"
