// Every command of the menus, by its keys and by the mouse, and what is seen after it.

#include "comparison/comparison_view.h"
#include "making/making_bar.h"
#include "making/report_process.h"
#include "redaction/copy_bar.h"
#include "redaction/redaction_panel.h"
#include "report/fact_meaning.h"
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
#include "window/report_page.h"
#include "window/start_page.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtGui/QAccessible>
#include <QtGui/QClipboard>
#include <QtPrintSupport/qtprintsupportglobal.h>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTableView>
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QTreeView>
#include <functional>
#include <set>

class WindowCommandsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void everyCommandHasARow();
    void commands_data();
    void commands();
    void recentReports_data();
    void recentReports();
    void savingOverAFile();
    void savingAComparisonOverAFile();
    void panesOfAReport();
    void panesOfAComparison();
    void panesWithoutAReport();
    void tabReachesEveryPane();
    void tabReachesAllOfAComparison();
    void meanings();
    void meaningIsRead();
    void reportWithoutOpenGL();
#ifdef SIMULATED_WINDOWS
    void theOpenReportStaysWhileOneIsMade();
    void onlyOneReportIsMade();
    void fileOnTheCommandLine();
#endif

private:
    /// What is open before the command.
    enum class Start {
        Nothing,
        Summary, ///< a report, as it is opened
        Text,    ///< a report; the text has the focus
        Three,   ///< three reports
        Pair,    ///< a comparison
    };
    using Action = std::function<void(WindowCommandsTest &)>;
    struct Row
    {
        const char *name;
        Start start;
        Action prepare;
        std::function<void(WindowCommandsTest &, QDialog &)> answer; ///< for the dialog that the command opens
        std::function<bool(WindowCommandsTest &)> effect;            ///< false before the command, true after it
    };

    static const std::vector<Row> &rows();
    QString path(const char *name) const { return m_folder->filePath(QLatin1String(name)); }
    QString write(const char *name, const QByteArray &bytes) const;
    QString program(const char *unixScript, const char *windowsScript) const;
    void open(const QStringList &files, std::size_t pages);
    void start(Start state);
    void activate();
    void press(const QKeySequence &keys);
    void clickEntry(const QAction *wanted);
    void inDialogs(const std::vector<std::function<void(QDialog &)>> &answers);
    void waitFor(const std::function<bool()> &condition, const char *what);
    ReportPage &page() const { return *m_window->reportPage(); }
    TextView &text() const { return *page().textView(); }
    QAction &action(const char *name) const { return *m_window->actionNamed(name); }
    void findText(const char *text);
    void printToFile(QDialog &dialog);
    std::function<void(QDialog &)> replaces(bool isReplaced);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<QObject> m_context; ///< what is still to be done ends with it
    QString m_seen;                     ///< in a dialog
    double m_before = 0;
};

namespace {

constexpr int longTime = 30000; // milliseconds; windows appear slowly in some environments

void chooseFile(QDialog &dialog, const QString &file)
{
    auto *edit = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    if (!edit) {
        dialog.reject();
        return;
    }
    edit->setText(QFileInfo(file).absoluteFilePath()); // on Windows with the drive
    QTest::keyClick(edit, Qt::Key_Return);
    if (dialog.isVisible())
        dialog.reject();
}

QString titleOf(const QModelIndex &index)
{
    return index.data().toString();
}

} // namespace

void WindowCommandsTest::initTestCase()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    qputenv("VKSYSTEMINFO_MACHINE", MACHINES_DIR "/workstation");
}

void WindowCommandsTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, path("settings"));
    m_context = std::make_unique<QObject>();
    m_seen.clear();
    m_window = std::make_unique<MainWindow>();
    m_window->resize(1000, 600);
    m_window->show();
    activate();
}

void WindowCommandsTest::cleanup()
{
    m_context.reset();
    m_window.reset();
    m_folder.reset();
}

QString WindowCommandsTest::write(const char *name, const QByteArray &bytes) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", name);
    return file.fileName();
}

/// A program that stands for vkreport.
QString WindowCommandsTest::program(const char *unixScript, const char *windowsScript) const
{
#ifdef Q_OS_WIN
    Q_UNUSED(unixScript)
    return write("program.bat", QByteArray("@echo off\r\n") + windowsScript + "\r\n");
#else
    Q_UNUSED(windowsScript)
    const QString name = write("program", QByteArray("#!/bin/sh\n") + unixScript + '\n');
    QFile::setPermissions(name, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return name;
#endif
}

void WindowCommandsTest::waitFor(const std::function<bool()> &condition, const char *what)
{
    QVERIFY2(QTest::qWaitFor(condition, longTime), what);
}

void WindowCommandsTest::activate()
{
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get(), longTime));
}

