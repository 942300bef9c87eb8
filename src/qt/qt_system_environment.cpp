#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtCore/QProcess>

namespace velkor {
namespace SystemInfo {

// "environemnt" is the report's spelling and must stay.
QString qtSystemEnvironment()
{
    QString text = QStringLiteral("System environemnt (QProcess::systemEnvironment()):") + newline;
    const QStringList entries = QProcess::systemEnvironment();
    for (const QString &entry : entries)
        appendLine(text, "  %1", entry);
    return text;
}

} // namespace SystemInfo
} // namespace velkor
