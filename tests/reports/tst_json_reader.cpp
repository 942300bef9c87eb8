// JSON of strangers: what fromJson() refuses, and with which message.

#include "test_main.h"
#include "vkReports.h"

#include <QtCore/QFile>
#include <random>

using namespace velkor::Reports;

class JsonReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void smallestDocument();
    void errorMayBeNull();
    void valuesOfNumbersAreNotUsed();
    void checksumMayBeMissing();
    void redactionIsIgnored_data();
    void redactionIsIgnored();
    void refuses_data();
    void refuses();
    void refusesDeepNesting_data();
    void refusesDeepNesting();
    void refusesTextThatIsTooLong();
    void changedJson();
};

namespace {

const QByteArray head = R"("format":"vkSystemInfo report","schemaVersion":1,"encoding":"UTF-8","byteOrderMark":false,)"
                        R"("lineEnd":"\n","linePrefix":"","blanks":[])";

QByteArray document(const QByteArray &reports, const QByteArray &layout)
{
    return '{' + head + ",\"reports\":" + reports + ",\"layout\":" + layout + '}';
}

QByteArray section(const QByteArray &content)
{
    return document("[{\"sections\":[" + content + "]}]", "[]");
}

QByteArray memory(const QByteArray &fact)
{
    return section(R"({"name":"memoryInfo","facts":{)" + fact + "}}");
}

/// A document in which \a before is replaced by \a after.
QByteArray changed(const QByteArray &before, const QByteArray &after)
{
    QByteArray json = document("[]", "[]");
    return json.replace(before, after);
}

void addRow(const char *name, const QByteArray &json, const QByteArray &error)
{
    QTest::newRow(name) << json << QString::fromLatin1(error);
}

} // namespace

void JsonReaderTest::smallestDocument()
{
    const std::optional<Document> empty = fromJson(document("[]", "[]"));
    QVERIFY(empty);
    QCOMPARE(empty->bytes(), QByteArray());
    const std::optional<Document> text = fromJson(document("[]", R"(["a\r\n",{"base64":"/w=="},"b"])"));
    QVERIFY(text);
    QCOMPARE(text->bytes(), QByteArray("a\r\n\xff"
                                       "b"));
}

void JsonReaderTest::errorMayBeNull()
{
    QVERIFY(!fromJson("[", nullptr));
    QString error = QStringLiteral("old");
    QVERIFY(fromJson(document("[]", "[]"), &error));
    QCOMPARE(error, QString());
}

void JsonReaderTest::valuesOfNumbersAreNotUsed()
{
    const std::optional<Document> restored = fromJson(memory(R"("memoryLoad":{"value":3,"text":"15%"})"));
    QVERIFY(restored);
    QCOMPARE(restored->bytes(),
             QByteArray("############ Windows specific section ###########\nMemory Information:\nMemoryLoad:            15%\n")
                 + separatorLine() + '\n');
}

void JsonReaderTest::checksumMayBeMissing()
{
    QByteArray json = toJson(read("Memory Information:\n"));
    const int begin = json.indexOf(" \"sha256\"");
    json.remove(begin, json.indexOf('\n', begin) + 1 - begin);
    QVERIFY(fromJson(json));
    QVERIFY(!json.contains("sha256"));
}

void JsonReaderTest::redactionIsIgnored_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("null") << QByteArray("null");
    QTest::newRow("boolean") << QByteArray("true");
    QTest::newRow("integer") << QByteArray("-1");
    QTest::newRow("integer of 64 bits") << QByteArray("18446744073709551615");
    QTest::newRow("real") << QByteArray("1.5");
    QTest::newRow("text") << QByteArray("\"\\u0000\"");
    QTest::newRow("empty array") << QByteArray("[]");
    QTest::newRow("empty object") << QByteArray("{}");
    QTest::newRow("what toJson() writes") << redactionJson(Redaction {{}, {{AliasKind::User, QStringLiteral("user-1"), 1, Reason::Fact, {}}}, 2, {}});
    QTest::newRow("each kind of value") << QByteArray(R"([null,true,1,-1,1.5,"x",[],{},[[1],{"a":[{}]}]])");
    QTest::newRow("keys of the form") << QByteArray(R"({"format":1,"layout":["x"],"redaction":{"redaction":null},"reports":{}})");
    QTest::newRow("key twice") << QByteArray(R"({"a":1,"a":[]})");
    QTest::newRow("16 levels") << QByteArray("[").repeated(16) + QByteArray("]").repeated(16);
}