void WindowCommandsTest::open(const QStringList &files, std::size_t pages)
{
    m_window->openFiles(files);
    waitFor([&] { return !m_window->isLoading() && m_window->reportPages().size() == pages; }, "no report");
}

void WindowCommandsTest::start(Start state)
{
    switch (state) {
    case Start::Nothing:
        break;
    case Start::Summary:
    case Start::Text:
        open({write("report.txt", workstation())}, 1);
        if (state == Start::Text && m_window->reportPage())
            action("showText").trigger();
        break;
    case Start::Three:
        open({pairFile("full-disk/OLD.txt"), pairFile("full-disk/NEW.txt"), pairFile("missing-runtime/NEW.txt")}, 3);
        break;
    case Start::Pair:
        m_window->compareFiles({pairFile("full-disk/OLD.txt"), pairFile("full-disk/NEW.txt")});
        waitFor([this] { return m_window->comparisonView() && !m_window->comparisonView()->isComparing(); }, "no comparison");
        break;
    }
}

void WindowCommandsTest::press(const QKeySequence &keys)
{
    const int key = keys[0];
    QWidget *focus = QApplication::focusWidget() ? QApplication::focusWidget() : m_window.get();
    QTest::keyClick(focus, Qt::Key(key & ~int(Qt::KeyboardModifierMask)), Qt::KeyboardModifiers(key & int(Qt::KeyboardModifierMask)));
}

/// Opens the menu with the mouse and clicks the entry.
void WindowCommandsTest::clickEntry(const QAction *wanted)
{
    QMenuBar *bar = m_window->menuBar();
    const QList<QAction *> titles = bar->actions();
    for (QAction *title : titles) {
        QMenu *menu = title->menu();
        if (!menu->actions().contains(const_cast<QAction *>(wanted)))
            continue;
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(title).center());
        waitFor([menu] { return menu->isVisible(); }, "no menu");
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(const_cast<QAction *>(wanted)).center());
        return;
    }
    QFAIL("in no menu");
}

/// Calls the functions for the dialogs that open one after the other, also one inside of another.
void WindowCommandsTest::inDialogs(const std::vector<std::function<void(QDialog &)>> &answers)
{
    if (answers.empty())
        return;
    constexpr int interval = 10; // milliseconds
    QTimer::singleShot(interval, m_context.get(), [this, answers] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible() || dialog->property("isAnswered").toBool()) {
            inDialogs(answers);
            return;
        }
        dialog->setProperty("isAnswered", true);
        inDialogs({answers.begin() + 1, answers.end()});
        answers.front()(*dialog);
    });
}

void WindowCommandsTest::findText(const char *text)
{
    action("find").trigger();
    auto *edit = page().findChild<FindBar *>()->findChild<QLineEdit *>();
    QTest::keyClicks(edit, QLatin1String(text));
    waitFor([&] { return this->text().selectedBytes() == text; }, "no hit");
}

/// Never on a printer.
void WindowCommandsTest::printToFile(QDialog &dialog)
{
    m_seen = QString::fromLatin1(dialog.metaObject()->className());
    auto *printers = dialog.findChild<QComboBox *>(QStringLiteral("printers"));
    auto *file = dialog.findChild<QLineEdit *>(QStringLiteral("filename"));
    if (printers && file) {
        printers->setCurrentIndex(printers->count() - 1); // "Print to File (PDF)"
        file->setText(path("printed.pdf"));
    }
    if (printers && file && file->isEnabled() && printers->currentText().contains(QLatin1String("PDF")))
        dialog.accept();
    else
        dialog.reject();
}

