// Three reports or more in a table.
#pragma once

#include "comparison_tab.h"

class ComparisonTableModel;
class QLineEdit;
class QSplitter;
class QTableView;

/// One column a report. The columns that say what the row is stay where they are when the others scroll.
class ComparisonTableView : public ComparisonTab
{
    Q_OBJECT

public:
    explicit ComparisonTableView(const std::vector<LoadedReport> &reports, const PersonalData &personalData = {}, QWidget *parent = nullptr);
    ~ComparisonTableView() override;

    QWidget *firstFocus() const override;
    /// Each another one.
    QStringList names() const override { return m_names; }
    QByteArray exported(ComparisonForm form) const override;

public Q_SLOTS:
    void copy() override;

private:
    QWidget *makeCommands();
    QSplitter *makeTables();
    QTableView *makeTable(bool isFrozen);

    Comparing comparing() override;
    void clearComparison() override;
    void takeNames() override;
    void keepCurrent() override;
    void showWanted() override;
    void takeShowsEveryMoment() override;

    bool take(const std::shared_ptr<const velkor::Reports::ComparisonTable> &table);
    void updateSummary();
    void hideColumns();

    QStringList m_names;
    std::shared_ptr<const velkor::Reports::ComparisonTable> m_table; ///< null until the reports are compared
    std::optional<velkor::Reports::ComparisonRow> m_wanted;          ///< the row to show when the reports are compared again

    ComparisonTableModel *m_model;
    QLineEdit *m_filter = nullptr;
    QTableView *m_frozen = nullptr; ///< what the rows are
    QTableView *m_values = nullptr;
};
