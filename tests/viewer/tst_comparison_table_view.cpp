// Three reports in a table, with the mouse and with the keyboard.

#include "comparison/comparison_table_model.h"
#include "comparison/comparison_table_view.h"
#include "test_files.h"
#include "test_main.h"
#include "test_widgets.h"

#include <QtCore/QFile>
#include <QtGui/QClipboard>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTableView>

using namespace velkor::Reports;

class ComparisonTableViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columns();
    void values();
    void whatDiffersFromTheFirst();
    void filterByKeyboard();
    void everyMomentByMouseAndKeyboard();
    void tablesScrollTogether();
    void copiedRows();
    void nothingDiffers();
    void aTextWithoutReport();
    void exportedForms();
    void namesAndValuesOfStrangers();
    void theKeyboardReachesEverything();
    void aViewThatIsClosedWhileComparing();
};

namespace {

LoadedReport report(const QByteArray &text, const char *name)
{
    LoadedReport report;
    report.name = QString::fromUtf8(name);
    report.document = read(text);
    return report;
}

/// One machine before and after its disk became full, and without a run-time library.
std::vector<LoadedReport> threeReports()
{
    return {report(neededContentOf(pairFile("full-disk/OLD.txt")), "before"), report(neededContentOf(pairFile("full-disk/NEW.txt")), "after"),
            report(neededContentOf(pairFile("missing-runtime/NEW.txt")), "other")};
}

class ShownTable
{
public:
    explicit ShownTable(const std::vector<LoadedReport> &reports) : view(reports)
    {
        view.resize(1024, 600);
        view.show();
        QApplication::setActiveWindow(&view);
        if (!QTest::qWaitForWindowActive(&view))
            qFatal("the window does not become active");
        if (!QTest::qWaitFor([this] { return !view.isComparing(); }, 60000))
            qFatal("the comparison does not end");
    }

    QString text(const char *label) const { return view.findChild<QLabel *>(QString::fromLatin1(label))->text(); }
    QTableView *table(const char *name) const { return view.findChild<QTableView *>(QString::fromLatin1(name)); }
    QAbstractItemModel *model() const { return table("values")->model(); }
    QString cell(int row, int column) const { return model()->index(row, column).data().toString(); }
    /// The row of a fact in a section; -1 if it is not there.
    int row(const QString &section, const QString &subject) const
    {
        for (int row = 0; row < model()->rowCount(); ++row) {
            if (cell(row, ComparisonTableModel::SectionTitle) == section && cell(row, ComparisonTableModel::Subject) == subject)
                return row;
        }
        return -1;
    }
    void typeFilter(const QString &text) const
    {
        auto *filter = view.findChild<QLineEdit *>(QStringLiteral("filter"));
        QTest::keyClicks(filter, text);
        QTest::qWait(400); // the filter waits for the last key
    }

    ComparisonTableView view;
};

const QString disks = QStringLiteral("Disk information");
const QString variables = QStringLiteral("Some environment variables");

} // namespace

void ComparisonTableViewTest::columns()
{
    const ShownTable shown(threeReports());
    QStringList headings;
    for (int column = 0; column < shown.model()->columnCount(); ++column)
        headings += shown.model()->headerData(column, Qt::Horizontal).toString();
    QCOMPARE(headings.join(QLatin1Char('|')), QStringLiteral("Section|What|before|after|other"));
    for (int column = 0; column < 5; ++column) {
        QCOMPARE(shown.table("frozen")->isColumnHidden(column), column >= 2);
        QCOMPARE(shown.table("values")->isColumnHidden(column), column < 2);
    }
    // Reports of the same name can be told apart.
    std::vector<LoadedReport> reports = threeReports();
    reports[1].name = reports[0].name;
    reports[1].path = QStringLiteral("/<i>tmp</i>/before");
    const ShownTable same(reports);
    QCOMPARE(same.model()->headerData(3, Qt::Horizontal).toString(), QStringLiteral("before (2)"));
    QVERIFY(same.model()->headerData(3, Qt::Horizontal, Qt::ToolTipRole).toString().contains(QStringLiteral("&lt;i&gt;tmp&lt;")));
}

