// Two reports side by side.
#pragma once

#include "background_task.h"
#include "compared_reports.h"
#include "comparison_form.h"
#include "kept_focus.h"
#include "private_reports.h"
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
class QSplitter;
class QStackedWidget;
class QTableView;
class SectionModel;

/// The sections that differ, the differences of one or of all, and the texts. What changes every moment is hidden at first.
/// The comparison runs in a thread; until it is done the view says so. If personal data are hidden, nothing of the reports is
/// shown or copied but what redaction left.
class ComparisonView : public QWidget
{
    Q_OBJECT

public:
    ComparisonView(const LoadedReport &older, const LoadedReport &newer, const PersonalData &personalData = {}, QWidget *parent = nullptr);
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

    /// The names of the reports as they are shown; empty while they are being redacted.
    QStringList names() const;
    /// Compares again if it is to hide something else. The section and the difference that are shown stay.
    void setPersonalData(const PersonalData &personalData);

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
    void namesChanged();
    void showsEveryMomentChanged(bool shows);
    void currentDifferenceChanged();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QWidget *makeNames();
    QWidget *makeCommands();
    QWidget *makeContent();
    QTableView *makeTable(QAbstractItemModel *model, const QString &name);
    /// Another comparison of the same reports has this difference, too: their texts have the same lines.
    struct Place
    {
        QString section;
        int row;   ///< of the fact
        int older; ///< index of the line
        int newer;

        bool operator==(const Place &other) const
        {
            return section == other.section && row == other.row && older == other.older && newer == other.newer;
        }
    };
    struct Result
    {
        std::vector<LoadedReport> shown;
        std::shared_ptr<const ComparedReports> reports;
    };

    void start();
    void clear();
    void finish(const Result &result);
    Place placeOf(int change) const;
    int findChange(const Place &place) const;
    void updateNames();
    void fitSections();
    void updateShown();
    void showSection(const QString &section);
    void chooseSection(int row);
    void step(int by);
    void showChange(int change);
    void takeCurrentRow();
    void setCurrentChange(int change);
    void updatePosition();
    bool isShown(const velkor::Reports::Change &change) const { return m_showsEveryMoment || !change.everyMoment; }

    std::vector<LoadedReport> m_originals; ///< the older one and the newer one
    std::vector<LoadedReport> m_shown;     ///< what is compared; empty until it is known
    PersonalData m_personalData;
    QByteArray m_aliasKey = newAliasKey();
    BackgroundTask m_task;
    std::shared_ptr<const ComparedReports> m_reports; ///< null until the reports are compared
    std::vector<int> m_walk;                          ///< indexes of the changes that are shown in some section
    QString m_section;                                ///< empty for all
    int m_current = -1;                               ///< index of a change
    std::optional<Place> m_wanted;                    ///< the difference to show when the reports are compared again
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
    QLabel *m_privacy = nullptr;
    QLabel *m_message = nullptr;
    QCheckBox *m_everyMoment = nullptr;
    QStackedWidget *m_pages = nullptr;
    KeptFocus m_focus;
    QSplitter *m_columns = nullptr; ///< sections | differences and texts
    bool m_hasUserSplit = false;
    QTableView *m_sections = nullptr;
    QTableView *m_differences = nullptr;
    AlignedTextView *m_text = nullptr;
};
