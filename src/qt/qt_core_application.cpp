#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>

namespace velkor {
namespace SystemInfo {

QString qtCoreApplication()
{
    const QString valueColumn(22, QLatin1Char(' '));
    const QStringList libraryPaths = QCoreApplication::libraryPaths();
    return QStringLiteral("QCoreApplication:") + newline
        + QStringLiteral("Application Version:  ") + QCoreApplication::applicationVersion() + newline
        + QStringLiteral("Application Name:     ") + QCoreApplication::applicationName() + newline
        + QStringLiteral("Application DirPath:  ") + QCoreApplication::applicationDirPath() + newline
        + QStringLiteral("Application FilePath: ") + QCoreApplication::applicationFilePath() + newline
        + QStringLiteral("Application PID:      %1").arg(QCoreApplication::applicationPid()) + newline
        + QStringLiteral("Organization Domain:  ") + QCoreApplication::organizationDomain() + newline
        + QStringLiteral("Organization Name:    ") + QCoreApplication::organizationName() + newline
        + QStringLiteral("Library Paths:        ") + libraryPaths.join(newline + valueColumn) + newline;
}

} // namespace SystemInfo
} // namespace velkor
