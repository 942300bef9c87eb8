#include "qt/qt_network_interfaces.h"

#include "report/text.h"

#include <QtNetwork/QNetworkInterface>

// winsock2.h goes before windows.h, iphlpapi.h behind it
#include <winsock2.h>

#include "win/heap_buffer.h"

#include <iphlpapi.h>
#include <optional>
#include <time.h>

namespace velkor {
namespace SystemInfo {
namespace {

/// The adapters of the machine as Windows lists them at the moment.
class AdapterList
{
public:
    AdapterList()
        : m_buffer(sizeof(IP_ADAPTER_INFO))
    {
        ULONG size = sizeof(IP_ADAPTER_INFO);
        if (m_buffer && GetAdaptersInfo(m_buffer.as<IP_ADAPTER_INFO>(), &size) == ERROR_BUFFER_OVERFLOW)
            m_buffer.replace(size);
        // The second call is made where the first one had room enough, too.
        m_isRead = m_buffer && GetAdaptersInfo(m_buffer.as<IP_ADAPTER_INFO>(), &size) == ERROR_SUCCESS;
    }

    /// Null when there is no adapter of that interface index, or no list.
    const IP_ADAPTER_INFO *find(quint32 index) const
    {
        const IP_ADAPTER_INFO *adapter = m_isRead ? m_buffer.as<IP_ADAPTER_INFO>() : nullptr;
        while (adapter && adapter->Index != index)
            adapter = adapter->Next;
        return adapter;
    }

private:
    WinSysInfo::HeapBuffer m_buffer;
    bool m_isRead = false;
};

QString description(quint32 index)
{
    const AdapterList adapters;
    const IP_ADAPTER_INFO *adapter = adapters.find(index);
    return adapter ? QString::fromUtf8(adapter->Description) : QString();
}

QString addressText(const IP_ADDR_STRING &entry)
{
    return QString::fromUtf8(entry.IpAddress.String);
}

QString maskText(const IP_ADDR_STRING &entry)
{
    return QString::fromUtf8(entry.IpMask.String);
}

/// "Gateway: address, mask", or numbered lines when there are several.
QString addressLines(const QString &label, const IP_ADDR_STRING &list)
{
    if (!list.Next)
        return label + QStringLiteral(": %1, %2").arg(addressText(list)).arg(maskText(list)) + newline;
    QString text;
    int number = 0;
    for (const IP_ADDR_STRING *entry = &list; entry; entry = entry->Next) {
        text += label + QStringLiteral(" %1: %2, %3").arg(++number).arg(addressText(*entry)).arg(maskText(*entry))
            + newline;
    }
    return text;
}

/// The formatted times carry their own line ends.
QString dhcpLines(const IP_ADAPTER_INFO &adapter)
{
    QString text = QStringLiteral("DHCP enabled:  %1").arg(adapter.DhcpEnabled) + newline;
    if (adapter.DhcpEnabled) {
        text += addressLines(QStringLiteral("DHCP server"), adapter.DhcpServer);
        text += QStringLiteral("Lease obtained: %1").arg(formatLeaseTime(adapter.LeaseObtained));
        text += QStringLiteral("Lease expires:  %1").arg(formatLeaseTime(adapter.LeaseExpires));
    }
    return text;
}

QString winsLines(const IP_ADAPTER_INFO &adapter)
{
    QString text = QStringLiteral("Have WINS: %1").arg(adapter.HaveWins) + newline;
    if (adapter.HaveWins) {
        text += QStringLiteral("Primary WINS Server: %1, %2")
                    .arg(addressText(adapter.PrimaryWinsServer))
                    .arg(maskText(adapter.PrimaryWinsServer))
            + newline;
        text += QStringLiteral("Secondary WINS Server: %1, %2")
                    .arg(addressText(adapter.SecondaryWinsServer))
                    .arg(maskText(adapter.SecondaryWinsServer))
            + newline;
    }
    return text;
}

QString statusLine(QNetworkInterface::InterfaceFlags flags)
{
    return QStringLiteral("Status: ")
        + (flags & QNetworkInterface::IsUp ? QStringLiteral("Up") : QStringLiteral("Down")) + QStringLiteral(", ")
        + (flags & QNetworkInterface::IsRunning ? QStringLiteral("Running") : QStringLiteral("Not running")) + newline;
}

QString addressEntryLines(const QList<QNetworkAddressEntry> &entries)
{
    if (entries.isEmpty())
        return QStringLiteral("<no address>") + newline;
    const QString comma = QStringLiteral(" , ");
    QString text;
    for (const QNetworkAddressEntry &entry : entries)
        text += entry.ip().toString() + comma + entry.netmask().toString() + comma + entry.broadcast().toString() + newline;
    return text;
}

QString interfaceBlock(const QNetworkInterface &networkInterface)
{
    const quint32 index = quint32(networkInterface.index());
    QString text = QStringLiteral("_______________________________________________________") + newline;
    const QString displayName = description(index);
    text += (displayName.isEmpty() ? networkInterface.humanReadableName() : displayName) + newline;
    if (networkInterface.flags() & QNetworkInterface::IsLoopBack)
        text += QStringLiteral("Loopback interface") + newline;
    text += QStringLiteral("%1: %2").arg(QStringLiteral("Hardware address")).arg(networkInterface.hardwareAddress()) + newline;
    text += statusLine(networkInterface.flags());
    text += QStringLiteral("Addresses: IP , netmask , broadcast") + newline;
    text += addressEntryLines(networkInterface.addressEntries());
    return text + adapterDetails(index);
}

} // namespace

QString qtNetworkInterfaces()
{
    QString text = QStringLiteral("Network Interfaces Info") + newline;
    const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface &networkInterface : interfaces)
        text += interfaceBlock(networkInterface);
    return text;
}

QString adapterDetails(quint32 index)
{
    const AdapterList adapters;
    const IP_ADAPTER_INFO *adapter = adapters.find(index);
    if (!adapter)
        return QString();
    return addressLines(QStringLiteral("Gateway"), adapter->GatewayList) + dhcpLines(*adapter) + winsLines(*adapter);
}

QString formatLeaseTime(qint64 time)
{
    const auto seconds = static_cast<__time32_t>(time); // the low 32 bits: the report's format
    struct tm local = {};
    char text[64] = {};
    if (_localtime32_s(&local, &seconds) == 0 && asctime_s(text, sizeof text, &local) == 0)
        return QString::fromUtf8(text);
    return QStringLiteral("0x") + QString::number(time, 16) + newline;
}

} // namespace SystemInfo
} // namespace velkor
