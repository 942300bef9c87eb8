#include "win/adapter_details.h"

#include "report/text.h"
#include "win/lease_time.h"

// winsock2.h must precede windows.h, and windows.h must precede iphlpapi.h
#include <winsock2.h>

#include "win/heap_buffer.h"

#include <iphlpapi.h>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

/// The adapters that Windows lists when the object is constructed.
class AdapterList
{
public:
    AdapterList()
        : m_buffer(sizeof(IP_ADAPTER_INFO))
    {
        ULONG size = sizeof(IP_ADAPTER_INFO);
        if (m_buffer && GetAdaptersInfo(m_buffer.as<IP_ADAPTER_INFO>(), &size) == ERROR_BUFFER_OVERFLOW)
            m_buffer.replace(size);
        // Quirk: called again even after success.
        m_isRead = m_buffer && GetAdaptersInfo(m_buffer.as<IP_ADAPTER_INFO>(), &size) == ERROR_SUCCESS;
    }

    /// Null if there is no adapter of that interface index, or no list.
    const IP_ADAPTER_INFO *find(quint32 index) const
    {
        const IP_ADAPTER_INFO *adapter = m_isRead ? m_buffer.as<IP_ADAPTER_INFO>() : nullptr;
        while (adapter && adapter->Index != index)
            adapter = adapter->Next;
        return adapter;
    }

private:
    HeapBuffer m_buffer;
    bool m_isRead = false;
};

/// Fills the next two placeholders of \a format.
QString withAddress(const QString &format, const IP_ADDR_STRING &entry)
{
    return format.arg(QString::fromUtf8(entry.IpAddress.String)).arg(QString::fromUtf8(entry.IpMask.String));
}

/// One unnumbered line, or numbered lines if there are several addresses.
void appendAddressLines(QString &text, const QString &label, const IP_ADDR_STRING &list)
{
    if (!list.Next) {
        appendLine(text, label + withAddress(QStringLiteral(": %1, %2"), list));
        return;
    }
    int number = 0;
    for (const IP_ADDR_STRING *entry = &list; entry; entry = entry->Next)
        appendLine(text, label + withAddress(QStringLiteral(" %1: %2, %3").arg(++number), *entry));
}

void appendDhcpLines(QString &text, const IP_ADAPTER_INFO &adapter)
{
    appendLine(text, QStringLiteral("DHCP enabled:  %1").arg(adapter.DhcpEnabled));
    if (!adapter.DhcpEnabled)
        return;
    appendAddressLines(text, QStringLiteral("DHCP server"), adapter.DhcpServer);
    // formatLeaseTime() returns the line end too.
    append(text, QStringLiteral("Lease obtained: %1").arg(formatLeaseTime(adapter.LeaseObtained)));
    append(text, QStringLiteral("Lease expires:  %1").arg(formatLeaseTime(adapter.LeaseExpires)));
}

void appendWinsLines(QString &text, const IP_ADAPTER_INFO &adapter)
{
    appendLine(text, QStringLiteral("Have WINS: %1").arg(adapter.HaveWins));
    if (!adapter.HaveWins)
        return;
    appendLine(text, withAddress(QStringLiteral("Primary WINS Server: %1, %2"), adapter.PrimaryWinsServer));
    appendLine(text, withAddress(QStringLiteral("Secondary WINS Server: %1, %2"), adapter.SecondaryWinsServer));
}

} // namespace

QString adapterDescription(quint32 index)
{
    const AdapterList adapters;
    const IP_ADAPTER_INFO *adapter = adapters.find(index);
    return adapter ? QString::fromUtf8(adapter->Description) : QString();
}

QString adapterDetails(quint32 index)
{
    const AdapterList adapters;
    const IP_ADAPTER_INFO *adapter = adapters.find(index);
    QString text;
    if (adapter) {
        appendAddressLines(text, QStringLiteral("Gateway"), adapter->GatewayList);
        appendDhcpLines(text, *adapter);
        appendWinsLines(text, *adapter);
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
