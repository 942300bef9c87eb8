#include "call_scope.h"
#include "text.h"

#include <cstring>
#include <iphlpapi.h>

namespace simulated {
namespace {

using machine::AdapterRecord;
using machine::AddressRecord;

std::size_t furtherAddresses(const AdapterRecord &adapter)
{
    const auto further = [](const std::vector<AddressRecord> &list) { return list.empty() ? 0 : list.size() - 1; };
    return further(adapter.GatewayList) + further(adapter.DhcpServer);
}

void fillAddress(const AddressRecord &record, IP_ADDR_STRING &address)
{
    copyNarrow(ansi().fromUtf16(record.address), address.IpAddress.String, sizeof address.IpAddress.String);
    copyNarrow(ansi().fromUtf16(record.mask), address.IpMask.String, sizeof address.IpMask.String);
}

/// The first entry is part of the record; the others follow after all records.
void fillList(const std::vector<AddressRecord> &list, IP_ADDR_STRING &first, IP_ADDR_STRING *&further)
{
    fillAddress(list.empty() ? AddressRecord() : list.front(), first);
    IP_ADDR_STRING *last = &first;
    for (std::size_t i = 1; i < list.size(); ++i) {
        last->Next = further++;
        last = last->Next;
        fillAddress(list[i], *last);
    }
}

void fillAdapter(const AdapterRecord &record, IP_ADAPTER_INFO &adapter, IP_ADDR_STRING *&further)
{
    copyNarrow(ansi().fromUtf16(record.AdapterName), adapter.AdapterName, sizeof adapter.AdapterName);
    copyNarrow(ansi().fromUtf16(record.Description), adapter.Description, sizeof adapter.Description);
    adapter.Index = record.Index;
    adapter.DhcpEnabled = record.DhcpEnabled;
    fillList(record.GatewayList, adapter.GatewayList, further);
    fillList(record.DhcpServer, adapter.DhcpServer, further);
    adapter.HaveWins = record.HaveWins;
    fillAddress(record.PrimaryWinsServer, adapter.PrimaryWinsServer);
    fillAddress(record.SecondaryWinsServer, adapter.SecondaryWinsServer);
    adapter.LeaseObtained = record.LeaseObtained;
    adapter.LeaseExpires = record.LeaseExpires;
}

} // namespace
} // namespace simulated

using namespace simulated;

DWORD GetAdaptersInfo(PIP_ADAPTER_INFO adapters, ULONG *size)
{
    CallScope scope("GetAdaptersInfo", {});
    scope.call.sizeIn = scope.call.sizeOut = *size;
    const auto &records = machineInUse().system.GetAdaptersInfo;
    if (scope.fault())
        return DWORD(scope.status(*scope.fault()));
    if (!records)
        return DWORD(scope.status(records.error ? records.error : DWORD(ERROR_INVALID_PARAMETER)));
    if (records->empty())
        return DWORD(scope.status(ERROR_NO_DATA));
    std::size_t needed = records->size() * sizeof(IP_ADAPTER_INFO);
    for (const machine::AdapterRecord &record : *records)
        needed += furtherAddresses(record) * sizeof(IP_ADDR_STRING);
    const ULONG room = *size;
    scope.call.sizeOut = *size = ULONG(needed);
    if (!adapters || room < needed)
        return DWORD(scope.status(ERROR_BUFFER_OVERFLOW));
    std::memset(adapters, 0, needed);
    auto *further = reinterpret_cast<IP_ADDR_STRING *>(adapters + records->size());
    for (std::size_t i = 0; i < records->size(); ++i) {
        fillAdapter((*records)[i], adapters[i], further);
        adapters[i].Next = i + 1 < records->size() ? &adapters[i + 1] : nullptr;
    }
    return DWORD(scope.status(ERROR_SUCCESS));
}
