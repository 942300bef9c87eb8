// What the window reads from standard error of vkreport.

#include "making/report_messages.h"
#include "test_main.h"

class ReportMessagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void progress_data();
    void progress();
    void onlyTheNewestProgress();
    void missing_data();
    void missing();
    void pieces();
    void driversWriteInBetween();
    void platform();
    void endlessLine();
    void endlessLines();
};

namespace {

ReportMessages messagesOf(const QByteArray &bytes)
{
    ReportMessages messages;
    messages.add(bytes);
    messages.finish();
    return messages;
}

} // namespace

void ReportMessagesTest::progress_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("work"); // null: no progress
    QTest::addColumn<double>("seconds");
    QTest::addColumn<double>("limit");
    const auto row = [](const char *line, const QString &work, double seconds = 0, double limit = 0) {
        QTest::newRow(line) << QByteArray(line) << work << seconds << limit;
    };
    row("vkreport: progress: start 0.0 60", QStringLiteral("Starting"), 0, 60);
    row("vkreport: progress: application 0.1 60", QStringLiteral("Starting"), 0.1, 60);
    row("vkreport: progress: allInfos 12.3 60", QStringLiteral("The whole report"), 12.3, 60);
    row("vkreport: progress: allInfosWithoutOpenGL 37.0 2.5", QStringLiteral("The report without OpenGL"), 37, 2.5);
    row("vkreport: progress: diskInformation 1.0 0", QStringLiteral("Disk information"), 1, 0);
    row("vkreport: progress: userName 1.0 60", QStringLiteral("userName"), 1, 60);
    row("vkreport: progress: portsFromRegistry:PARALLEL PORTS 3.0 4", QStringLiteral("Info about 'PARALLEL PORTS' ports from registry"), 3, 4);
    row("vkreport: progress: somethingNew 1.0 60", QStringLiteral("somethingNew"), 1, 60);
    row("vkreport: progress: allInfos 1.0 60\r", QStringLiteral("The whole report"), 1, 60);
    row("vkreport: progress: allInfos 1.0", QString());
    row("vkreport: progress: allInfos 1.0 60 seventy", QString());
    row("vkreport: progress: allInfos one 60", QString());
    row("vkreport: progress: allInfos -1 60", QString());
    row("vkreport: progress: allInfos nan 60", QString());
    row("progress: allInfos 1.0 60", QString());
    row("", QString());
}

void ReportMessagesTest::progress()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, work);
    ReportMessages messages = messagesOf(line + '\n');
    const auto progress = messages.takeProgress();
    QCOMPARE(progress.has_value(), !work.isNull());
    QVERIFY(!messages.takeProgress());
    QVERIFY(messages.missing().isEmpty());
    QCOMPARE(messages.others().isEmpty(), !work.isNull() || line.isEmpty());
    if (!progress)
        return;
    QCOMPARE(progress->work, work);
    QTEST(progress->seconds, "seconds");
    QTEST(progress->limit, "limit");
}

void ReportMessagesTest::onlyTheNewestProgress()
{
    ReportMessages messages;
    messages.add("vkreport: progress: start 0.0 60\nvkreport: progress: allInfos 0.1 60\n");
    QCOMPARE(messages.takeProgress()->work, QStringLiteral("The whole report"));
    messages.add("vkreport: progress: allInfos 1.1 60\n");
    QCOMPARE(messages.takeProgress()->seconds, 1.1);
}

void ReportMessagesTest::missing_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("sentence");
    const auto row = [](const char *line, const char *sentence) { QTest::newRow(line) << QByteArray(line) << QString::fromUtf8(sentence); };
    row("missing: diskInformation: did not end within 20.0 s", "Disk information is missing: it did not end within 20.0 s.");
    row("missing: userName: crashed after 0.1 s (SIGSEGV)", "userName is missing: it crashed after 0.1 s.");
    row("missing: userName: crashed after 0.1 s", "userName is missing: it crashed after 0.1 s.");
    row("missing: memoryInfo: ended the process after 0.3 s (exit code 7)", "Memory Information is missing: it ended the process after 0.3 s.");
    row("missing: memoryInfo: could not be started", "Memory Information is missing: it could not be started.");
    row("missing: memoryInfo: not tried, the time limit was reached", "Memory Information is missing: the time limit was reached before.");
    row("missing: memoryInfo: a reason of a later version", "Memory Information is missing: a reason of a later version.");
    row("missing: portsFromRegistry:UNKNOWN: crashed after 0.1 s (SIGSEGV)", "portsFromRegistry:UNKNOWN is missing: it crashed after 0.1 s.");
}

void ReportMessagesTest::missing()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, sentence);
    const ReportMessages messages = messagesOf("vkreport: the whole report did not end within 36.0 s\nvkreport: " + line + '\n');
    QCOMPARE(messages.missing(), QStringList(sentence));
    QCOMPARE(messages.others(), QStringList(QStringLiteral("the whole report did not end within 36.0 s")));
}

void ReportMessagesTest::pieces()
{
    const QByteArray bytes = "vkreport: progress: allInfos 1.0 60\nvkreport: missing: userName: could not be started\n\xc3\xa4\n";
    ReportMessages messages;
    for (const char byte : bytes)
        messages.add(QByteArray(1, byte));
    QCOMPARE(messages.takeProgress()->seconds, 1.0);
    QCOMPARE(messages.missing(), QStringList(QStringLiteral("userName is missing: it could not be started.")));
    QCOMPARE(messages.others(), QStringList(QString::fromUtf8("\xc3\xa4")));
}

void ReportMessagesTest::driversWriteInBetween()
{
    ReportMessages messages = messagesOf("libGL: no linevkreport: missing: userName: could not be started\nfirst\nvkreport: progress: allInfos 2.0 60");
    QCOMPARE(messages.missing(), QStringList(QStringLiteral("userName is missing: it could not be started.")));
    QCOMPARE(messages.others(), QStringList({QStringLiteral("libGL: no line"), QStringLiteral("first")}));
    QCOMPARE(messages.takeProgress()->seconds, 2.0);
}

void ReportMessagesTest::platform()
{
    const ReportMessages messages = messagesOf(
        "vkreport: no display: Qt's platform \"minimal\" is used; screens and OpenGL are not those of this machine\n");
    QCOMPARE(messages.missing(), QStringList(QStringLiteral("The screens and OpenGL are not those of this machine, because its display cannot be used.")));
}

void ReportMessagesTest::endlessLine()
{
    ReportMessages messages;
    for (int i = 0; i < 100000; ++i)
        messages.add(QByteArray(100, 'x'));
    messages.finish();
    int size = 0;
    for (const QString &line : messages.others())
        size += line.size();
    QVERIFY(size > 0 && size < 1000000);
}

void ReportMessagesTest::endlessLines()
{
    ReportMessages messages;
    for (int i = 0; i < 100000; ++i)
        messages.add("a\nvkreport: missing: userName: could not be started\n");
    QVERIFY(messages.others().size() < 1000);
    QVERIFY(messages.missing().size() < 1000);
}

TEST_WITHOUT_APPLICATION(ReportMessagesTest);
#include "tst_report_messages.moc"
