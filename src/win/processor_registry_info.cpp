#include "report/text.h"
#include "win/value_lines.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr int lastProcessor = 255; // Quirk: further processors have no block.

constexpr Value textValues[] = {
    {"ProcessorNameString", "ProcessorNameString:  %1"},
    {"VendorIdentifier", "VendorIdentifier:     %1"},
    {"Identifier", "Identifier:           %1"},
    {"MMXIdentifier", "MMXIdentifier:        %1"},
};

void appendFrequency(QString &text, const char *format, quint32 megahertz)
{
    QString line = QString::fromLatin1(format).arg(megahertz);
    if (megahertz >= 1000) {
        line += QStringLiteral(" = %1.%2 GHz")
                    .arg(megahertz / 1000)
                    .arg(megahertz % 1000, 3, 10, QLatin1Char('0'));
    }
    appendLine(text, line);
}

void appendHexadecimal(QString &text, const char *format, quint32 number)
{
    appendLine(text, format, QString::number(number, 16));
}

struct NumberValue : Value
{
    void (*append)(QString &text, const char *format, quint32 number);
};

constexpr NumberValue numberValues[] = {
    {{"~MHZ", "MHZ:                  %1 MHz"}, appendFrequency},
    {{"FeatureSet", "FeatureSet:           0x%1"}, appendHexadecimal},
};

QString processorsPath()
{
    return QStringLiteral("Hardware\\Description\\System\\CentralProcessor");
}

void appendProcessorBlock(QString &text, HKEY key, int index)
{
    appendLine(text, QStringLiteral("Processor #%1").arg(index));
    for (const Value &value : textValues) {
        TextBuffer buffer;
        appendTextLine(text, key, value, buffer);
    }
    for (const NumberValue &value : numberValues) {
        NumberBuffer number;
        if (number.query(key, value.name))
            value.append(text, value.format, number.value());
    }
}

} // namespace

RegistryReads processorReads()
{
    const QStringList values = valueNames(textValues) + valueNames(numberValues);
    return {{HKEY_LOCAL_MACHINE, processorsPath() + QStringLiteral("\\*"), values}};
}

QString processorRegistryInfo()
{
    QString text;
    appendLine(text, QStringLiteral("Central Processor information from Registry"));
    for (int i = 0; i <= lastProcessor; ++i) {
        const RegistryKey key = openKey(HKEY_LOCAL_MACHINE, processorsPath() + QStringLiteral("\\%1").arg(i));
        if (!key)
            break;
        appendProcessorBlock(text, key.get(), i);
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
