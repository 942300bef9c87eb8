// Questions about the whole window: commands.tsv and hostile.tsv.

#include "comparison/comparison_table_view.h"
#include "comparison/comparison_view.h"
#include "question_table.h"
#include "redaction/redaction_session.h"
#include "report/fact_model.h"
#include "report/outline_model.h"
#include "report/shown_text.h"
#include "report/summary_page.h"
#include "test_main.h"
#include "text/text_view.h"
#include "window/main_window.h"
#include "window/message_bar.h"
#include "window/report_page.h"
#include "window/start_page.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QMimeData>
#include <QtCore/QRegularExpression>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtGui/QClipboard>
#include <QtGui/QDragEnterEvent>
#include <QtGui/QTextDocument>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTableView>
#include <QtWidgets/QTreeView>

using namespace velkor::Reports;

class ViewerQuestionsWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void commands_data();
    void commands();
    void testsOfCommands();
    void hidesTheSelection();
    void links();
    void threeFilesBecomeATable();
    void copyWithoutASelection();
    void anItemOfTheTree();
    void hostileTexts_data();
    void hostileTexts();
    void hostileTextsHaveNoEffect();
    void hostileComparison();
    void hostileFileNames_data();
    void hostileFileNames();
    void whatIsCopiedIsPlainText();

private:
    void open(const QStringList &files);
    QAction *entry(const QString &menuAndText) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<MainWindow> m_window;
};

namespace {

QString withoutSigns(QString text)
{
    return text.remove(QLatin1Char('&')).remove(QLatin1String("..."));
}

/// A control character, or one that changes the direction of what follows.
bool hasEffect(QChar character)
{
    const ushort code = character.unicode();
    return character.category() == QChar::Other_Control || (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

QString withoutEffects(const QString &text)
{
    for (const QChar character : text) {
        if (hasEffect(character))
            return QStringLiteral("U+%1 in \"%2\"").arg(character.unicode(), 4, 16, QLatin1Char('0')).arg(text);
    }
    return {};
}

/// What Qt shows of a tooltip, which may be rich text.
QString shownToolTip(const QString &toolTip)
{
    QTextDocument document;
    document.setHtml(toolTip);
    return document.toPlainText();
}

/// Every text of a model, and in \a wrong what has an effect.
void addModel(const QAbstractItemModel &model, const QModelIndex &parent, QStringList &shown, QStringList &wrong)
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        for (int column = 0; column < model.columnCount(parent); ++column) {
            const QModelIndex index = model.index(row, column, parent);
            const QString text = index.data().toString();
            shown << text;
            const QString toolTip = index.data(Qt::ToolTipRole).toString();
            const bool isFormatted = QRegularExpression(QStringLiteral("<(?!/?p>|p style=\"white-space: pre-wrap\">|br>)")).match(toolTip).hasMatch();
            wrong << withoutEffects(text) << (Qt::mightBeRichText(toolTip) && isFormatted ? toolTip : QString());
            if (toolTip.contains(QLatin1String("192.0.2.66")) && !shownToolTip(toolTip).contains(QLatin1String("192.0.2.66")))
                wrong << toolTip;
        }
        addModel(model, model.index(row, 0, parent), shown, wrong);
    }
    wrong.removeAll(QString());
}

QString sources()
{
    QString all;
    for (const char *folder : {"viewer", "viewer/x11"}) {
        const QDir directory(QStringLiteral(PROJECT_DIR "/tests/") + QLatin1String(folder));
        for (const QString &name : directory.entryList({QStringLiteral("tst_*.cpp")})) {
            QFile file(directory.filePath(name));
            if (!file.open(QIODevice::ReadOnly))
                qFatal("cannot read %s", qPrintable(name));
            all += QString::fromUtf8(file.readAll());
        }
    }
    return all;
}

} // namespace

void ViewerQuestionsWindowTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder->filePath(QStringLiteral("settings")));
    m_window = std::make_unique<MainWindow>();
    m_window->resize(1000, 600);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void ViewerQuestionsWindowTest::cleanup()
{
    m_window.reset();
    m_folder.reset();
}

