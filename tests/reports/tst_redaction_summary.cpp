// What the summary of a redaction, its JSON and the list of aliases say. The redactions are written by hand.

#include "test_main.h"
#include "vkReports.h"

#include <QtCore/QSet>
#include <nlohmann/json.hpp>

using namespace velkor::Reports;

Q_DECLARE_METATYPE(Redaction)

class RedactionSummaryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void kindNames();
    void summary_data();
    void summary();
    void namesOfKindsAndReasons();
    void json();
    void emptyJson();
    void aliasMap();
    void aliasMapIsJson();
    void jsonOfDocument();
    void textsHaveNoOriginals();
};

namespace {

constexpr char first[]
    = "This report is not anonymous: its hardware, programs, versions and dates can identify the machine "
      "for somebody who knows it.\n";

QString text(const char *latin1) { return QString::fromLatin1(latin1); }

Alias alias(AliasKind kind, const char *name, int count, Reasons reasons, const QStringList &spellings = {})
{
    return {kind, text(name), count, reasons, spellings};
}

Redaction redactionOf(const std::vector<Alias> &aliases, int environmentValues = 0)
{
    return {{Document()}, aliases, environmentValues, {}};
}

Redaction example()
{
    return redactionOf({alias(AliasKind::Host, "host-1", 2, Reason::Fact | Reason::SameElsewhere,
                              {text("LINDE-PC"), text("linde-pc")}),
                        alias(AliasKind::User, "user-1", 5, Reason::Fact, {text("J\\ \"\t\x1b")}),
                        alias(AliasKind::Secret, "secret-1", 1, Reason::Form, {text("hunter2")})},
                       3);
}

} // namespace

// The names are part of the texts of reports and never change.
void RedactionSummaryTest::kindNames()
{
    const QStringList expected
        = text("user host domain org product serial mac ip printer label share folder secret word")
              .split(QLatin1Char(' '));
    QStringList names;
    for (int kind = 0; kind <= int(AliasKind::Word); ++kind)
        names += aliasKindName(AliasKind(kind));
    QCOMPARE(names, expected);
}

void RedactionSummaryTest::summary_data()
{
    QTest::addColumn<Redaction>("redaction");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("nothing") << redactionOf({}) << first + QByteArray("Nothing was replaced.\n");
    QTest::newRow("no document") << Redaction() << first + QByteArray("Nothing was replaced.\n");
    QTest::newRow("one") << redactionOf({alias(AliasKind::User, "user-1", 1, Reason::Fact)})
                         << first + QByteArray("1 user name in 1 place: a fact of the report reveals it.\n");
    QTest::newRow("several places") << redactionOf(
        {alias(AliasKind::Mac, "mac-1", 14, Reason::Fact | Reason::SameElsewhere)})
                                    << first
            + QByteArray("1 MAC address in 14 places: a fact of the report reveals it; it occurs elsewhere, too.\n");
    QTest::newRow("several aliases of a kind")
        << redactionOf({alias(AliasKind::Ip, "ip-1", 2, Reason::Fact), alias(AliasKind::Ip, "ip-2", 1, Reason::Form)})
        << first
            + QByteArray(
                "2 IP addresses in 3 places: facts of the report reveal them; their form shows what they are.\n");
    QTest::newRow("several kinds, in the order of the kinds")
        << redactionOf({alias(AliasKind::Secret, "secret-1", 1, Reason::Form),
                        alias(AliasKind::Organisation, "org-1", 1, Reason::Fact)})
        << first
            + QByteArray("1 organisation in 1 place: a fact of the report reveals it.\n"
                         "1 secret in 1 place: its form shows what it is.\n");
    QTest::newRow("no reason") << redactionOf({alias(AliasKind::Word, "word-1", 1, {})})
                               << first + QByteArray("1 other word in 1 place.\n");
    QTest::newRow("one value of a variable")
        << redactionOf({}, 1) << first + QByteArray("1 value of an environment variable became its length.\n");
    QTest::newRow("values of variables") << redactionOf(
        {}, 2) << first + QByteArray("2 values of environment variables became their lengths.\n");
    QTest::newRow("many places") << redactionOf({alias(AliasKind::Ip, "ip-1", 2147483647, Reason::Form),
                                                 alias(AliasKind::Ip, "ip-2", 2147483647, Reason::Form)})
                                 << first
            + QByteArray("2 IP addresses in 4294967294 places: their form shows what they are.\n");
    Redaction several = redactionOf({}, 2);
    several.documents.emplace_back();
    QTest::newRow("several reports")
        << several
        << QByteArray("These reports are not anonymous: their hardware, programs, versions and dates can identify the "
                      "machines for "
                      "somebody who knows them.\n2 values of environment variables became their lengths.\n");
}

