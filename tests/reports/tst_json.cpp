// The JSON form: what it looks like, and that it gives the same bytes again.

#include "test_main.h"
#include "texts.h"
#include "vkReports.h"

#include <QtCore/QDirIterator>
#include <QtCore/QJsonDocument>
#include <random>

using namespace velkor::Reports;

class JsonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wholeForm();
    void valuesOfEachType();
    void itemsWithoutTheirParent();
    void factWrittenTwice();
    void sectionsThatWouldBeTooLong();
    void reports_data();
    void reports();
    void shortTexts_data();
    void shortTexts();
    void randomBytes();
    void editedReports();
    void keysInAnotherOrder();
};

namespace {

constexpr char windowsHeading[] = "############ Windows specific section ###########\n";

QByteArray separator()
{
    return separatorLine() + '\n';
}

QByteArray fileContent(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList reportFiles()
{
    QStringList files = {QStringLiteral(PROJECT_DIR "/docs/example-report.txt")};
    for (const char *folder : {GOLDEN_DIR, REPORTS_DATA_DIR}) {
        QDirIterator entries(QString::fromUtf8(folder), {QStringLiteral("*.txt")}, QDir::Files, QDirIterator::Subdirectories);
        while (entries.hasNext())
            files += entries.next();
    }
    return files;
}

/// Empty if the JSON of \a bytes gives the same bytes and is not too long; else what is wrong.
QByteArray roundTripError(const QByteArray &bytes)
{
    const QByteArray json = toJson(read(bytes));
    if (json.size() > 3 * bytes.size() + 2048)
        return "the JSON has " + QByteArray::number(json.size()) + " bytes, the text " + QByteArray::number(bytes.size());
    QString error;
    const std::optional<Document> restored = fromJson(json, &error);
    if (!restored)
        return error.toUtf8();
    return restored->bytes() == bytes ? QByteArray() : QByteArray("the bytes differ");
}

/// The member "reports" without line feeds and indentation.
QByteArray reportsOf(const QByteArray &text)
{
    const QByteArray json = toJson(read(text));
    const int begin = json.indexOf("\"reports\": ") + 11;
    QByteArray result;
    for (const QByteArray &line : json.mid(begin, json.indexOf("\n \"layout\"") - 1 - begin).split('\n'))
        result += line.trimmed();
    return result;
}

} // namespace

void JsonTest::wholeForm()
{
    const QByteArray text = "Processor information: \n"
                            "Number of processors:       2\n"
                            "Active processors:          Processor #0\n"
                            "                            Processor #1\n"
                            "Maximum Application Address 0x00007ffffffeffff\n"
                            "Central Processor information from Registry\n"
                            "Processor #0\n"
                            "MHZ:                  2445 MHz = 2.445 GHz\n"
                            "Processor #1\n"
                            "MHZ:                  2400 MHz = 2.4 GHz\n"
        + separator()
        + "Memory Information:\n"
          "MemoryLoad:            15%\n"
          "TotalPhys:             25276506112 Byte = 23.5 GByte\n"
        + separator()
        + "Computer name\n"
          "hostname                      vm\n"
          "User name:                    J\xf6rn\n"
        + separator() + "A \"note\"\n";
    // sha256: of the program sha256sum. layout: the heading of the half is missing; then follow 5 lines
    // of the first section, 5 of the second, 3 of the third, 2 of the fourth, 1 of the fifth and three
    // separators.
    const char expected[] = R"({
 "format": "vkSystemInfo report",
 "schemaVersion": 1,
 "sha256": "fa00f537fbe293ea54de943d71ef2defa2499eb2067c0e2b643533bf8c0d6482",
 "states": ["foreignText", "startMissing", "endMissing", "notUtf8"],
 "encoding": "UTF-8",
 "byteOrderMark": false,
 "lineEnd": "\n",
 "linePrefix": "",
 "blanks": [],
 "reports": [
  {"sections": [
   {"name": "processorInfo", "facts": {
    "numberOfProcessors": {"value": 2, "text": "2"},
    "activeProcessors": ["Processor #0", "Processor #1"],
    "maximumApplicationAddress": {"value": "140737488289791", "text": "0x00007ffffffeffff"}}},
   {"name": "processorRegistryInfo", "facts": {},
   "processors": [
    {"index": {"value": 0, "text": "0"}, "mhz": {"value": 2445, "text": "2445 MHz = 2.445 GHz"}},
    {"index": {"value": 1, "text": "1"}, "mhz": {"value": 2400, "text": "2400 MHz = 2.4 GHz"}}]},
   {"name": "memoryInfo", "facts": {
    "memoryLoad": {"value": 15, "text": "15%"},
    "totalPhys": {"value": "25276506112", "text": "25276506112 Byte = 23.5 GByte"}}},
   {"name": "computerNames", "facts": {
    "hostname": "vm"}},
   {"name": "userName", "facts": {
    "userName": {"base64":"SvZybg=="}}}]}],
 "layout": [-1, 19, "A \"note\"\n"]
}
)";
    COMPARE_TEXT(QString::fromUtf8(toJson(read(text))), QString::fromUtf8(expected));
}

