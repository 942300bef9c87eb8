// Two reports side by side, with the mouse and with the keyboard.

#include "comparison/aligned_text_view.h"
#include "comparison/comparison_view.h"
#include "comparison/difference_model.h"
#include "comparison/section_model.h"
#include "test_files.h"
#include "test_main.h"
#include "test_widgets.h"

#include <QtCore/QFile>
#include <QtGui/QClipboard>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>

using namespace velkor::Reports;

class ComparisonViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void differencesOfPairs_data();
    void differencesOfPairs();
    void itSaysThatNothingDiffers();
    void aSectionOfWhichOnlyTheTextDiffers();
    void everyMomentByMouse();
    void everyMomentByKeyboard();
    void nextAndPrevious();
    void buttonsByMouseAndKeyboard();
    void nextLeavesTheChosenSection();
    void aChosenSection();
    void rowsOfTheTable();
    void anotherOrderAndManyEntries();
    void bothTextsShowTheDifference();
    void theEndOfALongLineIsShown();
    void bothTextsScrollTogether();
    void theSwitchMarksTheText();
    void copiedRows();
    void copiedTextIsExact();
    void copyOfTheWindow();
    void swappedSides();
    void aTextWithoutReport();
    void aReportThatEndsEarly();
    void exportedForms_data();
    void exportedForms();
    void namesAndValuesOfStrangers();
    void theKeyboardReachesEverything();
    void aViewThatIsClosedWhileComparing();
    void aComparisonThatIsReplaced();
    void titlesAreNotCut_data();
    void titlesAreNotCut();
    void widthsOfColumns();
    void widthsOfTheUserStay();
};

namespace {

LoadedReport report(const QByteArray &text, const QString &name)
{
    LoadedReport report;
    report.name = name;
    report.document = read(text);
    return report;
}

LoadedReport older(const QString &pair)
{
    return report(neededContentOf(pairFile(pair + QStringLiteral("/OLD.txt"))), QStringLiteral("OLD.txt"));
}

LoadedReport newer(const QString &pair)
{
    return report(neededContentOf(pairFile(pair + QStringLiteral("/NEW.txt"))), QStringLiteral("NEW.txt"));
}

/// A view that is shown and has compared.
class ShownView
{
public:
    ShownView(const LoadedReport &older, const LoadedReport &newer) : view(older, newer)
    {
        view.resize(1024, 600);
        view.show();
        QApplication::setActiveWindow(&view);
        if (!QTest::qWaitForWindowActive(&view))
            qFatal("the window does not become active");
        wait();
    }
    explicit ShownView(const char *pair) : ShownView(older(QString::fromLatin1(pair)), newer(QString::fromLatin1(pair))) { }

    void wait()
    {
        if (!QTest::qWaitFor([this] { return !view.isComparing(); }, 60000))
            qFatal("the comparison does not end");
    }
    QString text(const char *label) const { return view.findChild<QLabel *>(QString::fromLatin1(label))->text(); }
    QTableView *table(const char *name) const { return view.findChild<QTableView *>(QString::fromLatin1(name)); }
    QPushButton *button(const char *name) const { return view.findChild<QPushButton *>(QString::fromLatin1(name)); }
    QCheckBox *everyMoment() const { return view.findChild<QCheckBox *>(QStringLiteral("everyMoment")); }
    int differences() const { return table("differences")->model()->rowCount(); }
    QString cell(int row, int column) const { return table("differences")->model()->index(row, column).data().toString(); }
    /// What the table of sections shows: "Title count".
    QStringList sections() const
    {
        QStringList result;
        const QAbstractItemModel *model = table("sections")->model();
        for (int row = 0; row < model->rowCount(); ++row)
            result += model->index(row, 0).data().toString() + QLatin1Char(' ') + model->index(row, 1).data().toString();
        return result;
    }
    /// The lines of one side that are selected.
    QStringList selectedLines(const char *side, int column) const
    {
        QStringList result;
        for (const QModelIndex &index : table(side)->selectionModel()->selectedRows(column))
            result += index.data().toString();
        return result;
    }
    QStringList olderLines() const { return selectedLines("olderText", AlignedTextModel::OlderLine); }
    QStringList newerLines() const { return selectedLines("newerText", AlignedTextModel::NewerLine); }
    /// How many lines of the text are marked.
    int marks() const
    {
        const QAbstractItemModel *model = table("olderText")->model();
        int count = 0;
        for (int row = 0; row < model->rowCount(); ++row)
            count += model->index(row, AlignedTextModel::OlderLine).data(AlignedTextModel::ChangeRole).toInt() != int(LineChange::Same);
        return count;
    }
    void clickSection(int row) const { clickRow(table("sections"), row); }

