// Replaces QGuiApplication::primaryScreen() in the program that links it. The environment variable
// PRIMARY_SCREEN is "none" or an index in Qt's list of screens, from 0. Without it, and for calls
// by Qt itself, the function calls Qt.

#include "vkSystemInfo.h"

#include <QtGui/QGuiApplication>
#include <dlfcn.h>

namespace {

/// The base address of the program or library that contains \a address.
void *moduleOf(void *address)
{
    Dl_info info = {};
    dladdr(address, &info);
    return info.dli_fbase;
}

bool isCallOfTheSection(void *returnAddress)
{
    return moduleOf(returnAddress) == moduleOf(reinterpret_cast<void *>(&velkor::SystemInfo::qtDesktop));
}

} // namespace

// The linker prefers this definition to that of QtGui.
QScreen *QGuiApplication::primaryScreen()
{
    using Function = QScreen *(*)();
    static const auto real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "_ZN15QGuiApplication13primaryScreenEv"));
    const QByteArray choice = qgetenv("PRIMARY_SCREEN");
    if (choice.isEmpty() || !isCallOfTheSection(__builtin_return_address(0)))
        return real();
    return choice == "none" ? nullptr : screens().at(choice.toInt());
}
