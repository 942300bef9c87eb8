#include "report/text.h"
#include "win/value_lines.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

// "HardwareID" is a multi-string; its first string is shown.
constexpr Value instanceValues[] = {
    {"Class", "   Class:               %1"},
    {"DeviceDesc", "   Device Description:  %1"},
    {"FriendlyName", "   Friendly Name:       %1"},
    {"LocationInformation", "   LocationInformation: %1"},
    {"HardwareID", "   Hardware ID:         %1"},
    {"Service", "   Service:             %1"},
};

QString enumeratorPath(const QString &enumeratorName)
{
    return QStringLiteral("SYSTEM\\CurrentControlSet\\Enum\\") + enumeratorName;
}

/// Appends the instances of a device. Quirk: names and values share \a buffer.
void appendInstanceBlocks(QString &text, HKEY device, const QString &devicePath, TextBuffer &buffer)
{
    for (DWORD i = 0; buffer.enumerateKey(device, i); ++i) {
        const RegistryKey instance = openKey(HKEY_LOCAL_MACHINE, devicePath + QStringLiteral("\\") + buffer.text());
        if (!instance)
            continue;
        appendTextLines(text, instance.get(), instanceValues, buffer);
        appendLine(text, QString());
    }
}

} // namespace

RegistryReads diskDeviceReads(const QString &enumeratorName)
{
    const QString path = enumeratorPath(enumeratorName);
    return {{HKEY_LOCAL_MACHINE, path, {}},
            {HKEY_LOCAL_MACHINE, path + QStringLiteral("\\*"), {}},
            {HKEY_LOCAL_MACHINE, path + QStringLiteral("\\*\\*"), valueNames(instanceValues)}};
}

QString diskDevicesFromRegistry(const QString &enumeratorName)
{
    QString text;
    appendLine(text, ">>> Info about '%1' disk devices from registry:", enumeratorName);
    const QString path = enumeratorPath(enumeratorName);
    const RegistryKey enumerator = openKey(HKEY_LOCAL_MACHINE, path);
    if (!enumerator)
        return text;
    TextBuffer buffer;
    for (DWORD i = 0; buffer.enumerateKey(enumerator.get(), i); ++i) {
        const QString name = buffer.text();
        appendLine(text, name);
        const QString devicePath = path + QStringLiteral("\\") + name;
        const RegistryKey device = openKey(HKEY_LOCAL_MACHINE, devicePath);
        if (!device)
            continue;
        appendInstanceBlocks(text, device.get(), devicePath, buffer);
        appendLine(text, QString());
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
