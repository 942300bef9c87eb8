#include "registry_tree.h"

#include <QtCore/QStringList>
#include <algorithm>

namespace machine {

QString upperCased(const QString &name)
{
    QString result = name;
    for (QChar &unit : result) {
        const QChar upper = unit.toUpper();
        if (upper.toLower() == unit)
            unit = upper;
    }
    return result;
}

const RegistryValue *RegistryKey::findValue(const QString &name) const
{
    const QString wanted = upperCased(name);
    const auto found = std::find_if(m_values.begin(), m_values.end(), [&](const RegistryValue &value) {
        return value.name.size() == name.size() && upperCased(value.name) == wanted;
    });
    return found == m_values.end() ? nullptr : &*found;
}

void RegistryKey::setValue(const RegistryValue &value)
{
    if (auto *known = const_cast<RegistryValue *>(findValue(value.name))) {
        known->type = value.type;
        known->data = value.data;
        return;
    }
    m_values.push_back(value);
}

bool RegistryKey::removeValue(const QString &name)
{
    const RegistryValue *known = findValue(name);
    if (!known)
        return false;
    m_values.erase(m_values.begin() + (known - m_values.data()));
    return true;
}

std::shared_ptr<RegistryKey> RegistryKey::subKeyAt(std::size_t index) const
{
    if (index >= m_subKeys.size())
        return {};
    if (m_ordered.size() != m_subKeys.size()) {
        m_ordered.clear();
        for (const auto &entry : m_subKeys)
            m_ordered.push_back(entry.second);
    }
    return m_ordered[index].lock();
}

std::shared_ptr<RegistryKey> RegistryKey::findSubKey(const QString &name) const
{
    const auto found = m_subKeys.find(upperCased(name));
    return found == m_subKeys.end() ? nullptr : found->second;
}

std::shared_ptr<RegistryKey> RegistryKey::createSubKey(const QString &name)
{
    auto &entry = m_subKeys[upperCased(name)];
    if (!entry) {
        entry = std::make_shared<RegistryKey>(name);
        m_ordered.clear();
    }
    return entry;
}

bool RegistryKey::removeSubKey(const QString &name)
{
    m_ordered.clear();
    return m_subKeys.erase(upperCased(name)) > 0;
}

Registry::Registry()
{
    const char *const names[] = {"HKEY_CLASSES_ROOT", "HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE", "HKEY_USERS"};
    for (int i = 0; i < 4; ++i)
        m_roots[i] = std::make_shared<RegistryKey>(QLatin1String(names[i]));
}

const std::shared_ptr<RegistryKey> &Registry::root(RegistryRoot root) const
{
    return m_roots[static_cast<int>(root)];
}

std::vector<std::shared_ptr<RegistryKey>> Registry::roots() const
{
    return {root(RegistryRoot::LocalMachine), root(RegistryRoot::CurrentUser), root(RegistryRoot::ClassesRoot),
            root(RegistryRoot::Users)};
}

std::shared_ptr<RegistryKey> findKey(const std::shared_ptr<RegistryKey> &key, const QString &path)
{
    std::shared_ptr<RegistryKey> current = key;
    const QStringList names = path.split(QLatin1Char('\\'), Qt::SkipEmptyParts);
    for (const QString &name : names) {
        current = current->findSubKey(name);
        if (!current)
            break;
    }
    return current;
}

std::shared_ptr<RegistryKey> createKey(const std::shared_ptr<RegistryKey> &key, const QString &path)
{
    std::shared_ptr<RegistryKey> current = key;
    const QStringList names = path.split(QLatin1Char('\\'), Qt::SkipEmptyParts);
    for (const QString &name : names)
        current = current->createSubKey(name);
    return current;
}

bool isDenied(const std::shared_ptr<RegistryKey> &key, const QString &path)
{
    std::shared_ptr<RegistryKey> current = key;
    const QStringList names = path.split(QLatin1Char('\\'), Qt::SkipEmptyParts);
    for (const QString &name : names) {
        if (!current || current->isDenied())
            break;
        current = current->findSubKey(name);
    }
    return current && current->isDenied();
}

std::shared_ptr<RegistryKey> createKey(const Registry &registry, const QString &wholePath)
{
    const QString rootName = upperCased(wholePath.section(QLatin1Char('\\'), 0, 0));
    for (const auto &root : registry.roots()) {
        if (root->name() == rootName)
            return createKey(root, wholePath.section(QLatin1Char('\\'), 1));
    }
    return nullptr;
}

} // namespace machine
