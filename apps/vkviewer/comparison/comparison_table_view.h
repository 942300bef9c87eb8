// Three reports or more in a table.
#pragma once

#include "background_task.h"
#include "comparison_form.h"
#include "kept_focus.h"
#include "private_reports.h"

#include <QtWidgets/QWidget>

class ComparisonTableModel;
class QCheckBox;
class QLabel;
class QLineEdit;
class QSplitter;
class QStackedWidget;
class QTableView;

/// One column a report. The columns that say what the row is stay where they are when the others scroll. The comparison
/// runs in a thread; until it is done the view says so. If personal data are hidden, nothing of the reports is shown or copied
/// but what redaction left.
class ComparisonTableView : public QWidget
{
    Q_OBJECT

public:
    explicit ComparisonTableView(const std::vector<LoadedReport> &reports, const PersonalData &personalData = {}, QWidget *parent = nullptr);
    ~ComparisonTableView() override;

    /// Gets the focus when the view opens. No focus proxy: the key Tab would leave out what precedes it.
    QWidget *firstFocus() const;
    bool isComparing() const { return m_task.isRunning(); }
    bool showsEveryMoment() const { return m_showsEveryMoment; }

    /// The names of the reports as they are shown, each another one; empty while they are being redacted.
    const QStringList &names() const { return m_names; }
    /// Compares again if it is to hide something else. The row that is current stays.
    void setPersonalData(const PersonalData &personalData);

    /// What vkcompare writes about these reports, with what changes every moment if it is shown. Empty until the reports are
    /// compared.
    QByteArray exported(ComparisonForm form) const;

public Q_SLOTS:
    void setShowsEveryMoment(bool shows);
    /// Copies the selected rows.
    void copy();

Q_SIGNALS:
    void compared();
    void namesChanged();
    void showsEveryMomentChanged(bool shows);

private:
    QWidget *makeCommands();
    QSplitter *makeTables();
    QTableView *makeTable(bool isFrozen);
    struct Result
    {
        std::vector<LoadedReport> shown;
        std::shared_ptr<const velkor::Reports::ComparisonTable> table;
    };

    void start();
    void clear();
    void finish(const Result &result);
    void updateNames();
    bool areReports() const;
    void updateSummary();
    void hideColumns();

    std::vector<LoadedReport> m_originals;
    std::vector<LoadedReport> m_shown; ///< what is compared; empty until it is known
    PersonalData m_personalData;
    QByteArray m_aliasKey = newAliasKey();
    QStringList m_names;
    BackgroundTask m_task;
    std::shared_ptr<const velkor::Reports::ComparisonTable> m_table; ///< null until the reports are compared
    std::optional<velkor::Reports::ComparisonRow> m_wanted;          ///< the row to show when the reports are compared again
    bool m_showsEveryMoment = false;

    ComparisonTableModel *m_model;
    QLineEdit *m_filter = nullptr;
    QCheckBox *m_everyMoment = nullptr;
    QLabel *m_summary = nullptr;
    QLabel *m_notes = nullptr;
    QLabel *m_privacy = nullptr;
    QLabel *m_message = nullptr;
    QStackedWidget *m_pages = nullptr;
    KeptFocus m_focus;
    QTableView *m_frozen = nullptr; ///< what the rows are
    QTableView *m_values = nullptr;
};
