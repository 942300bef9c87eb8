#include "redaction_thread.h"

RedactionThread::RedactionThread(const velkor::Reports::Document &original, const RedactionChoices &choices, QObject *parent)
    : QThread(parent), m_original(original), m_choices(choices)
{
    qRegisterMetaType<RedactedReport>();
}

void RedactionThread::run()
{
    Q_EMIT redacted(RedactedReport(m_original, m_choices));
}
