#include "format_limits.h"
#include "machine_texts.h"
#include "registry_facts.h"
#include "unique_names.h"

using namespace machine;
using velkor::Reports::factRow;

namespace {

constexpr int longestComputerName = 15; // a longer one has no line in the report

/// Fact of a section, by the number or name of what is asked for.
template <typename Name>
struct NamedFact
{
    Name name;
    const char *key;
};

constexpr NamedFact<int> computerNames[] = {
    {0, "netBiosName"},
    {1, "hostname"},
    {2, "dnsDomain"},
    {3, "dnsFullyQualified"},
    {4, "physicalNetBiosName"},
    {5, "physicalHostname"},
    {6, "physicalDnsDomain"},
    {7, "physicalDnsFullyQualified"},
};

constexpr NamedFact<int> specialFolders[] = {
    {2, "csidlPrograms"},
    {5, "csidlPersonal"},
    {26, "csidlAppdata"},
    {28, "csidlLocalAppdata"},
    {38, "csidlProgramFiles"},
};

constexpr NamedFact<const char *> shownVariables[] = {
    {"OS", "os"},
    {"PATH", "path"},
    {"HOMEPATH", "homepath"},
    {"TEMP", "temp"},
    {"PROCESSOR_IDENTIFIER", "processorIdentifier"},
};

template <typename Row, std::size_t count, typename Name>
const char *keyOf(const Row (&rows)[count], const Name &name, const char *otherwise)
{
    for (const Row &row : rows) {
        if (name == row.name)
            return row.key;
    }
    return otherwise;
}

class SystemTexts
{
public:
    SystemTexts(const SystemAnswers &system, TextChange &change) : m_old(system), m_change(change) { }

    SystemAnswers run()
    {
        m_new = m_old;
        if (m_new.GetVersionEx)
            set(m_new.GetVersionEx.value->szCSDVersion, factRow("windowsVersion", "", "lastServicePackInstalled"));
        for (auto name = m_new.GetComputerNameEx.begin(); name != m_new.GetComputerNameEx.end(); ++name)
            computerName(*name, keyOf(computerNames, name.key(), "hostname"));
        set(m_new.GetUserName, factRow("userName", "", "userName"));
        drives();
        set(m_new.GetSystemWindowsDirectory, factRow("windowsSystemDirectories", "", "systemDirectory"));
        set(m_new.GetSystemWow64Directory, factRow("windowsSystemDirectories", "", "systemWow64Directory"));
        environment();
        for (auto path = m_new.SHGetSpecialFolderPath.begin(); path != m_new.SHGetSpecialFolderPath.end(); ++path)
            set(*path, factRow("specialFolders", "", keyOf(specialFolders, path.key(), "csidlPersonal")));
        modules();
        renameKeys(m_new.libraries, [this](const QString &name) { return libraryName(name); });
        adapters();
        folders();
        return std::move(m_new);
    }

private:
    void set(QString &text, int row) { text = m_change.text(row, text); }

    void set(Answer<QString> &answer, int row)
    {
        if (answer)
            set(*answer.value, row);
    }

    /// A name that was too long for the report stays too long.
    void computerName(Answer<QString> &answer, const char *key)
    {
        if (!answer)
            return;
        const int size = answer->size();
        set(*answer.value, factRow("computerNames", "", key));
        if (size > longestComputerName && answer->size() <= longestComputerName)
            answer.value = answer->leftJustified(longestComputerName + 1, QLatin1Char('.'));
    }

    template <typename Map, typename NameOf>
    void renameKeys(Map &map, NameOf nameOf)
    {
        Map renamed;
        UniqueNames names;
        for (auto entry = map.begin(); entry != map.end(); ++entry)
            renamed.insert(names.unique(nameOf(entry.key())), *entry);
        map = renamed;
    }

    void drives()
    {
        for (DriveRecord &drive : m_new.drives) {
            if (!drive.GetVolumeInformation)
                continue;
            set(drive.GetVolumeInformation.value->volumeName, factRow("diskInformation", "drive", "label"));
            set(drive.GetVolumeInformation.value->fileSystemName, factRow("diskInformation", "drive", "fileSystem"));
        }
        renameKeys(m_new.drives, [this](const QString &root) { return upperCased(m_change.text(neutralRow(), root)); });
    }

    /// Names of variables stay, as in reports.
    void environment()
    {
        for (auto variable = m_new.environment.begin(); variable != m_new.environment.end(); ++variable) {
            const char *key = keyOf(shownVariables, variable.key(), nullptr);
            if (key)
                set(*variable, factRow("someEnvironmentVariables", "", key));
            else
                *variable = m_change.variable(variable.key(), *variable);
        }
    }

    void modules()
    {
        static const int row = factRow("loadedModules", "module", "path");
        if (!m_new.EnumProcessModules)
            return;
        for (std::optional<QString> &path : *m_new.EnumProcessModules.value) {
            if (path)
                set(*path, row);
        }
    }

    QString libraryName(const QString &name)
    {
        const bool isFixed = name == QLatin1String("dnssd.dll") || name == QLatin1String("vkdnssd.dll");
        return isFixed ? name : m_change.text(neutralRow(), name).toLower();
    }

    void set(AddressRecord &record, const char *item, const char *address, const char *mask)
    {
        set(record.address, factRow("qtNetworkInterfaces", item, address));
        set(record.mask, factRow("qtNetworkInterfaces", item, mask));
    }

    void adapters()
    {
        if (!m_new.GetAdaptersInfo)
            return;
        for (AdapterRecord &adapter : *m_new.GetAdaptersInfo.value) {
            set(adapter.AdapterName, neutralRow());
            set(adapter.Description, neutralRow());
            for (AddressRecord &gateway : adapter.GatewayList)
                set(gateway, "gateway", "ip", "mask");
            for (AddressRecord &server : adapter.DhcpServer)
                set(server, "dhcpServer", "ip", "mask");
            set(adapter.PrimaryWinsServer, "interface", "primaryWinsServer", "primaryWinsServerMask");
            set(adapter.SecondaryWinsServer, "interface", "secondaryWinsServer", "secondaryWinsServerMask");
        }
    }

    void folders()
    {
        static const int assembly = factRow("winSxSDirectoryEntries", "assembly", "name");
        static const int path = factRow("windowsSystemDirectories", "", "systemDirectory");
        const auto oldWinSxS = winSxSPath(m_old);
        const auto newWinSxS = winSxSPath(m_new);
        for (FolderRecord &folder : m_new.folders) {
            for (QStringList *names : {&folder.directories, &folder.files}) {
                for (QString &name : *names)
                    set(name, assembly);
            }
        }
        renameKeys(m_new.folders, [&](const QString &name) {
            return oldWinSxS && name == *oldWinSxS ? *newWinSxS : m_change.text(path, name);
        });
    }

    const SystemAnswers &m_old;
    TextChange &m_change;
    SystemAnswers m_new;
};

} // namespace

SystemAnswers changedSystem(const SystemAnswers &system, TextChange &change)
{
    return SystemTexts(system, change).run();
}