void ViewerQuestionsWindowTest::open(const QStringList &files)
{
    if (files.size() > 1)
        m_window->compareFiles(files);
    else
        m_window->openFiles(files);
    QTRY_VERIFY(!m_window->isLoading());
}

/// The action of "File > Open"; null if it is not in that menu.
QAction *ViewerQuestionsWindowTest::entry(const QString &menuAndText) const
{
    const QStringList parts = menuAndText.split(QStringLiteral(" > "));
    for (const QAction *title : m_window->menuBar()->actions()) {
        if (withoutSigns(title->text()) != parts.at(0))
            continue;
        for (QAction *action : title->menu()->actions()) {
            if (withoutSigns(action->text()) == parts.at(1))
                return action;
        }
    }
    return nullptr;
}

void ViewerQuestionsWindowTest::commands_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("place");
    for (const QStringList &row : questionRows("commands.tsv"))
        QTest::newRow(qPrintable(row.at(0))) << row.at(1) << row.at(2);
}

/// Commands in menus have their keys. Buttons are there. What is done with the mouse or on the command line is tested by the
/// functions that the table names.
void ViewerQuestionsWindowTest::commands()
{
    QFETCH(const QString, keys);
    QFETCH(const QString, place);
    static const QStringList menus {QStringLiteral("File"), QStringLiteral("Edit"), QStringLiteral("View"), QStringLiteral("Go"), QStringLiteral("Help")};
    if (place.contains(QLatin1String(" > "))) {
        QVERIFY2(menus.contains(place.section(QStringLiteral(" > "), 0, 0)), qPrintable(place));
        const QAction *action = entry(place);
        QVERIFY2(action, qPrintable(place));
        QVERIFY(action->text().contains(QLatin1Char('&')));
        QStringList own;
        for (const QKeySequence &sequence : action->shortcuts())
            own << sequence.toString(QKeySequence::PortableText);
        QVERIFY2(keys == QLatin1String("-") || own.contains(keys), qPrintable(own.join(QStringLiteral(", "))));
    } else if (place.startsWith(QLatin1String("Button ")) && !place.endsWith(QLatin1String(" in the bar"))) {
        if (place == QLatin1String("Button Swap sides"))
            open({questionFile(QStringLiteral("texts/before.txt")), questionFile(QStringLiteral("texts/after.txt"))});
        else
            open({questionFile(QStringLiteral("texts/before.txt"))});
        bool isFound = false;
        for (const QAbstractButton *button : m_window->findChildren<QAbstractButton *>())
            isFound = isFound || withoutSigns(button->text()) == place.mid(7);
        QVERIFY2(isFound, qPrintable(place));
    } else {
        static const QStringList others {QStringLiteral("Button Cancel in the bar"), QStringLiteral("Button Close in the bar"),
                                         QStringLiteral("Check box Match case in the bar"), QStringLiteral("Drop on the window"),
                                         QStringLiteral("Tree"), QStringLiteral("Text"), QStringLiteral("Table"), QStringLiteral("Text, table"),
                                         QStringLiteral("Heading of the table"), QStringLiteral("Everywhere"), QStringLiteral("-"),
                                         QStringLiteral("Settings of the system"), QStringLiteral("LANG=de_DE.UTF-8"),
                                         QStringLiteral("Text, tree, table, list")};
        QVERIFY2(others.contains(place) || place.startsWith(QLatin1String("vkviewer ")), qPrintable(place));
    }
}

/// The column TEST names functions that exist.
void ViewerQuestionsWindowTest::testsOfCommands()
{
    const QString all = sources();
    for (const QStringList &row : questionRows("commands.tsv"))
        QVERIFY2(all.contains(QStringLiteral("\nvoid %1()").arg(row.at(4))), qPrintable(row.join(QStringLiteral(", "))));
}

