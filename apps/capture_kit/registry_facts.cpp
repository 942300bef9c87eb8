#include "registry_facts.h"

#include "redaction/loose_texts.h"
#include "registry_root.h"
#include "report/section_table.h"

#include <QtCore/QHash>
#include <algorithm>
#include <array>
#include <cstring>

using machine::RegistryRoot;
using machine::upperCased;
using velkor::Reports::factRow;

namespace {

/// A value whose fact says what the text is.
struct TellingValue
{
    const char *section;
    const char *value;
    const char *item;
    const char *key;
};

constexpr TellingValue tellingValues[] = {
    {"windowsVersionFromRegistry", "PRODUCTID", "", "productId"},
    {"windowsVersionFromRegistry", "PATHNAME", "", "pathName"},
    {"windowsVersionFromRegistry", "PRODUCTNAME", "", "productName"},
    {"windowsVersionFromRegistry", "REGISTEREDOWNER", "", "registeredOwner"},
    {"windowsVersionFromRegistry", "REGISTEREDORGANIZATION", "", "registeredOrganization"},
    {"installedApplicationsFromRegistry", "PRODUCTNAME", "product", "productName"},
    {"installedVisualBasicApplications", "PRODUCTNAME", "product", "productName"},
    {"diskDevicesFromRegistry", "FRIENDLYNAME", "instance", "friendlyName"},
    {"diskDevicesFromRegistry", "HARDWAREID", "instance", "hardwareId"},
};

constexpr const char devices[] = "diskDevicesFromRegistry";

struct Telling
{
    const TellingValue *value;
    int row;
};

/// The telling values by their upper-cased names.
const QMultiHash<QString, Telling> &tellingNames()
{
    static const QMultiHash<QString, Telling> names = [] {
        QMultiHash<QString, Telling> all;
        for (const TellingValue &value : tellingValues)
            all.insert(QLatin1String(value.value), {&value, factRow(value.section, value.item, value.key)});
        return all;
    }();
    return names;
}

/// Sections that read by W calls; all others use A calls.
bool isWide(const QString &section)
{
    return section == QLatin1String("driverInfoFromRegistry") || section == QLatin1String("videoInfoFromRegistry");
}

void add(ReadKey &root, const velkor::SystemInfo::RegistryRead &read, const QString &section)
{
    ReadKey *key = &root;
    const QStringList names = read.path.split(QLatin1Char('\\'), Qt::SkipEmptyParts);
    for (const QString &name : names) {
        if (name != QLatin1String("*")) {
            key = &key->below[upperCased(name)];
            continue;
        }
        key->sections.insert(section);
        if (!key->any)
            key->any = std::make_unique<ReadKey>();
        key = key->any.get();
    }
    ReadKey::Read values;
    values.section = section;
    values.allValues = read.values == QStringList(QStringLiteral("*"));
    for (const QString &name : read.values) {
        if (!name.contains(QLatin1Char('\\'))) // a path is made of the name of a folder
            values.values.insert(upperCased(name));
    }
    key->reads.push_back(values);
}

std::array<ReadKey, 4> makeReads()
{
    std::array<ReadKey, 4> roots;
    for (const velkor::SystemInfo::Section &section : velkor::SystemInfo::SectionTable()) {
        if (!section.reads)
            continue;
        const QString name = QString::fromLatin1(section.name).section(QLatin1Char(':'), 0, 0);
        for (const velkor::SystemInfo::RegistryRead &read : section.reads())
            add(roots[std::size_t(rootOf(read.root))], read, name);
    }
    return roots;
}

} // namespace

KnownKey KnownKey::subKey(const QString &name) const
{
    const QString upper = upperCased(name);
    KnownKey known;
    known.m_isBelowDevice = m_isBelowDevice;
    for (const ReadKey *key : m_keys) {
        const auto found = key->below.find(upper);
        if (found != key->below.end())
            known.m_keys.push_back(&found->second);
        if (key->any)
            known.m_keys.push_back(key->any.get());
        known.m_isBelowDevice = known.m_isBelowDevice || key->sections.contains(QLatin1String(devices));
    }
    return known;
}

bool KnownKey::isFixed(const QString &subKeyName) const
{
    const QString upper = upperCased(subKeyName);
    return std::any_of(m_keys.begin(), m_keys.end(), [&upper](const ReadKey *key) { return key->below.count(upper) > 0; });
}

ShownFact KnownKey::factOfSubKeys() const
{
    static const int device = factRow(devices, "device", "name");
    ShownFact fact {m_isBelowDevice ? device : neutralRow(), false};
    for (const ReadKey *key : m_keys) {
        if (key->sections.contains(QLatin1String(devices)))
            fact.row = device;
        fact.isAnsi = fact.isAnsi || !std::all_of(key->sections.begin(), key->sections.end(), isWide);
    }
    return fact;
}

bool KnownKey::isFixedValue(const QString &valueName) const
{
    const QString upper = upperCased(valueName);
    const auto names = [&upper](const ReadKey::Read &read) { return read.values.contains(upper) && !read.allValues; };
    return valueName.isEmpty() || std::any_of(m_keys.begin(), m_keys.end(), [&names](const ReadKey *key) {
               return std::any_of(key->reads.begin(), key->reads.end(), names);
           });
}

ShownFact KnownKey::factOfValueNames() const
{
    ShownFact fact {neutralRow(), false};
    for (const ReadKey *key : m_keys) {
        for (const ReadKey::Read &read : key->reads)
            fact.isAnsi = fact.isAnsi || (read.allValues && !isWide(read.section));
    }
    return fact;
}

ShownFact KnownKey::factOfValue(const QString &valueName) const
{
    const QString upper = upperCased(valueName);
    const QList<Telling> telling = tellingNames().values(upper);
    ShownFact fact;
    for (const ReadKey *key : m_keys) {
        for (const ReadKey::Read &read : key->reads) {
            if (!read.allValues && !read.values.contains(upper))
                continue;
            fact.isAnsi = fact.isAnsi || !isWide(read.section);
            for (const Telling &value : telling) {
                if (read.section == QLatin1String(value.value->section))
                    fact.row = value.row;
            }
        }
    }
    if (fact.row < 0 && !fact.isAnsi) { // the same values in other keys
        for (const Telling &value : telling) {
            if (std::strcmp(value.value->section, "windowsVersionFromRegistry") == 0 && upper.startsWith(QLatin1String("REGISTERED")))
                fact.row = value.row;
        }
    }
    if (fact.row < 0)
        fact.row = neutralRow();
    return fact;
}

const ReadKey &readsBelow(RegistryRoot root)
{
    static const std::array<ReadKey, 4> roots = makeReads();
    return roots[std::size_t(root)];
}

int neutralRow()
{
    static const int row = factRow("driverInfoFromRegistry", "driver", "driverDescription");
    return row;
}
