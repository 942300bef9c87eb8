// The parts of the window around a report: tabs, titles, the switch that hides personal data, context menus.

#include "output/output_report.h"
#include "redaction/copy_bar.h"
#include "redaction/redaction_panel.h"
#include "report/fact_model.h"
#include "report/fact_table.h"
#include "report/summary_page.h"
#include "test_main.h"
#include "test_widgets.h"
#include "text/text_view.h"
#include "window/main_window.h"
#include "window/readable_style.h"
#include "window/report_page.h"

#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtGui/QClipboard>
#include <QtGui/QContextMenuEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTableView>
#include <cmath>

class ReportPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void closeButtonCanBeSeen();
    void closeButtonClosesItsTab();
    void checkBoxCanBeSeen_data();
    void checkBoxCanBeSeen();
    void narrowTitleHasAnEllipsis();
    void switchBesideTheButtons();
    void nothingLeavesWhileHiding();
    void nothingLeavesWhileASelectionIsHidden();
    void menuOfFacts_data();
    void menuOfFacts();
    void menuOfSummary_data();
    void menuOfSummary();
    void menusCopyNothingWhileHiding();

private:
    void open(const QStringList &names);
    ReportPage *page() const { return m_window->reportPage(); }
    QTabBar *tabBar() const { return m_window->findChild<QTabWidget *>()->tabBar(); }
    QAbstractButton *closeButton(int tab) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<MainWindow> m_window;
};

namespace {

/// Relative luminance and contrast as in the Web Content Accessibility Guidelines.
double luminance(const QColor &color)
{
    const auto linear = [](double part) { return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double ratioOf(const QColor &one, const QColor &other)
{
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return a > b ? a / b : b / a;
}

/// The best contrast in a picture to the pixel in its corner.
double contrastWithin(const QImage &image)
{
    double best = 1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            best = qMax(best, ratioOf(image.pixelColor(x, y), image.pixelColor(0, 0)));
    }
    return best;
}

QPalette paletteOf(const QColor &text, const QColor &background)
{
    return {text, background, background.lighter(120), background.darker(120), background.darker(110), text, text, background, background};
}

/// What the context menu of a table has. Chooses the entry \a choice; without one closes the menu.
struct MenuReader
{
    explicit MenuReader(const char *choice = nullptr)
    {
        timer.setInterval(10);
        QObject::connect(&timer, &QTimer::timeout, &timer, [this, choice] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            if (!menu)
                return;
            timer.stop();
            place = menu->pos();
            QAction *chosen = nullptr;
            for (QAction *action : menu->actions()) {
                const QString text = QString(action->text()).remove(QLatin1Char('&'));
                texts += action->isEnabled() ? text : QLatin1Char('(') + text + QLatin1Char(')');
                if (choice && text == QLatin1String(choice))
                    chosen = action;
            }
            if (chosen)
                QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(chosen).center());
            else
                menu->close();
        });
        timer.start();
    }

    QTimer timer;
    QStringList texts;
    QPoint place;
};

enum class By {
    Mouse,
    MenuKey,
    ShiftF10,
};

/// As the platform sends it: the mouse to the viewport, keys to the table.
void askForMenu(QTableView *table, int row, By by)
{
    const QRect cell = table->visualRect(table->model()->index(row, 0));
    if (by == By::Mouse) {
        QTest::mouseClick(table->viewport(), Qt::RightButton, {}, cell.center());
        QContextMenuEvent event(QContextMenuEvent::Mouse, cell.center(), table->viewport()->mapToGlobal(cell.center()));
        QApplication::sendEvent(table->viewport(), &event);
        return;
    }
    table->setFocus();
    // selectRow() would take the keys into account that are down.
    table->selectionModel()->setCurrentIndex(table->model()->index(row, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (by == By::ShiftF10) {
        QTest::keyClick(table, Qt::Key_F10, Qt::ShiftModifier);
        return;
    }
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), table->mapToGlobal(QPoint()));
    QApplication::sendEvent(table, &event);
}

