#include "win/installer_products.h"

#include "report/text.h"
#include "win/value_lines.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr Value productName = {"ProductName", "ProductName: %1"};
constexpr const char *versionValue = "Version";
constexpr Value packageCode = {"PackageCode", "PackageCode: %1"};

constexpr Value hexadecimalValues[] = {
    {"AdvertiseFlags", "AdvertiseFlags: 0x%1"},
    {"Assignment", "Assignment: 0x%1"},
    {"DeploymentFlags", "DeploymentFlags: 0x%1"},
    {"InstanceType", "InstanceType: 0x%1"},
    {"Language", "Language: 0x%1"},
};

void appendFreshTextLine(QString &text, HKEY key, const Value &value)
{
    TextBuffer buffer;
    appendTextLine(text, key, value, buffer);
}

/// Windows Installer packs a version as 8 bits major, 8 bits minor and 16 bits build.
void appendVersionLine(QString &text, HKEY key)
{
    NumberBuffer version;
    if (!version.query(key, versionValue))
        return;
    const quint32 value = version.value();
    const QString line = QStringLiteral("Version: %1.%2.%3 (raw value 0x%4)")
                             .arg(value >> 24)
                             .arg(value >> 16 & 0xff)
                             .arg(value & 0xffff)
                             .arg(value, 0, 16);
    appendLine(text, line);
}

void appendHexadecimalLine(QString &text, HKEY key, const Value &value)
{
    NumberBuffer number;
    if (number.query(key, value.name))
        appendLine(text, value.format, QString::number(number.value(), 16));
}

} // namespace

RegistryReads productReads(HKEY root, const QString &path)
{
    QStringList values = valueNames(hexadecimalValues);
    for (const char *name : {productName.name, versionValue, packageCode.name})
        values += QString::fromLatin1(name);
    return {{root, path, {}}, {root, path + QStringLiteral("\\*"), values}};
}

void installerProductValues(HKEY productKey, QString &text)
{
    appendFreshTextLine(text, productKey, productName);
    appendVersionLine(text, productKey);
    for (const Value &value : hexadecimalValues)
        appendHexadecimalLine(text, productKey, value);
    appendFreshTextLine(text, productKey, packageCode);
}

void forEachProduct(HKEY root, const QString &path,
                    const std::function<void(HKEY, const TextBuffer &)> &visit)
{
    const RegistryKey products = openKey(root, path);
    if (!products)
        return;
    TextBuffer name;
    for (DWORD i = 0; name.enumerateKey(products.get(), i); ++i) {
        const RegistryKey product = openKey(root, path + QStringLiteral("\\") + name.text());
        if (!product)
            continue;
        TextBuffer nameOfProduct;
        if (nameOfProduct.query(product.get(), productName.name))
            visit(product.get(), nameOfProduct);
    }
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
