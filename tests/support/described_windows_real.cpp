#include "described_windows.h"

#include <windows.h>

#include <vector>

namespace {

using machine::RegistryKey;
using machine::RegistryRoot;
using machine::RegistryValue;

const wchar_t *wide(const QString &text)
{
    return reinterpret_cast<const wchar_t *>(text.utf16());
}

void check(LSTATUS status, const char *what)
{
    if (status != ERROR_SUCCESS)
        qFatal("%s failed with %ld", what, long(status));
}

/// As stored: the bytes behind the data keep the call from adding a terminator.
void writeValue(HKEY key, const RegistryValue &value)
{
    const QByteArray data = value.data + QByteArray(4, '\xff');
    check(RegSetValueExW(key, wide(value.name), 0, value.type, reinterpret_cast<const BYTE *>(data.constData()),
                         DWORD(value.data.size())),
          "RegSetValueEx");
}

void writeKey(HKEY key, const RegistryKey &description)
{
    for (const RegistryValue &value : description.values())
        writeValue(key, value);
    for (std::size_t i = 0; i < description.subKeyCount(); ++i) {
        const auto subKey = description.subKeyAt(i);
        HKEY created = nullptr;
        check(RegCreateKeyExW(key, wide(subKey->name()), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &created, nullptr),
              "RegCreateKeyEx");
        writeKey(created, *subKey);
        RegCloseKey(created);
    }
}

/// The whole of it under a name of its own, for one of the roots.
HKEY writeRoot(const QString &path, const RegistryKey &description)
{
    HKEY key = nullptr;
    check(RegCreateKeyExW(HKEY_CURRENT_USER, wide(path), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
          "RegCreateKeyEx");
    writeKey(key, description);
    return key;
}

} // namespace

struct DescribedWindows::Private
{
    QString path;
    QStringList classes; // keys added to HKEY_CLASSES_ROOT
    std::vector<HKEY> keys;
};

DescribedWindows::DescribedWindows(machine::Machine machine)
    : d(std::make_unique<Private>())
{
    d->path = QStringLiteral("Software\\vkSystemInfo tests\\%1").arg(GetCurrentProcessId());
    const auto classes = machine.registry.root(RegistryRoot::ClassesRoot);
    HKEY classesRoot = nullptr;
    check(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Classes", 0, KEY_ALL_ACCESS, &classesRoot), "RegOpenKeyEx");
    for (std::size_t i = 0; i < classes->subKeyCount(); ++i)
        d->classes += classes->subKeyAt(i)->name();
    writeKey(classesRoot, *classes);
    RegCloseKey(classesRoot);

    d->keys.push_back(writeRoot(d->path + QStringLiteral("\\machine"), *machine.registry.root(RegistryRoot::LocalMachine)));
    d->keys.push_back(writeRoot(d->path + QStringLiteral("\\user"), *machine.registry.root(RegistryRoot::CurrentUser)));
    check(RegOverridePredefKey(HKEY_LOCAL_MACHINE, d->keys[0]), "RegOverridePredefKey");
    check(RegOverridePredefKey(HKEY_CURRENT_USER, d->keys[1]), "RegOverridePredefKey");
}

DescribedWindows::~DescribedWindows()
{
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    for (HKEY key : d->keys)
        RegCloseKey(key);
    RegDeleteTreeW(HKEY_CURRENT_USER, wide(d->path));
    for (const QString &name : d->classes)
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, wide(QStringLiteral("Software\\Classes\\") + name));
}
