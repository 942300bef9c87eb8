// A registry in memory: keys, their sub-keys and their values, byte for byte.
//
// Modelled on the registry of Windows NT. Names compare without regard to case,
// by UTF-16 code unit, and keep the spelling they were first given. Sub-keys
// enumerate in the order of their upper-cased names, values in the order in which
// they were first given.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <map>
#include <memory>
#include <vector>

namespace machine {

/// Each code unit in upper case by itself, as Windows NT does it for names: only
/// where the way back leads to the same unit. "ß", "ı" and lone surrogates stay.
QString upperCased(const QString &name);

struct RegistryValue
{
    QString name; // empty for the default value
    quint32 type = 0;
    QByteArray data; // as stored: UTF-16LE for the text types, terminator included only if stored
};

class RegistryKey
{
public:
    explicit RegistryKey(QString name) : m_name(std::move(name)) { }

    const QString &name() const { return m_name; }

    const std::vector<RegistryValue> &values() const { return m_values; }
    const RegistryValue *findValue(const QString &name) const;
    /// Replaces type and data of a value of that name, else appends it.
    void setValue(const RegistryValue &value);
    bool removeValue(const QString &name);

    std::size_t subKeyCount() const { return m_subKeys.size(); }
    /// Null past the end.
    std::shared_ptr<RegistryKey> subKeyAt(std::size_t index) const;
    std::shared_ptr<RegistryKey> findSubKey(const QString &name) const;
    std::shared_ptr<RegistryKey> createSubKey(const QString &name);
    bool removeSubKey(const QString &name);

    /// A denied key exists, but neither it nor a key below it can be opened.
    bool isDenied() const { return m_denied; }
    void setDenied(bool denied) { m_denied = denied; }

private:
    QString m_name;
    bool m_denied = false;
    std::vector<RegistryValue> m_values;
    std::map<QString, std::shared_ptr<RegistryKey>> m_subKeys; // by upper-cased name
    mutable std::vector<std::weak_ptr<RegistryKey>> m_ordered; // the same, by index
};

/// The four roots that a description can fill; they do not mirror each other.
enum class RegistryRoot {
    ClassesRoot,
    CurrentUser,
    LocalMachine,
    Users,
};

class Registry
{
public:
    Registry();

    const std::shared_ptr<RegistryKey> &root(RegistryRoot root) const;

    /// All four, in the order in which a description is written.
    std::vector<std::shared_ptr<RegistryKey>> roots() const;

private:
    std::shared_ptr<RegistryKey> m_roots[4];
};

/// The key at \a path below \a key, or null. Doubled and trailing backslashes are
/// ignored, an empty path is the key itself.
std::shared_ptr<RegistryKey> findKey(const std::shared_ptr<RegistryKey> &key, const QString &path);
std::shared_ptr<RegistryKey> createKey(const std::shared_ptr<RegistryKey> &key, const QString &path);
/// Whether \a key, or a key on the way along \a path, is denied.
bool isDenied(const std::shared_ptr<RegistryKey> &key, const QString &path);

/// The key of a whole path, which begins with the name of a root; created with its
/// parents. Null when there is no such root.
std::shared_ptr<RegistryKey> createKey(const Registry &registry, const QString &wholePath);

} // namespace machine
