#include "independent_gl.h"

#include <windows.h>

bool makeContextCurrent()
{
    const HWND window = CreateWindowW(L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 16, 16, nullptr, nullptr, nullptr, nullptr);
    const HDC device = GetDC(window);
    PIXELFORMATDESCRIPTOR format = {};
    format.nSize = sizeof format;
    format.nVersion = 1;
    format.dwFlags = PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | PFD_DOUBLEBUFFER;
    format.iPixelType = PFD_TYPE_RGBA;
    format.cColorBits = 24;
    if (!SetPixelFormat(device, ChoosePixelFormat(device, &format), &format))
        return false;
    const HGLRC context = wglCreateContext(device);
    return context && wglMakeCurrent(device, context);
}
