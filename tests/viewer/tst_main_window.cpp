// The whole window, with the mouse and with the keyboard.

#include "comparison/comparison_table_view.h"
#include "comparison/comparison_view.h"
#include "report/fact_model.h"
#include "report/fact_table.h"
#include "report/outline_model.h"
#include "report/summary_page.h"
#include "test_files.h"
#include "test_main.h"
#include "text/find_bar.h"
#include "text/text_view.h"
#include "window/main_window.h"
#include "window/message_bar.h"
#include "window/recent_files.h"
#include "window/report_page.h"

#include <QtCore/QFile>
#include <QtCore/QMimeData>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtGui/QAccessible>
#include <QtGui/QClipboard>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTableView>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QTreeView>
#include <set>

using namespace velkor::Reports;

class MainWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void aReportBeginsWithItsSummary();
    void sectionByMouseShowsTextAndFacts();
    void caretSelectsTheSection();
    void factShowsItsPlace();
    void sectionByLetters();
    void sectionsByKeys();
    void findsFromTheKeyboard();
    void copiesTheBytes();
    void copiesSummaryAndFacts();
    void jsonOpensAsTheSameText();
    void noReportShowsTheText();
    void filesThatCannotBeRead();
    void aFileThatIsOpenIsReadAgain();
    void opensFromTheClipboard();
    void opensDroppedFiles();
    void opensByTheDialog();
    void recentFilesAreRememberedAndForgotten();
    void remembersSwitchesAndNothingOfAReport();
    void comparesTwoFiles();
    void comparesOpenReports();
    void startPageByMouseAndKeyboard();
    void everyCommandHasAName();
    void everyCommandRunsWithoutAReport();
    void everyCommandRunsWithAReport();
    void everythingHasAnAccessibleName();
    void strangersCannotUseRichText();
    void fitsOnSmallScreens();

private:
    QString path(const char *name) const { return m_folder->filePath(QLatin1String(name)); }
    QString write(const char *name, const QByteArray &bytes) const;
    ReportPage *openReport(const QByteArray &bytes);
    void show();
    void click(const char *action);
    void press(const char *keys);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<MainWindow> m_window;
};

namespace {

/// Presses Escape in every dialog and menu that opens until it is destroyed.
class DialogCloser : public QObject
{
public:
    DialogCloser()
    {
        m_timer.setInterval(10);
        connect(&m_timer, &QTimer::timeout, this, [this] {
            QWidget *widget = QApplication::activeModalWidget() ? QApplication::activeModalWidget() : QApplication::activePopupWidget();
            if (!widget)
                return;
            titles << widget->windowTitle();
            widget->close();
        });
        m_timer.start();
    }

    QStringList titles;

private:
    QTimer m_timer;
};

} // namespace

void MainWindowTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder->filePath(QStringLiteral("settings")));
    m_window = std::make_unique<MainWindow>();
    show();
}

void MainWindowTest::cleanup()
{
    m_window.reset();
    m_folder.reset();
}

void MainWindowTest::show()
{
    m_window->resize(1000, 600);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

QString MainWindowTest::write(const char *name, const QByteArray &bytes) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", name);
    return file.fileName();
}

ReportPage *MainWindowTest::openReport(const QByteArray &bytes)
{
    m_window->openFiles({write("report.txt", bytes)});
    if (!QTest::qWaitFor([this] { return !m_window->isLoading(); }))
        return nullptr;
    return m_window->reportPage();
}

/// Opens the menu with the mouse and clicks the entry.
void MainWindowTest::click(const char *action)
{
    QAction *wanted = m_window->actionNamed(action);
    QVERIFY(wanted && wanted->isEnabled());
    const QList<QAction *> titles = m_window->menuBar()->actions();
    for (QAction *title : titles) {
        if (!title->menu()->actions().contains(wanted))
            continue;
        QTest::mouseClick(m_window->menuBar(), Qt::LeftButton, {}, m_window->menuBar()->actionGeometry(title).center());
        QTRY_VERIFY(title->menu()->isVisible());
        QTest::mouseClick(title->menu(), Qt::LeftButton, {}, title->menu()->actionGeometry(wanted).center());
        QVERIFY(!title->menu()->isVisible());
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        return;
    }
    QFAIL(action);
}

