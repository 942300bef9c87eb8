// Files and the clipboard.

#include "output/output_report.h"
#include "output/report_saving.h"
#include "redaction/copy_bar.h"
#include "redaction/redacted_report.h"
#include "redaction_texts.h"
#include "test_files.h"
#include "test_main.h"
#include "test_widgets.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <memory>
#ifdef SIMULATED_WINDOWS
#  include <sys/stat.h>
#endif

using namespace velkor::Reports;

class ReportSavingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void formats();
    void bytesStay_data();
    void bytesStay();
    void saves();
    void failureLeavesTheFile();
    void filtersAndSuffixes();
    void suggestedNames_data();
    void suggestedNames();
    void dialog_data();
    void dialog();
    void dialogFilterChangesTheSuffix();
    void dialogIsCancelled();

    void barWithoutReport();
    void barSentence();
    void copies_data();
    void copies();
    void saveButton();

private:
    QString file(const char *name) const { return m_folder->filePath(QLatin1String(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

OutputReport plainReport(const QByteArray &bytes)
{
    return {QStringLiteral("example.txt"), read(bytes), nullptr};
}

OutputReport redactedReport()
{
    const RedactedReport report(reportOfLindmoor(), {});
    return {QStringLiteral("example.txt"), report.document(), std::make_shared<Redaction>(report.redaction())};
}

/// Runs in the file dialog that opens next.
void inDialog(const std::function<void(QFileDialog &)> &action)
{
    QTimer::singleShot(0, [action] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (dialog)
            action(*dialog);
        else
            inDialog(action);
    });
}

void acceptDialog(const QString &fileName)
{
    inDialog([fileName](QFileDialog &dialog) {
        auto *edit = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        edit->setText(fileName);
        QTest::keyClick(edit, Qt::Key_Return);
    });
}

} // namespace

void ReportSavingTest::formats()
{
    const Document document = reportOfLindmoor();
    const OutputReport report {QStringLiteral("x"), document, nullptr};
    QCOMPARE(outputBytes(report, OutputFormat::Text), document.bytes());
    QCOMPARE(outputBytes(report, OutputFormat::Json), toJson(document));
    QCOMPARE(outputBytes(report, OutputFormat::Html), toHtml(document));
    QCOMPARE(outputBytes(report, OutputFormat::Markdown), toMarkdown(document));
    const OutputReport redacted = redactedReport();
    for (const OutputFormat format : {OutputFormat::Text, OutputFormat::Json, OutputFormat::Html, OutputFormat::Markdown}) {
        QVERIFY(outputBytes(report, format).toLower().contains("lindmoor"));
        QVERIFY(!outputBytes(redacted, format).toLower().contains("lindmoor"));
        QVERIFY(outputBytes(redacted, format).contains("user-1"));
    }
    QVERIFY(outputBytes(redacted, OutputFormat::Json).contains("\"redaction\""));
    QVERIFY(!outputBytes(report, OutputFormat::Json).contains("\"redaction\""));
    QVERIFY(!issueMarkdown(redacted).toLower().contains("lindmoor"));
    QVERIFY(!summaryText(redacted).toLower().contains("lindmoor"));
}

void ReportSavingTest::bytesStay_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("line feeds") << QByteArray("MemoryLoad:            15%\n\n");
    QTest::newRow("carriage returns") << QByteArray("MemoryLoad:            15%\r\nx\r\n");
    QTest::newRow("no-break spaces") << QByteArray("MemoryLoad:\xc2\xa0 15%\n");
    QTest::newRow("mark") << QByteArray("\xef\xbb\xbfMemoryLoad:            15%\n");
    QTest::newRow("UTF-16") << QByteArray("\xff\xfe"
                                          "a\0\n\0x",
                                          7);
    QTest::newRow("no UTF-8") << QByteArray("a\xff\x00\x1a\n", 5);
    QTest::newRow("nothing") << QByteArray();
}

void ReportSavingTest::bytesStay()
{
    QFETCH(QByteArray, bytes);
    QString error;
    QVERIFY(saveBytes(outputBytes(plainReport(bytes), OutputFormat::Text), file("x.txt"), error));
    QCOMPARE(contentOf(file("x.txt")), bytes);
}

void ReportSavingTest::saves()
{
    QString error;
    QVERIFY(saveBytes("first", file("x.txt"), error));
    QVERIFY(saveBytes("2", file("x.txt"), error));
    QCOMPARE(contentOf(file("x.txt")), QByteArray("2"));
    QCOMPARE(error, QString());
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList(QStringLiteral("x.txt")));
}

