#include "independent_gl.h"

#include <GL/glx.h>

bool makeContextCurrent()
{
    Display *display = XOpenDisplay(nullptr);
    if (!display)
        return false;
    int attributes[] = {GLX_RGBA, GLX_DOUBLEBUFFER, None};
    XVisualInfo *visual = glXChooseVisual(display, DefaultScreen(display), attributes);
    if (!visual)
        return false;
    const Window root = RootWindow(display, visual->screen);
    XSetWindowAttributes windowAttributes = {};
    windowAttributes.colormap = XCreateColormap(display, root, visual->visual, AllocNone);
    const Window window = XCreateWindow(display, root, 0, 0, 16, 16, 0, visual->depth, InputOutput, visual->visual,
                                        CWBorderPixel | CWColormap, &windowAttributes);
    const GLXContext context = glXCreateContext(display, visual, nullptr, True);
    XFree(visual);
    return context && glXMakeCurrent(display, window, context);
}
