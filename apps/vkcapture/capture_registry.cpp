#include "capture_registry.h"

#include <QtCore/QStringList>

#include <windows.h>

namespace {

using machine::Registry;
using machine::RegistryKey;
using machine::RegistryRoot;
using machine::RegistryValue;
using Note = std::function<void(const QString &)>;

/// Keys at \a path, in which a name of "*" stands for every sub-key there is, and the
/// values of them that the report reads; no values at all, where the list is empty, or
/// every one, where it is "*".
struct Wanted
{
    RegistryRoot root;
    QString path;
    QStringList values;
};

QStringList installerValues()
{
    return {"ProductName", "Version", "AdvertiseFlags", "Assignment", "DeploymentFlags", "InstanceType", "Language",
            "PackageCode"};
}

QStringList videoValues()
{
    return {"Device Description", "InstalledDisplayDrivers", "HardwareInformation.AdapterString",
            "HardwareInformation.BiosString", "HardwareInformation.ChipType", "HardwareInformation.DacType",
            "HardwareInformation.qwMemorySize", "HardwareInformation.MemorySize", "DriverDesc", "DriverVersion",
            "DriverDate", "ProviderName", "ReleaseVersion", "OpenGLDriverName", "OpenGLDriverNameWow", "OpenGLVersion",
            "OpenGLVersionWoW", "OpenGLFlags", "OpenGLFlagsWoW", "Service"};
}

std::vector<Wanted> machineKeys(const QString &windowsDirectory)
{
    const RegistryRoot root = RegistryRoot::LocalMachine;
    std::vector<Wanted> keys = {
        {root,
         "Hardware\\Description\\System",
         {"SystemBiosVersion", "SystemBIOSDate", "VideoBiosVersion", "VideoBIOSDate"}},
        {root,
         "Hardware\\Description\\System\\CentralProcessor\\*",
         {"ProcessorNameString", "VendorIdentifier", "Identifier", "MMXIdentifier", "~MHZ", "FeatureSet"}},
        {root,
         "SYSTEM\\CurrentControlSet\\Control\\SystemInformation",
         {"BIOSReleaseDate", "BIOSVersion", "SystemManufacturer", "SystemProductName", "InformationSource"}},
        {root,
         "SYSTEM\\CurrentControlSet\\Control\\TimeZoneInformation",
         {"ActiveTimeBias", "Bias", "DaylightBias", "StandardBias", "DaylightName", "StandardName"}},
        {root, "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\OEMInformation", {"Manufacturer", "Model"}},
        {root,
         "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion",
         {"CurrentMajorVersionNumber", "CurrentMinorVersionNumber", "CurrentVersion", "CurrentBuildNumber", "UBR",
          "ProductId", "EditionID", "ReleaseId", "DisplayVersion", "PathName", "ProductName", "RegisteredOwner",
          "RegisteredOrganization", "CSDVersion", "CSDBuildNumber"}},
        {root, "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\OpenGLDrivers", {}},
        {root, "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\OpenGLDrivers\\*", {"dll"}},
        {root,
         "Software\\Microsoft\\Internet Explorer",
         {"Version", "svcVersion", "IVer", "Build", "svcUpdateVersion", "svcKBNumber", "W2kVersion"}},
        {root, "SYSTEM\\CurrentControlSet\\Control\\Video\\*", {}},
        {root, "SYSTEM\\CurrentControlSet\\Control\\Video\\*\\*", videoValues()},
        {root, "SYSTEM\\CurrentControlSet\\Control\\Class\\*", {"Class"}},
        {root,
         "SYSTEM\\CurrentControlSet\\Control\\Class\\*\\*",
         {"DriverDesc", "DriverVersion", "DriverDate", "ProviderName", "MatchingDeviceId", "InfPath", "InfSection",
          "InfSectionExt", "DeviceType", "DeviceCharacteristics"}},
        {root, "HARDWARE\\DEVICEMAP\\PARALLEL PORTS", {"*"}},
        {root, "HARDWARE\\DEVICEMAP\\SERIALCOMM", {"*"}},
        {root,
         "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\SharedDLLs",
         {windowsDirectory + "\\system32\\vkdnssd.dll"}},
    };
    for (const char *enumerator : {"FDC", "IDE", "SCSI", "USBSTOR"}) {
        const QString path = QStringLiteral("SYSTEM\\CurrentControlSet\\Enum\\") + QLatin1String(enumerator);
        keys.push_back({root, path, {}});
        keys.push_back({root, path + "\\*", {}});
        keys.push_back({root,
                        path + "\\*\\*",
                        {"Class", "DeviceDesc", "FriendlyName", "LocationInformation", "HardwareID", "Service"}});
    }
    return keys;
}

std::vector<Wanted> productKeys()
{
    const RegistryRoot classes = RegistryRoot::ClassesRoot;
    std::vector<Wanted> keys = {
        {classes, "Installer\\Products", {}},
        {classes, "Installer\\Products\\*", installerValues()},
        {RegistryRoot::CurrentUser, "Software\\Microsoft\\Installer\\Products", {}},
        {RegistryRoot::CurrentUser, "Software\\Microsoft\\Installer\\Products\\*", installerValues()},
    };
    for (const char *extension : {".lmdl", ".lmdl2", ".vkpj", ".wvp", ".q9p", ".q90"})
        keys.push_back({classes, extension, {""}});
    for (const char *type : {"Linemodel since V10", "Linemodel", "Q9 Project", "Q9 V2 Project", "Q9 V3 Project", "Q90 Project"})
        keys.push_back({classes, QLatin1String(type) + QStringLiteral("\\shell\\open\\command"), {""}});
    return keys;
}

const wchar_t *wide(const QString &text)
{
    return reinterpret_cast<const wchar_t *>(text.utf16());
}

HKEY rootKey(RegistryRoot root)
{
    switch (root) {
    case RegistryRoot::ClassesRoot:
        return HKEY_CLASSES_ROOT;
    case RegistryRoot::CurrentUser:
        return HKEY_CURRENT_USER;
    case RegistryRoot::LocalMachine:
        return HKEY_LOCAL_MACHINE;
    case RegistryRoot::Users:
        break;
    }
    return HKEY_USERS;
}

/// An open key, in the 64-bit view like the report's own program.
class OpenKey
{
public:
    OpenKey(HKEY root, const QString &path) { m_status = RegOpenKeyExW(root, wide(path), 0, KEY_READ, &m_key); }
    ~OpenKey()
    {
        if (m_status == ERROR_SUCCESS)
            RegCloseKey(m_key);
    }
    OpenKey(const OpenKey &) = delete;
    OpenKey &operator=(const OpenKey &) = delete;

