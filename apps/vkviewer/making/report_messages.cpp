#include "report_messages.h"

#include "work_text.h"

#include <QtCore/QCoreApplication>

namespace {

constexpr int longestLine = 4096; // bytes
constexpr int mostLines = 200;    // of each kind

const QLatin1String prefix("vkreport: ");
const QLatin1String progressPrefix("progress: ");
const QLatin1String missingPrefix("missing: ");
const QLatin1String separator(": ");

/// What vkreport says if it cannot use the display of this machine.
bool isAboutThePlatform(const QString &message)
{
    return message.contains(QLatin1String("Qt's platform \"minimal\" is used"));
}

} // namespace

void ReportMessages::add(const QByteArray &bytes)
{
    m_rest += bytes;
    int begin = 0;
    for (int end = m_rest.indexOf('\n'); end >= 0; end = m_rest.indexOf('\n', begin)) {
        takeLine(m_rest.mid(begin, end - begin));
        begin = end + 1;
    }
    m_rest.remove(0, begin);
    if (m_rest.size() > longestLine)
        finish();
}

void ReportMessages::finish()
{
    if (!m_rest.isEmpty())
        takeLine(m_rest);
    m_rest.clear();
}

void ReportMessages::takeLine(const QByteArray &line)
{
    const QString text = QString::fromUtf8(line.left(longestLine)).trimmed();
    const int at = text.lastIndexOf(prefix);
    const QString before = at < 0 ? text : text.left(at).trimmed();
    const QString message = at < 0 ? QString() : text.mid(at + prefix.size());
    if (!before.isEmpty() && m_others.size() < mostLines)
        m_others += before;
    if (message.isEmpty() || (message.startsWith(progressPrefix) && takeProgressLine(message.mid(progressPrefix.size()))))
        return;
    const int reason = message.indexOf(separator, missingPrefix.size());
    if (message.startsWith(missingPrefix) && reason > 0) {
        if (m_missing.size() < mostLines)
            m_missing += missingText(message.mid(missingPrefix.size(), reason - missingPrefix.size()), message.mid(reason + separator.size()));
        return;
    }
    if (isAboutThePlatform(message) && m_missing.size() < mostLines)
        m_missing += QCoreApplication::translate("Making", "The screens and OpenGL are not those of this machine, because its display cannot be used.");
    if (m_others.size() < mostLines)
        m_others += message;
}

/// WORK SECONDS LIMIT. The work can contain blanks.
bool ReportMessages::takeProgressLine(const QString &line)
{
    constexpr int numbers = 2;
    QStringList fields = line.split(QLatin1Char(' '));
    if (fields.size() <= numbers)
        return false;
    bool isSeconds = false;
    bool isLimit = false;
    const double limit = fields.takeLast().toDouble(&isLimit);
    const double seconds = fields.takeLast().toDouble(&isSeconds);
    if (!isSeconds || !isLimit || !(seconds >= 0) || !(limit >= 0))
        return false;
    m_progress = MakingProgress {workText(fields.join(QLatin1Char(' '))), seconds, limit};
    return true;
}

std::optional<MakingProgress> ReportMessages::takeProgress()
{
    std::optional<MakingProgress> progress;
    progress.swap(m_progress);
    return progress;
}
