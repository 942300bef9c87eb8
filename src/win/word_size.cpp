#include "report/text.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

QString wordSize()
{
    static_assert(QT_POINTER_SIZE == 8, "the report has a text for 64-bit builds only");
    QString text;
    appendLine(text, QStringLiteral("This is a 64bit application."));
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