const std::vector<WindowCommandsTest::Row> &WindowCommandsTest::rows()
{
    using T = WindowCommandsTest;
    const auto echo = [](T &t) { t.m_window->reportProcess()->setProgram(t.program("echo \"$@\"", "echo %*")); };
    const auto made = [](const char *arguments) {
        return [arguments](T &t) { return t.m_window->reportPage() && t.text().lines().text().simplified() == arguments; };
    };
    const auto isShown = [](const QWidget *widget) { return widget->isVisible() && !widget->visibleRegion().isEmpty(); };
    static const std::vector<Row> all = {
        {"newReport", Start::Nothing, echo, nullptr, made("--progress --time-limit 60 --format json")},
        {"newReportWithoutOpenGL", Start::Nothing, echo, nullptr, made("--progress --time-limit 60 --format json --no-opengl")},
        {"open", Start::Nothing, [](T &t) { t.write("wanted.txt", workstation()); },
         [](T &t, QDialog &dialog) { chooseFile(dialog, t.path("wanted.txt")); },
         [](T &t) { return t.m_window->reportPage() && t.page().report().report.path == t.path("wanted.txt") && t.page().isShowingSummary(); }},
        {"openFromClipboard", Start::Nothing, [](T &) { QApplication::clipboard()->setText(QStringLiteral("Computer name\nNetBios name: A\n")); }, nullptr,
         [](T &t) { return t.m_window->reportPage() && t.text().lines().text() == "Computer name\nNetBios name: A\n"; }},
        {"compareWith", Start::Nothing, [](T &t) { t.open({pairFile("full-disk/NEW.txt")}, 1); },
         [](T &, QDialog &dialog) { chooseFile(dialog, pairFile("full-disk/OLD.txt")); },
         [](T &t) {
        const ComparisonView *view = t.m_window->comparisonView();
        return view && !view->isComparing() && view->differenceCount() > 0 && view->findChild<QLabel *>(QStringLiteral("olderName"))->toolTip().contains(QLatin1String("OLD.txt"))
            && view->findChild<QLabel *>(QStringLiteral("newerName"))->toolTip().contains(QLatin1String("NEW.txt"));
         }},
        {"compareOpenReports", Start::Nothing, [](T &t) { t.open({pairFile("full-disk/OLD.txt"), pairFile("full-disk/NEW.txt")}, 2); }, nullptr,
         [](T &t) { return t.m_window->comparisonView() && !t.m_window->comparisonView()->isComparing() && t.m_window->comparisonView()->differenceCount() > 0; }},
        {"saveAs", Start::Summary, nullptr, [](T &t, QDialog &dialog) { chooseFile(dialog, t.path("saved.txt")); },
         [](T &t) { return contentOf(t.path("saved.txt")) == workstation(); }},
        {"print", Start::Summary, nullptr, [](T &t, QDialog &dialog) { t.printToFile(dialog); },
         [](T &t) {
#if QT_CONFIG(printdialog)
        return contentOf(t.path("printed.pdf")).startsWith("%PDF-");
#else // the list of printers, or a message that there is none
        return t.m_seen == QLatin1String("QInputDialog") || t.m_window->messageBar()->messages().join(QString()).contains(QLatin1String("No printer is installed."));
#endif
         }},
                                  {"exportPdf", Start::Summary, nullptr, [](T &t, QDialog &dialog) { chooseFile(dialog, t.path("saved.pdf")); }, [](T &t) { return contentOf(t.path("saved.pdf")).startsWith("%PDF-"); }}, {"closeTab", Start::Summary, nullptr, nullptr, [](T &t) { return !t.m_window->reportPage() && t.m_window->findChild<StartPage *>()->isVisible() && t.m_window->windowTitle() == QLatin1String("System reports"); }}, {"quit", Start::Summary, nullptr, nullptr, [](T &t) { return !t.m_window->isVisible(); }}, {"copy", Start::Text, [](T &t) {
             QApplication::clipboard()->setText(QStringLiteral("before"));
             const int begin = workstation().indexOf("Memory Information");
             t.text().setSelection({begin, begin + 6}); }, nullptr, [](T &) { return QApplication::clipboard()->text() == QLatin1String("Memory"); }}, {"selectAll", Start::Text, nullptr, nullptr, [](T &t) { return t.text().selectedBytes() == workstation(); }}, {"find", Start::Summary, nullptr, nullptr, [isShown](T &t) {
                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                              const auto *bar = t.page().findChild<FindBar *>();
                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                              return isShown(bar) && bar->findChild<QLineEdit *>()->hasFocus();
                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                                          }},
                                  {"findNext", Start::Text, [](T &t) { t.findText("NetBios"); }, nullptr, [](T &t) { return t.text().selection().begin == workstation().indexOf("NetBios", workstation().indexOf("NetBios") + 1); }}, {"findPrevious", Start::Text, [](T &t) { t.findText("NetBios"); }, nullptr, [](T &t) { return t.text().selection().begin == workstation().toLower().lastIndexOf("netbios"); }}, {"filterFacts", Start::Text, [](T &t) { t.action("facts").trigger(); }, nullptr, [isShown](T &t) { return isShown(t.page().factTable()) && t.page().factTable()->filter()->hasFocus() && t.action("facts").isChecked(); }}, {"showSummary", Start::Text, nullptr, nullptr, [isShown](T &t) { return isShown(t.page().summaryPage()) && titleOf(t.page().outline()->currentIndex()) == QLatin1String("Summary"); }}, {"showText", Start::Summary, nullptr, nullptr, [isShown](T &t) { return isShown(&t.text()) && t.text().hasFocus(); }}, {"outline", Start::Text, nullptr, nullptr, [](T &t) { return !t.page().outline()->isVisible() && !t.action("outline").isChecked(); }}, {"facts", Start::Text, nullptr, nullptr, [](T &t) { return !t.page().factTable()->isVisible() && !t.action("facts").isChecked(); }}, {"hidePersonalData", Start::Text, nullptr, nullptr, [isShown](T &t) { return isShown(t.page().redactionPanel()) && !t.text().lines().text().toLower().contains("birkental") && t.page().output(); }}, {"hideSelection", Start::Text, [](T &t) {
             t.action("hidePersonalData").trigger();
             t.waitFor([&] { return t.page().output().has_value(); }, "not redacted");
             const int begin = t.text().lines().text().indexOf("ESPRIMO");
             t.text().setSelection({begin, begin + 7}); }, nullptr, [](T &t) { return !t.text().lines().text().contains("ESPRIMO") && t.text().lines().text().contains("word-1 P757"); }}, {"zoomIn", Start::Text, [](T &t) { t.m_before = t.text().font().pointSizeF(); }, nullptr, [](T &t) { return t.text().font().pointSizeF() > t.m_before; }}, {"zoomOut", Start::Text, [](T &t) { t.m_before = t.text().font().pointSizeF(); }, nullptr, [](T &t) { return t.text().font().pointSizeF() < t.m_before; }}, {"resetZoom", Start::Text, [](T &t) {
             t.m_before = t.text().font().pointSizeF();
             t.action("zoomIn").trigger(); }, nullptr, [](T &t) { return qFuzzyCompare(t.text().font().pointSizeF(), t.m_before); }}, {"everyMoment", Start::Pair, [](T &t) { t.m_before = t.m_window->comparisonView()->differenceCount(); }, nullptr, [](T &t) { return t.m_window->comparisonView()->differenceCount() > t.m_before && t.action("everyMoment").isChecked(); }}, {"chooseSection", Start::Summary, nullptr, [](T &, QDialog &dialog) {
             QTest::keyClicks(dialog.findChild<QLineEdit *>(), QStringLiteral("diskinf"));
             QTest::keyClick(dialog.findChild<QLineEdit *>(), Qt::Key_Return); }, [isShown](T &t) { return isShown(&t.text()) && t.text().caret() == workstation().indexOf("Disk information") && t.text().hasFocus(); }}, {"nextSection", Start::Text, [](T &t) { t.text().setCaret(workstation().indexOf("MemoryLoad")); }, nullptr, [](T &t) { return t.text().caret() == workstation().indexOf("Computer name") && titleOf(t.page().outline()->currentIndex()) == QLatin1String("Computer name"); }}, {"previousSection", Start::Text, [](T &t) { t.text().setCaret(workstation().indexOf("NetBios name")); }, nullptr, [](T &t) { return t.text().caret() == workstation().indexOf("Memory Information:") && titleOf(t.page().outline()->currentIndex()) == QLatin1String("Memory Information"); }}, {"nextDifference", Start::Pair, nullptr, nullptr, [](T &t) { return t.m_window->comparisonView()->currentDifference() == 0; }}, {"previousDifference", Start::Pair, nullptr, nullptr, [](T &t) { return t.m_window->comparisonView()->currentDifference() == t.m_window->comparisonView()->differenceCount() - 1; }}, {"nextPane", Start::Text, nullptr, nullptr, [](T &t) { return t.page().factTable()->table()->hasFocus(); }}, {"previousPane", Start::Text, nullptr, nullptr, [](T &t) { return t.page().outline()->hasFocus(); }}, {"nextTab", Start::Three, nullptr, nullptr, [](T &t) { return t.m_window->reportPage() == t.m_window->reportPages()[0]; }}, {"previousTab", Start::Three, nullptr, nullptr, [](T &t) { return t.m_window->reportPage() == t.m_window->reportPages()[1]; }}, {"keys", Start::Nothing, nullptr, [](T &t, QDialog &dialog) {
             const auto *table = dialog.findChild<QTableWidget *>();
             for (int row = 0; table && row < table->rowCount(); ++row)
                 t.m_seen += table->item(row, 0)->text() + QLatin1Char('=') + table->item(row, 1)->text() + QLatin1Char(';');
             QTest::keyClick(&dialog, Qt::Key_Escape); }, [](T &t) { return t.m_seen.contains(QLatin1String(";Find next=F3;")) && t.m_seen.contains(QLatin1String(";Next tab=Ctrl+PgDown, Ctrl+Tab;")); }}, {"meaning", Start::Text, [](T &t) { t.text().setCaret(workstation().indexOf("MemoryLoad")); }, [](T &t, QDialog &dialog) {
             if (const auto *box = qobject_cast<QMessageBox *>(&dialog))
                 t.m_seen = box->text();
             QTest::keyClick(&dialog, Qt::Key_Escape); }, [](T &t) { return t.m_seen == QLatin1String("MemoryLoad\n\n") + t.text().hoverText(workstation().indexOf("MemoryLoad")); }}, {"about", Start::Nothing, nullptr, [](T &t, QDialog &dialog) {
             if (const auto *box = qobject_cast<QMessageBox *>(&dialog))
                 t.m_seen = box->text() + QLatin1Char('\n') + box->informativeText();
             QTest::keyClick(&dialog, Qt::Key_Escape); }, [](T &t) { return t.m_seen.startsWith(QLatin1String("vkviewer " VKVIEWER_VERSION "\n")) && t.m_seen.contains(QLatin1String("Qt ") + QLatin1String(qVersion())); }},
                                  };
    return all;
}