void ReportSavingTest::failureLeavesTheFile()
{
    QString error;
    QVERIFY(!saveBytes("x", file("no-folder/x.txt"), error));
    QVERIFY(error.contains(QStringLiteral("x.txt")));
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
    error.clear();
    QVERIFY(!saveBytes("x", file("folder"), error));
    QVERIFY(!error.isEmpty());
#ifdef SIMULATED_WINDOWS
    QCOMPARE(mkfifo(QFile::encodeName(file("pipe")).constData(), 0600), 0);
    error.clear();
    QVERIFY(!saveBytes("x", file("pipe"), error));
    QVERIFY(error.contains(QStringLiteral("pipe")));
    struct stat information = {};
    QCOMPARE(stat(QFile::encodeName(file("pipe")).constData(), &information), 0);
    QVERIFY(S_ISFIFO(information.st_mode));
    QVERIFY(QFile::remove(file("pipe")));
#endif
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList(QStringLiteral("folder")));
}

void ReportSavingTest::filtersAndSuffixes()
{
    QCOMPARE(saveFilters().size(), 4);
    QStringList suffixes;
    for (const QString &filter : saveFilters()) {
        const QString suffix = suffixOf(formatOfFilter(filter));
        QVERIFY(filter.contains(QLatin1Char('*') + suffix + QLatin1Char(')')));
        QCOMPARE(formatOfFile(QStringLiteral("a.b") + suffix.toUpper(), OutputFormat::Text), formatOfFilter(filter));
        QCOMPARE(withSuffixOf(formatOfFilter(filter), QStringLiteral("a.b.json")), QStringLiteral("a.b") + suffix);
        suffixes += suffix;
    }
    QCOMPARE(suffixes, QStringList({".txt", ".json", ".html", ".md"}));
    QCOMPARE(formatOfFilter(QStringLiteral("?")), OutputFormat::Text);
    QCOMPARE(formatOfFile(QStringLiteral("a.log"), OutputFormat::Html), OutputFormat::Html);
    QCOMPARE(withSuffixOf(OutputFormat::Json, QStringLiteral("a.log")), QStringLiteral("a.log"));
}

void ReportSavingTest::suggestedNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("plain");
    QTest::newRow("file") << QStringLiteral("example.txt") << QStringLiteral("example");
    QTest::newRow("points") << QStringLiteral("a.b.txt") << QStringLiteral("a.b");
    QTest::newRow("nothing") << QString() << QStringLiteral("report");
    QTest::newRow("characters that Windows does not allow") << QStringLiteral("a:b?c") << QStringLiteral("a_b_c");
    QTest::newRow("folder") << QStringLiteral("../../x.txt") << QStringLiteral("x");
    QTest::newRow("folder of Windows") << QStringLiteral("C:\\y.z\\x") << QStringLiteral("x");
    QTest::newRow("line feed") << QStringLiteral("a\nb") << QStringLiteral("a_b");
}

void ReportSavingTest::suggestedNames()
{
    QFETCH(QString, name);
    QFETCH(QString, plain);
    OutputReport report = plainReport("x");
    report.name = name;
    QCOMPARE(suggestedFileName(report, OutputFormat::Text), plain + QStringLiteral(".txt"));
    report.redaction = std::make_shared<Redaction>();
    QCOMPARE(suggestedFileName(report, OutputFormat::Json), plain + QStringLiteral("-redacted.json"));
}

void ReportSavingTest::dialog_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<OutputFormat>("format");
    QTest::addColumn<QString>("savedName");
    QTest::newRow("text") << "a.txt" << OutputFormat::Text << "a.txt";
    QTest::newRow("JSON") << "a.json" << OutputFormat::Json << "a.json";
    QTest::newRow("HTML") << "a.html" << OutputFormat::Html << "a.html";
    QTest::newRow("Markdown") << "a.md" << OutputFormat::Markdown << "a.md";
    QTest::newRow("no suffix") << "a" << OutputFormat::Text << "a.txt";
    QTest::newRow("another suffix") << "a.log" << OutputFormat::Text << "a.log";
}

Q_DECLARE_METATYPE(OutputFormat)

void ReportSavingTest::dialog()
{
    QFETCH(QString, name);
    QFETCH(OutputFormat, format);
    QFETCH(QString, savedName);
    const OutputReport report = redactedReport();
    acceptDialog(m_folder->filePath(name));
    QString message;
    QCOMPARE(saveReport(nullptr, report, message), SaveResult::Saved);
    QCOMPARE(contentOf(m_folder->filePath(savedName)), outputBytes(report, format));
    QVERIFY(message.contains(savedName));
}

