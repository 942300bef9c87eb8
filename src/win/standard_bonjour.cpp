#include "vkSystemInfo.h"
#include "win/dnssd_service.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr const wchar_t *library = L"dnssd.dll";

} // namespace

bool checkStandardBonjour(int &errorCode, QString &version)
{
    return checkDnssdLibrary(library, errorCode, version);
}

QString checkStandardBonjourText()
{
    return dnssdStatus("Standard Bonjour: ", library);
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