    LSTATUS status() const { return m_status; }
    HKEY get() const { return m_key; }

private:
    HKEY m_key = nullptr;
    LSTATUS m_status;
};

/// The value as it is stored; false when there is none or it may not be read.
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
        if (status == ERROR_MORE_DATA) // it grew
            status = ERROR_SUCCESS;
    }
    return false;
}

QStringList valueNames(HKEY key)
{
    QStringList names;
    constexpr DWORD longest = 16384;
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
    wchar_t name[256];
    for (DWORD i = 0;; ++i) {
        DWORD length = 256;
        if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            return names;
        names += QString(reinterpret_cast<const QChar *>(name), int(length));
    }
}

class Capture
{
public:
    explicit Capture(const Note &note) : m_note(note) { }

    void add(const Wanted &wanted)
    {
        addBelow(wanted, QString(), wanted.path.split(QLatin1Char('\\')));
    }

    Registry registry;

private:
    void addBelow(const Wanted &wanted, const QString &path, const QStringList &rest)
    {
        if (rest.isEmpty()) {
            addKey(wanted, path);
            return;
        }
        QStringList names = {rest.constFirst()};
        if (names.constFirst() == QLatin1String("*")) {
            const OpenKey parent(rootKey(wanted.root), path);
            noteUnlessOpen(parent, wanted.root, path);
            names = parent.status() == ERROR_SUCCESS ? subKeyNames(parent.get()) : QStringList();
        }
        for (const QString &name : qAsConst(names))
            addBelow(wanted, path.isEmpty() ? name : path + QLatin1Char('\\') + name, rest.mid(1));
    }

    /// A key that exists and cannot be opened is denied, whichever the error.
    void noteUnlessOpen(const OpenKey &key, RegistryRoot wantedRoot, const QString &path)
    {
        if (key.status() == ERROR_SUCCESS || key.status() == ERROR_FILE_NOT_FOUND)
            return;
        const auto &root = registry.root(wantedRoot);
        if (isDenied(root, path)) // it, or a key above it, was noted before
            return;
        createKey(root, path)->setDenied(true);
        m_note(QStringLiteral("%1\\%2 cannot be opened (error %3)").arg(root->name(), path).arg(key.status()));
    }

    void addKey(const Wanted &wanted, const QString &path)
    {
        const OpenKey key(rootKey(wanted.root), path);
        noteUnlessOpen(key, wanted.root, path);
        if (key.status() != ERROR_SUCCESS)
            return;
        const auto described = createKey(registry.root(wanted.root), path);
        const QStringList names = wanted.values == QStringList("*") ? valueNames(key.get()) : wanted.values;
        RegistryValue value;
        for (const QString &name : names) {
            if (readValue(key.get(), name, value))
                described->setValue(value);
        }
    }

    const Note &m_note;
};

} // namespace

Registry captureRegistry(const QString &windowsDirectory, const Note &note)
{
    Capture capture(note);
    for (const Wanted &wanted : machineKeys(windowsDirectory))
        capture.add(wanted);
    for (const Wanted &wanted : productKeys())
        capture.add(wanted);
    return capture.registry;
}
