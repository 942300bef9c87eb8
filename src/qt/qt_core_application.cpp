#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>

namespace velkor {
namespace SystemInfo {

QString qtCoreApplication()
{
    const QString column(22, QLatin1Char(' ')); // as wide as the labels
    const QStringList libraryPaths = QCoreApplication::libraryPaths();
    QString text;
    appendLine(text, QStringLiteral("QCoreApplication:"));
    appendLine(text, "Application Version:  %1", QCoreApplication::applicationVersion());
    appendLine(text, "Application Name:     %1", QCoreApplication::applicationName());
    appendLine(text, "Application DirPath:  %1", QCoreApplication::applicationDirPath());
    appendLine(text, "Application FilePath: %1", QCoreApplication::applicationFilePath());
    appendLine(text, QStringLiteral("Application PID:      %1").arg(QCoreApplication::applicationPid()));
    appendLine(text, "Organization Domain:  %1", QCoreApplication::organizationDomain());
    appendLine(text, "Organization Name:    %1", QCoreApplication::organizationName());
    appendLine(text, "Library Paths:        %1", libraryPaths.join(newline + column));
    return text;
}

} // namespace SystemInfo
} // namespace velkor
