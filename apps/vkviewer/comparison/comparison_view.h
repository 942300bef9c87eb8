// Two reports side by side.
#pragma once

#include "compared_reports.h"
#include "comparison_tab.h"
#include "window/panes.h"

class AlignedTextView;
class DifferenceModel;
class NameLabel;
class QAbstractItemModel;
class QLabel;
class QModelIndex;
class QPushButton;
class QSplitter;
class QTableView;
class SectionModel;

/// The sections that differ, the differences of one or of all, and the texts.
class ComparisonView : public ComparisonTab
{
    Q_OBJECT

public:
    ComparisonView(const LoadedReport &older, const LoadedReport &newer, const PersonalData &personalData = {}, QWidget *parent = nullptr);
    ~ComparisonView() override;

    QWidget *firstFocus() const override;
    /// How many differences nextDifference() visits.
    int differenceCount() const { return int(m_walk.size()); }
    /// Which of them is the current one, from 0; -1 if none is.
    int currentDifference() const;
    /// Sections, differences, texts.
    std::vector<Pane> panes() const;

    QStringList names() const override;
    QByteArray exported(ComparisonForm form) const override;

public Q_SLOTS:
    /// Goes through the differences of all sections; after the last one follows the first.
    void nextDifference();
    void previousDifference();
    void swapSides();
    /// Of the table that has the focus, or of the table of differences.
    void copy() override;

Q_SIGNALS:
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

    Comparing comparing() override;
    void clearComparison() override;
    void takeNames() override;
    void keepCurrent() override;
    void showWanted() override;
    void takeShowsEveryMoment() override;

    bool take(const std::shared_ptr<const ComparedReports> &reports);
    Place placeOf(int change) const;
    int findChange(const Place &place) const;
    void fitSections();
    void updateShown();
    void showSection(const QString &section);
    void chooseSection(int row);
    void step(int by);
    void showChange(int change);
    void takeCurrentRow();
    void setCurrentChange(int change);
    void updatePosition();
    bool isShown(const velkor::Reports::Change &change) const { return showsEveryMoment() || !change.everyMoment; }

    std::shared_ptr<const ComparedReports> m_reports; ///< null until the reports are compared
    std::vector<int> m_walk;                          ///< indexes of the changes that are shown in some section
    QString m_section;                                ///< empty for all
    int m_current = -1;                               ///< index of a change
    std::optional<Place> m_wanted;                    ///< the difference to show when the reports are compared again

    SectionModel *m_sectionModel;
    DifferenceModel *m_differenceModel;
    NameLabel *m_olderName = nullptr;
    NameLabel *m_newerName = nullptr;
    QPushButton *m_next = nullptr;
    QPushButton *m_previous = nullptr;
    QLabel *m_position = nullptr;
    QSplitter *m_columns = nullptr; ///< sections | differences and texts
    bool m_hasUserSplit = false;
    QTableView *m_sections = nullptr;
    QTableView *m_differences = nullptr;
    AlignedTextView *m_text = nullptr;
};
