// What comparisons of two and of several reports have in common.
#pragma once

#include "background_task.h"
#include "comparison_form.h"
#include "kept_focus.h"
#include "private_reports.h"

#include <QtWidgets/QWidget>

class QCheckBox;
class QLabel;
class QStackedWidget;

/// The comparison runs in a thread; until it is done the tab says so. If personal data are hidden, nothing of the reports is
/// shown or copied but what redaction left. What changes every moment is hidden at first.
class ComparisonTab : public QWidget
{
    Q_OBJECT

public:
    ~ComparisonTab() override;

    /// Gets the focus when the tab opens. No focus proxy: the key Tab would leave out what precedes it.
    virtual QWidget *firstFocus() const = 0;
    bool isComparing() const { return m_task.isRunning(); }
    bool showsEveryMoment() const { return m_showsEveryMoment; }

    /// The names of the reports as they are shown; empty while they are being redacted.
    virtual QStringList names() const = 0;
    /// Compares again if it is to hide something else. What is current stays.
    void setPersonalData(const PersonalData &personalData);

    /// What vkcompare writes about these reports, with what changes every moment if it is shown. Empty until the reports are
    /// compared.
    virtual QByteArray exported(ComparisonForm form) const = 0;

public Q_SLOTS:
    void setShowsEveryMoment(bool shows);
    /// Copies the selected rows.
    virtual void copy() = 0;

Q_SIGNALS:
    void compared();
    void namesChanged();
    void showsEveryMomentChanged(bool shows);

protected:
    /// A comparison in two steps.
    struct Comparing
    {
        /// Runs in the thread, so it owns all that it uses.
        std::function<void(const std::vector<LoadedReport> &reports, const std::atomic_bool &cancelled)> compare;
        /// Takes the result, in the thread of the tab. Returns whether there is one.
        std::function<bool()> take;
    };

    ComparisonTab(std::vector<LoadedReport> reports, const PersonalData &personalData, QWidget *parent);
    /// For the constructor: \a top, what has to be said, and \a content once the reports are compared. Starts comparing.
    void setUp(const QList<QWidget *> &top, QWidget *content);
    void start();

    /// Only called if the reports are reports.
    virtual Comparing comparing() = 0;
    /// Nothing of the reports may be left in what is seen, copied or saved.
    virtual void clearComparison() = 0;
    /// The names of shown() or what is known about them has changed.
    virtual void takeNames() = 0;
    /// Before the same reports are compared again: the next showWanted() is to show what is current now.
    virtual void keepCurrent() = 0;
    /// The content is visible.
    virtual void showWanted() = 0;
    virtual void takeShowsEveryMoment() = 0;

    /// What is compared; empty until it is known.
    const std::vector<LoadedReport> &shown() const { return m_shown; }
    std::vector<LoadedReport> &originals() { return m_originals; }

    /// Labels and a switch for the line of commands.
    QLabel *plainLabel(QWidget *parent, const QString &objectName) const;
    QCheckBox *makeEveryMoment(QWidget *parent);
    QLabel *summary() const { return m_summary; }

private:
    bool areReports() const;
    void finish(const std::vector<LoadedReport> &reports, const std::function<bool()> &take);
    void updateNotes();

    std::vector<LoadedReport> m_originals;
    std::vector<LoadedReport> m_shown;
    PersonalData m_personalData;
    QByteArray m_aliasKey = newAliasKey();
    BackgroundTask m_task;
    bool m_showsEveryMoment = false;

    QCheckBox *m_everyMoment = nullptr;
    QLabel *m_summary;
    QLabel *m_notes;
    QLabel *m_privacy;
    QLabel *m_message;
    QStackedWidget *m_pages;
    KeptFocus m_focus;
};