void addWaysToTheMenu()
{
    QTest::addColumn<By>("by");
    QTest::newRow("mouse") << By::Mouse;
    QTest::newRow("menu key") << By::MenuKey;
#ifndef Q_OS_WIN // where the system makes the event of the menu key of it
    QTest::newRow("Shift+F10") << By::ShiftF10;
#endif
}

} // namespace

Q_DECLARE_METATYPE(By)

void ReportPageTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder->filePath(QStringLiteral("settings")));
    m_window = std::make_unique<MainWindow>();
    m_window->setGeometry(0, 0, 780, 600); // with room below for menus
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void ReportPageTest::cleanup()
{
    m_window.reset();
    QApplication::setPalette(QPalette());
}

void ReportPageTest::open(const QStringList &names)
{
    QStringList files;
    for (const QString &name : names) {
        files << m_folder->filePath(name);
        QVERIFY(QFile::copy(QStringLiteral(REPORTS_DATA_DIR "/workstation.txt"), files.constLast()));
    }
    m_window->openFiles(files);
    QTRY_VERIFY(!m_window->isLoading());
    QVERIFY(page());
}

QAbstractButton *ReportPageTest::closeButton(int tab) const
{
    for (const auto side : {QTabBar::LeftSide, QTabBar::RightSide}) {
        if (auto *button = qobject_cast<QAbstractButton *>(tabBar()->tabButton(tab, side)))
            return button;
    }
    return nullptr;
}

void ReportPageTest::closeButtonCanBeSeen()
{
    constexpr double enough = 4.5;
    open({QStringLiteral("a.txt")});
    const QAbstractButton *button = closeButton(0);
    QVERIFY(button);
    const auto seen = [&] { return contrastWithin(tabBar()->grab(button->geometry()).toImage()); };
    QVERIFY2(seen() >= enough, qPrintable(QString::number(seen())));
    const QString style = QApplication::style()->objectName();
    QApplication::setStyle(new ReadableStyle);      // that of Windows draws light tabs with any palette
    for (const bool isDark : {true, false, true}) { // changes while the window is open
        QApplication::setPalette(isDark ? paletteOf(QColor(252, 252, 252), QColor(42, 46, 50)) : paletteOf(Qt::black, QColor(239, 239, 239)));
        QTRY_COMPARE(tabBar()->palette().color(QPalette::WindowText), isDark ? QColor(252, 252, 252) : QColor(Qt::black));
        QVERIFY2(seen() >= enough, qPrintable(QStringLiteral("%1, %2").arg(isDark).arg(seen())));
    }
    QApplication::setStyle(style);
    QCOMPARE(button->accessibleName(), QStringLiteral("Close tab"));
    QVERIFY(button->toolTip().contains(QLatin1String("Ctrl+W")));
}

void ReportPageTest::closeButtonClosesItsTab()
{
    open({QStringLiteral("a.txt"), QStringLiteral("b.txt"), QStringLiteral("c.txt")});
    QCOMPARE(tabBar()->count(), 3);
    tabBar()->moveTab(0, 2); // b, c, a
    QTest::mouseClick(closeButton(0), Qt::LeftButton);
    QCOMPARE(tabBar()->count(), 2);
    QCOMPARE(tabBar()->tabText(0), QStringLiteral("c.txt"));
    QTest::mouseClick(closeButton(1), Qt::LeftButton);
    QCOMPARE(tabBar()->count(), 1);
    QCOMPARE(tabBar()->tabText(0), QStringLiteral("c.txt"));
}

void ReportPageTest::checkBoxCanBeSeen_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("dark") << paletteOf(QColor(252, 252, 252), QColor(42, 46, 50));
    QTest::newRow("light") << paletteOf(Qt::black, QColor(239, 239, 239));
}