void WindowCommandsTest::everyCommandHasARow()
{
    std::set<QString> named;
    for (const Row &row : rows())
        QVERIFY2(m_window->actionNamed(row.name) && named.insert(QLatin1String(row.name)).second, row.name);
    for (const QAction *action : m_window->actionList())
        QVERIFY2(named.count(action->objectName()) == 1, qPrintable(action->objectName()));
}

void WindowCommandsTest::commands_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("keys"); // empty for the mouse
    const MainWindow window;
    for (std::size_t row = 0; row < rows().size(); ++row) {
        const char *name = rows()[row].name;
        QTest::addRow("%s by mouse", name) << int(row) << QString();
        for (const QKeySequence &keys : window.actionNamed(name)->shortcuts())
            QTest::addRow("%s by %s", name, qPrintable(keys.toString(QKeySequence::PortableText))) << int(row) << keys.toString(QKeySequence::PortableText);
    }
}

void WindowCommandsTest::commands()
{
    QFETCH(const int, number);
    QFETCH(const QString, keys);
    const Row &row = rows()[std::size_t(number)];
    start(row.start);
    if (row.prepare && !QTest::currentTestFailed())
        row.prepare(*this);
    if (QTest::currentTestFailed())
        return;
    activate();
    QVERIFY(action(row.name).isEnabled());
    QVERIFY(!row.effect(*this));
    if (row.answer)
        inDialogs({[this, &row](QDialog &dialog) { row.answer(*this, dialog); }});
    if (keys.isEmpty())
        clickEntry(&action(row.name));
    else
        press(QKeySequence::fromString(keys, QKeySequence::PortableText));
    if (QTest::currentTestFailed())
        return;
    if (m_window->isVisible())
        activate();
    QVERIFY(QTest::qWaitFor([&] { return row.effect(*this); }, longTime));
}

