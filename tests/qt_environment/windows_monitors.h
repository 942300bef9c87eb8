// Monitors as Windows' own calls describe them.
#pragma once

#include <QtCore/QString>
#include <vector>
#include <windows.h>

namespace qt_environment {

struct Monitor
{
    QString device; // such as "\\.\DISPLAY1"
    bool isPrimary;
    RECT area;     // pixels of the desktop
    RECT workArea; // the same without task bars
    int width;     // of its area
    int height;
    int modeWidth; // of the mode that the device is in; 0 for a further screen of Xinerama under Wine
    int modeHeight;
    int refreshRate; // of the mode, in Hz; 0 and 1: the hardware's own
    int bitsPerPixel;
    int millimetresWide;
    int millimetresHigh;
    UINT dotsPerInchX; // as set by the user, not measured
    UINT dotsPerInchY;
};

/// The primary one, then the others in the order of EnumDisplayMonitors().
std::vector<Monitor> monitors();

} // namespace qt_environment