void JsonReaderTest::redactionIsIgnored()
{
    QFETCH(QByteArray, value);
    const QByteArray json = memory(R"("memoryLoad":{"value":15,"text":"15%"})");
    const QByteArray before = QByteArray(json).replace("\"encoding\"", "\"redaction\":" + value + ",\"encoding\"");
    const QByteArray after = json.chopped(1) + ",\"redaction\":" + value + '}';
    QString error;
    for (const QByteArray &redacted : {before, after}) {
        const std::optional<Document> document = fromJson(redacted, &error);
        QVERIFY2(document, qPrintable(error));
        QCOMPARE(document->bytes(), fromJson(json)->bytes());
    }
}

void JsonReaderTest::refuses_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("message");

    addRow("nothing", "", "no valid JSON at byte 1");
    addRow("a report as text", "Memory Information:\n", "no valid JSON at byte 1");
    // Bytes count from 1. An element of "layout" begins where the shortest document has its last bracket.
    const QByteArray shortest = document("[]", "[]");
    const auto at = [](int byte) { return "no valid JSON at byte " + QByteArray::number(byte); };
    addRow("text after the document", shortest + "x", at(shortest.size() + 1));
    addRow("document that ends early", shortest.chopped(1), at(shortest.size()));
    const int element = shortest.size() - 1;
    addRow("unpaired surrogate", document("[]", R"(["\ud800"])"), "layout[0]: " + at(element + 7));
    addRow("no UTF-8", document("[]", "[\"\xff\"]"), "layout[0]: " + at(element + 1));
    addRow("control character", document("[]", "[\"\x01\"]"), "layout[0]: " + at(element + 1));
    const QByteArray infinite = memory(R"("memoryLoad":{"value":1e999,"text":""})");
    addRow("number that no double holds", infinite,
           "reports[0].sections[0].facts.memoryLoad.value: " + at(infinite.indexOf("1e999") + 5));

    addRow("array", "[]", "this kind of value is not expected here");
    addRow("null", "null", "this kind of value is not expected here");
    addRow("number", "1", "this kind of value is not expected here");
    addRow("empty object", "{}", "\"format\" is missing");
    addRow("unknown key", "{\"extra\":1}", "the key \"extra\" is not known");
    addRow("unknown key with control characters", "{\"\\u001b[31m\xc3\xa4\":1}", "the key \"?[31m??\" is not known");
    addRow("long unknown key", '{' + QByteArray(1, '"') + QByteArray(1000, 'x') + "\":1}",
           "the key \"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx...\" is not known");
    addRow("key of another place", "{\"text\":1}", "text: this kind of value is not expected here");
    addRow("key twice", "{\"format\":\"vkSystemInfo report\",\"format\":1}", "the key \"format\" is there twice");
    addRow("another format", "{\"format\":\"x\"}", "format: \"x\" is no report");
    addRow("format as number", "{\"format\":1}", "format: this kind of value is not expected here");
    addRow("later version", changed("\"schemaVersion\":1", "\"schemaVersion\":2"),
           "schemaVersion: version 2 of the JSON form is not known, only version 1");
    addRow("version with a fraction", changed("\"schemaVersion\":1", "\"schemaVersion\":1.0"),
           "schemaVersion: the version is no integer");
    addRow("version of 65 bits", changed("\"schemaVersion\":1", "\"schemaVersion\":18446744073709551616"),
           "schemaVersion: the version is no integer");
    addRow("version of 64 bits", changed("\"schemaVersion\":1", "\"schemaVersion\":18446744073709551615"),
           "schemaVersion: the number is too large");
    addRow("version as text", changed("\"schemaVersion\":1", "\"schemaVersion\":\"1\""),
           "schemaVersion: this kind of value is not expected here");
    addRow("missing version", changed("\"schemaVersion\":1,", ""), "\"schemaVersion\" is missing");
    addRow("missing layout", changed(",\"layout\":[]", ""), "\"layout\" is missing");
    addRow("redaction twice", changed("\"reports\":[]", "\"redaction\":{},\"redaction\":{},\"reports\":[]"),
           "the key \"redaction\" is there twice");
    addRow("redaction of 17 levels",
           changed("\"reports\":[]", "\"redaction\":" + QByteArray("[").repeated(17) + QByteArray("]").repeated(17) + ",\"reports\":[]"),
           "redaction: more than 16 objects and arrays in each other");
    addRow("redaction in a section", section(R"({"name":"memoryInfo","facts":{},"redaction":{}})"),
           "reports[0].sections[0].redaction: this kind of value is not expected here");
    addRow("redaction without an end", "{\"redaction\":[", "redaction: no valid JSON at byte 15");
    addRow("unknown encoding", changed("UTF-8", "UTF-32"), "encoding: the encoding \"UTF-32\" is not known");
    addRow("mark as number", changed("false", "0"), "byteOrderMark: this kind of value is not expected here");
    addRow("unknown line end", changed("\\n", "x"), "lineEnd: the line end is not known");
    addRow("long prefix", changed("\"linePrefix\":\"\"", "\"linePrefix\":\"> > > > > > > > > \""),
           "linePrefix: more than 16 bytes");
    addRow("unknown blanks", changed("\"blanks\":[]", "\"blanks\":[\"noBreak\",\"x\"]"), "blanks[1]: \"x\" is not known");
    addRow("unknown state", changed("\"reports\":[]", "\"states\":[\"x\"],\"reports\":[]"),
           "states[0]: the state \"x\" is not known");
    addRow("short checksum", changed("\"reports\":[]", "\"sha256\":\"00\",\"reports\":[]"),
           "sha256: no SHA-256 in hexadecimal digits");
    addRow("another checksum", changed("\"reports\":[]", "\"sha256\":\"" + QByteArray(64, '0') + "\",\"reports\":[]"),
           "sha256: the JSON was changed, or another version wrote it: the text is not the same");
    addRow("tail of two bytes", changed("\"reports\":[]", "\"tail\":\"xy\",\"reports\":[]"), "tail: not one byte");

    addRow("layout that takes too many lines", document("[]", "[1]"),
           "layout: it does not fit the reports, or the text is too long");
    addRow("layout that skips too many lines", document("[]", "[-1]"),
           "layout: it does not fit the reports, or the text is too long");
    addRow("layout with no lines", document("[]", "[0]"), "layout[0]: the count of lines is out of range");
    addRow("layout with very many lines", document("[]", "[9223372036854775807]"),
           "layout[0]: the count of lines is out of range");
    addRow("layout with a fraction", document("[]", "[1.5]"), "layout[0]: this kind of value is not expected here");
    addRow("layout with an array", document("[]", "[\"\",[]]"), "layout[1]: this kind of value is not expected here");
    addRow("layout with another object", document("[]", "[{\"text\":\"\"}]"),
           "layout[0].text: this kind of value is not expected here");
    addRow("layout with an empty object", document("[]", "[{}]"), "layout[0]: \"base64\" is missing");
    addRow("layout with wrong base64", document("[]", "[{\"base64\":\"*\"}]"), "layout[0].base64: no valid base64");

    addRow("report without sections", document("[{}]", "[]"), "reports[0]: \"sections\" is missing");
    addRow("section as text", section("\"memoryInfo\""), "reports[0].sections[0]: this kind of value is not expected here");
    addRow("section without a name", section("{\"facts\":{}}"), "reports[0].sections[0]: \"name\" is missing");
    addRow("section without facts", section("{\"name\":\"memoryInfo\"}"),
           "reports[0].sections[0]: neither \"facts\" nor \"leftOut\" alone");
    addRow("section left out with facts", section(R"({"name":"memoryInfo","facts":{},"leftOut":true})"),
           "reports[0].sections[0]: neither \"facts\" nor \"leftOut\" alone");
    addRow("section not left out", section(R"({"name":"memoryInfo","leftOut":false})"),
           "reports[0].sections[0].leftOut: this kind of value is not expected here");
    addRow("unknown section", section(R"({"name":"x","facts":{}})"), "reports[0].sections[0].name: there is no section \"x\"");
    addRow("second section", section(R"({"name":"memoryInfo","facts":{}},{"name":"x"})"),
           "reports[0].sections[1].name: there is no section \"x\"");
    addRow("fact of another section", memory(R"("userName":"x")"),
           "reports[0].sections[0]: no fact \"userName\" is known here");
    addRow("fact of an item", section(R"({"name":"loadedModules","facts":{"path":"x"}})"),
           "reports[0].sections[0]: no fact \"path\" is known here");
    addRow("list of another section", section(R"({"name":"memoryInfo","facts":{},"modules":[{"path":"x"}]})"),
           "reports[0].sections[0]: no list \"modules\" is known here");
    addRow("list of another item",
           section(R"({"name":"qtNetworkInterfaces","facts":{},"interfaces":[{"name":"x","interfaces":[{"name":"y"}]}]})"),
           "reports[0].sections[0]: no list \"interfaces\" is known here");
    addRow("list among the facts", memory(R"("modules":[])"),
           "reports[0].sections[0].facts.modules: this kind of value is not expected here");
    addRow("list as object", section(R"({"name":"loadedModules","facts":{},"modules":{}})"),
           "reports[0].sections[0].modules: this kind of value is not expected here");
    addRow("empty item", section(R"({"name":"loadedModules","facts":{},"modules":[{"path":"x"},{}]})"),
           "reports[0].sections[0].modules[1]: the item is empty");
    addRow("fact twice", memory(R"("memoryLoad":{"value":1,"text":""},"memoryLoad":{"value":1,"text":""})"),
           "reports[0].sections[0].facts: the key \"memoryLoad\" is there twice");
    addRow("number as text", memory(R"("memoryLoad":"15%")"),
           "reports[0].sections[0]: the fact \"memoryLoad\" has a value of another type");
    addRow("number with a fraction", memory(R"("memoryLoad":{"value":1.5,"text":""})"),
           "reports[0].sections[0]: the fact \"memoryLoad\" has a value of another type");
    addRow("number without text", memory(R"("memoryLoad":{"value":1})"),
           "reports[0].sections[0].facts.memoryLoad: neither \"value\" and \"text\", nor \"base64\"");
    addRow("number with text and base64", memory(R"("memoryLoad":{"value":1,"text":"","base64":""})"),
           "reports[0].sections[0].facts.memoryLoad: neither \"value\" and \"text\", nor \"base64\"");
    addRow("bytes as a number", memory(R"("totalPhys":{"value":1,"text":""})"),
           "reports[0].sections[0]: the fact \"totalPhys\" has a value of another type");
    addRow("text as an object", section(R"({"name":"userName","facts":{"userName":{"value":"","text":""}}})"),
           "reports[0].sections[0]: the fact \"userName\" has a value of another type");
    addRow("text as a list", section(R"({"name":"userName","facts":{"userName":[]}})"),
           "reports[0].sections[0]: the fact \"userName\" has a value of another type");
    addRow("null as text", section(R"({"name":"userName","facts":{"userName":null}})"),
           "reports[0].sections[0].facts.userName: this kind of value is not expected here");
    addRow("list with a number", section(R"({"name":"processorInfo","facts":{"activeProcessors":["",1]}})"),
           "reports[0].sections[0].facts.activeProcessors[1]: this kind of value is not expected here");
}

