#include "main_window.h"

#include "close_tab_button.h"
#include "comparison/comparison_table_view.h"
#include "comparison/comparison_view.h"
#include "making/incomplete_member.h"
#include "making/making_bar.h"
#include "making/report_process.h"
#include "message_bar.h"
#include "output/report_printing.h"
#include "output/report_saving.h"
#include "recent_files.h"
#include "redaction/copy_bar.h"
#include "redaction/redaction_panel.h"
#include "report/fact_table.h"
#include "report/shown_text.h"
#include "report_page.h"
#include "shortcut_list.h"
#include "start_page.h"
#include "text/text_view.h"
#include "window_settings.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QMimeData>
#include <QtCore/QTime>
#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtGui/QDragEnterEvent>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStackedWidget>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QStyle>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QVBoxLayout>

namespace {

constexpr char geometryKey[] = "geometry";
constexpr char splittersKey[] = "splitters";
constexpr char outlineKey[] = "outline";
constexpr char factsKey[] = "facts";
constexpr char redactedKey[] = "hidePersonalData";
constexpr char everyMomentKey[] = "everyMoment";

QStringList localFiles(const QMimeData &data)
{
    QStringList files;
    const QList<QUrl> urls = data.urls();
    for (const QUrl &url : urls) {
        if (url.isLocalFile())
            files << url.toLocalFile();
    }
    return files;
}

/// '&' would announce a mnemonic.
QString tabText(const QString &name)
{
    constexpr int longest = 40;
    QString text = lineText(name);
    if (text.size() > longest)
        text = text.left(longest / 2) + QChar(0x2026) + text.right(longest / 2);
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent), m_loader(new ReportLoader(this)), m_process(new ReportProcess(this)), m_recentFiles(new RecentFiles(this)), m_messages(new MessageBar), m_making(new MakingBar(m_process)), m_stack(new QStackedWidget), m_startPage(new StartPage(m_recentFiles)), m_tabs(new QTabWidget), m_loading(new QLabel), m_cancelLoading(new QPushButton(tr("Cancel &loading"))), m_loadingTimer(new QTimer(this))
{
    setAcceptDrops(true);
    m_tabs->setDocumentMode(true);
    m_tabs->setMovable(true);
    m_tabs->setElideMode(Qt::ElideMiddle);
    m_loading->setTextFormat(Qt::PlainText);
    m_stack->addWidget(m_startPage);
    m_stack->addWidget(m_tabs);
    auto *central = new QWidget;
    auto *layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_messages);
    layout->addWidget(m_making);
    layout->addWidget(m_stack, 1);
    setCentralWidget(central);
    statusBar()->addWidget(m_loading, 1);
    statusBar()->addPermanentWidget(m_cancelLoading);
    statusBar()->hide();
    m_loadingTimer->setSingleShot(true);
    m_loadingTimer->setInterval(300); // milliseconds
    connect(m_loadingTimer, &QTimer::timeout, statusBar(), &QWidget::show);
    makeActions();

    connect(m_startPage, &StartPage::makeRequested, this, &MainWindow::makeReport);
    connect(m_startPage, &StartPage::openRequested, this, &MainWindow::open);
    connect(m_startPage, &StartPage::fileChosen, this, [this](const QString &path) { openFiles({path}); });
    connect(m_tabs, &QTabWidget::currentChanged, this, &MainWindow::takeCurrentTab);
    connect(m_loader, &ReportLoader::loaded, this, &MainWindow::takeReport);
    connect(m_loader, &ReportLoader::failed, this, [this](int request, const QString &message) {
        Q_UNUSED(request)
        takeFailure(message);
    });
    connect(m_loader, &ReportLoader::finished, this, &MainWindow::takeEnd);
    connect(m_loader, &ReportLoader::loadingChanged, this, &MainWindow::showLoading);
    connect(m_cancelLoading, &QPushButton::clicked, this, [this] {
        m_requests.clear();
        m_loader->cancel();
    });
    connect(m_process, &ReportProcess::started, this, &MainWindow::updateActions);
    connect(m_process, &ReportProcess::finished, this, &MainWindow::takeMade);
    connect(m_process, &ReportProcess::failed, this, [this](const QString &message) {
        updateActions();
        takeFailure(message);
    });
    restoreSettings();
    takeCurrentTab();
}

