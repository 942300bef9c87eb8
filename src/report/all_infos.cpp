#include "report/section_table.h"
#include "report/text.h"
#include "vkSystemInfo.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {

// Quirk: "informations" is not an English word.
QString allInfos(bool noOpenGL)
{
    QString report = WinSysInfo::allWinInfos();
    appendLine(report, QStringLiteral("###### System informations retrieved using Qt #######"));
    appendSections(report, Part::Qt);
    if (!noOpenGL)
        appendSections(report, Part::OpenGL);
    return report;
}

} // namespace SystemInfo
} // namespace velkor
