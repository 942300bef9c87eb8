#include "report/text.h"
#include "win/registry_key.h"
#include "win/value_lines.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr TextValue textValues[] = {
    {"ProcessorNameString", "ProcessorNameString:  %1"},
    {"VendorIdentifier", "VendorIdentifier:     %1"},
    {"Identifier", "Identifier:           %1"},
    {"MMXIdentifier", "MMXIdentifier:        %1"},
};

QString frequencyLine(quint32 megahertz)
{
    QString text = QStringLiteral("MHZ:                  %1 MHz").arg(megahertz);
    if (megahertz >= 1000) {
        text += QStringLiteral(" = %1.%2 GHz")
                    .arg(megahertz / 1000)
                    .arg(megahertz % 1000, 3, 10, QLatin1Char('0'));
    }
    return text + newline;
}

QString processorBlock(HKEY key, int index)
{
    QString text = QStringLiteral("Processor #%1").arg(index) + newline;
    for (const TextValue &value : textValues) {
        TextBuffer buffer;
        appendTextLine(text, key, value, buffer);
    }
    NumberBuffer megahertz;
    if (megahertz.query(key, "~MHZ"))
        text += frequencyLine(megahertz.value());
    NumberBuffer features;
    if (features.query(key, "FeatureSet"))
        text += QStringLiteral("FeatureSet:           0x%1").arg(features.value(), 0, 16) + newline;
    return text;
}

} // namespace

QString processorRegistryInfo()
{
    constexpr int lastIndex = 255;
    QString text = QStringLiteral("Central Processor information from Registry") + newline;
    for (int i = 0; i <= lastIndex; ++i) {
        const RegistryKey key(HKEY_LOCAL_MACHINE,
                              QStringLiteral("Hardware\\Description\\System\\CentralProcessor") + QStringLiteral("\\%1").arg(i));
        if (!key)
            break;
        text += processorBlock(key.get(), i);
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