MainWindow::~MainWindow()
{
    // Their signals would reach a window that is half destroyed.
    disconnect(m_process, nullptr, this, nullptr);
    disconnect(m_loader, nullptr, this, nullptr);
    disconnect(m_tabs, nullptr, this, nullptr);
}

void MainWindow::restoreSettings()
{
    if (!restoreGeometry(WindowSettings::bytes(geometryKey))) {
        const QSize available = screen()->availableSize();
        resize(available.boundedTo(QSize(fontMetrics().averageCharWidth() * 150, fontMetrics().height() * 46)) * 0.95);
    }
    m_splitters = WindowSettings::bytes(splittersKey);
    actionNamed("outline")->setChecked(WindowSettings::isOn(outlineKey, true));
    actionNamed("facts")->setChecked(WindowSettings::isOn(factsKey, true));
    actionNamed("hidePersonalData")->setChecked(WindowSettings::isOn(redactedKey, false));
    actionNamed("everyMoment")->setChecked(WindowSettings::isOn(everyMomentKey, false));
}

void MainWindow::saveSettings() const
{
    WindowSettings::setBytes(geometryKey, saveGeometry());
    const ReportPage *page = reportPage();
    WindowSettings::setBytes(splittersKey, page ? page->splitterState() : m_splitters);
    WindowSettings::setOn(outlineKey, actionNamed("outline")->isChecked());
    WindowSettings::setOn(factsKey, actionNamed("facts")->isChecked());
    WindowSettings::setOn(redactedKey, actionNamed("hidePersonalData")->isChecked());
    WindowSettings::setOn(everyMomentKey, actionNamed("everyMoment")->isChecked());
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    saveSettings();
    QMainWindow::closeEvent(event);
}

ReportPage *MainWindow::reportPage() const
{
    return qobject_cast<ReportPage *>(m_tabs->currentWidget());
}

ComparisonView *MainWindow::comparisonView() const
{
    return qobject_cast<ComparisonView *>(m_tabs->currentWidget());
}

ComparisonTab *MainWindow::comparisonTab() const
{
    return qobject_cast<ComparisonTab *>(m_tabs->currentWidget());
}

std::vector<ReportPage *> MainWindow::reportPages() const
{
    std::vector<ReportPage *> pages;
    for (int tab = 0; tab < m_tabs->count(); ++tab) {
        if (auto *page = qobject_cast<ReportPage *>(m_tabs->widget(tab)))
            pages.push_back(page);
    }
    return pages;
}

bool MainWindow::isGiven(Needs needs) const
{
    switch (needs) {
    case Needs::Nothing:
        return true;
    case Needs::NoMaking:
        return !m_process->isRunning();
    case Needs::Tab:
        return m_tabs->count() > 0;
    case Needs::Report:
        return reportPage() != nullptr;
    case Needs::Output:
        return reportPage() && reportPage()->output();
    case Needs::ReportPage:
        return reportPage() && reportPage()->report().report.isReport();
    case Needs::Redacted:
        return reportPage() && reportPage()->isRedacted() && reportPage()->output();
    case Needs::SeveralReports:
        return reportPages().size() > 1;
    case Needs::Pair:
        return comparisonView() != nullptr;
    case Needs::Comparison:
        return comparisonTab() != nullptr;
    case Needs::Absent:
        break;
    }
    return false;
}

// ---------------------------------------------------------------------------------------------
// Files

void MainWindow::open()
{
    openFiles(chooseFiles(tr("Open reports")));
}

QStringList MainWindow::chooseFiles(const QString &title)
{
    const QString folder = m_recentFiles->paths().isEmpty() ? QString() : QFileInfo(m_recentFiles->paths().constFirst()).path();
    return QFileDialog::getOpenFileNames(this, title, folder, tr("Reports (*.txt *.json *.log *.eml);;All files (*)"));
}

void MainWindow::openFiles(const QStringList &files)
{
    load(sourcesOf(files), false);
}