void ComparisonTableViewTest::values()
{
    const ShownTable shown(threeReports());
    const int temp = shown.row(variables, QStringLiteral("TEMP"));
    QVERIFY(temp >= 0);
    QCOMPARE(shown.cell(temp, 2), QString::fromUtf8("C:\\Users\\J\xc3\xb6rn\\AppData\\Local\\Temp"));
    QCOMPARE(shown.cell(temp, 3), QStringLiteral("\u2260 Z:\\Temp"));
    QCOMPARE(shown.cell(temp, 4), QString::fromUtf8("C:\\Users\\J\xc3\xb6rn\\AppData\\Local\\Temp"));
    const int drive = shown.row(disks, QStringLiteral("drive E"));
    QVERIFY(drive >= 0);
    QCOMPARE(shown.cell(drive, 2), QStringLiteral("there"));
    QCOMPARE(shown.cell(drive, 3), QStringLiteral("\u2260 (not there)"));
    QCOMPARE(shown.cell(drive, 4), QStringLiteral("there"));
    QCOMPARE(shown.row(QStringLiteral("Memory Information"), QStringLiteral("MemoryLoad")), -1); // changes every moment
}

void ComparisonTableViewTest::whatDiffersFromTheFirst()
{
    const ShownTable shown(threeReports());
    const int temp = shown.row(variables, QStringLiteral("TEMP"));
    QVERIFY(!shown.model()->index(temp, 1).data(ComparisonTableModel::DiffersRole).toBool());
    QVERIFY(!shown.model()->index(temp, 2).data(ComparisonTableModel::DiffersRole).toBool());
    QVERIFY(shown.model()->index(temp, 3).data(ComparisonTableModel::DiffersRole).toBool());
    QVERIFY(!shown.model()->index(temp, 4).data(ComparisonTableModel::DiffersRole).toBool());
    QCOMPARE(shown.model()->index(temp, 3).data(Qt::AccessibleTextRole).toString(), QStringLiteral("other than the first: Z:\\Temp"));
}

void ComparisonTableViewTest::filterByKeyboard()
{
    const ShownTable shown(threeReports());
    const int all = shown.model()->rowCount();
    auto *filter = shown.view.findChild<QLineEdit *>(QStringLiteral("filter"));
    QTest::keyClick(const_cast<ComparisonTableView *>(&shown.view), Qt::Key_F, Qt::AltModifier);
    QVERIFY(filter->hasFocus());
    shown.typeFilter(QStringLiteral("z:\\TEMP")); // in a value
    QCOMPARE(shown.model()->rowCount(), 3);       // TEMP, and TEMP and TMP of the process
    QVERIFY(shown.text("summary").endsWith(QStringLiteral("3 rows match the filter.")));
    filter->clear();
    shown.typeFilter(QStringLiteral("drive E")); // in a name
    QCOMPARE(shown.model()->rowCount(), 1);
    filter->clear();
    shown.typeFilter(QStringLiteral("disk inf")); // in a section
    QCOMPARE(shown.model()->rowCount(), 2);
    filter->clear();
    shown.typeFilter(QStringLiteral("no such text"));
    QCOMPARE(shown.model()->rowCount(), 0);
    filter->clear();
    QTRY_COMPARE(shown.model()->rowCount(), all);
}

void ComparisonTableViewTest::everyMomentByMouseAndKeyboard()
{
    ShownTable shown(threeReports());
    const int all = shown.model()->rowCount();
    auto *box = shown.view.findChild<QCheckBox *>(QStringLiteral("everyMoment"));
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(box->height() / 2, box->height() / 2));
    QVERIFY(shown.view.showsEveryMoment());
    QVERIFY(shown.row(QStringLiteral("Memory Information"), QStringLiteral("MemoryLoad")) >= 0);
    QCOMPARE(shown.model()->rowCount(), all + 10);
    QTest::keyClick(&shown.view, Qt::Key_M, Qt::AltModifier);
    QTRY_VERIFY(!shown.view.showsEveryMoment()); // a button stays down for a moment
    QCOMPARE(shown.model()->rowCount(), all);
}