void ReportSavingTest::dialogFilterChangesTheSuffix()
{
    const QString folder = m_folder->path();
    inDialog([folder](QFileDialog &dialog) {
        QCOMPARE(dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->text(), QStringLiteral("example-redacted.txt"));
        dialog.setDirectory(folder);
        auto *filters = dialog.findChild<QComboBox *>(QStringLiteral("fileTypeCombo"));
        filters->setFocus();
        QTest::keyClick(filters, Qt::Key_Down);
        const QString text = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->text();
        QTest::keyClick(dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit")), Qt::Key_Return);
        QCOMPARE(text, QStringLiteral("example-redacted.json"));
    });
    QString message;
    QCOMPARE(saveReport(nullptr, redactedReport(), message), SaveResult::Saved);
    QCOMPARE(contentOf(file("example-redacted.json")), outputBytes(redactedReport(), OutputFormat::Json));
}

void ReportSavingTest::dialogIsCancelled()
{
    inDialog([](QFileDialog &dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    QString message;
    QCOMPARE(saveReport(nullptr, redactedReport(), message), SaveResult::Cancelled);
    QCOMPARE(message, QString());
}

void ReportSavingTest::barWithoutReport()
{
    CopyBar bar;
    for (QPushButton *button : bar.findChildren<QPushButton *>())
        QVERIFY(!button->isEnabled());
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    bar.copyText();
    bar.copyMarkdown();
    bar.copySummary();
    bar.save();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
    bar.setReport(redactedReport());
    QVERIFY(buttonOf(&bar, "Copy text")->isEnabled());
    bar.clear();
    QVERIFY(!buttonOf(&bar, "Copy text")->isEnabled());
}

void ReportSavingTest::barSentence()
{
    CopyBar bar;
    auto *label = bar.findChild<QLabel *>();
    bar.setReport(plainReport("x"));
    QVERIFY(label->text().contains(QStringLiteral("environment variables")));
    bar.setReport(redactedReport());
    QVERIFY(label->text().contains(QStringLiteral("not anonymous")));
    QCOMPARE(label->textFormat(), Qt::PlainText);
    QVERIFY(label->wordWrap());
}

void ReportSavingTest::copies_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<bool>("byMouse");
    for (const char *button : {"Copy text", "Copy Markdown", "Copy summary"}) {
        QTest::addRow("%s, mouse", button) << QByteArray(button) << true;
        QTest::addRow("%s, keyboard", button) << QByteArray(button) << false;
    }
}

void ReportSavingTest::copies()
{
    QFETCH(QByteArray, button);
    QFETCH(bool, byMouse);
    const OutputReport report = redactedReport();
    const QByteArray expected = button == "Copy text" ? report.document.text() : button == "Copy Markdown" ? issueMarkdown(report)
                                                                                                           : summaryText(report);
    CopyBar bar;
    bar.setReport(report);
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    const QSignalSpy done(&bar, &CopyBar::done);
    QGuiApplication::clipboard()->clear();
    if (byMouse)
        QTest::mouseClick(buttonOf(&bar, button), Qt::LeftButton);
    else
        QTest::keyClick(buttonOf(&bar, button), Qt::Key_Space);
    QCOMPARE(QGuiApplication::clipboard()->text(), QString::fromUtf8(expected));
    QVERIFY(!expected.isEmpty());
    QCOMPARE(done.count(), 1);
}

void ReportSavingTest::saveButton()
{
    CopyBar bar;
    bar.setReport(redactedReport());
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    const QSignalSpy done(&bar, &CopyBar::done);
    const QSignalSpy failed(&bar, &CopyBar::failed);
    acceptDialog(file("x.txt"));
    QTest::mouseClick(buttonOf(&bar, "Save..."), Qt::LeftButton);
    QCOMPARE(contentOf(file("x.txt")), redactedReport().document.bytes());
    QCOMPARE(done.count(), 1);
    QCOMPARE(failed.count(), 0);
    inDialog([](QFileDialog &dialog) { dialog.reject(); });
    QTest::keyClick(buttonOf(&bar, "Save..."), Qt::Key_Space);
    QCOMPARE(done.count(), 1);
}

TEST_WITH_APPLICATION(ReportSavingTest);
#include "tst_report_saving.moc"
