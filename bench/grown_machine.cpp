#include "grown_machine.h"
#include "copy_key.h"

#include <algorithm>

namespace bench {
namespace {

using machine::Machine;
using machine::RegistryKey;
using machine::RegistryRoot;
using KeyPointer = std::shared_ptr<RegistryKey>;

std::vector<KeyPointer> subKeys(const RegistryKey &key)
{
    std::vector<KeyPointer> keys;
    for (std::size_t i = 0; i < key.subKeyCount(); ++i)
        keys.push_back(key.subKeyAt(i));
    return keys;
}

/// Each sub-key as often as \a factor says. The copies' names end with their number,
/// which takes the place of as many letters, so that all are of one length.
std::size_t multiplySubKeys(const KeyPointer &parent, std::size_t factor)
{
    const std::vector<KeyPointer> originals = parent ? subKeys(*parent) : std::vector<KeyPointer>();
    for (const KeyPointer &original : originals) {
        for (std::size_t i = 1; i < factor; ++i) {
            const QString number = QStringLiteral("%1").arg(i, 3, 10, QLatin1Char('0'));
            const QString start = original->name().size() > 8 ? original->name().chopped(3) : original->name();
            copyKey(*original, *parent->createSubKey(start + number));
        }
    }
    return parent ? parent->subKeyCount() : 0;
}

KeyPointer machineKey(const Machine &machine, const QString &path)
{
    return machine::findKey(machine.registry.root(RegistryRoot::LocalMachine), path);
}

KeyPointer classesKey(const Machine &machine)
{
    return machineKey(machine, QStringLiteral("SYSTEM\\CurrentControlSet\\Control\\Class"));
}

std::size_t growClasses(Machine &machine, std::size_t factor)
{
    return multiplySubKeys(classesKey(machine), factor);
}

std::size_t growDrivers(Machine &machine, std::size_t factor)
{
    std::size_t count = 0;
    for (const KeyPointer &deviceClass : subKeys(*classesKey(machine)))
        count += multiplySubKeys(deviceClass, factor);
    return count;
}

std::size_t growDevices(Machine &machine, std::size_t factor)
{
    const QString enumerators = QStringLiteral("SYSTEM\\CurrentControlSet\\Enum\\");
    return multiplySubKeys(machineKey(machine, enumerators + QStringLiteral("SCSI")), factor)
        + multiplySubKeys(machineKey(machine, enumerators + QStringLiteral("USBSTOR")), factor);
}

std::size_t growProducts(Machine &machine, std::size_t factor)
{
    const QString products = QStringLiteral("Installer\\Products");
    const auto &registry = machine.registry;
    return multiplySubKeys(machine::findKey(registry.root(RegistryRoot::ClassesRoot), products), factor)
        + multiplySubKeys(machine::findKey(registry.root(RegistryRoot::CurrentUser),
                                           QStringLiteral("Software\\Microsoft\\") + products),
                          factor);
}

std::size_t growDisplayAdapters(Machine &machine, std::size_t factor)
{
    return multiplySubKeys(machineKey(machine, QStringLiteral("SYSTEM\\CurrentControlSet\\Control\\Video")), factor);
}

/// Repeats a list, \a maximum items at most.
template <typename List>
std::size_t repeat(List &list, std::size_t factor, std::size_t maximum)
{
    const List original = list;
    const std::size_t wanted = std::min(factor * original.size(), maximum);
    while (list.size() < wanted)
        list.push_back(original[list.size() % original.size()]);
    return list.size();
}

std::size_t growNetworkAdapters(Machine &machine, std::size_t factor)
{
    return repeat(*machine.system.GetAdaptersInfo.value, factor, 100000);
}

std::size_t growModules(Machine &machine, std::size_t factor)
{
    constexpr std::size_t maximum = 1024;
    return repeat(*machine.system.EnumProcessModules.value, factor, maximum);
}

std::size_t growAll(Machine &machine, std::size_t factor)
{
    std::size_t count = 0;
    for (const auto grow : {growClasses, growDevices, growProducts, growDisplayAdapters, growNetworkAdapters})
        count += grow(machine, factor);
    return count;
}

} // namespace

const std::vector<GrowthKind> &growthKinds()
{
    static const std::vector<GrowthKind> kinds = {
        {"classes", growClasses},
        {"drivers", growDrivers},
        {"devices", growDevices},
        {"products", growProducts},
        {"display adapters", growDisplayAdapters},
        {"network adapters", growNetworkAdapters},
        {"modules", growModules},
        {"all", growAll},
    };
    return kinds;
}

} // namespace bench
