#include "report/text.h"
#include "win/value_lines.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr WideValue driverValues[] = {
    {L"DriverDesc", "   Driver Description: %1"},
    {L"DriverVersion", "   Driver Version:     %1"},
    {L"DriverDate", "   Driver Date:        %1"},
    {L"ProviderName", "   Provider Name:      %1"},
    {L"MatchingDeviceId", "   Matching Device ID: %1"},
    {L"InfPath", "   InfPath:            %1"},
    {L"InfSection", "   InfSection:         %1"},
    {L"InfSectionExt", "   InfSectionExt:      %1"},
};

constexpr Value propertyValues[] = {
    {"DeviceType", "   Device Type:             %1 = 0x%2"},
    {"DeviceCharacteristics", "   Device Characteristics:  %1 = 0x%2"},
};

constexpr const wchar_t *classValue = L"Class";

QString classesPath()
{
    return QStringLiteral("SYSTEM\\CurrentControlSet\\Control\\Class");
}

void appendRule(QString &text)
{
    appendLine(text, QStringLiteral("----------------------------"));
}

void appendDriverLines(QString &text, HKEY key)
{
    for (const WideValue &value : driverValues) {
        WideTextBuffer buffer;
        if (buffer.query(key, value.name))
            appendLine(text, value.format, buffer.view());
    }
}

void appendPropertyLines(QString &text, HKEY key)
{
    NumberBuffer number; // Quirk: both values share it; a short second one keeps bytes of the first.
    for (const Value &value : propertyValues)
        appendNumberLine(text, key, value, number);
}

/// Quirk: compares the wide name as char. Of a name in Latin letters only the first letter
/// counts, so "Properties" itself never matches.
bool isProperties(const wchar_t *name)
{
    return qstricmp(reinterpret_cast<const char *>(name), "Properties") == 0;
}

/// Appends the drivers of a class. An empty line follows each driver that has lines and
/// is not the last.
void appendDriverBlocks(QString &text, HKEY deviceClass, const QString &classPath)
{
    bool wroteLine = false;
    WideNameBuffer name;
    for (DWORD i = 0; name.enumerateKey(deviceClass, i); ++i) {
        const RegistryKey driver = openKey(HKEY_LOCAL_MACHINE, classPath + QStringLiteral("\\") + name.text());
        if (!driver)
            continue;
        if (wroteLine)
            appendLine(text, QString());
        const bool properties = isProperties(name.data());
        if (properties)
            appendLine(text, QStringLiteral("   Properties"));
        const int size = text.size();
        if (properties)
            appendPropertyLines(text, driver.get());
        else
            appendDriverLines(text, driver.get());
        wroteLine = text.size() > size;
    }
}

void appendClassBlock(QString &text, HKEY deviceClass, const QString &classPath)
{
    WideTextBuffer buffer;
    if (!buffer.query(deviceClass, classValue))
        return;
    appendLine(text, "%1:", buffer.view());
    appendDriverBlocks(text, deviceClass, classPath);
    appendRule(text);
}

} // namespace

RegistryReads driverReads()
{
    const QString deviceClass = classesPath() + QStringLiteral("\\*");
    const QStringList values = valueNames(driverValues) + valueNames(propertyValues);
    return {{HKEY_LOCAL_MACHINE, classesPath(), {}},
            {HKEY_LOCAL_MACHINE, deviceClass, {QString::fromWCharArray(classValue)}},
            {HKEY_LOCAL_MACHINE, deviceClass + QStringLiteral("\\*"), values}};
}

QString driverInfoFromRegistry()
{
    QString text;
    appendLine(text, QStringLiteral(">>> Info about drivers from registry:"));
    appendLine(text, QString());
    const QString path = classesPath();
    const RegistryKey classes = openKey(HKEY_LOCAL_MACHINE, path);
    if (!classes)
        return text;
    TextBuffer name;
    for (DWORD i = 0; name.enumerateKey(classes.get(), i); ++i) {
        const QString classPath = path + QStringLiteral("\\") + name.text();
        const RegistryKey deviceClass = openKey(HKEY_LOCAL_MACHINE, classPath);
        if (!deviceClass)
            continue;
        if (i == 0) // Quirk: if the first class cannot be opened, no rule precedes the list.
            appendRule(text);
        appendClassBlock(text, deviceClass.get(), classPath);
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
