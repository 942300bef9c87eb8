#include "report/text.h"
#include "win/registry_key.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

struct DriverValue
{
    const wchar_t *name;
    const char *format;
};

constexpr DriverValue driverValues[] = {
    {L"DriverDesc", "   Driver Description: %1"},
    {L"DriverVersion", "   Driver Version:     %1"},
    {L"DriverDate", "   Driver Date:        %1"},
    {L"ProviderName", "   Provider Name:      %1"},
    {L"MatchingDeviceId", "   Matching Device ID: %1"},
    {L"InfPath", "   InfPath:            %1"},
    {L"InfSection", "   InfSection:         %1"},
    {L"InfSectionExt", "   InfSectionExt:      %1"},
};

struct PropertyValue
{
    const char *name;
    const char *format;
};

constexpr PropertyValue propertyValues[] = {
    {"DeviceType", "   Device Type:             %1 = 0x%2"},
    {"DeviceCharacteristics", "   Device Characteristics:  %1 = 0x%2"},
};

QString rule()
{
    return QStringLiteral("----------------------------") + newline;
}

void appendDriverLines(QString &text, HKEY key)
{
    for (const DriverValue &value : driverValues) {
        WideTextBuffer buffer;
        if (buffer.query(key, value.name))
            appendLine(text, value.format, buffer.view());
    }
}

void appendPropertyLines(QString &text, HKEY key)
{
    NumberBuffer number; // Quirk: both values share it; a short second one keeps bytes of the first.
    for (const PropertyValue &value : propertyValues) {
        if (number.query(key, value.name))
            append(text, QString::fromLatin1(value.format).arg(number.value()).arg(number.value(), 0, 16) + newline);
    }
}

/// Compares the bytes of the wide name, of which a name in Latin letters shows the
/// first one only: "Properties" itself never is one. The report's format.
bool isProperties(const wchar_t *name)
{
    return qstricmp(reinterpret_cast<const char *>(name), "Properties") == 0;
}

constexpr DWORD nameBufferSize = 1024; // in units

struct NameBuffer
{
    bool enumerate(HKEY key, DWORD index)
    {
        DWORD size = nameBufferSize;
        return RegEnumKeyExW(key, index, units, &size, nullptr, nullptr, nullptr, nullptr) == LSTATUS(ERROR_SUCCESS);
    }

    wchar_t units[nameBufferSize] = {};
};

/// Appends the drivers of a class, an empty line between two that wrote something.
void appendDriverBlocks(QString &text, const RegistryKey &deviceClass, const QString &classPath)
{
    bool wroteLine = false;
    NameBuffer name;
    for (DWORD i = 0; name.enumerate(deviceClass.get(), i); ++i) {
        const RegistryKey driver(HKEY_LOCAL_MACHINE,
                                 classPath + QStringLiteral("\\") + wideText(name.units, nameBufferSize));
        if (!driver)
            continue;
        if (wroteLine)
            append(text, newline);
        const bool properties = isProperties(name.units);
        if (properties)
            append(text, QStringLiteral("   Properties") + newline);
        const int size = text.size();
        if (properties)
            appendPropertyLines(text, driver.get());
        else
            appendDriverLines(text, driver.get());
        wroteLine = text.size() > size;
    }
}

void appendClassBlock(QString &text, const RegistryKey &deviceClass, const QString &classPath)
{
    WideTextBuffer buffer;
    if (!buffer.query(deviceClass.get(), L"Class"))
        return;
    appendLine(text, "%1:", buffer.view());
    appendDriverBlocks(text, deviceClass, classPath);
    append(text, rule());
}

} // namespace

QString driverInfoFromRegistry()
{
    QString text = QStringLiteral(">>> Info about drivers from registry:") + newline + newline;
    const QString path = QStringLiteral("SYSTEM\\CurrentControlSet\\Control\\Class");
    const RegistryKey classes(HKEY_LOCAL_MACHINE, path);
    if (!classes)
        return text;
    TextBuffer name;
    for (DWORD i = 0; name.enumerateKey(classes.get(), i); ++i) {
        const QString classPath = path + QStringLiteral("\\") + name.text();
        const RegistryKey deviceClass(HKEY_LOCAL_MACHINE, classPath);
        if (!deviceClass)
            continue;
        if (i == 0) // of the enumeration, whether or not that class has a name
            append(text, rule());
        appendClassBlock(text, deviceClass, classPath);
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
