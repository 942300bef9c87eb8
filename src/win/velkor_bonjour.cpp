#include "vkSystemInfo.h"
#include "win/dnssd_service.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr const wchar_t *library = L"vkdnssd.dll";

} // namespace

bool checkVelkorBonjour(int &errorCode, QString &version)
{
    return checkDnssdLibrary(library, errorCode, version);
}

QString checkVelkorBonjourText()
{
    return dnssdStatus("velkor DNS-SD: ", library);
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