void MainWindowTest::press(const char *keys)
{
    if (QApplication::activeWindow() != m_window.get()) { // a dialog was closed
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }
    const int key = QKeySequence::fromString(QLatin1String(keys), QKeySequence::PortableText)[0];
    QWidget *focus = QApplication::focusWidget() ? QApplication::focusWidget() : m_window.get();
    QTest::keyClick(focus, Qt::Key(key & ~int(Qt::KeyboardModifierMask)), Qt::KeyboardModifiers(key & int(Qt::KeyboardModifierMask)));
}

void MainWindowTest::aReportBeginsWithItsSummary()
{
    QElapsedTimer timer;
    timer.start();
    ReportPage *page = openReport(workstation());
    QVERIFY(page);
    QVERIFY(page->isShowingSummary());
    QCOMPARE(page->outline()->currentIndex().data().toString(), QStringLiteral("Summary"));
    QVERIFY(page->summaryPage()->table()->model()->rowCount() > 5);
    QVERIFY(m_window->windowTitle().startsWith(QLatin1String("report.txt")));
    QVERIFY(!page->messageBar()->isVisible());
    QCOMPARE(page->textView()->lines().text(), workstation());
}

void MainWindowTest::sectionByMouseShowsTextAndFacts()
{
    ReportPage *page = openReport(workstation());
    const auto *model = qobject_cast<OutlineModel *>(page->outline()->model());
    const QModelIndex memory = model->sectionIndex(page->report().report.document.findSection("memoryInfo"));
    page->outline()->scrollTo(memory);
    QTest::mouseClick(page->outline()->viewport(), Qt::LeftButton, {}, page->outline()->visualRect(memory).center());
    QVERIFY(!page->isShowingSummary());
    QCOMPARE(page->textView()->caret(), workstation().indexOf("Memory Information:"));
    QVERIFY(page->textView()->characterRect(page->textView()->caret()).top() <= page->textView()->fontMetrics().height());
    QCOMPARE(page->factTable()->model()->index(0, FactModel::Name).data().toString(), QStringLiteral("MemoryLoad"));
    QTest::keyClick(page->outline(), Qt::Key_Down);
    QCOMPARE(page->textView()->caret(), workstation().indexOf("Computer name"));
}

void MainWindowTest::caretSelectsTheSection()
{
    ReportPage *page = openReport(workstation());
    press("Ctrl+2");
    QVERIFY(page->textView()->hasFocus());
    page->textView()->setCaret(workstation().indexOf("AvailPhys"));
    QCOMPARE(page->outline()->currentIndex().data().toString(), QStringLiteral("Memory Information"));
    const FactTable *facts = page->factTable();
    QCOMPARE(facts->table()->currentIndex().sibling(facts->table()->currentIndex().row(), FactModel::Name).data().toString(), QStringLiteral("AvailPhys"));
    const int caret = page->textView()->caret();
    QTest::keyClick(page->textView(), Qt::Key_Right);
    QCOMPARE(page->textView()->caret(), caret + 1); // following does not move it
    page->textView()->setCaret(workstation().indexOf("E:\\ removable"));
    QCOMPARE(page->outline()->currentIndex().data().toString(), QStringLiteral("Disk information")); // closed
    page->outline()->expand(page->outline()->currentIndex());
    page->textView()->setCaret(workstation().indexOf("removable"));
    QCOMPARE(page->outline()->currentIndex().data().toString(), QStringLiteral("drive E"));
}