void MainWindow::compareFiles(const QStringList &files)
{
    load(sourcesOf(files), true);
}

std::vector<ReportLoader::Source> MainWindow::sourcesOf(const QStringList &files)
{
    if (files.size() > mostFiles)
        takeFailure(tr("Only the first %n file(s) are opened.", nullptr, mostFiles));
    std::vector<ReportLoader::Source> sources;
    for (const QString &file : files.mid(0, mostFiles))
        sources.emplace_back(file);
    return sources;
}

int MainWindow::load(const std::vector<ReportLoader::Source> &sources, bool compares)
{
    if (sources.empty())
        return 0;
    const int request = m_loader->load(sources);
    m_requests[request].compares = compares;
    return request;
}

void MainWindow::openFromClipboard()
{
    const QMimeData *data = QApplication::clipboard()->mimeData(); // null if there never was anything in it
    const QMimeData nothing;
    openMimeData(data ? *data : nothing, tr("Clipboard"));
}

void MainWindow::openMimeData(const QMimeData &data, const QString &name)
{
    const QStringList files = localFiles(data);
    if (files.size() > 1)
        compareFiles(files);
    else if (!files.isEmpty())
        openFiles(files);
    else if (data.hasText() && !data.text().isEmpty())
        load({ReportLoader::Bytes {data.text().toUtf8(), name}}, false);
    else
        takeFailure(tr("There is no text in \"%1\".").arg(name));
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    // A link to the network would be fetched or be shown as a text, and nobody expects that.
    if (event->mimeData()->hasUrls() ? !localFiles(*event->mimeData()).isEmpty() : event->mimeData()->hasText())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent *event)
{
    openMimeData(*event->mimeData(), tr("Dropped text"));
    event->acceptProposedAction();
}

void MainWindow::takeReport(int request, const PreparedReport &report)
{
    if (!report.report.path.isEmpty())
        m_recentFiles->add(report.report.path);
    Request &wanted = m_requests[request];
    if (wanted.compares)
        wanted.reports.push_back(report);
    else
        showReport(report, wanted);
}

void MainWindow::takeFailure(const QString &message)
{
    if (!message.isEmpty())
        m_messages->addMessage(message);
}

void MainWindow::takeEnd(int request)
{
    const Request done = m_requests[request];
    m_requests.erase(request);
    std::vector<LoadedReport> reports;
    for (const PreparedReport &report : done.reports)
        reports.push_back(report.report);
    if (done.newest)
        reports.push_back(*done.newest);
    if (reports.size() > 1)
        compare(reports);
    else if (!done.reports.empty()) // the others could not be read
        showReport(done.reports.front(), Request());
}

void MainWindow::showLoading()
{
    if (!m_loader->isLoading()) {
        m_loadingTimer->stop();
        statusBar()->hide();
    } else if (!m_loadingTimer->isActive() && !statusBar()->isVisible()) {
        m_loadingTimer->start();
    }
    m_loading->setText(tr("Loading %1...").arg(lineText(m_loader->currentName())));
    if (!m_loader->isLoading() && m_tabs->count() == 0)
        m_stack->setCurrentWidget(m_startPage);
}

// ---------------------------------------------------------------------------------------------
// Tabs

void MainWindow::showReport(const PreparedReport &report, const Request &request)
{
    for (ReportPage *page : reportPages()) { // a file that is open already is read again
        if (!report.report.path.isEmpty() && page->report().report.path == report.report.path) {
            keepHidden(page);
            page->setReport(report);
            m_tabs->setCurrentWidget(page);
            return;
        }
    }
    auto *page = new ReportPage(report);
    page->setIncomplete(request.incomplete);
    page->addMessages(request.messages);
    page->copyBar()->setHideAction(actionNamed("hidePersonalData"));
    connect(page, &ReportPage::outputChanged, this, &MainWindow::updateActions);
    connect(page, &ReportPage::done, this, &MainWindow::tell);
    connect(page, &ReportPage::failed, this, &MainWindow::takeFailure);
    const QByteArray splitters = reportPage() ? reportPage()->splitterState() : m_splitters;
    if (!splitters.isEmpty())
        page->restoreSplitters(splitters);
    page->setOutlineVisible(actionNamed("outline")->isChecked());
    page->setFactsVisible(actionNamed("facts")->isChecked());
    addTab(page, page->firstFocus(), report.report.name, QDir::toNativeSeparators(report.report.path));
}

