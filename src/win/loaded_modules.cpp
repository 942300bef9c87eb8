#include "report/text.h"
#include "win/registry_key.h"
#include "win/windows_sections.h"

// windows.h must precede psapi.h
#include <psapi.h>

#include <algorithm>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

QStringList loadedModules()
{
    constexpr DWORD maximum = 1024; // Quirk: further modules are not listed.
    HMODULE modules[maximum] = {};
    DWORD needed = 0;
    const HANDLE process = GetCurrentProcess();
    if (!EnumProcessModules(process, modules, sizeof modules, &needed))
        return QStringList();

    QStringList names;
    const DWORD count = std::min<DWORD>(needed / sizeof(HMODULE), maximum);
    for (DWORD i = 0; i < count; ++i) {
        wchar_t name[MAX_PATH] = {};
        if (GetModuleFileNameExW(process, modules[i], name, MAX_PATH))
            names += wideText(name, MAX_PATH);
    }
    return names;
}

QString loadedModulesText()
{
    QString text;
    appendLine(text, QStringLiteral("Loaded modules/DLLs:"));
    const QStringList modules = loadedModules();
    for (const QString &module : modules)
        appendLine(text, module);
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
