#include "report/text.h"
#include "win/installer_products.h"
#include "win/windows_sections.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr const char *tools[] = {"M4-M8-vkUpdate", "Device Flasher", "T-BOX-vkUpdate"};

bool isTool(const char *productName)
{
    return std::any_of(std::begin(tools), std::end(tools),
                       [=](const char *tool) { return std::strcmp(productName, tool) == 0; });
}

QString productsPath()
{
    return QStringLiteral("Software\\Microsoft\\Installer\\Products");
}

} // namespace

RegistryReads visualBasicApplicationReads()
{
    return productReads(HKEY_CURRENT_USER, productsPath());
}

QString installedVisualBasicApplications()
{
    QString text;
    appendLine(text, QStringLiteral(">>> Info about installed Velkor Visual Basic applications from registry:"));
    appendLine(text, QString());
    forEachProduct(HKEY_CURRENT_USER, productsPath(), [&](HKEY key, const TextBuffer &name) {
        if (!isTool(name.data()))
            return;
        installerProductValues(key, text);
        appendLine(text, QString());
    });
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