void WindowCommandsTest::recentReports_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("mouse") << true;
    QTest::newRow("keyboard") << false;
}

/// The list of recent files is a menu in a menu.
void WindowCommandsTest::recentReports()
{
    QFETCH(const bool, byMouse);
    start(Start::Summary);
    action("closeTab").trigger();
    QAction *title = m_window->menuBar()->actions().constFirst();
    QMenu *recent = nullptr;
    for (const QAction *entry : title->menu()->actions())
        recent = entry->menu() ? entry->menu() : recent;
    QVERIFY(recent);
    QTRY_VERIFY(recent->menuAction()->isEnabled());
    if (byMouse) {
        clickEntry(recent->menuAction());
        QTRY_VERIFY_WITH_TIMEOUT(recent->isVisible(), longTime);
        QTest::mouseClick(recent, Qt::LeftButton, {}, recent->actionGeometry(recent->actions().constFirst()).center());
    } else {
        press(QKeySequence(Qt::ALT + Qt::Key_F));
        QTRY_VERIFY_WITH_TIMEOUT(title->menu()->isVisible(), longTime);
        QTest::keyClick(title->menu(), Qt::Key_E);
        QTRY_VERIFY_WITH_TIMEOUT(recent->isVisible(), longTime);
        QCOMPARE(recent->activeAction(), recent->actions().constFirst());
        QTest::keyClick(recent, Qt::Key_Return);
    }
    QTRY_VERIFY_WITH_TIMEOUT(m_window->reportPage(), longTime);
    QCOMPARE(page().report().report.path, path("report.txt"));
}

/// Answers the question whether the file shall be replaced.
std::function<void(QDialog &)> WindowCommandsTest::replaces(bool isReplaced)
{
    return [this, isReplaced](QDialog &dialog) {
        auto *box = qobject_cast<QMessageBox *>(&dialog);
        QAbstractButton *button = box ? box->button(isReplaced ? QMessageBox::Yes : QMessageBox::No) : nullptr;
        if (!button)
            return;
        m_seen = box->text();
        QTest::mouseClick(button, Qt::LeftButton);
    };
}