    ComparisonView view;
};

QString clipboard()
{
    return QApplication::clipboard()->text();
}

int linesOf(const QByteArray &text)
{
    return int(text.count('\n'));
}

} // namespace

void ComparisonViewTest::differencesOfPairs_data()
{
    QTest::addColumn<QString>("pair");
    for (const char *pair : {"driver-update", "full-disk", "minute-apart", "missing-runtime", "other-machine"})
        QTest::newRow(pair) << QString::fromLatin1(pair);
}

void ComparisonViewTest::differencesOfPairs()
{
    QFETCH(QString, pair);
    // expected.tsv was written by hand and has a heading; for another machine it lists only some.
    const int expected = linesOf(neededContentOf(pairFile(pair + QStringLiteral("/expected.tsv")))) - 1;
    const ShownView shown(older(pair), newer(pair));
    if (pair == QLatin1String("other-machine"))
        QVERIFY(shown.differences() >= expected);
    else
        QCOMPARE(shown.differences(), expected);
    QCOMPARE(shown.view.differenceCount(), shown.differences());
}

void ComparisonViewTest::itSaysThatNothingDiffers()
{
    const ShownView same(older(QStringLiteral("full-disk")), older(QStringLiteral("full-disk")));
    QCOMPARE(same.text("summary"), QStringLiteral("Nothing differs."));
    QCOMPARE(same.sections(), QStringList {QStringLiteral("All sections 0")});
    QCOMPARE(same.marks(), 0);
    QVERIFY(!same.button("next")->isEnabled());

    const ShownView minute("minute-apart");
    QCOMPARE(minute.text("summary"), QStringLiteral("Nothing differs. 10 values that change every moment are not shown."));
    QCOMPARE(minute.sections(), QStringList {QStringLiteral("All sections 0")});
    QCOMPARE(minute.marks(), 0);
}

void ComparisonViewTest::aSectionOfWhichOnlyTheTextDiffers()
{
    // The order of variables is no difference of values.
    const QByteArray text = neededContentOf(pairFile(QStringLiteral("full-disk/NEW.txt")));
    QByteArray moved = text;
    moved.replace("  TEMP=Z:\\Temp\n  TMP=Z:\\Temp\n", "  TMP=Z:\\Temp\n  TEMP=Z:\\Temp\n");
    QVERIFY(moved != text);
    ShownView shown(report(text, QStringLiteral("a")), report(moved, QStringLiteral("b")));
    QCOMPARE(shown.text("summary"), QStringLiteral("Nothing differs. In 1 section only the text differs, such as its order."));
    QCOMPARE(shown.sections(), (QStringList {QStringLiteral("All sections 0"), QStringLiteral("System environemnt (QProcess::systemEnvironment()) 0")}));
    QCOMPARE(shown.marks(), 2); // removed in one place and added in the other
    shown.clickSection(1);
    QCOMPARE(shown.differences(), 0);
    QCOMPARE(shown.marks(), 2);
    shown.view.nextDifference();
    QCOMPARE(shown.view.currentDifference(), -1);
}

void ComparisonViewTest::everyMomentByMouse()
{
    ShownView shown("minute-apart");
    QSignalSpy spy(&shown.view, &ComparisonView::showsEveryMomentChanged);
    QCheckBox *box = shown.everyMoment();
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(box->height() / 2, box->height() / 2));
    QCOMPARE(spy.size(), 1);
    QCOMPARE(shown.differences(), 10);
    QCOMPARE(shown.text("summary"), QStringLiteral("Nothing differs. 10 values that change every moment differ, too."));
    QVERIFY(shown.cell(0, DifferenceModel::Kind).endsWith(QStringLiteral(", every moment")));
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(box->height() / 2, box->height() / 2));
    QCOMPARE(shown.differences(), 0);
}

void ComparisonViewTest::everyMomentByKeyboard()
{
    ShownView shown("minute-apart");
    QTest::keyClick(&shown.view, Qt::Key_M, Qt::AltModifier);
    QTRY_VERIFY(shown.everyMoment()->isChecked()); // a button stays down for a moment
    QCOMPARE(shown.view.differenceCount(), 10);
}

