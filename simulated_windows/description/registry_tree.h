// A registry in memory: keys, their sub-keys, and their values as bytes.
//
// Modelled on the registry of Windows NT. Names are compared case-insensitively by UTF-16 code
// unit, and keep their first spelling. Sub-keys are enumerated in the order of their upper-cased
// names, values in the order in which they were added.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <map>
#include <memory>
#include <vector>

namespace machine {

/// Converts each code unit to upper case as Windows NT does for names: only if the lower case of
/// the result is the original unit. "ß", "ı" and lone surrogates are unchanged.
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
    /// Replaces type and data of the value with that name, or appends the value.
    void setValue(const RegistryValue &value);
    bool removeValue(const QString &name);

    std::size_t subKeyCount() const { return m_subKeys.size(); }
    /// Null after the last one.
    std::shared_ptr<RegistryKey> subKeyAt(std::size_t index) const;
    std::shared_ptr<RegistryKey> findSubKey(const QString &name) const;
    std::shared_ptr<RegistryKey> createSubKey(const QString &name);
    bool removeSubKey(const QString &name);

    /// A denied key exists, but it and the keys below it cannot be opened.
    bool isDenied() const { return m_denied; }
    void setDenied(bool denied) { m_denied = denied; }

private:
    QString m_name;
    bool m_denied = false;
    std::vector<RegistryValue> m_values;
    std::map<QString, std::shared_ptr<RegistryKey>> m_subKeys; // by upper-cased name
    mutable std::vector<std::weak_ptr<RegistryKey>> m_ordered; // the same, by index
};

/// The four roots of a description. HKEY_CLASSES_ROOT and HKEY_CURRENT_USER do not mirror the others.
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

    /// All four roots in the order of registry.reg.
    std::vector<std::shared_ptr<RegistryKey>> roots() const;

private:
    std::shared_ptr<RegistryKey> m_roots[4];
};

/// The key at \a path below \a key, or null. Doubled and trailing backslashes are
/// ignored, an empty path is the key itself.
std::shared_ptr<RegistryKey> findKey(const std::shared_ptr<RegistryKey> &key, const QString &path);
std::shared_ptr<RegistryKey> createKey(const std::shared_ptr<RegistryKey> &key, const QString &path);
/// Whether \a key or a key along \a path is denied.
bool isDenied(const std::shared_ptr<RegistryKey> &key, const QString &path);

/// Creates the key at \a wholePath, which starts with the name of a root, and its parents. Null if
/// the root does not exist.
std::shared_ptr<RegistryKey> createKey(const Registry &registry, const QString &wholePath);

} // namespace machine
