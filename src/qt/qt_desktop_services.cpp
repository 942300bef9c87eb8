#include "report/text.h"
#include "vkSystemInfo.h"

#include <QtCore/QStandardPaths>

namespace velkor {
namespace SystemInfo {
namespace {

struct Location
{
    QStandardPaths::StandardLocation location;
    const char *pathLabel;
    const char *displayNameLabel;
};

constexpr Location locations[] = {
    {QStandardPaths::DesktopLocation, "Desktop:                   ", "Desktop [displayName]      "},
    {QStandardPaths::DocumentsLocation, "Documents:                 ", "Documents [displayName]    "},
    {QStandardPaths::HomeLocation, "Home:                      ", "Home [displayName]         "},
    {QStandardPaths::DataLocation, "Data:                      ", "Data [displayName]         "},
    {QStandardPaths::TempLocation, "Temp:                      ", "Temp [displayName]         "},
    {QStandardPaths::ApplicationsLocation, "Applications:              ", "Applications [displayName] "},
    {QStandardPaths::FontsLocation, "Fonts:                     ", "Fonts [displayName]        "},
};

} // namespace

// The title is older than QStandardPaths, and "HomeLocation" heads nothing: the
// report's format.
QString qtDesktopServices()
{
    QString text = QStringLiteral("QDesktopServices") + newline + QStringLiteral("HomeLocation") + newline;
    for (const Location &row : locations) {
        text += QString::fromLatin1(row.pathLabel) + QStandardPaths::writableLocation(row.location) + newline;
        text += QString::fromLatin1(row.displayNameLabel) + QStandardPaths::displayName(row.location) + newline;
    }
    return text;
}

} // namespace SystemInfo
} // namespace velkor