void ComparisonViewTest::nextAndPrevious()
{
    ShownView shown("full-disk");
    QCOMPARE(shown.view.currentDifference(), -1);
    QCOMPARE(shown.text("position"), QString());
    for (int i = 0; i < 6; ++i) {
        shown.view.nextDifference();
        QCOMPARE(shown.text("position"), QStringLiteral("%1 of 6").arg(i + 1));
        QCOMPARE(shown.table("differences")->currentIndex().row(), i);
    }
    shown.view.nextDifference();
    QCOMPARE(shown.view.currentDifference(), 0);
    shown.view.previousDifference();
    QCOMPARE(shown.text("position"), QStringLiteral("6 of 6"));
}

void ComparisonViewTest::buttonsByMouseAndKeyboard()
{
    ShownView shown("full-disk");
    QTest::mouseClick(shown.button("next"), Qt::LeftButton);
    QTest::mouseClick(shown.button("next"), Qt::LeftButton);
    QCOMPARE(shown.text("position"), QStringLiteral("2 of 6"));
    QTest::mouseClick(shown.button("previous"), Qt::LeftButton);
    QCOMPARE(shown.text("position"), QStringLiteral("1 of 6"));
    QTest::keyClick(&shown.view, Qt::Key_N, Qt::AltModifier);
    QTRY_COMPARE(shown.text("position"), QStringLiteral("2 of 6")); // a button stays down for a moment
    QTest::keyClick(&shown.view, Qt::Key_P, Qt::AltModifier);
    QTRY_COMPARE(shown.text("position"), QStringLiteral("1 of 6"));
    shown.button("previous")->setFocus();
    QTest::keyClick(shown.button("previous"), Qt::Key_Space);
    QCOMPARE(shown.text("position"), QStringLiteral("6 of 6"));
}

void ComparisonViewTest::nextLeavesTheChosenSection()
{
    ShownView shown("full-disk");
    shown.clickSection(2); // the disks, with the second and the third difference
    QCOMPARE(shown.differences(), 2);
    shown.view.nextDifference();
    QCOMPARE(shown.text("position"), QStringLiteral("2 of 6"));
    shown.view.nextDifference();
    QCOMPARE(shown.text("position"), QStringLiteral("3 of 6"));
    QCOMPARE(shown.table("sections")->currentIndex().row(), 2);
    shown.view.nextDifference();
    QCOMPARE(shown.text("position"), QStringLiteral("4 of 6"));
    QCOMPARE(shown.table("sections")->currentIndex().row(), 3);
    QCOMPARE(shown.differences(), 1);
    shown.view.previousDifference();
    QCOMPARE(shown.text("position"), QStringLiteral("3 of 6"));
    QCOMPARE(shown.table("sections")->currentIndex().row(), 2);
}

void ComparisonViewTest::aChosenSection()
{
    ShownView shown("full-disk");
    const QStringList sections {QStringLiteral("All sections 6"), QStringLiteral("Some environment variables 1"),
                                QStringLiteral("Disk information 2"), QStringLiteral("QDesktopServices 1"),
                                QStringLiteral("System environemnt (QProcess::systemEnvironment()) 2")};
    QCOMPARE(shown.sections(), sections);
    const int all = shown.table("olderText")->model()->rowCount();
    shown.table("sections")->setFocus();
    QTest::keyClick(shown.table("sections"), Qt::Key_Down);
    QCOMPARE(shown.differences(), 1);
    QVERIFY(shown.table("differences")->isColumnHidden(DifferenceModel::SectionTitle));
    const int some = shown.table("olderText")->model()->rowCount();
    QVERIFY(some > 0 && some < all);
    QCOMPARE(shown.marks(), 1);
    QTest::keyClick(shown.table("sections"), Qt::Key_Up);
    QCOMPARE(shown.differences(), 6);
    QCOMPARE(shown.table("olderText")->model()->rowCount(), all);
}