void JsonReaderTest::refuses()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, message);
    QString error;
    QVERIFY(!fromJson(json, &error));
    QCOMPARE(error, message);
}

void JsonReaderTest::refusesDeepNesting_data()
{
    QTest::addColumn<QByteArray>("json");
    QByteArray arrays(1000000, '[');
    QTest::newRow("arrays") << arrays;
    QTest::newRow("arrays in a fact") << section(R"({"name":"processorInfo","facts":{"activeProcessors":)" + arrays);
    QTest::newRow("arrays in the redaction") << "{\"redaction\":" + arrays;
    QTest::newRow("objects in the redaction") << "{\"redaction\":" + QByteArray("{\"a\":").repeated(100000);
    QTest::newRow("objects in a fact") << memory(QByteArray("\"memoryLoad\":{\"text\":").repeated(100000));
    QTest::newRow("items") << section("{\"name\":\"driverInfoFromRegistry\"," + QByteArray("\"drivers\":[{").repeated(100000));
}

void JsonReaderTest::refusesDeepNesting()
{
    QFETCH(QByteArray, json);
    QVERIFY(!fromJson(json));
}

// A long text for its JSON: a list whose entries stand on lines of their own, with a quote.
void JsonReaderTest::refusesTextThatIsTooLong()
{
    QByteArray json = section(R"({"name":"processorInfo","facts":{"activeProcessors":[)"
                              + QByteArray("\"\",").repeated(100000) + "\"\"]}}");
    json.replace(0, head.size() + 1, '{' + QByteArray(head).replace("\"linePrefix\":\"\"", "\"linePrefix\":\"> > > > > > > > \""));
    QString error;
    QVERIFY(!fromJson(json, &error));
    QCOMPARE(error, QStringLiteral("layout: it does not fit the reports, or the text is too long"));
}

