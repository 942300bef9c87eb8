#include "report/text.h"
#include "vkSystemInfo.h"

QString velkor::SystemInfo::separator()
{
    constexpr int width = 72;
    return QString(width, QLatin1Char('-')) + newline;
}