void ComparisonViewTest::rowsOfTheTable()
{
    const ShownView shown("full-disk");
    const QStringList kinds {QStringLiteral("\u2260 changed"), QStringLiteral("\u2193 smaller"), QStringLiteral("\u2212 removed"),
                             QStringLiteral("\u2260 changed"), QStringLiteral("\u2260 changed"), QStringLiteral("\u2260 changed")};
    const QStringList subjects {QStringLiteral("TEMP"), QStringLiteral("drive C \u203a free"), QStringLiteral("drive E"), QStringLiteral("Temp"),
                                QStringLiteral("variable TEMP \u203a value"), QStringLiteral("variable TMP \u203a value")};
    for (int row = 0; row < 6; ++row) {
        QCOMPARE(shown.cell(row, DifferenceModel::Kind), kinds.at(row));
        QCOMPARE(shown.cell(row, DifferenceModel::Subject), subjects.at(row));
    }
    QCOMPARE(shown.cell(1, DifferenceModel::Older), QStringLiteral("100.9 GByte"));
    QCOMPARE(shown.cell(1, DifferenceModel::Newer), QStringLiteral("300.4 MByte"));
    QCOMPARE(shown.cell(2, DifferenceModel::Older),
             QStringLiteral("root: E:\\ | type: removable media | file system: FAT32 | label: MESSDATEN | free: 11.7 GByte | total: 28.6 GByte"));
    QCOMPARE(shown.cell(2, DifferenceModel::Newer), QString());

    const ShownView drivers("driver-update");
    QCOMPARE(drivers.cell(1, DifferenceModel::Kind), QStringLiteral("\u2191 newer"));
    QCOMPARE(drivers.cell(1, DifferenceModel::Subject), QStringLiteral("adapter amdkmdag \u203a configuration 0000 \u203a Driver Version"));
    const ShownView runtime("missing-runtime");
    // Of the search path only the entry that is gone.
    bool isFound = false;
    for (int row = 0; row < runtime.differences(); ++row) {
        if (runtime.cell(row, DifferenceModel::Subject) == QLatin1String("PATH")) {
            isFound = true;
            QCOMPARE(runtime.cell(row, DifferenceModel::Older), QStringLiteral("C:\\Program Files\\Velkor\\Common"));
            QCOMPARE(runtime.cell(row, DifferenceModel::Newer), QString());
        }
    }
    QVERIFY(isFound);
}

void ComparisonViewTest::anotherOrderAndManyEntries()
{
    QByteArray olderText = neededContentOf(pairFile(QStringLiteral("full-disk/NEW.txt")));
    QByteArray newerText = olderText;
    QByteArray many;
    for (int i = 1; i <= 50; ++i)
        many += "C:\\folder" + QByteArray::number(i) + ';';
    olderText.replace("  TEMP=Z:\\Temp", "  TEMP=C:\\one;C:\\two").replace("  TMP=Z:\\Temp", "  TMP=C:\\first;C:\\last");
    newerText.replace("  TEMP=Z:\\Temp", "  TEMP=C:\\two;C:\\one").replace("  TMP=Z:\\Temp", "  TMP=C:\\first;" + many + "C:\\last");
    const ShownView shown(report(olderText, QStringLiteral("a")), report(newerText, QStringLiteral("b")));
    QCOMPARE(shown.differences(), 2);
    QCOMPARE(shown.cell(0, DifferenceModel::Kind), QStringLiteral("\u2260 other order"));
    QCOMPARE(shown.cell(0, DifferenceModel::Older), QStringLiteral("C:\\one;C:\\two"));
    QCOMPARE(shown.cell(1, DifferenceModel::Older), QString());
    QVERIFY(shown.cell(1, DifferenceModel::Newer).startsWith(QStringLiteral("C:\\folder1 | C:\\folder2 | ")));
    const QModelIndex index = shown.table("differences")->model()->index(1, DifferenceModel::Newer);
    QVERIFY(index.data(Qt::ToolTipRole).toString().contains(QStringLiteral("C:\\folder30\nand 20 more")));
    // All of them are copied.
    clickRow(shown.table("differences"), 1);
    QTest::keySequence(shown.table("differences"), QKeySequence::Copy);
    QVERIFY(clipboard().endsWith(QStringLiteral(" | C:\\folder49 | C:\\folder50\n")));
}

void ComparisonViewTest::theEndOfALongLineIsShown()
{
    QByteArray olderText = neededContentOf(pairFile(QStringLiteral("full-disk/NEW.txt")));
    QByteArray newerText = olderText;
    olderText.replace("  TEMP=Z:\\Temp", "  TEMP=" + QByteArray(500, 'x') + "old" + QByteArray(100, 'y'));
    newerText.replace("  TEMP=Z:\\Temp", "  TEMP=" + QByteArray(500, 'x') + "new" + QByteArray(100, 'y'));
    newerText.replace("TEMP     = Z:\\Temp", "TEMP     = Y:\\Temp");
    ShownView shown(report(olderText, QStringLiteral("a")), report(newerText, QStringLiteral("b")));
    shown.view.nextDifference();
    QCOMPARE(shown.table("olderText")->horizontalScrollBar()->value(), 0);
    shown.view.nextDifference();
    QTableView *text = shown.table("olderText");
    const QString before = QStringLiteral("  TEMP=") + QString(500, QLatin1Char('x'));
    const int place = text->columnViewportPosition(AlignedTextModel::OlderLine) + text->fontMetrics().horizontalAdvance(before);
    QVERIFY(place > 0 && place < text->viewport()->width());
    QCOMPARE(shown.table("newerText")->horizontalScrollBar()->value(), text->horizontalScrollBar()->value());
    shown.view.previousDifference();
    QCOMPARE(text->horizontalScrollBar()->value(), 0);
}

