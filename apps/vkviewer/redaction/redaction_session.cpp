#include "redaction_session.h"

#include "redaction_thread.h"

#include <algorithm>

using namespace velkor::Reports;

namespace {

/// As an entry that means exactly this text: the characters of patterns lose their meaning.
QString entryOf(const QString &text)
{
    QString entry;
    for (const QChar character : text) {
        const bool isSpecial = character == QLatin1Char('*') || character == QLatin1Char('?') || character == QLatin1Char('[');
        entry += isSpecial ? QLatin1Char('[') + QString(character) + QLatin1Char(']') : QString(character);
    }
    return entry;
}

/// Whether the entry of the list of what to hide finds something in \a text.
bool hides(const QString &entry, const QString &text)
{
    RedactionOptions options;
    options.hide = QStringList(entry);
    const std::vector<Alias> aliases = redact({read(text.toUtf8())}, options).aliases;
    return std::any_of(aliases.begin(), aliases.end(), [](const Alias &alias) { return alias.kind == AliasKind::Word; });
}

} // namespace

RedactionSession::RedactionSession(QObject *parent)
    : QObject(parent)
{
}

RedactionSession::~RedactionSession()
{
    waitForThread();
}

void RedactionSession::waitForThread()
{
    if (!m_thread)
        return;
    m_thread->disconnect(this);
    m_thread->wait();
    delete m_thread;
    m_thread = nullptr;
}

void RedactionSession::setOriginal(const Document &original)
{
    m_original = original;
    m_history.clear();
    m_undone.clear();
    m_takenBack.clear();
    apply({});
}

QString RedactionSession::reasonAgainstTakingBack(int alias) const
{
    if (alias < 0)
        return tr("Values of environment variables stay hidden: nobody knows what they hold.");
    const Alias &row = m_report.redaction().aliases[std::size_t(alias)];
    if (row.kind == AliasKind::Secret)
        return tr("Secrets stay hidden.");
    if (row.kind == AliasKind::Word)
        return {};
    const QStringList originals = m_report.originalsOf(alias);
    const auto isPossible = [](const QString &original) { return redactionEntryError(entryOf(original)).isEmpty(); };
    if (originals.isEmpty() || !std::all_of(originals.begin(), originals.end(), isPossible))
        return tr("It cannot be taken back, because it goes over several lines or is too long.");
    return {};
}

void RedactionSession::takeBack(int alias)
{
    const QString reason = reasonAgainstTakingBack(alias);
    if (!reason.isEmpty()) {
        Q_EMIT failed(reason);
        return;
    }
    RedactionChoices choices = m_choices;
    const QStringList originals = m_report.originalsOf(alias);
    const bool isHiddenByHand = m_report.redaction().aliases[std::size_t(alias)].kind == AliasKind::Word;
    for (const QString &original : originals) {
        const auto hidesIt = [&original](const QString &entry) { return hides(entry, original); };
        if (isHiddenByHand)
            choices.hide.erase(std::remove_if(choices.hide.begin(), choices.hide.end(), hidesIt), choices.hide.end());
        else
            choices.keep += entryOf(original);
    }
    choices.keep.removeDuplicates();
    m_takenBack = originals.value(0);
    choose(choices);
}

QString RedactionSession::reasonAgainstHiding(const QString &text) const
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return tr("Select a text that is to be hidden.");
    if (trimmed.contains(QLatin1Char('\n')) || trimmed.contains(QLatin1Char('\r')))
        return tr("Select a text within one line.");
    for (const Alias &alias : m_report.redaction().aliases) {
        if (trimmed.contains(alias.text))
            return tr("The selection contains %1, which is hidden already. Select what is before or after it.").arg(alias.text);
    }
    const QString error = redactionEntryError(entryOf(trimmed));
    return error.isEmpty() ? QString() : tr("The selection cannot be hidden: %1.").arg(error);
}

void RedactionSession::hide(const QString &text)
{
    const QString error = reasonAgainstHiding(text);
    if (!error.isEmpty()) {
        Q_EMIT failed(error);
        return;
    }
    const QString entry = entryOf(text.trimmed());
    RedactionChoices choices = m_choices;
    choices.keep.removeAll(entry);
    choices.hide += entry;
    choices.hide.removeDuplicates();
    m_hidden = text.trimmed();
    choose(choices);
}

void RedactionSession::undo()
{
    if (m_history.empty())
        return;
    const RedactionChoices choices = m_history.back();
    m_history.pop_back();
    m_undone.push_back(m_choices);
    apply(choices);
}

void RedactionSession::redo()
{
    if (m_undone.empty())
        return;
    const RedactionChoices choices = m_undone.back();
    m_undone.pop_back();
    m_history.push_back(m_choices);
    apply(choices);
}

void RedactionSession::choose(const RedactionChoices &choices)
{
    if (choices != m_choices) {
        m_history.push_back(m_choices);
        m_undone.clear();
    }
    apply(choices);
}

void RedactionSession::apply(const RedactionChoices &choices)
{
    m_choices = choices;
    if (m_thread)
        m_isOutdated = true;
    else
        startThread();
}

void RedactionSession::startThread()
{
    m_isOutdated = false;
    m_thread = new RedactionThread(m_original, m_choices, this);
    connect(m_thread, &RedactionThread::redacted, this, &RedactionSession::takeResult);
    m_thread->start();
    Q_EMIT busyChanged(true);
}

void RedactionSession::takeResult(const RedactedReport &report)
{
    waitForThread(); // it has nothing to do any more
    if (m_isOutdated) {
        startThread();
        return;
    }
    m_report = report;
    Q_EMIT busyChanged(false);
    Q_EMIT redacted(m_report);
    sayWhatStays();
}

/// A rule can have precedence over what the user wants.
void RedactionSession::sayWhatStays()
{
    QString takenBack;
    QString hidden;
    takenBack.swap(m_takenBack);
    hidden.swap(m_hidden);
    for (int i = 0; !takenBack.isEmpty() && i < int(m_report.redaction().aliases.size()); ++i) {
        if (m_report.originalsOf(i).contains(takenBack)) {
            Q_EMIT failed(tr("Some places stay hidden, because a rule shows that they are personal."));
            return;
        }
    }
    if (!hidden.isEmpty() && m_report.document().text().contains(hidden.toUtf8()))
        Q_EMIT failed(tr("Some places stay visible: the words of the format itself are not hidden."));
}
