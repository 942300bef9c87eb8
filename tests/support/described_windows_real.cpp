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

/// Lets everybody open \a key, or nobody.
void setAccess(HKEY key, bool granted)
{
    ACL nobody;
    SECURITY_DESCRIPTOR descriptor;
    const bool made = InitializeAcl(&nobody, sizeof nobody, ACL_REVISION)
        && InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION)
        && SetSecurityDescriptorDacl(&descriptor, TRUE, granted ? nullptr : &nobody, FALSE);
    check(made ? RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, &descriptor) : LSTATUS(GetLastError()),
          "RegSetKeySecurity");
}

/// \a denied collects the keys that cannot be opened any more, open.
void writeKey(HKEY key, const RegistryKey &description, std::vector<HKEY> &denied, bool belowDenied = false)
{
    for (const RegistryValue &value : description.values())
        writeValue(key, value);
    for (std::size_t i = 0; i < description.subKeyCount(); ++i) {
        const auto subKey = description.subKeyAt(i);
        HKEY created = nullptr;
        check(RegCreateKeyExW(key, wide(subKey->name()), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &created, nullptr),
              "RegCreateKeyEx");
        const bool isDenied = belowDenied || subKey->isDenied();
        writeKey(created, *subKey, denied, isDenied);
        if (isDenied) {
            setAccess(created, false);
            denied.push_back(created);
        } else {
            RegCloseKey(created);
        }
    }
}

/// The whole of it under a name of its own, for one of the roots.
HKEY writeRoot(const QString &path, const RegistryKey &description, std::vector<HKEY> &denied)
{
    HKEY key = nullptr;
    check(RegCreateKeyExW(HKEY_CURRENT_USER, wide(path), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
          "RegCreateKeyEx");
    writeKey(key, description, denied);
    return key;
}

} // namespace

struct DescribedWindows::Private
{
    QString path;
    QStringList classes; // keys added to HKEY_CLASSES_ROOT
    std::vector<HKEY> keys;
    std::vector<HKEY> denied;
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
    writeKey(classesRoot, *classes, d->denied);
    RegCloseKey(classesRoot);

    const machine::Registry &registry = machine.registry;
    d->keys.push_back(writeRoot(d->path + QStringLiteral("\\machine"), *registry.root(RegistryRoot::LocalMachine), d->denied));
    d->keys.push_back(writeRoot(d->path + QStringLiteral("\\user"), *registry.root(RegistryRoot::CurrentUser), d->denied));
    check(RegOverridePredefKey(HKEY_LOCAL_MACHINE, d->keys[0]), "RegOverridePredefKey");
    check(RegOverridePredefKey(HKEY_CURRENT_USER, d->keys[1]), "RegOverridePredefKey");
}

DescribedWindows::~DescribedWindows()
{
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    for (HKEY key : d->keys)
        RegCloseKey(key);
    for (HKEY key : d->denied) {
        setAccess(key, true);
        RegCloseKey(key);
    }
    RegDeleteTreeW(HKEY_CURRENT_USER, wide(d->path));
    for (const QString &name : d->classes)
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, wide(QStringLiteral("Software\\Classes\\") + name));
}
