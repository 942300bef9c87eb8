#include "capture_registry.h"

#include "registry_root.h"
#include "report/section_table.h"
#include "win/registry_key.h"

#include <QtCore/QStringList>
#include <windows.h>

namespace {

using machine::Registry;
using machine::RegistryRoot;
using machine::RegistryValue;
using velkor::SystemInfo::RegistryRead;
using velkor::SystemInfo::WinSysInfo::RegistryKey;
using Note = std::function<void(const QString &)>;

const wchar_t *wide(const QString &text)
{
    return reinterpret_cast<const wchar_t *>(text.utf16());
}

/// Opens a key in the 64-bit view, which the report uses. Returns null if that fails.
RegistryKey openWide(HKEY root, const QString &path, LSTATUS &status)
{
    HKEY key = nullptr;
    status = RegOpenKeyExW(root, wide(path), 0, KEY_READ, &key);
    return RegistryKey(status == ERROR_SUCCESS ? key : nullptr);
}

/// Reads the value as it is stored. False if it does not exist or cannot be read.
bool readValue(HKEY key, const QString &name, RegistryValue &value)
{
    DWORD type = 0;
    DWORD size = 0;
    LSTATUS status = RegQueryValueExW(key, wide(name), nullptr, &type, nullptr, &size);
    while (status == ERROR_SUCCESS) {
        value.data.resize(int(size) + 2); // room for a terminator that the call may add
        status = RegQueryValueExW(key, wide(name), nullptr, &type, reinterpret_cast<BYTE *>(value.data.data()), &size);
        if (status == ERROR_SUCCESS) {
            value.name = name;
            value.type = type;
            value.data.resize(int(size));
            return true;
        }
        if (status == ERROR_MORE_DATA) // the value grew between the two calls
            status = ERROR_SUCCESS;
    }
    return false;
}

QStringList allValueNames(HKEY key)
{
    QStringList names;
    constexpr DWORD longest = 16384; // Windows allows 16383 units and the terminator
    std::vector<wchar_t> name(longest);
    for (DWORD i = 0;; ++i) {
        DWORD length = longest;
        if (RegEnumValueW(key, i, name.data(), &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            return names;
        names += QString(reinterpret_cast<const QChar *>(name.data()), int(length));
    }
}

QStringList subKeyNames(HKEY key)
{
    QStringList names;
    constexpr DWORD longest = 256; // Windows allows 255 units and the terminator
    wchar_t name[longest];
    for (DWORD i = 0;; ++i) {
        DWORD length = longest;
        if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            return names;
        names += QString(reinterpret_cast<const QChar *>(name), int(length));
    }
}

class Capture
{
public:
    explicit Capture(const Note &note) : m_note(note) { }

    void add(const RegistryRead &read)
    {
        addBelow(read, QString(), read.path.split(QLatin1Char('\\')));
    }

    Registry registry;

private:
    void addBelow(const RegistryRead &read, const QString &path, const QStringList &rest)
    {
        if (rest.isEmpty()) {
            addKey(read, path);
            return;
        }
        QStringList names = {rest.constFirst()};
        if (names.constFirst() == QLatin1String("*")) {
            const RegistryKey parent = open(read.root, path);
            names = parent ? subKeyNames(parent.get()) : QStringList();
        }
        for (const QString &name : qAsConst(names))
            addBelow(read, path.isEmpty() ? name : path + QLatin1Char('\\') + name, rest.mid(1));
    }

    /// Opens a key. If it exists but cannot be opened, it is described as denied, whatever the error.
    RegistryKey open(HKEY rootKey, const QString &path)
    {
        LSTATUS status = ERROR_SUCCESS;
        RegistryKey key = openWide(rootKey, path, status);
        if (key || status == ERROR_FILE_NOT_FOUND)
            return key;
        const auto &root = registry.root(rootOf(rootKey));
        if (!isDenied(root, path)) { // neither it nor a key above it is described as denied yet
            createKey(root, path)->setDenied(true);
            m_note(QStringLiteral("%1\\%2 cannot be opened (error %3)").arg(root->name(), path).arg(status));
        }
        return key;
    }

    void addKey(const RegistryRead &read, const QString &path)
    {
        const RegistryKey key = open(read.root, path);
        if (!key)
            return;
        const auto described = createKey(registry.root(rootOf(read.root)), path);
        const QStringList names = read.values == QStringList("*") ? allValueNames(key.get()) : read.values;
        RegistryValue value;
        for (const QString &name : names) {
            if (readValue(key.get(), name, value))
                described->setValue(value);
        }
    }

    const Note &m_note;
};

} // namespace

Registry captureRegistry(const Note &note)
{
    Capture capture(note);
    for (const velkor::SystemInfo::Section &section : velkor::SystemInfo::SectionTable()) {
        if (!section.reads)
            continue;
        for (const RegistryRead &read : section.reads())
            capture.add(read);
    }
    return capture.registry;
}