void ComparisonViewTest::bothTextsShowTheDifference()
{
    ShownView shown("full-disk");
    shown.view.nextDifference();
    QCOMPARE(shown.olderLines(), QStringList {QString::fromUtf8("TEMP     = C:\\Users\\J\xc3\xb6rn\\AppData\\Local\\Temp")});
    QCOMPARE(shown.newerLines(), QStringList {QStringLiteral("TEMP     = Z:\\Temp")});
    // The line begins with its sign.
    const QModelIndex sign = shown.table("olderText")->selectionModel()->selectedRows(AlignedTextModel::OlderSign).constFirst();
    QCOMPARE(sign.data().toString(), QStringLiteral("\u2260"));
    QCOMPARE(shown.table("olderText")->visualRect(sign).left(), 0);
    shown.view.nextDifference();
    shown.view.nextDifference();
    QCOMPARE(shown.olderLines(), QStringList {QStringLiteral("E:\\ removable media      FAT32  MESSDATEN  Free: 11.7 GByte Total: 28.6 GByte ")});
    QCOMPARE(shown.newerLines(), QStringList {QString()});
    // The selected lines are visible in both texts.
    for (const char *side : {"olderText", "newerText"}) {
        QTableView *text = shown.table(side);
        const int column = text->isColumnHidden(AlignedTextModel::OlderLine) ? AlignedTextModel::NewerLine : AlignedTextModel::OlderLine;
        const QModelIndex index = text->selectionModel()->selectedRows(column).constFirst();
        QVERIFY(text->viewport()->rect().intersects(text->visualRect(index)));
    }
}

