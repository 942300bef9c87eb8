#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtCore/QProcess>

namespace velkor {
namespace SystemInfo {

// Quirk: "environemnt" is misspelt.
QString qtSystemEnvironment()
{
    QString text;
    appendLine(text, QStringLiteral("System environemnt (QProcess::systemEnvironment()):"));
    const QStringList entries = QProcess::systemEnvironment();
    for (const QString &entry : entries)
        appendLine(text, "  %1", entry);
    return text;
}

} // namespace SystemInfo
} // namespace velkor