void ViewerQuestionsWindowTest::hidesTheSelection()
{
    open({questionFile(QStringLiteral("texts/leaving.txt"))});
    const ReportPage *page = m_window->reportPage();
    QVERIFY(page);
    QVERIFY(!m_window->actionNamed("hideSelection")->isEnabled());
    m_window->actionNamed("hidePersonalData")->trigger();
    QTRY_VERIFY(m_window->actionNamed("hideSelection")->isEnabled());
    const int begin = page->textView()->lines().text().indexOf("Tannenried");
    m_window->actionNamed("showText")->trigger();
    page->textView()->setSelection({begin, begin + 10});
    QTest::keyClick(page->textView(), Qt::Key_H, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_VERIFY(!page->textView()->lines().text().contains("Tannenried"));
    QVERIFY(page->textView()->lines().text().contains("USB Serial Converter word-1"));
}

void ViewerQuestionsWindowTest::links()
{
    QMimeData data;
    data.setUrls({QUrl(QStringLiteral("http://192.0.2.66/report.txt"))});
    QDragEnterEvent link(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    link.ignore();
    QApplication::sendEvent(m_window.get(), &link);
    QVERIFY(!link.isAccepted());
    QMimeData picture;
    picture.setImageData(QImage(2, 2, QImage::Format_RGB32));
    QDragEnterEvent pictureEvent(QPoint(10, 10), Qt::CopyAction, &picture, Qt::LeftButton, Qt::NoModifier);
    pictureEvent.ignore();
    QApplication::sendEvent(m_window.get(), &pictureEvent);
    QVERIFY(!pictureEvent.isAccepted());
}

void ViewerQuestionsWindowTest::threeFilesBecomeATable()
{
    const QStringList names {QStringLiteral("texts/after.txt"), QStringLiteral("docs/example-report.txt"), QStringLiteral("texts/before.txt")};
    QList<QUrl> urls;
    for (const QString &name : names)
        urls << QUrl::fromLocalFile(questionFile(name));
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier); // makes the window the target
    QApplication::sendEvent(m_window.get(), &enter);
    QDropEvent drop(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &drop);
    QTRY_VERIFY_WITH_TIMEOUT(qobject_cast<ComparisonTableView *>(m_window->comparisonTab()), 20000);
    QTRY_VERIFY_WITH_TIMEOUT(!m_window->comparisonTab()->exported(ComparisonForm::Json).isEmpty(), 20000);
    const QByteArray json = m_window->comparisonTab()->exported(ComparisonForm::Json);
    QVERIFY(json.indexOf("after.txt") >= 0 && json.indexOf("after.txt") < json.indexOf("example-report.txt"));
    QVERIFY(json.indexOf("example-report.txt") < json.indexOf("before.txt"));
    m_window->actionNamed("closeTab")->trigger();
    QVERIFY(!qobject_cast<ComparisonTableView *>(m_window->comparisonTab()));
}

void ViewerQuestionsWindowTest::copyWithoutASelection()
{
    open({questionFile(QStringLiteral("texts/before.txt"))});
    m_window->actionNamed("showText")->trigger();
    QVERIFY(m_window->reportPage()->textView()->selectedBytes().isEmpty());
    QApplication::clipboard()->setText(QStringLiteral("before"));
    QTest::keyClick(m_window->reportPage()->textView(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("before"));
}

void ViewerQuestionsWindowTest::anItemOfTheTree()
{
    open({questionFile(QStringLiteral("docs/example-report.txt"))});
    ReportPage *page = m_window->reportPage();
    auto *model = qobject_cast<OutlineModel *>(page->outline()->model());
    const QModelIndex drives = model->sectionIndex(page->report().report.document.findSection("diskInformation"));
    page->outline()->setFocus();
    page->outline()->setCurrentIndex(drives);
    QTest::keyClick(page->outline(), Qt::Key_Right); // opens it
    QTest::keyClick(page->outline(), Qt::Key_Down);
    QTest::keyClick(page->outline(), Qt::Key_Down);
    QCOMPARE(page->outline()->currentIndex(), model->index(1, 0, drives));
    QCOMPARE(page->textView()->caret(), model->range(model->index(1, 0, drives))->begin);
    QVERIFY(page->textView()->lines().text().mid(page->textView()->caret()).startsWith("Z:"));
}

void ViewerQuestionsWindowTest::hostileTexts_data()
{
    QTest::addColumn<QString>("text");
    int rows = 0;
    for (const QStringList &row : questionRows("hostile.tsv")) {
        const bool isDescription = row.at(0).contains(QLatin1String("U+"));
        if (isDescription || (!row.at(0).startsWith(QLatin1Char('<')) && !row.at(0).startsWith(QLatin1Char('=')) && !row.at(0).startsWith(QLatin1String("C:"))))
            continue; // not the text itself
        QTest::newRow(qPrintable(row.at(0).left(40))) << row.at(0);
        ++rows;
    }
    QVERIFY(rows >= 9);
}

/// Texts that the table has in full are seen as they stand.
void ViewerQuestionsWindowTest::hostileTexts()
{
    QFETCH(const QString, text);
    open({questionFile(QStringLiteral("texts/hostile.txt"))});
    const ReportPage *page = m_window->reportPage();
    QVERIFY(page);
    QVERIFY2(page->textView()->lines().text().contains(text.toUtf8()), qPrintable(text));
    FactModel facts;
    facts.setDocument(page->report().report.document);
    facts.setScope(0, int(page->report().report.document.facts().size()));
    QStringList shown;
    QStringList wrong;
    addModel(facts, {}, shown, wrong);
    addModel(*page->outline()->model(), {}, shown, wrong);
    const bool isVariable = shown.contains(text.section(QLatin1Char('='), 0, 0)) && shown.contains(text.section(QLatin1Char('='), 1));
    QVERIFY2(isVariable || !shown.filter(text).isEmpty(), qPrintable(text));
}

/// All cells, tooltips, labels and titles, of all texts of the table.
void ViewerQuestionsWindowTest::hostileTextsHaveNoEffect()
{
    open({questionFile(QStringLiteral("texts/hostile.txt"))});
    const ReportPage *page = m_window->reportPage();
    QVERIFY(page);
    FactModel facts;
    facts.setDocument(page->report().report.document);
    facts.setScope(0, int(page->report().report.document.facts().size()));
    QStringList shown;
    QStringList wrong;
    addModel(facts, {}, shown, wrong);
    addModel(*page->outline()->model(), {}, shown, wrong);
    addModel(*page->summaryPage()->table()->model(), {}, shown, wrong);
    QVERIFY(shown.size() > 1000);
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1Char('\n')).left(2000)));
    for (const QString &text : qAsConst(shown))
        QVERIFY2(text.size() <= 2100, qPrintable(text.left(100))); // no cell becomes wider than screens
    for (const QLabel *label : m_window->findChildren<QLabel *>())
        QVERIFY2(label->textFormat() == Qt::PlainText || label->text().isEmpty(), qPrintable(label->text()));
    QVERIFY(m_window->minimumSizeHint().width() <= 1024);
    QCOMPARE(page->textView()->lines().text(), questionText(QStringLiteral("texts/hostile.txt")));
}

