#include "system_file.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace machine {
namespace {

constexpr quint64 firstInexact = quint64(1) << 53;

QJsonValue number(quint64 value)
{
    if (value >= firstInexact)
        return QStringLiteral("0x%1").arg(value, 0, 16);
    return qint64(value);
}

QJsonValue number(qint64 value)
{
    return value < 0 && value > -qint64(firstInexact) ? QJsonValue(value) : number(quint64(value));
}

QJsonObject failure(quint32 error)
{
    return {{QStringLiteral("error"), qint64(error)}};
}

/// Sets a member to what \a write makes of the answer, or to its error.
template <typename T, typename Write>
void add(QJsonObject &object, const QString &name, const Answer<T> &answer, Write write)
{
    object.insert(name, answer ? QJsonValue(write(*answer)) : QJsonValue(failure(answer.error)));
}

QJsonObject version(const VersionRecord &record)
{
    return {
        {QStringLiteral("dwMajorVersion"), qint64(record.dwMajorVersion)},
        {QStringLiteral("dwMinorVersion"), qint64(record.dwMinorVersion)},
        {QStringLiteral("dwBuildNumber"), qint64(record.dwBuildNumber)},
        {QStringLiteral("dwPlatformId"), qint64(record.dwPlatformId)},
        {QStringLiteral("szCSDVersion"), record.szCSDVersion},
        {QStringLiteral("wServicePackMajor"), record.wServicePackMajor},
        {QStringLiteral("wServicePackMinor"), record.wServicePackMinor},
        {QStringLiteral("wSuiteMask"), record.wSuiteMask},
        {QStringLiteral("wProductType"), record.wProductType},
    };
}

QJsonObject systemInfo(const SystemInfoRecord &record)
{
    return {
        {QStringLiteral("wProcessorArchitecture"), record.wProcessorArchitecture},
        {QStringLiteral("dwPageSize"), qint64(record.dwPageSize)},
        {QStringLiteral("lpMinimumApplicationAddress"), number(record.lpMinimumApplicationAddress)},
        {QStringLiteral("lpMaximumApplicationAddress"), number(record.lpMaximumApplicationAddress)},
        {QStringLiteral("dwActiveProcessorMask"), number(record.dwActiveProcessorMask)},
        {QStringLiteral("dwNumberOfProcessors"), qint64(record.dwNumberOfProcessors)},
        {QStringLiteral("dwProcessorType"), qint64(record.dwProcessorType)},
        {QStringLiteral("dwAllocationGranularity"), qint64(record.dwAllocationGranularity)},
        {QStringLiteral("wProcessorLevel"), record.wProcessorLevel},
        {QStringLiteral("wProcessorRevision"), record.wProcessorRevision},
    };
}

QJsonObject memory(const MemoryRecord &record)
{
    return {
        {QStringLiteral("dwMemoryLoad"), qint64(record.dwMemoryLoad)},
        {QStringLiteral("ullTotalPhys"), number(record.ullTotalPhys)},
        {QStringLiteral("ullAvailPhys"), number(record.ullAvailPhys)},
        {QStringLiteral("ullTotalPageFile"), number(record.ullTotalPageFile)},
        {QStringLiteral("ullAvailPageFile"), number(record.ullAvailPageFile)},
        {QStringLiteral("ullTotalVirtual"), number(record.ullTotalVirtual)},
        {QStringLiteral("ullAvailVirtual"), number(record.ullAvailVirtual)},
    };
}

QJsonObject drive(const DriveRecord &record)
{
    QJsonObject object {{QStringLiteral("GetDriveType"), qint64(record.GetDriveType)}};
    add(object, QStringLiteral("GetVolumeInformation"), record.GetVolumeInformation, [](const VolumeRecord &volume) {
        return QJsonObject {{QStringLiteral("volumeName"), volume.volumeName},
                            {QStringLiteral("fileSystemName"), volume.fileSystemName}};
    });
    add(object, QStringLiteral("GetDiskFreeSpaceEx"), record.GetDiskFreeSpaceEx, [](const FreeSpaceRecord &space) {
        return QJsonObject {{QStringLiteral("freeBytesAvailableToCaller"), number(space.freeBytesAvailableToCaller)},
                            {QStringLiteral("totalNumberOfBytes"), number(space.totalNumberOfBytes)}};
    });
    return object;
}

QJsonObject library(const LibraryRecord &record)
{
    if (!record.DNSServiceGetProperty)
        return QJsonObject();
    return {{QStringLiteral("DNSServiceGetProperty"),
             QJsonObject {{QStringLiteral("error"), record.DNSServiceGetProperty->error},
                          {QStringLiteral("DaemonVersion"), qint64(record.DNSServiceGetProperty->DaemonVersion)}}}};
}

QJsonArray address(const AddressRecord &record)
{
    return {record.address, record.mask};
}

QJsonArray addresses(const std::vector<AddressRecord> &records)
{
    QJsonArray list;
    for (const AddressRecord &record : records)
        list.append(address(record));
    return list;
}

QJsonArray adapters(const std::vector<AdapterRecord> &records)
{
    QJsonArray list;
    for (const AdapterRecord &record : records) {
        list.append(QJsonObject {
            {QStringLiteral("Index"), qint64(record.Index)},
            {QStringLiteral("AdapterName"), record.AdapterName},
            {QStringLiteral("Description"), record.Description},
            {QStringLiteral("DhcpEnabled"), qint64(record.DhcpEnabled)},
            {QStringLiteral("GatewayList"), addresses(record.GatewayList)},
            {QStringLiteral("DhcpServer"), addresses(record.DhcpServer)},
            {QStringLiteral("HaveWins"), record.HaveWins},
            {QStringLiteral("PrimaryWinsServer"), address(record.PrimaryWinsServer)},
            {QStringLiteral("SecondaryWinsServer"), address(record.SecondaryWinsServer)},
            {QStringLiteral("LeaseObtained"), number(record.LeaseObtained)},
            {QStringLiteral("LeaseExpires"), number(record.LeaseExpires)},
        });
    }
    return list;
}

QJsonArray modules(const std::vector<std::optional<QString>> &names)
{
    QJsonArray list;
    for (const auto &name : names)
        list.append(name ? QJsonValue(*name) : QJsonValue(QJsonValue::Null));
    return list;
}

template <typename Map, typename Write>
QJsonObject members(const Map &map, Write write)
{
    QJsonObject object;
    for (auto it = map.begin(); it != map.end(); ++it)
        object.insert(it.key(), write(it.value()));
    return object;
}

template <typename T, typename Write>
QJsonObject numbered(const QMap<int, T> &map, Write write)
{
    QJsonObject object;
    for (auto it = map.begin(); it != map.end(); ++it)
        object.insert(QString::number(it.key()), write(it.value()));
    return object;
}

QJsonValue textOrFailure(const Answer<QString> &answer)
{
    return answer ? QJsonValue(*answer) : QJsonValue(failure(answer.error));
}

void addNames(QJsonObject &object, const SystemAnswers &system)
{
    const bool noName = system.GetComputerNameEx.isEmpty() && system.computerNamesError;
    object.insert(QStringLiteral("GetComputerNameEx"),
                  noName ? failure(system.computerNamesError) : numbered(system.GetComputerNameEx, textOrFailure));
    object.insert(QStringLiteral("GetUserName"), textOrFailure(system.GetUserName));
}

void addDirectories(QJsonObject &object, const SystemAnswers &system)
{
    object.insert(QStringLiteral("GetSystemWindowsDirectory"), textOrFailure(system.GetSystemWindowsDirectory));
    object.insert(QStringLiteral("GetSystemWow64Directory"), textOrFailure(system.GetSystemWow64Directory));
    object.insert(QStringLiteral("environment"), members(system.environment, [](const QString &value) { return value; }));
    object.insert(QStringLiteral("SHGetSpecialFolderPath"), numbered(system.SHGetSpecialFolderPath, textOrFailure));
    if (!system.ExpandEnvironmentStrings.isEmpty())
        object.insert(QStringLiteral("ExpandEnvironmentStrings"), numbered(system.ExpandEnvironmentStrings, failure));
    if (system.WinSxS)
        object.insert(QStringLiteral("WinSxS"), QJsonArray::fromStringList(*system.WinSxS));
}

void addVersions(QJsonObject &object, const SystemAnswers &system)
{
    object.insert(QStringLiteral("ansiCodePage"), system.ansiCodePage);
    add(object, QStringLiteral("GetVersionEx"), system.GetVersionEx, version);
    if (system.exportsGetProductInfo) {
        add(object, QStringLiteral("GetProductInfo"), system.GetProductInfo, [](quint32 type) {
            return QJsonObject {{QStringLiteral("dwReturnedProductType"), qint64(type)}};
        });
    }
    object.insert(QStringLiteral("GetSystemMetrics"), numbered(system.GetSystemMetrics, [](qint32 value) { return value; }));
    object.insert(QStringLiteral("GetSystemInfo"), systemInfo(system.GetSystemInfo));
    add(object, QStringLiteral("GlobalMemoryStatusEx"), system.GlobalMemoryStatusEx, memory);
    add(object, QStringLiteral("GetSystemRegistryQuota"), system.GetSystemRegistryQuota, [](const QuotaRecord &quota) {
        return QJsonObject {{QStringLiteral("allowed"), qint64(quota.allowed)}, {QStringLiteral("used"), qint64(quota.used)}};
    });
}

void addDeniedKeys(QJsonArray &names, const RegistryKey &key, const QString &path)
{
    if (key.isDenied())
        names.append(path);
    for (std::size_t i = 0; i < key.subKeyCount(); ++i) {
        const auto subKey = key.subKeyAt(i);
        addDeniedKeys(names, *subKey, path + QLatin1Char('\\') + subKey->name());
    }
}

QJsonArray deniedKeys(const Registry &registry)
{
    QJsonArray names;
    for (const auto &root : registry.roots())
        addDeniedKeys(names, *root, root->name());
    return names;
}

} // namespace

QByteArray writeSystemFile(const Machine &machine)
{
    const SystemAnswers &system = machine.system;
    QJsonObject object;
    addVersions(object, system);
    addNames(object, system);
    addDirectories(object, system);
    add(object, QStringLiteral("GetLogicalDrives"), system.GetLogicalDrives, [](quint32 mask) { return qint64(mask); });
    object.insert(QStringLiteral("drives"), members(system.drives, drive));
    add(object, QStringLiteral("EnumProcessModules"), system.EnumProcessModules, modules);
    object.insert(QStringLiteral("libraries"), members(system.libraries, library));
    add(object, QStringLiteral("GetAdaptersInfo"), system.GetAdaptersInfo, adapters);
    object.insert(QStringLiteral("timeZone"), system.timeZone);
    const QJsonArray denied = deniedKeys(machine.registry);
    if (!denied.isEmpty())
        object.insert(QStringLiteral("deniedKeys"), denied);
    return QJsonDocument(object).toJson();
}

} // namespace machine
