// The part of iphlpapi.h that this project uses, for systems other than Windows.
#pragma once

#include <ctime>
#include <windows.h>

struct IP_ADDRESS_STRING
{
    char String[4 * 4];
};
using IP_MASK_STRING = IP_ADDRESS_STRING;

struct IP_ADDR_STRING
{
    IP_ADDR_STRING *Next;
    IP_ADDRESS_STRING IpAddress;
    IP_MASK_STRING IpMask;
    DWORD Context;
};

constexpr int MAX_ADAPTER_DESCRIPTION_LENGTH = 128;
constexpr int MAX_ADAPTER_NAME_LENGTH = 256;
constexpr int MAX_ADAPTER_ADDRESS_LENGTH = 8;

struct IP_ADAPTER_INFO
{
    IP_ADAPTER_INFO *Next;
    DWORD ComboIndex;
    char AdapterName[MAX_ADAPTER_NAME_LENGTH + 4];
    char Description[MAX_ADAPTER_DESCRIPTION_LENGTH + 4];
    UINT AddressLength;
    BYTE Address[MAX_ADAPTER_ADDRESS_LENGTH];
    DWORD Index;
    UINT Type;
    UINT DhcpEnabled;
    IP_ADDR_STRING *CurrentIpAddress;
    IP_ADDR_STRING IpAddressList;
    IP_ADDR_STRING GatewayList;
    IP_ADDR_STRING DhcpServer;
    BOOL HaveWins;
    IP_ADDR_STRING PrimaryWinsServer;
    IP_ADDR_STRING SecondaryWinsServer;
    std::int64_t LeaseObtained;
    std::int64_t LeaseExpires;
};
using PIP_ADAPTER_INFO = IP_ADAPTER_INFO *;

static_assert(sizeof(IP_ADAPTER_INFO) == 704 && sizeof(IP_ADDR_STRING) == 48, "as on Windows");

extern "C" {
DWORD GetAdaptersInfo(PIP_ADAPTER_INFO adapters, ULONG *size);
}
