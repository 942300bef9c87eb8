#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtCore/QDateTime>

namespace velkor {
namespace SystemInfo {
namespace {

/// UTC minus local time in minutes, as the time-zone bias of Windows is defined.
qint64 activeBias(const QDateTime &local, const QDateTime &utc)
{
    QDateTime wallClock = local;
    wallClock.setTimeSpec(Qt::UTC);
    return wallClock.secsTo(utc) / 60;
}

} // namespace

// The one section without a title.
QString qtDateTime()
{
    const QString format = QStringLiteral("dd.MM.yyyy hh:mm:ss");
    const QDateTime local = QDateTime::currentDateTime();
    const QDateTime utc = local.toTimeSpec(Qt::UTC);
    return QStringLiteral("Local Date and Time: ") + local.toString(format) + newline
        + QStringLiteral("UTC   Date and Time: ") + utc.toString(format) + newline
        + QStringLiteral("ActiveBias: %1 min").arg(activeBias(local, utc)) + newline;
}

} // namespace SystemInfo
} // namespace velkor
