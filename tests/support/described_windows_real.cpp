#include "described_windows.h"
#include "wide_text.h"

namespace {

using machine::RegistryKey;
using machine::RegistryRoot;
using machine::RegistryValue;

void check(LSTATUS status, const char *what)
{
    if (status != ERROR_SUCCESS)
        qFatal("%s failed with %ld", what, long(status));
}

/// RegSetValueExW adds a terminator if the bytes after the data are zero, so they are 0xff here.
void writeValue(HKEY key, const RegistryValue &value)
{
    const QByteArray data = value.data + QByteArray(4, '\xff');
    check(RegSetValueExW(key, wide(value.name), 0, value.type, reinterpret_cast<const BYTE *>(data.constData()),
                         DWORD(value.data.size())),
          "RegSetValueEx");
}

/// Grants or denies everybody access to \a key.
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

/// Creates a volatile key, which Windows deletes when the user logs off.
HKEY createKey(HKEY parent, const QString &path)
{
    HKEY key = nullptr;
    check(RegCreateKeyExW(parent, wide(path), 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS, nullptr, &key, nullptr),
          "RegCreateKeyEx");
    return key;
}

/// Appends the denied keys to \a denied and leaves them open.
void writeKey(HKEY key, const RegistryKey &description, std::vector<HKEY> &denied, bool belowDenied = false)
{
    for (const RegistryValue &value : description.values())
        writeValue(key, value);
    for (std::size_t i = 0; i < description.subKeyCount(); ++i) {
        const auto subKey = description.subKeyAt(i);
        const HKEY created = createKey(key, subKey->name());
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

/// False if a key in it cannot be opened.
bool removeTree(const QString &path)
{
    const LSTATUS status = RegDeleteTreeW(HKEY_CURRENT_USER, wide(path));
    return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
}

} // namespace

struct DescribedWindows::Private
{
    /// A root of the registry, its description and the key that replaces it.
    struct Root
    {
        HKEY root;
        RegistryRoot described;
        const char *name;
        HKEY replacement;
    };

    /// Below HKEY_CURRENT_USER.
    QString path = QStringLiteral("Software\\vkSystemInfo test %1").arg(GetCurrentProcessId());
    Root roots[3] = {{HKEY_LOCAL_MACHINE, RegistryRoot::LocalMachine, "machine", nullptr},
                     {HKEY_CURRENT_USER, RegistryRoot::CurrentUser, "user", nullptr},
                     {HKEY_CLASSES_ROOT, RegistryRoot::ClassesRoot, "classes", nullptr}};
    std::vector<HKEY> denied;
};

DescribedWindows::DescribedWindows(machine::Machine machine)
    : d(std::make_unique<Private>())
{
    // A crashed process with the same ID may have left a tree that contains denied keys.
    while (!removeTree(d->path))
        d->path += QStringLiteral(" again");
    const HKEY key = createKey(HKEY_CURRENT_USER, d->path);
    for (Private::Root &root : d->roots) {
        root.replacement = createKey(key, QString::fromLatin1(root.name));
        writeKey(root.replacement, *machine.registry.root(root.described), d->denied);
    }
    RegCloseKey(key);
    for (const Private::Root &root : d->roots)
        check(RegOverridePredefKey(root.root, root.replacement), "RegOverridePredefKey");
}

DescribedWindows::~DescribedWindows()
{
    for (const Private::Root &root : d->roots) {
        // Restores the predefined key.
        check(RegOverridePredefKey(root.root, nullptr), "RegOverridePredefKey");
        RegCloseKey(root.replacement);
    }
    for (const HKEY key : d->denied) {
        setAccess(key, true);
        RegCloseKey(key);
    }
    RegDeleteTreeW(HKEY_CURRENT_USER, wide(d->path));
}