void WindowCommandsTest::savingOverAFile()
{
    start(Start::Summary);
    const QString file = write("there.txt", "old");
    const auto choose = [file](QDialog &dialog) { chooseFile(dialog, file); };
    inDialogs({choose, replaces(false)});
    press(QKeySequence(QStringLiteral("Ctrl+S")));
    QVERIFY2(m_seen.contains(QLatin1String("there.txt")), qPrintable(m_seen));
    QCOMPARE(contentOf(file), QByteArray("old"));
    activate();
    m_seen.clear();
    inDialogs({choose, replaces(true)});
    press(QKeySequence(QStringLiteral("Ctrl+S")));
    QVERIFY(!m_seen.isEmpty());
    QCOMPARE(contentOf(file), workstation());
}

/// Also if the user leaves the suffix to the program.
void WindowCommandsTest::savingAComparisonOverAFile()
{
    start(Start::Pair);
    const QString file = write("there.txt", "old");
    inDialogs({[this](QDialog &dialog) { chooseFile(dialog, path("there")); }, replaces(false)});
    press(QKeySequence(QStringLiteral("Ctrl+S")));
    m_context = std::make_unique<QObject>();
    QCOMPARE(contentOf(file), QByteArray("old"));
    QVERIFY2(m_seen.contains(QLatin1String("there.txt")), qPrintable(m_seen));
    activate();
    inDialogs({[this](QDialog &dialog) { chooseFile(dialog, path("new")); }});
    press(QKeySequence(QStringLiteral("Ctrl+S")));
    QCOMPARE(contentOf(path("new.txt")), m_window->comparisonView()->exported(ComparisonForm::Text));
}

void WindowCommandsTest::panesOfAReport()
{
    start(Start::Text);
    action("hidePersonalData").trigger();
    waitFor([this] { return page().output().has_value(); }, "not redacted");
    page().addMessages({QStringLiteral("one message")});
    page().outline()->setFocus();
    const std::vector<const QWidget *> panes {page().outline(), &text(), page().factTable()->table(), page().redactionPanel(),
                                              page().copyBar(), page().messageBar()};
    const auto hasFocus = [](const QWidget *pane) { return pane == QApplication::focusWidget() || pane->isAncestorOf(QApplication::focusWidget()); };
    for (std::size_t pane = 1; pane <= panes.size(); ++pane) {
        press(QKeySequence(Qt::Key_F6));
        QVERIFY2(hasFocus(panes[pane % panes.size()]), qPrintable(QString::number(pane)));
    }
    for (std::size_t pane = panes.size(); pane > 0; --pane) {
        press(QKeySequence(Qt::SHIFT + Qt::Key_F6));
        QVERIFY2(hasFocus(panes[pane - 1]), qPrintable(QString::number(pane)));
    }
    // The focus returns to the part of a pane that had it.
    page().factTable()->filter()->setFocus();
    press(QKeySequence(Qt::Key_F6));
    QVERIFY(!page().factTable()->filter()->hasFocus());
    press(QKeySequence(Qt::SHIFT + Qt::Key_F6));
    QVERIFY(page().factTable()->filter()->hasFocus());
    action("facts").trigger(); // what is hidden is left out
    text().setFocus();
    press(QKeySequence(Qt::Key_F6));
    QVERIFY(hasFocus(page().redactionPanel()));
    action("showSummary").trigger();
    page().outline()->setFocus();
    press(QKeySequence(Qt::Key_F6));
    QVERIFY(page().summaryPage()->table()->hasFocus());
}

void WindowCommandsTest::panesOfAComparison()
{
    start(Start::Pair);
    const auto *view = m_window->comparisonView();
    auto *sections = view->findChild<QTableView *>(QStringLiteral("sections"));
    const auto *differences = view->findChild<QTableView *>(QStringLiteral("differences"));
    sections->setFocus();
    press(QKeySequence(Qt::Key_F6));
    QVERIFY(differences->hasFocus());
    press(QKeySequence(Qt::Key_F6));
    QCOMPARE(QApplication::focusWidget()->accessibleName(), QStringLiteral("Text of the older report"));
    press(QKeySequence(Qt::Key_F6));
    QVERIFY(sections->hasFocus());
    press(QKeySequence(Qt::SHIFT + Qt::Key_F6));
    press(QKeySequence(Qt::SHIFT + Qt::Key_F6));
    QVERIFY(differences->hasFocus());
}

void WindowCommandsTest::panesWithoutAReport()
{
    m_window->openFiles({path("absent.txt")});
    QTRY_VERIFY_WITH_TIMEOUT(m_window->messageBar()->isVisible(), longTime);
    m_window->findChild<QPushButton *>(QStringLiteral("openButton"))->setFocus();
    press(QKeySequence(Qt::Key_F6));
    QVERIFY(m_window->messageBar()->isAncestorOf(QApplication::focusWidget()));
    press(QKeySequence(Qt::Key_F6));
    QVERIFY(m_window->findChild<QPushButton *>(QStringLiteral("openButton"))->hasFocus());
}

