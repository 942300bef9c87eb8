// One report: its outline, its text and its facts.
#pragma once

#include "output/output_report.h"
#include "panes.h"
#include "report/prepared_report.h"

#include <QtWidgets/QWidget>

class CopyBar;
class FactTable;
class FindBar;
class MessageBar;
class OutlineModel;
class QModelIndex;
class QSplitter;
class QStackedWidget;
class RedactedReport;
class RedactionPanel;
class RedactionSession;
class QTreeView;
class SummaryPage;
class TextView;

/// The outline, the text and the table stay in step: each follows the others.
class ReportPage : public QWidget
{
    Q_OBJECT

public:
    explicit ReportPage(const PreparedReport &report, QWidget *parent = nullptr);

    /// The report as it was loaded.
    const PreparedReport &report() const { return m_report; }
    /// Shows another one in its place.
    void setReport(const PreparedReport &report);
    /// What is not as usual with this report; shown until the user closes it.
    void addMessages(const QStringList &messages);
    /// What of the report could not be made, for JSON: JsonNotes::incomplete.
    void setIncomplete(const QByteArray &incomplete);

    /// Whether names, addresses and secrets are hidden. What is shown is then another text with the same lines.
    void setRedacted(bool redacted);
    bool isRedacted() const { return m_isRedacted; }
    /// What the user hid by hand in this report, as RedactionOptions::hide has it.
    QStringList hiddenByHand() const;
    /// What is shown, for files and paper; nothing while personal data are being hidden.
    std::optional<OutputReport> output() const;

    TextView *textView() const { return m_text; }
    FactTable *factTable() const { return m_facts; }
    SummaryPage *summaryPage() const { return m_summary; }
    /// Gets the focus when the page opens. No focus proxy: the key Tab would leave out what precedes it.
    QWidget *firstFocus() const;
    /// Outline, text or summary, facts, what is hidden, copying, messages.
    std::vector<Pane> panes() const;

    struct Meaning
    {
        QString label;
        QString text;
    };
    /// Of the row or line that is current in the part that has the focus: what its tooltip says. Empty if nothing is known.
    Meaning currentMeaning() const;

    QTreeView *outline() const { return m_outline; }
    MessageBar *messageBar() const { return m_messages; }
    RedactionPanel *redactionPanel() const { return m_panel; }
    CopyBar *copyBar() const { return m_copyBar; }
    bool isShowingSummary() const;

    void setOutlineVisible(bool visible);
    void setFactsVisible(bool visible);
    QByteArray splitterState() const;
    void restoreSplitters(const QByteArray &state);

Q_SIGNALS:
    /// output() has something else.
    void outputChanged();
    /// What was copied or saved, for the status bar.
    void done(const QString &message);
    void failed(const QString &message);

public Q_SLOTS:
    void showSummary();
    void showText();
    /// Asks for a section.
    void chooseSection();
    void nextSection();
    void previousSection();
    void find();
    void findNext();
    void findPrevious();
    void filterFacts();
    /// What is selected in the part that has the focus.
    void copy();
    void selectAll();

private:
    void showDocument(const PreparedReport &report);
    void replaceDocument(const PreparedReport &report);
    void startRedaction();
    void showRedacted(const RedactedReport &report);
    void updateOutput();
    void connectRedaction();
    void goToSection(int section);
    void goToFact(int fact);
    void stepSection(int step);
    void takeOutline(const QModelIndex &index);
    void takeCaret(int offset);
    void showScope(const QModelIndex &index);
    void makeCurrent(const QModelIndex &index);
    void copyText();
    template <class Part>
    void copyFrom(Part *part);
    void showContextMenu(QPoint global);
    bool hasFocusIn(const QWidget *widget) const;
    bool isHiding() const;
    Meaning meaningOfOutline(const QModelIndex &index) const;
    Meaning meaningOfFact(int fact) const;

    PreparedReport m_report;
    PreparedReport m_shown;
    QByteArray m_incomplete;
    OutlineModel *m_model;
    MessageBar *m_messages;
    QTreeView *m_outline;
    SummaryPage *m_summary;
    TextView *m_text;
    FindBar *m_findBar;
    FactTable *m_facts;
    RedactionSession *m_session;
    RedactionPanel *m_panel;
    CopyBar *m_copyBar;
    QStackedWidget *m_stack;
    QWidget *m_textAndFind;
    QSplitter *m_columns; ///< outline | text and facts
    QSplitter *m_lower;   ///< facts | what was replaced
    QSplitter *m_rows;    ///< text / facts
    bool m_isRedacted = false;
    bool m_isWaiting = false; ///< for the redacted text
    bool m_following = false; ///< one part follows another
};