void JsonTest::valuesOfEachType()
{
    // Text, Version and Date
    QCOMPARE(reportsOf("SystemInformation from Registry\n"
                       "BIOSReleaseDate:     07/19/2021\n"
                       "BIOSVersion:         V5 \"\\\t\n"
                       + separator()),
             QByteArray(R"([{"sections": [{"name": "systemInformationFromRegistry", "facts": {)"
                        R"("biosReleaseDate": {"value": "2021-07-19", "text": "07/19/2021"},)"
                        R"("biosVersion": "V5 \"\\\t"}}]}])"));
    // Real, and a number that is none
    QCOMPARE(reportsOf("QScreen (hardware)\n"
                       "#1\n"
                       "  Physical DPI x: 96  y: 95.9161\n"
                       "  Color depth: many\n"
                       + separator()),
             QByteArray(R"([{"sections": [{"name": "qtScreens", "facts": {},"screens": [{"number": {"value": 1, "text": "1"}, )"
                        R"("physicalDpiX": {"value": 96, "text": "96"}, "physicalDpiY": {"value": 95.9161, "text": "95.9161"}, )"
                        R"("colorDepth": {"value": null, "text": "many"}}]}]}])"));
    // Items in items
    QCOMPARE(reportsOf(">>> Info about drivers from registry:\n"
                       "\n"
                       "----------------------------\n"
                       "Modem:\n"
                       "----------------------------\n"
                       "Mouse:\n"
                       "   Driver Version:     10.0.1\n"
                       "\n"
                       "   Driver Version:     10.0.2\n"
                       "----------------------------\n"
                       + separator()),
             QByteArray(R"([{"sections": [{"name": "driverInfoFromRegistry", "facts": {},"deviceClasses": [{"name": "Modem"},)"
                        R"({"name": "Mouse", "drivers": [{"driverVersion": "10.0.1"},{"driverVersion": "10.0.2"}]}]}]}])"));
}

// The class of the first drivers is missing in a report whose start is missing.
void JsonTest::itemsWithoutTheirParent()
{
    const QByteArray text = ">>> Info about video from registry:\n"
                            "\n"
                            "0000\n"
                            "   AdapterString: A\n"
                            "### Service: igfx\n"
                            "0001\n"
                            "   AdapterString: B\n"
        + separator();
    QCOMPARE(reportsOf(text),
             QByteArray(R"([{"sections": [{"name": "videoInfoFromRegistry", "facts": {},)"
                        R"("configurations": [{"name": "0000", "adapterString": "A"}],)"
                        R"("adapters": [{"service": "igfx", "configurations": [{"name": "0001", "adapterString": "B"}]}]}]}])"));
    // Only the heading of the half is missing.
    QVERIFY(toJson(read(text)).endsWith("\n \"layout\": [-1]\n}\n"));
}

void JsonTest::factWrittenTwice()
{
    const QByteArray text = windowsHeading + QByteArray("Some environment variables:\n"
                                                        "Expand env var %OS% failed!\n"
                                                        "Expand env var %PATH% failed!\n"
                                                        "TEMP     = C:\\Temp\n")
        + separator();
    QCOMPARE(reportsOf(text),
             QByteArray(R"([{"sections": [{"name": "someEnvironmentVariables", "facts": {)"
                        R"("templateFailed": "%OS%","temp": "C:\\Temp"}}]}])"));
    QVERIFY(toJson(read(text)).endsWith("\n \"layout\": [3, \"Expand env var %PATH% failed!\\n\"]\n}\n"));
    QCOMPARE(roundTripError(text), QByteArray());
}

void JsonTest::sectionsThatWouldBeTooLong()
{
    QByteArray text = "Loaded modules/DLLs:\n";
    for (int i = 0; i < 5000; ++i)
        text += "a\n";
    text += separator();
    text.prepend("Memory Information:\nMemoryLoad:            15%\n" + separator());
    const QByteArray json = toJson(read(text));
    QVERIFY(json.contains(R"({"name":"loadedModules","leftOut":true})"));
    QVERIFY(json.contains(R"({"name":"memoryInfo","facts":{"memoryLoad":{"value":15,"text":"15%"}}})"));
    QCOMPARE(roundTripError(text), QByteArray());
}

void JsonTest::reports_data()
{
    QTest::addColumn<QString>("file");
    for (const QString &file : reportFiles())
        QTest::newRow(qPrintable(file)) << file;
}

void JsonTest::reports()
{
    QFETCH(QString, file);
    const QByteArray bytes = fileContent(file);
    QCOMPARE(roundTripError(bytes), QByteArray());
    QVERIFY(!toJson(read(bytes)).contains("leftOut"));
}