void ViewerQuestionsWindowTest::hostileComparison()
{
    open({questionFile(QStringLiteral("docs/example-report.txt")), questionFile(QStringLiteral("texts/hostile.txt"))});
    QTRY_VERIFY(m_window->comparisonView());
    QTRY_VERIFY_WITH_TIMEOUT(!m_window->comparisonView()->isComparing(), 20000);
    QStringList shown;
    QStringList wrong;
    for (const QTableView *table : m_window->comparisonView()->findChildren<QTableView *>())
        addModel(*table->model(), {}, shown, wrong);
    QVERIFY(!shown.filter(QStringLiteral("<h1>Windows</h1><script>alert(1)</script>")).isEmpty());
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1Char('\n')).left(2000)));
}

void ViewerQuestionsWindowTest::hostileFileNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("markup") << QStringLiteral("<b>report<") + QStringLiteral("b>.txt");
    QTest::newRow("line feed and 200 letters") << QStringLiteral("a\n") + QString(200, QLatin1Char('W')) + QStringLiteral(".txt");
    QTest::newRow("mnemonic and place holder") << QStringLiteral("A&B %1 %n.txt");
    QTest::newRow("place holder of titles") << QStringLiteral("a[*]b.txt");
    QTest::newRow("override") << QStringLiteral("report\u202Etxt.exe");
    QTest::newRow("hyphen") << QStringLiteral("-x.txt");
}