void MainWindow::addTab(QWidget *page, QWidget *firstFocus, const QString &name, const QString &toolTip)
{
    const int tab = m_tabs->addTab(page, tabText(name));
    m_tabs->setTabToolTip(tab, plainToolTip(toolTip));
    addCloseButton(tab);
    m_tabs->setCurrentIndex(tab);
    firstFocus->setFocus();
    updateActions();
}

void MainWindow::addCloseButton(int tab)
{
    auto *button = new CloseTabButton;
    const QString keys = actionNamed("closeTab")->shortcut().toString(QKeySequence::NativeText);
    button->setToolTip(tr("Close tab (%1)").arg(keys));
    const int side = style()->styleHint(QStyle::SH_TabBar_CloseButtonPosition, nullptr, m_tabs->tabBar());
    m_tabs->tabBar()->setTabButton(tab, QTabBar::ButtonPosition(side), button);
    QWidget *page = m_tabs->widget(tab);
    connect(button, &CloseTabButton::clicked, this, [this, page] { closeTabAt(m_tabs->indexOf(page)); });
}

void MainWindow::closeTab()
{
    closeTabAt(m_tabs->currentIndex());
}

void MainWindow::closeTabAt(int index)
{
    QWidget *page = m_tabs->widget(index);
    if (const ReportPage *current = reportPage())
        m_splitters = current->splitterState();
    keepHidden(qobject_cast<ReportPage *>(page));
    m_tabs->removeTab(index);
    if (page)
        page->deleteLater();
    if (!hasComparison())
        m_hiddenBefore.clear();
    updateActions();
}

void MainWindow::takeCurrentTab()
{
    const bool isEmpty = m_tabs->count() == 0;
    m_stack->setCurrentWidget(isEmpty ? static_cast<QWidget *>(m_startPage) : m_tabs);
    const QString name = isEmpty ? QString() : lineText(m_tabs->tabText(m_tabs->currentIndex()).replace(QLatin1String("&&"), QLatin1String("&")));
    const QString plainName = QString(name).replace(QLatin1String("[*]"), QLatin1String("[*][*]")); // else Qt removes it
    setWindowTitle(isEmpty ? tr("System reports") : tr("%1 - System reports").arg(plainName));
    switchPersonalData();
    updateActions();
}

/// As the user reads them; the messages last, although they stand at the top.
std::vector<Pane> MainWindow::panes() const
{
    std::vector<Pane> panes;
    if (const ReportPage *page = reportPage())
        panes = page->panes();
    else if (const ComparisonView *pair = comparisonView())
        panes = pair->panes();
    else
        panes.push_back({m_tabs->count() > 0 ? m_tabs->currentWidget() : m_startPage});
    panes.push_back({m_making});
    panes.push_back({m_messages});
    return panes;
}

void MainWindow::nextPane()
{
    goToPane(panes(), 1);
}

void MainWindow::previousPane()
{
    goToPane(panes(), -1);
}

void MainWindow::nextTab()
{
    m_tabs->setCurrentIndex((m_tabs->currentIndex() + 1) % m_tabs->count());
}

void MainWindow::previousTab()
{
    m_tabs->setCurrentIndex((m_tabs->currentIndex() + m_tabs->count() - 1) % m_tabs->count());
}

// ---------------------------------------------------------------------------------------------
// Commands of the current report

void MainWindow::copy()
{
    if (ComparisonTab *comparison = comparisonTab())
        comparison->copy();
    else
        reportPage()->copy();
}

void MainWindow::selectAll()
{
    reportPage()->selectAll();
}

void MainWindow::find()
{
    reportPage()->find();
}

void MainWindow::findNext()
{
    reportPage()->findNext();
}

void MainWindow::findPrevious()
{
    reportPage()->findPrevious();
}