void MainWindowTest::factShowsItsPlace()
{
    ReportPage *page = openReport(workstation());
    page->textView()->setCaret(workstation().indexOf("MemoryLoad"));
    press("Ctrl+2");
    page->factTable()->table()->selectRow(0);
    page->factTable()->table()->setFocus();
    QTest::keyClick(page->factTable()->table(), Qt::Key_Return);
    QCOMPARE(page->textView()->selectedBytes(), QByteArray("45%"));
    QVERIFY(page->factTable()->table()->hasFocus()); // for the next one
}

void MainWindowTest::sectionByLetters()
{
    ReportPage *page = openReport(workstation());
    QTimer::singleShot(200, this, [] {
        QWidget *dialog = QApplication::activeModalWidget();
        QTest::keyClicks(dialog->findChild<QLineEdit *>(), QStringLiteral("diskinf"));
        QTest::keyClick(dialog->findChild<QLineEdit *>(), Qt::Key_Return);
    });
    press("Ctrl+G");
    m_window->activateWindow();
    QTRY_VERIFY(page->textView()->hasFocus());
    QCOMPARE(page->textView()->caret(), workstation().indexOf("Disk information"));
    QCOMPARE(page->outline()->currentIndex().data().toString(), QStringLiteral("Disk information"));
}

void MainWindowTest::sectionsByKeys()
{
    ReportPage *page = openReport(workstation());
    press("Alt+Down");
    QCOMPARE(page->outline()->currentIndex().data().toString(), QStringLiteral("Windows version"));
    press("Alt+Down");
    press("Alt+Down");
    QCOMPARE(page->outline()->currentIndex().data().toString(), QStringLiteral("Word size"));
    press("Alt+Up");
    press("Alt+Up");
    press("Alt+Up"); // the first one stays
    QCOMPARE(page->outline()->currentIndex().data().toString(), QStringLiteral("Windows version"));
}

void MainWindowTest::findsFromTheKeyboard()
{
    ReportPage *page = openReport(workstation());
    press("Ctrl+F");
    QVERIFY(!page->isShowingSummary());
    auto *bar = page->findChild<FindBar *>();
    QVERIFY(bar->isVisible());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("NetBios"));
    QTRY_COMPARE(page->textView()->selectedBytes(), QByteArray("NetBios"));
    const int first = page->textView()->selection().begin;
    QCOMPARE(first, workstation().indexOf("NetBios"));
    press("F3");
    QTRY_COMPARE(page->textView()->selection().begin, workstation().indexOf("NetBios", first + 1));
    press("Shift+F3");
    QTRY_COMPARE(page->textView()->selection().begin, first);
    press("Escape");
    QVERIFY(!bar->isVisible());
}

void MainWindowTest::copiesTheBytes()
{
    ReportPage *page = openReport("Computer name\r\nNetBios name:\xc2\xa0 A\r\n");
    press("Ctrl+2");
    press("Ctrl+A");
    press("Ctrl+C");
    QCOMPARE(QApplication::clipboard()->text(), QString::fromUtf8("Computer name\r\nNetBios name:\xc2\xa0 A\r\n"));
    page->textView()->setSelection({0, 8});
    click("copy");
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("Computer"));
}

void MainWindowTest::copiesSummaryAndFacts()
{
    ReportPage *page = openReport(workstation());
    page->summaryPage()->table()->setFocus();
    click("copy");
    const QString all = QApplication::clipboard()->text();
    QVERIFY2(all.contains(QLatin1String("Memory: 15.8 GByte")), qPrintable(all));
    page->textView()->setCaret(workstation().indexOf("MemoryLoad"));
    press("Ctrl+2");
    QVERIFY(!page->isShowingSummary());
    page->factTable()->table()->setFocus();
    QVERIFY(page->factTable()->table()->hasFocus()); // the row of the caret is selected
    press("Ctrl+C");
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("MemoryLoad\t45%\n"));
}

void MainWindowTest::jsonOpensAsTheSameText()
{
    ReportPage *page = openReport(toJson(read(workstation())));
    QVERIFY(page);
    QCOMPARE(page->textView()->lines().text(), workstation());
    QVERIFY(page->isShowingSummary());
}

