// Imports keys of a described machine into the registry as volatile keys. The registry editor
// fails below the keys of Wine's displays: they are volatile, and Windows refuses to create
// permanent keys below volatile ones. Refuses to run outside a Wine prefix of this project.
//
//   import_registry registry.reg PATH     imports the key PATH of HKEY_LOCAL_MACHINE and all below
//   import_registry --deny PATH           creates an empty key there that nobody can open

#include "registry_file.h"
#include "throw_away_windows.h"
#include "wide_text.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QStringList>

#include <windows.h>

#include <cstdio>

namespace {

using machine::RegistryKey;

/// Writes \a key and all keys below it at \a path. False if a call fails.
bool import(const RegistryKey &key, const QString &path)
{
    HKEY created = nullptr;
    LSTATUS status = RegCreateKeyExW(HKEY_LOCAL_MACHINE, wide(path), 0, nullptr, REG_OPTION_VOLATILE, KEY_WRITE, nullptr,
                                     &created, nullptr);
    for (auto value = key.values().begin(); status == ERROR_SUCCESS && value != key.values().end(); ++value) {
        status = RegSetValueExW(created, wide(value->name), 0, value->type,
                                reinterpret_cast<const BYTE *>(value->data.constData()), DWORD(value->data.size()));
    }
    if (created)
        RegCloseKey(created);
    if (status != ERROR_SUCCESS) {
        std::fprintf(stderr, "import_registry: %s: error %ld\n", qPrintable(path), long(status));
        return false;
    }
    for (std::size_t i = 0; i < key.subKeyCount(); ++i) {
        const auto subKey = key.subKeyAt(i);
        if (!import(*subKey, path + QLatin1Char('\\') + subKey->name()))
            return false;
    }
    return true;
}

/// Creates a key and denies everybody access to it.
bool deny(const QString &path)
{
    ACL nobody;
    SECURITY_DESCRIPTOR descriptor;
    HKEY created = nullptr;
    LSTATUS status = RegCreateKeyExW(HKEY_LOCAL_MACHINE, wide(path), 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS,
                                     nullptr, &created, nullptr);
    if (status == ERROR_SUCCESS) {
        InitializeAcl(&nobody, sizeof nobody, ACL_REVISION);
        InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
        SetSecurityDescriptorDacl(&descriptor, TRUE, &nobody, FALSE);
        status = RegSetKeySecurity(created, DACL_SECURITY_INFORMATION, &descriptor);
        RegCloseKey(created);
    }
    if (status != ERROR_SUCCESS)
        std::fprintf(stderr, "import_registry: %s: error %ld\n", qPrintable(path), long(status));
    return status == ERROR_SUCCESS;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fprintf(stderr, "usage: import_registry registry.reg|--deny PATH\n");
        return 2;
    }
    if (!mayChangeWindows("import_registry"))
        return 1;
    if (arguments.at(1) == QLatin1String("--deny"))
        return deny(arguments.at(2)) ? 0 : 1;
    QFile file(arguments.at(1));
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "import_registry: %s\n", qPrintable(file.errorString()));
        return 1;
    }
    machine::Registry registry;
    QString error;
    int line = 0;
    if (!readRegistryFile(file.readAll(), registry, error, line)) {
        std::fprintf(stderr, "import_registry: line %d: %s\n", line, qPrintable(error));
        return 1;
    }
    const auto key = findKey(registry.root(machine::RegistryRoot::LocalMachine), arguments.at(2));
    if (!key) {
        std::fprintf(stderr, "import_registry: no such key there: %s\n", qPrintable(arguments.at(2)));
        return 1;
    }
    return import(*key, arguments.at(2)) ? 0 : 1;
}