void ReportPageTest::checkBoxCanBeSeen()
{
    constexpr double enough = 3; // as the guidelines want for controls
    QFETCH(QPalette, palette);
    palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    ReadableStyle style;
    QCheckBox box;
    box.setStyle(&style);
    box.setPalette(palette);
    box.resize(box.sizeHint());
    QStyleOptionButton option;
    option.initFrom(&box);
    const QRect indicator = style.subElementRect(QStyle::SE_CheckBoxIndicator, &option, &box);
    const double seen = contrastWithin(box.grab(indicator.adjusted(-1, -1, 1, 1)).toImage());
    QVERIFY2(seen >= enough, qPrintable(QString::number(seen)));
    box.setStyle(nullptr);
}

void ReportPageTest::narrowTitleHasAnEllipsis()
{
    FactTable table;
    table.setDocument(velkor::Reports::read("x\n"));
    const QString title = QStringLiteral("Some environment variables that take more room");
    table.setScope(0, 0, title);
    table.resize(300, 200);
    table.show();
    QVERIFY(QTest::qWaitForWindowExposed(&table));
    auto *label = table.findChild<QLabel *>();
    QCOMPARE(label->text(), title); // for screen readers
    const QString shown = label->fontMetrics().elidedText(title, Qt::ElideMiddle, label->width());
    QVERIFY(shown.contains(QChar(0x2026)));
    QLabel expected(shown, &table);
    expected.setFont(label->font());
    expected.resize(label->size());
    QCOMPARE(label->grab().toImage(), expected.grab().toImage());
    QVERIFY(label->toolTip().contains(title));
}

void ReportPageTest::switchBesideTheButtons()
{
    open({QStringLiteral("a.txt"), QStringLiteral("b.txt")});
    std::vector<QCheckBox *> boxes;
    for (ReportPage *each : m_window->reportPages()) {
        auto *box = each->copyBar()->findChild<QCheckBox *>();
        QVERIFY(box);
        QCOMPARE(QString(box->text()).remove(QLatin1Char('&')), QString(m_window->actionNamed("hidePersonalData")->text()).remove(QLatin1Char('&')));
        boxes.push_back(box);
    }
    QCOMPARE(boxes.size(), std::size_t(2));
    const auto areChecked = [&](bool checked) {
        return boxes[0]->isChecked() == checked && boxes[1]->isChecked() == checked
            && m_window->actionNamed("hidePersonalData")->isChecked() == checked && page()->isRedacted() == checked;
    };
    QVERIFY(areChecked(false));
    QTest::keyClick(boxes[1], Qt::Key_Space); // of the tab that is shown
    QVERIFY(areChecked(true));
    QTRY_VERIFY(page()->output() && page()->output()->isRedacted());
    m_window->actionNamed("hidePersonalData")->trigger();
    QVERIFY(areChecked(false));
    QVERIFY(page()->output() && !page()->output()->isRedacted());
    m_window->actionNamed("previousTab")->trigger();
    QVERIFY(boxes[0]->isVisible());
    boxes[0]->click();
    QVERIFY(areChecked(true));
    m_window->actionNamed("nextTab")->trigger();
    QVERIFY(areChecked(true));
    QTRY_VERIFY(page()->output() && page()->output()->isRedacted());
}

void ReportPageTest::nothingLeavesWhileHiding()
{
    open({QStringLiteral("a.txt")});
    const auto *sentence = page()->copyBar()->findChild<QLabel *>();
    QPushButton *copy = buttonOf(page()->copyBar(), "Copy text");
    QVERIFY(copy->isEnabled());
    page()->copyBar()->findChild<QCheckBox *>()->click();
    QVERIFY(!copy->isEnabled());
    QVERIFY(!buttonOf(page()->copyBar(), "Save...")->isEnabled());
    QVERIFY(sentence->isVisible());
    QCOMPARE(sentence->text(), QStringLiteral("Personal data are being hidden. Until then nothing can be copied or saved."));
    QTRY_VERIFY(copy->isEnabled());
    QVERIFY(sentence->text().contains(QLatin1String("not anonymous")));
}