void MainWindowTest::noReportShowsTheText()
{
    ReportPage *page = openReport("Dear support,\nnothing works.\n");
    QVERIFY(page);
    QVERIFY(!page->isShowingSummary());
    QVERIFY(page->messageBar()->isVisible());
    QCOMPARE(page->messageBar()->messages(), QStringList({"This text contains no system report."}));
    QCOMPARE(page->textView()->lines().text(), QByteArray("Dear support,\nnothing works.\n"));
    QVERIFY(!m_window->actionNamed("chooseSection")->isEnabled());
    QTest::mouseClick(page->messageBar()->findChild<QToolButton *>(), Qt::LeftButton);
    QVERIFY(!page->messageBar()->isVisible());
    QVERIFY(openReport(QByteArray()));
    QVERIFY(openReport(QByteArray("\0\xff\xfe\0", 4)));
}

void MainWindowTest::filesThatCannotBeRead()
{
    m_window->openFiles({path("absent.txt"), m_folder->path(), write("bad.json", "{\"schemaVersion\": 1, \"sections\": 7}")});
    QTRY_VERIFY(!m_window->isLoading());
    QVERIFY(m_window->messageBar()->isVisible());
    QCOMPARE(m_window->messageBar()->messages().size(), 3);
    const QString all = m_window->messageBar()->messages().join(QLatin1Char('\n'));
    QVERIFY2(all.contains(QStringLiteral("There is no file \"%1\".").arg(path("absent.txt"))), qPrintable(all));
    QVERIFY2(all.contains(QStringLiteral("\"%1\" is a folder. Open a file in it.").arg(m_folder->path())), qPrintable(all));
    QVERIFY2(all.contains(QLatin1String("\"bad.json\" cannot be read: ")), qPrintable(all));
    QVERIFY(!m_window->reportPage());
    QVERIFY(RecentFiles().paths().isEmpty());
}

void MainWindowTest::aFileThatIsOpenIsReadAgain()
{
    openReport(workstation());
    const ReportPage *page = openReport("other text");
    QCOMPARE(m_window->reportPages().size(), std::size_t(1));
    QCOMPARE(page->textView()->lines().text(), QByteArray("other text"));
    press("Ctrl+W");
    QVERIFY(!m_window->reportPage());
}

void MainWindowTest::opensFromTheClipboard()
{
    QApplication::clipboard()->setText(QString::fromUtf8(workstation()));
    press("Ctrl+Shift+V");
    QTRY_VERIFY(m_window->reportPage());
    QVERIFY(m_window->reportPage()->report().report.isReport());
    QVERIFY(RecentFiles().paths().isEmpty());
    QApplication::clipboard()->clear();
    click("openFromClipboard");
    QCOMPARE(m_window->messageBar()->messages(), QStringList({"There is no text in \"Clipboard\"."}));
}

void MainWindowTest::opensDroppedFiles()
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(write("one.txt", workstation()))});
    const auto drop = [&] {
        QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_window.get(), &enter);
        QDropEvent end(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_window.get(), &end);
        return enter.isAccepted() && end.isAccepted();
    };
    QVERIFY(drop());
    QTRY_VERIFY(m_window->reportPage());
    QCOMPARE(m_window->reportPage()->report().report.name, QStringLiteral("one.txt"));
    data.setUrls({QUrl::fromLocalFile(pairFile("full-disk/OLD.txt")), QUrl::fromLocalFile(pairFile("full-disk/NEW.txt"))});
    QVERIFY(drop());
    QTRY_VERIFY(m_window->comparisonView());
}

void MainWindowTest::opensByTheDialog()
{
    const QString file = write("by dialog.txt", workstation());
    for (const bool byMouse : {false, true}) {
        QTimer::singleShot(300, this, [file] {
            auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
            edit->setText(file);
            QTest::keyClick(edit, Qt::Key_Return);
        });
        if (byMouse)
            click("open");
        else
            press("Ctrl+O");
        QTRY_VERIFY(m_window->reportPage());
        QCOMPARE(m_window->reportPage()->report().report.path, file);
        press("Ctrl+W");
        QVERIFY(!m_window->reportPage());
    }
}

