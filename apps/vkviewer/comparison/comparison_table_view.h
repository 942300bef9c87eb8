// Three reports or more in a table.
#pragma once

#include "background_task.h"
#include "comparison_form.h"
#include "report/loaded_report.h"

#include <QtWidgets/QWidget>

class ComparisonTableModel;
class QCheckBox;
class QLabel;
class QLineEdit;
class QSplitter;
class QStackedWidget;
class QTableView;

/// One column a report. The columns that say what the row is stay where they are when the others scroll. The comparison
/// runs in a thread; until it is done the view says so.
class ComparisonTableView : public QWidget
{
    Q_OBJECT

public:
    explicit ComparisonTableView(const std::vector<LoadedReport> &reports, QWidget *parent = nullptr);
    ~ComparisonTableView() override;

    /// Gets the focus when the view opens. No focus proxy: the key Tab would leave out what precedes it.
    QWidget *firstFocus() const;
    bool isComparing() const { return m_task.isRunning(); }
    bool showsEveryMoment() const { return m_showsEveryMoment; }

    /// What vkcompare writes about these reports, with what changes every moment if it is shown. Empty until the reports are
    /// compared.
    QByteArray exported(ComparisonForm form) const;

public Q_SLOTS:
    void setShowsEveryMoment(bool shows);
    /// Copies the selected rows.
    void copy();

Q_SIGNALS:
    void compared();
    void showsEveryMomentChanged(bool shows);

private:
    QWidget *makeCommands();
    QSplitter *makeTables();
    QTableView *makeTable(bool isFrozen);
    void start();
    void finish();
    void updateSummary();
    void hideColumns();

    std::vector<LoadedReport> m_reports;
    QStringList m_names;
    BackgroundTask m_task;
    std::shared_ptr<const velkor::Reports::ComparisonTable> m_table; ///< null until the reports are compared
    bool m_showsEveryMoment = false;

    ComparisonTableModel *m_model;
    QLineEdit *m_filter = nullptr;
    QCheckBox *m_everyMoment = nullptr;
    QLabel *m_summary = nullptr;
    QLabel *m_message = nullptr;
    QStackedWidget *m_pages = nullptr;
    QTableView *m_frozen = nullptr; ///< what the rows are
    QTableView *m_values = nullptr;
};