void ReportPageTest::nothingLeavesWhileASelectionIsHidden()
{
    open({QStringLiteral("a.txt")});
    m_window->actionNamed("hidePersonalData")->trigger();
    QPushButton *copy = buttonOf(page()->copyBar(), "Copy text");
    QTRY_VERIFY(copy->isEnabled());
    page()->showText();
    const QByteArray word = "GenuineIntel";
    const int begin = page()->textView()->lines().text().indexOf(word);
    QVERIFY(begin >= 0);
    page()->textView()->setSelection({begin, begin + word.size()});
    QTest::mouseClick(buttonOf(page()->redactionPanel(), "Hide selection"), Qt::LeftButton);
    QVERIFY(!copy->isEnabled());
    QVERIFY(!page()->output());
    QApplication::clipboard()->setText(QStringLiteral("before"));
    page()->copy();
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("before"));
    QTRY_VERIFY(copy->isEnabled());
    QVERIFY(!page()->output()->document.text().contains(word));
}

void ReportPageTest::menuOfFacts_data()
{
    addWaysToTheMenu();
}

void ReportPageTest::menuOfFacts()
{
    QFETCH(By, by);
    open({QStringLiteral("a.txt")});
    page()->showText();
    page()->textView()->setCaret(page()->textView()->lines().text().indexOf("MemoryLoad"));
    QTableView *table = page()->factTable()->table();
    {
        MenuReader menu("Copy");
        askForMenu(table, 1, by);
        QCOMPARE(menu.texts, QStringList({"Copy", "Go to text", "Select all"}));
        const QRect cell = table->visualRect(table->model()->index(1, 0));
        const QPoint wanted = table->viewport()->mapToGlobal(by == By::Mouse ? cell.center() : cell.bottomLeft());
        QVERIFY2((menu.place - wanted).manhattanLength() <= 2, qPrintable(QStringLiteral("%1,%2").arg(menu.place.x()).arg(menu.place.y())));
        const QString name = page()->factTable()->model()->index(1, FactModel::Name).data().toString();
        QVERIFY2(QApplication::clipboard()->text().startsWith(name + QLatin1Char('\t')), qPrintable(QApplication::clipboard()->text()));
    }
    {
        MenuReader menu("Go to text");
        askForMenu(table, 0, by);
        QCOMPARE(page()->textView()->selectedBytes(), QByteArray("45%"));
    }
    MenuReader menu("Select all");
    askForMenu(table, 0, by);
    QCOMPARE(table->selectionModel()->selectedRows().size(), table->model()->rowCount());
}

void ReportPageTest::menuOfSummary_data()
{
    addWaysToTheMenu();
}

void ReportPageTest::menuOfSummary()
{
    QFETCH(By, by);
    open({QStringLiteral("a.txt")});
    QTableView *table = page()->summaryPage()->table();
    {
        MenuReader menu("Select all");
        askForMenu(table, 0, by);
        QCOMPARE(menu.texts, QStringList({"Copy", "Select all"}));
        QCOMPARE(table->selectionModel()->selectedRows().size(), table->model()->rowCount());
    }
    MenuReader menu("Copy");
    table->clearSelection();
    askForMenu(table, 1, by);
    const QString copied = QApplication::clipboard()->text();
    QCOMPARE(copied.trimmed().count(QLatin1Char('\n')), 0);
    QVERIFY2(copied.contains(table->model()->index(1, 1).data().toString()), qPrintable(copied));
}

void ReportPageTest::menusCopyNothingWhileHiding()
{
    open({QStringLiteral("a.txt")});
    QApplication::clipboard()->setText(QStringLiteral("before"));
    page()->setRedacted(true);
    QVERIFY(!page()->output());
    Q_EMIT page()->summaryPage()->copyRequested();
    page()->factTable()->table()->selectAll();
    Q_EMIT page()->factTable()->copyRequested();
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("before"));
}

TEST_WITH_APPLICATION(ReportPageTest);
#include "tst_report_page.moc"
