// The window: reports in tabs, menus, files.
#pragma once

#include "comparison/comparison_form.h"
#include "comparison/private_reports.h"
#include "panes.h"
#include "report/prepared_report.h"
#include "report/report_loader.h"

#include <QtGui/QKeySequence>
#include <QtWidgets/QMainWindow>
#include <map>

class MakingBar;
class MessageBar;
class QMimeData;
class QLabel;
class QPushButton;
class QStackedWidget;
class QTabWidget;
class QTimer;
class RecentFiles;
class ComparisonTab;
class ComparisonView;
class ReportPage;
class ReportProcess;
class StartPage;

class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Files beyond that are not opened at once.
    static constexpr int mostFiles = 50;

    explicit MainWindow(QWidget *parent = nullptr);
    ~MainWindow() override;

    /// Opens each of \a files in a tab.
    void openFiles(const QStringList &files);
    /// Compares the files: two beside each other, the older one first; more in a table.
    void compareFiles(const QStringList &files);

    /// The report of the current tab; null if it shows none.
    ReportPage *reportPage() const;
    std::vector<ReportPage *> reportPages() const;
    /// The comparison of the current tab; null if it shows none.
    ComparisonTab *comparisonTab() const;
    /// The same if it compares two reports.
    ComparisonView *comparisonView() const;
    /// Those of the menus, in their order. Each has a name (QObject::objectName()).
    const QList<QAction *> &actionList() const { return m_actionList; }
    QAction *actionNamed(const char *name) const;
    MessageBar *messageBar() const { return m_messages; }
    ReportProcess *reportProcess() const { return m_process; }
    bool isLoading() const { return m_loader->isLoading(); }

protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    enum class Menu {
        File,
        Edit,
        View,
        Go,
        Help,
    };
    /// What must be there so that a command is enabled.
    enum class Needs {
        Nothing,
        NoMaking,       ///< no report is being made
        Tab,            ///< any tab
        Report,         ///< a tab with a report
        Output,         ///< a report that can be saved
        ReportPage,     ///< the same, and the report has sections
        Redacted,       ///< the same, and personal data are hidden
        SeveralReports, ///< at least two tabs with reports
        Pair,           ///< a tab with a comparison of two
        Comparison,     ///< a tab with any comparison
        Absent,         ///< cannot be done yet
    };
    struct ActionRow
    {
        const char *name;
        Menu menu;
        const char *text;
        const char *keys; ///< portable, separated by "; "
        Needs needs;
        void (MainWindow::*run)(); ///< null for a switch that only others ask for
        bool isSwitch;
        bool endsGroup; ///< a separator follows
    };
    struct Request
    {
        bool compares = false;
        std::vector<PreparedReport> reports;
        QStringList messages;               ///< what is missing in a report that was made
        QByteArray incomplete;              ///< the same for JSON
        std::optional<LoadedReport> newest; ///< is compared with them
    };

    static const std::vector<ActionRow> &actionRows();
    void makeActions();
    void makeRecentMenu(QMenu *menu);
    void showRecentMenu(QMenu *menu);
    void updateActions();
    bool isGiven(Needs needs) const;
    void restoreSettings();
    void saveSettings() const;

    // The commands of the menus
    void makeReport();
    void makeReportWithoutOpenGL();
    void open();
    void openFromClipboard();
    void compareWith();
    void compareOpenReports();
    void closeTab();
    void saveAs();
    void print();
    void exportPdf();
    void copy();
    void selectAll();
    void find();
    void filterFacts();
    void showSummary();
    void showText();
    void switchOutline();
    void switchFacts();
    void switchPersonalData();
    void hideSelection();
    void zoomIn();
    void zoomOut();
    void resetZoom();
    void chooseSection();
    void nextSection();
    void previousSection();
    void findNext();
    void findPrevious();
    void nextDifference();
    void previousDifference();
    void nextPane();
    void previousPane();
    void nextTab();
    void previousTab();
    void showKeys();
    void showMeaning();
    void showAbout();

    int load(const std::vector<ReportLoader::Source> &sources, bool compares);
    std::vector<ReportLoader::Source> sourcesOf(const QStringList &files);
    QStringList chooseFiles(const QString &title);
    void takeReport(int request, const PreparedReport &report);
    void takeFailure(const QString &message);
    void takeEnd(int request);
    void showLoading();
    void showReport(const PreparedReport &report, const Request &request);
    void takeMade(const QByteArray &report, const QStringList &missing);
    void saveComparison();
    void tell(const QString &message);
    QByteArray exportedComparison(ComparisonForm form) const;
    void compare(const std::vector<LoadedReport> &reports);
    void showComparison(ComparisonTab *tab, int reports);
    PersonalData personalData() const;
    void keepHidden(const ReportPage *page);
    bool hasComparison() const;
    void addTab(QWidget *page, QWidget *firstFocus, const QString &name, const QString &toolTip);
    void addCloseButton(int tab);
    void closeTabAt(int index);
    void takeCurrentTab();
    std::vector<Pane> panes() const;
    void openMimeData(const QMimeData &data, const QString &name);

    ReportLoader *m_loader;
    ReportProcess *m_process;
    RecentFiles *m_recentFiles;
    MessageBar *m_messages;
    MakingBar *m_making;
    QStackedWidget *m_stack;
    StartPage *m_startPage;
    QTabWidget *m_tabs;
    QLabel *m_loading;
    QPushButton *m_cancelLoading;
    QTimer *m_loadingTimer; ///< most reports are there before something could be read
    QList<QAction *> m_actionList;
    std::map<int, Request> m_requests;
    QByteArray m_splitters;
    QStringList m_hiddenBefore; ///< what was hidden by hand in reports that are closed; stays hidden in comparisons
};
