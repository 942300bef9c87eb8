#include "grown_machine.h"
#include "copy_key.h"

#include <algorithm>

namespace bench {
namespace {

using machine::Machine;
using machine::RegistryKey;
using KeyPointer = std::shared_ptr<RegistryKey>;

std::vector<KeyPointer> subKeys(const RegistryKey &key)
{
    std::vector<KeyPointer> keys;
    for (std::size_t i = 0; i < key.subKeyCount(); ++i)
        keys.push_back(key.subKeyAt(i));
    return keys;
}

/// Copies each sub-key. The name of a copy ends with its number in place of as many letters,
/// so that all names have one length.
std::size_t multiplySubKeys(RegistryKey &parent, std::size_t factor)
{
    for (const KeyPointer &original : subKeys(parent)) {
        const QString start = original->name().size() > 8 ? original->name().chopped(3) : original->name();
        for (std::size_t i = 1; i < factor; ++i)
            copyKey(*original, *parent.createSubKey(start + QStringLiteral("%1").arg(i, 3, 10, QLatin1Char('0'))));
    }
    return parent.subKeyCount();
}

constexpr char classes[] = R"(HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Class)";
constexpr char scsi[] = R"(HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\SCSI)";
constexpr char usbStorage[] = R"(HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Enum\USBSTOR)";
constexpr char machineProducts[] = R"(HKEY_CLASSES_ROOT\Installer\Products)";
constexpr char userProducts[] = R"(HKEY_CURRENT_USER\Software\Microsoft\Installer\Products)";
constexpr char video[] = R"(HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet\Control\Video)";

RegistryKey &keyAt(const Machine &machine, const char *path)
{
    return *createKey(machine.registry, QLatin1String(path));
}

template <const char *...Paths>
std::size_t growKeys(Machine &machine, std::size_t factor)
{
    return (multiplySubKeys(keyAt(machine, Paths), factor) + ...);
}

std::size_t growDrivers(Machine &machine, std::size_t factor)
{
    std::size_t count = 0;
    for (const KeyPointer &deviceClass : subKeys(keyAt(machine, classes)))
        count += multiplySubKeys(*deviceClass, factor);
    return count;
}

/// Repeats the items of \a list in their order.
template <typename List>
std::size_t repeat(List &list, std::size_t count)
{
    const std::size_t period = list.size();
    while (list.size() < count)
        list.push_back(typename List::value_type(list[list.size() - period]));
    return list.size();
}

std::size_t growNetworkAdapters(Machine &machine, std::size_t factor)
{
    auto &adapters = *machine.system.GetAdaptersInfo.value;
    return repeat(adapters, factor * adapters.size());
}

std::size_t growModules(Machine &machine, std::size_t factor)
{
    constexpr std::size_t maximum = 1024;
    auto &modules = *machine.system.EnumProcessModules.value;
    return repeat(modules, std::min(factor * modules.size(), maximum));
}

std::size_t growAll(Machine &machine, std::size_t factor)
{
    return growKeys<classes, scsi, usbStorage, machineProducts, userProducts, video>(machine, factor)
        + growNetworkAdapters(machine, factor);
}

} // namespace

const std::vector<GrowthKind> growthKinds = {
    {"classes", growKeys<classes>},
    {"drivers", growDrivers},
    {"devices", growKeys<scsi, usbStorage>},
    {"products", growKeys<machineProducts, userProducts>},
    {"display adapters", growKeys<video>},
    {"network adapters", growNetworkAdapters},
    {"modules", growModules},
    {"all", growAll},
};

} // namespace bench