void WindowCommandsTest::tabReachesEveryPane()
{
    start(Start::Text);
    action("hidePersonalData").trigger();
    waitFor([this] { return page().output().has_value(); }, "not redacted");
    page().addMessages({QStringLiteral("one message")});
    for (const QKeySequence &keys : {QKeySequence(Qt::Key_Tab), QKeySequence(Qt::SHIFT + Qt::Key_Backtab)}) {
        page().outline()->setFocus();
        std::set<const QWidget *> reached;
        for (int i = 0; i < 100; ++i) {
            press(keys);
            for (const QWidget *widget = QApplication::focusWidget(); widget; widget = widget->parentWidget())
                reached.insert(widget);
        }
        for (const QWidget *widget : std::vector<const QWidget *> {page().outline(), &text(), page().factTable()->table(), page().factTable()->filter(), page().redactionPanel(), page().copyBar(), page().messageBar()})
            QVERIFY2(reached.count(widget) == 1, widget->metaObject()->className());
    }
}

void WindowCommandsTest::tabReachesAllOfAComparison()
{
    start(Start::Pair);
    const auto *view = m_window->comparisonView();
    for (const QKeySequence &keys : {QKeySequence(Qt::Key_Tab), QKeySequence(Qt::SHIFT + Qt::Key_Backtab)}) {
        view->firstFocus()->setFocus();
        std::set<const QWidget *> reached;
        for (int i = 0; i < 30; ++i) {
            press(keys);
            reached.insert(QApplication::focusWidget());
        }
        for (const char *name : {"swap", "previous", "next", "everyMoment", "sections", "differences", "olderText", "newerText"})
            QVERIFY2(reached.count(view->findChild<QWidget *>(QLatin1String(name))) == 1, name);
    }
}

/// Shift+F1 in each part of the window.
void WindowCommandsTest::meanings()
{
    start(Start::Text);
    const auto meaning = [this] {
        m_seen.clear();
        inDialogs({[this](QDialog &dialog) {
            if (const auto *box = qobject_cast<QMessageBox *>(&dialog)) {
                m_seen = box->text();
                for (const QLabel *label : box->findChildren<QLabel *>())
                    m_seen += label->text().isEmpty() || label->textFormat() == Qt::PlainText ? QString() : QStringLiteral("not plain: ") + label->text();
            }
            QTest::keyClick(&dialog, Qt::Key_Escape);
        }});
        press(QKeySequence(Qt::SHIFT + Qt::Key_F1));
        activate();
        return m_seen;
    };
    text().setCaret(workstation().indexOf("Computer name")); // the line of a section
    QVERIFY2(meaning().startsWith(QLatin1String("Computer name\n\n")) && m_seen.size() > 20, qPrintable(m_seen));
    text().setCaret(workstation().indexOf("AvailPhys"));
    const QString inText = meaning();
    QVERIFY2(inText.startsWith(QLatin1String("AvailPhys\n\n")) && inText.contains(QLatin1String("It changes every moment.")), qPrintable(inText));
    QVERIFY(text().hasFocus());
    page().factTable()->table()->setFocus(); // its current row is that of the caret
    QCOMPARE(meaning(), inText);
    page().factTable()->table()->selectRow(0);
    QVERIFY2(meaning().startsWith(QLatin1String("MemoryLoad\n\n")), qPrintable(m_seen));
    QVERIFY(page().factTable()->table()->hasFocus());
    page().outline()->setFocus();
    QVERIFY2(meaning().startsWith(QLatin1String("Memory Information\n\n")) && m_seen.contains(QLatin1String("\nmemoryInfo\n")), qPrintable(m_seen));
    action("showSummary").trigger();
    QCOMPARE(meaning(), QStringLiteral("Nothing is known about this line.")); // the outline is at the summary
    page().summaryPage()->table()->setFocus();
    page().summaryPage()->table()->selectRow(0);
    QCOMPARE(meaning(), page().summaryPage()->table()->model()->index(0, 0).data().toString() + QLatin1String("\n\n") + page().summaryPage()->table()->model()->index(0, 1).data().toString());
    open({write("none.txt", "Dear support,\n")}, 2);
    activate();
    QCOMPARE(meaning(), QStringLiteral("Nothing is known about this line."));
}

