#include "windows_monitors.h"

#include <algorithm>

namespace qt_environment {
namespace {

void readMode(const wchar_t *device, Monitor &monitor)
{
    DEVMODEW mode = {};
    mode.dmSize = sizeof mode;
    if (!EnumDisplaySettingsW(device, ENUM_CURRENT_SETTINGS, &mode))
        qFatal("EnumDisplaySettings failed");
    monitor.modeWidth = int(mode.dmPelsWidth);
    monitor.modeHeight = int(mode.dmPelsHeight);
    monitor.refreshRate = int(mode.dmDisplayFrequency);
}

void readCapabilities(const wchar_t *device, Monitor &monitor)
{
    const HDC context = CreateDCW(device, nullptr, nullptr, nullptr);
    if (!context)
        qFatal("CreateDC failed");
    monitor.bitsPerPixel = GetDeviceCaps(context, BITSPIXEL);
    monitor.millimetresWide = GetDeviceCaps(context, HORZSIZE);
    monitor.millimetresHigh = GetDeviceCaps(context, VERTSIZE);
    monitor.dotsPerInchX = UINT(GetDeviceCaps(context, LOGPIXELSX));
    monitor.dotsPerInchY = UINT(GetDeviceCaps(context, LOGPIXELSY));
    DeleteDC(context);
}

/// Since Windows 8.1 each monitor has its own setting.
void readDotsPerInch(HMONITOR handle, Monitor &monitor)
{
    using GetDpiForMonitor = HRESULT(WINAPI *)(HMONITOR, int, UINT *, UINT *);
    const HMODULE library = LoadLibraryW(L"shcore.dll");
    if (!library)
        return;
    constexpr int effective = 0;
    UINT x = 0;
    UINT y = 0;
    const auto getDpi = reinterpret_cast<GetDpiForMonitor>(
        reinterpret_cast<void *>(GetProcAddress(library, "GetDpiForMonitor")));
    if (getDpi && getDpi(handle, effective, &x, &y) == S_OK) {
        monitor.dotsPerInchX = x;
        monitor.dotsPerInchY = y;
    }
    FreeLibrary(library);
}

BOOL CALLBACK add(HMONITOR handle, HDC, LPRECT, LPARAM list)
{
    MONITORINFOEXW information = {};
    information.cbSize = sizeof information;
    if (!GetMonitorInfoW(handle, &information))
        qFatal("GetMonitorInfo failed");
    Monitor monitor = {};
    monitor.device = QString::fromWCharArray(information.szDevice);
    monitor.isPrimary = information.dwFlags & MONITORINFOF_PRIMARY;
    monitor.area = information.rcMonitor;
    monitor.workArea = information.rcWork;
    monitor.width = monitor.area.right - monitor.area.left;
    monitor.height = monitor.area.bottom - monitor.area.top;
    readMode(information.szDevice, monitor);
    readCapabilities(information.szDevice, monitor);
    readDotsPerInch(handle, monitor);
    reinterpret_cast<std::vector<Monitor> *>(list)->push_back(monitor);
    return TRUE;
}

} // namespace

std::vector<Monitor> monitors()
{
    std::vector<Monitor> list;
    EnumDisplayMonitors(nullptr, nullptr, add, reinterpret_cast<LPARAM>(&list));
    std::stable_partition(list.begin(), list.end(), [](const Monitor &monitor) { return monitor.isPrimary; });
    return list;
}

} // namespace qt_environment
