// Monitors as the calls of Windows describe them.
#pragma once

#include <QtCore/QString>
#include <vector>
#include <windows.h>

namespace qt_environment {

struct Monitor
{
    QString device; // for example "\\.\DISPLAY1"
    bool isPrimary;
    RECT area;     // pixels of the desktop
    RECT workArea; // area without task bars
    int width;     // of area
    int height;
    int modeWidth; // of the current mode; 0 for a second Xinerama screen under Wine
    int modeHeight;
    int refreshRate; // of the mode, in Hz; 0 or 1: the default of the hardware
    int bitsPerPixel;
    int millimetresWide;
    int millimetresHigh;
    UINT dotsPerInchX; // the setting of the user, not a measurement
    UINT dotsPerInchY;
};

/// The primary monitor, then the others in the order of EnumDisplayMonitors().
std::vector<Monitor> monitors();

} // namespace qt_environment
