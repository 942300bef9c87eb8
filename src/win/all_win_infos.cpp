#include "report/section_table.h"
#include "report/text.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

QString allWinInfos()
{
    QString text;
    appendLine(text, QStringLiteral("############ Windows specific section ###########"));
    appendSections(text, Part::Windows);
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
