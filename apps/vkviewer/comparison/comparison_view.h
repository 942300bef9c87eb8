// Two reports side by side.
#pragma once

#include "background_task.h"
#include "compared_reports.h"
#include "comparison_form.h"
#include "report/loaded_report.h"
#include "window/panes.h"

#include <QtWidgets/QWidget>

class AlignedTextView;
class DifferenceModel;
class NameLabel;
class QAbstractItemModel;
class QCheckBox;
class QLabel;
class QModelIndex;
class QPushButton;
class QStackedWidget;
class QTableView;
class SectionModel;

/// The sections that differ, the differences of one or of all, and the texts. What changes every moment is hidden at first.
/// The comparison runs in a thread; until it is done the view says so.
class ComparisonView : public QWidget
{
    Q_OBJECT

public:
    ComparisonView(const LoadedReport &older, const LoadedReport &newer, QWidget *parent = nullptr);
    ~ComparisonView() override;

    /// Gets the focus when the view opens. No focus proxy: the key Tab would leave out what precedes it.
    QWidget *firstFocus() const;
    bool isComparing() const { return m_task.isRunning(); }
    bool showsEveryMoment() const { return m_showsEveryMoment; }
    /// How many differences nextDifference() visits.
    int differenceCount() const { return int(m_walk.size()); }
    /// Which of them is the current one, from 0; -1 if none is.
    int currentDifference() const;
    /// Sections, differences, texts.
    std::vector<Pane> panes() const;

    /// What vkcompare writes about both reports, with what changes every moment if it is shown. Empty until the reports are
    /// compared.
    QByteArray exported(ComparisonForm form) const;

public Q_SLOTS:
    /// Goes through the differences of all sections; after the last one follows the first.
    void nextDifference();
    void previousDifference();
    void setShowsEveryMoment(bool shows);
    void swapSides();
    /// Copies the selected rows of the table that has the focus, or of the table of differences.
    void copy();

Q_SIGNALS:
    void compared();
    void showsEveryMomentChanged(bool shows);
    void currentDifferenceChanged();

private:
    QWidget *makeNames();
    QWidget *makeCommands();
    QWidget *makeContent();
    QTableView *makeTable(QAbstractItemModel *model, const QString &name);
    void start();
    void finish(std::shared_ptr<const ComparedReports> reports);
    void updateNames();
    void updateShown();
    void showSection(const QString &section);
    void chooseSection(int row);
    void step(int by);
    void showChange(int change);
    void takeCurrentRow();
    void setCurrentChange(int change);
    void updatePosition();
    bool isShown(const velkor::Reports::Change &change) const { return m_showsEveryMoment || !change.everyMoment; }

    LoadedReport m_older;
    LoadedReport m_newer;
    BackgroundTask m_task;
    std::shared_ptr<const ComparedReports> m_reports; ///< null until the reports are compared
    std::vector<int> m_walk;                          ///< indexes of the changes that are shown in some section
    QString m_section;                                ///< empty for all
    int m_current = -1;                               ///< index of a change
    bool m_showsEveryMoment = false;

    SectionModel *m_sectionModel;
    DifferenceModel *m_differenceModel;
    NameLabel *m_olderName = nullptr;
    NameLabel *m_newerName = nullptr;
    QPushButton *m_next = nullptr;
    QPushButton *m_previous = nullptr;
    QLabel *m_position = nullptr;
    QLabel *m_summary = nullptr;
    QLabel *m_notes = nullptr;
    QLabel *m_message = nullptr;
    QCheckBox *m_everyMoment = nullptr;
    QStackedWidget *m_pages = nullptr;
    QTableView *m_sections = nullptr;
    QTableView *m_differences = nullptr;
    AlignedTextView *m_text = nullptr;
};