void JsonTest::shortTexts_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("line feed") << QByteArray("\n");
    QTest::newRow("carriage return") << QByteArray("\r");
    QTest::newRow("many line feeds") << QByteArray(100000, '\n');
    QTest::newRow("many carriage returns") << QByteArray(100000, '\r');
    QTest::newRow("many zeros") << QByteArray(100000, '\0');
    QTest::newRow("many quotation marks") << QByteArray(100000, '"');
    QTest::newRow("many spaces") << QByteArray(100000, ' ');
    QTest::newRow("UTF-8 mark") << QByteArray("\xef\xbb\xbf");
    QTest::newRow("two UTF-8 marks") << QByteArray("\xef\xbb\xbf\xef\xbb\xbf");
    QTest::newRow("UTF-16LE mark") << QByteArray("\xff\xfe");
    QTest::newRow("UTF-16BE mark and half a character") << QByteArray("\xfe\xff\xd8");
    QTest::newRow("heading") << QByteArray(windowsHeading);
    QTest::newRow("heading without a line feed") << QByteArray(windowsHeading).chopped(1);
    QTest::newRow("separators") << separator() + separator() + separator().chopped(1);
    QTest::newRow("section heading alone") << QByteArray("Memory Information:\n");
    QTest::newRow("line and paragraph separators") << QByteArray("Memory Information:\nMemoryLoad:            \xe2\x80\xa8\xe2\x80\xa9\n");
    QTest::newRow("escape sequence") << QByteArray("User name:                    \x1b[31m\n");
    QTest::newRow("control character of two bytes") << QByteArray("User name:                    \xc2\x9b"
                                                                  "31m\n");
    QTest::newRow("largest character") << QByteArray("User name:                    \xf4\x8f\xbf\xbf\n");
    QTest::newRow("above the largest character") << QByteArray("User name:                    \xf4\x90\x80\x80\n");
    QTest::newRow("overlong character") << QByteArray("User name:                    \xc0\xaf\n");
    QTest::newRow("surrogate") << QByteArray("User name:                    \xed\xa0\x80\n");
}

void JsonTest::shortTexts()
{
    QFETCH(QByteArray, bytes);
    QCOMPARE(roundTripError(bytes), QByteArray());
}

void JsonTest::randomBytes()
{
    std::mt19937 random(20261122); // NOLINT(cert-msc51-cpp): the same bytes in each run
    for (int i = 0; i < 200; ++i) {
        QByteArray bytes(int(random() % 300), '\0');
        const unsigned values = i % 2 ? 256 : 8;
        for (char &byte : bytes)
            byte = values == 256 ? char(random()) : "\n\r >-a\xff:"[random() % values];
        const QByteArray error = roundTripError(bytes);
        QVERIFY2(error.isEmpty(), error + ": " + bytes.toHex());
    }
}

// Lines of a report are removed, doubled, moved, cut and changed.
void JsonTest::editedReports()
{
    const QByteArray report = fileContent(QStringLiteral(PROJECT_DIR "/docs/example-report.txt"));
    const QList<QByteArray> lines = report.split('\n');
    std::mt19937 random(7); // NOLINT(cert-msc51-cpp): the same edits in each run
    const auto anyLine = [&](const QList<QByteArray> &from) { return int(random() % unsigned(from.size())); };
    for (int i = 0; i < 400; ++i) {
        const int length = 1 + int(random() % 120);
        QList<QByteArray> edited = lines.mid(anyLine(lines), length);
        for (unsigned edits = random() % 8; edits > 0; --edits) {
            const int at = anyLine(edited);
            switch (random() % 7) {
            case 0:
                edited.insert(at, edited.at(anyLine(edited)));
                break;
            case 1:
                edited.insert(at, lines.at(anyLine(lines)));
                break;
            case 2:
                edited.move(at, anyLine(edited));
                break;
            case 3:
                edited[at].truncate(int(random() % unsigned(edited.at(at).size() + 1)));
                break;
            case 4:
                edited[at] += '\r';
                break;
            case 5:
                edited[at].insert(int(random() % unsigned(edited.at(at).size() + 1)), char(random()));
                break;
            default:
                if (edited.size() > 1)
                    edited.removeAt(at);
            }
        }
        const QByteArray text = edited.join('\n');
        const QByteArray error = roundTripError(text);
        QVERIFY2(error.isEmpty(), error + ":\n" + text);
    }
}

// Other programs sort the keys.
void JsonTest::keysInAnotherOrder()
{
    const QByteArray report = fileContent(QStringLiteral(PROJECT_DIR "/docs/example-report.txt"));
    const QByteArray json = QJsonDocument::fromJson(toJson(read(report))).toJson();
    QVERIFY(json.indexOf("\"schemaVersion\"") > json.indexOf("\"reports\""));
    QString error;
    const std::optional<Document> restored = fromJson(json, &error);
    QVERIFY2(restored, qPrintable(error));
    QCOMPARE(restored->bytes(), report);
}

TEST_WITHOUT_APPLICATION(JsonTest);
#include "tst_json.moc"