void MainWindow::filterFacts()
{
    actionNamed("facts")->setChecked(true);
    switchFacts();
    reportPage()->filterFacts();
}

void MainWindow::showSummary()
{
    reportPage()->showSummary();
}

void MainWindow::showText()
{
    reportPage()->showText();
    reportPage()->textView()->setFocus();
}

void MainWindow::switchOutline()
{
    for (ReportPage *page : reportPages())
        page->setOutlineVisible(actionNamed("outline")->isChecked());
}

void MainWindow::switchFacts()
{
    for (ReportPage *page : reportPages())
        page->setFactsVisible(actionNamed("facts")->isChecked());
}

void MainWindow::zoomIn()
{
    reportPage()->textView()->zoomIn();
}

void MainWindow::zoomOut()
{
    reportPage()->textView()->zoomOut();
}

void MainWindow::resetZoom()
{
    reportPage()->textView()->resetZoom();
}

void MainWindow::chooseSection()
{
    reportPage()->chooseSection();
}

void MainWindow::nextSection()
{
    reportPage()->nextSection();
}

void MainWindow::previousSection()
{
    reportPage()->previousSection();
}

// ---------------------------------------------------------------------------------------------
// Making, hiding, comparing, saving

void MainWindow::makeReport()
{
    m_process->start(false);
}

void MainWindow::makeReportWithoutOpenGL()
{
    m_process->start(true);
}

void MainWindow::takeMade(const QByteArray &report, const QStringList &missing)
{
    const QString time = QLocale().toString(QTime::currentTime(), QLocale::ShortFormat);
    const int request = load({ReportLoader::Bytes {report, tr("This machine, %1").arg(time)}}, false);
    m_requests[request].messages = missing;
    if (!missing.isEmpty())
        m_requests[request].incomplete = incompleteMember(report);
    updateActions();
}

/// Reports in other tabs follow when their tab is chosen: it takes a second for a large one. Comparisons follow at once, for
/// the names of the reports stand in the tooltips of their tabs.
void MainWindow::switchPersonalData()
{
    const PersonalData data = personalData();
    if (ReportPage *page = reportPage())
        page->setRedacted(data.isHidden);
    for (int tab = 0; tab < m_tabs->count(); ++tab) {
        if (auto *comparison = qobject_cast<ComparisonTab *>(m_tabs->widget(tab)))
            comparison->setPersonalData(data);
    }
}

/// What comparisons hide: what was hidden by hand in any report, and never what was taken back in one.
PersonalData MainWindow::personalData() const
{
    PersonalData data;
    data.isHidden = actionNamed("hidePersonalData")->isChecked();
    if (!data.isHidden)
        return data;
    data.hide = m_hiddenBefore;
    for (const ReportPage *page : reportPages())
        data.hide += page->hiddenByHand();
    data.hide.removeDuplicates();
    data.hide.sort();
    return data;
}

/// Before \a page forgets what the user hid in it.
void MainWindow::keepHidden(const ReportPage *page)
{
    if (!page || !hasComparison())
        return;
    m_hiddenBefore += page->hiddenByHand();
    m_hiddenBefore.removeDuplicates();
}

bool MainWindow::hasComparison() const
{
    for (int tab = 0; tab < m_tabs->count(); ++tab) {
        if (!qobject_cast<ReportPage *>(m_tabs->widget(tab)))
            return true;
    }
    return false;
}

void MainWindow::hideSelection()
{
    reportPage()->redactionPanel()->hideSelection();
}

void MainWindow::tell(const QString &message)
{
    constexpr int time = 5000; // milliseconds
    statusBar()->show();
    statusBar()->showMessage(lineText(message), time);
}

void MainWindow::saveAs()
{
    QString message;
    if (!reportPage())
        saveComparison();
    else if (const auto report = reportPage()->output())
        saveReport(this, *report, message) == SaveResult::Failed ? takeFailure(message) : tell(message);
}

void MainWindow::print()
{
    QString message;
    const bool isPrinted = printReport(this, *reportPage()->output(), message);
    isPrinted ? tell(message) : takeFailure(message);
}

