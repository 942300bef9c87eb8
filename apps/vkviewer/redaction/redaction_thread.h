// Redacts a report in a thread.
#pragma once

#include "redacted_report.h"

#include <QtCore/QThread>

class RedactionThread : public QThread
{
    Q_OBJECT

public:
    RedactionThread(const velkor::Reports::Document &original, const RedactionChoices &choices, QObject *parent = nullptr);

Q_SIGNALS:
    /// In the thread of the receiver.
    void redacted(const RedactedReport &report);

protected:
    void run() override;

private:
    velkor::Reports::Document m_original;
    RedactionChoices m_choices;
};
