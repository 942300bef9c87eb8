#include "qt/qt_network_interfaces.h"
#include "report/text.h"
#include "vkSystemInfo.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace {

/// The sections built from Qt queries, in the report's order. A separator line
/// follows each.
constexpr QString (*qtSections[])() = {
    qtDateTime,
    qtGlobal,
    qtCoreApplication,
    qtLocale,
    qtScreens,
    qtDesktop,
    qtDesktopServices,
    qtAccessibility,
    qtPrinterInfo,
    qtHostInfo,
    qtNetworkInterfaces,
    qtSystemEnvironment,
};

QString openGLSection()
{
    ScanOpenGLInfo scan(nullptr);
    QString info;
    scan.GetOpenGLInfo(info);
    return info;
}

} // namespace

QString allInfos(bool noOpenGL)
{
    QString report = WinSysInfo::allWinInfos(); // ends with a separator line of its own
    append(report, QStringLiteral("###### System informations retrieved using Qt #######") + newline);
    for (const auto section : qtSections) {
        appendSection(report, section());
        append(report, separator());
    }
    if (!noOpenGL) {
        appendSection(report, openGLSection());
        append(report, separator());
    }
    return report;
}

} // namespace SystemInfo
} // namespace velkor