void MainWindowTest::recentFilesAreRememberedAndForgotten()
{
    openReport(workstation());
    const QString file = path("report.txt");
    QCOMPARE(RecentFiles().paths(), QStringList({file}));
    m_window->close();
    m_window = std::make_unique<MainWindow>();
    show();
    auto *list = m_window->findChild<QListWidget *>();
    QCOMPARE(list->count(), 1);
    list->setCurrentRow(0);
    QTest::keyClick(list, Qt::Key_Return);
    QTRY_VERIFY(m_window->reportPage());
    QCOMPARE(m_window->reportPage()->report().report.path, file);
    RecentFiles files;
    for (int i = 0; i < 2 * RecentFiles::most; ++i)
        files.add(QString::number(i));
    QCOMPARE(files.paths().size(), RecentFiles::most);
    QCOMPARE(files.paths().constFirst(), QString::number(2 * RecentFiles::most - 1));
    files.clear();
    QVERIFY(RecentFiles().paths().isEmpty());
}

void MainWindowTest::remembersSwitchesAndNothingOfAReport()
{
    openReport(workstation());
    press("Ctrl+3");
    QVERIFY(!m_window->reportPage()->outline()->isVisible());
    click("facts");
    press("Ctrl+2");
    QVERIFY(!m_window->reportPage()->factTable()->isVisible());
    QTest::keyClicks(m_window->reportPage()->factTable()->filter(), QStringLiteral("BIRKENTAL"));
    m_window->close();
    m_window = std::make_unique<MainWindow>();
    show();
    QVERIFY(!m_window->actionNamed("outline")->isChecked());
    QVERIFY(!m_window->actionNamed("facts")->isChecked());
    QVERIFY(m_window->actionNamed("outline")->isEnabled());
    QFile settings(m_folder->filePath(QStringLiteral("settings/vkSystemInfo/vkviewer.ini")));
    QVERIFY(settings.open(QIODevice::ReadOnly));
    const QByteArray bytes = settings.readAll();
    QVERIFY(bytes.contains("report.txt"));
    QVERIFY(!bytes.contains("BIRKENTAL"));
    openReport(workstation());
    QVERIFY(!m_window->reportPage()->outline()->isVisible());
}

void MainWindowTest::comparesTwoFiles()
{
    m_window->compareFiles({pairFile("full-disk/OLD.txt"), pairFile("full-disk/NEW.txt")});
    QTRY_VERIFY(m_window->comparisonView());
    QTRY_VERIFY(!m_window->comparisonView()->isComparing());
    QVERIFY(m_window->comparisonView()->differenceCount() > 0);
    press("F8");
    QCOMPARE(m_window->comparisonView()->currentDifference(), 0);
    press("Shift+F8");
    QCOMPARE(m_window->comparisonView()->currentDifference(), m_window->comparisonView()->differenceCount() - 1);
    press("Ctrl+E");
    QVERIFY(m_window->comparisonView()->showsEveryMoment());
    QVERIFY(!m_window->actionNamed("find")->isEnabled());
}

void MainWindowTest::comparesOpenReports()
{
    m_window->openFiles({pairFile("full-disk/OLD.txt"), pairFile("full-disk/NEW.txt"), pairFile("missing-runtime/NEW.txt")});
    QTRY_COMPARE(m_window->reportPages().size(), std::size_t(3));
    press("Ctrl+Shift+D");
    QVERIFY(qobject_cast<ComparisonTableView *>(m_window->comparisonTab()));
    m_window->compareFiles({path("absent.txt"), pairFile("full-disk/OLD.txt")}); // one of them can be shown
    QTRY_VERIFY(m_window->reportPage());
    QVERIFY(m_window->messageBar()->isVisible());
}