// Bytes of JSON are changed, removed and doubled: an error, or a document, but never a crash.
void JsonReaderTest::changedJson()
{
    QFile file(QStringLiteral(PROJECT_DIR "/docs/example-report.txt"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QByteArray text = file.readAll();
    text = text.left(9000) + text.right(20000).left(12000);
    QByteArray json = toJson(read(text));
    const int checksum = json.indexOf(" \"sha256\"");
    json.remove(checksum, json.indexOf('\n', checksum) + 1 - checksum);
    std::mt19937 random(3); // NOLINT(cert-msc51-cpp): the same changes in each run
    const auto below = [&](int limit) { return int(random() % unsigned(limit)); };
    int readable = 0;
    for (int i = 0; i < 500; ++i) {
        QByteArray edited = json;
        const int at = below(edited.size());
        const int length = 1 + below(30);
        if (i % 3 == 0)
            edited[at] = "{}[]\",:0-\\x"[below(11)];
        else if (i % 3 == 1)
            edited.remove(at, length);
        else
            edited.insert(at, edited.mid(below(edited.size()), length));
        QString error;
        const std::optional<Document> document = fromJson(edited, &error);
        QCOMPARE(document.has_value(), error.isEmpty());
        readable += document ? 1 : 0;
    }
    QVERIFY(readable > 0);
}

TEST_WITHOUT_APPLICATION(JsonReaderTest);
#include "tst_json_reader.moc"
