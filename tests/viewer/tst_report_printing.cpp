// PDF files, and printing into one.

#include "output/page_painter.h"
#include "output/report_printing.h"
#include "test_files.h"
#include "test_main.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QFontMetricsF>
#include <QtPrintSupport/QPrinter>
#include <memory>

using namespace velkor::Reports;

class ReportPrintingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void pages_data();
    void pages();
    void title();
    void separatorFits();
    void pageRanges_data();
    void pageRanges();
    void cancelled();
    void failure();
    void printer();

private:
    QString file(const char *name) const { return m_folder->filePath(QLatin1String(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

OutputReport reportOf(const QByteArray &text)
{
    return {QStringLiteral("example (1).txt"), read(text), nullptr};
}

QByteArray linesOfText(int count)
{
    QByteArray text;
    for (int i = 0; i < count; ++i)
        text += "line " + QByteArray::number(i) + '\n';
    return text;
}

/// As the page tree of the file says.
int pagesOf(const QByteArray &pdf)
{
    const int at = pdf.indexOf("/Count ");
    return at < 0 ? -1 : pdf.mid(at + 7, pdf.indexOf('\n', at) - at - 7).trimmed().toInt();
}

bool always(int /*page*/, int /*pages*/) { return true; }

} // namespace

void ReportPrintingTest::pages_data()
{
    QTest::addColumn<int>("lines");
    for (const int lines : {0, 1, 50, 300, 1000})
        QTest::newRow(qPrintable(QString::number(lines))) << lines;
}

void ReportPrintingTest::pages()
{
    QFETCH(int, lines);
    QString error;
    int last = 0;
    int pages = 0;
    QVERIFY(savePdf(
        reportOf(linesOfText(lines)), file("x.pdf"), [&](int page, int count) {
            pages = count;
            return page == ++last;
        },
        error));
    const QByteArray pdf = contentOf(file("x.pdf"));
    QVERIFY(pdf.startsWith("%PDF-"));
    QVERIFY(pdf.trimmed().endsWith("%%EOF"));
    QCOMPARE(pagesOf(pdf), pages);
    QCOMPARE(last, pages);
    // 8 point on A4 or Letter: between 50 and 100 rows on a page
    QVERIFY(pages >= (lines + 99) / 100 && pages <= lines / 50 + 1);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList(QStringLiteral("x.pdf")));
}

void ReportPrintingTest::title()
{
    QString error;
    QVERIFY(savePdf(reportOf("x\n"), file("x.pdf"), always, error));
    const QByteArray pdf = contentOf(file("x.pdf"));
    QVERIFY(pdf.contains("/Title"));
    QVERIFY(pdf.contains("/FontFile2") || pdf.contains("/FontFile3")); // the font is in the file
}

// The widest line of the format takes one row.
void ReportPrintingTest::separatorFits()
{
    const QFontMetricsF metrics(printFont());
    QCOMPARE(metrics.horizontalAdvance(QStringLiteral("iiii")), metrics.horizontalAdvance(QStringLiteral("WWWW")));
    const auto pagesOfLines = [this](const QByteArray &line) {
        QByteArray text;
        for (int i = 0; i < 500; ++i)
            text += line + '\n';
        int pages = 0;
        QString error;
        savePdf(
            reportOf(text), file("x.pdf"), [&pages](int, int count) {
                pages = count;
                return false;
            },
            error);
        return pages;
    };
    QVERIFY(pagesOfLines("x") > 1);
    QCOMPARE(pagesOfLines(separatorLine()), pagesOfLines("x"));
    QVERIFY(pagesOfLines(separatorLine() + separatorLine()) > pagesOfLines("x"));
}

void ReportPrintingTest::pageRanges_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<QVector<int>>("painted");
    QTest::newRow("all") << 1 << 0 << QVector<int> {1, 2, 3, 4};
    QTest::newRow("as a print dialog says all") << 0 << 0 << QVector<int> {1, 2, 3, 4};
    QTest::newRow("some") << 2 << 3 << QVector<int> {2, 3};
    QTest::newRow("one") << 4 << 4 << QVector<int> {4};
    QTest::newRow("beyond the end") << 3 << 99 << QVector<int> {3, 4};
    QTest::newRow("after the end") << 9 << 99 << QVector<int> {4};
}

void ReportPrintingTest::pageRanges()
{
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(QVector<int>, painted);
    QPrinter device(QPrinter::HighResolution);
    device.setOutputFormat(QPrinter::PdfFormat);
    device.setOutputFileName(file("x.pdf"));
    int count = 0;
    QVERIFY(paintReport(device, reportOf(linesOfText(1)), {}, [&](int, int pages) { count = pages; return true; }) == WriteResult::Written);
    QCOMPARE(count, 1);
    // as many lines as four pages have, and one less
    int lines = 50;
    for (int pages = 1; pages < 5; ++lines) {
        QPrinter trial(QPrinter::HighResolution);
        trial.setOutputFormat(QPrinter::PdfFormat);
        trial.setOutputFileName(file("trial.pdf"));
        paintReport(trial, reportOf(linesOfText(lines)), {}, [&](int, int all) { pages = all; return false; });
    }
    QVector<int> seen;
    QVERIFY(paintReport(device, reportOf(linesOfText(lines - 2)), {first, last}, [&](int page, int pages) {
                seen += page;
                count = pages;
                return true;
            })
            == WriteResult::Written);
    QCOMPARE(count, 4);
    QCOMPARE(seen, painted);
    QCOMPARE(pagesOf(contentOf(file("x.pdf"))), painted.size());
}

void ReportPrintingTest::cancelled()
{
    QFile before(file("x.pdf"));
    QVERIFY(before.open(QIODevice::WriteOnly) && before.write("before") == 6);
    before.close();
    QString error;
    QVERIFY(!savePdf(
        reportOf(linesOfText(1000)), file("x.pdf"), [](int page, int) { return page < 3; }, error));
    QCOMPARE(error, QString());
    QCOMPARE(contentOf(file("x.pdf")), QByteArray("before"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList(QStringLiteral("x.pdf")));
}

void ReportPrintingTest::failure()
{
    QString error;
    QVERIFY(!savePdf(reportOf("x\n"), file("no-folder/x.pdf"), always, error));
    QVERIFY(error.contains(QStringLiteral("x.pdf")));
}

void ReportPrintingTest::printer()
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file("printed.pdf"));
    OutputReport report = reportOf(linesOfText(200) + QByteArray(5000, 'x') + '\n');
    report.redaction = std::make_shared<Redaction>();
    QVERIFY(paintReport(printer, report, {}, always) == WriteResult::Written);
    QVERIFY(pagesOf(contentOf(file("printed.pdf"))) >= 3);
}

TEST_WITH_APPLICATION(ReportPrintingTest);
#include "tst_report_printing.moc"