void ViewerQuestionsWindowTest::hostileFileNames()
{
#ifdef Q_OS_WIN
    QSKIP("file names of Windows have none of these characters");
#endif
    QFETCH(const QString, name);
    const QString path = m_folder->filePath(name);
    QVERIFY(QFile::copy(questionFile(QStringLiteral("texts/before.txt")), path));
    open({path, m_folder->filePath(name + QStringLiteral(".absent"))}); // a report and a message
    QTRY_VERIFY(m_window->reportPage());
    const QString shown = lineText(name);
    const QString title = m_window->windowTitle();
    QVERIFY2(title.size() < 100 && withoutEffects(title).isEmpty(), qPrintable(title));
    const QString expectedTitle = QString(shown).replace(QLatin1String("[*]"), QLatin1String("[*][*]")); // as Qt wants it
    if (shown.size() <= 40)
        QVERIFY2(title.startsWith(expectedTitle + QLatin1String(" - ")), qPrintable(title));
    const auto *tabs = m_window->findChild<QTabWidget *>();
    QVERIFY(withoutEffects(tabs->tabText(0)).isEmpty());
    QVERIFY2(shownToolTip(tabs->tabToolTip(0)).contains(name.left(6)) || name.contains(QLatin1Char('\n')), qPrintable(tabs->tabToolTip(0)));
    QMenu *recent = entry(QStringLiteral("File > Recent reports"))->menu();
    Q_EMIT recent->aboutToShow();
    const QString recentText = recent->actions().constFirst()->text();
    QVERIFY2(withoutEffects(recentText).isEmpty(), qPrintable(recentText));
    QVERIFY2(QString(recentText).replace(QLatin1String("&&"), QLatin1String("&")).endsWith(shown), qPrintable(recentText));
    for (const QLabel *label : m_window->messageBar()->findChildren<QLabel *>())
        QVERIFY2(label->text().isEmpty() || (label->textFormat() == Qt::PlainText && withoutEffects(label->text()).isEmpty()), qPrintable(label->text()));
    QVERIFY(m_window->messageBar()->messages().join(QString()).contains(name));
    m_window->actionNamed("closeTab")->trigger();
    const auto *list = m_window->findChild<StartPage *>()->findChild<QListWidget *>();
    QVERIFY2(list->item(0)->text().startsWith(shown) && withoutEffects(list->item(0)->text()).isEmpty(), qPrintable(list->item(0)->text()));
}

void ViewerQuestionsWindowTest::whatIsCopiedIsPlainText()
{
    open({questionFile(QStringLiteral("texts/hostile.txt"))});
    ReportPage *page = m_window->reportPage();
    QVERIFY(page);
    for (const char *view : {"showSummary", "showText"}) {
        m_window->actionNamed(view)->trigger();
        page->selectAll();
        page->copy();
        QVERIFY(!QApplication::clipboard()->text().isEmpty());
        QVERIFY2(!QApplication::clipboard()->mimeData()->hasHtml(), view);
    }
    QCOMPARE(QApplication::clipboard()->text(), QString::fromUtf8(questionText(QStringLiteral("texts/hostile.txt"))));
}

TEST_WITH_APPLICATION(ViewerQuestionsWindowTest);
#include "tst_viewer_questions_window.moc"