void MainWindow::exportPdf()
{
    QString message;
    const bool isWritten = ::exportPdf(this, *reportPage()->output(), message);
    isWritten ? tell(message) : takeFailure(message);
}

QByteArray MainWindow::exportedComparison(ComparisonForm form) const
{
    return comparisonTab() ? comparisonTab()->exported(form) : QByteArray();
}

void MainWindow::saveComparison()
{
    if (exportedComparison(ComparisonForm::Json).isEmpty()) {
        takeFailure(tr("There is nothing to save: the reports are not compared."));
        return;
    }
    const auto choice = chooseSaveFile(this, tr("Save the comparison"), tr("comparison.txt"));
    if (!choice)
        return;
    const std::map<OutputFormat, ComparisonForm> forms = {{OutputFormat::Text, ComparisonForm::Text}, {OutputFormat::Json, ComparisonForm::Json}, {OutputFormat::Html, ComparisonForm::Html}, {OutputFormat::Markdown, ComparisonForm::Markdown}};
    QString error;
    if (saveBytes(exportedComparison(forms.at(choice->format)), choice->fileName, error))
        tell(tr("Saved: %1").arg(QDir::toNativeSeparators(choice->fileName)));
    else
        takeFailure(error);
}

void MainWindow::compareWith()
{
    const LoadedReport newest = reportPage()->report().report;
    const int request = load(sourcesOf(chooseFiles(tr("Compare with earlier reports"))), true);
    if (request > 0)
        m_requests[request].newest = newest;
}

void MainWindow::compareOpenReports()
{
    std::vector<LoadedReport> reports;
    for (const ReportPage *page : reportPages())
        reports.push_back(page->report().report);
    compare(reports);
}

void MainWindow::compare(const std::vector<LoadedReport> &reports)
{
    if (reports.size() == 2)
        showComparison(new ComparisonView(reports[0], reports[1], personalData()), 2);
    else
        showComparison(new ComparisonTableView(reports, personalData()), int(reports.size()));
}

void MainWindow::showComparison(ComparisonTab *tab, int reports)
{
    QAction *everyMoment = actionNamed("everyMoment");
    tab->setShowsEveryMoment(everyMoment->isChecked());
    connect(tab, &ComparisonTab::showsEveryMomentChanged, everyMoment, &QAction::setChecked);
    connect(everyMoment, &QAction::toggled, tab, &ComparisonTab::setShowsEveryMoment);
    const auto names = [tab] { return tab->names().join(QLatin1Char('\n')); };
    connect(tab, &ComparisonTab::namesChanged, this, [this, tab, names] { m_tabs->setTabToolTip(m_tabs->indexOf(tab), plainToolTip(names())); });
    addTab(tab, tab->firstFocus(), MainWindow::tr("Comparison of %n report(s)", nullptr, reports), names());
}

void MainWindow::nextDifference()
{
    comparisonView()->nextDifference();
}

void MainWindow::previousDifference()
{
    comparisonView()->previousDifference();
}

// ---------------------------------------------------------------------------------------------
// Help

void MainWindow::showKeys()
{
    ShortcutList(m_actionList, this).exec();
}

void MainWindow::showMeaning()
{
    const ReportPage::Meaning meaning = reportPage()->currentMeaning();
    QMessageBox box(this);
    box.setWindowTitle(tr("Meaning"));
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    if (meaning.label.isEmpty())
        box.setText(tr("Nothing is known about this line."));
    else // not as informative text, which is not always plain
        box.setText(QStringLiteral("%1\n\n%2").arg(meaning.label, meaning.text));
    box.exec();
}

void MainWindow::showAbout()
{
    QMessageBox box(this);
    box.setWindowTitle(tr("About vkviewer"));
    box.setTextFormat(Qt::PlainText);
    box.setText(tr("vkviewer %1").arg(QStringLiteral(VKVIEWER_VERSION)));
    box.setInformativeText(tr("Shows, compares and redacts system reports of vkSystemInfo. It sends nothing.\n\nQt %1")
                               .arg(QString::fromLatin1(qVersion())));
    box.exec();
}
