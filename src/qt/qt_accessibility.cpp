#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtGui/QAccessible>

namespace velkor {
namespace SystemInfo {

QString qtAccessibility()
{
    QString text;
    appendLine(text, QStringLiteral("Qt Accessibility"));
    appendLine(text, QStringLiteral("QAccessible::isActive() = %1").arg(int(QAccessible::isActive())));
    return text;
}

} // namespace SystemInfo
} // namespace velkor
