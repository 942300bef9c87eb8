#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtCore/QStandardPaths>

namespace velkor {
namespace SystemInfo {
namespace {

struct Location
{
    QStandardPaths::StandardLocation location;
    const char *path; // format of the line
    const char *displayName;
};

constexpr Location locations[] = {
    {QStandardPaths::DesktopLocation, "Desktop:                   %1", "Desktop [displayName]      %1"},
    {QStandardPaths::DocumentsLocation, "Documents:                 %1", "Documents [displayName]    %1"},
    {QStandardPaths::HomeLocation, "Home:                      %1", "Home [displayName]         %1"},
    {QStandardPaths::DataLocation, "Data:                      %1", "Data [displayName]         %1"},
    {QStandardPaths::TempLocation, "Temp:                      %1", "Temp [displayName]         %1"},
    {QStandardPaths::ApplicationsLocation, "Applications:              %1", "Applications [displayName] %1"},
    {QStandardPaths::FontsLocation, "Fonts:                     %1", "Fonts [displayName]        %1"},
};

} // namespace

// Quirk: the title names the predecessor of QStandardPaths, and the line "HomeLocation" has no
// content.
QString qtDesktopServices()
{
    QString text;
    appendLine(text, QStringLiteral("QDesktopServices"));
    appendLine(text, QStringLiteral("HomeLocation"));
    for (const Location &row : locations) {
        appendLine(text, row.path, QStandardPaths::writableLocation(row.location));
        appendLine(text, row.displayName, QStandardPaths::displayName(row.location));
    }
    return text;
}

} // namespace SystemInfo
} // namespace velkor