void MainWindowTest::startPageByMouseAndKeyboard()
{
    DialogCloser closer;
    auto *open = m_window->findChild<QPushButton *>(QStringLiteral("openButton"));
    QTest::mouseClick(open, Qt::LeftButton);
    QCOMPARE(closer.titles, QStringList({"Open reports"}));
    open->setFocus();
    QTest::keyClick(open, Qt::Key_Space);
    QCOMPARE(closer.titles.size(), 2);
}

void MainWindowTest::everyCommandHasAName()
{
    std::set<QString> keys;
    for (const QAction *action : m_window->actionList()) {
        QVERIFY2(action->text().contains(QLatin1Char('&')), qPrintable(action->text()));
        for (const QKeySequence &sequence : action->shortcuts())
            QVERIFY2(keys.insert(sequence.toString()).second, qPrintable(sequence.toString()));
    }
    const QList<QAction *> titles = m_window->menuBar()->actions();
    for (const QAction *title : titles) { // a letter opens one entry of a menu only
        std::set<QChar> letters;
        const QList<QAction *> entries = title->menu()->actions();
        for (const QAction *entry : entries) {
            if (entry->isSeparator())
                continue;
            const QChar letter = entry->text().at(entry->text().indexOf(QLatin1Char('&')) + 1).toLower();
            QVERIFY2(letters.insert(letter).second, qPrintable(entry->text()));
        }
    }
}

void MainWindowTest::everyCommandRunsWithoutAReport()
{
    DialogCloser closer;
    for (QAction *action : m_window->actionList()) {
        if (action->isEnabled() && action->objectName() != QLatin1String("quit"))
            action->trigger();
    }
    QVERIFY(closer.titles.contains(QStringLiteral("Keys")));
    QVERIFY(m_window->isVisible());
}

void MainWindowTest::everyCommandRunsWithAReport()
{
    openReport(workstation());
    DialogCloser closer;
    for (QAction *action : m_window->actionList()) {
        if (action->isEnabled() && action->objectName() != QLatin1String("quit") && action->objectName() != QLatin1String("closeTab"))
            action->trigger();
    }
    QVERIFY(closer.titles.contains(QStringLiteral("Go to section")));
    QVERIFY(m_window->reportPage());
    press("Ctrl+Q");
    QVERIFY(!m_window->isVisible());
}

void MainWindowTest::everythingHasAnAccessibleName()
{
    openReport(workstation());
    const QList<QWidget *> widgets = m_window->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        const bool isReached = (widget->focusPolicy() & Qt::TabFocus) && widget->isEnabled() && !qobject_cast<const QTabBar *>(widget) && !qobject_cast<const QTabWidget *>(widget);
        if (!isReached || widget->parentWidget()->inherits("QTabBar") || widget->objectName().startsWith(QLatin1String("qt_")))
            continue;
        QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(const_cast<QWidget *>(widget));
        QVERIFY2(interface && !interface->text(QAccessible::Name).isEmpty(), widget->metaObject()->className());
    }
}

void MainWindowTest::strangersCannotUseRichText()
{
    openReport(workstation());
    m_window->openFiles({path("<b>x</b> & y.txt")});
    QTRY_VERIFY(!m_window->isLoading());
    const QList<QLabel *> labels = m_window->findChildren<QLabel *>();
    for (const QLabel *label : labels)
        QVERIFY2(label->textFormat() == Qt::PlainText || label->text().isEmpty(), qPrintable(label->text()));
}

void MainWindowTest::fitsOnSmallScreens()
{
    openReport(workstation());
    press("Ctrl+F");
    QVERIFY2(m_window->minimumSizeHint().width() <= 1024, qPrintable(QString::number(m_window->minimumSizeHint().width())));
    QVERIFY2(m_window->minimumSizeHint().height() <= 560, qPrintable(QString::number(m_window->minimumSizeHint().height())));
}

TEST_WITH_APPLICATION(MainWindowTest);
#include "tst_main_window.moc"
