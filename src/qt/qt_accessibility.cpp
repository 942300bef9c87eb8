#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtGui/QAccessible>

namespace velkor {
namespace SystemInfo {

QString qtAccessibility()
{
    return QStringLiteral("Qt Accessibility") + newline
        + QStringLiteral("QAccessible::isActive() = %1").arg(int(QAccessible::isActive())) + newline;
}

} // namespace SystemInfo
} // namespace velkor