void ComparisonViewTest::bothTextsScrollTogether()
{
    ShownView shown("full-disk");
    QTableView *left = shown.table("olderText");
    QTableView *right = shown.table("newerText");
    QCOMPARE(left->model()->rowCount(), right->model()->rowCount());
    right->verticalScrollBar()->setValue(300);
    QCOMPARE(left->verticalScrollBar()->value(), 300);
    left->setFocus();
    QTest::keyClick(left, Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(right->verticalScrollBar()->value(), right->verticalScrollBar()->maximum());
    QCOMPARE(left->rowAt(0), right->rowAt(0));
    left->horizontalScrollBar()->setValue(200);
    QCOMPARE(right->horizontalScrollBar()->value(), 200);
    // Another line does not move the text; the keys do.
    QTest::keyClick(left, Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(left->horizontalScrollBar()->value(), 200);
    QTest::keyClick(left, Qt::Key_Right);
    QVERIFY(left->horizontalScrollBar()->value() > 200);
    QCOMPARE(right->horizontalScrollBar()->value(), left->horizontalScrollBar()->value());
    for (int i = 0; i < 100 && left->horizontalScrollBar()->value() > 0; ++i)
        QTest::keyClick(left, Qt::Key_Left);
    QCOMPARE(right->horizontalScrollBar()->value(), 0);
}

void ComparisonViewTest::theSwitchMarksTheText()
{
    ShownView shown("full-disk");
    QCOMPARE(shown.marks(), 6);
    shown.view.setShowsEveryMoment(true);
    QCOMPARE(shown.marks(), 16);
    QVERIFY(shown.everyMoment()->isChecked());
    QCOMPARE(shown.view.differenceCount(), 16);
}

void ComparisonViewTest::copiedRows()
{
    ShownView shown("full-disk");
    QTableView *table = shown.table("differences");
    table->setFocus();
    clickRow(table, 1);
    QTest::keyClick(table, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keySequence(table, QKeySequence::Copy);
    QCOMPARE(clipboard(), QStringLiteral("smaller\tDisk information\tdrive C \u203a free\t100.9 GByte\t300.4 MByte\n"
                                         "removed\tDisk information\tdrive E\troot: E:\\ | type: removable media | file system: FAT32 | "
                                         "label: MESSDATEN | free: 11.7 GByte | total: 28.6 GByte\t\n"));
    // By mouse: the command of the context menu.
    QApplication::clipboard()->clear();
    clickRow(table, 1);
    QCOMPARE(table->contextMenuPolicy(), Qt::ActionsContextMenu);
    table->actions().constFirst()->trigger();
    QCOMPARE(clipboard(), QStringLiteral("smaller\tDisk information\tdrive C \u203a free\t100.9 GByte\t300.4 MByte\n"));
}

void ComparisonViewTest::copiedTextIsExact()
{
    // Line ends, no-break spaces and blanks at the ends of lines stay.
    QByteArray text = neededContentOf(pairFile(QStringLiteral("full-disk/OLD.txt")));
    text.replace("MESSDATEN", "MESS\xc2\xa0"
                              "DATEN")
        .replace("\n", "\r\n");
    const LoadedReport loaded = report(text, QStringLiteral("OLD.txt"));
    ShownView shown(loaded, newer(QStringLiteral("full-disk")));
    shown.clickSection(2);
    QTableView *side = shown.table("olderText");
    side->setFocus();
    side->selectAll();
    QTest::keySequence(side, QKeySequence::Copy);
    const Section &section = loaded.document.sections()[std::size_t(loaded.document.findSection("diskInformation"))];
    const QByteArray expected = text.mid(section.begin, section.end - section.begin);
    QVERIFY(expected.contains("MESS\xc2\xa0"
                              "DATEN  Free: 11.7 GByte Total: 28.6 GByte \r\n"));
    QCOMPARE(clipboard().toUtf8(), expected);
}

void ComparisonViewTest::copyOfTheWindow()
{
    ShownView shown("full-disk");
    shown.view.nextDifference();
    shown.table("newerText")->setFocus();
    shown.view.copy();
    QCOMPARE(clipboard(), QStringLiteral("TEMP     = Z:\\Temp\n"));
    shown.button("next")->setFocus();
    shown.view.copy();
    QVERIFY(clipboard().startsWith(QStringLiteral("changed\tSome environment variables\tTEMP\t")));
}

void ComparisonViewTest::swappedSides()
{
    ShownView shown("driver-update");
    QCOMPARE(shown.text("olderName"), QStringLiteral("OLD.txt"));
    QCOMPARE(shown.text("newerName"), QStringLiteral("NEW.txt"));
    QTest::mouseClick(shown.button("swap"), Qt::LeftButton);
    QVERIFY(shown.view.isComparing());
    shown.wait();
    QCOMPARE(shown.text("olderName"), QStringLiteral("NEW.txt"));
    QCOMPARE(shown.text("newerName"), QStringLiteral("OLD.txt"));
    QCOMPARE(shown.cell(1, DifferenceModel::Kind), QStringLiteral("\u2193 older"));
    QTest::keyClick(&shown.view, Qt::Key_S, Qt::AltModifier);
    QTRY_COMPARE(shown.text("olderName"), QStringLiteral("OLD.txt")); // a button stays down for a moment
    shown.wait();
    QCOMPARE(shown.cell(1, DifferenceModel::Kind), QStringLiteral("\u2191 newer"));
}

void ComparisonViewTest::aTextWithoutReport()
{
    ShownView shown(report("Dear all,\nplease see below.\n", QStringLiteral("mail.txt")), newer(QStringLiteral("full-disk")));
    QCOMPARE(shown.text("message"), QStringLiteral("There is nothing to compare."));
    QCOMPARE(shown.text("notes"), QStringLiteral("There is no report in mail.txt."));
    QVERIFY(shown.view.findChild<QLabel *>(QStringLiteral("message"))->isVisible());
    shown.view.nextDifference();
    shown.view.setShowsEveryMoment(true);
    QCOMPARE(shown.view.differenceCount(), 0);
    QCOMPARE(shown.view.exported(ComparisonForm::Text), QByteArray());
}

void ComparisonViewTest::aReportThatEndsEarly()
{
    QByteArray text = neededContentOf(pairFile(QStringLiteral("full-disk/NEW.txt")));
    text.truncate(text.indexOf("QDesktopServices"));
    const ShownView shown(older(QStringLiteral("full-disk")), report(text, QStringLiteral("cut.txt")));
    QVERIFY(shown.view.findChild<QLabel *>(QStringLiteral("notes"))->isVisible());
    QCOMPARE(shown.text("notes"), QStringLiteral("The end of cut.txt is missing. What it said is compared as if it had been removed."));
    const int last = shown.differences() - 1;
    QCOMPARE(shown.cell(last, DifferenceModel::Kind), QStringLiteral("\u2212 removed"));
    QCOMPARE(shown.cell(last, DifferenceModel::Subject), QStringLiteral("the whole section"));
    // The whole of it is found in the text.
    clickRow(shown.table("differences"), last);
    QVERIFY(shown.olderLines().size() > 2);
    QVERIFY(shown.newerLines().join(QString()).isEmpty());
}

void ComparisonViewTest::exportedForms_data()
{
    QTest::addColumn<int>("form");
    QTest::addColumn<QByteArray>("begin");
    QTest::newRow("text") << int(ComparisonForm::Text) << QByteArray("--- OLD.txt\n+++ NEW.txt\n");
    QTest::newRow("JSON") << int(ComparisonForm::Json) << QByteArray("{");
    QTest::newRow("Markdown") << int(ComparisonForm::Markdown) << QByteArray("");
    QTest::newRow("HTML") << int(ComparisonForm::Html) << QByteArray("<!DOCTYPE html>");
}

void ComparisonViewTest::exportedForms()
{
    QFETCH(int, form);
    QFETCH(QByteArray, begin);
    ShownView shown("full-disk");
    const QByteArray few = shown.view.exported(ComparisonForm(form));
    QVERIFY2(few.startsWith(begin), few.left(40).constData());
    QVERIFY(few.contains("OLD.txt") && few.contains("NEW.txt") && few.contains("MESSDATEN"));
    shown.view.setShowsEveryMoment(true);
    const QByteArray all = shown.view.exported(ComparisonForm(form));
    if (ComparisonForm(form) == ComparisonForm::Json) { // has all of them at any time
        QCOMPARE(all, few);
    } else {
        QVERIFY(!few.contains("4420")); // the process id
        QVERIFY(all.contains("4420"));
    }
}

void ComparisonViewTest::namesAndValuesOfStrangers()
{
    const QByteArray evil = "<img src='http://example.org/x'><b>\x1b[31m\xe2\x80\xae" + QByteArray(100000, 'x');
    QByteArray text = neededContentOf(pairFile(QStringLiteral("full-disk/NEW.txt")));
    text.replace("TEMP     = Z:\\Temp", "TEMP     = " + evil);
    const ShownView shown(older(QStringLiteral("full-disk")), report(text, QStringLiteral("<b>evil\nname</b>.txt")));
    QCOMPARE(shown.text("newerName"), QStringLiteral("<b>evil | name</b>.txt"));
    for (const QLabel *label : shown.view.findChildren<QLabel *>())
        QCOMPARE(label->textFormat(), Qt::PlainText);
    const QModelIndex index = shown.table("differences")->model()->index(0, DifferenceModel::Newer);
    const QString cell = index.data().toString();
    QVERIFY(cell.size() < 500);
    QVERIFY(cell.startsWith(QStringLiteral("<img src='http://example.org/x'><b>\\x1b[31m\\u202e")));
    const QString toolTip = index.data(Qt::ToolTipRole).toString();
    QVERIFY(toolTip.size() < 5000);
    QVERIFY(toolTip.contains(QStringLiteral("&lt;img")));
    QVERIFY(!toolTip.contains(QStringLiteral("<img")));
    const QAbstractItemModel *lines = shown.table("newerText")->model();
    for (int row = 0; row < lines->rowCount(); ++row)
        QVERIFY(lines->index(row, AlignedTextModel::NewerLine).data().toString().size() < 3000);
}

void ComparisonViewTest::theKeyboardReachesEverything()
{
    ShownView shown("full-disk");
    QSet<QString> reached;
    shown.button("swap")->setFocus();
    for (int i = 0; i < 20; ++i) {
        reached.insert(QApplication::focusWidget()->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    for (const char *name : {"swap", "previous", "next", "everyMoment", "sections", "differences", "olderText", "newerText"})
        QVERIFY2(reached.contains(QString::fromLatin1(name)), name);
    for (const QTableView *table : shown.view.findChildren<QTableView *>())
        QVERIFY(!table->accessibleName().isEmpty());
}

void ComparisonViewTest::aViewThatIsClosedWhileComparing()
{
    for (int i = 0; i < 20; ++i) {
        ComparisonView view(older(QStringLiteral("other-machine")), newer(QStringLiteral("other-machine")));
        QVERIFY(view.isComparing());
    }
    QCoreApplication::processEvents();
}

void ComparisonViewTest::aComparisonThatIsReplaced()
{
    ShownView shown("full-disk");
    QSignalSpy spy(&shown.view, &ComparisonView::compared);
    shown.view.swapSides();
    QCOMPARE(shown.text("message"), QStringLiteral("Comparing\u2026"));
    QVERIFY(shown.view.findChild<QLabel *>(QStringLiteral("message"))->isVisible());
    shown.view.swapSides();
    shown.view.nextDifference(); // does nothing
    shown.wait();
    QTest::qWait(200); // for the result that is to be dropped
    QCOMPARE(spy.size(), 1);
    QCOMPARE(shown.text("olderName"), QStringLiteral("OLD.txt"));
    QCOMPARE(shown.cell(1, DifferenceModel::Kind), QStringLiteral("\u2193 smaller"));
}

void ComparisonViewTest::titlesAreNotCut_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("small") << QSize(1024, 600);
    QTest::newRow("usual") << QSize(1200, 760);
}

void ComparisonViewTest::titlesAreNotCut()
{
    QFETCH(const QSize, size);
    ShownView shown("full-disk");
    QFont font = shown.view.font();
    font.setPixelSize(12); // 9 points with 96 dots an inch
    shown.view.setFont(font);
    shown.view.resize(size);
    QCoreApplication::processEvents();
    const QTableView *differences = shown.table("differences");
    const QTableView *sections = shown.table("sections");
    const auto isWhole = [](const QTableView *table, int row, int column) {
        const QModelIndex index = table->model()->index(row, column);
        const QAbstractItemView *view = table;
        return table->visualRect(index).width() >= view->sizeHintForIndex(index).width();
    };
    for (int row = 0; row < 4; ++row) // "Some environment variables" and shorter ones
        QVERIFY2(isWhole(sections, row, SectionModel::Title), qPrintable(QString::number(row)));
    for (int row = 0; row < 4; ++row) {
        for (const int column : {int(DifferenceModel::Kind), int(DifferenceModel::SectionTitle), int(DifferenceModel::Subject), int(DifferenceModel::Newer)})
            QVERIFY2(isWhole(differences, row, column), qPrintable(QString::number(row) + QLatin1Char(' ') + QString::number(column)));
    }
    // Nothing has to be scrolled sideways, and nothing is left empty.
    QCOMPARE(differences->horizontalScrollBar()->maximum(), 0);
    int width = 0;
    for (int column = 0; column < DifferenceModel::ColumnCount; ++column)
        width += differences->columnWidth(column);
    QVERIFY(differences->viewport()->width() - width < DifferenceModel::ColumnCount); // less than a pixel a column
    QVERIFY(sections->width() <= size.width() / 3);
}

void ComparisonViewTest::widthsOfColumns()
{
    ShownView shown("full-disk");
    QTableView *differences = shown.table("differences");
    const int section = differences->columnWidth(DifferenceModel::SectionTitle);
    const int subject = differences->columnWidth(DifferenceModel::Subject);
    shown.clickSection(1); // TEMP alone
    QVERIFY(differences->columnWidth(DifferenceModel::Subject) < subject);
    shown.clickSection(0);
    QCOMPARE(differences->columnWidth(DifferenceModel::SectionTitle), section);
    QCOMPARE(differences->columnWidth(DifferenceModel::Subject), subject);
    // Values of any length share what is left.
    QByteArray text = neededContentOf(pairFile(QStringLiteral("full-disk/NEW.txt")));
    text.replace("TEMP     = Z:\\Temp", "TEMP     = " + QByteArray(100000, 'x'));
    const ShownView large(older(QStringLiteral("full-disk")), report(text, QStringLiteral("large")));
    const QTableView *shared = large.table("differences");
    QVERIFY(qAbs(shared->columnWidth(DifferenceModel::Older) - shared->columnWidth(DifferenceModel::Newer)) <= 1);
    QVERIFY(shared->columnWidth(DifferenceModel::Newer) > differences->columnWidth(DifferenceModel::Newer));
    QCOMPARE(shared->horizontalScrollBar()->maximum(), 0);
}

void ComparisonViewTest::widthsOfTheUserStay()
{
    ShownView shown("full-disk");
    QTableView *differences = shown.table("differences");
    differences->horizontalHeader()->resizeSection(DifferenceModel::Kind, 200);
    shown.view.resize(1200, 760);
    shown.clickSection(1);
    shown.clickSection(0);
    QCOMPARE(differences->columnWidth(DifferenceModel::Kind), 200);
}

TEST_WITH_APPLICATION(ComparisonViewTest);

#include "tst_comparison_view.moc"