void RedactionSummaryTest::summary()
{
    QFETCH(Redaction, redaction);
    QFETCH(QByteArray, expected);
    QCOMPARE(redactionText(redaction), expected);
}

// Every kind and every reason has words of its own, in the singular and in the plural.
void RedactionSummaryTest::namesOfKindsAndReasons()
{
    QSet<QByteArray> lines;
    int made = 0;
    for (int kind = 0; kind <= int(AliasKind::Word); ++kind) {
        const Alias one = alias(AliasKind(kind), "x-1", 1, {});
        lines += redactionText(redactionOf({one})).mid(int(sizeof first) + 1);
        lines += redactionText(redactionOf({one, one})).mid(int(sizeof first) + 1);
        made += 2;
    }
    for (int reason = 1; reason <= int(Reason::Hidden); reason *= 2) {
        const Alias one = alias(AliasKind::User, "user-1", 1, Reason(reason));
        lines += redactionText(redactionOf({one}));
        lines += redactionText(redactionOf({one, one}));
        lines += redactionJson(redactionOf({one}));
        made += 3;
    }
    QCOMPARE(lines.size(), made);
}

void RedactionSummaryTest::json()
{
    QCOMPARE(
        redactionJson(example()),
        QByteArray(
            "{\"anonymous\": false, \"environmentValues\": 3, \"aliases\": [\n"
            "  {\"alias\": \"host-1\", \"kind\": \"host\", \"count\": 2, \"reasons\": [\"fact\", \"sameElsewhere\"]},\n"
            "  {\"alias\": \"user-1\", \"kind\": \"user\", \"count\": 5, \"reasons\": [\"fact\"]},\n"
            "  {\"alias\": \"secret-1\", \"kind\": \"secret\", \"count\": 1, \"reasons\": [\"form\"]}]}\n"));
    const Reasons all(QFlag(0x3f));
    QVERIFY(redactionJson(redactionOf({alias(AliasKind::User, "user-1", 1, all)}))
                .contains(R"(["fact", "sameElsewhere", "folder", "form", "environment", "hidden"])"));
}

void RedactionSummaryTest::emptyJson()
{
    QCOMPARE(redactionJson(Redaction()),
             QByteArray("{\"anonymous\": false, \"environmentValues\": 0, \"aliases\": []}\n"));
    QCOMPARE(aliasMapJson(Redaction()), QByteArray("{\"aliases\": []}\n"));
}

void RedactionSummaryTest::aliasMap()
{
    QCOMPARE(
        aliasMapJson(example()),
        QByteArray("{\"aliases\": [\n"
                   "  {\"alias\": \"host-1\", \"kind\": \"host\", \"spellings\": [\"LINDE-PC\", \"linde-pc\"]},\n"
                   "  {\"alias\": \"user-1\", \"kind\": \"user\", \"spellings\": [\"J\\\\ \\\"\\u0009\\u001b\"]}]}\n"));
}

void RedactionSummaryTest::aliasMapIsJson()
{
    const nlohmann::json map = nlohmann::json::parse(aliasMapJson(example()).toStdString());
    QCOMPARE(map["aliases"].size(), std::size_t(2));
    QVERIFY(map["aliases"][1]["spellings"][0] == "J\\ \"\t\x1b");
}

// The member is in the JSON of the document, which is otherwise the same.
void RedactionSummaryTest::jsonOfDocument()
{
    const Document document = read("User name:                    user-1\n");
    const QByteArray withoutMember = toJson(document);
    const QByteArray json = toJson(document, example());
    const QByteArray member = " \"redaction\": " + redactionJson(example()).trimmed() + ",\n";
    QCOMPARE(json.count(member), 1);
    QCOMPARE(QByteArray(json).replace(member, ""), withoutMember);
    const auto parsed = nlohmann::json::parse(json.toStdString());
    QVERIFY(parsed["redaction"] == nlohmann::json::parse(redactionJson(example()).toStdString()));
    QString error;
    const std::optional<Document> again = fromJson(json, &error);
    QVERIFY2(again, qPrintable(error));
    QCOMPARE(again->bytes(), document.bytes());
}

void RedactionSummaryTest::textsHaveNoOriginals()
{
    for (const QByteArray &text : {redactionText(example()), redactionJson(example()), toJson(Document(), example())}) {
        QVERIFY(!text.toLower().contains("linde"));
        QVERIFY(!text.contains("hunter2"));
    }
    QVERIFY(!aliasMapJson(example()).contains("hunter2"));
    QVERIFY(!aliasMapJson(example()).contains("secret"));
}

TEST_WITHOUT_APPLICATION(RedactionSummaryTest);
#include "tst_redaction_summary.moc"
