#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtCore/QDateTime>

namespace velkor {
namespace SystemInfo {
namespace {

/// UTC minus local time in minutes, like the bias of a Windows time zone.
qint64 activeBias(const QDateTime &local, const QDateTime &utc)
{
    QDateTime wallClock = local;
    wallClock.setTimeSpec(Qt::UTC);
    return wallClock.secsTo(utc) / 60;
}

} // namespace

// Quirk: the only section without a title.
QString qtDateTime()
{
    const QString format = QStringLiteral("dd.MM.yyyy hh:mm:ss");
    const QDateTime local = QDateTime::currentDateTime();
    const QDateTime utc = local.toTimeSpec(Qt::UTC);
    QString text;
    appendLine(text, "Local Date and Time: %1", local.toString(format));
    appendLine(text, "UTC   Date and Time: %1", utc.toString(format));
    appendLine(text, QStringLiteral("ActiveBias: %1 min").arg(activeBias(local, utc)));
    return text;
}

} // namespace SystemInfo
} // namespace velkor