/// Screen readers get the text of the box as the name of its label.
void WindowCommandsTest::meaningIsRead()
{
    start(Start::Text);
    text().setCaret(workstation().indexOf("MemoryLoad"));
    QStringList names;
    inDialogs({[&names](QDialog &dialog) {
        for (QLabel *label : dialog.findChildren<QLabel *>()) {
            const QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(label);
            if (interface && label->isVisible())
                names << interface->text(QAccessible::Name);
        }
        QTest::keyClick(&dialog, Qt::Key_Escape);
    }});
    press(QKeySequence(Qt::SHIFT + Qt::Key_F1));
    QVERIFY2(names.contains(QStringLiteral("MemoryLoad\n\n") + text().hoverText(text().caret())), qPrintable(names.join(QLatin1Char('|'))));
}

/// With vkreport itself.
void WindowCommandsTest::reportWithoutOpenGL()
{
    press(QKeySequence(QStringLiteral("Ctrl+Shift+N")));
    QVERIFY(m_window->findChild<MakingBar *>()->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(m_window->reportPage(), 2 * longTime);
    const velkor::Reports::Document &document = page().report().report.document;
    QVERIFY(document.findSection("memoryInfo") >= 0);
    QVERIFY(document.findSection("qtScreens") >= 0);
    QVERIFY(document.findSection("GetOpenGLInfo") < 0);
    QVERIFY2(!page().messageBar()->isVisible(), qPrintable(page().messageBar()->messages().join(QLatin1Char('\n'))));
    QVERIFY(!m_window->messageBar()->isVisible());
    QVERIFY(!m_window->findChild<MakingBar *>()->isVisible());
}

#ifdef SIMULATED_WINDOWS

void WindowCommandsTest::theOpenReportStaysWhileOneIsMade()
{
    start(Start::Text);
    m_window->reportProcess()->setProgram(program("while ! [ -e \"$(dirname \"$0\")/end\" ]; do sleep 0.02; done; echo new", ""));
    const ReportPage *old = m_window->reportPage();
    press(QKeySequence(QStringLiteral("Ctrl+N")));
    QVERIFY(m_window->reportProcess()->isRunning());
    QVERIFY(m_window->findChild<MakingBar *>()->isVisible());
    QCOMPARE(m_window->reportPage(), old);
    press(QKeySequence(QStringLiteral("Alt+Down"))); // it can be read
    press(QKeySequence(QStringLiteral("Alt+Down")));
    QVERIFY(text().caret() > 0 && text().isVisible());
    QCOMPARE(text().lines().text(), workstation());
    write("end", {});
    QTRY_COMPARE_WITH_TIMEOUT(m_window->reportPages().size(), std::size_t(2), longTime);
    QCOMPARE(text().lines().text(), QByteArray("new\n"));
    QCOMPARE(m_window->reportPages()[0], const_cast<ReportPage *>(old));
    QCOMPARE(old->textView()->lines().text(), workstation());
}

void WindowCommandsTest::onlyOneReportIsMade()
{
    m_window->reportProcess()->setProgram(program("cd \"$(dirname \"$0\")\"; echo start >>starts; while ! [ -e end ]; do sleep 0.02; done; echo new", ""));
    press(QKeySequence(QStringLiteral("Ctrl+N")));
    QVERIFY(!action("newReport").isEnabled());
    QVERIFY(!action("newReportWithoutOpenGL").isEnabled());
    press(QKeySequence(QStringLiteral("Ctrl+N")));
    press(QKeySequence(QStringLiteral("Ctrl+Shift+N")));
    clickEntry(&action("newReport"));
    QTest::keyClick(m_window->menuBar()->actions().constFirst()->menu(), Qt::Key_Escape);
    QTest::mouseClick(m_window->findChild<QPushButton *>(QStringLiteral("makeButton")), Qt::LeftButton);
    QTRY_COMPARE_WITH_TIMEOUT(contentOf(path("starts")), QByteArray("start\n"), longTime);
    write("end", {});
    QTRY_VERIFY_WITH_TIMEOUT(m_window->reportPage(), longTime);
    QCOMPARE(contentOf(path("starts")), QByteArray("start\n"));
    QVERIFY(action("newReport").isEnabled());
}

/// The program itself. A file that it has read is in its list of recent files.
void WindowCommandsTest::fileOnTheCommandLine()
{
    const QString file = write("report.txt", workstation());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), path("config"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/vkviewer"), {file});
    QVERIFY(process.waitForStarted(longTime));
    QTRY_VERIFY_WITH_TIMEOUT(contentOf(path("config/vkSystemInfo/vkviewer.ini")).contains("report.txt"), longTime);
    QCOMPARE(process.state(), QProcess::Running);
    process.kill();
    QVERIFY(process.waitForFinished(longTime));
}

#endif

TEST_WITH_APPLICATION(WindowCommandsTest);
#include "tst_window_commands.moc"
