#include "win/installer_products.h"

#include "report/text.h"
#include "win/value_lines.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr TextValue hexadecimalValues[] = {
    {"AdvertiseFlags", "AdvertiseFlags: 0x%1"},
    {"Assignment", "Assignment: 0x%1"},
    {"DeploymentFlags", "DeploymentFlags: 0x%1"},
    {"InstanceType", "InstanceType: 0x%1"},
    {"Language", "Language: 0x%1"},
};

void appendFreshTextLine(QString &text, HKEY key, const TextValue &value)
{
    TextBuffer buffer;
    appendTextLine(text, key, value, buffer);
}

QString versionLine(HKEY key)
{
    NumberBuffer version;
    if (!version.query(key, "Version"))
        return QString();
    const quint32 value = version.value();
    return QStringLiteral("Version: %1.%2.%3 (raw value 0x%4)")
               .arg(value >> 24)
               .arg(value >> 16 & 0xff)
               .arg(value & 0xffff)
               .arg(value, 0, 16)
        + newline;
}

void appendHexadecimalLine(QString &text, HKEY key, const TextValue &value)
{
    NumberBuffer number;
    if (number.query(key, value.name))
        appendLine(text, value.format, QString::number(number.value(), 16));
}

} // namespace

void installerProductValues(HKEY productKey, QString &text)
{
    appendFreshTextLine(text, productKey, {"ProductName", "ProductName: %1"});
    append(text, versionLine(productKey));
    for (const TextValue &value : hexadecimalValues)
        appendHexadecimalLine(text, productKey, value);
    appendFreshTextLine(text, productKey, {"PackageCode", "PackageCode: %1"});
}

void forEachProduct(HKEY root, const QString &path,
                    const std::function<void(HKEY, const TextBuffer &)> &visit)
{
    const RegistryKey products(root, path);
    if (!products)
        return;
    TextBuffer name;
    for (DWORD i = 0; name.enumerateKey(products.get(), i); ++i) {
        const RegistryKey product(root, path + QStringLiteral("\\") + name.text());
        if (!product)
            continue;
        TextBuffer productName;
        if (productName.query(product.get(), "ProductName"))
            visit(product.get(), productName);
    }
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
