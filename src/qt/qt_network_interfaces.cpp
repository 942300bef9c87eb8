#include "qt/qt_network_interfaces.h"

#include "report/text.h"
#include "win/adapter_details.h"

#include <QtNetwork/QNetworkInterface>

namespace velkor {
namespace SystemInfo {
namespace {

QString statusLine(QNetworkInterface::InterfaceFlags flags)
{
    return QStringLiteral("Status: ")
        + (flags & QNetworkInterface::IsUp ? QStringLiteral("Up") : QStringLiteral("Down")) + QStringLiteral(", ")
        + (flags & QNetworkInterface::IsRunning ? QStringLiteral("Running") : QStringLiteral("Not running"));
}

void appendAddressEntries(QString &text, const QList<QNetworkAddressEntry> &entries)
{
    appendLine(text, QStringLiteral("Addresses: IP , netmask , broadcast"));
    if (entries.isEmpty())
        appendLine(text, QStringLiteral("<no address>"));
    const QString comma = QStringLiteral(" , ");
    for (const QNetworkAddressEntry &entry : entries)
        appendLine(text, entry.ip().toString() + comma + entry.netmask().toString() + comma + entry.broadcast().toString());
}

void appendInterfaceBlock(QString &text, const QNetworkInterface &networkInterface)
{
    const quint32 index = quint32(networkInterface.index());
    appendLine(text, QStringLiteral("_______________________________________________________"));
    const QString displayName = WinSysInfo::adapterDescription(index);
    appendLine(text, displayName.isEmpty() ? networkInterface.humanReadableName() : displayName);
    if (networkInterface.flags() & QNetworkInterface::IsLoopBack)
        appendLine(text, QStringLiteral("Loopback interface"));
    appendLine(text, "Hardware address: %1", networkInterface.hardwareAddress());
    appendLine(text, statusLine(networkInterface.flags()));
    appendAddressEntries(text, networkInterface.addressEntries());
    append(text, WinSysInfo::adapterDetails(index));
}

} // namespace

QString qtNetworkInterfaces()
{
    QString text;
    appendLine(text, QStringLiteral("Network Interfaces Info"));
    const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface &networkInterface : interfaces)
        appendInterfaceBlock(text, networkInterface);
    return text;
}

} // namespace SystemInfo
} // namespace velkor