void ComparisonTableViewTest::tablesScrollTogether()
{
    const ShownTable shown({report(neededContentOf(pairFile("other-machine/OLD.txt")), "a"), report(neededContentOf(pairFile("other-machine/NEW.txt")), "b"), report(neededContentOf(pairFile("full-disk/NEW.txt")), "c")});
    QTableView *values = shown.table("values");
    QTableView *frozen = shown.table("frozen");
    values->verticalScrollBar()->setValue(50);
    QCOMPARE(frozen->verticalScrollBar()->value(), 50);
    frozen->setFocus();
    QTest::keyClick(frozen, Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(values->verticalScrollBar()->value(), values->verticalScrollBar()->maximum());
    QCOMPARE(frozen->rowAt(0), values->rowAt(0));
    QCOMPARE(frozen->selectionModel(), values->selectionModel());
}

void ComparisonTableViewTest::copiedRows()
{
    ShownTable shown(threeReports());
    const QString line = QString::fromUtf8("Some environment variables\tTEMP\tC:\\Users\\J\xc3\xb6rn\\AppData\\Local\\Temp\tZ:\\Temp\t"
                                           "C:\\Users\\J\xc3\xb6rn\\AppData\\Local\\Temp\n");
    for (const char *name : {"frozen", "values"}) {
        QApplication::clipboard()->clear();
        QTableView *table = shown.table(name);
        table->setFocus();
        clickRow(table, shown.row(variables, QStringLiteral("TEMP")));
        QTest::keySequence(table, QKeySequence::Copy);
        QCOMPARE(QApplication::clipboard()->text(), line);
        QApplication::clipboard()->clear();
        table->actions().constFirst()->trigger(); // of the context menu
        QVERIFY2(QApplication::clipboard()->text() == line, name);
    }
    QApplication::clipboard()->clear();
    shown.view.copy();
    QCOMPARE(QApplication::clipboard()->text(), line);
}

void ComparisonTableViewTest::nothingDiffers()
{
    const LoadedReport same = report(neededContentOf(pairFile("full-disk/OLD.txt")), "same");
    const ShownTable shown({same, same, same});
    QCOMPARE(shown.text("summary"), QStringLiteral("Nothing differs."));
    QCOMPARE(shown.model()->rowCount(), 0);
}

void ComparisonTableViewTest::aTextWithoutReport()
{
    std::vector<LoadedReport> reports = threeReports();
    reports.push_back(report("Dear all\n", "mail"));
    const ShownTable shown(reports);
    QCOMPARE(shown.text("message"), QStringLiteral("There is nothing to compare."));
    QCOMPARE(shown.text("notes"), QStringLiteral("There is no report in mail."));
    QCOMPARE(shown.view.exported(ComparisonForm::Html), QByteArray());
}

void ComparisonTableViewTest::exportedForms()
{
    ShownTable shown(threeReports());
    QVERIFY(shown.view.exported(ComparisonForm::Text).startsWith("[1] before\n[2] after\n[3] other\n"));
    QVERIFY(shown.view.exported(ComparisonForm::Json).startsWith("{"));
    QVERIFY(shown.view.exported(ComparisonForm::Markdown).contains("drive E"));
    QVERIFY(shown.view.exported(ComparisonForm::Html).startsWith("<!DOCTYPE html>"));
    QVERIFY(!shown.view.exported(ComparisonForm::Text).contains("MemoryLoad"));
    shown.view.setShowsEveryMoment(true);
    QVERIFY(shown.view.exported(ComparisonForm::Text).contains("MemoryLoad"));
}

void ComparisonTableViewTest::namesAndValuesOfStrangers()
{
    std::vector<LoadedReport> reports = threeReports();
    QByteArray text = neededContentOf(pairFile("full-disk/NEW.txt"));
    text.replace("TEMP     = Z:\\Temp", "TEMP     = =<img src='x'>\x1b" + QByteArray(100000, 'x'));
    reports[1] = report(text, "<b>evil</b>\n");
    const ShownTable shown(reports);
    for (const QLabel *label : shown.view.findChildren<QLabel *>())
        QCOMPARE(label->textFormat(), Qt::PlainText);
    const QModelIndex index = shown.model()->index(shown.row(variables, QStringLiteral("TEMP")), 3);
    QVERIFY(index.data().toString().size() < 500);
    QVERIFY(index.data().toString().contains(QStringLiteral("\\x1b")));
    QVERIFY(!index.data(Qt::ToolTipRole).toString().contains(QStringLiteral("<img")));
    QVERIFY(!shown.model()->headerData(3, Qt::Horizontal, Qt::ToolTipRole).toString().contains(QStringLiteral("<b>")));
    // A spreadsheet does not take it for a formula.
    clickRow(shown.table("values"), index.row());
    const_cast<ComparisonTableView &>(shown.view).copy();
    QVERIFY(QApplication::clipboard()->text().contains(QStringLiteral("\t'=<img")));
}

void ComparisonTableViewTest::theKeyboardReachesEverything()
{
    ShownTable shown(threeReports());
    QSet<QString> reached;
    shown.view.findChild<QLineEdit *>(QStringLiteral("filter"))->setFocus();
    for (int i = 0; i < 10; ++i) {
        reached.insert(QApplication::focusWidget()->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    for (const char *name : {"filter", "everyMoment", "frozen", "values"})
        QVERIFY2(reached.contains(QString::fromLatin1(name)), name);
}

void ComparisonTableViewTest::aViewThatIsClosedWhileComparing()
{
    for (int i = 0; i < 10; ++i) {
        ComparisonTableView view(threeReports());
        QVERIFY(view.isComparing());
    }
    QCoreApplication::processEvents();
}

TEST_WITH_APPLICATION(ComparisonTableViewTest);

#include "tst_comparison_table_view.moc"
