// The personal data of one report: what is hidden, what the user took back or hid by hand, and the steps back.
#pragma once

#include "redacted_report.h"

#include <QtCore/QObject>
#include <optional>
#include <vector>

class RedactionThread;

class RedactionSession : public QObject
{
    Q_OBJECT

public:
    explicit RedactionSession(QObject *parent = nullptr);
    /// Waits for the thread.
    ~RedactionSession() override;

    /// Another report. Forgets what the user decided about the one before.
    void setOriginal(const velkor::Reports::Document &original);
    const velkor::Reports::Document &original() const { return m_original; }

    /// The result of the last choices, once redacted() was emitted.
    const RedactedReport &report() const { return m_report; }
    const RedactionChoices &choices() const { return m_choices; }
    bool isBusy() const { return m_thread != nullptr; }

    /// Why an alias cannot be taken back; empty if it can. \a alias is an index in Redaction::aliases, or -1.
    QString reasonAgainstTakingBack(int alias) const;
    /// Shows everywhere what the alias stands for. If it stays because of a rule, failed() says so later.
    void takeBack(int alias);
    /// Why a text cannot be hidden; empty if it can.
    QString reasonAgainstHiding(const QString &text) const;
    /// Hides a text wherever it occurs. If that is not possible, emits failed().
    void hide(const QString &text);

    bool canUndo() const { return !m_history.empty(); }
    bool canRedo() const { return !m_undone.empty(); }

public Q_SLOTS:
    void undo();
    void redo();

Q_SIGNALS:
    void busyChanged(bool isBusy);
    void redacted(const RedactedReport &report);
    /// \a message is for the user.
    void failed(const QString &message);

private:
    void choose(const RedactionChoices &choices);
    void apply(const RedactionChoices &choices);
    void startThread();
    void takeResult(const RedactedReport &report);
    void sayWhatStays();
    void waitForThread();

    velkor::Reports::Document m_original;
    RedactedReport m_report;
    RedactionChoices m_choices;
    std::vector<RedactionChoices> m_history;
    std::vector<RedactionChoices> m_undone;
    QString m_takenBack; ///< a text that is to be visible in the next result
    QString m_hidden;    ///< a text that is not to be visible in the next result
    RedactionThread *m_thread = nullptr;
    bool m_isOutdated = false; ///< the thread redacts what is no longer wanted
};
